'use strict';
// Whether the packages of package-lock.json are there.

const fs = require('node:fs');
const path = require('node:path');

const kInstall = 'run scripts/install-grammar';

function RequireInstalled() {
    const lock = fs.readFileSync(path.join(__dirname, 'package-lock.json'));
    const stamp = path.join(__dirname, 'node_modules', '.installed-lock');
    if (!fs.existsSync(stamp)) {
        console.error(`tests/grammar/node_modules is missing: ${kInstall}`);
        process.exit(1);
    }
    if (!lock.equals(fs.readFileSync(stamp))) {
        console.error(`tests/grammar/node_modules is not what package-lock.json names: ${kInstall}`);
        process.exit(1);
    }
}

module.exports = { RequireInstalled };
