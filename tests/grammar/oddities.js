'use strict';
// What the grammar refuses in files that are as they should be. An entry has
//   file    a pattern of the file's name
//   line    a pattern of the statement, its continuation lines joined by \n; it may match in part
//   readAs  what to put in place of what `line` matches, so that the rest of the statement and of the file is read too;
//           it may be several lines, parted by \n
//   why     why the text is as it is
// An entry counts only where the grammar does refuse the statement. One that is no more needed fails the check.

// Classes that no editor leaves so, and texts written by hand.
const kOddities = /(golden|samples)\/oddities\/.*\.cls$/;

const kSamples = /samples\/oddities\/Street\.cls$/;

module.exports = [
    {
        file: kOddities,
        line: /[ªµºÅÆËÏÐÑØÝÞßåæëïðñøýþÿ]/g,
        readAs: 'x',
        why: 'the letters of the grammar lack these; Visual Basic takes them in names',
    },
    {
        file: kOddities,
        line: / as $/,
        readAs: '',
        why: 'the type of a property may be empty, and is written so',
    },
    {
        file: kOddities,
        line: /(Key = ":" & \w+\.\w+)(":" & )/,
        readAs: '$1 & $2',
        why: 'retrieved by identity and by primary key, the two keys stand side by side with no operator between them',
    },
    {
        file: kOddities,
        line: /(mcol\.AddExisting \w+, ":" & \(.*\))(":" & )/,
        readAs: '$1) & $2',
        why: 'the same two keys in a list, where the parenthesis of the identity stays open as well',
    },
    {
        file: /golden\/.*\/(Customer|Employee|Lane|Ledger|OpenOrder|Product|Publisher|Warehouse|cPatient)\.cls$/,
        line: /(mcol\.AddExisting \w+, ":" & \((?:!\w+|adoRS\("[^"]*"\)))$/,
        readAs: '$1)',
        why: 'the key of a list by identity opens a parenthesis that nothing closes',
    },
    {
        file: /quiet-streets\/generated\/Region\.cls$/,
        line: /(AddExisting New\w+(?:, ":" & \w+\.\w+))(":" & )/,
        readAs: '$1 & $2',
        why: 'the key text that Clone makes for a child is kept, and stands before that of the next child',
    },
    {
        file: /(oddities\/.*|clinic-in-a-jet-file\/generated\/cWard)\.cls$/,
        line: /(DefaultConnectionString = .*)$/,
        readAs: '$1"',
        why: 'the connection to a file beside the component is written without its closing quote',
    },
    {
        file: /(oddities\/.*|clinic-in-a-jet-file\/generated\/cPatient|quiet-streets\/generated\/District)\.cls$/,
        line: /= (ado\(".*")$/,
        readAs: '= $1)',
        why: 'RetrieveIdentity reads a column whose name needs brackets with a parenthesis left open',
    },
    {
        file: /(clinic-in-a-jet-file\/generated\/cPatient|quiet-streets\/generated\/District)\.cls$/,
        line: /(RetrieveIdentity\(ByVal a\w+) (?=\w+ as )/,
        readAs: '$1_',
        why: 'an argument of RetrieveIdentity is named after the column, blank and all',
    },
    {
        file: kOddities,
        line: /^You MUST add the Retrieve Function .*$/,
        readAs: '\'$&',
        why: 'Update without Retrieve is a line for the developer, who is to meet it when compiling',
    },
    {
        file: kOddities,
        line: /RetrieveRelated\(, /,
        readAs: 'RetrieveRelated(',
        why: 'the comma stands even where no column of a relationship comes before it',
    },
    {
        file: kOddities,
        line: /" WHERE $/,
        readAs: '" WHERE "',
        why: 'a clause without a column leaves its string open',
    },
    {
        file: /clinic-in-a-jet-file\/generated\/c(Patient|Visit)\.cls$/,
        line: /!(\w+)\.(\w+)(?= = )/,
        readAs: '!$1_$2',
        why: 'where a field is written, a point in its name is no reason to name it in quotes',
    },
    {
        file: /golden\/oddities\/generated\/(House|Street)\.cls$/,
        line: /^End Function$/,
        readAs: 'End Sub',
        why: 'Add, Retrieve and Delete without a return type begin as a Sub and end as a Function',
    },
    {
        file: /golden\/oddities\/generated\/(Lane|Street)\.cls$/,
        line: /^(Public Property Get Modified|Private Sub Class_Initialize)\(\).*$/,
        readAs: 'End Property\n$&',
        why: 'the Friend routine before it, which sets an object, has no end and runs into this one',
    },
    {
        file: /golden\/oddities\/generated\/Square\.cls$/,
        line: /^!{80}$/,
        readAs: '\'$&',
        why: 'a column of a relationship is gone: a row of marks announces the warning',
    },
    {
        file: /golden\/oddities\/generated\/Square\.cls$/,
        line: /^THERE WAS AN ERROR GENERATING CODE .*$/,
        readAs: 'Next\nEnd Function',
        why: 'the warning, behind which the loop and the routine stay open',
    },
    {
        file: kSamples,
        line: /^ {4}"(?= & |, | SQL)/gm,
        readAs: '    ',
        why: 'once broken inside a string, every later piece of a long line opens with a quote',
    },
];
