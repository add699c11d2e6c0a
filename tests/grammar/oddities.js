'use strict';
// What the grammar refuses in files that are as they should be. An entry has
//   file    a pattern of the file's name
//   line    a pattern of the statement, its continuation lines joined by \n; it may match in part
//   readAs  what to put in place of what `line` matches, so that the rest of the statement and of the file is read too;
//           it may be several lines, parted by \n
//   why     why the text is as it is
// An entry counts only where the grammar does refuse the statement. One that is no more needed fails the check.

const kStreet = /samples\/oddities\/Street\.cls$/;

module.exports = [
    {
        file: kStreet,
        line: /[ªµºÅÆËÏÐÑØÝÞßåæëïðñøýþÿ]/g,
        readAs: 'x',
        why: 'the letters of the grammar lack these; Visual Basic takes them in names',
    },
    {
        file: kStreet,
        line: / as $/,
        readAs: '',
        why: 'the type of a property may be empty, and is written so',
    },
    {
        file: kStreet,
        line: /(Key = ":" & \w+\.\w+)(":" & )/,
        readAs: '$1 & $2',
        why: 'retrieved by identity and by primary key, the two keys stand side by side with no operator between them',
    },
    {
        file: /golden\/.*\/(Customer|OpenOrder|Product)\.cls$/,
        line: /(mcol\.AddExisting \w+, ":" & \(!\w+)$/,
        readAs: '$1)',
        why: 'the key of a list by identity opens a parenthesis that nothing closes',
    },
    {
        file: kStreet,
        line: /(DefaultConnectionString = .*)$/,
        readAs: '$1"',
        why: 'the connection to a file beside the component is written without its closing quote',
    },
    {
        file: kStreet,
        line: /= (ado\(".*")$/,
        readAs: '= $1)',
        why: 'RetrieveIdentity reads a column whose name needs brackets with a parenthesis left open',
    },
    {
        file: kStreet,
        line: /^You MUST add the Retrieve Function .*$/,
        readAs: '\'$&',
        why: 'Update without Retrieve is a line for the developer, who is to meet it when compiling',
    },
    {
        file: kStreet,
        line: /RetrieveRelated\(, /,
        readAs: 'RetrieveRelated(',
        why: 'the comma stands even where no column of a relationship comes before it',
    },
    {
        file: kStreet,
        line: /" WHERE $/,
        readAs: '" WHERE "',
        why: 'a clause without a column leaves its string open',
    },
    {
        file: kStreet,
        line: /^ {4}"(?= & |, | SQL)/gm,
        readAs: '    ',
        why: 'once broken inside a string, every later piece of a long line opens with a quote',
    },
];
