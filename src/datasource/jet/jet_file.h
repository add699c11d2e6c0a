#pragma once

#include "datasource/jet/jet_database.h"
#include "datasource/jet/jet_logon.h"
#include "ports/program_runner.h"
#include "ports/reading_watch.h"

#include <chrono>
#include <string>

namespace veldrane {

// A file that takes longer is none that is sound.
inline constexpr std::chrono::seconds kLongestReading{15};

struct JetReaderOptions
{
    std::string Folder;                            // where the reader lies, a program of its own
    std::chrono::seconds Timeout{kLongestReading}; // what reading a file may take; more than kLongestReading is that
    ReadingWatch* Watch = nullptr;                 // told of the reader's records; nothing for nobody
};

// A Jet file, read by a program of its own, for a damaged one can send the library that knows the format round in
// circles.
class JetFile
{
  public:
    JetFile(ProgramRunner& programs, JetReaderOptions options, JetLogon logon);

    // All that the file holds, as it is now. Throws DataSourceError kFailed with a sentence that names the file and the
    // way out: for what is no Jet file or can't be read, a password that is wrong or missing, a damaged file, a reader
    // that is missing, that comes to a limit, or whose answer can't be understood.
    [[nodiscard]] JetDatabase Read() const;

  private:
    ProgramRunner& programs_;
    JetReaderOptions options_;
    JetLogon logon_;
};

} // namespace veldrane
