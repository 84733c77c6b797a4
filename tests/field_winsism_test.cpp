// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "field/winsism_picks.h"

#include "tests/support/field_picks.h"

#include <gtest/gtest.h>

namespace {

const char winsismSurvey[] = "Shot number, Shot elevation\n"         // 1
                             "1 2\n"                                 // 2
                             "100 101\n"                             // 3
                             "Shot number, Shot distance\n"          // 4
                             "1 2\n"                                 // 5
                             "-2.5 12.5\n"                           // 6
                             "Receiver number, receiver distance\n"  // 7
                             "1 2 3\n"                               // 8
                             "0 5 10\n"                              // 9
                             "Receiver number, receiver elevation\n" // 10
                             "1 2 3\n"                               // 11
                             "100.5 101.5 102.5\n"                   // 12
                             "FBP times\n"                           // 13
                             "2.1 10.5 18.7\n"                       // 14
                             "15.2 8.1 2.4\n";                       // 15

const char winsismDescription[] = "-2.5,100: 0,100.5=0.0021 5,101.5=0.0105 10,102.5=0.0187; "
                                  "12.5,101: 0,100.5=0.0152 5,101.5=0.0081 10,102.5=0.0024; ";

PickReading winsismReading(const std::string &text)
{
    return readPicks(readWinsismPicks, text);
}

/// The survey with a text in it replaced.
std::string winsismWith(const std::string &from, const std::string &to)
{
    return replaced(winsismSurvey, from, to);
}

} // namespace

TEST(FieldWinsism, ReadsASurveyWithItsTimes)
{
    const PickReading reading = winsismReading(winsismSurvey);
    EXPECT_EQ(reading.failure, "");
    EXPECT_EQ(reading.remarks, Remarks{});
    EXPECT_EQ(described(reading.picks), winsismDescription);
    EXPECT_EQ(linesOf(reading.picks), "14: 14 14 14; 15: 15 15 15; ");
    EXPECT_EQ(reading.picks.survey.spreads.size(), 1U);
}

TEST(FieldWinsism, TimesComeInAscendingNumbers)
{
    const PickReading reading =
        winsismReading("Shot number, Shot elevation\n10 9\n101 100\n"
                       "Shot number, Shot distance\n9 10\n-2.5 12.5\n"
                       "Receiver number, receiver distance\n3 1 2\n10 0 5\n"
                       "Receiver number, receiver elevation\n2 1 3\n101.5 100.5 102.5\n"
                       "FBP times\n2.1 10.5 18.7\n15.2 8.1 2.4\n");
    EXPECT_EQ(reading.failure, "");
    EXPECT_EQ(described(reading.picks), winsismDescription);
}

TEST(FieldWinsism, HeadingsMayBeInAnyCaseWithMoreOrFewerBlanks)
{
    std::string text = winsismSurvey;
    for (const auto &[from, to] :
         {std::pair("Shot number, Shot elevation", "SHOT NUMBER,SHOT ELEVATION"),
          {"Shot number, Shot distance", "shot  number ,\tshot distance"},
          {"FBP times", "fbp TIMES"}})
        text.replace(text.find(from), std::string(from).size(), to);
    EXPECT_EQ(described(winsismReading(text).picks), winsismDescription);
}

TEST(FieldWinsism, ReceiversThatWereNotPickedAreLeftOut)
{
    const PickReading reading = winsismReading(winsismWith("10.5", "*"));
    EXPECT_EQ(described(reading.picks),
              "-2.5,100: 0,100.5=0.0021 10,102.5=0.0187; "
              "12.5,101: 0,100.5=0.0152 5,101.5=0.0081 10,102.5=0.0024; ");
    EXPECT_EQ(reading.remarks,
              Remarks{"14: a time of \"*\": not picked, so the receiver is left out of this shot"});
}

TEST(FieldWinsism, WhatCannotBeUnderstoodIsRefused)
{
    struct Case
    {
        std::string text;
        const char *failure;
    };
    for (const auto &[text, failure] : {
             Case{winsismWith("Shot distance", "Shot position"),
                  "4: \"Shot number, Shot position\" where \"Shot number, Shot distance\" is "
                  "expected"},
             {winsismWith("1 2\n100", "1 b\n100"), "2: \"b\" is no number: a number expected"},
             {winsismWith("1 2\n100", "1 2.5\n100"),
              "2: \"2.5\" is no whole number from 0 on: a number expected"},
             {winsismWith("1 2\n100", "1 1\n100"), "2: number 1 twice in this line"},
             {winsismWith("100 101", "100"), "3: 1 value, one for each of 2 numbers expected"},
             {winsismWith("100 101", "100 101 102"),
              "3: 3 values, one for each of 2 numbers expected"},
             {winsismWith("100 101", "100 high"), "3: \"high\" is no number: a value expected"},
             {winsismWith("1 2\n-2.5", "1 3\n-2.5"), "5: number 3 is not in the section before"},
             {winsismWith("1 2\n-2.5 12.5", "1\n-2.5"), "5: 1 number, but 2 in the section before"},
             {winsismWith("1 2 3\n100.5", "1 2 3 4\n100.5"),
              "11: number 4 is not in the section before"},
             {winsismWith("18.7", ""),
              "14: 2 times for shot 1, one for each of 3 receivers expected"},
             {winsismWith("2.4", "2.4 3"),
              "15: 4 times for shot 2, one for each of 3 receivers expected"},
             {winsismWith("10.5", "soon"), "14: \"soon\" is no number: a time expected"},
             {winsismWith("2.1 10.5 18.7\n", "\n"),
              "15: the file ends where the line of times of shot 2 is expected"},
             {winsismWith("2.1 10.5 18.7\n15.2 8.1 2.4\n", "\n\n"),
              "15: the file ends where the line of times of shot 1 is expected"},
             {std::string(winsismSurvey) + "1 2 3\n",
              "16: the file has 2 shots, but this line comes after the times of the last one"},
             {std::string(winsismSurvey) + winsismSurvey,
              "16: another survey begins here: put it into a file of its own"},
             {"Shot number, Shot elevation\n",
              "1: the file ends where a line of numbers is expected"},
             {"Shot number, Shot elevation\n1\n",
              "2: the file ends where a line of values is expected"},
             {"Shot number, Shot elevation\n1\n2\n",
              "3: the file ends where \"Shot number, Shot distance\" is expected"},
         })
        EXPECT_EQ(winsismReading(text).failure, failure) << text;
}

TEST(FieldWinsism, ADecimalCommaIsRead)
{
    std::string text = winsismSurvey;
    for (char &character : text)
        character = character == '.' ? ',' : character;
    const PickReading reading = winsismReading(text);
    EXPECT_EQ(described(reading.picks), winsismDescription);
    EXPECT_EQ(reading.remarks,
              Remarks{"6: 11 numbers with a decimal comma, of which the first is \"-2,5\""});
}
