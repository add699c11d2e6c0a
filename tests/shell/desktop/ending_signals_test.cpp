#include "shell/desktop/ending_signals.h"

#include <QTest>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>
#include <vector>

namespace veldrane::testing {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

// What happened, in its order: a signal that had its effect stands for itself.
std::vector<int> happened;
constexpr int kLastAct = 0;

extern "C" void HasItsEffect(int signal)
{
    happened.push_back(signal);
}

class TheEndingSignals : public ::testing::TestWithParam<int>
{
  protected:
    void SetUp() override
    {
        happened.clear();
        former_ = std::signal(GetParam(), HasItsEffect);
    }
    void TearDown() override { std::signal(GetParam(), former_); }

    static bool Act()
    {
        happened.push_back(kLastAct);
        return true;
    }

    static auto HasEnded()
    {
        return QTest::qWaitFor([] { return !happened.empty() && happened.back() == GetParam(); });
    }

  private:
    void (*former_)(int) = nullptr;
};

TEST_P(TheEndingSignals, ActBetweenEventsAndThenEndTheProgram)
{
    const EndingSignals signals(Act);
    std::raise(GetParam());
    EXPECT_THAT(happened, IsEmpty());
    EXPECT_TRUE(HasEnded());
    EXPECT_THAT(happened, ElementsAre(kLastAct, GetParam()));
}

TEST_P(TheEndingSignals, WaitUntilTheLastActCouldBeDone)
{
    int tries = 0;
    const EndingSignals signals([&] { return ++tries == 3; });
    std::raise(GetParam());
    EXPECT_TRUE(HasEnded());
    EXPECT_EQ(tries, 3);
}

TEST_P(TheEndingSignals, EndTheProgramAtOnceTheSecondTime)
{
    const EndingSignals signals(Act);
    std::raise(GetParam());
    std::raise(GetParam());
    EXPECT_THAT(happened, ElementsAre(GetParam()));
}

TEST_P(TheEndingSignals, StayIgnoredWhereTheProgramWasStartedSo)
{
    std::signal(GetParam(), SIG_IGN);
    const EndingSignals signals(Act);
    std::raise(GetParam());
    QTest::qWait(0);
    EXPECT_THAT(happened, IsEmpty());
}

TEST_P(TheEndingSignals, HaveTheirFormerEffectOnceNobodyListens)
{
    {
        const EndingSignals signals(Act);
    }
    std::raise(GetParam());
    EXPECT_THAT(happened, ElementsAre(GetParam()));
}

INSTANTIATE_TEST_SUITE_P(All, TheEndingSignals, ::testing::Values(SIGTERM, SIGHUP, SIGINT));

} // namespace
} // namespace veldrane::testing
