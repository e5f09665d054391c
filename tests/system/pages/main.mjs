// Looks at the pages in a folder: node main.mjs FOLDER REFUSED
// NAME.html belongs to NAME.json, the report of the same merge; reports/ to batch.json.
// REFUSED: 1 where the command refused a page without its engraver.
import { existsSync, readdirSync, readFileSync } from "node:fs";
import { join } from "node:path";
import { checkIndex, checkPage, checkMissingEngraver } from "./checks.mjs";
import { openBrowser } from "./browser.mjs";

const [folder, refused] = process.argv.slice(2);
const jsonOf = (name) => JSON.parse(readFileSync(join(folder, name), "utf8"));
let passed = 0;
let failed = 0;

// Counts a fact; says what was there instead.
function expect(name, got, wanted) {
    if (JSON.stringify(got) === JSON.stringify(wanted)) {
        ++passed;
        return;
    }
    ++failed;
    console.log(`FAILED: ${name}: expected ${JSON.stringify(wanted)}, got ${JSON.stringify(got)}`);
}

expect("a page without the engraver is refused", refused, "1");
const browser = await openBrowser();
for (const name of readdirSync(folder).filter((file) => file.endsWith(".html"))) {
    const stem = name.replace(/\.html$/, "");
    await checkPage(browser, join(folder, stem), jsonOf(`${stem}.json`), (what, ...values) =>
        expect(`${stem}: ${what}`, ...values));
}
if (existsSync(join(folder, "reports"))) {
    await checkIndex(browser, join(folder, "reports"), jsonOf("batch.json"), expect);
    await checkMissingEngraver(browser, join(folder, "reports"), expect);
}
await browser.close();
console.log(`${passed} passed, ${failed} failed`);
process.exit(failed === 0 ? 0 : 1);
