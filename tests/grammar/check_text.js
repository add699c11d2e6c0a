'use strict';
// One text against the grammar and the oddities that are settled for it.

const { Errors } = require('./visual_basic');

const kContinuation = / _$/;
const kEndOfRoutine = /^End (Sub|Function|Property)\b/;

// The physical lines that make the statement at `index`: [first, last].
function StatementAround(lines, index) {
    let first = index;
    let last = index;
    while (first > 0 && kContinuation.test(lines[first - 1].text)) {
        --first;
    }
    while (last + 1 < lines.length && kContinuation.test(lines[last].text)) {
        ++last;
    }
    return [first, last];
}

function TextOf(lines) {
    return lines.map((line) => line.text).join('\r\n');
}

// Puts what the statement stands for in its place, under the same line numbers; says which oddity it was, or undefined.
function Settle(lines, index, oddities) {
    const [first, last] = StatementAround(lines, index);
    const statement = lines.slice(first, last + 1).map((line) => line.text).join('\n');
    for (const oddity of oddities) {
        const wellFormed = statement.replace(oddity.line, oddity.readAs);
        if (wellFormed !== statement) {
            const pieces = wellFormed.split('\n').map(
                (text, i) => ({ text, number: lines[Math.min(first + i, last)].number }));
            lines.splice(first, last + 1 - first, ...pieces);
            return oddity;
        }
    }
    return undefined;
}

function IsRefusedAlone(lines) {
    return Errors(`Sub Alone()\r\n${TextOf(lines)}\r\nEnd Sub`).length > 0;
}

// An error inside a block may be reported where the block begins, or before it. What is meant is then a statement
// further down in the routine, which the grammar refuses by itself as well.
function SettleBehind(lines, index, oddities) {
    for (let i = index; i < lines.length && !kEndOfRoutine.test(lines[i].text); ++i) {
        const [first, last] = StatementAround(lines, i);
        const statement = lines.slice(first, last + 1);
        const settled = [...statement];
        const oddity = Settle(settled, i - first, oddities);
        if (oddity !== undefined && IsRefusedAlone(statement)) {
            lines.splice(first, statement.length, ...settled);
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
    const lines = original.map((line, index) => ({ text: line, number: index + 1 }));
    const used = new Set();
    for (;;) {
        const errors = Errors(TextOf(lines));
        // From the last to the first: to settle one may add lines.
        const settled = [...errors].reverse()
            .map((error) => Settle(lines, error.line - 1, oddities) ?? SettleBehind(lines, error.line - 1, oddities))
            .filter((oddity) => oddity !== undefined);
        if (settled.length === 0) {
            const numbered = errors.map((error) => ({ ...error, line: lines[error.line - 1].number }));
            return { errors: numbered.map((error) => ({ ...error, text: original[error.line - 1] })), used: [...used] };
        }
        settled.forEach((oddity) => used.add(oddities.indexOf(oddity)));
    }
}

module.exports = { CheckText };
