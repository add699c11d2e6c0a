#include "fuzz_input.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <vector>

// Gives the files of the command line, and those of its folders, to the fuzz target once each, in the order of their
// names. The latest name printed is that of a file which ends the process. Fails if there is no file at all.
namespace {

namespace fs = std::filesystem;

std::vector<fs::path> FilesAt(const fs::path& path)
{
    if (!fs::is_directory(path))
        return {path};
    std::vector<fs::path> files;
    for (const auto& entry : fs::recursive_directory_iterator(path))
        if (entry.is_regular_file())
            files.push_back(entry.path());
    std::sort(files.begin(), files.end());
    return files;
}

bool Replay(const fs::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    if (!stream) {
        std::cerr << file << " can't be read\n";
        return false;
    }
    const std::vector<char> bytes{std::istreambuf_iterator<char>(stream), {}};
    std::cout << file << std::endl; // flushed: the target may end the process
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
    return true;
}

} // namespace

int main(int argumentCount, char** arguments)
{
    std::size_t replayed = 0;
    for (int i = 1; i < argumentCount; ++i)
        for (const fs::path& file : FilesAt(arguments[i])) {
            if (!Replay(file))
                return 1;
            ++replayed;
        }
    if (replayed == 0)
        std::cerr << "no input to replay\n";
    return replayed == 0 ? 1 : 0;
}
