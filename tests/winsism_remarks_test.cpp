// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "tests/support/winsism_reading.h"

#include <gtest/gtest.h>

// What the user should know of a file that converts.

namespace {

/// The remarks on a file that both forms read without a failure.
Texts remarksOn(const std::string &text)
{
    const Reading reading = readText(text);
    EXPECT_EQ(reading.outcome, "0") << text;
    EXPECT_EQ(failureOf(reading.report), "") << text;
    return remarksOf(reading.report);
}

} // namespace

TEST(WinsismRemarks, NoneOnAFileWithoutAFault)
{
    EXPECT_EQ(remarksOn(joined(twoShots)), Texts{});
    EXPECT_EQ(remarksOn(joined(twoShots, "\r\n")), Texts{});
    EXPECT_EQ(remarksOn(joined(twoShots) + "\n   \n\t \r\n"), Texts{});
    EXPECT_EQ(remarksOn(joined(firstLines(twoShots, 13))), Texts{});
    EXPECT_EQ(remarksOn(fileWith({{2, "  2 1"}, {3, "1e2   +101. "}, {8, "3 1 02\r\r"}})), Texts{});
}

TEST(WinsismRemarks, NumbersOfShotsAndReceivers)
{
    for (const auto &[line, count] : {std::pair(2U, 2U), {5U, 2U}, {8U, 3U}, {11U, 3U}}) {
        const std::string others = count == 2 ? "1 " : "1 3 ";
        for (const auto &[text, remark] :
             {std::pair("2.9", "\"2.9\" is read as 2: write a whole number in digits"),
              {"2,9", "\"2,9\" is read as 2: write a decimal point, no comma"},
              {"2x", "\"2x\" is read as 2: it is no plain number"},
              {"4294967298", "\"4294967298\" is read as 2: it is out of range"}})
            EXPECT_EQ(remarksOn(fileWith({{line, others + text}})),
                      Texts{"not a number, " + std::to_string(line) + ": " + remark});
    }
}

TEST(WinsismRemarks, PositionsAndElevations)
{
    for (const std::size_t line : {3U, 6U, 9U, 12U}) {
        const std::string others = line < 9 ? "1 " : "1 2 ";
        for (const NumberText &number : numberTexts)
            EXPECT_EQ(remarksOn(fileWith({{line, others + number.text}})),
                      *number.remark == '\0'
                          ? Texts{}
                          : Texts{"not a number, " + std::to_string(line) + ": " + number.remark});
    }
}

TEST(WinsismRemarks, NumbersListedMoreThanOnce)
{
    const std::string text = "number 1 is listed more than once: its last value counts";
    EXPECT_EQ(remarksOn(fileWith({{2, "1 2 1"}, {3, "100 101 77"}})),
              Texts{"numbering, 2: " + text});
    EXPECT_EQ(remarksOn(fileWith({{5, "1 1"}})), Texts{"numbering, 5: " + text});
    EXPECT_EQ(remarksOn(fileWith({{8, "1 1 2 3"}, {9, "0 1 5 10"}})),
              Texts{"numbering, 8: " + text});
    EXPECT_EQ(remarksOn(fileWith({{11, "3 1 1"}})), Texts{"numbering, 11: " + text});
    // Of several the smallest is named.
    EXPECT_EQ(remarksOn(fileWith({{2, "2 1 2 1"}, {3, "1 2 3 4"}})),
              Texts{"numbering, 2: " + text});
    EXPECT_EQ(remarksOn(fileWith({{2, "-1 4294967295 1"}, {3, "5 6 7"}, {5, "1 -1"}})),
              (Texts{"not a number, 2: \"4294967295\" is read as -1: it is out of range",
                     "numbering, 2: number 4294967295 is listed more than once: its last value "
                     "counts"}));
}

TEST(WinsismRemarks, LinesAfterTheLastShot)
{
    EXPECT_EQ(remarksOn(joined(twoShots) + "1 2 3\nabc"),
              Texts{"not read, 16: 2 lines after the last shot: not read"});
    EXPECT_EQ(remarksOn(joined(twoShots) + "\n\n0\n"),
              Texts{"not read, 18: 1 line after the last shot: not read"});
    EXPECT_EQ(remarksOn(fileWith({{2, ""}, {3, ""}, {5, ""}, {6, ""}, {14, "1 2 3"}})),
              Texts{"not read, 14: 1 line after the last shot: not read"});
}

TEST(WinsismRemarks, ASurveySavedTwice)
{
    EXPECT_EQ(remarksOn(joined(twoShots) + joined(twoShots)),
              Texts{"not read, 16: another survey begins here: only the first is read"});
    EXPECT_EQ(remarksOn(joined(twoShots, "\r\n") + "\r\n  " + joined(twoShots, "\r\n")),
              Texts{"not read, 17: another survey begins here: only the first is read"});
}

TEST(WinsismRemarks, TheWorstThatSixDigitsDoNotHold)
{
    EXPECT_EQ(
        remarksOn(fileWith({{3, "100 12345.67"}, {9, "0 5 12345.64"}, {12, "1 2 12345.69"}})),
        Texts{"rounded position, 9: a position of 12345.64 m becomes 12345.6 m, as the output "
              "has six digits"});
}
