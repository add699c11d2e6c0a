#pragma once

#include "datasource/logon/frm_odbc_logon.h"
#include "editors/editor_dialogs.h"
#include "model/classes.h"
#include "model/project.h"
#include "shell/application.h"
#include "shell/main_window/frm_options.h"
#include "shell/main_window/frm_startup.h"
#include "shell/main_window/frm_warning.h"
#include "shell/main_window/look_dialogs.h"
#include "shell/project_properties/frm_project_properties.h"

#include <optional>
#include <string>

namespace veldrane {

// The windows that the main window opens. Each function returns when the window is left.
class MainWindowDialogs
{
  public:
    virtual ~MainWindowDialogs() = default;

    virtual void Show(frmODBCLogon& logon) = 0;
    virtual void Show(frmOptions& options) = 0;
    virtual void Show(frmWarning& warning) = 0; // over the window in front
    // True if it was left by OK.
    [[nodiscard]] virtual bool Show(frmProjectProperties& properties) = 0;
    virtual void ShowAbout() = 0;
    virtual void ShowBug() = 0; // in which a person reports a defect
    virtual void ShowGenCode(const Application& application, TTCProject& project, KZMClasses& classes) = 0;
    virtual void ShowZoom() = 0; // of the preview

    // What the person chose in the start-up dialog.
    [[nodiscard]] virtual StartupChoice AskAtStartup(frmStartup& startup) = 0;

    // The name of a table that is to be attached by hand, `before` shown at first; nothing on Cancel.
    [[nodiscard]] virtual std::optional<std::string> AskForTable(const std::string& before) = 0;

    // The standard dialogs for a colour and a font.
    [[nodiscard]] virtual LookDialogs& Look() = 0;

    // The dialogs in which classes are made and changed.
    [[nodiscard]] virtual EditorDialogs& Editors() = 0;

    // The dialogs that the properties of a project open.
    [[nodiscard]] virtual ProjectDialogs& OfProject() = 0;

    // Lets the person type over the label of the selected node.
    virtual void StartLabelEdit() = 0;

    // Closes the main window as its own button does, which may ask about the project.
    virtual void CloseMainWindow() = 0;
};

} // namespace veldrane
