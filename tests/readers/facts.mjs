// What a reader found in a score, as a list of facts that do not depend on voices.
//
// A fact has
//   aspect   what it is about: "note", "slur", "lyric" ...
//   measure  from 1, where it begins
//   where    its place or places: measure, staff and onset in whole notes from the barline
//   what     the rest of it, as text
//   pitches  for each place that is a chord's, the chord's pitches. After a merge a chord may
//            have more of them, so they are compared apart from the text.

export class Facts {
    constructor() {
        this.list = [];
        this.lengths = new Map(); // "measure staff" -> how long the music there is, in whole notes
        this.onsets = new Set(); // "measure staff voice onset" of notes and rests, whatever their staff
        this.leftOut = new Set(); // aspects of lines that the reader knows of and could not save
        this.overfull = new Set(); // measures that are shorter than one of their voices
    }

    add(aspect, places, what = "") {
        this.list.push({
            aspect,
            measure: places[0].measure,
            where: places.map(textOf).join(" to "),
            what,
            places,
            pitches: places.map((place) => place.pitches ?? []),
        });
    }

    // The music of one voice in a staff's measure ends at `end`.
    reaches(measure, staff, end) {
        const key = `${measure} ${staff}`;
        const before = this.lengths.get(key);
        if (before === undefined || before.isLess(end)) {
            this.lengths.set(key, end);
        }
    }
}

// A place: {measure, staff, onset, grace, pitches}, or with a text of its own.
export function textOf(place) {
    if (place.text !== undefined) {
        return place.text;
    }
    return `m. ${place.measure}, staff ${place.staff}, ${place.onset}${place.grace ? " grace" : ""}`;
}

export const words = (fact) =>
    [
        `${fact.where}: ${fact.aspect}`,
        fact.what,
        fact.pitches.some((pitches) => pitches.length > 0)
            ? `(${fact.pitches.map((pitches) => pitches.join(" ")).join(" to ")})`
            : "",
    ]
        .filter((part) => part !== "")
        .join(" ");
