// What a reader found before a merge and not after it, or the other way round.
import { words } from "./facts.mjs";

// Findings: {side: "lost" | "new" | "longer", aspect, measure, fact, text}.
export function compareFacts(before, after) {
    const findings = [];
    const groups = new Map();
    const groupOf = (fact) => {
        const key = `${fact.aspect}|${fact.where}|${fact.what}`;
        if (!groups.has(key)) {
            groups.set(key, { before: [], after: [] });
        }
        return groups.get(key);
    };
    before.list.forEach((fact) => groupOf(fact).before.push(fact));
    after.list.forEach((fact) => groupOf(fact).after.push(fact));
    for (const group of groups.values()) {
        findings.push(...(isChord(group) ? lostChords(group) : differences(group)));
    }
    for (const [key, length] of after.lengths) {
        const old = before.lengths.get(key);
        if (old !== undefined && old.isLess(length)) {
            const [measure, staff] = key.split(" ");
            findings.push({
                side: "longer",
                aspect: "measure",
                measure: Number(measure),
                text: `m. ${measure}, staff ${staff}: ${length} long instead of ${old}`,
            });
        }
    }
    return findings.sort((a, b) => a.measure - b.measure);
}

const isChord = ({ before, after }) => (before[0] ?? after[0]).aspect === "chord";

// Chords are formed by intent, and several may become one.
function lostChords({ before, after }) {
    const isKept = (fact) => after.some((other) => holds(other, fact));
    return before.filter((fact) => !isKept(fact)).map((fact) => finding("lost", fact));
}

function differences({ before, after }) {
    const { withoutPartner, partners } = pair(before, after);
    const unexpected = after.filter((fact) => !partners.has(fact));
    return [
        ...withoutPartner.map((fact) => finding("lost", fact)),
        ...unexpected.map((fact) => finding("new", fact)),
    ];
}

const finding = (side, fact) => ({
    side,
    aspect: fact.aspect,
    measure: fact.measure,
    fact,
    text: `${words(fact)} ${side}`,
});

// Pairs as many facts as can be: a chord of before is found in one that has its pitches.
function pair(before, after) {
    const partners = new Map(); // fact of after -> fact of before
    const take = (fact, tried) => {
        for (const candidate of after) {
            if (tried.has(candidate) || !holds(candidate, fact)) {
                continue;
            }
            tried.add(candidate);
            if (!partners.has(candidate) || take(partners.get(candidate), tried)) {
                partners.set(candidate, fact);
                return true;
            }
        }
        return false;
    };
    return { withoutPartner: before.filter((fact) => !take(fact, new Set())), partners };
}

// Whether the fact has at each place all pitches that the other has there.
export function holds(fact, part) {
    return part.pitches.every((pitches, end) => contains(fact.pitches[end] ?? [], pitches));
}

function contains(all, some) {
    const rest = [...all];
    return some.every((pitch) => {
        const index = rest.indexOf(pitch);
        if (index >= 0) rest.splice(index, 1);
        return index >= 0;
    });
}
