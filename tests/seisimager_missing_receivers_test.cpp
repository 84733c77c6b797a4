// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "tests/support/seisimager_reading.h"

#include <gtest/gtest.h>

// Receivers' lines that are not there, so that what follows is read as one of them.

namespace {

/// Two shots on four receivers as pickers write them, with three lines of zeros at the end.
const Lines pickedShots = {
    "1996 0 3.0",       // 1
    "0 2 4.000000",     // 2
    "-20.000000 4 0.0", // 3
    "0.000000 5.5 1 ",  // 4
    "4.000000 6.5 1 ",  // 5
    "8.000000 7.5 1 ",  // 6
    "12.000000 8.5 1 ", // 7
    "20.000000 4 0.0",  // 8
    "0.000000 9.5 1 ",  // 9
    "4.000000 8.5 1 ",  // 10
    "8.000000 7.5 1 ",  // 11
    "12.000000 6.5 1 ", // 12
    "0 0",              // 13
    " 0",               // 14
    " 0 0",             // 15
};

/// The file less some of its lines.
std::string pickedWithout(std::size_t line, std::size_t count = 1)
{
    Lines lines = pickedShots;
    const auto first = lines.begin() + static_cast<std::ptrdiff_t>(line) - 1;
    lines.erase(first, first + static_cast<std::ptrdiff_t>(count));
    return joined(lines);
}

const char shotLineMet[] = "shot 1, line 3, says 4 receivers, but line 7 looks like a shot line";

} // namespace

TEST(SeisImagerMissingReceivers, NothingIsMissing)
{
    const Reading reading = readText(joined(pickedShots));
    EXPECT_EQ(reading.outcome, "0");
    EXPECT_EQ(failureOf(reading.report), "");
    EXPECT_EQ(remarksOf(reading.report), Texts{});
}

TEST(SeisImagerMissingReceivers, TheShotLineIsReadAsAReceiver)
{
    // The second shot is then read from its first receiver's line on, as 9 receivers.
    const Reading reading = readText(pickedWithout(5));
    EXPECT_EQ(reading.outcome, invalidSubscript);
    EXPECT_EQ(failureOf(reading.report),
              std::string("7: ") + shotLineMet + ": invalid vector subscript");
}

TEST(SeisImagerMissingReceivers, TwoOfTwentyFour)
{
    std::string text = "1996 0 3.0\n0 2 1.0\n-2.5 24 0.0\n";
    for (int shot = 0; shot < 2; ++shot) {
        for (int receiver = 0; receiver < 22 + 2 * shot; ++receiver)
            text += std::to_string(receiver) + " 12.5 1\n";
        text += shot == 0 ? "30.5 24 0.0\n" : "0 0\n 0\n 0 0\n";
    }
    const Reading reading = readText(text);
    EXPECT_EQ(reading.outcome, "0");
    EXPECT_EQ(
        remarksOf(reading.report),
        Texts{"not read, 26: shot 1, line 3, says 24 receivers, but line 26 looks like a shot "
              "line"});
}

TEST(SeisImagerMissingReceivers, TheFileLooksWholeUpToItsLastLines)
{
    // Here the second shot is read as one receiver, and two lines are left.
    Lines lines = pickedShots;
    lines[8] = "0.000000 1 1 ";
    lines.erase(lines.begin() + 4);
    const Reading reading = readText(joined(lines));
    EXPECT_EQ(reading.outcome, "0");
    EXPECT_EQ(failureOf(reading.report), "");
    EXPECT_EQ(remarksOf(reading.report), Texts{std::string("not read, 7: ") + shotLineMet});
}

TEST(SeisImagerMissingReceivers, TheLastShotTakesTheEndOfTheSurvey)
{
    const std::string text =
        "shot 2, line 8, says 4 receivers, but line 12 looks like the end of the survey";
    const Reading one = readText(pickedWithout(12));
    EXPECT_EQ(one.outcome, "0");
    EXPECT_EQ(failureOf(one.report), "");
    EXPECT_EQ(remarksOf(one.report), Texts{"not read, 12: " + text});
    // All of the end and no more is taken for receivers.
    Lines lines = pickedShots;
    lines.erase(lines.begin() + 9, lines.begin() + 12);
    EXPECT_EQ(readText(joined(lines)).outcome, "0");
    // Of four lines one is not there.
    const Reading four = readText(pickedWithout(9, 4));
    EXPECT_EQ(four.outcome, invalidSubscript);
    EXPECT_EQ(failureOf(four.report),
              "11: the file ends after 1 of 2 shots and 3 of 4 receivers: invalid vector "
              "subscript");
}

TEST(SeisImagerMissingReceivers, AnEarlierShotTakesTheEndOfTheSurvey)
{
    // A shot less than the count says: what is left of the end is read as a shot.
    Lines lines = pickedShots;
    lines[1] = "0 3 4.000000";
    lines.erase(lines.begin() + 11);
    const Reading reading = readText(joined(lines));
    EXPECT_EQ(reading.outcome, "0");
    EXPECT_EQ(failureOf(reading.report), "");
    EXPECT_EQ(
        remarksOf(reading.report),
        Texts{"not read, 12: shot 2, line 8, says 4 receivers, but line 12 looks like the end "
              "of the survey"});
}

TEST(SeisImagerMissingReceivers, TheEndOfTheSurveyAndNoMoreLines)
{
    const Reading reading = readText(joined(firstLines(pickedShots, 11)) + "0 0\r\n");
    EXPECT_EQ(reading.outcome, "0");
    EXPECT_EQ(
        remarksOf(reading.report),
        Texts{"not read, 12: shot 2, line 8, says 4 receivers, but line 12 looks like the end "
              "of the survey"});
    const Reading ends = readText(joined(firstLines(pickedShots, 10)) + "0 0\n");
    EXPECT_EQ(failureOf(ends.report),
              "11: shot 2, line 8, says 4 receivers, but line 11 looks like the end of the survey: "
              "invalid vector subscript");
}

TEST(SeisImagerMissingReceivers, WhatTheFirstReceiverAlsoLooksLikeMeansNothing)
{
    // Whole milliseconds and a flag of 0 in every line; zeros where no line has a flag.
    const Reading flags = readText("x\n0 1\n1 3 0\n0 12 0\n5 25 0\n");
    EXPECT_EQ(failureOf(flags.report),
              "5: the file ends after 0 of 1 shots and 2 of 3 receivers: invalid vector subscript");
    const Reading zeros = readText("x\n0 1\n1 2 0\n5 25\n0 0\n");
    EXPECT_EQ(zeros.outcome, "0");
    EXPECT_EQ(remarksOf(zeros.report), Texts{});
}

TEST(SeisImagerMissingReceivers, OnlyTheFirstIsNamed)
{
    Lines lines = pickedShots;
    lines[1] = "0 3 4.000000";
    lines.erase(lines.begin() + 4);                     // from the first shot
    lines.insert(lines.begin() + 8, "30.000000 4 0.0"); // and a shot line more
    EXPECT_EQ(failureOf(readText(joined(lines)).report),
              std::string("7: ") + shotLineMet + ": invalid vector subscript");
}

TEST(SeisImagerMissingReceivers, WhatIsReadOfWrongLinesIsNotRemarkedOn)
{
    Lines lines = pickedShots;
    lines[3] = "x 12345.678 1 ";
    lines[9] = "4.000000 23456.74 1 "; // the second shot's second receiver
    lines.erase(lines.begin() + 4);
    const Reading reading = readText(joined(lines));
    EXPECT_EQ(failureOf(reading.report),
              std::string("7: ") + shotLineMet + ": invalid vector subscript");
    EXPECT_EQ(
        remarksOf(reading.report),
        (Texts{"not a number, 4: \"x\" is read as 0: it is no plain number",
               "rounded time, 4: a time of 12345.678 ms becomes 12345.7 ms, as the output has "
               "six digits"}));
    EXPECT_EQ(reading.report.remarkCounts.size(), 2U);
    EXPECT_EQ(reading.report.worst.size(), 1U);
}
