#include "veldrane_jet.h"

#include "support/child_process.h"

#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <unistd.h>

namespace veldrane::testing {
namespace {

constexpr const char* kFirstLine = "veldrane-jet 1\n";
constexpr const char* kLastLine = "\nend\n";
constexpr const char* kRefused = "\nrefused\t";

void Redirect(int descriptor, const std::string& path, int flags)
{
    const int opened = open(path.c_str(), flags, 0600);
    if (opened < 0 || dup2(opened, descriptor) < 0)
        _exit(kThrew);
}

} // namespace

ReaderOutcome RunReader(const std::string& path, const std::string& password)
{
    const ScratchFolder folder;
    const std::string input = folder.Write("input", password);
    const std::string output = folder.Path("output");
    const int code = ExitCodeOf([&] {
        Redirect(STDIN_FILENO, input, O_RDONLY);
        Redirect(STDOUT_FILENO, output, O_WRONLY | O_CREAT);
        execl(VELDRANE_JET, VELDRANE_JET, path.c_str(), nullptr);
        return kThrew;
    });
    return {.Code = code, .Answer = ContentOf(output)};
}

bool IsWhole(const std::string& answer)
{
    return answer.starts_with(kFirstLine) && answer.ends_with(kLastLine);
}

std::string ReasonOf(const ReaderOutcome& outcome)
{
    if (outcome.Code != 0 || !IsWhole(outcome.Answer))
        return "no answer";
    const std::size_t at = outcome.Answer.find(kRefused);
    if (at == std::string::npos)
        return "";
    const std::size_t reason = at + std::string(kRefused).size();
    return outcome.Answer.substr(reason, outcome.Answer.find('\t', reason) - reason);
}

ScratchFolder::ScratchFolder()
{
    std::string name = (std::filesystem::temp_directory_path() / "veldrane-jet-test-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr)
        throw std::runtime_error("There is no temporary folder");
    folder_ = name;
}

ScratchFolder::~ScratchFolder()
{
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
}

std::string ScratchFolder::Write(const std::string& name, const std::string& content) const
{
    std::ofstream stream(Path(name), std::ios::binary);
    stream << content;
    return Path(name);
}

std::string ContentOf(const std::string& path)
{
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

} // namespace veldrane::testing
