// What must hold of a page in the browser. expect(name, got, wanted) counts.
import { mkdirSync, copyFileSync } from "node:fs";
import { join } from "node:path";
import { drawAll, openPage } from "./browser.mjs";
import { checkKeyboard } from "./keyboard.mjs";

// The cells of the table of what stayed, as the JSON has them.
function rowsOf(report) {
    return report.measures.flatMap((measure) =>
        measure.stayed.map((entry) => [
            measure.staffName, measure.number, String(entry.beat), String(entry.layer),
            entry.pitches.join(" "), entry.text,
        ]));
}

const cellsOf = (rows) => rows.map((row) => [...row.cells].map((cell, column) =>
    column === 3 ? cell.textContent.replace(/\D+/, "") : cell.textContent));

export async function checkPage(browser, stem, report, expect) {
    const page = await openPage(browser, `${stem}.html`);
    await page.waitForSelector("body[data-engraver=ready]", { timeout: 120000 });
    const all = report.measures.length * 2;
    const first = await page.locator(".music[data-state]").count();
    expect("what is out of sight waits", all < 30 || first < all, true);
    expect("rows", await page.locator("#stays > tbody > tr").evaluateAll(cellsOf), rowsOf(report));
    expect("measures", await page.locator("article").count(), report.measures.length);
    expect("links lead somewhere", await page.locator("a[href^='#']").evaluateAll((links) =>
        links.filter((link) => document.querySelector(link.hash) === null).length), 0);
    await drawAll(page);
    await checkPictures(page, report, expect);
    await checkFilter(page, report, expect);
    await checkKeyboard(page, report, expect);
    expect("troubles", page.troubles, []);
    await page.context().close();
    await takePictures(browser, stem, expect);
}

async function checkPictures(page, report, expect) {
    const pictures = await page.locator(".music").evaluateAll((places) => places.map((place) => ({
        state: place.dataset.state,
        words: place.getAttribute("aria-label").length,
        width: place.querySelector("svg")?.getBoundingClientRect().width ?? 0,
        marks: place.querySelectorAll("path, use").length,
    })));
    expect("every picture is drawn", pictures.filter(
        ({ state, width, marks }) => state !== "drawn" || width < 40 || marks < 6), []);
    expect("every picture has a description in words", pictures.filter(({ words }) => words < 10), []);
    // What stayed is framed before and after, note by note.
    const stays = report.measures.map(({ stayed }) => stayed.flatMap((entry) => entry.pitches).length);
    const framed = await page.locator("article").evaluateAll((cards) => cards.map((card) =>
        [...card.querySelectorAll(".music")].map((music) =>
            [...music.querySelectorAll("rect.frame")].filter(
                (frame) => frame.getBoundingClientRect().width > 4).length)));
    expect("frames", framed, stays.map((count) => [count, count]));
    // No note is lost between the pictures but those that Replace cleared.
    const notes = await page.locator("article").evaluateAll((cards) => cards.map((card) =>
        [...card.querySelectorAll(".music")].map((music) => music.querySelectorAll("g.note").length)));
    expect("notes", notes.map(([before, after]) => before - after),
        report.measures.map((measure) => measure.notesCleared));
}

async function checkFilter(page, report, expect) {
    const shown = () => page.locator("article:visible").count();
    const shownRows = () => page.locator("#stays > tbody > tr:visible").count();
    const reason = page.locator("select[name=reason]");
    const staff = page.locator("select[name=staff]");
    const measuresWith = (isWanted) => report.measures.filter((m) => m.stayed.some(isWanted)).length;
    for (const [name, count] of Object.entries(report.totals.stayedBecause)) {
        await reason.selectOption(name);
        expect(`measures of ${name}`, await shown(), measuresWith((entry) => entry.reason === name));
        expect(`rows of ${name}`, await shownRows(), count);
    }
    if (report.totals.stayed > 0) {
        await reason.selectOption("any");
        expect("measures where anything stayed", await shown(), measuresWith(() => true));
    }
    await reason.selectOption("");
    const last = report.measures.at(-1).staff;
    await staff.selectOption(String(last));
    const ofStaff = report.measures.filter((measure) => measure.staff === last);
    expect("measures of a staff", await shown(), ofStaff.length);
    expect("rows of a staff", await shownRows(), rowsOf({ measures: ofStaff }).length);
    expect("what is shown is counted", (await page.locator("output").textContent()).match(/\d+/g),
        [String(ofStaff.length), String(report.measures.length)]);
    await staff.selectOption("");
}

// In light and dark, narrow, and on paper, where everything is drawn although nobody scrolled.
async function takePictures(browser, stem, expect) {
    for (const [name, options] of Object.entries({
        light: {}, dark: { colorScheme: "dark" }, narrow: { viewport: { width: 390, height: 844 } },
    })) {
        const page = await openPage(browser, `${stem}.html`, options);
        await page.waitForSelector("body[data-engraver=ready]", { timeout: 120000 });
        expect(`${name}: nothing is wider than the window`, await page.evaluate(
            "document.documentElement.scrollWidth <= innerWidth"), true);
        expect(`${name}: texts have enough contrast`, await page.evaluate(faintTexts), []);
        await page.screenshot({ path: `${stem}-${name}-top.png` });
        await page.locator("#measures").evaluate(
            (heading) => heading.scrollIntoView({ behavior: "instant" }));
        await page.waitForFunction(() => [...document.querySelectorAll(".music")].every((place) => {
            const { top, bottom } = place.getBoundingClientRect();
            return place.dataset.state || bottom < 0 || top > innerHeight;
        }));
        await page.screenshot({ path: `${stem}-${name}-music.png` });
        if (name === "dark") {
            expect("dark: music is light", await page.evaluate(darkInk), []);
        }
        await page.context().close();
    }
    await takeGuidePicture(browser, stem);
    const page = await openPage(browser, `${stem}.html`);
    await page.waitForSelector("body[data-engraver=ready]", { timeout: 120000 });
    await page.pdf({ path: `${stem}.pdf`, format: "A4", printBackground: true });
    await page.setViewportSize({ width: 794, height: 1123 });  // A4 at 96 dots to the inch
    await page.emulateMedia({ media: "print" });
    await page.screenshot({ path: `${stem}-paper.png` });
    await page.locator("#measures").evaluate(
        (heading) => heading.scrollIntoView({ behavior: "instant" }));
    await page.screenshot({ path: `${stem}-paper-music.png` });
    expect("on paper everything is drawn",
        await page.locator(".music:not([data-state])").count(), 0);
    await page.context().close();
}

// The picture of the guides: what stayed, as music.
async function takeGuidePicture(browser, stem) {
    const page = await openPage(browser, `${stem}.html`, { viewport: { width: 960, height: 820 } });
    await page.waitForSelector("body[data-engraver=ready]", { timeout: 120000 });
    if ((await page.locator("#stays").count()) > 0) {
        await page.locator("select[name=reason]").selectOption("any");
        await drawAll(page);
        await page.locator("#measures").evaluate(
            (heading) => heading.scrollIntoView({ behavior: "instant" }));
        await page.screenshot({ path: `${stem}-guide.png`, clip: { x: 0, y: 64, width: 960, height: 756 } });
    }
    await page.context().close();
}

// Texts whose contrast to their background is below 4.5 : 1. Runs in the page.
function faintTexts() {
    const light = (color) => {
        const [r, g, b] = color.match(/[\d.]+/g).map((value) => {
            const part = value / 255;
            return part <= 0.04045 ? part / 12.92 : ((part + 0.055) / 1.055) ** 2.4;
        });
        return 0.2126 * r + 0.7152 * g + 0.0722 * b;
    };
    const paperOf = (element) => {
        const color = getComputedStyle(element).backgroundColor;
        return color === "rgba(0, 0, 0, 0)" && element.parentElement
            ? paperOf(element.parentElement) : color;
    };
    return [...document.querySelectorAll("body *")]
        .filter((element) => !element.closest("svg, script, .music") && element.innerText?.trim())
        .filter((element) => {
            const [a, b] = [light(getComputedStyle(element).color), light(paperOf(element))];
            return (Math.max(a, b) + 0.05) / (Math.min(a, b) + 0.05) < 4.5;
        })
        .map((element) => element.outerHTML.slice(0, 80));
}

// What of the music is drawn too dark for a dark page. Runs in the page.
function darkInk() {
    return [...document.querySelectorAll(".music svg use, .music svg text")]
        .map((mark) => getComputedStyle(mark).fill)
        .filter((fill) => fill.match(/[\d.]+/g)?.slice(0, 3).every((part) => part < 90));
}

export async function checkIndex(browser, folder, batch, expect) {
    const page = await openPage(browser, join(folder, "index.html"));
    const rows = page.locator("#scores > tbody > tr");
    const links = await rows.locator("a").evaluateAll((all) => all.map((link) => link.href));
    expect("index: a row for each score, merged or not", await rows.count(), batch.length + 1);
    expect("index: a link for each that was merged", links.length, batch.length);
    expect("index: says what failed", await rows.locator(".failed").count(), 1);
    const total = await page.locator("tfoot td").allTextContents();
    expect("index: totals", total.map(Number),
        ["chordsFormed", "restsFilled", "notesMoved", "notesCleared", "stayed"].map((name) =>
            batch.reduce((sum, report) => sum + report.totals[name], 0)));
    await page.screenshot({ path: join(folder, "..", "index.png") });
    for (let i = 0; i < links.length; ++i) {
        await rows.locator("a").nth(i).click();
        await page.waitForSelector("body[data-engraver=ready]", { timeout: 120000 });
        await drawAll(page);
        expect(`index: page ${i} is drawn`,
            await page.locator(".music:not([data-state=drawn])").count(), 0);
        await page.goBack();
    }
    expect("index: troubles", page.troubles, []);
    await page.context().close();
}

// A page that was taken from its folder says so, and still describes its music in words.
export async function checkMissingEngraver(browser, folder, expect) {
    const alone = join(folder, "..", "alone");
    mkdirSync(alone);
    copyFileSync(join(folder, "後.musicxml.html"), join(alone, "page.html"));
    const page = await openPage(browser, join(alone, "page.html"));
    expect("without the engraver: says so", await page.locator("#trouble").isVisible(), true);
    expect("without the engraver: words",
        (await page.locator(".music").first().textContent()).length > 10, true);
    await page.context().close();
}
