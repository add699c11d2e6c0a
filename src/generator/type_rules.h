#pragma once

#include "model/project.h"

#include <string>
#include <string_view>

// What the generator knows of Visual Basic's types, given by their names.
namespace veldrane {

enum class VariableKind
{
    Global, // "g" stands before the prefix
    Member, // "m" does
};

// The project's prefix for variables of a type, behind the letter of their kind. A type without a prefix of its own
// has that for other types; an empty prefix becomes "var". Names are compared exactly.
[[nodiscard]] std::string VariablePrefix(const TTCProject& project, std::string_view typeName, VariableKind kind = VariableKind::Member);

// The same, appended to a line.
void AppendVariablePrefix(std::string& line, const TTCProject& project, std::string_view typeName, VariableKind kind = VariableKind::Member);

// DefaultValueForType's answer for a type that needs object handling: no value, but a mark to test for.
inline constexpr std::string_view kObjectMark = "Object";

// The text of a type's empty value in generated code. Names are compared exactly.
[[nodiscard]] std::string_view DefaultValueForType(std::string_view typeName, bool isGuid);

// Whether the type is none of the plain value types. Names are compared without regard to case; "Variant" and the empty
// name count as objects.
[[nodiscard]] bool IsObjectType(std::string_view typeName);

// The display name of a column that holds a GUID.
inline constexpr std::string_view kGuidFieldType = "GUID";

} // namespace veldrane
