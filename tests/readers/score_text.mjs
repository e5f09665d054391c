// What the rules need to know of a score's own text, without regard to any reader.
import { parseXml } from "./xml_tree.mjs";

const aspects = {
    slur: "slur",
    wedge: "hairpin",
    dashes: "textline",
    "octave-shift": "octave",
    pedal: "pedal",
    "wavy-line": "trill",
    glissando: "glissando",
};
const read = new Map(); // text -> ScoreText, of the pair that was asked for last

export class ScoreText {
    static of(text) {
        if (!read.has(text)) {
            if (read.size > 1) {
                read.clear();
            }
            read.set(text, new ScoreText(text));
        }
        return read.get(text);
    }

    constructor(text) {
        this.parts = [];
        let firstStaff = 1;
        for (const element of parseXml(text).childrenNamed("part")) {
            const counts = [...element.descendants()].filter(({ name }) => name === "staves");
            const staves = Math.max(1, ...counts.map((count) => Number(count.text)));
            const measures = element.childrenNamed("measure");
            this.parts.push({ measures, firstStaff, lastStaff: firstStaff + staves - 1 });
            firstStaff += staves;
        }
    }

    // Those whose stop comes before their start in the text of one measure.
    backwardLines() {
        this.backward ??= this.parts.flatMap((part) => backwardLinesOf(part));
        return this.backward;
    }

    // Octave shifts that are open in the text where another one of the part stops.
    octaveShiftsOpenTogether() {
        this.together ??= this.parts.flatMap((part) => octaveShiftsOpenTogetherIn(part));
        return this.together;
    }

    // Those where a grace note is followed by no note of its voice, but a rest or nothing.
    measuresOfLoneGraces() {
        this.lone ??= new Set(this.parts.flatMap(({ measures }) => measuresWithLoneGrace(measures)));
        return this.lone;
    }

    partOf(staff) {
        return this.parts.find(({ firstStaff, lastStaff }) => firstStaff <= staff && staff <= lastStaff);
    }

    // How many voices have notes or rests on that staff of the part where they are most. staff:
    // one of the part's, counted from 1 through the score.
    mostVoicesOnAStaff(staff) {
        const voices = new Map(); // by staff
        for (const measure of this.partOf(staff)?.measures ?? []) {
            for (const note of measure.childrenNamed("note")) {
                const here = note.textOf("staff") ?? "1";
                voices.set(here, (voices.get(here) ?? new Set()).add(note.textOf("voice") ?? "1"));
            }
        }
        return Math.max(0, ...[...voices.values()].map((names) => names.size));
    }
}

function backwardLinesOf({ measures, firstStaff, lastStaff }) {
    const lines = [];
    const open = new Set(); // "wedge 1" of those that were started
    for (const [index, measure] of measures.entries()) {
        const early = new Set(); // that were stopped here before
        for (const { name, attributes } of measure.descendants()) {
            const aspect = aspects[name];
            if (aspect === undefined || attributes.type === "continue") {
                continue;
            }
            const key = `${name} ${attributes.number ?? "1"}`;
            if (attributes.type === "stop") {
                if (!open.delete(key)) {
                    early.add(key);
                }
            } else if (early.delete(key)) {
                lines.push({ aspect, measure: index + 1, firstStaff, lastStaff });
            } else {
                open.add(key);
            }
        }
    }
    return lines;
}

function octaveShiftsOpenTogetherIn({ measures, firstStaff, lastStaff }) {
    const lines = [];
    const open = new Map(); // by number, the measure of the start
    for (const [index, measure] of measures.entries()) {
        const ends = [...measure.descendants()].filter(({ name }) => name === "octave-shift");
        for (const { attributes } of ends) {
            const number = attributes.number ?? "1";
            if (attributes.type === "up" || attributes.type === "down") {
                open.set(number, index + 1);
            } else if (attributes.type === "stop") {
                open.delete(number);
                for (const start of open.values()) {
                    lines.push({ aspect: "octave", measure: start, firstStaff, lastStaff });
                }
            }
        }
    }
    return lines;
}

function measuresWithLoneGrace(measures) {
    const found = [];
    for (const [index, measure] of measures.entries()) {
        const waiting = new Set(); // voices whose last note is a grace note
        let isFound = false;
        for (const note of measure.childrenNamed("note")) {
            const voice = note.textOf("voice") ?? "1";
            if (note.child("grace") !== undefined) {
                waiting.add(voice);
            } else if (waiting.delete(voice)) {
                isFound ||= note.child("rest") !== undefined;
            }
        }
        if (isFound || waiting.size > 0) {
            found.push(index + 1);
        }
    }
    return found;
}
