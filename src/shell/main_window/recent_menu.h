#pragma once

#include "model/signal.h"
#include "shell/application.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace veldrane {

// One tool of the File menu that opens a recent project.
struct RecentTool
{
    std::string Name;         // "MRU" and the place in the menu, from 1
    std::string Caption;      // "&1 Order Desk"; an ampersand of the project's own name stands there twice
    std::string Tag;          // the path
    bool BeginsGroup = false; // a separator stands before it
};

// The recent projects in the File menu.
class RecentMenu
{
  public:
    explicit RecentMenu(const Application& application) : application_(application) {}

    // Puts the path on top of the recent list and makes the tools anew. Settings that can't be written are reported.
    void Update(const std::string& path);

    // Makes the tools anew from the settings and the files that are there.
    void Rebuild();

    [[nodiscard]] const std::vector<RecentTool>& Tools() const { return tools_; }

    // The path that the tool of this name opens; nothing for a name that no tool has.
    [[nodiscard]] std::optional<std::string> PathOf(std::string_view toolName) const;

    Signal<> Changed; // the tools were made anew

  private:
    const Application& application_;
    std::vector<RecentTool> tools_;
};

} // namespace veldrane
