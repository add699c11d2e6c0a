#pragma once

#include <optional>
#include <string>

namespace veldrane {

// What a file dialog shows when it opens.
struct FileDialogRequest
{
    std::string Title;
    std::string Filter;             // names and patterns in turn: "Veldrane Project|*.kzm|All Files|*.*"
    std::string DefaultName{};      // the path or name proposed; may be empty
    std::string StartFolder{};      // "" for that of the proposed path, else wherever the last dialog was
    std::string DefaultExtension{}; // without a point; added to a name that has none
};

// The dialogs in which a person chooses a file.
class FileDialogs
{
  public:
    virtual ~FileDialogs() = default;

    // The path of a file that exists; nothing if the person cancels. Never throws.
    virtual std::optional<std::string> AskForFileToOpen(const FileDialogRequest& request) = 0;

    // The path to write to, overwriting agreed to where a file stands there; nothing if the person cancels. Never
    // throws.
    virtual std::optional<std::string> AskForFileToSave(const FileDialogRequest& request) = 0;
};

} // namespace veldrane
