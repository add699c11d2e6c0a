#include "model/signal.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <type_traits>
#include <utility>
#include <vector>

namespace veldrane {
namespace {

using ::testing::ElementsAre;

TEST(Signal, CallsItsListenersInTheOrderOfTheirSubscription)
{
    Signal<int> signal;
    std::vector<int> heard;
    const Connection first = signal.Connect([&](int value) { heard.push_back(value); });
    const Connection second = signal.Connect([&](int value) { heard.push_back(-value); });
    signal.Raise(1);
    signal.Raise(2);
    EXPECT_THAT(heard, ElementsAre(1, -1, 2, -2));
}

TEST(Signal, ForgetsAListenerWithItsConnection)
{
    Signal<> signal;
    int heard = 0;
    {
        const Connection connection = signal.Connect([&] { ++heard; });
        signal.Raise();
    }
    signal.Raise();
    Connection connection = signal.Connect([&] { ++heard; });
    connection.Disconnect();
    signal.Raise();
    EXPECT_EQ(heard, 1);
}

TEST(Signal, LetsAListenerDisconnectAnotherWhileItIsRaised)
{
    Signal<> signal;
    int heard = 0;
    Connection second;
    const Connection first = signal.Connect([&] { second.Disconnect(); });
    second = signal.Connect([&] { ++heard; });
    signal.Raise();
    EXPECT_EQ(heard, 0);
}

TEST(Signal, CallsAListenerThatSubscribesMeanwhileFromTheNextTimeOn)
{
    Signal<> signal;
    int heard = 0;
    Connection late;
    const Connection first = signal.Connect([&] { late = signal.Connect([&] { ++heard; }); });
    signal.Raise();
    EXPECT_EQ(heard, 0);
}

TEST(Signal, LetsAListenerDisconnectItselfWhileItIsRaised)
{
    Signal<> signal;
    int heard = 0;
    Connection own;
    own = signal.Connect([&] {
        ++heard;
        own.Disconnect();
    });
    signal.Raise();
    signal.Raise();
    EXPECT_EQ(heard, 1);
}

TEST(Signal, MayEndWhileItIsRaised)
{
    auto signal = std::make_unique<Signal<>>();
    int heard = 0;
    const Connection first = signal->Connect([&] { signal.reset(); });
    const Connection second = signal->Connect([&] { ++heard; });
    signal->Raise();
    EXPECT_EQ(heard, 1);
}

TEST(Connection, HasOneOwner)
{
    static_assert(!std::is_copy_constructible_v<Connection> && !std::is_copy_assignable_v<Connection>);
    Signal<> signal;
    int heard = 0;
    Connection first = signal.Connect([&] { ++heard; });
    Connection second = std::move(first);
    signal.Raise();
    second.Disconnect();
    signal.Raise();
    EXPECT_EQ(heard, 1);
}

TEST(Signal, MayEndBeforeItsConnections)
{
    Connection connection;
    {
        Signal<> signal;
        connection = signal.Connect([] {});
    }
    connection.Disconnect();
}

} // namespace
} // namespace veldrane
