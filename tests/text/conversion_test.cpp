#include "text/conversion.h"

#include "text/runtime_error.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>

namespace veldrane::text {
namespace {

template <class Convert>
long ErrorOf(Convert convert, std::string_view text)
{
    try {
        convert(text);
    } catch (const RuntimeError& error) {
        return error.Number;
    }
    return 0;
}

TEST(TextOf, IsTheWordOfTheLanguage)
{
    EXPECT_EQ(TextOf(true), "True");
    EXPECT_EQ(TextOf(false), "False");
}

TEST(ToBoolean, TakesTheWordsInAnyCaseAndNumbers)
{
    for (const auto* text : {"True", "true", " TRUE ", "-1", "1", "0.5", "+2"})
        EXPECT_TRUE(ToBoolean(text)) << text;
    for (const auto* text : {"False", "FALSE", " false", "0", "-0", "0.0"})
        EXPECT_FALSE(ToBoolean(text)) << text;
}

TEST(ToBoolean, RefusesEverythingElse)
{
    for (const auto* text : {"", " ", "Yes", "Wahr", "True.", "1e1", "inf", "nan", "+-1", "True False"})
        EXPECT_EQ(ErrorOf(ToBoolean, text), error_number::kTypeMismatch) << text;
}

TEST(ToLong, RoundsHalvesToEven)
{
    EXPECT_EQ(ToLong("5"), 5);
    EXPECT_EQ(ToLong(" -12 "), -12);
    EXPECT_EQ(ToLong("+7"), 7);
    EXPECT_EQ(ToLong("0.5"), 0);
    EXPECT_EQ(ToLong("1.5"), 2);
    EXPECT_EQ(ToLong("2.5"), 2);
    EXPECT_EQ(ToLong("-1.5"), -2);
    EXPECT_EQ(ToLong("2147483647"), std::numeric_limits<std::int32_t>::max());
    EXPECT_EQ(ToLong("-2147483648"), std::numeric_limits<std::int32_t>::min());
}

TEST(ToLong, RefusesWhatIsNoNumber)
{
    for (const auto* text : {"", " ", "five", "5x", "1 2", "+-5", "--5", "+", ".", "inf", "nan", "0x10"})
        EXPECT_EQ(ErrorOf(ToLong, text), error_number::kTypeMismatch) << text;
}

TEST(ToLong, OverflowsBeyondThirtyTwoBits)
{
    for (const std::string& text : {std::string("2147483648"), std::string("-2147483649"), std::string(400, '9'),
                                    "-" + std::string(400, '9'), "000" + std::string(400, '1')})
        EXPECT_EQ(ErrorOf(ToLong, text), error_number::kOverflow) << text;
    EXPECT_EQ(ToLong("0." + std::string(400, '0') + "1"), 0);
}

TEST(ToInteger, OverflowsBeyondSixteenBits)
{
    EXPECT_EQ(ToInteger("32767"), 32767);
    EXPECT_EQ(ToInteger("-32768"), -32768);
    EXPECT_EQ(ErrorOf(ToInteger, "32768"), error_number::kOverflow);
    EXPECT_EQ(ErrorOf(ToInteger, "x"), error_number::kTypeMismatch);
}

TEST(ToLong, NamesTheTextButNotAllOfALongOne)
{
    try {
        static_cast<void>(ToLong("ß" + std::string(1'000'000, 'x')));
        FAIL();
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.Description(), "Type mismatch: 'ß" + std::string(59, 'x') + "...' is not a number.");
    }
}

TEST(LeadingNumber, StopsAtTheFirstCharacterThatIsNoDigit)
{
    EXPECT_EQ(LeadingNumber("0"), 0);
    EXPECT_EQ(LeadingNumber(" 1"), 1);
    EXPECT_EQ(LeadingNumber("12 3x4"), 123);
    EXPECT_EQ(LeadingNumber("-7 of 9"), -7);
    EXPECT_EQ(LeadingNumber("x1"), 0);
    EXPECT_EQ(LeadingNumber(""), 0);
    EXPECT_EQ(LeadingNumber("-"), 0);
    EXPECT_EQ(LeadingNumber("99999999999"), std::numeric_limits<std::int32_t>::max());
    EXPECT_EQ(LeadingNumber("-" + std::string(400, '9')), std::numeric_limits<std::int32_t>::min());
}

} // namespace
} // namespace veldrane::text
