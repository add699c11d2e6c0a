'use strict';
// One text against the grammar and the oddities that are settled for it.

const { Errors } = require('./visual_basic');

const kContinuation = / _$/;

// The physical lines that make the statement at `index`: [first, last].
function StatementAround(lines, index) {
    let first = index;
    let last = index;
    while (first > 0 && kContinuation.test(lines[first - 1])) {
        --first;
    }
    while (last + 1 < lines.length && kContinuation.test(lines[last])) {
        ++last;
    }
    return [first, last];
}

// Puts what the statement stands for in its place, on as many lines; says which oddity it was, or undefined.
function Settle(lines, index, oddities) {
    const [first, last] = StatementAround(lines, index);
    const statement = lines.slice(first, last + 1).join('\n');
    for (const oddity of oddities) {
        const wellFormed = statement.replace(oddity.line, oddity.readAs);
        if (wellFormed !== statement) {
            const pieces = wellFormed.split('\n');
            for (let i = first; i <= last; ++i) {
                lines[i] = pieces[i - first] ?? '';
            }
            return oddity;
        }
    }
    return undefined;
}

// CheckText(text, oddities): {errors, used}. An error has line, column, message and text (the line); used holds the
// indices of the oddities that the grammar did refuse. After each of them the text is read again with the well-formed
// statement, so that an oddity hides nothing of what stands around it.
function CheckText(text, oddities) {
    const original = text.split(/\r?\n/);
    const lines = [...original];
    const used = new Set();
    for (;;) {
        const errors = Errors(lines.join('\r\n'));
        const settled = errors
            .map((error) => Settle(lines, error.line - 1, oddities))
            .filter((oddity) => oddity !== undefined);
        if (settled.length === 0) {
            return { errors: errors.map((error) => ({ ...error, text: original[error.line - 1] })), used: [...used] };
        }
        settled.forEach((oddity) => used.add(oddities.indexOf(oddity)));
    }
}

module.exports = { CheckText };
