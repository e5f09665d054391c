// verovio as a reader of MusicXML: files in, facts out.
import { readFileSync } from "node:fs";
import createVerovioModule from "verovio/wasm";
import { LOG_OFF, VerovioToolkit, enableLog } from "verovio/esm";
import { factsOfMei } from "./mei_facts.mjs";

export class Reader {
    async prepare() {
        const module = await createVerovioModule();
        enableLog(LOG_OFF, module);
        this.toolkit = new VerovioToolkit(module);
        this.toolkit.setOptions({ breaks: "none" });
    }

    // Null when verovio cannot read the file.
    async read(file) {
        const bytes = readFileSync(file);
        const isUtf16 = bytes[0] === 0xff || bytes[0] === 0xfe;
        const text = new TextDecoder(isUtf16 ? "utf-16" : "utf-8").decode(bytes);
        try {
            return this.toolkit.loadData(text) ? factsOfMei(this.toolkit.getMEI()) : null;
        } catch (error) {
            if (!(error instanceof WebAssembly.RuntimeError)) {
                throw error;
            }
            await this.prepare(); // it does not live on after a crash
            return null;
        }
    }
}
