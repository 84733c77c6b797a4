// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "field/csv_picks.h"

#include "tests/support/field_picks.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

const char heading[] = "shot_x,shot_elevation,receiver_x,receiver_elevation,time\r\n";
const std::string csvSurvey = heading
                              + std::string("-2.5,100,0,100.5,0.0021\r\n"
                                            "-2.5,100,5,101.5,0.0105\r\n"
                                            "12.5,101,0,100.5,0.0152\r\n"
                                            "12.5,101,5,101.5,0.0081\r\n");

const char csvDescription[] = "-2.5,100: 0,100.5=0.0021 5,101.5=0.0105; "
                              "12.5,101: 0,100.5=0.0152 5,101.5=0.0081; ";

PickReading csvReading(const std::string &text)
{
    return readPicks(readCsvPicks, text);
}

} // namespace

TEST(FieldCsv, ReadsASurvey)
{
    const PickReading reading = csvReading(csvSurvey);
    EXPECT_EQ(reading.failure, "");
    EXPECT_EQ(reading.remarks, Remarks{});
    EXPECT_EQ(described(reading.picks), csvDescription);
    EXPECT_EQ(linesOf(reading.picks), "2: 2 3; 4: 4 5; ");
    EXPECT_EQ(reading.picks.survey.spreads.size(), 1U);
}

TEST(FieldCsv, WritesTheFileThatItWasReadFrom)
{
    Remarks remarks;
    EXPECT_EQ(written(writeCsvPicks, csvReading(csvSurvey).picks, &remarks), csvSurvey);
    EXPECT_EQ(remarks, Remarks{});
}

TEST(FieldCsv, ColumnsAreFoundByTheirNames)
{
    EXPECT_EQ(described(csvReading("station,TIME,Receiver_X,receiver_elevation,note,shot_x , "
                                   "shot_elevation\n"
                                   "1,0.0021,0,100.5,,-2.5,100\n"
                                   "2,0.0105,5,101.5,\"clear, strong\",-2.5,100\n"
                                   "1,0.0152,0,100.5,\"a \"\"break\"\"\",12.5,101\n"
                                   "2,0.0081,5,101.5,x,12.5,101\n")
                            .picks),
              csvDescription);
}

TEST(FieldCsv, QuotedFieldsMayHaveAnythingInThem)
{
    const PickReading reading =
        csvReading("\"shot_x\",shot_elevation,receiver_x,receiver_elevation,"
                   "\"note\ntime\",time\n"
                   "-2.5,100,0,100.5,\"one\n# two\n\nthree\",0.0021\n"
                   "\"-2.5\",100,5,101.5,\"\"\"\",0.0105\n"
                   "12.5,101,0,100.5,\"\",0.0152\n"
                   "12.5,101,\" 5 \",101.5,\",\",\"0.0081\"\n");
    EXPECT_EQ(reading.failure, "");
    EXPECT_EQ(described(reading.picks), csvDescription);
    EXPECT_EQ(linesOf(reading.picks), "3: 3 7; 8: 8 9; ");
}

TEST(FieldCsv, SemicolonsOrTabsMaySeparateTheFields)
{
    for (const char delimiter : {';', '\t'}) {
        std::string text = csvSurvey;
        for (char &character : text)
            character = character == ',' ? delimiter : character == '.' ? ',' : character;
        const PickReading reading = csvReading(text);
        EXPECT_EQ(described(reading.picks), csvDescription);
        EXPECT_EQ(reading.remarks,
                  Remarks{"2: 12 numbers with a decimal comma, of which the first is \"-2,5\""});
    }
}

TEST(FieldCsv, ErrorsArePassedOn)
{
    const std::string text = "shot_x,shot_elevation,receiver_x,receiver_elevation,time,err\r\n"
                             "-2.5,100,0,100.5,0.0021,0.0001\r\n"
                             "-2.5,100,5,101.5,0.0105,\r\n"
                             "12.5,101,0,100.5,0.0152,\r\n";
    const PickReading reading = csvReading(text);
    EXPECT_EQ(described(reading.picks), "-2.5,100: 0,100.5=0.0021+-0.0001 5,101.5=0.0105+-nan; "
                                        "12.5,101: 0,100.5=0.0152; ");
    EXPECT_EQ(written(writeCsvPicks, reading.picks), text);
}

TEST(FieldCsv, RowsOfAShotMayStandAnywhere)
{
    EXPECT_EQ(
        described(csvReading(heading
                             + std::string("-2.5,100,0,100.5,0.0021\n12.5,101,0,100.5,0.0152\n"
                                           "# the second geophone\n\n"
                                           "-2.5,100,5,101.5,0.0105\n12.5,101,5,101.5,0.0081\n"))
                      .picks),
        csvDescription);
}

TEST(FieldCsv, OneMoreRowOfAReceiverBeginsAnotherShot)
{
    EXPECT_EQ(
        described(
            csvReading(heading + std::string("-2.5,100,0,100.5,0.0021\n-2.5,100,0,100.5,0.0022\n"))
                .picks),
        "-2.5,100: 0,100.5=0.0021; -2.5,100: 0,100.5=0.0022; ");
}

TEST(FieldCsv, ReceiversThatWereNotPickedAreLeftOut)
{
    const std::string notPicked = ": not picked, so the receiver is left out of this shot";
    const PickReading reading = csvReading(heading
                                           + std::string("-2.5,100,0,100.5,0.0021\n-2.5,100,1,1,\n"
                                                         "-2.5,100,2,1,-1\n-2.5,100,3,1,nan\n"
                                                         "-2.5,100,5,101.5,0.0105\n"));
    EXPECT_EQ(described(reading.picks), "-2.5,100: 0,100.5=0.0021 5,101.5=0.0105; ");
    EXPECT_EQ(reading.remarks, (Remarks{"3: no time" + notPicked, "4: a time of \"-1\"" + notPicked,
                                        "5: a time of \"nan\"" + notPicked}));
}

TEST(FieldCsv, WhatCannotBeUnderstoodIsRefused)
{
    const std::string start = heading;
    struct Case
    {
        std::string text;
        const char *failure;
    };
    for (const auto &[text, failure] : {
             Case{"# nothing\n", "1: the file ends where its heading is expected"},
             {"shot_x,receiver_x,receiver_elevation,time\n",
              "1: the heading has no column \"shot_elevation\""},
             {"shot_x,shot_elevation,receiver_x,receiver_elevation,t\n",
              "1: the heading has no column \"time\""},
             {"shot_x,shot_elevation,receiver_x,receiver_elevation,time,Time\n",
              "1: two columns \"time\""},
             {start + "1,2,3,4\n", "2: 4 fields, but the heading has 5"},
             {start + "1,2,3,4,0,005\n", "2: 6 fields, but the heading has 5"},
             {start + "a,2,3,4,5\n", "2: \"a\" is no number: the shot's x expected"},
             {start + "1,,3,4,5\n", "2: the shot's elevation is missing"},
             {start + "1,2,x,4,5\n", "2: \"x\" is no number: the receiver's x expected"},
             {start + "1,2,3,z,5\n", "2: \"z\" is no number: the receiver's elevation expected"},
             {start + "1,2,3,4,soon\n", "2: \"soon\" is no number: a time expected"},
             {start + "1,2,3,4,\"5\n6\n", "2: a quotation mark that is not closed"},
             {"shot_x,shot_elevation,receiver_x,receiver_elevation,time,err\n1,2,3,4,5,some\n",
              "2: \"some\" is no number: err expected"},
         })
        EXPECT_EQ(csvReading(text).failure, failure) << text;
}

TEST(FieldCsv, AFileWithoutRowsHasNoShots)
{
    const PickReading reading = csvReading(heading);
    EXPECT_EQ(reading.failure, "");
    EXPECT_EQ(described(reading.picks), "");
    EXPECT_EQ(reading.remarks, Remarks{"1: there are no shots in this file"});
}

TEST(FieldCsv, WhatBecomesOneShotIsRemarkedOn)
{
    PickSurvey picks = csvReading(csvSurvey).picks;
    addShot(picks, {-2.5, 100.0, ""}, {"line", 20}, {{{5.0, 101.5}, 0.01, 21}});
    Remarks remarks;
    written(writeCsvPicks, picks, &remarks);
    EXPECT_EQ(remarks,
              Remarks{"20: this shot stands where shot 1 does: the output has them as one"});
}
