// The page by keyboard alone.

// Presses Tab until the wanted element has the focus; how often, or nothing.
async function tabTo(page, wanted, limit) {
    for (let count = 1; count <= limit; ++count) {
        await page.keyboard.press("Tab");
        if (await page.evaluate((selector) => document.activeElement.matches(selector), wanted)) {
            return count;
        }
    }
    return null;
}

export async function checkKeyboard(page, report, expect) {
    await page.evaluate(() => {
        scrollTo(0, 0);
        document.activeElement.blur();
    });
    expect("the first stop skips to the music", await tabTo(page, "a.skip", 1), 1);
    if (report.totals.stayed > 0) {
        expect("links of the rows are reached", (await tabTo(page, "#stays a", 5)) !== null, true);
        expect("the focus is seen", await page.evaluate(
            () => getComputedStyle(document.activeElement).outlineStyle), "solid");
        const target = await page.evaluate(() => document.activeElement.hash);
        await page.keyboard.press("Enter");
        await page.waitForFunction((id) => {
            const { top } = document.querySelector(id).getBoundingClientRect();
            return location.hash === id && top >= 0 && top < innerHeight / 2;
        }, target);
        expect("a row's link shows its measure", await page.locator(target).count(), 1);
    }
    await page.locator("select[name=staff]").focus();
    await page.keyboard.press("ArrowDown");
    const staff = await page.locator("select[name=staff]").inputValue();
    expect("the filter is set by keyboard", staff, String(report.measures[0].staff));
    await page.keyboard.press("ArrowUp");
}
