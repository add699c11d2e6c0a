'use strict';
// Reads Visual Basic files with an independent grammar: node check.js [--oddities TABLE.js] FILE|FOLDER...
// Every .cls, .bas and .frm below the folders is read. Exit code 0: all well-formed but for the oddities of the table,
// each of which occurs; 1: errors, or an oddity that occurs no more; 2: wrong usage.

const crypto = require('node:crypto');
const fs = require('node:fs');
const os = require('node:os');
const path = require('node:path');
const { Worker, isMainThread, parentPort } = require('node:worker_threads');

const { RequireInstalled } = require('./installed');

const kVisualBasic = /\.(cls|bas|frm)$/i;

function WrongUsage(message) {
    console.error(message);
    console.error('usage: node check.js [--oddities TABLE.js] FILE|FOLDER...');
    process.exit(2);
}

function ParseArguments(words) {
    const paths = [];
    let oddities = [];
    for (let i = 0; i < words.length; ++i) {
        if (words[i] === '--oddities' && i + 1 < words.length) {
            oddities = require(path.resolve(words[++i]));
        } else if (words[i].startsWith('--')) {
            WrongUsage(`Not understood: ${words[i]}`);
        } else if (!fs.existsSync(words[i])) {
            WrongUsage(`There is no ${words[i]}`);
        } else {
            paths.push(words[i]);
        }
    }
    return { paths, oddities };
}

function FilesBelow(where) {
    if (!fs.statSync(where).isDirectory()) {
        return kVisualBasic.test(where) ? [where] : [];
    }
    return fs.readdirSync(where).sort().flatMap((name) => FilesBelow(path.posix.join(where, name)));
}

// Files of one content, to which the same oddities apply, are one task.
function Tasks(files, oddities) {
    const tasks = new Map();
    for (const file of files) {
        const bytes = fs.readFileSync(file);
        const mayHave = oddities.map((_, index) => index).filter((index) => oddities[index].file.test(file));
        const key = `${crypto.createHash('sha256').update(bytes).digest('hex')} ${mayHave}`;
        if (!tasks.has(key)) {
            tasks.set(key, { bytes, mayHave, oddities: mayHave.map((index) => oddities[index]), files: [] });
        }
        tasks.get(key).files.push(file);
    }
    return [...tasks.values()];
}

// The largest first, so that no core is left with a large one at the end.
function RunOnAllCores(tasks) {
    const waiting = [...tasks].sort((a, b) => a.bytes.length - b.bytes.length);
    const RunWorker = () => new Promise((resolve, reject) => {
        const worker = new Worker(__filename);
        let task;
        const Next = () => {
            task = waiting.pop();
            if (task === undefined) {
                worker.postMessage(null);
            } else {
                worker.postMessage({ bytes: task.bytes, oddities: task.oddities });
            }
        };
        worker.on('message', (result) => {
            Object.assign(task, result);
            Next();
        });
        worker.on('error', reject);
        worker.on('exit', (code) => code === 0 ? resolve() : reject(new Error(`a worker ended with ${code}`)));
        Next();
    });
    return Promise.all(Array.from({ length: Math.min(os.cpus().length, tasks.length) }, RunWorker));
}

function Serve() {
    const { CheckText } = require('./check_text');
    const decoder = new TextDecoder('windows-1252');
    parentPort.on('message', (task) => {
        if (task === null) {
            parentPort.close();
        } else {
            parentPort.postMessage(CheckText(decoder.decode(task.bytes), task.oddities));
        }
    });
}

function ReportErrors(tasks) {
    let count = 0;
    for (const { files, errors } of tasks) {
        for (const file of files) {
            errors.forEach(({ line, column, message, text }) =>
                console.log(`${file}:${line}:${column}: ${message}\n    ${text}`));
            count += errors.length;
        }
    }
    return count;
}

function ReportUnused(tasks, oddities) {
    const used = new Set(tasks.flatMap((task) => task.used.map((index) => task.mayHave[index])));
    const unused = oddities.filter((_, index) => !used.has(index));
    for (const { file, line, why } of unused) {
        console.log(`No more an oddity, strike it off the table: ${file} ${line} (${why})`);
    }
    return unused.length;
}

async function Main() {
    RequireInstalled();
    const { paths, oddities } = ParseArguments(process.argv.slice(2));
    const files = [...new Set(paths.flatMap(FilesBelow))];
    if (files.length === 0) {
        WrongUsage('There is no .cls, .bas or .frm file to read.');
    }
    const tasks = Tasks(files, oddities);
    await RunOnAllCores(tasks);
    const errors = ReportErrors(tasks);
    const unused = ReportUnused(tasks, oddities);
    console.log(`${files.length} files, ${tasks.length} distinct; ${errors} errors, ` +
        `${oddities.length - unused} settled oddities, ${unused} that occur no more`);
    process.exitCode = errors + unused === 0 ? 0 : 1;
}

if (isMainThread) {
    Main();
} else {
    Serve();
}
