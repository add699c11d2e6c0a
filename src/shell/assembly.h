#pragma once

#include "datasource/odbc/installed_drivers.h"
#include "shell/application.h"
#include "shell/platform/detached_process_starter.h"
#include "shell/platform/limited_program_runner.h"
#include "shell/platform/recovery_files.h"
#include "shell/platform/settings_file.h"
#include "shell/platform_settings.h"

#include <ostream>
#include <string>
#include <vector>

namespace veldrane {

// How a front end meets the person in front of it: a terminal, or windows.
struct FrontEnd
{
    Messages& Asking;
    ErrorReport& Errors;
    Clock& Time;
    veldrane::Progress& Progress;
    FileWindows Windows;
    std::ostream& Output;
    std::ostream& ErrorOutput;
    std::string ProgramFolder;     // where the programs lie that belong to this one
    ReadingWatch* Watch = nullptr; // told what is read of data sources; nothing for nobody
};

// The application over the machine's own files, settings, drivers and programs.
class Assembly
{
  public:
    // Reads the settings and colours into the state, which must outlive this object like all that it is handed. A
    // broken settings file is told of, and the defaults are used. Throws RuntimeError for a code page that is none,
    // and where the user has no home folder.
    Assembly(FileSystem& files, ModuleState& state, const FrontEnd& frontEnd);

    Assembly(const Assembly&) = delete;
    Assembly& operator=(const Assembly&) = delete;
    ~Assembly() = default;

    [[nodiscard]] const Application& World() const { return application_; }

  private:
    [[nodiscard]] Application MakeApplication(FileSystem& files, ModuleState& state);
    [[nodiscard]] std::unique_ptr<DataSourceConnection> Connect(const std::string& text, StringOrigin origin);

    FrontEnd frontEnd_;
    SettingsFile settings_;
    RecoveryFiles recovery_;
    PlatformSettings platform_;
    LimitedProgramRunner runner_;
    DetachedProcessStarter programs_;
    OdbcInstalledDrivers installed_;
    Application application_;
};

// The errors that belong into the report of a failure: what a failure of the data source carries; of any other, what
// the shared connection still holds, nothing without one.
[[nodiscard]] std::vector<ADOError> ADOErrorsOf(const RuntimeError& error, const DataSourceConnection* connection);

} // namespace veldrane
