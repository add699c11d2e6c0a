#pragma once

#include <cstdlib>
#include <string>

// Sample databases that do not come with the project.
namespace veldrane::testing {

// What a test says that skips where there are none.
inline constexpr const char* kNoSampleData = "VELDRANE_SAMPLE_DATA names no folder of sample databases.";

// The folder of one kind of them, with a slash behind it; "" where there are none.
inline std::string SampleDataFolder(const std::string& kind)
{
    const char* folder =
        std::getenv("VELDRANE_SAMPLE_DATA"); // NOLINT(concurrency-mt-unsafe): a test runs on one thread
    return folder == nullptr || *folder == '\0' ? "" : std::string(folder) + "/" + kind + "/";
}

} // namespace veldrane::testing
