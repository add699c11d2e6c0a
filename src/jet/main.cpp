#include "jet/answer_writer.h"
#include "jet/database_reader.h"
#include "jet/input_file.h"
#include "jet/mdb_file.h"
#include "jet/process_limits.h"

#include <array>
#include <cerrno>
#include <new>
#include <optional>
#include <string>
#include <string_view>
#include <unistd.h>

// veldrane-jet FILE: tells on standard output what a Jet file holds, in the format of answer_format.h. The password of
// the database is what stands on standard input, to its end. Exit code 0 with a whole answer, a refusal included; 1 if
// none can be given, 2 for wrong usage.
namespace {

using namespace veldrane;

// No password has more than 20 characters; what goes on beyond this is a wrong one.
constexpr std::size_t kPasswordBytesAtMost = 4096;

std::optional<std::string> ReadPassword()
{
    std::string password;
    std::array<char, 1024> buffer{};
    while (password.size() <= kPasswordBytesAtMost) {
        const ssize_t count = read(STDIN_FILENO, buffer.data(), buffer.size());
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return std::nullopt;
        if (count == 0)
            break;
        password.append(buffer.data(), static_cast<std::size_t>(count));
    }
    return password;
}

bool Write(int descriptor, std::string_view text)
{
    while (!text.empty()) {
        const ssize_t count = write(descriptor, text.data(), text.size());
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return false;
        text.remove_prefix(static_cast<std::size_t>(count));
    }
    return true;
}

std::string ReadFile(const std::string& path, std::string_view password)
{
    const jet::InputFile input(path);
    const jet::HeaderPage header = jet::ReadHeaderPage(input.Beginning(jet::kHeaderBytes));
    jet::CheckPassword(header, password);
    jet::MdbFile file(input.Path(), header);
    return jet::AnswerOf(jet::ReadDatabase(file));
}

std::string Answer(const std::string& path, std::string_view password)
{
    try {
        return ReadFile(path, password);
    } catch (const jet::Refusal& refusal) {
        return jet::AnswerOf(refusal);
    } catch (const std::bad_alloc&) {
        return jet::AnswerOf(jet::Damaged("it would take more memory than the limit"));
    }
}

} // namespace

int main(int argumentCount, char** arguments)
{
    if (argumentCount != 2)
        return 2;
    const int output = jet::KeepAnswerApart();
    if (output < 0 || !jet::LimitProcess())
        return 1;
    const auto password = ReadPassword();
    return password && Write(output, Answer(arguments[1], *password)) ? 0 : 1;
}
