// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "tests/support/seisimager_reading.h"

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

std::string shifted(const std::string &line, const std::string &field)
{
    return "shifted line, " + line + ": the line begins with a delimiter: its first field, \""
           + field + "\", is read twice, so that all others shift";
}

} // namespace

TEST(SeisImagerRemarks, NoneOnAFileWithoutAFault)
{
    EXPECT_EQ(remarksOn(joined(twoShots)), Texts{});
    EXPECT_EQ(remarksOn(joined(twoShots, "\r\n")), Texts{});
    for (const char *first : {"", "0 0 0", " 1,5 abc", "\t"})
        EXPECT_EQ(remarksOn(fileWith({{1, first}})), Texts{}) << first;
    EXPECT_EQ(remarksOn(fileWith({{2, "x 2.0 abc"}, {3, "-.25e1 +2 1,5"}, {4, "0 12.5 1,5 \r"}})),
              Texts{});
    // The lines of zeros that pickers write at the end.
    for (const char *end :
         {"0 0\n 0\n 0 0\n", "0 0\r\n 0\r\n 0 0\r\n", "0 0.000000\n\t\n", "\n\n", "0 0"})
        EXPECT_EQ(remarksOn(joined(twoShots) + end), Texts{}) << end;
}

TEST(SeisImagerRemarks, FieldsThatAreNotWhollyNumbers)
{
    for (const NumberText &number : numberTexts) {
        const std::string text = number.text;
        const auto expected = [&number](const Texts &lines) {
            Texts remarks;
            if (*number.remark != '\0')
                for (const std::string &line : lines)
                    remarks.push_back("not a number, " + line + ": " + number.remark);
            return remarks;
        };
        EXPECT_EQ(remarksOn("x\n0 1\n" + text + " 1 0\n" + text + " 12.5 1\n"),
                  expected({"3", "4"}));
        if (text[0] != '-') {
            EXPECT_EQ(remarksOn("x\n0 1\n1 1 0\n5 " + text + " 1\n"), expected({"4"}));
        }
    }
}

TEST(SeisImagerRemarks, NumbersOfShots)
{
    const struct
    {
        const char *count;
        Texts remarks;
    } cases[] = {
        {"2.9", {"not a number, 2: \"2.9\" is read as 2: write a whole number in digits"}},
        {"2,0", {"not a number, 2: \"2,0\" is read as 2: write a decimal point, no comma"}},
        {"2shots", {"not a number, 2: \"2shots\" is read as 2: it is no plain number"}},
        {"4294967298", {"not a number, 2: \"4294967298\" is read as 2: it is out of range"}},
        {"1", {"not read, 6: 3 lines after the last shot: not read"}},
        {"0",
         {"no shots, 2: there are no shots in this file",
          "not read, 3: 6 lines after the last shot: not read"}},
        {"-3",
         {"no shots, 2: there are no shots in this file",
          "not read, 3: 6 lines after the last shot: not read"}},
        {"0x2",
         {"not a number, 2: \"0x2\" is read as 0: it is no plain number",
          "no shots, 2: there are no shots in this file",
          "not read, 3: 6 lines after the last shot: not read"}},
        {"none\r",
         {"not a number, 2: \"none\" is read as 0: it is no plain number",
          "no shots, 2: there are no shots in this file",
          "not read, 3: 6 lines after the last shot: not read"}},
    };
    for (const auto &[count, remarks] : cases)
        EXPECT_EQ(remarksOn(fileWith({{2, std::string("0 ") + count}})), remarks);
    EXPECT_EQ(remarksOn("x\n0 0\n"), Texts{"no shots, 2: there are no shots in this file"});
}

TEST(SeisImagerRemarks, NumbersOfReceivers)
{
    for (const auto &[count, remark] :
         {std::pair("2x", "\"2x\" is read as 2: it is no plain number"),
          {"2.5", "\"2.5\" is read as 2: write a whole number in digits"},
          {"-4294967294", "\"-4294967294\" is read as 2: it is out of range"}})
        EXPECT_EQ(remarksOn(fileWith({{3, std::string("-2.5 ") + count}})),
                  Texts{std::string("not a number, 3: ") + remark});
}

TEST(SeisImagerRemarks, ShotsWithoutReceivers)
{
    EXPECT_EQ(remarksOn("x\n0 3\n1 0\n2 1\n5 12.5\n3 none\n"),
              (Texts{"no receivers, 3: shot 1 has no receivers",
                     "not a number, 6: \"none\" is read as 0: it is no plain number",
                     "no receivers, 6: shot 3 has no receivers"}));
}

TEST(SeisImagerRemarks, LinesThatBeginWithABlank)
{
    EXPECT_EQ(remarksOn(fileWith({{5, " 5 25"}})), Texts{shifted("5", "5")});
    EXPECT_EQ(remarksOn(fileWith({{5, "  5,5 25"}})),
              (Texts{shifted("5", "5,5"),
                     "not a number, 5: \"5,5\" is read as 5: write a decimal point, no comma",
                     "not a number, 5: \"5,5\" is read as 5: write a decimal point, no comma"}));
    // Two shots, as its first field says, but read from the second one.
    EXPECT_EQ(remarksOn(fileWith({{2, " 2 1"}})), Texts{shifted("2", "2")});
    EXPECT_EQ(remarksOn("x\n0 1\n 2 1\n0 10\n5 20\n"), Texts{shifted("3", "2")});
}

TEST(SeisImagerRemarks, LinesAfterTheLastShot)
{
    EXPECT_EQ(remarksOn(joined(twoShots) + "7 1\n0 5\n"),
              Texts{"not read, 9: 2 lines after the last shot: not read"});
    EXPECT_EQ(remarksOn(joined(twoShots) + "0 0\n\nx\n0 0\n"),
              Texts{"not read, 11: 1 line after the last shot: not read"});
}

TEST(SeisImagerRemarks, ASurveySavedTwice)
{
    const std::string text = "another survey begins here: only the first is read";
    EXPECT_EQ(remarksOn(joined(twoShots) + joined(twoShots)), Texts{"not read, 9: " + text});
    EXPECT_EQ(remarksOn(joined(twoShots) + "0 0\n 0\n 0 0\n" + joined(twoShots) + "0 0\n"),
              Texts{"not read, 12: " + text});
    EXPECT_EQ(remarksOn(joined(twoShots, "\r\n") + joined(twoShots, "\r\n")),
              Texts{"not read, 9: " + text});
}

TEST(SeisImagerRemarks, TimesBelowZero)
{
    EXPECT_EQ(remarksOn(fileWith({{4, "0 -1 1"}, {8, "5 -0.5 1"}})),
              (Texts{"negative time, 4: a time of -1 ms goes into the output like any other, also "
                     "where it means \"not picked\"",
                     "negative time, 8: a time of -0.5 ms goes into the output like any other, "
                     "also where it means \"not picked\""}));
}

TEST(SeisImagerRemarks, TheWorstThatSixDigitsDoNotHold)
{
    EXPECT_EQ(remarksOn(fileWith(
                  {{3, "12345.67 2 0"}, {4, "12345.64 2345.6784 1"}, {7, "12345.69 2345.6774"}})),
              (Texts{"rounded position, 4: a position of 12345.64 m becomes 12345.6 m, as the "
                     "output has six digits",
                     "rounded time, 7: a time of 2345.6774 ms becomes 2345.68 ms, as the output "
                     "has six digits"}));
}
