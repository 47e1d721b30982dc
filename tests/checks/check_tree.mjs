// What no file of the project may hold: a download address in a lock file, and a path of somebody's
// machine.
//
//   node check_tree.mjs PROJECT_FOLDER     one line for each find, exit code 1 if there is one

import {execFileSync} from "node:child_process";
import {readFileSync} from "node:fs";
import {join} from "node:path";

const rules = [
    {files: /package-lock\.json$/, forbidden: /"resolved"\s*:\s*"|https?:\/\/registry/, what: "download address"},
    {files: /./, forbidden: /(?<![\w$}<])\/(home|work|Users)\/[a-z]/, what: "path of a machine"},
];

const root = process.argv[2];
const files = execFileSync("git", ["-C", root, "ls-files", "-z"], {encoding: "utf8"}).split("\0").filter(Boolean);
let finds = 0;
for (const name of files) {
    const text = readFileSync(join(root, name), "utf8");
    if (text.includes("\0") || name.startsWith("tests/checks/")) {
        continue;
    }
    text.split("\n").forEach((line, index) => {
        for (const rule of rules.filter((each) => each.files.test(name) && each.forbidden.test(line))) {
            console.log(`${name}:${index + 1}: ${rule.what}`);
            finds += 1;
        }
    });
}
console.log(`${files.length} files, ${finds} finds`);
process.exit(finds || !files.length ? 1 : 0);
