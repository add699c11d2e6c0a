#include "model/working_copy.h"

#include "projectfile/class_writer.h"
#include "random_model.h"

#include <gtest/gtest.h>

#include <string>

namespace veldrane {
namespace {

std::string Saved(const KZMClasses& classes)
{
    std::string text;
    WriteClassInfo(text, classes);
    return text;
}

class WorkingCopyOfRandomClasses : public ::testing::TestWithParam<unsigned>
{};

TEST_P(WorkingCopyOfRandomClasses, IsSavedAsTheyAre)
{
    TTCProject project;
    KZMClasses classes;
    testing::FillAtRandom(project, classes, GetParam());
    KZMClasses copies;
    for (const KZMClass& item : classes)
        copies.AddExisting(WorkingCopy(item), item.ClassName);
    EXPECT_EQ(Saved(copies), Saved(classes));
}

INSTANTIATE_TEST_SUITE_P(Seeds, WorkingCopyOfRandomClasses, ::testing::Range(1U, 101U));

} // namespace
} // namespace veldrane
