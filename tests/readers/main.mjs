// Reads scores before and after merges with another program and reports what it found only before
// or only after: node main.mjs verovio|MuseScore PAIRS FOLDER
// PAIRS has a line for each merge, with tabs between: name, way, the files before and after, the
// merge's report as JSON.
// FOLDER is for files in between. Before that, it must find faults that were made on purpose. The
// last line counts.
import { readFileSync } from "node:fs";
import { compareFacts } from "./comparison.mjs";
import { Faults } from "./faults.mjs";
import { Reader as MuseScore } from "./musescore_reader.mjs";
import { ruleFor, rulesOf } from "./rules.mjs";
import { readXml } from "./xml_tree.mjs";
import { Reader as Verovio } from "./verovio_reader.mjs";

const mostTold = 6; // findings of one merge
const [readerName, list, folder] = process.argv.slice(2);
const pairs = readFileSync(list, "utf8")
    .split("\n")
    .filter((line) => line !== "")
    .map((line) => {
        const [name, way, before, after, report] = line.split("\t");
        return { name, way, before, after, report };
    });
const reader = readerName === "verovio" ? new Verovio() : new MuseScore(folder);
const faults = new Faults(folder);
const files = new Set(pairs.flatMap(({ before, after }) => [before, after]));
await reader.prepare([...files, ...faults.files()]);

let passed = 0;
let failed = 0;
const used = new Map();
const totals = new Map();

function fail(text) {
    console.log(`FAILED: ${text}`);
    failed += 1;
}

const add = (map, key) => map.set(key, (map.get(key) ?? 0) + 1);

// Counts what was found, by way.
function total(what, way) {
    if (!totals.has(what)) {
        totals.set(what, new Map());
    }
    add(totals.get(what), way);
}

const original = {}; // the score that was read last before its merges
async function factsOfOriginal(file) {
    if (original.file !== file) {
        Object.assign(original, { file, facts: await reader.read(file) });
    }
    return original.facts;
}

async function comparePair({ name, way, before, after, report }) {
    const factsBefore = await factsOfOriginal(before);
    if (factsBefore === null) {
        total("scores that it cannot read", way);
        return;
    }
    const factsAfter = await reader.read(after);
    if (factsAfter === null) {
        fail(`${readerName}, ${name}, ${way}: cannot be read any more`);
        return;
    }
    const findings = compareFacts(factsBefore, factsAfter);
    const view = {
        before: factsBefore,
        after: factsAfter,
        findings,
        source: readXml(before),
        result: readXml(after),
        remarks: JSON.parse(readFileSync(report, "utf8")).remarks ?? [],
    };
    const open = findings.filter((finding) => {
        const rule = ruleFor(finding, view, readerName);
        if (rule !== undefined) {
            add(used, rule);
        }
        return rule === undefined;
    });
    open.forEach(({ aspect, side }) => total(`${aspect} ${side}`, way));
    if (open.length === 0) {
        passed += 1;
        return;
    }
    fail(`${readerName}, ${name}, ${way}: ${open.length} findings`);
    open.slice(0, mostTold).forEach(({ text }) => console.log(`    ${text}`));
}

const unseen = await faults.unseen(reader);
unseen.forEach((fault) => fail(`${readerName} and the comparison do not see ${fault}`));
passed += faults.damaged.length - unseen.length;
for (const pair of pairs) {
    await comparePair(pair);
}
for (const { name } of rulesOf(readerName)) {
    const times = used.get(name) ?? 0;
    if (times === 0) {
        fail(`${readerName}: no score needs the rule "${name}"`);
    } else {
        console.log(`rule "${name}": ${times} findings`);
        passed += 1;
    }
}
for (const [what, ways] of [...totals].sort()) {
    const all = [...ways.values()].reduce((sum, times) => sum + times);
    const each = [...ways].map(([way, times]) => `${way} ${times}`).join(", ");
    console.log(`${readerName}: ${what}: ${all} (${each})`);
}
console.log(`${passed} passed, ${failed} failed`);
