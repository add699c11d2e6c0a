#include "shell/platform/standard_streams.h"

#include "shell/platform/descriptor.h"
#include "support/child_process.h"

#include <gtest/gtest.h>

#include <array>
#include <unistd.h>
#include <vector>

namespace veldrane::testing {
namespace {

// The number that a file gets which is opened by a program that was started without the streams.
int NumberOfAFileWithout(const std::vector<int>& streams)
{
    return ExitCodeOf([&] {
        for (const int stream : streams)
            close(stream);
        HoldStandardStreams();
        const Descriptor file = OpenForReading("/dev/null");
        return file.Number();
    });
}

TEST(StandardStreams, NoFileTakesTheNumberOfOneThatIsClosed)
{
    for (const auto& streams : std::vector<std::vector<int>>{{0}, {1}, {2}, {0, 2}, {1, 2}, {0, 1, 2}})
        EXPECT_GT(NumberOfAFileWithout(streams), 2) << streams.size() << " closed, the last " << streams.back();
}

TEST(StandardStreams, ReadingAndWritingFailWhereTheyWereClosed)
{
    EXPECT_EQ(ExitCodeOf([] {
                  for (const int stream : {0, 1, 2})
                      close(stream);
                  HoldStandardStreams();
                  std::array<char, 1> byte{};
                  return read(0, byte.data(), 1) < 0 && write(1, "x", 1) < 0 && write(2, "x", 1) < 0 ? 0 : 1;
              }),
              0);
}

} // namespace
} // namespace veldrane::testing
