// The facts of a score that MuseScore 3 has read, from its own format.
import { Facts } from "./facts.mjs";
import { Rational, dotted, zero } from "./rational.mjs";
import { parseXml } from "./xml_tree.mjs";

const one = new Rational(1);
const values = {
    long: new Rational(4),
    breve: new Rational(2),
    whole: one,
    half: new Rational(1, 2),
    quarter: new Rational(1, 4),
    eighth: new Rational(1, 8),
};
const graceKinds = [
    "acciaccatura",
    "appoggiatura",
    "grace4",
    "grace16",
    "grace32",
    "grace8after",
    "grace16after",
    "grace32after",
];
// The elements at a time in a staff, apart from notes and lines.
const marks = new Set([
    "Dynamic",
    "Fermata",
    "StaffText",
    "SystemText",
    "Tempo",
    "Harmony",
    "RehearsalMark",
    "FiguredBass",
    "Breath",
    "Symbol",
]);
const chordMarks = new Set(["Articulation", "Arpeggio", "Tremolo", "ChordLine"]);
const octaveShifts = { "8va": 12, "8vb": -12, "15ma": 24, "15mb": -24, "22ma": 36, "22mb": -36 };
const aspects = { Slur: "slur", Tie: "tie", HairPin: "hairpin", Ottava: "octave", Lyrics: "lyric line" };

export function factsOfMscx(text) {
    return new MscxReader(parseXml(text)).read();
}

class MscxReader {
    constructor(root) {
        this.root = root;
        this.facts = new Facts();
        this.starts = [];
        this.ends = [];
        this.written = []; // places whose pitches are as written, also under 8va
        this.octaves = []; // {staff, from, to, shift}
    }

    read() {
        for (const staff of this.root.child("Score").childrenNamed("Staff")) {
            this.readStaff(staff);
        }
        this.joinLines();
        this.written.forEach((place) => this.makeSounding(place));
        return this.facts;
    }

    readStaff(staff) {
        this.staff = Number(staff.attributes.id);
        this.measure = 0;
        this.lengths = []; // of the measures, in whole notes
        let usual = one;
        for (const measure of staff.childrenNamed("Measure")) {
            this.measure += 1;
            const time = [...measure.descendants()].find(({ name }) => name === "TimeSig");
            if (time !== undefined) {
                usual = Rational.parse(`${time.textOf("sigN")}/${time.textOf("sigD")}`);
            }
            const { len } = measure.attributes;
            this.lengths[this.measure] = len === undefined ? usual : Rational.parse(len);
            this.facts.reaches(this.measure, this.staff, this.lengths[this.measure]);
            measure.childrenNamed("voice").forEach((voice, index) => this.readVoice(voice, index));
        }
    }

    readVoice(voice, index) {
        this.voice = index;
        this.onset = zero;
        this.tuplets = []; // those that run, the outermost first
        for (const element of voice.children) {
            if (element.name === "location") {
                this.onset = this.onset.plus(Rational.parse(element.textOf("fractions") ?? "0"));
            } else if (element.name === "Tuplet") {
                this.openTuplet(element);
            } else if (element.name === "endTuplet") {
                this.closeTuplet();
            } else if (element.name === "Chord" || element.name === "Rest") {
                this.readChord(element);
            } else if (element.name === "Spanner") {
                this.readLine(element, this.placeHere([]));
            } else if (marks.has(element.name)) {
                const what = [element.textOf("subtype"), element.textOf("text"), element.textOf("name")];
                const root = element.name === "Harmony" ? [element.textOf("root"), element.textOf("base")] : [];
                this.facts.add(element.name.toLowerCase(), [this.placeHere([])], joined([...what, ...root]));
            }
        }
        if (this.lengths[this.measure].isLess(this.onset)) {
            this.facts.overfull.add(this.measure);
        }
    }

    openTuplet(element) {
        const ratio = new Rational(Number(element.textOf("normalNotes")), Number(element.textOf("actualNotes")));
        this.tuplets.push({
            name: `${element.textOf("actualNotes")}:${element.textOf("normalNotes")}`,
            ratio: (this.tuplets.at(-1)?.ratio ?? one).times(ratio),
            start: this.onset,
            notes: [],
        });
    }

    closeTuplet() {
        const { name, start, notes } = this.tuplets.pop();
        for (const place of notes) {
            this.facts.add("tuplet", [place], `${name} from ${start} to ${this.onset}`);
        }
    }

    readChord(element) {
        const isGrace = graceKinds.some((kind) => element.child(kind) !== undefined);
        const length = isGrace ? zero : this.lengthOf(element);
        const notes = element.childrenNamed("Note");
        const place = this.placeHere(notes.map(pitchOf).sort(), element, isGrace);
        this.facts.onsets.add(`${this.measure} ${this.staff} ${this.voice} ${this.onset}`);
        this.written.push(place);
        for (const note of notes) {
            const ofNote = { ...place, pitches: [pitchOf(note)] };
            this.written.push(ofNote);
            this.facts.add("note", [ofNote]);
            this.facts.add("duration", [ofNote], `${length}`);
            this.tuplets.forEach((tuplet) => tuplet.notes.push(ofNote));
            note.childrenNamed("Spanner").forEach((line) => this.readLine(line, ofNote));
        }
        if (notes.length > 1) {
            this.facts.add("chord", [place]);
        }
        for (const child of element.children) {
            if (child.name === "Spanner") {
                this.readLine(child, place);
            } else if (child.name === "Lyrics") {
                this.readLyrics(child, place);
            } else if (chordMarks.has(child.name)) {
                const kind = (child.textOf("subtype") ?? "").replace(/Above$|Below$/, "");
                this.facts.add(child.name.toLowerCase(), [place], kind);
            }
        }
        this.onset = this.onset.plus(length);
    }

    readLyrics(element, place) {
        const number = Number(element.textOf("no") ?? "0") + 1;
        this.facts.add("lyric", [place], joined([`${number}`, `"${element.textOf("text")}"`, element.textOf("syllabic")]));
    }

    lengthOf(element) {
        const type = element.textOf("durationType");
        if (type === "measure") {
            return Rational.parse(element.textOf("duration"));
        }
        const value = values[type] ?? new Rational(1, Number.parseInt(type, 10));
        const ratio = this.tuplets.at(-1)?.ratio ?? one;
        return dotted(value, Number(element.textOf("dots") ?? "0")).times(ratio);
    }

    placeHere(pitches, chord, grace = false) {
        const moved = Number(chord?.textOf("staffMove") ?? "0");
        return {
            measure: this.measure,
            staff: this.staff + moved,
            onset: this.onset,
            grace,
            pitches,
            track: { staff: this.staff, voice: this.voice },
        };
    }

    // One end of a line. Each gives the other end in steps of staves, voices, measures and time.
    readLine(element, place) {
        const type = element.attributes.type;
        const here = [place.track.staff, place.track.voice, place.measure, place.onset];
        const next = element.child("next");
        const prev = element.child("prev");
        if (next === undefined && prev === undefined) {
            this.facts.leftOut.add(aspects[type] ?? type.toLowerCase());
        }
        const line = { type, place, here };
        if (next !== undefined) {
            const what = joined([element.child(type)?.textOf("subtype"), element.child(type)?.textOf("beginText")]);
            this.starts.push({ ...line, what, there: this.otherEnd(next.child("location"), place) });
        }
        if (prev !== undefined) {
            this.ends.push({ ...line, there: this.otherEnd(prev.child("location"), place) });
        }
    }

    otherEnd(location, place) {
        const step = (name) => Number(location.textOf(name) ?? "0");
        const time = Rational.parse(location.textOf("fractions") ?? "0");
        return [
            place.track.staff + step("staves"),
            place.track.voice + step("voices"),
            place.measure + step("measures"),
            place.onset.plus(time),
        ];
    }


    // The time at a measure's end is that of the next one's start.
    normalized([staff, voice, measure, onset]) {
        while (this.lengths[measure] !== undefined && !onset.isLess(this.lengths[measure])) {
            onset = onset.minus(this.lengths[measure]);
            measure += 1;
        }
        return { measure, onset, text: `${staff} ${voice} ${measure} ${onset}` };
    }

    joinLines() {
        const joints = new Map();
        const keyOf = (type, start, end, pitch) =>
            [type, this.normalized(start).text, this.normalized(end).text, pitch].join("|");
        const pitchOfTie = (line) => (line.type === "Tie" ? line.place.pitches[0] : "");
        for (const end of this.ends) {
            const key = keyOf(end.type, end.there, end.here, pitchOfTie(end));
            joints.set(key, [...(joints.get(key) ?? []), end]);
        }
        for (const start of this.starts) {
            const end = joints.get(keyOf(start.type, start.here, start.there, pitchOfTie(start)))?.shift();
            const places = [start.place, end?.place].filter((place) => place !== undefined);
            const aspect = aspects[start.type] ?? start.type.toLowerCase();
            this.facts.add(aspect, places.map((place) => this.atRealTime(place)), start.what);
            if (aspect === "octave") {
                this.octaves.push({
                    staff: start.place.track.staff,
                    from: this.normalized(start.here),
                    to: this.normalized(start.there),
                    shift: octaveShifts[start.what] ?? 0,
                });
            }
        }
    }

    // An octave shift is its staff's; it does not matter on which staff a voice's note is.
    makeSounding({ measure, onset, track, pitches }) {
        const isBefore = (one, other) =>
            one.measure < other.measure || (one.measure === other.measure && one.onset.isLess(other.onset));
        const here = { measure, onset };
        const shift = this.octaves
            .filter(({ staff, from, to }) => staff === track.staff && !isBefore(here, from) && isBefore(here, to))
            .reduce((sum, octave) => sum + octave.shift, 0);
        pitches.forEach((pitch, index) => {
            const [key, spelling] = pitch.split(".");
            pitches[index] = `${Number(key) + shift}.${spelling}`;
        });
    }

    atRealTime(place) {
        const { measure, onset } = this.normalized([place.staff, 0, place.measure, place.onset]);
        return { ...place, measure, onset };
    }
}

const joined = (parts) => parts.filter((part) => part !== undefined && part !== "").join(" ");

const pitchOf = (note) => `${note.textOf("pitch")}.${note.textOf("tpc")}`;
