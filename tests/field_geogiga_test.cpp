// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "field/geogiga_picks.h"

#include "tests/support/field_picks.h"

#include <gtest/gtest.h>

namespace {

/// Two shots whose receivers stand at different places.
const char geogigaSurvey[] = "TX_CURVE\n"                                // 1
                             "VERSION: 1.0\n"                            // 2
                             "INFO: two shots\n"                         // 3
                             "INFO: of June: 2022\n"                     // 4
                             "ELEVATION: 100.5\n"                        // 5
                             "TOTAL_NUMBER_OF_SHOTS:2\n"                 // 6
                             "SEISMIC_DATA_FILE_NAME: C:\\line\\a.sg2\n" // 7
                             "SHOT_LOCATION: -2.5\n"                     // 8
                             "NUMBER_OF_RECEIVERS: 3\n"                  // 9
                             "No Position Time Channel\n"                // 10
                             "1 0 0.0021 1\n"                            // 11
                             "2 5 0.0105 1\n"                            // 12
                             "3 10 0.0187 1\n"                           // 13
                             "SEISMIC_DATA_FILE_NAME:\n"                 // 14
                             "SHOT_LOCATION: 12.5\n"                     // 15
                             "NUMBER_OF_RECEIVERS: 2\n"                  // 16
                             "No Position Time Channel\n"                // 17
                             "1 5 0.0081 1\n"                            // 18
                             "2 20 0.0024 1\n";                          // 19

const char geogigaDescription[] = "-2.5,100.5: 0,100.5=0.0021 5,100.5=0.0105 10,100.5=0.0187; "
                                  "12.5,100.5: 5,100.5=0.0081 20,100.5=0.0024; ";

PickReading geogigaReading(const std::string &text, const PickOptions &options = {})
{
    return readPicks(readGeogigaPicks, text, options);
}

/// The survey with a text in it replaced.
std::string geogigaWith(const std::string &from, const std::string &to)
{
    return replaced(geogigaSurvey, from, to);
}

} // namespace

TEST(FieldGeogiga, ReadsASurveyInWhichEachShotHasItsReceivers)
{
    const PickReading reading = geogigaReading(geogigaSurvey);
    EXPECT_EQ(reading.failure, "");
    EXPECT_EQ(reading.remarks, Remarks{});
    EXPECT_EQ(described(reading.picks), geogigaDescription);
    EXPECT_EQ(linesOf(reading.picks), "8: 11 12 13; 15: 18 19; ");
    EXPECT_EQ(reading.picks.survey.shots[0].name, "C:\\line\\a.sg2");
    EXPECT_EQ(reading.picks.survey.shots[1].name, "");
}

TEST(FieldGeogiga, KeywordsMayBeInAnyCaseWithBlanksAroundTheColon)
{
    const PickReading reading = geogigaReading(
        "tx_curve\nversion : 1\nElevation\t: \t100.5\n  total_number_of_shots :1\n"
        "Seismic_Data_File_Name : a b.sg2 \nShot_Location:-2.5\nNumber_of_Receivers\t:\t1\n"
        "heading\n1\t0\t0.0021\t1\n");
    EXPECT_EQ(reading.failure, "");
    EXPECT_EQ(described(reading.picks), "-2.5,100.5: 0,100.5=0.0021; ");
    EXPECT_EQ(reading.picks.survey.shots[0].name, "a b.sg2");
}

TEST(FieldGeogiga, TheLineOfHeadingsMayBeMissing)
{
    std::string text = geogigaWith("No Position Time Channel\n", "");
    EXPECT_EQ(described(geogigaReading(text).picks), geogigaDescription);
}

TEST(FieldGeogiga, TimesMayBeInMilliseconds)
{
    PickOptions options;
    options.timesIn = TimeUnit::milliseconds;
    std::string text = geogigaSurvey;
    for (const auto &[from, to] : {std::pair("0.0021", "2.1"),
                                   {"0.0105", "10.5"},
                                   {"0.0187", "18.7"},
                                   {"0.0081", "8.1"},
                                   {"0.0024", "2.4"}})
        text.replace(text.find(from), 6, to);
    EXPECT_EQ(described(geogigaReading(text, options).picks), geogigaDescription);
}

TEST(FieldGeogiga, ReceiversThatWereNotPickedAreLeftOut)
{
    const std::string notPicked = ": not picked, so the receiver is left out of this shot";
    for (const char *mark : {"-1", "nan", "*", "-0.001"}) {
        const PickReading reading = geogigaReading(geogigaWith("0.0105", mark));
        EXPECT_EQ(described(reading.picks), "-2.5,100.5: 0,100.5=0.0021 10,100.5=0.0187; "
                                            "12.5,100.5: 5,100.5=0.0081 20,100.5=0.0024; ");
        EXPECT_EQ(reading.remarks,
                  Remarks{"12: a time of \"" + std::string(mark) + "\"" + notPicked});
    }
}

TEST(FieldGeogiga, WhatHasNoShotsOrReceiversIsRemarkedOn)
{
    EXPECT_EQ(geogigaReading("TX_CURVE\nELEVATION:1\nTOTAL_NUMBER_OF_SHOTS: 0\n").remarks,
              Remarks{"3: there are no shots in this file"});
    const std::string shot = "SEISMIC_DATA_FILE_NAME:a\nSHOT_LOCATION:1\nNUMBER_OF_RECEIVERS:0\n";
    const std::string start = "TX_CURVE\nELEVATION:7\nTOTAL_NUMBER_OF_SHOTS:2\n";
    for (const char *heading : {"", "No Position Time Channel\n"}) {
        const PickReading reading = geogigaReading(start + shot + heading + shot + heading);
        EXPECT_EQ(reading.failure, "");
        EXPECT_EQ(described(reading.picks), "1,7:; 1,7:; ");
        EXPECT_EQ(reading.remarks.size(), 2U);
    }
    EXPECT_EQ(geogigaReading(start + shot + shot).remarks,
              (Remarks{"7: shot 1 has no receivers", "9: shot 2 has no receivers"}));
}

TEST(FieldGeogiga, ADecimalCommaIsRead)
{
    std::string text = geogigaSurvey;
    for (const auto &[from, to] : {std::pair("100.5", "100,5"),
                                   {"-2.5", "-2,5"},
                                   {"12.5", "12,5"},
                                   {"0.0021", "0,0021"},
                                   {"0.0105", "0,0105"},
                                   {"0.0187", "0,0187"},
                                   {"0.0081", "0,0081"},
                                   {"0.0024", "0,0024"}})
        text.replace(text.find(from), std::string(from).size(), to);
    const PickReading reading = geogigaReading(text);
    EXPECT_EQ(described(reading.picks), geogigaDescription);
    EXPECT_EQ(reading.remarks, Remarks{"5: 8 numbers with a decimal comma, of which the first is "
                                       "\"100,5\""});
    EXPECT_EQ(geogigaReading(geogigaWith("100.5", "100,5")).failure,
              "5: \"100,5\" has a comma and \"-2.5\" in line 8 a point: write a decimal point in "
              "every number");
}

TEST(FieldGeogiga, WhatCannotBeUnderstoodIsRefused)
{
    struct Case
    {
        std::string text;
        const char *failure;
    };
    for (const auto &[text, failure] : {
             Case{geogigaWith("TX_CURVE", "TX CURVE"),
                  "1: \"TX CURVE\" where TX_CURVE is expected"},
             {geogigaWith("ELEVATION", "HEIGHT"),
              "5: \"HEIGHT: 100.5\" where VERSION, INFO or ELEVATION is expected"},
             {geogigaWith("100.5", "high"), "5: \"high\" is no number: the elevation expected"},
             {geogigaWith("100.5", ""), "5: the elevation is missing"},
             {geogigaWith("TOTAL_NUMBER_OF_SHOTS:2\n", ""),
              "6: \"SEISMIC_DATA_FILE_NAME: C:\\line\\a.sg2\" where TOTAL_NUMBER_OF_SHOTS is "
              "expected"},
             {geogigaWith("SHOTS:2", "SHOTS:2.5"),
              "6: \"2.5\" is no whole number from 0 on: the number of shots expected"},
             {geogigaWith("SHOTS:2", "SHOTS:two"),
              "6: \"two\" is no number: the number of shots expected"},
             {geogigaWith("-2.5", "west"), "8: \"west\" is no number: the shot's x expected"},
             {geogigaWith("-2.5", "1 2"), "8: \"1 2\" is no number: the shot's x expected"},
             {geogigaWith("SHOT_LOCATION: -2.5\n", ""),
              "8: \"NUMBER_OF_RECEIVERS: 3\" where SHOT_LOCATION is expected"},
             {geogigaWith("NUMBER_OF_RECEIVERS: 3\n", ""),
              "9: \"No Position Time Channel\" where NUMBER_OF_RECEIVERS is expected"},
             {geogigaWith("RECEIVERS: 3", "RECEIVERS: -3"),
              "9: \"-3\" is no whole number from 0 on: the number of receivers expected"},
             {geogigaWith("2 5 0.0105 1", "2 5 0.0105"),
              "12: 3 fields: a receiver's number, its x, its time and its channel expected"},
             {geogigaWith("2 5 0.0105", "2 here 0.0105"),
              "12: \"here\" is no number: the receiver's x expected"},
             {geogigaWith("2 5 0.0105", "2 5 early"),
              "12: \"early\" is no number: a time expected"},
             {geogigaWith("2 5 0.0105", "b 5 0.0105"),
              "12: \"b\" is no number: the receiver's number expected"},
             {geogigaWith("0.0105 1", "0.0105 x"),
              "12: \"x\" is no number: the receiver's channel expected"},
             {"TX_CURVE\n", "1: the file ends, where ELEVATION is expected"},
             {"TX_CURVE\nELEVATION: 1\n",
              "2: the file ends, where TOTAL_NUMBER_OF_SHOTS is expected"},
         })
        EXPECT_EQ(geogigaReading(text).failure, failure) << text;
}

TEST(FieldGeogiga, CountsThatDoNotFitAreRefused)
{
    struct Case
    {
        std::string text;
        const char *failure;
    };
    for (const auto &[text, failure] : {
             Case{geogigaWith("RECEIVERS: 3", "RECEIVERS: 4"),
                  "14: \"SEISMIC_DATA_FILE_NAME:\" where row 4 of the 4 receivers of line 9 is "
                  "expected"},
             {geogigaWith("RECEIVERS: 3", "RECEIVERS: 2"),
              "13: line 9 says 2 receivers, but this line looks like another one"},
             {geogigaWith("RECEIVERS: 2", "RECEIVERS: 3"),
              "19: the file ends after 1 of 2 shots, where row 3 of the 3 receivers of line 16 is "
              "expected"},
             {geogigaWith("RECEIVERS: 2", "RECEIVERS: 1"),
              "19: line 16 says 1 receiver, but this line looks like another one"},
             {geogigaSurvey + std::string("the end\n"),
              "20: line 6 says 2 shots, but this line comes after the last one"},
             {geogigaWith("SHOTS:2", "SHOTS:3"),
              "19: the file ends after 2 of 3 shots, where SEISMIC_DATA_FILE_NAME is expected"},
             {geogigaWith("SHOTS:2", "SHOTS:1"),
              "14: line 6 says 1 shot, but this line comes after the last one"},
             {std::string(geogigaSurvey) + geogigaSurvey,
              "20: another survey begins here: put it into a file of its own"},
         })
        EXPECT_EQ(geogigaReading(text).failure, failure) << text;
}
