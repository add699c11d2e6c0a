#pragma once

#include "text/runtime_error.h"

#include <string>
#include <string_view>

// A project file, "|" standing for the separator. Lines end with CR LF; there is no escaping of any kind.
//
//     Veldrane Professional 2000 Data File
//
//     Begin Project
//     ProjectName|Order Desk                 value lines: kProjectLines
//     Begin AttachedTables                   only if there are some
//     Table|AuditLog                         one for each
//     End AttachedTables
//     End Project
//
//     Begin Classes
//     Begin Class Order                      for each class
//     TableName|Orders                       kClassLines
//     Begin Key 0                            for each key
//     KeyType|0                              kKeyLines
//     Begin KeyColumns_                      the underscores here are blanks
//     Begin KeyColumn OrderID                for each column: kKeyColumnLines
//     End KeyColumn OrderID
//     End KeyColumns_
//     End Key 0
//     Begin Relationship FK_Customer         for each relationship: kRelationshipLines
//     Begin RelationshipColumns
//     Begin RelationshipColumn ID            for each column: kRelationshipColumnLines
//     End RelationshipColumn ID
//     End RelationshipColumns
//     End Relationship FK_Customer
//     Begin Properties
//     Begin Property City                    for each property: kPropertyLines
//     Begin Lookup Field Town                for each field of a lookup: kLookupFieldLines
//     End Lookup Field Town
//     End Property |City                     the one End line with the separator in it: on purpose
//     End Properties
//     Begin Methods
//     Begin Method GetTotals                 for each method: kMethodLines
//     Begin StoredProcedure                  only if the method is one: kStoredProcedureLines
//     Begin SPParameters
//     Begin SPParameter @Year                for each parameter: kSPParameterLines
//     End SPParameter @Year
//     End SPParameters
//     End StoredProcedure
//     Begin Arguments
//     Begin Argument aYear                   for each argument: kArgumentLines
//     End Argument aYear
//     End Arguments
//     End Method GetTotals
//     End Methods
//     Begin Events
//     Begin Event Changed                    for each event: kEventLines, then arguments as in a method
//     End Event Changed
//     End Events
//     End Class Order
//     End Classes
//
// Reader and writer are no mirror images: which lines are left out, and which are written and never read, stands in
// value_tables.h. Enumerations, member names, attached procedures and passwords never reach the file.
namespace veldrane::project_format {

inline constexpr std::string_view kHeader = "Veldrane Professional 2000 Data File";
inline constexpr std::string_view kLineEnd = "\r\n";
inline constexpr char kSeparator = '\2';

// Appends one line, the pieces joined.
template <class... Pieces>
void AppendLine(std::string& text, const Pieces&... pieces)
{
    ((text += pieces), ...);
    text += kLineEnd;
}

struct KeyAndValue
{
    std::string_view Key;
    std::string_view Value;
};

// The first two pieces of the line that are not empty: nothing protects a separator inside a value, so that the value
// ends there. A missing piece is empty.
[[nodiscard]] KeyAndValue SplitValueLine(std::string_view line);

// Runs `read`; a RuntimeError goes on with the place before its description: "Author: ...".
template <class Read>
void Naming(std::string_view place, const Read& read)
{
    try {
        read();
    } catch (const RuntimeError& error) {
        throw RuntimeError(error.Number, error.Source, std::string(place) + ": " + error.Description());
    }
}

} // namespace veldrane::project_format
