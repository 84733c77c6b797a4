// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "field/exact_number.h"

#include "traveltime/text.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>

TEST(ExactNumber, HasTheDigitsThatItNeeds)
{
    struct Case
    {
        double value;
        const char *text;
    };
    for (const auto &[value, text] : {
             Case{0.0, "0"},
             {-0.0, "-0"},
             {5.0, "5"},
             {-2.5, "-2.5"},
             {0.1, "0.1"},
             {0.1 + 0.2, "0.30000000000000004"},
             {212.35, "212.35"},
             {1.0 / 3.0, "0.3333333333333333"},
             {4512345.67, "4512345.67"},
             {634512.35, "634512.35"},
             {0.0001, "0.0001"},
             {0.00012345678, "0.00012345678"},
             {0.00001, "1e-05"},
             {0.000012345678, "1.2345678e-05"},
             {0.000000001, "1e-09"},
             {1.5e-10, "1.5e-10"},
             {1.5e-300, "1.5e-300"},
             {100000.0, "100000"},
             {123456.0, "123456"},
             {1000000.0, "1e+06"},
             {1200000.0, "1.2e+06"},
             {1234567.0, "1234567"},
             {12345670.0, "1.234567e+07"},
             {1e22, "1e+22"},
             {1.7976931348623157e308, "1.7976931348623157e+308"},
         })
        EXPECT_EQ(exactNumber(value), text);
}

TEST(ExactNumber, IsTimesAPowerOfTen)
{
    struct Case
    {
        double value;
        int power;
        const char *text;
    };
    for (const auto &[value, power, text] : {
             Case{0.0123, 3, "12.3"},
             {0.0, 3, "0"},
             {-0.001, 3, "-1"},
             {0.054641462, 3, "54.641462"},
             {0.0000001, 3, "0.0001"},
             {0.00000001, 3, "1e-05"},
             {12.3, 3, "12300"},
             {1234.5, 3, "1.2345e+06"},
             {1234.56789, 3, "1234567.89"},
             {1.0 / 3.0, 3, "333.3333333333333"},
             {12.3, -3, "0.0123"},
         })
        EXPECT_EQ(exactNumber(value, power), text);
}

TEST(ExactNumber, FollowsTheTextThatIsThere)
{
    std::string text = "x ";
    appendExact(text, 1.5);
    appendExact(text, -2.5, 3);
    EXPECT_EQ(text, "x 1.5-2500");
}

TEST(ExactNumber, IsReadBackTheSame)
{
    std::mt19937_64 random(1);
    for (int i = 0; i < 200000; ++i) {
        const double value = std::bit_cast<double>(random());
        if (!std::isfinite(value))
            continue;
        ASSERT_EQ(toDouble(exactNumber(value)), value);
    }
    for (const double value :
         {std::numeric_limits<double>::max(), std::numeric_limits<double>::min(),
          std::numeric_limits<double>::denorm_min()})
        EXPECT_EQ(toDouble(exactNumber(value)), value);
}

TEST(ExactNumber, IsAnOutputStreamsWhereSixDigitsAreEnough)
{
    std::mt19937_64 random(2);
    for (int i = 0; i < 200000; ++i) {
        const double digits = static_cast<double>(random() % 1000000);
        const int power = static_cast<int>(random() % 30) - 15;
        const double value =
            power < 0 ? digits / std::pow(10.0, -power) : digits * std::pow(10.0, power);
        std::string plain;
        appendNumber(plain, value);
        if (toDouble(plain) == value) {
            ASSERT_EQ(exactNumber(value), plain);
        }
    }
}
