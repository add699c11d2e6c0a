#include "faithful_model.h"
#include "fuzz_input.h"
#include "model_text.h"
#include "projectfile/file_management.h"
#include "support/memory_file_system.h"
#include "support/recorded_errors.h"
#include "support/scripted_messages.h"

#include <string>

// An input is the bytes of a project file.
namespace veldrane {
namespace {

using veldrane::testing::IsFaithful;
using veldrane::testing::MemoryFileSystem;
using veldrane::testing::ModelText;
using veldrane::testing::RecordedErrors;
using veldrane::testing::Require;
using veldrane::testing::ScriptedMessages;

const std::string kPath = "/p.kzm";

const text::CodePage& WindowsCodePage()
{
    static const text::CodePage codePage;
    return codePage;
}

// A file that is opened into a model of its own, and that model saved.
class OpenFile
{
  public:
    explicit OpenFile(std::string_view bytes)
    {
        files_.Files[kPath] = bytes;
        project_.Clear();
        opened_ = management_.OpenProject(project_, classes_, kPath);
        Require(!classes_.LoadingProject, "reading comes to its end");
        Require(messages_.Asked().size() + errors_.Reported.size() <= 1, "one reason is given");
        const bool told = messages_.Asked().size() + errors_.Reported.size() == 1;
        Require(opened_ || told, "a reason is given where nothing is read");
        // A class without its closing line is lost without a word.
        Require(!told || !opened_ || management_.LostClasses(), "a reason is given where something is not read");
    }

    [[nodiscard]] bool Opened() const { return opened_; }
    [[nodiscard]] bool IsWhole() const { return opened_ && !management_.LostClasses(); }
    [[nodiscard]] bool LooksFaithful() const { return IsFaithful(classes_); }
    [[nodiscard]] std::string Model() const { return ModelText(project_, classes_); }

    [[nodiscard]] std::string Saved()
    {
        const std::size_t told = messages_.Asked().size();
        Require(management_.SaveProject(project_, classes_), "what was read can be saved");
        Require(messages_.Asked().size() == told, "what was read from bytes can be written as bytes");
        return files_.Files[kPath];
    }

  private:
    MemoryFileSystem files_;
    ScriptedMessages messages_;
    RecordedErrors errors_;
    NoFileWindows windows_;
    TTCFileManagement management_{files_, messages_, errors_, WindowsCodePage(), windows_.Windows()};
    TTCProject project_;
    KZMClasses classes_;
    bool opened_ = false;
};

void CheckTurns(OpenFile& first)
{
    const std::string saved = first.Saved();
    Require(first.Saved() == saved, "saving twice gives the same bytes");
    OpenFile second(saved);
    Require(second.IsWhole(), "what was saved is read whole");
    if (first.LooksFaithful())
        Require(second.Model() == first.Model(), "a faithful model comes back as it was");
    Require(second.LooksFaithful(), "a model from a saved file is faithful");
    const std::string settled = second.Saved();
    Require(OpenFile(settled).Model() == second.Model(), "a model from a saved file comes back as it was");
}

} // namespace
} // namespace veldrane

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace veldrane;
    const std::string_view bytes = testing::TextOf(data, size);
    OpenFile first(bytes);
    const OpenFile again(bytes);
    Require(again.Opened() == first.Opened() && again.Model() == first.Model(), "the same bytes give the same model");
    if (first.Opened())
        CheckTurns(first);
    return 0;
}
