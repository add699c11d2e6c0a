'use strict';
// What the grammar refuses in files that are as they should be. An entry has
//   file    a pattern of the file's name
//   line    a pattern of the statement, its continuation lines joined by \n; it may match in part
//   readAs  what to put in place of what `line` matches, so that the rest of the statement and of the file is read too
//   why     why the text is as it is
// An entry counts only where the grammar does refuse the statement. One that is no more needed fails the check.

module.exports = [];
