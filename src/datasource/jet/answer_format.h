#pragma once

#include <cstddef>
#include <string_view>

// What the reader of Jet files (`veldrane-jet`) tells of a file, on its standard output: UTF-8, a record a line, ended
// by a line feed, its fields divided by tabs. In a field \t, \n, \r and \\ stand for these four characters.
//
//   veldrane-jet 1
//   table          NAME  TYPE               one of those below
//   column         NAME  ADO TYPE  DEFINED SIZE  ATTRIBUTES  auto or -     of the table above, or of the query
//   index          NAME  primary or -  unique or -                        of the table above
//   index column   NAME                                                   of the index above
//   query          NAME  view or procedure
//   relationship         NAME  TABLE  RELATED TABLE
//   relationship column  COLUMN  RELATED COLUMN                           of the relationship above
//   end
//
// A name, of a column too, has 1 to kMostNameBytes bytes, none of them NUL.
//
// A view whose columns can't be told without running it has none. For a file that is not read, one line stands between
// the first and the last:
//
//   refused        REASON  WORDS            a reason of those below; words for a person, maybe none
namespace veldrane::jet_answer {

inline constexpr std::string_view kFirstLine = "veldrane-jet 1";
inline constexpr std::string_view kTable = "table";
inline constexpr std::string_view kColumn = "column";
inline constexpr std::string_view kIndex = "index";
inline constexpr std::string_view kIndexColumn = "index column";
inline constexpr std::string_view kQuery = "query";
inline constexpr std::string_view kRelationship = "relationship";
inline constexpr std::string_view kRelationshipColumn = "relationship column";
inline constexpr std::string_view kRefused = "refused";
inline constexpr std::string_view kEnd = "end";

// Types of a table.
inline constexpr std::string_view kPlainTable = "TABLE";
inline constexpr std::string_view kSystemTable = "SYSTEM TABLE";
inline constexpr std::string_view kProgramTable = "ACCESS TABLE"; // of the program on top of the engine
inline constexpr std::string_view kLinkedTable = "LINK";          // lies in another database

// More than any name takes: 64 characters, and as many of the table before a view's column.
inline constexpr std::size_t kMostNameBytes = 1024;

inline constexpr std::string_view kPrimary = "primary";
inline constexpr std::string_view kUnique = "unique";
inline constexpr std::string_view kAuto = "auto";
inline constexpr std::string_view kNot = "-";
inline constexpr std::string_view kView = "view";
inline constexpr std::string_view kProcedure = "procedure";

// Reasons of a refusal.
inline constexpr std::string_view kMissing = "missing";         // no such file
inline constexpr std::string_view kNotAFile = "not-a-file";     // a folder, a device, a pipe
inline constexpr std::string_view kUnreachable = "unreachable"; // no path: a link to itself, a name too long
inline constexpr std::string_view kUnreadable = "unreadable";   // no permission
inline constexpr std::string_view kFailing = "failing";         // a disk that fails, and whatever else the system says
inline constexpr std::string_view kNotJet = "not-jet";          // no Jet file, or none of versions 3 and 4
inline constexpr std::string_view kAce = "ace";                 // a file of the later engine (.accdb)
inline constexpr std::string_view kPassword = "password";       // the password is wrong, or none was given
inline constexpr std::string_view kCodePage = "code-page"; // no converter for that of its text, whose number follows
inline constexpr std::string_view kDamaged = "damaged";

} // namespace veldrane::jet_answer
