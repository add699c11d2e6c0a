'use strict';

const assert = require('node:assert');
const test = require('node:test');

const { CheckText } = require('./check_text');

function TextOf(lines) {
    return lines.map((line) => `${line}\r\n`).join('');
}

const kWellFormed = {
    'an empty routine': ['Sub Run()', 'End Sub'],
    'a class module with its header': [
        'VERSION 1.0 CLASS', 'BEGIN', '  MultiUse = -1  \'True', 'END', 'Attribute VB_Name = "City"', 'Option Explicit',
        'Private mvarName as String'],
    'a form': [
        'VERSION 5.00', 'Begin VB.Form frmTest ', '   BeginProperty Font ', '      Size            =   8.25',
        '   EndProperty', 'End', 'Attribute VB_Name = "frmTest"', 'Private Sub Form_Load', 'End Sub'],
    'a statement over three lines': [
        'Sub Run()', '    SQL = "SELECT " & _', '        "a.Name " _', '        & "FROM Cities a"', 'End Sub'],
    'doubled quotes in a string': ['Sub Run()', '    msg = "say ""yes"""', 'End Sub'],
    'quotes and keywords in a comment': ['Sub Run()', '    \'End If, "and so on', 'End Sub'],
    'letters beyond ASCII': ['Sub Run()', '    Höhe = "Straße – 5 €"', 'End Sub'],
    'labels, jumps and error traps': [
        'Function Run() as Boolean', '    On Error Goto errRun', '    Gosub Rest', '    Exit Function', 'Rest:',
        '    Return', 'errRun:', '    nbr = Err.Number', 'End Function'],
    'no line at all': [],
};

for (const [name, lines] of Object.entries(kWellFormed)) {
    test(`accepts ${name}`, () => {
        assert.deepStrictEqual(CheckText(TextOf(lines), []).errors, []);
    });
}

const kBroken = {
    'a quote without its pair': [['Sub Run()', '    msg = "open', 'End Sub'], 2, 11, /'"open/],
    'a routine without its end': [['Sub Run()', '    Clear'], 3, 1, /'<EOF>' expecting \{END_SUB/],
    'a routine inside another': [['Sub Run()', 'Sub Rest()', 'End Sub'], 2, 5, /'Sub Rest'/],
    'a lone Else': [['Sub Run()', '    Else', 'End Sub'], 2, 9, /no viable alternative at input 'Else/],
    'a stray parenthesis': [['Sub Run()', '    x = 1)', 'End Sub'], 2, 10, /'\)'/],
    'an open parenthesis': [['Sub Run()', '    x = (1', 'End Sub'], 2, 11, /'\\r\\n' expecting \{',', '\)'/],
    'the end of another routine': [['Sub Run()', 'End Property', 'End Sub'], 2, 1, /'End Property'/],
    'an End If too many': [['Sub Run()', '    End If', 'End Sub'], 2, 5, /'End If'/],
    'a type that is missing': [['Private mvarName as ', 'Private mvarCode as Long'], 1, 20, /expecting WS/],
    'two expressions side by side': [['Sub Run()', '    x = a "b"', 'End Sub'], 2, 10, /expecting NEWLINE/],
    'an assignment of nothing': [['Sub Run()', '    x =', 'End Sub'], 2, 8, /'\\r\\n'/],
    'an empty place before a parameter': [['Sub Run(, ByVal a as Long)', 'End Sub'], 1, 9, /','/],
};

for (const [name, [lines, line, column, message]] of Object.entries(kBroken)) {
    test(`refuses ${name} with one error`, () => {
        const { errors } = CheckText(TextOf(lines), []);
        assert.strictEqual(errors.length, 1, JSON.stringify(errors));
        assert.deepStrictEqual([errors[0].line, errors[0].column], [line, column], errors[0].message);
        assert.match(errors[0].message, message);
        assert.strictEqual(errors[0].text, lines[line - 1] ?? '');
    });
}

test('finds an error behind a well-formed text that was read before', () => {
    const lines = kWellFormed['labels, jumps and error traps'];
    assert.deepStrictEqual(CheckText(TextOf(lines), []).errors, []);
    assert.strictEqual(CheckText(TextOf([...lines, 'Else']), []).errors[0].line, lines.length + 1);
});

test('says what an error is without the hundred words that may stand in its place', () => {
    const { errors } = CheckText(TextOf(['Sub Run()', '    End If', 'End Sub']), []);
    assert.strictEqual(errors[0].message, 'extraneous input \'End If\'');
});

const kOpenClause = { line: / WHERE $/, readAs: ' WHERE "' };

test('takes an oddity of the table and tells that it occurs', () => {
    const text = TextOf(['Sub Run()', '    SQL = " WHERE ', 'End Sub']);
    assert.deepStrictEqual(CheckText(text, [kOpenClause]), { errors: [], used: [0] });
});

test('does not count an oddity where the grammar takes the line', () => {
    const text = TextOf(['Sub Run()', '    SQL = "a" \' WHERE ', 'End Sub']);
    assert.deepStrictEqual(CheckText(text, [kOpenClause]), { errors: [], used: [] });
});

test('finds an error on the line of an oddity', () => {
    const { errors } = CheckText(TextOf(['Sub Run()', '    SQL = ) & " WHERE ', 'End Sub']), [kOpenClause]);
    assert.deepStrictEqual(
        errors.map(({ line, column, text }) => [line, column, text]), [[2, 11, '    SQL = ) & " WHERE ']]);
});

test('finds an error behind an oddity', () => {
    const { errors } = CheckText(TextOf(['Sub Run()', '    SQL = " WHERE ', '    x = 1)', 'End Sub']), [kOpenClause]);
    assert.deepStrictEqual(errors.map(({ line }) => line), [3]);
});

test('takes an oddity that goes over several lines, and keeps the numbers of the lines behind it', () => {
    const reopened = { line: /^ {4}"(?= & )/gm, readAs: '    ' };
    const text = TextOf(['Sub Run()', '    SQL = "a" _', '    " & b _', '    " & c', '    x = 1)', 'End Sub']);
    const { errors, used } = CheckText(text, [reopened]);
    assert.deepStrictEqual(errors.map(({ line }) => line), [5]);
    assert.deepStrictEqual(used, [0]);
});

test('ends with the error where an oddity stands for what is no better', () => {
    const text = TextOf(['Sub Run()', '    x = 1)', 'End Sub']);
    const { errors } = CheckText(text, [{ line: /x = 1\)$/, readAs: 'x = 2)' }]);
    assert.deepStrictEqual(errors.map(({ line }) => line), [2]);
});

const kOpenParenthesis = { line: /(Add \(!\w+)$/, readAs: '$1)' };

test('takes an oddity inside a block whose beginning the grammar refuses for it', () => {
    const text = TextOf(['Sub Run()', '    If Open Then', '    Wait', '    End If', '    With list', '    mCol.Add (!Number',
        '    End With', 'End Sub']);
    assert.deepStrictEqual(CheckText(text, []).errors.map(({ line }) => line), [5]);
    assert.deepStrictEqual(CheckText(text, [kOpenParenthesis]), { errors: [], used: [0] });
});

test('leaves what the grammar takes, though it looks like an oddity behind an error', () => {
    const { errors, used } = CheckText(
        TextOf(['Sub Run()', '    x = y z', '    msg = "a"', 'End Sub']), [{ line: /"a"$/, readAs: '"b"' }]);
    assert.deepStrictEqual(errors.map(({ line }) => line), [2]);
    assert.deepStrictEqual(used, []);
});

test('takes an oddity that stands for several lines, and keeps the numbers of the lines behind it', () => {
    const withoutEnd = { line: /^Property Get Code\(\)$/, readAs: 'End Property\n$&' };
    const text = TextOf(['Property Set Map(x)', 'Property Get Code()', '    x = 1)', 'End Property']);
    const { errors, used } = CheckText(text, [withoutEnd]);
    assert.deepStrictEqual(errors.map(({ line, text: shown }) => [line, shown]), [[3, '    x = 1)']]);
    assert.deepStrictEqual(used, [0]);
});
