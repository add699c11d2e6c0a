'use strict';
// The Visual Basic 6 grammar: a text goes in, what the grammar refuses comes out.

require('./installed').RequireInstalled();
const { CharStreams, CommonTokenStream } = require('antlr4ts');
const { VisualBasic6Lexer, VisualBasic6Parser } = require('vb6-antlr4');

const kLongestExpectation = 80;

// On one line; and where nearly anything may follow, without the hundred words that were expected.
function Tidied(message) {
    return message
        .replace(/\r/g, '\\r')
        .replace(/\n/g, '\\n')
        .replace(/ expecting \{(.*)\}$/, (whole, names) => names.length > kLongestExpectation ? '' : whole);
}

function ListenTo(recognizer, errors) {
    recognizer.removeErrorListeners();
    recognizer.addErrorListener({
        syntaxError(_recognizer, _symbol, line, column, message) {
            errors.push({ line, column: column + 1, message: Tidied(message) });
        },
    });
}

function Parse(text, interpreterOptions) {
    const errors = [];
    const lexer = new VisualBasic6Lexer(CharStreams.fromString(text));
    const parser = new VisualBasic6Parser(new CommonTokenStream(lexer));
    ListenTo(lexer, errors);
    ListenTo(parser, errors);
    parser.buildParseTree = false;
    Object.assign(parser.interpreter, interpreterOptions);
    parser.startRule();
    return errors;
}

// What follows on the same line is nearly always the parser finding its feet again.
function FirstOfEachLine(errors) {
    const byLine = new Map();
    for (const error of [...errors].sort((a, b) => a.line - b.line || a.column - b.column)) {
        if (!byLine.has(error.line)) {
            byLine.set(error.line, error);
        }
    }
    return [...byLine.values()];
}

// Errors(text): [{line, column, message}], lines and columns counted from 1, at most one error a line.
// Keeping full-context predictions makes parsing several times as fast. A prediction only chooses the way, every token
// is matched all the same, so a text that passes is well-formed; an error is reported as the plain parser sees it.
function Errors(text) {
    if (Parse(text, { enable_global_context_dfa: true }).length === 0) {
        return [];
    }
    return FirstOfEachLine(Parse(text, {}));
}

module.exports = { Errors };
