// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "tests/support/geogiga_reading.h"
#include "tests/support/special_numbers.h"

#include <gtest/gtest.h>

#include <limits>

// Counts, numbers behind keywords, and rows.

TEST(Geogiga, ShotCounts)
{
    // 13 blocks stand in the file: a larger count meets its end.
    const struct
    {
        const char *count;
        const char *outcome;
        std::size_t shots;
    } cases[] = {
        {" 2.9", "0", 2},         {"2", "0", 2},
        {" -0.9", "0", 0},        {" -1", "1", 13},
        {" 1e300", "0", 0},       {" -1e300", "0", 0},
        {" nan", "0", 0},         {" inf", "0", 0},
        {" -inf", "0", 0},        {" 4294967296", "0", 0},
        {" 4294967297", "0", 1},  {" 4294967298.9", "0", 2},
        {" -4294967295", "0", 1}, {" -4294967293.9", "0", 3},
        {" 8589934595", "0", 3},  {" 18446744073709551616", "0", 0},
        {" 1e1", "0", 10},        {" 1e5", "1", 13},
        {" +1.5", "0", 1},        {" .5", "0", 0},
        {" 5.", "0", 5},          {" 0x1p3", "0", 8},
        {" 1,5", "0", 1},         {" 12abc", "0", 12},
        {"\t 7", "0", 7},         {" 13", "0", 13},
        {" 14", "1", 13},         {"2:9", "0", 2},
    };
    for (const auto &[count, outcome, shots] : cases) {
        const Reading reading = readText(emptyShots(count, 13));
        EXPECT_EQ(reading.outcome, outcome) << count;
        EXPECT_EQ(reading.survey.shots.size(), shots) << count;
        EXPECT_EQ(reading.survey.traveltimes.size(), shots) << count;
        EXPECT_EQ(reading.survey.spreads.size(), outcome[0] == '0' ? 1U : 0U) << count;
    }
}

TEST(Geogiga, ReceiverCounts)
{
    const struct
    {
        const char *count;
        std::size_t receivers;
    } cases[] = {
        {"0", 0},    {"3", 3},     {"2.9", 2}, {"+1", 1},         {"1e5", 1},         {".5", 0},
        {"3.", 3},   {"0x1p3", 0}, {"inf", 0}, {"nan", 0},        {"1,5", 1},         {"abc", 0},
        {"2abc", 2}, {"\t2", 2},   {"", 0},    {"4294967298", 2}, {"-4294967295", 1},
    };
    for (const auto &[count, receivers] : cases) {
        const Reading reading = readText(oneShot(count, "1 0 1 1\n2 5 2 1\n3 10 3 1\n"));
        EXPECT_EQ(reading.outcome, "0") << count;
        ASSERT_EQ(sizesOf(reading.survey), (Sizes{1, 1, 1})) << count;
        EXPECT_EQ(reading.survey.spreads[0].size(), receivers) << count;
        EXPECT_EQ(reading.survey.traveltimes[0].times.size(), receivers) << count;
    }
}

TEST(Geogiga, ANegativeReceiverCountInTheFirstBlock)
{
    for (const char *count : {"-1", "-2147483648", "2147483648", "99999999999999999999"}) {
        const Reading reading = readText(oneShot(count, "1 0 1 1\n"));
        EXPECT_EQ(reading.outcome, tooLong) << count;
        EXPECT_EQ(sizesOf(reading.survey), (Sizes{0, 0, 1})) << count;
    }
}

TEST(Geogiga, AReceiverCountBeyondAllBounds)
{
    const std::string rows = "1 0 1 1\n";
    const std::size_t most = oneShot("10000000", rows).size() + 10000000;
    const Reading within = readText(oneShot(std::to_string(most), rows));
    EXPECT_EQ(within.outcome, "0");
    ASSERT_EQ(sizesOf(within.survey), (Sizes{1, 1, 1}));
    EXPECT_EQ(within.survey.spreads[0].size(), most);
    EXPECT_EQ(within.survey.traveltimes[0].times.size(), most);
    for (const std::string &count : {std::to_string(most + 1), std::string("2147483647")}) {
        const Reading beyond = readText(oneShot(count, rows));
        EXPECT_EQ(beyond.outcome, tooLong) << count;
        EXPECT_EQ(sizesOf(beyond.survey), (Sizes{0, 0, 1})) << count;
    }
}

TEST(Geogiga, ANegativeReceiverCountInALaterBlockReadsNoRows)
{
    const Reading reading = readText(fileWith({{15, "NUMBER_OF_RECEIVERS: -1"}}));
    EXPECT_EQ(reading.outcome, "0");
    ASSERT_EQ(sizesOf(reading.survey), (Sizes{2, 1, 2}));
    EXPECT_EQ(reading.survey.traveltimes[1].times, Numbers{});
    EXPECT_EQ(positionsOf(reading.survey.spreads[0]),
              (Positions{{0, 100.5}, {5, 100.5}, {10, 100.5}}));
}

TEST(Geogiga, NumbersBehindKeywords)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const struct
    {
        const char *text;
        double value;
    } cases[] = {
        {"1e5", 100000}, {"+1.5", 1.5},       {".5", 0.5},
        {"5.", 5},       {"0x1p3", 8},        {"inf", infinity},
        {"nan", nan},    {"1,5", 1},          {" ", 0},
        {"12abc", 12},   {"abc", 0},          {" 7", 7},
        {"\t7", 7},      {"1e999", infinity}, {"-1e999", -infinity},
        {"-2.5", -2.5},  {"3:4", 3},          {":3", 3},
        {"\r", 0},
    };
    for (const auto &[text, value] : cases) {
        const Reading reading = readText(fileWith(
            {{4, std::string("ELEVATION:") + text}, {7, std::string("SHOT_LOCATION:") + text}}));
        EXPECT_EQ(reading.outcome, "0") << text;
        ASSERT_EQ(sizesOf(reading.survey), (Sizes{2, 1, 2})) << text;
        EXPECT_TRUE(same(reading.survey.shots[0].elevation, value)) << text;
        EXPECT_TRUE(same(reading.survey.shots[0].x, value)) << text;
        EXPECT_TRUE(same(reading.survey.traveltimes[0].shotElevation, value)) << text;
        EXPECT_TRUE(same(reading.survey.traveltimes[0].shotX, value)) << text;
        EXPECT_TRUE(same(reading.survey.spreads[0][2].elevation, value)) << text;
    }
}

TEST(Geogiga, ReceiverRows)
{
    const double largest = std::numeric_limits<double>::max();
    const struct
    {
        const char *rows;
        Numbers x;
        Numbers times;
    } cases[] = {
        // Where the lines end does not matter.
        {"1 5 0.25 1\n2 6 0.5 1\n", {5, 6}, {0.25, 0.5}},
        {"1 5 0.25 1\r\n2 6 0.5 1\r\n", {5, 6}, {0.25, 0.5}},
        {"1 5 0.25 1\r\r\n2 6 0.5 1\r\r\n", {5, 6}, {0.25, 0.5}},
        {"1 5 0.25 1 2 6 0.5 1\n", {5, 6}, {0.25, 0.5}},
        {"\n\n1\n5\r0.25\t1\f\v2\n\n6 0.5\n1", {5, 6}, {0.25, 0.5}},
        {"  1   5 0.25  1  \n   2 6 0.5 1", {5, 6}, {0.25, 0.5}},
        {"1 5 0.25 1\n2 6 0.5 1\n3 7 0.75 1\n", {5, 6}, {0.25, 0.5}},
        // How a stream takes numbers.
        {"1 1e5 +1.5 1\n2 .5 5. 1\n", {100000, 0.5}, {1.5, 5}},
        {"1 -5 -0.25 1\n2 1e-5 0 1\n", {-5, 1e-5}, {-0.25, 0}},
        {"-1 5 0.25 -1\n+2 6 0.5 +1\n", {5, 6}, {0.25, 0.5}},
        {"1 5 0.25 1\n2 inf 0.5 1\n", {5, 0}, {0.25, 0.25}},
        {"1 5 0.25 1\n2 nan 0.5 1\n", {5, 0}, {0.25, 0.25}},
        {"1 5 0.25 1\n2 1e 0.5 1\n", {5, 0}, {0.25, 0.25}},
        {"1 5 0.25 1\n2 1e999 0.5 1\n", {5, largest}, {0.25, 0.25}},
        // Of these it takes the beginning, and the rest is the next value.
        {"1 5 0.25 1\n2 0x1p3 0.5 1\n", {5, 0}, {0.25, 0}},
        {"1 5 0.25 1\n2 1,5 0.5 1\n", {5, 1}, {0.25, 0}},
        {"1 5 0.25 1\n2 12abc 0.5 1\n", {5, 12}, {0.25, 0}},
        {"1 5 0x1p3 1\n2 6 0.5 1\n", {5, 5}, {0, 0}},
        {"1 5 1,5 1\n2 6 0.5 1\n", {5, 5}, {1, 1}},
        {"1 5 12abc 1\n2 6 0.5 1\n", {5, 5}, {12, 12}},
        {"1.5 5 0.25 1\n2 6 0.5 1\n", {0.5, 0.5}, {5, 5}},
        {"1 5.5.25 1 2 6 0.5 1\n", {5.5, 6}, {0.25, 0.5}},
        // What cannot be taken becomes 0; what comes later stays as it was.
        {"1 abc 0.25 1\n2 6 0.5 1\n", {0, 0}, {0, 0}},
        {"1 5 abc 1\n2 6 0.5 1\n", {5, 5}, {0, 0}},
        {"abc 5 0.25 1\n2 6 0.5 1\n", {0, 0}, {0, 0}},
        {"4294967296 5 0.25 1\n2 6 0.5 1\n", {0, 0}, {0, 0}},
        {"1 5 0.25 abc\n2 6 0.5 1\n", {5, 5}, {0.25, 0.25}},
        {"1 5 0.25 1\nabc 6 0.5 1\n", {5, 5}, {0.25, 0.25}},
        {"1 5 0.25 1\n2 abc 0.5 1\n", {5, 0}, {0.25, 0.25}},
        {"1 5 0.25 1\n2 6 abc 1\n", {5, 6}, {0.25, 0}},
        {"1 5 0.25 1\n2 6 0.5 abc\n", {5, 6}, {0.25, 0.5}},
        // What meets the end of the file stays as it was.
        {"", {0, 0}, {0, 0}},
        {"1", {0, 0}, {0, 0}},
        {"1 5", {5, 5}, {0, 0}},
        {"1 5 0.25", {5, 5}, {0.25, 0.25}},
        {"1 5 0.25 1", {5, 5}, {0.25, 0.25}},
        {"1 5 0.25 1\n", {5, 5}, {0.25, 0.25}},
        {"1 5 0.25 1\n2 ", {5, 5}, {0.25, 0.25}},
        {"1 5 0.25 1\n2 6", {5, 6}, {0.25, 0.25}},
        {"1 5 0.25 1\n2 6 0.5", {5, 6}, {0.25, 0.5}},
    };
    for (const auto &[rows, x, times] : cases) {
        const Reading reading = readText(oneShot("2", rows));
        EXPECT_EQ(reading.outcome, "0") << rows;
        ASSERT_EQ(sizesOf(reading.survey), (Sizes{1, 1, 1})) << rows;
        EXPECT_EQ(reading.survey.traveltimes[0].times, times) << rows;
        EXPECT_EQ(positionsOf(reading.survey.spreads[0]), (Positions{{x[0], 100}, {x[1], 100}}))
            << rows;
    }
}

TEST(Geogiga, RowsWithoutABlankTakeNoLonger)
{
    std::string rows;
    for (int i = 0; i < 400000; ++i)
        rows += "+1+2-3+4";
    const Reading reading = readText(oneShot("400000", rows));
    EXPECT_EQ(reading.outcome, "0");
    ASSERT_EQ(sizesOf(reading.survey), (Sizes{1, 1, 1}));
    EXPECT_EQ(reading.survey.traveltimes[0].times, Numbers(400000, -3.0));
}

TEST(Geogiga, RowValuesStartAtZeroInEveryBlock)
{
    const Reading reading = readText(fileWith({{17, "abc"}}));
    EXPECT_EQ(reading.outcome, "0");
    ASSERT_EQ(sizesOf(reading.survey), (Sizes{2, 1, 2}));
    EXPECT_EQ(reading.survey.traveltimes[1].times, (Numbers{0, 0, 0}));
    EXPECT_EQ(positionsOf(reading.survey.spreads[0]),
              (Positions{{0, 100.5}, {0, 100.5}, {0, 100.5}}));
}
