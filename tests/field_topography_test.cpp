// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "field/topography.h"

#include "field/shot_list.h"
#include "tests/support/field_picks.h"

#include "traveltime/text.h"

#include <gtest/gtest.h>

namespace {

/// Two shots whose layouts differ in the elevation of one receiver.
PickSurvey picksOfTwoShots()
{
    PickSurvey picks;
    addShot(picks, {0.0, 1.0, ""}, {"line", 1}, {{{2.0, 7.0}, 0.01, 2}, {{8.0, 7.0}, 0.02, 3}});
    addShot(picks, {10.0, 1.0, ""}, {"line", 4},
            {{{2.0, 7.0}, 0.03, 5}, {{6.0, 7.0}, -1.0, 6}, {{8.0, 9.0}, 0.04, 7}});
    return picks;
}

/// Gives the two shots the elevations of a topography.
PickReading raised(const std::string &topography)
{
    const TemporaryFolder folder;
    PickReading reading{picksOfTwoShots()};
    Report report;
    applyTopography(folder.write("topography", topography), reading.picks, report);
    addReport(reading, report);
    return reading;
}

/// What a list of shots says, in a few words, with its remarks or its failure after it.
std::string listed(const std::string &text)
{
    const TemporaryFolder folder;
    const std::string path = folder.write("shots", text);
    std::vector<ShotPosition> positions;
    Report report;
    readShotList(path, positions, report);
    std::string words;
    for (const ShotPosition &position : positions) {
        const bool isInFolder = position.file.starts_with(folder.path(""));
        words += (isInFolder ? "+" + position.file.substr(folder.path("").size()) : position.file)
                 + '=' + fixedNumber(position.x) + ',' + fixedNumber(position.elevation) + ' ';
    }
    for (const Remark &remark : report.remarks)
        words += told(remark.place, remark.text);
    return report.failure ? told(report.failure->place, report.failure->text) : words;
}

} // namespace

TEST(Topography, ElevationsLieOnTheLinesBetweenItsPoints)
{
    const PickReading reading = raised("0;100\n4;102\n10;99\n");
    EXPECT_EQ(reading.failure, "");
    EXPECT_EQ(reading.remarks, Remarks{});
    EXPECT_EQ(described(reading.picks),
              "0,100: 2,101=0.01 8,100=0.02; 10,99: 2,101=0.03 8,100=0.04; ");
    EXPECT_EQ(reading.picks.survey.traveltimes[0].shotElevation, 100.0);
    EXPECT_EQ(reading.picks.survey.traveltimes[1].shotElevation, 99.0);
    EXPECT_EQ(reading.picks.notPicked[0].receiver.elevation, 101.0);
}

TEST(Topography, LayoutsThatBecomeEqualAreShared)
{
    EXPECT_EQ(picksOfTwoShots().survey.spreads.size(), 2U);
    PickReading reading = raised("0;100\n10;99\n");
    const TraveltimeSurvey &survey = reading.picks.survey;
    EXPECT_EQ(survey.spreads.size(), 1U);
    EXPECT_EQ(survey.traveltimes[1].spreadIndex, 0U);
    // A shot that comes later shares it, too.
    const Spread layout = survey.spreads[0];
    addShot(reading.picks, {20.0, 1.0, ""}, {"line", 9},
            {{layout[0], 0.01, 10}, {layout[1], 0.02, 11}});
    EXPECT_EQ(survey.spreads.size(), 1U);
}

TEST(Topography, RowsMayBeInAnyOrderAndShape)
{
    const std::string expected = "0,100: 2,101=0.01 8,100=0.02; 10,99: 2,101=0.03 8,100=0.04; ";
    for (const char *text :
         {"10;99\n0;100\n4;102\n", "# line 7\n 0 100\n4\t102\n\n10  99 \n", "0,100\n4,102\n10,99",
          "0, 100\r\n4, 102\r\n10, 99\r\n", "0;100\n4;102\n4;102\n10;99\n",
          "\xEF\xBB\xBF"
          "0;100\r4;102\r10;99"})
        EXPECT_EQ(described(raised(text).picks), expected) << text;
    const PickReading withHeading = raised("x;elevation\n0;100\n4;102\n10;99\n");
    EXPECT_EQ(described(withHeading.picks), expected);
    EXPECT_EQ(withHeading.remarks, Remarks{"1: a heading, \"x;elevation\": not read"});
    const PickReading withCommas = raised("0,0 100,0\n4,0 102,0\n10,0 99,0\n");
    EXPECT_EQ(described(withCommas.picks), expected);
    EXPECT_EQ(withCommas.remarks,
              Remarks{"1: 6 numbers with a decimal comma, of which the first is \"0,0\""});
}

TEST(Topography, BeyondItsEndsTheEndsElevationIsRemarkedOn)
{
    const PickReading reading = raised("3;100\n7;104\n");
    EXPECT_EQ(described(reading.picks),
              "0,100: 2,100=0.01 8,104=0.02; 10,104: 2,100=0.03 8,104=0.04; ");
    EXPECT_EQ(reading.remarks, Remarks{"x 0 is before the first point, 3: it gets that point's "
                                       "elevation"});
    EXPECT_EQ(raised("0;100\n4;104\n").remarks,
              Remarks{"x 10 is after the last point, 4: it gets that point's elevation"});
    EXPECT_EQ(described(raised("5;100\n").picks),
              "0,100: 2,100=0.01 8,100=0.02; 10,100: 2,100=0.03 8,100=0.04; ");
    EXPECT_EQ(raised("0;100\n10;104\n").remarks, Remarks{});
}

TEST(Topography, WhatCannotBeUnderstoodIsRefused)
{
    struct Case
    {
        const char *text;
        const char *failure;
    };
    for (const auto &[text, failure] : {
             Case{"0;100;1\n", "1: 3 fields: x and elevation expected"},
             {"0;100\n4\n", "2: 1 field: x and elevation expected"},
             {"0;100\nwest;4\n", "2: \"west\" is no number: x expected"},
             {"0;100\n4;high\n", "2: \"high\" is no number: the elevation expected"},
             {"0;100\n4;\n", "2: the elevation is missing"},
             {"0;100\n0;101\n", "2: the elevation at x = 0 is 101 here, but 100 above"},
             {"# nothing\n", "1: there are no rows of x and elevation"},
             {"0,5,100,2\n", "1: 4 fields: x and elevation expected"},
         })
        EXPECT_EQ(raised(text).failure, failure) << text;
    PickSurvey picks;
    Report report;
    EXPECT_FALSE(applyTopography("/no/such/file", picks, report));
    EXPECT_EQ(report.failure, (Failure{{"/no/such/file"}, systemText(ENOENT)}));
}

TEST(ShotList, NamesCountFromItsFolder)
{
    EXPECT_EQ(listed("shot1.txt;-5;212.15\n # a comment\n\n a b.txt ; 27.5 ; 213\r\n/tmp/x;1;2\n"),
              "+shot1.txt=-5.000000,212.150000 +a b.txt=27.500000,213.000000 "
              "/tmp/x=1.000000,2.000000 ");
    EXPECT_EQ(listed("s.txt;-5,5;212,15\n"),
              "+s.txt=-5.500000,212.150000 1: 2 numbers with a decimal comma, of which the first "
              "is \"-5,5\"");
}

TEST(ShotList, WhatCannotBeUnderstoodIsRefused)
{
    struct Case
    {
        const char *text;
        const char *failure;
    };
    for (const auto &[text, failure] : {
             Case{"s.txt;1\n", "1: \"s.txt;1\" where \"file;x;elevation\" is expected"},
             {"s.txt;1;2;3\n", "1: \"s.txt;1;2;3\" where \"file;x;elevation\" is expected"},
             {"s.txt 1 2\n", "1: \"s.txt 1 2\" where \"file;x;elevation\" is expected"},
             {";1;2\n", "1: \";1;2\" where \"file;x;elevation\" is expected"},
             {"s.txt;west;2\n", "1: \"west\" is no number: the shot's x expected"},
             {"s.txt;1;\n", "1: the shot's elevation is missing"},
             {"s.txt;1;2\nt.txt;3;4\ns.txt;1;2\n", "3: \"s.txt\" is listed in line 1 already"},
             {"s.txt;1;2\n./s.txt;3;4\n", "2: \"./s.txt\" is listed in line 1 already"},
             {"# nothing\n", "1: no shot is listed"},
         })
        EXPECT_EQ(listed(text), failure) << text;
}
