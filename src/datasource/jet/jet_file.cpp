#include "datasource/jet/jet_file.h"

#include "datasource/jet/answer_format.h"
#include "datasource/jet/answer_reader.h"
#include "datasource/seconds_text.h"
#include "text/runtime_error.h"

#include <algorithm>
#include <array>
#include <csignal>
#include <utility>

namespace veldrane {
namespace {

constexpr std::string_view kReader = "veldrane-jet";
constexpr std::size_t kMostAnswerBytes = std::size_t{64} << 20; // some hundred times what thousands of tables take
constexpr int kCannotBegin = 127; // the exit code of a program whose libraries are not there

[[noreturn]] void Fail(const std::string& reason)
{
    throw DataSourceError(data_source_error::kFailed, "Jet", reason);
}

std::string Quoted(std::string_view text)
{
    return "\"" + std::string(text) + "\"";
}

// A sentence about the file: its name stands behind `Before`, and what the reader says of it behind `Fault`.
struct Refusal
{
    std::string_view Reason;
    std::string_view Before;
    std::string_view Fault;
    std::string_view WayOut;
};

constexpr std::array kRefusals{
    Refusal{jet_answer::kMissing, "There is no file ", "", "check \"Data Source\" in the connection string."},
    Refusal{jet_answer::kNotAFile, "", " is not a file",
            "give the path of a Jet file (.mdb) as \"Data Source\" of the connection string."},
    Refusal{jet_answer::kUnreachable, "", " can't be reached", "check \"Data Source\" in the connection string."},
    Refusal{jet_answer::kUnreadable, "", " can't be read", "check the rights to the file and to its folder."},
    Refusal{jet_answer::kFailing, "", " could not be read",
            "try again, and if it stays so, see to the disk that it is on."},
    Refusal{jet_answer::kNotJet, "Unrecognized database format: ", " is no Jet file of version 3 or 4 (.mdb)",
            "check \"Data Source\" in the connection string."},
    Refusal{jet_answer::kAce, "Unrecognized database format: ", " is a file of the engine that came after Jet (.accdb)",
            "save it as a Jet file of version 3 or 4 (.mdb)."},
    Refusal{jet_answer::kCodePage, "", " has its text in a code page for which this system has no converter",
            "install the character sets of the C library, or save it as a Jet file of version 4."},
    Refusal{jet_answer::kDamaged, "", " is damaged", "repair it with the program that made it, or take a sound copy."},
};

std::string PasswordRefusal(const JetLogon& logon)
{
    return logon.Password.empty()
               ? Quoted(logon.File) +
                     " wants a password: give it as \"Jet OLEDB:Database Password\" in the connection string."
               : "The password is not that of " + Quoted(logon.File) +
                     ": correct \"Jet OLEDB:Database Password\" in the connection string.";
}

[[noreturn]] void Refuse(const JetRefusal& refusal, const JetLogon& logon)
{
    if (refusal.Reason == jet_answer::kPassword)
        Fail(PasswordRefusal(logon));
    const auto known = std::find_if(kRefusals.begin(), kRefusals.end(),
                                    [&](const Refusal& each) { return each.Reason == refusal.Reason; });
    const bool isMissing = refusal.Reason == jet_answer::kMissing; // the reader's words say no more
    const std::string details = isMissing || refusal.Words.empty() ? "" : " (" + refusal.Words + ")";
    Fail(std::string(known->Before) + Quoted(logon.File) + std::string(known->Fault) + details + ": " +
         std::string(known->WayOut));
}

JetAnswer AnswerIn(const ProgramOutcome& outcome, const JetLogon& logon)
{
    try {
        return ReadJetAnswer(outcome.Output);
    } catch (const RuntimeError& error) {
        Fail("What " + Quoted(kReader) + " tells of " + Quoted(logon.File) + " can't be understood (" +
             error.Description() + "): install both programs anew, from the same version.");
    }
}

// The system ends a program that has used up its processor time by one of these two signals.
bool CameToALimit(const ProgramOutcome& outcome)
{
    return outcome.End == ProgramEnd::TooMuchOutput ||
           (outcome.End == ProgramEnd::Signalled && (outcome.Code == SIGXCPU || outcome.Code == SIGKILL));
}

std::chrono::seconds TimeOf(const JetReaderOptions& options)
{
    return std::min(options.Timeout, kLongestReading);
}

void RefuseUnfinished(const ProgramOutcome& outcome, const JetReaderOptions& options, const JetLogon& logon)
{
    if (outcome.End == ProgramEnd::OutOfTime)
        Fail(Quoted(logon.File) + " could not be read within " + Seconds(TimeOf(options)) +
             ": take a sound copy of it" +
             (options.Timeout < kLongestReading
                  ? ", or set \"ConnectTimeout\" in the section Platform of the settings to "
                    "more seconds."
                  : "."));
    if (outcome.End == ProgramEnd::Exited && outcome.Code == kCannotBegin)
        Fail("The program that reads Jet files, " + Quoted(options.Folder + "/" + std::string(kReader)) +
             ", does not start: install the library that it wants (libmdb3).");
    if (CameToALimit(outcome))
        Fail("Reading " + Quoted(logon.File) +
             " was stopped at a limit of processor time or output: compact and repair the file with the program that "
             "made it, or take a sound copy.");
    if (outcome.End == ProgramEnd::Signalled)
        Fail("The program that reads Jet files fell over " + Quoted(logon.File) +
             ", which is damaged most likely: compact and repair the file with the program that made it, or take a "
             "sound copy.");
    if (outcome.Code != 0)
        Fail("The program that reads Jet files could not answer for " + Quoted(logon.File) + " (exit code " +
             std::to_string(outcome.Code) +
             "): try again, and if it stays so, install both programs anew, from the same version.");
}

} // namespace

JetFile::JetFile(ProgramRunner& programs, JetReaderOptions options, JetLogon logon)
    : programs_(programs), options_(std::move(options)), logon_(std::move(logon))
{}

JetDatabase JetFile::Read() const
{
    ProgramOutcome outcome;
    try {
        outcome = programs_.Run({options_.Folder + "/" + std::string(kReader), logon_.File}, logon_.Password,
                                {.Time = TimeOf(options_), .OutputBytes = kMostAnswerBytes, .Watch = options_.Watch});
    } catch (const RuntimeError& error) {
        Fail("The program that reads Jet files can't be started (" + error.Description() +
             "): install it in the folder of this program.");
    }
    RefuseUnfinished(outcome, options_, logon_);
    JetAnswer answer = AnswerIn(outcome, logon_);
    if (const auto* refusal = std::get_if<JetRefusal>(&answer))
        Refuse(*refusal, logon_);
    return std::get<JetDatabase>(std::move(answer));
}

} // namespace veldrane
