// Usage: node add_server.mjs FILE ADDRESS PORT
//
// Makes sure that the console's server list in FILE has the server. The other
// entries stay; a file that can't be understood is set aside, not overwritten.

import fs from 'node:fs';
import path from 'node:path';

/** The list in the file; an empty one where there is no file or an unreadable text. */
function readList(file) {
    if (!fs.existsSync(file)) {
        return { servers: [] };
    }
    const text = fs.readFileSync(file, 'utf8');
    try {
        const list = JSON.parse(text);
        if (Array.isArray(list?.servers)) {
            return list;
        }
    } catch {
        // Told below, like a list of another shape.
    }
    if (text.trim() !== '') {
        const aside = `${file}.broken-${Date.now()}`;
        fs.copyFileSync(file, aside, fs.constants.COPYFILE_EXCL);
        console.error(`${file} is no list of servers; starting a new one, the old text is in ${aside}`);
    }
    return { servers: [] };
}

/** Replaces the file as a whole, so that a console that starts now reads the old or the new one. */
function writeList(file, list) {
    const unfinished = `${file}.${process.pid}`;
    fs.writeFileSync(unfinished, `${JSON.stringify(list, null, 4)}\n`);
    fs.renameSync(unfinished, file);
}

const [, , file, ip, portText] = process.argv;
const port = Number(portText);
const list = readList(file);
if (!list.servers.some((server) => server?.ip === ip && server?.port === port)) {
    // At most one server is the default.
    const isDefault = !list.servers.some((server) => server?.isDefault === true);
    list.servers.push({ ip, isDefault, port });
    fs.mkdirSync(path.dirname(file), { recursive: true });
    writeList(file, list);
}
