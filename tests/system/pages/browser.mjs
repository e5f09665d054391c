// The system's browser, and pages in it that remember what went wrong.
import { existsSync } from "node:fs";
import { chromium } from "playwright-core";

export function openBrowser() {
    const executablePath = ["/usr/bin/chromium", "/usr/bin/chromium-browser"].find(existsSync);
    return chromium.launch({ executablePath, args: ["--no-sandbox"] });
}

// A page at a file, with `troubles`: errors, warnings, and whatever it asks of a network.
export async function openPage(browser, file, options = {}) {
    const context = await browser.newContext({ viewport: { width: 1280, height: 900 }, ...options });
    const page = await context.newPage();
    page.troubles = [];
    page.on("console", (message) => {
        if (["error", "warning"].includes(message.type())) {
            page.troubles.push(message.text());
        }
    });
    page.on("pageerror", (error) => page.troubles.push(error.message));
    page.on("request", (request) => {
        if (!/^(file|data|blob):/.test(request.url())) {
            page.troubles.push(`asks for ${request.url()}`);
        }
    });
    page.on("requestfailed", (request) => page.troubles.push(`cannot have ${request.url()}`));
    await page.goto(`file://${encodeURI(file).replaceAll("#", "%23").replaceAll("?", "%3F")}`);
    return page;
}

// Scrolls through the page until all its music is drawn.
export async function drawAll(page) {
    for (const place of await page.locator("article:not([hidden]) .music").elementHandles()) {
        await place.evaluate((music) => music.scrollIntoView({ block: "center", behavior: "instant" }));
        await page.waitForFunction((music) => music.dataset.state !== undefined, place);
    }
}
