// Why a reader may read a merged score otherwise although it means the same. Each rule says for
// what findings it accounts; one that accounts for none in any score is out of date.
//
// explains(finding, view): view.before and view.after give the facts, view.findings all findings
// of the pair of scores, view.source and view.result the texts of the scores before and after,
// view.remarks what the merge's report says that a reader of the score should know.
import { holds } from "./comparison.mjs";
import { textOf } from "./facts.mjs";
import { Rational } from "./rational.mjs";
import { ScoreText } from "./score_text.mjs";

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
        name: "notes of two tuplets in one chord",
        why: "Notes that start together and last as long become a chord also where they belong to tuplets of different lengths. The chord is in the tuplet of the layer that it is in.",
        explains: ({ side, fact }, { after, findings }) =>
            fact?.aspect === "tuplet" &&
            after.list.some((chord) => chord.aspect === "chord" && chord.where === fact.where && holds(chord, fact)) &&
            findings.some((other) => other.side !== side && hasTupletOfOtherLength(other.fact, fact)),
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
        name: "a tie that the report names",
        reader: "verovio",
        why: "Where a merge moves one end of a tie into another voice, verovio finds that end if it comes later in the text and the start's own voice has no other tied note of the pitch in the measure. Where no order of the voices suits all their ties and lines, the report names the tie.",
        explains: ({ fact }, { remarks }) =>
            fact?.aspect === "tie" && remarks.some((remark) => isTieNamed(remark, fact.places[0])),
    },
    {
        name: "a line that stopped before it started",
        reader: "MuseScore",
        why: "MuseScore leaves out a line whose stop comes before its start in the text, or takes a later stop, though the format allows it. A merge writes the voice of the start first where it can, and MuseScore reads the line.",
        explains: ({ side, fact }, { findings, source }) => {
            const wasBackward = (one) => isOneOf(ScoreText.of(source).backwardLines(), one);
            const others = findings.filter((other) => other.side !== side && other.fact?.aspect === fact?.aspect);
            if (side === "lost") {
                const isReplaced = others.some((other) => startsAlike(other.fact, fact));
                return wasBackward(fact) && isReplaced && fact.aspect !== "slur";
            }
            const tookItsEnd = ({ fact: other }) => wasBackward(other) && isWithin(fact, other);
            return side === "new" && (wasBackward(fact) || others.some(tookItsEnd));
        },
    },
    {
        name: "a line that has to stop before it starts",
        why: "Where lines and ties run both ways between two voices, no order of them has every start first. The ends pair by their number, as the format has it, but both programs look for a trill's end behind its start.",
        explains: ({ fact }, { source, result }) =>
            fact?.aspect === "trill" &&
            isOneOf(ScoreText.of(result).backwardLines(), fact) &&
            !isOneOf(ScoreText.of(source).backwardLines(), fact),
    },
    {
        name: "a line that ends where nothing begins",
        reader: "MuseScore",
        why: "MuseScore's own format has a place for a line's start only where a note or rest of its staff begins, and for its end where one of the staff's first voice does. It leaves out other lines, or ends them elsewhere. Where notes move, something begins there for the first time or no longer.",
        explains: ({ side, fact }, { before, after, findings }) => {
            const hasNoPlace = ({ places: [start, end] }, facts) =>
                ![0, 1, 2, 3].some((voice) => hasOnset(facts, start, voice)) ||
                (end !== undefined && !hasOnset(facts, end, end.track.voice));
            const isLost = (one) => hasNoPlace(one.fact, one.side === "lost" ? after : before);
            return (
                ofDirections.has(fact?.aspect) &&
                (isLost({ side, fact }) ||
                    findings.some((other) => other.side !== side && startsAlike(other.fact, fact) && isLost(other)))
            );
        },
    },
    {
        name: "an octave shift left out",
        reader: "MuseScore",
        why: "MuseScore writes notes under an octave shift an octave lower. If its own format has no place for the shift's ends, the notes stay there without it.",
        explains: ({ side, fact }, { before, after, findings }) =>
            [before, after].some(({ leftOut }) => leftOut.has("octave")) &&
            findings.some((other) => other.side !== side && isOctavesAway(other.fact, fact)),
    },
    {
        name: "a slur of a chord over two staves",
        why: "A slur on one note of a chord over two staves is read as the whole chord's. A merge moves a chord's notes staff by staff, and the slur goes with its note.",
        explains: ({ side, fact }, { findings }) =>
            fact?.aspect === "slur" &&
            findings.some(
                (other) =>
                    other.side !== side &&
                    other.fact?.aspect === "slur" &&
                    (hasDividedEnd(fact, other.fact, 0) || hasDividedEnd(fact, other.fact, 1)),
            ),
    },
    {
        name: "a grace note left behind",
        reader: "MuseScore",
        why: "A grace note stays in its layer when the note behind it joins a chord, and at a measure's end where nothing follows. MuseScore gives it to the next note in the text, whatever its voice and staff.",
        explains: ({ fact }, { source, result }) =>
            fact?.places[0].grace === true &&
            [source, result].some((text) =>
                [0, 1].some((later) => ScoreText.of(text).measuresOfLoneGraces().has(fact.measure - later)),
            ),
    },
    {
        name: "more than four voices on a staff",
        reader: "MuseScore",
        why: "MuseScore gives each voice of a part to one of its staves, four to a staff, and leaves out the notes of a fifth. A merge into an empty layer may need a voice name that the staff did not have.",
        explains: ({ fact }, { source, result }) => {
            const voices = (text) => ScoreText.of(text).mostVoicesOnAStaff(Number(fact?.places[0].staff));
            return fact !== undefined && voices(result) > 4 && voices(source) <= 4;
        },
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
        name: "octave shifts open together",
        reader: "verovio",
        why: "verovio ends all octave shifts that are open on a staff where the first of them stops, whatever their numbers. With the voices in another order, others are open at that stop.",
        explains: ({ fact }, { source, result }) =>
            [source, result].some((text) => isOneOf(ScoreText.of(text).octaveShiftsOpenTogether(), fact)),
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
        why: "Both programs put one fermata on a chord, also where two of its notes bring one of different shapes; MuseScore reads one of those that two voices have at one time.",
        explains: ({ side, fact }, { before, after }) => {
            const hasAnother = (facts) => facts.list.some((other) => other.aspect === "fermata" && other.where === fact.where);
            return fact?.aspect === "fermata" && hasAnother(side === "lost" ? after : before);
        },
    },
    {
        name: "a fermata or grace note of a voice on another staff",
        reader: "MuseScore",
        why: "MuseScore gives fermatas and grace notes to the staff on which their voice has most notes, even if they are on another one.",
        explains: ({ side, fact }, { before, after }) =>
            (fact?.aspect === "fermata" || fact?.places.some(({ grace }) => grace)) &&
            (side === "lost" ? after : before).list.some((other) => isElsewhere(other, fact)),
    },
    {
        name: "a gap of no note value",
        reader: "MuseScore",
        why: "MuseScore fills a gap in a staff's first voice with one rest, and saves it with a wrong value if no note value is as long as the gap. A note of a voice over two staves that moves may leave such a gap.",
        explains: ({ side, fact }, { before, after, findings }) => {
            const isBehindGap = (one) =>
                one?.places.some(({ measure }) =>
                    [measure, measure - 1].some((place) => before.overfull.has(place) || after.overfull.has(place)),
                );
            const partners = findings.filter((other) => other.side !== side && startsAlike(other.fact, fact));
            return isBehindGap(fact) || partners.some((other) => isBehindGap(other.fact));
        },
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
const ofDirections = new Set(["hairpin", "octave", "textline", "pedal"]);
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

// The report names the note as "C#5".
function isTieNamed(remark, { measure, staff, pitches }) {
    const name = remark.what.toLowerCase().replace(/(?<=.)b/g, "f").replaceAll("#", "s").replace("ss", "x");
    return (
        remark.kind === "tie" &&
        remark.measure === measure &&
        remark.staff === Number(staff) &&
        name === pitches[0].replace("ss", "x")
    );
}

// Lines in the text are {aspect, staff, measure}; they are of the part that has the staff.
const isOneOf = (lines, fact) =>
    fact !== undefined &&
    lines.some(
        ({ aspect, firstStaff, lastStaff, measure }) =>
            aspect === fact.aspect &&
            fact.places[0].measure <= measure &&
            measure <= fact.places.at(-1).measure &&
            firstStaff <= fact.places[0].staff &&
            fact.places[0].staff <= lastStaff,
    );

const hasOnset = ({ lengths, onsets }, { measure, onset, track }, voice) =>
    !lengths.has(`${measure} ${track.staff}`) || onsets.has(`${measure} ${track.staff} ${voice} ${onset}`);

// Pitches are "key.spelling".
function isOctavesAway(one, other) {
    const keysOf = ({ pitches }) => pitches.flat().map((pitch) => Number.parseInt(pitch, 10));
    const timeOf = ({ places: [{ measure, onset, grace, staff }] }) => [measure, onset, grace, !grace && staff].join();
    return (
        one !== undefined &&
        one.aspect === other?.aspect &&
        one.what === other.what &&
        timeOf(one) === timeOf(other) &&
        keysOf(one).some((key) => keysOf(other).some((far) => key !== far && (key - far) % 12 === 0))
    );
}

const startsAlike = (one, other) =>
    one?.aspect === other?.aspect && one !== undefined && textOf(one.places[0]) === textOf(other.places[0]);

// Whether the line starts while the other runs.
const isWithin = (line, other) =>
    other.places[0].measure <= line.measure && line.measure <= other.places.at(-1).measure;

// Whether two slurs are alike at one end, while the other is at a note that both have, on two staves.
function hasDividedEnd(one, other, end) {
    const [here, there] = [one.places[end], other.places[end]];
    const [far, away] = [one.places[1 - end], other.places[1 - end]];
    return (
        one.places.length === 2 &&
        other.places.length === 2 &&
        textOf(far) === textOf(away) &&
        here.measure === there.measure &&
        `${here.onset}` === `${there.onset}` &&
        here.staff !== there.staff &&
        here.pitches.some((pitch) => there.pitches.includes(pitch))
    );
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

// Tuplets are "3:2 from 0 to 1/4".
const hasTupletOfOtherLength = (one, other) =>
    one?.aspect === "tuplet" &&
    one.where === other.where &&
    one.pitches[0][0] === other.pitches[0][0] &&
    one.what.split(" ")[0] === other.what.split(" ")[0];

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

// Whether two fermatas, or facts with grace notes, differ in the staff of these only.
const isElsewhere = (one, other) =>
    one.aspect === other.aspect &&
    one.what === other.what &&
    one.places.length === other.places.length &&
    one.places.every(({ measure, onset, staff, grace }, end) => {
        const place = other.places[end];
        const mayDiffer = grace || one.aspect === "fermata";
        const shares = one.pitches[end].length === 0 || one.pitches[end].some((pitch) => other.pitches[end].includes(pitch));
        return measure === place.measure && `${onset}` === `${place.onset}` && shares && (mayDiffer || staff === place.staff);
    });

export const rulesOf = (reader) => rules.filter((rule) => [undefined, reader].includes(rule.reader));

// The name of the rule that accounts for a finding; undefined without one.
export function ruleFor(finding, view, reader) {
    return rulesOf(reader).find((rule) => rule.explains(finding, view))?.name;
}
