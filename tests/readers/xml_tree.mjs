// An XML text as a tree: elements with name, attributes, parent, children, and their own text.
import { readFileSync } from "node:fs";
import { SaxesParser } from "saxes";

class Element {
    constructor(name, attributes, parent) {
        this.name = name;
        this.attributes = attributes;
        this.parent = parent;
        this.children = [];
        this.ownText = "";
    }

    child(name) {
        return this.children.find((child) => child.name === name);
    }

    childrenNamed(name) {
        return this.children.filter((child) => child.name === name);
    }

    // The text of a child; undefined without such a child.
    textOf(name) {
        return this.child(name)?.text;
    }

    // With that of the descendants, white space as one blank.
    get text() {
        const all = this.ownText + this.children.map((child) => ` ${child.text}`).join("");
        return all.replace(/\s+/g, " ").trim();
    }

    *descendants() {
        for (const child of this.children) {
            yield child;
            yield* child.descendants();
        }
    }
}

// The root element. Throws when the text is not well-formed.
export function parseXml(text) {
    const parser = new SaxesParser();
    let root;
    let open;
    parser.on("error", (error) => {
        throw error;
    });
    parser.on("opentag", ({ name, attributes }) => {
        const element = new Element(name, attributes, open);
        open?.children.push(element);
        root ??= element;
        open = element;
    });
    parser.on("text", (part) => {
        if (open) open.ownText += part;
    });
    parser.on("closetag", () => {
        open = open.parent;
    });
    parser.write(text).close();
    return root;
}

// A file's text; XML is in UTF-8 or UTF-16.
export function readXml(file) {
    const bytes = readFileSync(file);
    const isUtf16 = bytes[0] === 0xff || bytes[0] === 0xfe;
    return new TextDecoder(isUtf16 ? "utf-16" : "utf-8").decode(bytes);
}
