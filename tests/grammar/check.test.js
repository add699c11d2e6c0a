'use strict';

const assert = require('node:assert');
const { spawnSync } = require('node:child_process');
const fs = require('node:fs');
const os = require('node:os');
const path = require('node:path');
const test = require('node:test');

require('./installed').RequireInstalled();

const kGood = 'Sub Run()\r\nEnd Sub\r\n';
const kBroken = 'Sub Run()\r\n    Else\r\nEnd Sub\r\n';
const kRepaired = '[{ file: /b\\.cls$/, line: /Else/, readAs: "Clear", why: "it is a test" }]';

// Runs the checker in a folder that holds `files` (name to content) and is gone afterwards.
function Check(files, words) {
    const folder = fs.mkdtempSync(path.join(os.tmpdir(), 'grammar-'));
    try {
        for (const [name, content] of Object.entries(files)) {
            fs.mkdirSync(path.dirname(path.join(folder, name)), { recursive: true });
            fs.writeFileSync(path.join(folder, name), content);
        }
        const checker = path.join(__dirname, 'check.js');
        return spawnSync(process.execPath, [checker, ...words], { cwd: folder, encoding: 'utf8' });
    } finally {
        fs.rmSync(folder, { recursive: true });
    }
}

test('reads every class, module and form below a folder, each content once', () => {
    const { status, stdout } = Check(
        { 'p/a.cls': kGood, 'p/q/b.Bas': kGood, 'p/q/c.frm': `${kGood}\r\n`, 'p/d.vbp': 'Type=OleDll\r\n' }, ['p']);
    assert.strictEqual(stdout, '3 files, 2 distinct; 0 errors, 0 settled oddities, 0 that occur no more\n');
    assert.strictEqual(status, 0);
});

test('names file, line and column of an error in each file that has it, shows the line, and fails', () => {
    const { status, stdout } = Check({ 'p/a.cls': kBroken, 'p/b.cls': kBroken, 'p/c.cls': kGood }, ['p']);
    assert.match(stdout, /^p\/a\.cls:2:9: no viable alternative .*\n {8}Else\np\/b\.cls:2:9: .*\n {8}Else\n/);
    assert.match(stdout, /\n3 files, 2 distinct; 2 errors/);
    assert.strictEqual(status, 1);
});

test('reads the bytes of a file as Windows-1252', () => {
    const bytes = Buffer.from('Private mvarGr\xf6\xdfe as Long\r\n', 'latin1');
    const { status, stdout } = Check({ 'a.cls': bytes }, ['a.cls']);
    assert.match(stdout, /token recognition error at: 'ß'\n {4}Private mvarGröße as Long\n/);
    assert.strictEqual(status, 1);
});

test('takes an oddity only in the files for which it is listed', () => {
    const { status, stdout } = Check(
        { 'a.cls': kBroken, 'b.cls': kBroken, 'table.js': `module.exports = ${kRepaired};` },
        ['--oddities', 'table.js', 'a.cls', 'b.cls']);
    assert.match(stdout, /^a\.cls:2:9: .*\n.*\n2 files, 2 distinct; 1 errors, 1 settled oddities, /);
    assert.strictEqual(status, 1);
});

test('fails on an oddity that occurs no more', () => {
    const { status, stdout } = Check(
        { 'b.cls': kGood, 'table.js': `module.exports = ${kRepaired};` }, ['--oddities', 'table.js', 'b.cls']);
    assert.match(stdout, /^No more an oddity, strike it off the table: .*Else.*it is a test/);
    assert.strictEqual(status, 1);
});

test('refuses to have nothing to read', () => {
    for (const words of [[], ['p'], ['nowhere'], ['--odities', 'p']]) {
        const { status, stderr } = Check({ 'p/a.vbp': 'Type=OleDll\r\n' }, words);
        assert.match(stderr, /usage: /);
        assert.strictEqual(status, 2);
    }
});
