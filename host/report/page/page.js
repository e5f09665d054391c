"use strict";
// Filters the report, and engraves its measures when they are about to be seen. The page brings the
// MusicXML in #music, and plyweldEngraver: Verovio's script, compressed, in base64.
(() => {
    const words = document.currentScript.dataset;
    const cards = [...document.querySelectorAll("#cards > article")];

    function filter(form) {
        const { staff, reason, shown } = form.elements;
        const isWanted = ({ dataset }) =>
            (staff.value === "" || dataset.staff === staff.value) &&
            (reason.value === "" ||
                (reason.value === "any"
                    ? dataset.reasons !== ""
                    : dataset.reasons.split(" ").includes(reason.value)));
        for (const element of [...cards, ...document.querySelectorAll("#stays > tbody > tr")]) {
            element.hidden = !isWanted(element);
        }
        const count = cards.filter((card) => !card.hidden).length;
        shown.value = shown.dataset.words.replace("{0}", count).replace("{1}", cards.length);
    }

    async function loadVerovio() {
        const bytes = Uint8Array.from(atob(plyweldEngraver), (c) => c.charCodeAt(0));
        const stream = new Blob([bytes]).stream().pipeThrough(new DecompressionStream("gzip"));
        const script = document.createElement("script");
        script.textContent = await new Response(stream).text();
        document.head.append(script);
        await new Promise((resolve) => (verovio.module.onRuntimeInitialized = resolve));
        verovio.enableLog(verovio.LOG_OFF); // a single measure always lacks something
        const toolkit = new verovio.toolkit();
        toolkit.setOptions({
            breaks: "none",
            header: "none",
            footer: "none",
            adjustPageHeight: true,
            adjustPageWidth: true,
            pageWidth: 20000,
            pageMarginTop: 50,
            pageMarginBottom: 50,
            pageMarginLeft: 20,
            pageMarginRight: 20,
            scale: 45,
            svgViewBox: true,
            svgRemoveXlink: true,
        });
        return toolkit;
    }

    const scoreOf = (measure) =>
        '<score-partwise version="4.0"><part-list><score-part id="P"><part-name/></score-part>' +
        `</part-list><part id="P">${measure}</part></score-partwise>`;

    // Each note gets the color of its layer, and a frame when it stayed.
    function markNotes(svg, { layers, stays }) {
        for (const [index, layer] of layers.entries()) {
            const note = svg.getElementById(`n${index}`);
            if (note === null) {
                continue;
            }
            note.removeAttribute("id"); // the next picture has the same ones
            note.classList.add(`layer-${layer}`);
            note.classList.toggle("stays", stays.includes(index));
        }
    }

    // Stems, flags and beams are colored as their notes are, if these are of one layer.
    function markChords(svg) {
        for (const chord of svg.querySelectorAll("g.chord, g.beam")) {
            const layers = new Set([...chord.querySelectorAll("g.note")].map(
                (note) => [...note.classList].find((name) => name.startsWith("layer-"))));
            if (layers.size === 1) {
                chord.classList.add(...layers);
            }
        }
    }

    function frameStays(svg) {
        for (const note of svg.querySelectorAll("g.note.stays")) {
            const head = note.querySelector("g.notehead") ?? note;
            const { x, y, width, height } = head.getBBox();
            const frame = document.createElementNS(svg.namespaceURI, "rect");
            const gap = 70;
            for (const [name, value] of Object.entries({
                class: "frame", x: x - gap, y: y - gap,
                width: width + 2 * gap, height: height + 2 * gap, rx: gap,
            })) {
                frame.setAttribute(name, value);
            }
            note.prepend(frame);
        }
    }

    // Verovio leaves room for what a whole page would have above and below.
    function crop(svg) {
        const gap = 4;
        const page = svg.viewBox.baseVal;
        const music = svg.querySelector("svg");
        music.setAttribute("width", page.width);
        music.setAttribute("height", page.height);
        const { x, y, width, height } = svg.getBBox();
        const size = [width + 2 * gap, height + 2 * gap];
        svg.setAttribute("viewBox", [x - gap, y - gap, ...size].join(" "));
        svg.style.setProperty("--width", size[0]);
    }

    function engrave(toolkit, place, picture) {
        const drawn = toolkit.renderData(scoreOf(picture.measure), {});
        const svg = new DOMParser().parseFromString(drawn, "image/svg+xml").documentElement;
        if (picture.measure === "" || svg.localName !== "svg") {
            place.dataset.state = "undrawn";
            place.append(` ${words.undrawn}`);
            return;
        }
        svg.setAttribute("aria-hidden", "true");
        markNotes(svg, picture);
        markChords(svg);
        place.replaceChildren(svg);
        frameStays(svg);
        crop(svg);
        place.dataset.state = "drawn";
    }

    function engraveWhenSeen(toolkit) {
        const music = JSON.parse(document.getElementById("music").textContent);
        const pictures = new Map(
            [...document.querySelectorAll(".music")].map((place, index) => [place, music[index]]));
        const draw = (place) => {
            if (pictures.has(place)) {
                engrave(toolkit, place, pictures.get(place));
                pictures.delete(place);
            }
        };
        // Those in sight; one at a time, so that the page stays at hand.
        const seen = new Set();
        const drawNext = () => {
            const [place] = seen;
            if (place !== undefined) {
                seen.delete(place);
                draw(place);
                setTimeout(drawNext);
            }
        };
        const observer = new IntersectionObserver((entries) => {
            const isIdle = seen.size === 0;
            for (const { target, isIntersecting } of entries) {
                seen[isIntersecting && pictures.has(target) ? "add" : "delete"](target);
            }
            if (isIdle) {
                drawNext();
            }
        }, { rootMargin: "400px" });
        for (const place of pictures.keys()) {
            observer.observe(place);
        }
        addEventListener("beforeprint", () => {
            [...pictures.keys()].filter((place) => !place.closest("[hidden]")).forEach(draw);
        });
    }

    const form = document.getElementById("filter");
    if (form === null) {
        return;
    }
    form.hidden = false;
    form.addEventListener("input", () => filter(form));
    form.addEventListener("submit", (event) => event.preventDefault());
    filter(form);
    if (typeof plyweldEngraver === "undefined") {
        const trouble = document.getElementById("trouble");
        trouble.textContent = words.missing;
        trouble.hidden = false;
        return;
    }
    loadVerovio().then((toolkit) => {
        engraveWhenSeen(toolkit);
        document.body.dataset.engraver = "ready";
    });
})();
