// MuseScore 3 as a reader of MusicXML: files in, facts out.
import { spawnSync } from "node:child_process";
import { existsSync, readFileSync, writeFileSync } from "node:fs";
import path from "node:path";
import { factsOfMscx } from "./mscx_facts.mjs";

export class Reader {
    // The folder is for what MuseScore writes.
    constructor(folder) {
        this.folder = folder;
    }

    // Reads all files in one run of the program; where a file ends it, another run goes on behind.
    async prepare(files) {
        const jobs = files.map((file, index) => ({ in: file, out: path.join(this.folder, `${index}.mscx`) }));
        this.outputs = new Map(jobs.map((job) => [job.in, job.out]));
        let rest = jobs;
        while (rest.length > 0) {
            this.runMuseScore(rest);
            const last = rest.findLastIndex(({ out }) => existsSync(out));
            rest = rest.slice(last + 2);
        }
    }

    runMuseScore(jobs) {
        const list = path.join(this.folder, "jobs.json");
        writeFileSync(list, JSON.stringify(jobs));
        spawnSync("mscore3", ["-j", list], {
            stdio: "ignore",
            env: { ...process.env, QT_QPA_PLATFORM: "offscreen", XDG_RUNTIME_DIR: this.folder },
        });
    }

    // Null when MuseScore cannot read the file.
    async read(file) {
        const output = this.outputs.get(file);
        return existsSync(output) ? factsOfMscx(readFileSync(output, "utf8")) : null;
    }
}
