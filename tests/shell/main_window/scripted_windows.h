#pragma once

#include "editors/scripted_editor_dialogs.h"
#include "scripted_look_dialogs.h"
#include "shell/main_window/main_window_dialogs.h"
#include "shell/project_properties/scripted_project_dialogs.h"

#include <deque>
#include <functional>
#include <string>
#include <vector>

namespace veldrane::testing {

// A person in front of the main window's dialogs: does what the test says in each, and else leaves it at once. Keeps
// which were opened, by their names.
class ScriptedWindows : public MainWindowDialogs
{
  public:
    void Show(frmODBCLogon& logon) override
    {
        Opened.emplace_back("frmODBCLogon");
        Purposes.push_back(logon.Purpose());
        if (InLogon)
            InLogon(logon);
    }

    void Show(frmOptions& options) override
    {
        Opened.emplace_back("frmOptions");
        if (InOptions)
            InOptions(options);
    }

    void Show(frmWarning& warning) override
    {
        Opened.emplace_back("frmWarning");
        Warned.push_back(warning.lblMessage());
        if (InWarning)
            InWarning(warning);
    }

    // OK, unless the test does something else.
    [[nodiscard]] bool Show(frmProjectProperties& properties) override
    {
        Opened.emplace_back("frmProjectProperties");
        return !InProperties || InProperties(properties);
    }

    void ShowBug() override { Opened.emplace_back("frmBug"); }
    void ShowAbout() override { Opened.emplace_back("frmAbout"); }
    void ShowGenCode(const Application& /*application*/, TTCProject& project, KZMClasses& classes) override
    {
        Opened.emplace_back("frmGenCode");
        if (InGenCode)
            InGenCode(project, classes);
    }

    void ShowZoom() override { Opened.emplace_back("frmZoom"); }

    [[nodiscard]] StartupChoice AskAtStartup(frmStartup& startup) override
    {
        Opened.emplace_back("frmStartup");
        return InStartup ? InStartup(startup) : StartupChoice{};
    }

    [[nodiscard]] std::optional<std::string> AskForTable(const std::string& before) override
    {
        NamesShown.push_back(before);
        Opened.emplace_back("frmAddTable");
        if (TablesNamed.empty())
            return std::nullopt;
        const std::string name = TablesNamed.front();
        TablesNamed.pop_front();
        return name;
    }

    [[nodiscard]] LookDialogs& Look() override { return LooksChosen; }

    [[nodiscard]] EditorDialogs& Editors() override { return ClassEditors; }

    [[nodiscard]] ProjectDialogs& OfProject() override { return ProjectDialogsOpened; }

    void StartLabelEdit() override { Opened.emplace_back("label edit"); }
    void CloseMainWindow() override { Opened.emplace_back("end"); }

    std::function<void(frmODBCLogon&)> InLogon;
    std::function<void(frmOptions&)> InOptions;
    std::function<void(frmWarning&)> InWarning;
    std::function<bool(frmProjectProperties&)> InProperties;
    std::function<StartupChoice(frmStartup&)> InStartup;
    std::function<void(TTCProject&, KZMClasses&)> InGenCode;
    std::deque<std::string> TablesNamed;
    ScriptedLookDialogs LooksChosen;
    ScriptedEditorDialogs ClassEditors;
    ScriptedProjectDialogs ProjectDialogsOpened;

    std::vector<std::string> Opened;
    std::vector<std::string> Warned;     // by frmWarning
    std::vector<std::string> NamesShown; // by frmAddTable
    std::vector<LogonPurpose> Purposes;
};

} // namespace veldrane::testing
