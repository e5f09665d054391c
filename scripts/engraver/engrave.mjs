// Draws the first page of a score: node engrave.mjs IN.musicxml|IN.mxl OUT.svg
// Prints the number of pages that the whole score takes.
import { readFileSync, writeFileSync } from "node:fs";
import createVerovioModule from "verovio/wasm";
import { VerovioToolkit } from "verovio/esm";

const [input, output] = process.argv.slice(2);
const toolkit = new VerovioToolkit(await createVerovioModule());
toolkit.setOptions({
    pageWidth: 2350,
    pageHeight: 2970,
    scale: 60,
    adjustPageHeight: true,
    breaks: "auto",
    footer: "none",
});
const bytes = readFileSync(input);
const zipped = bytes.subarray(0, 2).toString("latin1") === "PK";
const utf16 = bytes[0] === 0xff || bytes[0] === 0xfe;
const loaded = zipped
    ? toolkit.loadZipDataBuffer(new Uint8Array(bytes).buffer)
    : toolkit.loadData(new TextDecoder(utf16 ? "utf-16" : "utf-8").decode(bytes));
if (!loaded) {
    console.error(`${input}: the engraver cannot read this score`);
    process.exit(1);
}
// The renderer has no "Times"; this font has its widths.
writeFileSync(output, toolkit.renderToSVG(1).replaceAll("Times,", "Liberation Serif,"));
console.log(toolkit.getPageCount());
