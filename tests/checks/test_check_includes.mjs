// The check of the includes finds a breach of each kind, and nothing in a tree that keeps the table.

import assert from "node:assert";
import {spawnSync} from "node:child_process";
import {mkdirSync, mkdtempSync, rmSync, writeFileSync} from "node:fs";
import {tmpdir} from "node:os";
import {dirname, join} from "node:path";
import {fileURLToPath} from "node:url";

const check = join(dirname(fileURLToPath(import.meta.url)), "check_includes.mjs");

function run(files) {
    const tree = mkdtempSync(join(tmpdir(), "includes-"));
    for (const [name, text] of Object.entries(files)) {
        mkdirSync(dirname(join(tree, name)), {recursive: true});
        writeFileSync(join(tree, name), text);
    }
    const result = spawnSync(process.execPath, [check, tree], {encoding: "utf8"});
    rmSync(tree, {recursive: true});
    return result;
}

const kept = {
    "app/Data.h": "class Zone;\n",
    "model/Zone.cpp": '#include "model/Zone.h"\n#include "app/Data.h"\n#include "page/ScriptCall.h"\n',
    "view/admin/Zone.cpp": '#include "protocol/Request.h"\n#include <QWebView>\n',
};
assert.strictEqual(run(kept).status, 0);

const breaches = {
    "model/Zone.cpp": '#include "view/WebView.h"\n',
    "protocol/input/Zone.cpp": '#include "view/WebView.h"\n',
    "network/TcpClient.cpp": '\n#include "page/ScriptCall.h"\n',
    "view/WebView.cpp": '#include "app/Program.h"\n',
    "network/NetworkParser.cpp": '#include "app/Data.h"\n',
    "media/Audio.cpp": "#include <QWebFrame>\n",
    "app/Data.h": '#include "model/Zone.h"\n',
};
for (const [name, text] of Object.entries(breaches)) {
    const result = run({...kept, [name]: text});
    assert.strictEqual(result.status, 1, name);
    assert.match(result.stdout, new RegExp(`${name}:${text.startsWith("\n") ? 2 : 1}: `));
}
assert.strictEqual(run({"log/readme.txt": ""}).status, 1, "a tree without sources is no pass");
console.log("ok");
