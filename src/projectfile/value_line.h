#pragma once

#include "projectfile/format.h"
#include "text/conversion.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>
#include <variant>

// One row of the tables that reader and writer share: the key of a value line and the member that it carries.
namespace veldrane::project_format {

enum class Written
{
    Always,
    IfSet, // not False, not 0, not empty
    Never,
};

enum class Reading
{
    Taken,
    TakenLast, // once the other lines of the block are read, and only if it is not empty
    Ignored,
};

// A text whose setting does something.
template <class Record>
struct TextProperty
{
    const std::string& (Record::*Get)() const;
    void (Record::*Set)(const std::string&);
};

template <class Record>
struct ValueLine
{
    std::string_view Key;
    std::variant<std::string Record::*, bool Record::*, std::int32_t Record::*, std::int16_t Record::*,
                 TextProperty<Record>>
        Member;
    Written Writing = Written::Always;
    Reading WhenRead = Reading::Taken;
    bool Record::*OnlyWith = nullptr; // written only while this flag is True as well
};

inline const std::string& TextOfValue(const std::string& value)
{
    return value;
}

inline std::string_view TextOfValue(bool value)
{
    return text::TextOf(value);
}

inline std::string TextOfValue(std::int32_t value)
{
    return std::to_string(value);
}

inline std::string TextOfValue(std::int16_t value)
{
    return std::to_string(value);
}

template <class Value>
Value ValueOfText(std::string_view text)
{
    if constexpr (std::is_same_v<Value, bool>)
        return text::ToBoolean(text);
    else if constexpr (std::is_same_v<Value, std::int32_t>)
        return text::ToLong(text);
    else if constexpr (std::is_same_v<Value, std::int16_t>)
        return text::ToInteger(text);
    else
        return std::string(text);
}

template <class Record>
bool IsWritten(const Record& record, const ValueLine<Record>& line)
{
    if (line.OnlyWith != nullptr && !(record.*line.OnlyWith))
        return false;
    if (line.Writing != Written::IfSet)
        return line.Writing == Written::Always;
    return std::visit(
        [&](const auto& member) {
            if constexpr (std::is_member_object_pointer_v<std::decay_t<decltype(member)>>)
                return record.*member != std::decay_t<decltype(record.*member)>{};
            else
                return !(record.*member.Get)().empty();
        },
        line.Member);
}

template <class Record>
void AppendMember(std::string& text, const Record& record, const ValueLine<Record>& line)
{
    std::visit(
        [&](const auto& member) {
            if constexpr (std::is_member_object_pointer_v<std::decay_t<decltype(member)>>)
                text += TextOfValue(record.*member);
            else
                text += (record.*member.Get)();
        },
        line.Member);
}

// Throws RuntimeError (6, 13) if the text does not convert to the member's type.
template <class Record>
void AssignMember(Record& record, const ValueLine<Record>& line, std::string_view value)
{
    std::visit(
        [&](const auto& member) {
            if constexpr (std::is_member_object_pointer_v<std::decay_t<decltype(member)>>)
                record.*member = ValueOfText<std::decay_t<decltype(record.*member)>>(value);
            else
                (record.*member.Set)(std::string(value));
        },
        line.Member);
}

// Appends the value lines of the record, in the order of the table.
template <class Record, class Table>
void AppendValueLines(std::string& text, const Record& record, const Table& table)
{
    for (const ValueLine<Record>& line : table)
        if (IsWritten(record, line)) {
            text.append(line.Key).push_back(kSeparator);
            AppendMember(text, record, line);
            text += kLineEnd;
        }
}

// The row of the key, compared letter by letter; a null pointer if there is none.
template <class Table>
const typename Table::value_type* FindValueLine(const Table& table, std::string_view key)
{
    if (key.empty())
        return nullptr;
    // Nearly all other keys are told apart by their length and last letter.
    for (const auto& line : table)
        if (line.Key.size() == key.size() && line.Key.back() == key.back() && line.Key == key)
            return &line;
    return nullptr;
}

// Assigns what the line of a file says; a line of another key is passed over. Throws as AssignMember does, the
// description led by the key.
template <class Record, class Table>
void ReadValueLine(std::string_view fileLine, Record& record, const Table& table)
{
    const KeyAndValue read = SplitValueLine(fileLine);
    if (const ValueLine<Record>* line = FindValueLine(table, read.Key))
        Naming(line->Key, [&] { AssignMember(record, *line, read.Value); });
}

} // namespace veldrane::project_format
