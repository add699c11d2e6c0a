#include "projectfile/file_management.h"
#include "random_model.h"
#include "support/memory_file_system.h"
#include "support/recorded_errors.h"
#include "support/scripted_messages.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace veldrane {
namespace {

using ::testing::IsEmpty;
using veldrane::testing::FillAtRandom;
using veldrane::testing::MemoryFileSystem;
using veldrane::testing::RecordedErrors;
using veldrane::testing::ScriptedMessages;

const std::string kPath = "/p.kzm";

class RoundTrip : public ::testing::TestWithParam<unsigned>
{
  protected:
    MemoryFileSystem files_;
    ScriptedMessages messages_;
    RecordedErrors errors_;
    text::CodePage codePage_;
    NoFileWindows windows_;
    TTCFileManagement management_{files_, messages_, errors_, codePage_, windows_.Windows()};
};

TEST_P(RoundTrip, GivesTheSameBytesAgain)
{
    TTCProject project;
    KZMClasses classes;
    FillAtRandom(project, classes, GetParam());
    project.FullPath = kPath;
    ASSERT_TRUE(management_.SaveProject(project, classes));
    const std::string written = files_.Files[kPath];

    TTCProject read;
    KZMClasses readClasses;
    read.AutosaveProjectInterval = project.AutosaveProjectInterval; // written and never read
    ASSERT_TRUE(management_.OpenProject(read, readClasses, kPath));
    EXPECT_EQ(readClasses.Count(), classes.Count());
    ASSERT_TRUE(management_.SaveProject(read, readClasses));
    EXPECT_EQ(files_.Files[kPath], written);
    EXPECT_THAT(errors_.Reported, IsEmpty());
    EXPECT_THAT(messages_.Asked(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Seeds, RoundTrip, ::testing::Range(1U, 201U));

} // namespace
} // namespace veldrane
