#pragma once

#include "ports/file_dialogs.h"

#include <deque>
#include <functional>
#include <initializer_list>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace veldrane::testing {

// Chooses the files of a script, in order; cancels at its end. Keeps what was asked.
class ScriptedFileDialogs : public FileDialogs
{
  public:
    ScriptedFileDialogs(std::initializer_list<std::optional<std::string>> choices = {}) : choices_(choices) {}

    std::optional<std::string> AskForFileToOpen(const FileDialogRequest& request) override
    {
        return Choose(opened_, request);
    }

    std::optional<std::string> AskForFileToSave(const FileDialogRequest& request) override
    {
        return Choose(saved_, request);
    }

    std::function<void()> WhileOpen; // what happens behind the dialog

    void Add(std::optional<std::string> choice) { choices_.push_back(std::move(choice)); }

    [[nodiscard]] const std::vector<FileDialogRequest>& AskedToOpen() const { return opened_; }
    [[nodiscard]] const std::vector<FileDialogRequest>& AskedToSave() const { return saved_; }

  private:
    std::optional<std::string> Choose(std::vector<FileDialogRequest>& asked, const FileDialogRequest& request)
    {
        asked.push_back(request);
        if (WhileOpen)
            WhileOpen();
        if (choices_.empty())
            return std::nullopt;
        std::optional<std::string> choice = choices_.front();
        choices_.pop_front();
        return choice;
    }

    std::deque<std::optional<std::string>> choices_;
    std::vector<FileDialogRequest> opened_;
    std::vector<FileDialogRequest> saved_;
};

} // namespace veldrane::testing
