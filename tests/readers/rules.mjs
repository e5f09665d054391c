// Why a reader may read a merged score otherwise although it means the same. Each rule says for
// what findings it accounts; one that accounts for none in any score is out of date.
//
// explains(finding, view): view.before and view.after give the facts, view.findings all findings
// of the pair of scores, view.source the text of the score before.
import { holds } from "./comparison.mjs";
import { textOf } from "./facts.mjs";
import { Rational } from "./rational.mjs";

const rules = [
    {
        name: "equal notes become one",
        why: "Two voices' equal notes become one note of a chord, and their common marks are there once.",
        explains: ({ side, fact }, { after }) =>
            side === "lost" &&
            joinable.has(fact.aspect) &&
            after.list.some((other) => isSame(other, fact) && holds(other, fact)),
    },
    {
        name: "a lyric with another number",
        why: "Where two notes of a chord bring a lyric of one number, the second takes the next free one, and the report says so.",
        explains: ({ side, fact }, { findings }) =>
            fact?.aspect === "lyric" &&
            findings.some((other) => other.side !== side && isSameLyric(other.fact, fact, side)),
    },
    {
        name: "a tie from voice to voice",
        reader: "verovio",
        why: "verovio looks for the end of a tie in the layer of its start. If the next note is in another one, it takes a note many measures later, or none; after a merge both may be in one layer, and the tie is right.",
        explains: ({ side, fact }, { before, after }) =>
            fact?.aspect === "tie" && (side === "lost" ? !isJoined(fact, before) : isJoined(fact, after)),
    },
    {
        name: "a chord over two staves",
        reader: "MuseScore",
        why: "MuseScore has no chord over two staves and reads all its notes on one of them. A merge writes a chord on each staff, and MuseScore reads these where they are.",
        explains: ({ fact }, { before, findings }) =>
            (ofNotes.has(fact?.aspect) &&
                before.list.some((chord) => chord.aspect === "chord" && sharesTimeAndPitch(chord, fact)) &&
                findings.some(({ fact: other }) => other?.aspect === fact.aspect && isOnOtherStaff(other, fact))) ||
            (fact?.aspect === "chord" &&
                findings.some(({ fact: note }) => note?.aspect === "note" && sharesTimeAndPitch(fact, note))),
    },
    {
        name: "several notations of one note",
        reader: "verovio",
        why: "verovio reads the first <articulations> of a note. A rewritten note has all of them in one, and is read in full.",
        explains: ({ side, fact }, { source }) =>
            side === "new" &&
            fact.aspect === "articulation" &&
            /<\/(notations|articulations)>\s*<\1/.test(source),
    },
    {
        name: "one fermata to a chord",
        why: "Both programs put one fermata on a chord, also where two of its notes bring one of different shapes.",
        explains: ({ side, fact }, { after }) =>
            side === "lost" &&
            fact.aspect === "fermata" &&
            after.list.some((other) => other.aspect === "fermata" && other.where === fact.where && holds(other, fact)),
    },
    {
        name: "ornaments without white space",
        reader: "MuseScore",
        why: "MuseScore leaves out notes behind <ornaments><mordent/></ornaments> when there is no white space in it. A rewritten measure has some, and is read in full.",
        explains: ({ side }, { source }) => side === "new" && /<ornaments><[\w-]+\/><\/ornaments>/.test(source),
    },
    {
        name: "a part without divisions",
        reader: "MuseScore",
        why: "Without <divisions> MuseScore takes times from the notes' types and cannot go back.",
        explains: (_, { source }) => !source.includes("<divisions>"),
    },
];

const joinable = new Set(["note", "duration", "tuplet", "tie", "articulation", "fermata", "trill", "lyric"]);
const ofNotes = new Set(["note", "duration", "tuplet"]);

// Whether a tie ends where its first note does.
function isJoined(tie, facts) {
    const [start, end] = tie.places;
    const lengths = facts.list.filter(({ aspect, where }) => aspect === "duration" && where === textOf(start));
    return lengths.some(({ what, pitches }) => {
        if (pitches[0][0] !== start.pitches[0] || end === undefined) {
            return false;
        }
        const stop = start.onset.plus(Rational.parse(what));
        const length = facts.lengths.get(`${start.measure} ${start.staff}`);
        return end.measure === start.measure
            ? `${stop}` === `${end.onset}`
            : end.measure === start.measure + 1 && `${stop}` === `${length}` && `${end.onset}` === "0";
    });
}

// Lyrics are "1 text ..." with their number; after a merge it is higher.
function isSameLyric(other, fact, side) {
    if (other?.aspect !== "lyric" || other.where !== fact.where) {
        return false;
    }
    const [before, after] = side === "lost" ? [fact, other] : [other, fact];
    const [number, ...words] = before.what.split(" ");
    const [numberAfter, ...wordsAfter] = after.what.split(" ");
    return Number(number) < Number(numberAfter) && words.join() === wordsAfter.join() && holds(after, before);
}

const isSame = (one, other) =>
    one.aspect === other.aspect && one.where === other.where && one.what === other.what;

const sharesTimeAndPitch = (chord, fact) =>
    chord.measure === fact.measure &&
    `${chord.places[0].onset}` === `${fact.places[0].onset}` &&
    chord.pitches[0].includes(fact.pitches[0][0]);

const isOnOtherStaff = (one, other) =>
    one.measure === other.measure &&
    one.what === other.what &&
    `${one.places[0].onset}` === `${other.places[0].onset}` &&
    one.places[0].staff !== other.places[0].staff &&
    one.pitches[0][0] === other.pitches[0][0];

export const rulesOf = (reader) => rules.filter((rule) => [undefined, reader].includes(rule.reader));

// The name of the rule that accounts for a finding; undefined without one.
export function ruleFor(finding, view, reader) {
    return rulesOf(reader).find((rule) => rule.explains(finding, view))?.name;
}
