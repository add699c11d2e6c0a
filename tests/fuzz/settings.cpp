#include "fuzz_input.h"
#include "shell/platform/settings_document.h"
#include "shell/platform/settings_file.h"
#include "shell/platform/settings_notation.h"
#include "support/memory_file_system.h"
#include "support/scripted_messages.h"
#include "text/case_folding.h"
#include "text/runtime_error.h"
#include "text/strings.h"

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

// An input is a section, a name and a value to be stored, and the text of the file, with a NUL between them.
namespace veldrane {
namespace {

using veldrane::testing::MemoryFileSystem;
using veldrane::testing::Require;
using veldrane::testing::ScriptedMessages;
using veldrane::testing::TakeField;

using Lines = std::vector<std::string>;
using Values = std::vector<std::pair<std::string, std::string>>;

// Below a device, so that neither a lock nor a file can come into being there.
const std::string kPath = "/dev/null/settings.ini";

struct Change
{
    std::string Section;
    std::string Name;
    std::string Value;
};

std::optional<SettingsDocument> Parsed(std::string_view text)
{
    try {
        return SettingsDocument::Parse(text);
    } catch (const RuntimeError& error) {
        Require(error.Number == error_number::kInvalidCall, "a file is refused as 5");
        Require(error.Description().starts_with("line "), "a refusal names the line");
        return std::nullopt;
    }
}

// The document is what its text says.
SettingsDocument Reread(const SettingsDocument& document)
{
    const std::string text = document.Text();
    const auto reread = Parsed(text);
    Require(reread.has_value(), "a document's text can be read");
    Require(reread->Text() == text, "a document's text reads back as itself");
    return *reread;
}

Lines LinesOf(std::string_view text)
{
    Lines lines;
    for (std::string_view line : text::Split(text, "\n")) {
        if (line.ends_with('\r'))
            line.remove_suffix(1);
        lines.emplace_back(line);
    }
    return lines;
}

bool IsHeader(std::string_view line)
{
    const std::string_view stripped = settings_notation::Stripped(line);
    return stripped.starts_with('[') && stripped.ends_with(']');
}

std::string SectionOf(std::string_view header)
{
    const std::string_view stripped = settings_notation::Stripped(header);
    return settings_notation::ReadName(settings_notation::Stripped(stripped.substr(1, stripped.size() - 2)));
}

Lines SectionsOf(const SettingsDocument& document)
{
    Lines sections;
    for (const std::string& line : LinesOf(document.Text()))
        if (IsHeader(line))
            sections.push_back(SectionOf(line));
    return sections;
}

void CheckLinesStay(std::string_view input, const SettingsDocument& document)
{
    if (input.starts_with("\xEF\xBB\xBF"))
        input.remove_prefix(3);
    if (input.ends_with('\n'))
        input.remove_suffix(1);
    Lines before = LinesOf(input);
    Lines after = LinesOf(document.Text());
    after.pop_back(); // behind the last line end
    if (after.size() == before.size() &&
        std::count_if(before.begin(), before.end(), IsHeader) == std::count_if(after.begin(), after.end(), IsHeader))
        Require(after == before, "lines stay in their places where nothing comes twice");
    std::sort(before.begin(), before.end());
    std::sort(after.begin(), after.end());
    Require(std::includes(before.begin(), before.end(), after.begin(), after.end()), "every line is one of the file");
}

Values Without(Values values, std::string_view name)
{
    std::erase_if(values, [&](const auto& value) { return text::EqualFolded(value.first, name); });
    return values;
}

void CheckOtherSectionsStay(const SettingsDocument& before, const SettingsDocument& after, const Change& change)
{
    for (const std::string& section : SectionsOf(before))
        if (!text::EqualFolded(section, change.Section))
            Require(after.All(section) == before.All(section), "other sections keep their values");
}

void CheckChange(const SettingsDocument& before, const Change& change)
{
    SettingsDocument changed = before;
    changed.Set(change.Section, change.Name, change.Value);
    for (const SettingsDocument& document : {changed, Reread(changed)}) {
        Require(document.Find(change.Section, change.Name) == change.Value, "a stored value is found");
        Require(Without(document.All(change.Section), change.Name) == Without(before.All(change.Section), change.Name),
                "storing a value keeps those beside it");
        CheckOtherSectionsStay(before, document, change);
    }
    SettingsDocument again = changed;
    again.Set(change.Section, change.Name, change.Value);
    Require(again.Text() == changed.Text(), "storing a value again changes nothing");

    changed.Remove(change.Section, change.Name);
    for (const SettingsDocument& document : {changed, Reread(changed)}) {
        Require(document.All(change.Section) == Without(before.All(change.Section), change.Name),
                "removing a value takes that one alone");
        CheckOtherSectionsStay(before, document, change);
    }
    again.RemoveSection(change.Section);
    Require(Reread(again).All(change.Section).empty(), "a section that is removed is empty");
    CheckOtherSectionsStay(before, again, change);
}

std::string ReadForm(std::string value)
{
    value.resize(std::min(value.find('\0'), value.size()));
    return value;
}

void CheckFile(std::string_view text, const std::optional<SettingsDocument>& document, const Change& change)
{
    MemoryFileSystem files;
    ScriptedMessages messages;
    files.Files[kPath] = text;
    const SettingsFile settings(kPath, files, messages);
    const std::string value = settings.GetKeyValue(change.Section, change.Name);
    Require(messages.Asked().size() == (document ? 0 : 1), "a file that can't be understood gives one note");
    Require(files.Files[kPath] == text, "reading changes no file");
    if (!document) {
        Require(value.empty(), "a file that can't be understood gives the defaults");
        return;
    }
    const std::string whole = ReadForm(document->Find(change.Section, change.Name).value_or(""));
    Require(value.size() <= 1024 && whole.starts_with(value), "a read gives the beginning of the value");
    Require(value.size() > 1020 || value == whole, "a read gives a short value whole");
    Require(settings.GetAllSettings(change.Section) == document->All(change.Section), "a section is read whole");
}

} // namespace
} // namespace veldrane

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace veldrane;
    std::string_view text = testing::TextOf(data, size);
    const std::string section(TakeField(text));
    const std::string name(TakeField(text));
    const Change change{.Section = section, .Name = name, .Value = std::string(TakeField(text))};
    const auto document = Parsed(text);
    CheckFile(text, document, change);
    if (!document)
        return 0;
    Reread(*document);
    if (!document->Text().empty()) // else the file is empty, or a byte order mark
        CheckLinesStay(text, *document);
    CheckChange(*document, change);
    return 0;
}
