// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "traveltime/text.h"

#include "tests/support/reading.h"
#include "tests/support/special_numbers.h"

#include <gtest/gtest.h>

#include <bit>
#include <cerrno>
#include <cmath>
#include <limits>
#include <random>
#include <sstream>

// Text into numbers, and numbers into text.

namespace {


/// Equal with the sign of zero, and NaN equal to NaN.
bool identical(double a, double b)
{
    return std::isnan(a) ? std::isnan(b) : a == b && std::signbit(a) == std::signbit(b);
}

std::string printed(double value)
{
    std::string text = "x=";
    appendNumber(text, value);
    return text.substr(0, 2) == "x=" ? text.substr(2) : "the text before is lost";
}

// What every conversion of text to double takes.
const std::vector<std::pair<std::string, double>> numbers = {
    {"1e5", 100000.0},      {"1E5", 100000.0},   {"1e-05", 0.00001},    {"+1.5", 1.5},
    {"-1.5", -1.5},         {".5", 0.5},         {"5.", 5.0},           {"0x1p3", 8.0},
    {"0x10", 16.0},         {"-0", -0.0},        {"inf", infinity},     {"-inf", -infinity},
    {"INFINITY", infinity}, {"nan", notANumber}, {"1,5", 1.0},          {"1.234,5", 1.234},
    {"1 000", 1.0},         {" 7", 7.0},         {"\t\n\v\f\r 7", 7.0}, {"12abc", 12.0},
    {"12\r", 12.0},         {"12 m", 12.0},      {"1.5.5", 1.5},        {"1e", 1.0},
    {"1e+", 1.0},
};

// No number begins these.
const std::vector<std::string> otherTexts = {
    "",
    " ",
    "abc",
    "-",
    ".",
    ",5",
    "e5",
    "+-1",
    "\xc2\xa0"
    "7",
};

} // namespace

TEST(ToDouble, ReadsTheLongestNumberThatBeginsTheText)
{
    for (const auto &[text, value] : numbers)
        EXPECT_PRED2(identical, toDouble(text), value) << testing::PrintToString(text);
}

TEST(ToDouble, TextWithoutANumberIsZero)
{
    for (const std::string &text : otherTexts)
        EXPECT_PRED2(identical, toDouble(text), 0.0) << testing::PrintToString(text);
}

TEST(ToDouble, ValuesBeyondADoubleAreInfiniteOrZero)
{
    EXPECT_EQ(toDouble("1e999"), infinity);
    EXPECT_EQ(toDouble("-1e999"), -infinity);
    EXPECT_EQ(toDouble("1e-400"), 0.0);
}

TEST(ToDoubleOrThrow, ReadsTheLongestNumberThatBeginsTheText)
{
    for (const auto &[text, value] : numbers)
        EXPECT_PRED2(identical, toDoubleOrThrow(text), value) << testing::PrintToString(text);
}

TEST(ToDoubleOrThrow, TextWithoutANumberThrows)
{
    for (const std::string &text : otherTexts)
        EXPECT_EQ(outcomeOf([&] { toDoubleOrThrow(text); }), invalidStod)
            << testing::PrintToString(text);
}

TEST(ToDoubleOrThrow, ValuesBeyondADoubleThrow)
{
    for (const std::string text : {"1e999", "-1e999", "1e-400", "-1e-400", "1e999abc"})
        EXPECT_EQ(outcomeOf([&] { toDoubleOrThrow(text); }), stodOutOfRange) << text;
}

TEST(ToDoubleOrThrow, AnErrorFromBeforeDoesNotCount)
{
    errno = ERANGE;
    EXPECT_EQ(toDoubleOrThrow("24"), 24.0);
}

TEST(ToInt, ReadsTheDecimalIntegerThatBeginsTheText)
{
    const struct
    {
        std::string text;
        std::int32_t value;
    } cases[] = {
        {"24", 24},
        {"-1", -1},
        {"+5", 5},
        {"010", 10},
        {" 7", 7},
        {"\t\n 7", 7},
        {"12abc", 12},
        {"24\r", 24},
        {"2.9", 2},
        {"1,5", 1},
        {"1.000", 1},
        {"1e5", 1},
        {"0x10", 0},
        {".5", 0},
        {"", 0},
        {" ", 0},
        {"abc", 0},
        {"-", 0},
        {"- 1", 0},
        {"inf", 0},
        {"2147483647", 2147483647},
        {"-2147483648", -2147483647 - 1},
    };
    for (const auto &[text, value] : cases)
        EXPECT_EQ(toInt(text), value) << testing::PrintToString(text);
}

TEST(ToInt, KeepsTheLow32BitsOfTheClamped64)
{
    const struct
    {
        std::string text;
        std::int32_t value;
    } cases[] = {
        {"2147483648", -2147483647 - 1},
        {"4294967295", -1},
        {"4294967296", 0},
        {"-4294967297", -1},
        {"99999999999", 1215752191}, // 23 * 2^32 + 1215752191
        {"-99999999999", -1215752191},
        {"9223372036854775807", -1},
        {"9223372036854775808", -1}, // clamped to 2^63 - 1
        {"99999999999999999999", -1},
        {"-9223372036854775808", 0},
        {"-99999999999999999999", 0}, // clamped to -2^63
    };
    for (const auto &[text, value] : cases)
        EXPECT_EQ(toInt(text), value) << text;
}

TEST(AppendNumber, PrintsSixSignificantDigits)
{
    const struct
    {
        double value;
        std::string text;
    } cases[] = {
        {0.0, "0"},
        {-0.0, "-0"},
        {1.0, "1"},
        {12.5, "12.5"},
        {-2.5, "-2.5"},
        {1000.0, "1000"},
        {100000.0, "100000"},
        {123456.0, "123456"},
        {999999.0, "999999"},
        {999999.4, "999999"},
        {999998.5, "999998"}, // halfway goes to the even digit
        {999999.5, "1e+06"},
        {1e6, "1e+06"},
        {1e5, "100000"},
        {1234567.0, "1.23457e+06"},
        {-1234567.0, "-1.23457e+06"},
        {1e100, "1e+100"},
        {0.1 + 0.2, "0.3"},
        {12.3456789, "12.3457"},
        {0.0001, "0.0001"},
        {0.00012345678, "0.000123457"},
        {0.000099999951, "0.0001"},
        {0.000099999949, "9.99999e-05"},
        {0.00001, "1e-05"},
        {0.000025, "2.5e-05"},
        {1e-100, "1e-100"},
        {1e-300, "1e-300"},
        {std::numeric_limits<double>::max(), "1.79769e+308"},
        {std::numeric_limits<double>::denorm_min(), "4.94066e-324"},
        {infinity, "inf"},
        {-infinity, "-inf"},
        {notANumber, "nan"},
        {-notANumber, "-nan"},
    };
    for (const auto &[value, text] : cases)
        EXPECT_EQ(printed(value), text);
}

TEST(AppendNumber, PrintsAsAStreamDoes)
{
    std::mt19937_64 bits(20);
    for (int i = 0; i < 20000; ++i) {
        // Every second value from the range of field surveys, the others from all there are.
        const double value = i % 2 == 0 ? std::bit_cast<double>(bits())
                                        : static_cast<double>(bits() % 2000000000) / 1000.0 - 1e6;
        std::ostringstream stream;
        stream << value;
        EXPECT_EQ(printed(value), stream.str());
    }
}

TEST(FixedNumber, PrintsSixDigitsAfterThePoint)
{
    const struct
    {
        double value;
        std::string text;
    } cases[] = {
        {0.0, "0.000000"},
        {-0.0, "-0.000000"},
        {1.0, "1.000000"},
        {-2.5, "-2.500000"},
        {12.3456789, "12.345679"},
        {1234567.0, "1234567.000000"},
        {999999.9999996, "1000000.000000"},
        {0.0078125, "0.007812"}, // halfway goes to the even digit
        {0.0234375, "0.023438"},
        {1e-7, "0.000000"},
        {-1e-7, "-0.000000"},
        {0.000001, "0.000001"},
        {1e22, "10000000000000000000000.000000"},
        {infinity, "inf"},
        {-infinity, "-inf"},
        {notANumber, "nan"},
    };
    for (const auto &[value, text] : cases)
        EXPECT_EQ(fixedNumber(value), text);
}

TEST(FixedNumber, HoldsTheLargestDouble)
{
    // (2^53 - 1) * 2^971
    const std::string digits =
        "179769313486231570814527423731704356798070567525844996598917476803157260780028538760"
        "589558632766878171540458953514382464234321326889464182768467546703537516986049910576"
        "551282076245490090389328944075868508455133942304583236903222948165808559332123348274"
        "797826204144723168738177180919299881250404026184124858368";
    EXPECT_EQ(fixedNumber(std::numeric_limits<double>::max()), digits + ".000000");
    EXPECT_EQ(fixedNumber(std::numeric_limits<double>::lowest()), '-' + digits + ".000000");
}

TEST(FixedNumber, PrintsAsAStreamDoes)
{
    std::mt19937_64 bits(22);
    for (int i = 0; i < 2000; ++i) {
        const double value = i % 2 == 0 ? std::bit_cast<double>(bits())
                                        : static_cast<double>(bits() % 2000000000) / 1000.0 - 1e6;
        std::ostringstream stream;
        stream << std::fixed << value;
        EXPECT_EQ(fixedNumber(value), stream.str());
    }
}
