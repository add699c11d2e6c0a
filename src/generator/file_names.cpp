#include "generator/file_names.h"

#include "text/case_folding.h"

#include <algorithm>
#include <array>
#include <unordered_map>
#include <vector>

namespace veldrane {
namespace {

constexpr std::size_t kLongestName = 255; // bytes, of a file name

// One file of the run: its name, the members that the name is made of, and what it is for.
struct NamedFile
{
    std::string Name;
    std::string_view Prefix; // the member's name, "" for none
    std::string_view PrefixValue;
    std::string_view Member;
    std::string_view Value;
};

struct ProjectMemberRow
{
    ProjectFileName FileName;
    std::string_view Member;
    std::string TTCProject::*Value;
};

constexpr auto kNamedAfterProject = std::to_array<ProjectMemberRow>({
    {kProjectFile, "VBProjectName", &TTCProject::VBProjectName},
    {kTestProjectFile, "VBProjectName", &TTCProject::VBProjectName},
    {kTestProjectGroup, "VBProjectName", &TTCProject::VBProjectName},
    {kGlobalsModule, "ModulePrefix", &TTCProject::ModulePrefix},
});

std::vector<NamedFile> FilesOf(const ProjectScope& scope, const KZMClasses& classes)
{
    const std::string& prefix = scope.Project.ClassPrefix;
    std::vector<NamedFile> files;
    files.reserve(kNamedAfterProject.size() + 2 * (1 + classes.Count()));
    for (const ProjectMemberRow& row : kNamedAfterProject)
        files.push_back({NameOf(row.FileName, scope), "", "", row.Member, scope.Project.*(row.Value)});
    files.push_back({NameOf(kTestForm, scope), "", "", "", ""});
    files.push_back({NameOf(kWrapperClass, scope), "ClassPrefix", prefix, "WrapperClassName", scope.Project.WrapperClassName});
    for (const KZMClass& owner : classes) {
        const ListedClassScope about{scope, owner};
        files.push_back({NameOf(kClassModule, about), "ClassPrefix", prefix, "ClassName", owner.ClassName});
        if (owner.CreateCollection)
            files.push_back({NameOf(kCollectionModule, about), "ClassPrefix", prefix, "CollectionName", owner.CollectionName});
    }
    return files;
}

bool IsControl(char byte)
{
    return static_cast<unsigned char>(byte) < 0x20 || byte == 0x7F;
}

bool LeavesTheFolder(std::string_view value)
{
    return value == "." || value == ".." || std::any_of(value.begin(), value.end(), [](char byte) { return byte == '/' || byte == '\\' || IsControl(byte); });
}

// The value as one readable line.
std::string Shown(std::string_view value)
{
    constexpr std::string_view kHexDigits = "0123456789ABCDEF";
    constexpr unsigned kDigitBits = 4;
    std::string shown;
    for (const char byte : value)
        if (IsControl(byte)) {
            const auto code = static_cast<unsigned char>(byte);
            shown.append("\\x").append(1, kHexDigits[code >> kDigitBits]).append(1, kHexDigits[code & 0xFU]);
        } else {
            shown += byte;
        }
    return shown;
}

// What the file is named after.
std::string Item(const NamedFile& file)
{
    return file.Member.empty() ? "The test form" : std::string(file.Member).append(" \"").append(Shown(file.Value)).append("\"");
}

std::string Refusal(std::string_view member, std::string_view value, std::string_view reason)
{
    return std::string(member).append(" \"").append(Shown(value)).append("\" ").append(reason).append(" Nothing was written.");
}

bool HasStem(std::string_view fileName)
{
    return fileName.rfind('.') != 0;
}

std::optional<std::string> ReasonAgainst(const NamedFile& file)
{
    if (LeavesTheFolder(file.PrefixValue))
        return Refusal(file.Prefix, file.PrefixValue, "can't be part of a file name.");
    if (LeavesTheFolder(file.Value))
        return Refusal(file.Member, file.Value, "can't be part of a file name.");
    if (!HasStem(file.Name))
        return Refusal(file.Member, file.Value, "gives a file without a name.");
    if (file.Name.size() > kLongestName)
        return Refusal(file.Member, file.Value, "makes a file name longer than 255 bytes.");
    return std::nullopt;
}

} // namespace

std::optional<std::string> ReasonAgainstNames(const ProjectScope& scope, const KZMClasses& classes)
{
    for (const NamedFile& file : FilesOf(scope, classes))
        if (auto reason = ReasonAgainst(file))
            return reason;
    return std::nullopt;
}

std::vector<std::string> WarningsOfSharedNames(const ProjectScope& scope, const KZMClasses& classes)
{
    const std::vector<NamedFile> files = FilesOf(scope, classes);
    std::unordered_map<std::string, const NamedFile*> byName;
    std::vector<std::string> warnings;
    for (const NamedFile& file : files) {
        const auto [other, added] = byName.try_emplace(text::Fold(file.Name), &file);
        if (!added)
            warnings.push_back(Item(file).append(" gives a second file ").append(file.Name).append(": ").append(Item(*other->second)).append(" gives one already. Give one of them another name."));
    }
    return warnings;
}

} // namespace veldrane
