// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "field/sgt_picks.h"

#include "tests/support/field_picks.h"

#include <gtest/gtest.h>

namespace {

const char sgtSurvey[] = "4 # shot/geophone points\n" // 1
                         "#x y\n"                     // 2
                         "-2.50 100\n"                // 3
                         "0.00 100.5\n"               // 4
                         "5.00 101.5\n"               // 5
                         "12.5 101\n"                 // 6
                         "4 # measurements\n"         // 7
                         "#s g t\n"                   // 8
                         "1 2 0.0021\n"               // 9
                         "1 3 0.0105\n"               // 10
                         "4 2 0.0152\n"               // 11
                         "4 3 0.0081\n";              // 12

const char sgtDescription[] = "-2.5,100: 0,100.5=0.0021 5,101.5=0.0105; "
                              "12.5,101: 0,100.5=0.0152 5,101.5=0.0081; ";

PickReading sgtReading(const std::string &text)
{
    return readPicks(readSgtPicks, text);
}

/// The survey with texts in it replaced.
std::string sgtWith(const std::string &from, const std::string &to, std::string text = sgtSurvey)
{
    return replaced(std::move(text), from, to);
}

} // namespace

TEST(FieldSgt, ReadsASurvey)
{
    const PickReading reading = sgtReading(sgtSurvey);
    EXPECT_EQ(reading.failure, "");
    EXPECT_EQ(reading.remarks, Remarks{});
    EXPECT_EQ(described(reading.picks), sgtDescription);
    EXPECT_EQ(linesOf(reading.picks), "9: 9 10; 11: 11 12; ");
    EXPECT_EQ(reading.picks.survey.spreads.size(), 1U);
}

TEST(FieldSgt, ColumnsMayHaveOtherNamesAndUnits)
{
    for (const std::string &text : {
             sgtWith("#x y", "#x z"),
             sgtWith("#x y", "# X\tY "),
             sgtWith("#x y", "#x/m y/m"),
             sgtWith("#x y", "# positions along the line\n\n#x y\n# in metres"),
             sgtWith("#s g t", "#s g t/s"),
             sgtWith("#s g t\n1 2 0.0021\n1 3 0.0105\n4 2 0.0152\n4 3 0.0081\n",
                     "#t/ms S G\n2.1 1 2\n10.5 1 3\n15.2 4 2\n8.1 4 3\n"),
             sgtWith("#s g t\n1 2 0.0021\n1 3 0.0105\n4 2 0.0152\n4 3 0.0081\n",
                     "#s g t/us\n1 2 2100\n1 3 10500\n4 2 15200\n4 3 8100\n"),
             sgtWith("#x y\n-2.50 100\n0.00 100.5\n5.00 101.5\n12.5 101\n",
                     "#x/mm y/cm\n-2500 10000\n0 10050\n5e3 10150\n12500 10100\n"),
             sgtWith("#x y\n-2.50 100\n0.00 100.5\n5.00 101.5\n12.5 101\n",
                     "#x/km y/dm\n-0.0025 1000\n0 1005\n0.005 1015\n0.0125 1010\n"),
             sgtWith("#x y\n-2.50 100\n0.00 100.5\n5.00 101.5\n12.5 101\n",
                     "#x y z\n-2.5 0 100\n0 0 100.5\n5 0 101.5\n12.5 0 101\n"),
             sgtWith("1 2 0.0021\n", "\t1   2\t0.0021 # clear\n\n"),
         }) {
        const PickReading reading = sgtReading(text);
        EXPECT_EQ(reading.failure, "") << text;
        EXPECT_EQ(reading.remarks, Remarks{}) << text;
        EXPECT_EQ(described(reading.picks), sgtDescription) << text;
    }
}

TEST(FieldSgt, ErrorsAreInSecondsOrPercent)
{
    const std::string rows = "1 2 0.002 0.0001\n1 3 0.01 nan\n4 2 0.02 0\n4 3 0.008 0.0004\n";
    const std::string before = "#s g t\n1 2 0.0021\n1 3 0.0105\n4 2 0.0152\n4 3 0.0081\n";
    EXPECT_EQ(described(sgtReading(sgtWith(before, "#s g t err\n" + rows)).picks),
              "-2.5,100: 0,100.5=0.002+-0.0001 5,101.5=0.01+-nan; "
              "12.5,101: 0,100.5=0.02+-0 5,101.5=0.008+-0.0004; ");
    EXPECT_EQ(
        described(sgtReading(sgtWith(before, "#s g t err/ms\n1 2 0.002 0.1\n1 3 0.01 nan\n4 2 0.02 "
                                             "0\n4 3 0.008 0.4\n"))
                      .picks),
        "-2.5,100: 0,100.5=0.002+-0.0001 5,101.5=0.01+-nan; "
        "12.5,101: 0,100.5=0.02+-0 5,101.5=0.008+-0.0004; ");
    EXPECT_EQ(described(sgtReading(sgtWith(before,
                                           "#s g err/% t\n1 2 5 0.002\n1 3 nan 0.01\n4 2 0 0.02\n4 "
                                           "3 2.5 0.008\n"))
                            .picks),
              "-2.5,100: 0,100.5=0.002+-0.0001 5,101.5=0.01+-nan; "
              "12.5,101: 0,100.5=0.02+-0 5,101.5=0.008+-0.0002; ");
}

TEST(FieldSgt, MeasurementsOfAShotMayStandAnywhere)
{
    const PickReading reading =
        sgtReading(sgtWith("1 2 0.0021\n1 3 0.0105\n4 2 0.0152\n4 3 0.0081\n",
                           "1 2 0.0021\n4 2 0.0152\n1 3 0.0105\n4 3 0.0081\n"));
    EXPECT_EQ(described(reading.picks), sgtDescription);
    EXPECT_EQ(linesOf(reading.picks), "9: 9 11; 10: 10 12; ");
}

TEST(FieldSgt, OneMoreMeasurementOfAReceiverBeginsAnotherShot)
{
    const PickReading reading =
        sgtReading(sgtWith("4 2 0.0152\n4 3 0.0081", "1 2 0.0022\n1 3 0.0106"));
    EXPECT_EQ(described(reading.picks), "-2.5,100: 0,100.5=0.0021 5,101.5=0.0105; "
                                        "-2.5,100: 0,100.5=0.0022 5,101.5=0.0106; ");
    EXPECT_EQ(reading.remarks, Remarks{"1: 1 point that no measurement names: not read"});
}

TEST(FieldSgt, WhatIsNotReadIsRemarkedOn)
{
    const std::string measurements = "#s g t\n1 2 0.0021\n1 3 0.0105\n4 2 0.0152\n4 3 0.0081\n";
    EXPECT_EQ(sgtReading(sgtWith(measurements,
                                 "#s g t valid\n1 2 0.0021 1\n1 3 0.0105 1\n4 2 0.0152 1\n4 3 "
                                 "0.0081 0\n"))
                  .remarks,
              Remarks{"7: the column \"valid\" is not read"});
    EXPECT_EQ(sgtReading(sgtSurvey + std::string("2\n#x y\n-3 99\n20 102\n")).remarks,
              Remarks{"13: 2 topography points: not read, as shots and receivers have elevations "
                      "of their own"});
    EXPECT_EQ(sgtReading(sgtSurvey + std::string("0\n")).remarks, Remarks{});
    EXPECT_EQ(sgtReading(sgtWith("#x y\n-2.50 100\n0.00 100.5\n5.00 101.5\n12.5 101\n",
                                 "#x y z\n-2.5 7 100\n0 7 100.5\n5 7 101.5\n12.5 7 101\n"))
                  .remarks,
              Remarks{"1: y is 7 everywhere and left out"});
    const PickReading alongY =
        sgtReading(sgtWith("#x y\n-2.50 100\n0.00 100.5\n5.00 101.5\n12.5 101\n",
                           "#x y z\n3 -2.5 100\n3 0 100.5\n3 5 101.5\n3 12.5 101\n"));
    EXPECT_EQ(alongY.remarks, Remarks{"1: x is 3 everywhere and left out: y is taken as the "
                                      "position along the line"});
    EXPECT_EQ(described(alongY.picks), sgtDescription);
    const PickReading notPicked = sgtReading(sgtWith("0.0105", "-1"));
    EXPECT_EQ(
        notPicked.remarks,
        Remarks{"10: a time of \"-1\": not picked, so the receiver is left out of this shot"});
    EXPECT_EQ(described(notPicked.picks),
              "-2.5,100: 0,100.5=0.0021; 12.5,101: 0,100.5=0.0152 5,101.5=0.0081; ");
}

TEST(FieldSgt, WhatCannotBeUnderstoodIsRefused)
{
    struct Case
    {
        std::string text;
        const char *failure;
    };
    for (
        const auto &[text, failure] : {
            Case{sgtWith("4 #", "four #"),
                 "1: \"four\" is no number: the number of points expected"},
            {sgtWith("4 #", "4 5 #"), "1: \"4 5\" where the number of points is expected"},
            {sgtWith("#x y\n", ""),
             "1: no comment after this count names the columns: \"#x y\", for example"},
            {sgtWith("#x y\n", "#x y name\n"),
             "1: no comment after this count names the columns: \"#x y\", for example"},
            {sgtWith("#x y\n", "#x\n"), "1: the columns are x and y, x and z or x, y and z, not x"},
            {sgtWith("#x y\n", "#x/ft y\n"), "2: the unit of \"x/ft\" is not known: m, km, dm, cm, "
                                             "mm, s, ms, us, ns and err/% are"},
            {sgtWith("#x y\n", "#x/s y\n"),
             "2: the unit of \"x/s\" is not known: m, km, dm, cm, mm, s, ms, us, ns and err/% are"},
            {sgtWith("0.00 100.5", "0.00"), "4: 1 field: x y of point 2 of 4 expected"},
            {sgtWith("0.00 100.5", "0 0 100.5"), "4: 3 fields: x y of point 2 of 4 expected"},
            {sgtWith("0.00 100.5", "here 100.5"), "4: \"here\" is no number: x expected"},
            {sgtWith("0.00 100.5", "0 high"), "4: \"high\" is no number: the elevation expected"},
            {sgtWith("#s g t\n", "#s t\n"),
             "7: no comment after this count names the columns: \"#s g t\", for example"},
            {sgtWith("#s g t", "#s g t/h"),
             "8: the unit of \"t/h\" is not known: m, km, dm, cm, mm, s, ms, us, ns and err/% are"},
            {sgtWith("#s g t", "#s g t/%"),
             "8: the unit of \"t/%\" is not known: m, km, dm, cm, mm, s, ms, us, ns and err/% are"},
            {sgtWith("1 3 0.0105", "5 3 0.0105"), "10: s is 5, but the points are 1 to 4"},
            {sgtWith("1 3 0.0105", "1 0 0.0105"), "10: g is 0, but the points are 1 to 4"},
            {sgtWith("1 3 0.0105", "1 2.5 0.0105"),
             "10: \"2.5\" is no whole number from 0 on: g expected"},
            {sgtWith("1 3 0.0105", "1 3"), "10: 2 fields: s g t of measurement 2 of 4 expected"},
            {sgtWith("1 3 0.0105", "1 3 soon"), "10: \"soon\" is no number: a time expected"},
            {sgtWith("#x y\n-2.50 100\n0.00 100.5\n5.00 101.5\n12.5 101\n",
                     "#x y z\n-2.5 7 100\n0 7 100.5\n5 7.5 101.5\n12.5 8 101\n"),
             "5: y is 7.5 here and 7 in line 3, and x differs, too: only points of a line along x "
             "or along y are read"},
        })
        EXPECT_EQ(sgtReading(text).failure, failure) << text;
}

TEST(FieldSgt, CountsThatDoNotFitAreRefused)
{
    struct Case
    {
        std::string text;
        const char *failure;
    };
    for (const auto &[text, failure] : {
             Case{sgtWith("4 # shot", "5 # shot"), "7: 1 field: x y of point 5 of 5 expected"},
             {sgtWith("4 # shot", "3 # shot"),
              "6: \"12.5 101\" where the number of measurements is expected"},
             {sgtWith("4 # meas", "5 # meas"), "12: the file ends after 4 of 5 measurements"},
             {sgtWith("4 # meas", "3 # meas"),
              "12: line 7 says 3 measurements, but this line comes after the last one"},
             {sgtSurvey + std::string("2\n#x y\n-3 99\n"),
              "15: the file ends after 1 of 2 topography points"},
             {sgtSurvey + std::string("1\n#x y\n-3 99\n1 2\n"),
              "16: line 13 says 1 topography point, but this line comes after the last one"},
             {sgtSurvey + std::string("1\n#x y\n-3 low\n"),
              "15: \"low\" is no number: a topography point expected"},
             {"4 # points\n#x y\n-2.5 100\n", "3: the file ends after 1 of 4 points"},
             {"1 # points\n#x y\n-2.5 100\n",
              "3: the file ends where the number of measurements is expected"},
             {"# nothing\n", "1: the file ends where the number of points is expected"},
         })
        EXPECT_EQ(sgtReading(text).failure, failure) << text;
}

TEST(FieldSgt, WritesPositionsInAscendingXEachOnce)
{
    Remarks remarks;
    const PickSurvey picks =
        sgtReading(sgtWith("-2.50 100\n0.00 100.5", "20 100\n0.00 100.5")).picks;
    EXPECT_EQ(written(writeSgtPicks, picks, &remarks), "4 # shot/geophone points\n#x y\n"
                                                       "0 100.5\n5 101.5\n12.5 101\n20 100\n"
                                                       "4 # measurements\n#s g t\n"
                                                       "4 1 0.0021\n4 2 0.0105\n"
                                                       "3 1 0.0152\n3 2 0.0081\n");
    EXPECT_EQ(remarks, Remarks{});
}

TEST(FieldSgt, WritesErrorsWhenThereAreSome)
{
    PickSurvey picks = sgtReading(sgtSurvey).picks;
    picks.errors[0] = {0.0005, std::numeric_limits<double>::quiet_NaN()};
    const std::string text = written(writeSgtPicks, picks);
    EXPECT_EQ(text.substr(text.find("#s g t")), "#s g t err\n"
                                                "1 2 0.0021 0.0005\n1 3 0.0105 nan\n"
                                                "4 2 0.0152 nan\n4 3 0.0081 nan\n");
}

TEST(FieldSgt, WhatBecomesOneShotIsRemarkedOn)
{
    PickSurvey picks = sgtReading(sgtSurvey).picks;
    addShot(picks, {-2.5, 100.0, ""}, {"line", 20}, {{{5.0, 101.5}, 0.01, 21}});
    addShot(picks, {30.0, 100.0, ""}, {"line", 22}, {});
    addShot(picks, {40.0, 100.0, ""}, {"line", 23},
            {{{5.0, 101.5}, 0.01, 24}, {{5.0, 101.5}, 0.011, 25}});
    Remarks remarks;
    written(writeSgtPicks, picks, &remarks);
    EXPECT_EQ(remarks,
              (Remarks{"20: this shot stands where shot 1 does: the output has them as one",
                       "22: the output has no room for a shot without picks: it is left out",
                       "23: a receiver twice in this shot: in the output these are two shots"}));
}
