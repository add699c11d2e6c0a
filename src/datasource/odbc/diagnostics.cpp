#include "datasource/odbc/diagnostics.h"

#include "datasource/odbc/utf16.h"
#include "text/characters.h"
#include "text/strings.h"

#include <sqlext.h>
#include <sqlucode.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <optional>
#include <string_view>

namespace veldrane {
namespace {

constexpr std::string_view kSource = "ODBC";
constexpr std::size_t kStateSize = 5;
constexpr SQLSMALLINT kMostRecords = 100; // some drivers never come to an end
constexpr std::size_t kMessageSize = 4096;

// What a record means to the rules, by its SQL state, by its native error where that is not 0, and by how the driver's
// words begin where a driver has one state for all.
struct Meaning
{
    std::string_view State;
    std::int32_t NativeError;
    std::string_view Beginning;
    long Number;
};

constexpr std::array kMeanings{
    Meaning{"42S02", 0, "", data_source_error::kTableUnknown},
    Meaning{"42P01", 0, "", data_source_error::kTableUnknown},
    Meaning{"S0002", 0, "", data_source_error::kTableUnknown},
    Meaning{"HY000", 1, "[SQLite]no such table:", data_source_error::kTableUnknown},
    Meaning{"42501", 0, "", data_source_error::kPermissionDenied},
    Meaning{"42000", 1142, "", data_source_error::kPermissionDenied}, // a table
    Meaning{"42000", 1143, "", data_source_error::kPermissionDenied}, // a column
    Meaning{"42000", 229, "", data_source_error::kPermissionDenied},  // a table of SQL Server
    Meaning{"42000", 230, "", data_source_error::kPermissionDenied},  // a column of SQL Server
    Meaning{"08S01", 0, "", data_source_error::kNoOpenConnection},
    Meaning{"08003", 0, "", data_source_error::kNoOpenConnection},
    Meaning{"08006", 0, "", data_source_error::kNoOpenConnection},
    Meaning{"57P01", 0, "", data_source_error::kNoOpenConnection},    // an administrator's command
    Meaning{"57P02", 0, "", data_source_error::kNoOpenConnection},    // another session crashed
    Meaning{"57P03", 0, "", data_source_error::kNoOpenConnection},    // the server starts or stops
    Meaning{"HY018", 1927, "", data_source_error::kNoOpenConnection}, // killed
    Meaning{"HY000", 2006, "", data_source_error::kNoOpenConnection}, // the server has gone away
    Meaning{"HY000", 2013, "", data_source_error::kNoOpenConnection}, // lost during the statement
    Meaning{"HY000", 5014, "", data_source_error::kNoOpenConnection}, // written to a closed socket
    Meaning{"IM001", 0, "", data_source_error::kNotSupported},
    Meaning{"HYC00", 0, "", data_source_error::kNotSupported},
    Meaning{"S1C00", 0, "", data_source_error::kNotSupported},
};

long NumberOf(const ADOError& record)
{
    const auto found = std::find_if(kMeanings.begin(), kMeanings.end(), [&](const Meaning& meaning) {
        return record.SQLState == meaning.State &&
               (meaning.NativeError == 0 || record.NativeError == meaning.NativeError) &&
               record.Description.starts_with(meaning.Beginning);
    });
    return found == kMeanings.end() ? data_source_error::kFailed : found->Number;
}

std::optional<ADOError> ReadNarrow(SQLSMALLINT handleType, SQLHANDLE handle, SQLSMALLINT number)
{
    std::array<SQLCHAR, kStateSize + 1> state{};
    std::vector<SQLCHAR> message(kMessageSize);
    SQLINTEGER native = 0;
    SQLSMALLINT length = 0;
    const SQLRETURN result = SQLGetDiagRec(handleType, handle, number, state.data(), &native, message.data(),
                                           static_cast<SQLSMALLINT>(message.size()), &length);
    if (!SQL_SUCCEEDED(result))
        return std::nullopt;
    const auto* words = reinterpret_cast<const char*>(message.data());
    return ADOError{.Number = data_source_error::kFailed,
                    .Description = text::WellFormed(words),
                    .NativeError = native,
                    .Source = std::string(kSource),
                    .SQLState = reinterpret_cast<const char*>(state.data())};
}

std::optional<ADOError> ReadWide(SQLSMALLINT handleType, SQLHANDLE handle, SQLSMALLINT number)
{
    std::array<char16_t, kStateSize + 1> state{};
    std::u16string message(kMessageSize, u'\0');
    SQLINTEGER native = 0;
    SQLSMALLINT length = 0;
    const SQLRETURN result =
        SQLGetDiagRecW(handleType, handle, number, reinterpret_cast<SQLWCHAR*>(state.data()), &native,
                       reinterpret_cast<SQLWCHAR*>(message.data()), static_cast<SQLSMALLINT>(message.size()), &length);
    if (!SQL_SUCCEEDED(result))
        return std::nullopt;
    return ADOError{.Description = FromUtf16(message.c_str()),
                    .NativeError = native,
                    .Source = std::string(kSource),
                    .SQLState = FromUtf16(state.data())};
}

// A driver tells in brackets which component speaks: "[vendor][component][data source]It failed.". That stays in the
// record, where those look who know what it means.
std::string_view WithoutSpeakers(std::string_view words)
{
    while (words.starts_with('[') && words.find(']') != std::string_view::npos)
        words = text::TrimLeft(words.substr(words.find(']') + 1));
    return words;
}

std::string WithSingleBlanks(std::string_view line)
{
    std::string words;
    for (const std::string_view word : text::Split(line, " "))
        if (!word.empty())
            words.append(words.empty() ? "" : " ").append(word);
    return words;
}

bool GoesOn(std::string_view line)
{
    return std::isupper(static_cast<unsigned char>(line.front())) == 0;
}

// The words of all records in one line, each once: some drivers break theirs into several, as sentences or within one.
std::string Joined(const std::vector<ADOError>& records)
{
    std::string all;
    for (const ADOError& record : records) {
        const std::string words = text::ReplaceAll(text::ReplaceAll(record.Description, "\r", "\n"), "\t", " ");
        for (const std::string_view broken : text::Split(WithoutSpeakers(words), "\n")) {
            const std::string line = WithSingleBlanks(broken);
            if (line.find_first_not_of(";.") == std::string::npos || all.find(line) != std::string::npos)
                continue;
            if (GoesOn(line) && !all.empty())
                all.append(" ").append(line);
            else
                text::AppendSentence(all, line);
        }
    }
    return all.empty() ? "The driver gave no reason." : all;
}

} // namespace

std::vector<ADOError> ReadDiagnostics(SQLSMALLINT handleType, SQLHANDLE handle, CallWidth width)
{
    const auto read = width == CallWidth::Wide ? ReadWide : ReadNarrow;
    std::vector<ADOError> records;
    for (SQLSMALLINT number = 1; number <= kMostRecords; ++number) {
        std::optional<ADOError> record = read(handleType, handle, number);
        if (!record)
            break;
        record->Number = NumberOf(*record);
        records.push_back(std::move(*record));
    }
    return records;
}

DataSourceError ErrorFrom(std::vector<ADOError> records, const std::string& hint)
{
    const auto told = std::find_if(records.begin(), records.end(),
                                   [](const ADOError& record) { return record.Number != data_source_error::kFailed; });
    const long number = told == records.end() ? data_source_error::kFailed : told->Number;
    std::string description = Joined(records);
    if (!hint.empty())
        text::AppendSentence(description, hint);
    return {number, std::string(kSource), description, std::move(records)};
}

} // namespace veldrane
