// Whether the comparison sees what it is there for: a score with a thing of each kind is read as
// it is and with one fault at a time, and each fault must be found.
import { readFileSync, writeFileSync } from "node:fs";
import path from "node:path";
import { compareFacts } from "./comparison.mjs";

const slurStop = '<slur type="stop" number="1"/>';
const bracketStart = '<tuplet type="start" number="1"/>';
const edits = [
    { finds: "slur lost", replace: [[slurStop, ""]] },
    { finds: "slur new", replace: [[slurStop, ""], [bracketStart, bracketStart + slurStop]] },
    { finds: "articulation lost", replace: [["<staccato/>", "<accent/>"]] },
    { finds: "lyric lost", replace: [["<text>la<", "<text>li<"]] },
    { finds: "hairpin lost", replace: [["crescendo", "diminuendo"]] },
    { finds: "octave lost", replace: [['type="down"', 'type="up"']] },
    { finds: "fermata lost", replace: [['<fermata type="upright"/>', ""]] },
    { finds: "tie lost", replace: [[/<tied? type="start"\/>/g, ""]] },
    { finds: "tuplet lost", replace: [[/<tuplet type="\w+" number="1"\/>|<time-modification>.*<\/time-modification>/g, ""]] },
    { finds: "note lost", replace: [["<step>D</step><octave>5</octave>", "<step>D</step><octave>6</octave>"]] },
    { finds: "note lost", replace: [[/<note><grace\/>.*\n/, ""]] },
    { finds: "note new", replace: [[/(<tie type="stop"\/>.*)<staff>1</, "$1<staff>2<"]] },
    { finds: "duration lost", replace: [[/24(<.*)whole/, "12$1half"]] },
    { finds: "chord lost", replace: [[/<note><chord\/>(.*<voice>)5/, "<backup><duration>12</duration></backup><note>$16"]] },
    { finds: "measure longer", replace: [[/(<rest\/><duration>24.*\n)/, "$1<note><rest/><duration>6</duration><voice>5</voice><type>quarter</type><staff>2</staff></note>\n"]] },
];

export class Faults {
    // Writes the scores to the folder.
    constructor(folder) {
        const text = readFileSync(new URL("all-kinds.musicxml", import.meta.url), "utf8");
        const write = (name, content) => {
            const file = path.join(folder, `${name}.musicxml`);
            writeFileSync(file, content);
            return file;
        };
        this.whole = write("all-kinds", text);
        this.damaged = edits.map(({ finds, replace }, index) => {
            const content = replace.reduce((before, [from, to]) => before.replace(from, to), text);
            return { finds, file: write(`fault-${index}`, content) };
        });
    }

    files() {
        return [this.whole, ...this.damaged.map(({ file }) => file)];
    }

    // What the reader and the comparison did not see.
    async unseen(reader) {
        const whole = await reader.read(this.whole);
        const unseen = [];
        for (const { finds, file } of this.damaged) {
            const findings = compareFacts(whole, await reader.read(file));
            if (!findings.some(({ aspect, side }) => `${aspect} ${side}` === finds)) {
                unseen.push(`${path.basename(file)}, ${finds}`);
            }
        }
        return unseen;
    }
}
