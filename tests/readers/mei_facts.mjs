// The facts of a score that verovio has read, from its MEI.
import { Facts } from "./facts.mjs";
import { Rational, dotted, zero } from "./rational.mjs";
import { parseXml } from "./xml_tree.mjs";

const longValues = { breve: new Rational(2), long: new Rational(4), maxima: new Rational(8) };
const wholeMeasure = new Set(["mRest", "mSpace", "multiRest", "mRpt", "mRpt2", "multiRpt"]);
const timed = new Set(["note", "chord", "rest", "space"]);
// A merge may group notes otherwise, so beams are not compared.
const leftOut = new Set(["beamSpan"]);
// What makes an element of a measure a line or a mark.
const lineEnds = ["startid", "endid", "tstamp", "tstamp2"];
// Attributes of a line or mark that say what it is, not how it looks.
const kinds = ["form", "dis", "dis.place", "func", "dir", "shape", "lform", "num", "order", "mm", "mm.unit", "glyph.name"];

export function factsOfMei(text) {
    return new MeiReader(parseXml(text)).read();
}

class MeiReader {
    constructor(root) {
        this.root = root;
        this.facts = new Facts();
        this.places = new Map(); // xml:id -> place
        this.chords = new Map(); // xml:id -> place of the chord that the note is part of
        this.measure = 0;
    }

    read() {
        const measures = [...this.root.descendants()].filter(({ name }) => name === "measure");
        measures.forEach((measure, index) => this.readStaves(measure, index + 1));
        measures.forEach((measure, index) => this.readLines(measure, index + 1));
        return this.facts;
    }

    readStaves(measure, number) {
        this.measure = number;
        for (const staff of measure.childrenNamed("staff")) {
            this.staff = staff.attributes.n;
            for (const layer of staff.childrenNamed("layer")) {
                this.onset = zero;
                this.hasMusic = false;
                this.readContent(layer, new Rational(1), []);
                if (this.hasMusic) {
                    this.facts.reaches(number, this.staff, this.onset);
                }
            }
        }
    }

    // Ratio: how much of its written value an entry here takes. Tuplets: the lists that collect
    // the notes of those that run, the outermost first.
    readContent(element, ratio, tuplets) {
        for (const child of element.children) {
            if (timed.has(child.name)) {
                this.readTimed(child, ratio, tuplets);
            } else if (child.name === "tuplet") {
                this.readTuplet(child, ratio, tuplets);
            } else if (child.name === "fTrem") {
                this.readContent(child, ratio.times(new Rational(1, 2)), tuplets);
            } else if (wholeMeasure.has(child.name)) {
                this.hasMusic = false;
            } else {
                this.readContent(child, ratio, tuplets);
            }
        }
    }

    readTuplet(element, ratio, tuplets) {
        const { num, numbase } = element.attributes;
        const inner = ratio.times(new Rational(Number(numbase ?? num ?? 1), Number(num ?? 1)));
        const start = this.onset;
        const notes = [];
        this.readContent(element, inner, [...tuplets, notes]);
        for (const place of notes) {
            this.facts.add("tuplet", [place], `${num}:${numbase} from ${start} to ${this.onset}`);
        }
    }

    readTimed(element, ratio, tuplets) {
        const { grace, dur, dots } = element.attributes;
        const length = grace === undefined ? lengthOf(dur, dots).times(ratio) : zero;
        if (element.name === "note") {
            this.placeChord(element, [element], length, tuplets);
        } else if (element.name === "chord") {
            const notes = [...element.descendants()].filter(({ name }) => name === "note");
            this.placeChord(element, notes, length, tuplets);
        } else {
            this.places.set(element.attributes["xml:id"], this.placeOf(element, []));
        }
        this.onset = this.onset.plus(length);
        this.hasMusic ||= element.name !== "space";
    }

    placeOf(element, pitches) {
        return {
            measure: this.measure,
            staff: element.attributes.staff ?? this.staff,
            onset: this.onset,
            grace: element.attributes.grace !== undefined,
            pitches,
        };
    }

    placeChord(chord, notes, length, tuplets) {
        const ofChord = this.placeOf(chord, notes.map(pitchOf).sort());
        this.places.set(chord.attributes["xml:id"], ofChord);
        for (const note of notes) {
            const place = this.placeOf(chord, [pitchOf(note)]);
            place.staff = note.attributes.staff ?? place.staff;
            this.places.set(note.attributes["xml:id"], place);
            this.chords.set(note.attributes["xml:id"], ofChord);
            this.facts.add("note", [place]);
            this.facts.add("duration", [place], `${length}`);
            tuplets.forEach((members) => members.push(place));
            this.readVerses(note, place);
            this.readMarks(note, place);
        }
        if (chord.name === "chord") {
            this.addChord(chord, notes);
            this.readVerses(chord, ofChord);
            this.readMarks(chord, ofChord);
        }
    }

    // One for each staff that it has two notes or more on.
    addChord(chord, notes) {
        const staffOf = (note) => note.attributes.staff ?? chord.attributes.staff ?? this.staff;
        for (const staff of new Set(notes.map(staffOf))) {
            const pitches = notes.filter((note) => staffOf(note) === staff).map(pitchOf);
            if (pitches.length > 1) {
                this.facts.add("chord", [{ ...this.placeOf(chord, pitches.sort()), staff }]);
            }
        }
    }

    readVerses(element, place) {
        for (const verse of element.childrenNamed("verse")) {
            for (const syllable of verse.childrenNamed("syl")) {
                const { con, wordpos } = syllable.attributes;
                this.facts.add("lyric", [place], `${verse.attributes.n} "${syllable.text}" ${wordpos ?? ""}${con ?? ""}`);
            }
        }
    }

    readMarks(element, place) {
        for (const mark of element.childrenNamed("artic")) {
            for (const artic of (mark.attributes.artic ?? mark.attributes["glyph.name"] ?? "").split(" ")) {
                this.facts.add("articulation", [place], artic);
            }
        }
    }

    readLines(measure, number) {
        this.measure = number;
        for (const element of measure.children) {
            const { attributes } = element;
            if (leftOut.has(element.name) || !lineEnds.some((end) => attributes[end] !== undefined)) {
                continue;
            }
            const { startid, endid, tstamp, tstamp2, staff } = attributes;
            const ends = [this.endOf(element, startid, tstamp, staff)];
            if (endid !== undefined || tstamp2 !== undefined) {
                ends.push(this.endOf(element, endid, tstamp2, staff));
            }
            const what = kinds.flatMap((kind) => (attributes[kind] === undefined ? [] : [attributes[kind]]));
            this.facts.add(element.name, ends, [...what, element.text].join(" ").trim());
        }
    }

    endOf({ name }, id, time, staff) {
        const isOctave = name === "octave";
        const isOfNotes = name === "tie" || name === "gliss" || name === "lv";
        if (id === undefined) {
            const [beat, measures] = (time ?? "").split("+").reverse();
            const measure = this.measure + Number.parseInt(measures ?? "0", 10);
            return { measure, text: `m. ${measure}, staff ${staff}, beat ${beat}` };
        }
        const key = id.replace("#", "");
        if (isOctave) {
            // verovio gives it to the entries beside it in the text, whatever their voice.
            const { measure } = this.places.get(key) ?? this;
            return { measure, staff, text: `m. ${measure}` };
        }
        const place = (isOfNotes ? undefined : this.chords.get(key)) ?? this.places.get(key);
        return place ?? { measure: this.measure, text: "nowhere" };
    }
}

function lengthOf(dur, dots) {
    if (dur === undefined) {
        return zero;
    }
    return dotted(longValues[dur] ?? new Rational(1, Number(dur)), Number(dots ?? 0));
}

function pitchOf(note) {
    const { pname, loc } = note.attributes;
    const octave = note.attributes["oct.ges"] ?? note.attributes.oct; // as sounding, also under 8va
    if (pname === undefined) {
        return `at ${loc}`;
    }
    const accid = note.child("accid")?.attributes ?? {};
    const sounding =
        note.attributes["accid.ges"] ?? accid["accid.ges"] ?? note.attributes.accid ?? accid.accid ?? "";
    return `${pname}${sounding === "n" ? "" : sounding}${octave}`;
}
