#include "shell/main_window/preview_text.h"

#include "text/runtime_error.h"

#include <algorithm>
#include <numeric>
#include <optional>
#include <utility>

namespace veldrane {
namespace {

constexpr const char* kTitle = "Save Preview";

// A class of a file from elsewhere may have a name that leads into another folder.
std::string ProposedName(const std::string& title)
{
    const bool isPlain = !title.empty() && title.front() != '.' && title.find_first_of("/\\") == std::string::npos;
    return (isPlain ? title : std::string("Preview")) + ".txt";
}

std::string SavedText(const PreviewPane& pane)
{
    std::string text;
    for (std::size_t row = 0; row < pane.Count(); ++row)
        text.append(pane.Row(row).LineText).append("\r\n");
    return text;
}

void TellOfCharacters(const std::string& path, const PreviewSaving& saving)
{
    saving.Asking.Tell(kTitle,
                       "Some characters were written as \"?\" in " + path + ": they are not in code page " +
                           std::to_string(saving.CodePage.Number()) + ", which the setting CodePage names.",
                       MessageIcon::Warning);
}

} // namespace

std::string CopiedText(const PreviewPane& pane, std::vector<std::size_t> rows)
{
    std::sort(rows.begin(), rows.end());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    std::string text;
    for (const std::size_t row : rows) {
        if (row >= pane.Count())
            break;
        text.append(row == rows.front() ? "" : "\n").append(pane.Row(row).LineText);
    }
    return text;
}

std::string CopiedText(const PreviewPane& pane)
{
    std::vector<std::size_t> rows(pane.Count());
    std::iota(rows.begin(), rows.end(), 0);
    return CopiedText(pane, std::move(rows));
}

bool SavePreview(const PreviewPane& pane, const PreviewSaving& saving)
{
    const std::optional<std::string> path = saving.Dialogs.AskForFileToSave({.Title = kTitle,
                                                                             .Filter = "Text Files|*.txt|All Files|*.*",
                                                                             .DefaultName = ProposedName(pane.Title()),
                                                                             .DefaultExtension = "txt"});
    if (!path)
        return false;
    const text::CodePage::Encoded encoded = saving.CodePage.EncodeInPlace(SavedText(pane));
    try {
        saving.Files.Write(*path, encoded.Bytes);
    } catch (const RuntimeError& error) {
        saving.Asking.Tell(kTitle, "The preview was not saved: " + error.Description(), MessageIcon::Warning);
        return false;
    }
    if (encoded.Lossy)
        TellOfCharacters(*path, saving);
    return true;
}

} // namespace veldrane
