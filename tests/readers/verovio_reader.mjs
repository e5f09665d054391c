// verovio as a reader of MusicXML: files in, facts out.
import createVerovioModule from "verovio/wasm";
import { LOG_OFF, VerovioToolkit, enableLog } from "verovio/esm";
import { factsOfMei } from "./mei_facts.mjs";
import { readXml } from "./xml_tree.mjs";

export class Reader {
    async prepare() {
        const module = await createVerovioModule();
        enableLog(LOG_OFF, module);
        this.toolkit = new VerovioToolkit(module);
        this.toolkit.setOptions({ breaks: "none" });
    }

    // Null when verovio cannot read the file.
    async read(file) {
        const text = readXml(file);
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
