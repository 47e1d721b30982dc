// Holds the includes below src/ to the table of folders in ARCHITECTURE.md: the arrows go one way,
// and only src/view knows the web engine.
//
//   node check_includes.mjs SOURCE_FOLDER     one line for each breach, exit code 1 if there is one

import {readdirSync, readFileSync} from "node:fs";
import {join, relative} from "node:path";

const all = ["app", "log", "storage", "network", "page", "model", "protocol", "media", "files", "view"];
const mayInclude = {
    app: all,
    log: [],
    storage: ["log"],
    network: ["storage", "log"],
    page: ["log"],
    model: ["storage", "page", "log"],
    protocol: ["model", "network", "page", "log"],
    media: ["protocol", "model", "page", "log"],
    files: ["storage", "protocol", "model", "network", "page", "log"],
    view: ["files", "media", "protocol", "model", "network", "page", "log"],
};
// The shared store names the other classes by forward declaration alone; what is below the mirror
// does without it.
const store = "app/Data.h";
const withoutStore = ["log", "network", "page"];
const webEngine = /^(Qt)?Web(Kit|View|Page|Frame|Element|Settings|History)|^QWeb(View|Page|Frame|Element|Settings|History|Inspector)|^QtWebKit/;

function sourcesBelow(folder) {
    return readdirSync(folder, {withFileTypes: true}).flatMap((entry) => {
        const path = join(folder, entry.name);
        return entry.isDirectory() ? sourcesBelow(path) : /\.(h|cpp)$/.test(entry.name) ? [path] : [];
    });
}

function breaches(root, path) {
    const name = relative(root, path);
    const folder = name.split("/")[0];
    const found = [];
    readFileSync(path, "utf8").split("\n").forEach((line, index) => {
        const own = /^\s*#\s*include\s+"([^"]+)"/.exec(line)?.[1];
        const foreign = /^\s*#\s*include\s+<([^>]+)>/.exec(line)?.[1];
        const target = own?.split("/")[0];
        const allowed = own === store ? !withoutStore.includes(folder)
                                      : target === folder || mayInclude[folder]?.includes(target);
        if (own && name === "app/Data.h") {
            found.push(`${name}:${index + 1}: the shared store drags in ${own}`);
        } else if (own && !allowed) {
            found.push(`${name}:${index + 1}: ${folder} may not include ${own}`);
        } else if (foreign && webEngine.test(foreign) && folder !== "view") {
            found.push(`${name}:${index + 1}: only view may include <${foreign}>`);
        }
    });
    return found;
}

const root = process.argv[2];
const sources = sourcesBelow(root);
const found = sources.flatMap((path) => breaches(root, path));
found.forEach((breach) => console.log(breach));
console.log(`${sources.length} files, ${found.length} breaches`);
process.exit(found.length || !sources.length ? 1 : 0);
