// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "field/seisimager_picks.h"

#include "tests/support/field_picks.h"
#include "traveltime/drivers.h"

#include <gtest/gtest.h>

namespace {

/// Two shots on the same three receivers, as pickers write them.
const char seisImagerSurvey[] = "1996 0 3.000000\n"        // 1
                                "0 2 5.000000\n"           // 2
                                "-2.500000 3 0.000000\n"   // 3
                                "0.000000 12.500000 1 \n"  // 4
                                "5.000000 25.000000 1 \n"  // 5
                                "10.000000 31.250000 1 \n" // 6
                                "12.500000 3 0.000000\n"   // 7
                                "0.000000 33.000000 1 \n"  // 8
                                "5.000000 26.500000 1 \n"  // 9
                                "10.000000 12.250000 1 \n" // 10
                                "0 0 \n"                   // 11
                                " 0 \n"                    // 12
                                " 0 0 \n";                 // 13

const char seisImagerDescription[] = "-2.5,0: 0,0=0.0125 5,0=0.025 10,0=0.03125; "
                                     "12.5,0: 0,0=0.033 5,0=0.0265 10,0=0.01225; ";

PickReading seisImagerReading(const std::string &text, const PickSurvey &before = {})
{
    return readPicks(readSeisImagerPicks, text, {}, before);
}

/// The survey with a text in it replaced.
std::string seisImagerWith(const std::string &from, const std::string &to)
{
    return replaced(seisImagerSurvey, from, to);
}

} // namespace

TEST(FieldSeisImager, ReadsASurvey)
{
    const PickReading reading = seisImagerReading(seisImagerSurvey);
    EXPECT_EQ(reading.failure, "");
    EXPECT_EQ(reading.remarks, Remarks{});
    EXPECT_EQ(described(reading.picks), seisImagerDescription);
    EXPECT_EQ(linesOf(reading.picks), "3: 4 5 6; 7: 8 9 10; ");
    EXPECT_EQ(reading.picks.survey.spreads.size(), 1U);
}

TEST(FieldSeisImager, FieldsAreApartByBlanksAndTabs)
{
    EXPECT_EQ(described(seisImagerReading(
                            "x\n\t1\t 2 \n \t-2.5 1\n\t 0\t\t12.5\n12.5   1\t0\n5 \t 25 1\t\n")
                            .picks),
              "-2.5,0: 0,0=0.0125; 12.5,0: 5,0=0.025; ");
}

TEST(FieldSeisImager, TheFirstLineIsAnyText)
{
    const std::string rest = "0 1\n3 1\n5 12.5\n";
    for (const char *line : {"", "# a comment", "1996 0 3.0", "1 2 3", "First breaks, ms", "0,5",
                             "\n# more\n\nFirst breaks", "# a\n# b\n1996 0 3.0", "\n\n"}) {
        const PickReading reading = seisImagerReading(line + std::string("\n") + rest);
        EXPECT_EQ(reading.failure, "") << line;
        EXPECT_EQ(described(reading.picks), "3,0: 5,0=0.0125; ") << line;
    }
}

TEST(FieldSeisImager, ReceiversThatWereNotPickedAreLeftOut)
{
    const PickReading reading = seisImagerReading(seisImagerWith("25.000000", "-1"));
    EXPECT_EQ(described(reading.picks), "-2.5,0: 0,0=0.0125 10,0=0.03125; "
                                        "12.5,0: 0,0=0.033 5,0=0.0265 10,0=0.01225; ");
    EXPECT_EQ(reading.remarks,
              Remarks{"5: a time of \"-1\": not picked, so the receiver is left out of this shot"});
    EXPECT_EQ(reading.picks.survey.spreads.size(), 2U);
    EXPECT_EQ(linesOf(reading.picks), "3: 4 6; 7: 8 9 10; ");
    ASSERT_EQ(reading.picks.notPicked.size(), 1U);
    const NotPicked &receiver = reading.picks.notPicked[0];
    EXPECT_EQ(receiver.record, 0U);
    EXPECT_EQ(receiver.receiver.x, 5.0);
    EXPECT_EQ(receiver.time, -0.001);
    EXPECT_EQ(receiver.origin.line, 5U);
}

TEST(FieldSeisImager, WhatHasNoShotsOrReceiversIsRemarkedOn)
{
    EXPECT_EQ(seisImagerReading("x\n0 0 5\n0 0\n").remarks,
              Remarks{"2: there are no shots in this file"});
    const PickReading reading = seisImagerReading("x\n0 2\n1 0 0\n2 1 0\n5 12.5\n");
    EXPECT_EQ(reading.remarks, Remarks{"3: shot 1 has no receivers"});
    EXPECT_EQ(described(reading.picks), "1,0:; 2,0: 5,0=0.0125; ");
}

TEST(FieldSeisImager, ADecimalCommaIsRead)
{
    std::string text = seisImagerSurvey;
    for (char &character : text)
        character = character == '.' ? ',' : character;
    const PickReading reading = seisImagerReading(text);
    EXPECT_EQ(described(reading.picks), seisImagerDescription);
    EXPECT_EQ(reading.remarks, Remarks{"3: 14 numbers with a decimal comma, of which the first is "
                                       "\"-2,500000\""});
}

TEST(FieldSeisImager, WhatCannotBeUnderstoodIsRefused)
{
    struct Case
    {
        std::string text;
        const char *failure;
    };
    for (const auto &[text, failure] : {
             Case{seisImagerWith("0 2 5.000000", "0"),
                  "2: 1 field: anything and the number of shots expected"},
             {seisImagerWith("0 2 5", "0 two 5"),
              "2: \"two\" is no number: the number of shots expected"},
             {seisImagerWith("0 2 5", "0 2.5 5"),
              "2: \"2.5\" is no whole number from 0 on: the number of shots expected"},
             {seisImagerWith("0 2 5", "0 -2 5"),
              "2: \"-2\" is no whole number from 0 on: the number of shots expected"},
             {seisImagerWith("-2.500000 3", "west 3"),
              "3: \"west\" is no number: the shot's x expected"},
             {seisImagerWith("-2.500000 3", "-2.500000 3x"),
              "3: \"3x\" is no number: the shot's number of receivers expected"},
             {seisImagerWith("-2.500000 3 0.000000", "-2.5"),
              "3: 1 field: the shot's x and its number of receivers expected"},
             {seisImagerWith("12.500000 1 ", ""),
              "4: 1 field: the receiver's x and its time expected"},
             {seisImagerWith("0.000000 12.5", "abc 12.5"),
              "4: \"abc\" is no number: the receiver's x expected"},
             {seisImagerWith("12.500000 1 ", "12.5ms 1"),
              "4: \"12.5ms\" is no number: a time expected"},
             {seisImagerWith("5.000000 25.000000 1", "5.0\t\t1"),
              "5: 2 fields, where other receivers have 3: is the time missing? Then write -1"},
             {seisImagerWith("0.000000 12.500000 1", "0.000000           1"),
              "4: 2 fields, where other receivers have 3: is the time missing? Then write -1"},
             {"x\n", "1: the file ends before its number of shots"},
             {"", "the file is empty"},
         })
        EXPECT_EQ(seisImagerReading(text).failure, failure) << text;
}

TEST(FieldSeisImager, CountsThatDoNotFitAreRefused)
{
    const std::string missing = "5.000000 25.000000 1 \n";
    struct Case
    {
        std::string text;
        const char *failure;
    };
    for (const auto &[text, failure] : {
             // A receiver is missing: the next shot's line is read as one.
             Case{seisImagerWith(missing, ""),
                  "6: shot 1, line 3, says 3 receivers, but this line looks like a shot's"},
             {seisImagerWith("5.000000 26.500000 1 \n", ""),
              "10: shot 2, line 7, says 3 receivers, but this "
              "line looks like the end of the survey"},
             {seisImagerWith("3 0.000000\n0.000000 12", "4 0.000000\n0.000000 12"),
              "7: shot 1, line 3, says 4 receivers, but this line looks like a shot's"},
             {seisImagerWith("-2.500000 3", "-2.500000 2"),
              "6: shot 1, line 3, says 2 receivers, but this line looks like another one"},
             {seisImagerWith("10.000000 31.250000 1 \n", "10.000000 31.250000 1 \n15 -1 1\n"),
              "7: shot 1, line 3, says 3 receivers, but this line looks like another one"},
             {seisImagerWith("12.500000 3 0", "12.500000 3.5 0"),
              "7: \"3.5\" is no whole number from 0 on: the shot's number of receivers expected"},
             {seisImagerWith("0 2 5", "0 3 5"),
              "11: this line looks like the end of the survey after 2 of 3 shots"},
             {seisImagerWith("0 2 5", "0 1 5"),
              "7: line 2 says 1 shot, but this line comes after the last one"},
             {"x\n0 2\n1 2\n5 1\n6 2\n", "5: the file ends after 1 of 2 shots"},
             {"x\n0 2\n1 2\n5 1\n", "4: the file ends after 0 of 2 shots and 1 of 2 receivers"},
             {"x\n0 1\n1 2\n5 1\n0 0\n 0\n 0 0\n",
              "5: this line looks like the end of the survey: the last shot, line 3, says 2 "
              "receivers"},
         })
        EXPECT_EQ(seisImagerReading(text).failure, failure) << text;
}

TEST(FieldSeisImager, WholeTimesAndFlagsOf0AreNoShots)
{
    EXPECT_EQ(described(seisImagerReading("x\n0 1\n1 2 0\n5 12 0\n6 13 0\n").picks),
              "1,0: 5,0=0.012 6,0=0.013; ");
    EXPECT_EQ(described(seisImagerReading("x\n0 1\n1 2 0\n5 12.5 0\n6 13 0\n").picks),
              "1,0: 5,0=0.0125 6,0=0.013; ");
    EXPECT_EQ(described(seisImagerReading("x\n0 1\n0 2 0\n5 12.5\n0 0\n").picks),
              "0,0: 5,0=0.0125 0,0=0; ");
}

TEST(FieldSeisImager, ASecondSurveyIsRefusedAtItsFirstLine)
{
    EXPECT_EQ(seisImagerReading(std::string(seisImagerSurvey) + seisImagerSurvey).failure,
              "14: another survey begins here: put it into a file of its own");
    EXPECT_EQ(seisImagerReading(std::string(seisImagerSurvey) + "again" + (seisImagerSurvey + 15))
                  .failure,
              "14: another survey begins here: put it into a file of its own");
    EXPECT_EQ(seisImagerReading(std::string(seisImagerSurvey) + "again\n").failure,
              "14: line 2 says 2 shots, but this line comes after the last one");
}

TEST(FieldSeisImager, WritesAsPickersDo)
{
    PickReading reading = seisImagerReading(seisImagerSurvey);
    Remarks remarks;
    EXPECT_EQ(written(writeSeisImagerPicks, reading.picks, &remarks), "1996 0 3.0\n"
                                                                      "0 2 5\n"
                                                                      "-2.5 3 0\n"
                                                                      "0 12.5 1\n"
                                                                      "5 25 1\n"
                                                                      "10 31.25 1\n"
                                                                      "12.5 3 0\n"
                                                                      "0 33 1\n"
                                                                      "5 26.5 1\n"
                                                                      "10 12.25 1\n"
                                                                      "0 0\n"
                                                                      " 0\n"
                                                                      " 0 0\n");
    EXPECT_EQ(remarks, Remarks{});
}

TEST(FieldSeisImager, WritesTheSpacingOfMapCoordinates)
{
    // 512345.69 - 512345.68 is 0.010000000009313226 in doubles.
    PickSurvey picks;
    addShot(picks, {512345.5, 0.0, ""}, {"line", 1},
            {{{512345.68, 0.0}, 0.01, 2}, {{512345.69, 0.0}, 0.02, 3}});
    EXPECT_EQ(written(writeSeisImagerPicks, picks), "1996 0 3.0\n"
                                                    "0 1 0.01\n"
                                                    "512345.5 2 0\n"
                                                    "512345.68 10 1\n"
                                                    "512345.69 20 1\n"
                                                    "0 0\n"
                                                    " 0\n"
                                                    " 0 0\n");
}

TEST(FieldSeisImager, WhatIsLeftOutIsRemarkedOn)
{
    PickReading reading = seisImagerReading(seisImagerSurvey);
    reading.picks.survey.shots[1].elevation = 1.0;
    reading.picks.errors[0] = {0.001, 0.001, 0.001};
    Remarks remarks;
    written(writeSeisImagerPicks, reading.picks, &remarks);
    EXPECT_EQ(remarks,
              (Remarks{"7: the output has no room for elevations: they are left out",
                       "3: the output has no room for the picks' errors: they are left out"}));
    reading = seisImagerReading(seisImagerSurvey);
    reading.picks.survey.spreads[0][2].elevation = -0.5;
    written(writeSeisImagerPicks, reading.picks, &(remarks = {}));
    EXPECT_EQ(remarks, Remarks{"3: the output has no room for elevations: they are left out"});
}

TEST(FieldSeisImager, AnOutputThatCannotBeWrittenIsAFailure)
{
    Report report;
    EXPECT_FALSE(writeSeisImagerPicks("/no/such/folder/line.vs", {}, report));
    EXPECT_EQ(report.failure, (Failure{{"/no/such/folder/line.vs"}, systemText(ENOENT)}));
    Report full;
    EXPECT_FALSE(writeSeisImagerPicks("/dev/full", {}, full));
    EXPECT_EQ(full.failure, (Failure{{"/dev/full"}, systemText(ENOSPC)}));
}
