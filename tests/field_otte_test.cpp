// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "field/otte_picks.h"

#include "tests/support/field_picks.h"
#include "traveltime/otte_writer.h"

#include <gtest/gtest.h>

namespace {

const char otteSurvey[] = "otte\n"               // 1
                          "1.0\n"                // 2
                          "2\n"                  // 3
                          "2\n"                  // 4
                          "0;5;10;\n"            // 5
                          "100.5;101.5;102.5;\n" // 6
                          "20;\n"                // 7
                          "103;\n"               // 8
                          "-2.5;12.5;\n"         // 9
                          "100;101;\n"           // 10
                          "0\n"                  // 11
                          "0\n"                  // 12
                          "2.1;10.5;18.7;\n"     // 13
                          "1\n"                  // 14
                          "1\n"                  // 15
                          "8.1;\n";              // 16

const char otteDescription[] = "-2.5,100: 0,100.5=0.0021 5,101.5=0.0105 10,102.5=0.0187; "
                               "12.5,101: 20,103=0.0081; ";

PickReading otteReading(const std::string &text)
{
    return readPicks(readOttePicks, text);
}

/// The survey with a text in it replaced.
std::string otteWith(const std::string &from, const std::string &to)
{
    return replaced(otteSurvey, from, to);
}

} // namespace

TEST(FieldOtte, ReadsASurvey)
{
    const PickReading reading = otteReading(otteSurvey);
    EXPECT_EQ(reading.failure, "");
    EXPECT_EQ(reading.remarks, Remarks{});
    EXPECT_EQ(described(reading.picks), otteDescription);
    EXPECT_EQ(linesOf(reading.picks), "11: 13 13 13; 14: 16; ");
    EXPECT_EQ(reading.picks.survey.spreads.size(), 2U);
}

TEST(FieldOtte, WritesTheFileThatItWasReadFrom)
{
    Remarks remarks;
    EXPECT_EQ(written(writeOttePicks, otteReading(otteSurvey).picks, &remarks), otteSurvey);
    EXPECT_EQ(remarks, Remarks{});
}

TEST(FieldOtte, LaysOutTheFileAsTheExactWriter)
{
    const TemporaryFolder folder;
    const PickReading reading = otteReading(otteSurvey);
    Report report;
    EXPECT_TRUE(writeOtte(folder.path("exact"), reading.picks.survey, report));
    EXPECT_EQ(written(writeOttePicks, reading.picks), readFile(folder.path("exact")));
}

TEST(FieldOtte, NumbersHaveTheDigitsThatTheyNeed)
{
    const PickReading reading =
        otteReading(otteWith("-2.5;12.5;\n100;101", "634512.35;634512.36;\n4512345.67;0.1234567"));
    EXPECT_EQ(described(reading.picks),
              "634512.35,4512345.67: 0,100.5=0.0021 5,101.5=0.0105 10,102.5=0.0187; "
              "634512.36,0.1234567: 20,103=0.0081; ");
    EXPECT_EQ(written(writeOttePicks, reading.picks),
              otteWith("-2.5;12.5;\n100;101", "634512.35;634512.36;\n4512345.67;0.1234567"));
}

TEST(FieldOtte, ErrorsThatAreLeftOutAreRemarkedOn)
{
    PickReading reading = otteReading(otteSurvey);
    reading.picks.errors[1] = {0.001};
    Remarks remarks;
    EXPECT_EQ(written(writeOttePicks, reading.picks, &remarks), otteSurvey);
    EXPECT_EQ(remarks,
              Remarks{"14: the output has no room for the picks' errors: they are left out"});
}

TEST(FieldOtte, ReadsOtherShapes)
{
    std::string text = otteSurvey;
    text.erase(text.find("18.7;") + 4, 1);
    EXPECT_EQ(described(otteReading(text).picks), otteDescription);
    EXPECT_EQ(described(otteReading(otteWith("0\n0\n2.1;10.5;18.7;\n",
                                             "0\n\n0\n\n 2.1 ;\t10.5; 18.7 ; \n\n"))
                            .picks),
              otteDescription);
    EXPECT_EQ(described(otteReading(otteWith("0;5;10;\n", "\n0;5;10;\n\n")).picks),
              otteDescription);
    EXPECT_EQ(described(otteReading(otteWith("otte\n1.0", "OTTE\n1.0")).picks), otteDescription);
}

TEST(FieldOtte, ASpreadMayBeEmpty)
{
    const PickReading reading =
        otteReading(otteWith("20;\n103;\n-2.5;12.5;\n100;101;\n0\n0\n2.1;10.5;18.7;\n"
                             "1\n1\n8.1;\n",
                             "\n\n-2.5;12.5;\n100;101;\n0\n0\n2.1;10.5;18.7;\n1\n1\n\n"));
    EXPECT_EQ(reading.failure, "");
    EXPECT_EQ(described(reading.picks),
              "-2.5,100: 0,100.5=0.0021 5,101.5=0.0105 10,102.5=0.0187; 12.5,101:; ");
}

TEST(FieldOtte, RecordsMayNameShotsInAnyOrder)
{
    const PickReading reading = otteReading(otteWith("0\n0\n2.1", "0\n1\n2.1"));
    EXPECT_EQ(described(reading.picks), "12.5,101: 0,100.5=0.0021 5,101.5=0.0105 10,102.5=0.0187; "
                                        "12.5,101: 20,103=0.0081; -2.5,100:; ");
    EXPECT_EQ(reading.remarks, Remarks{"10: no record has the times of shot 0, counted from 0"});
    EXPECT_EQ(reading.picks.survey.traveltimes[2].shotIndex, 2U);
}

TEST(FieldOtte, ReceiversThatWereNotPickedAreLeftOut)
{
    for (const char *mark : {"-1", "nan", "*", "\"\""}) {
        const PickReading reading =
            otteReading(otteWith("10.5", mark == std::string("\"\"") ? "" : mark));
        EXPECT_EQ(described(reading.picks), "-2.5,100: 0,100.5=0.0021 10,102.5=0.0187; "
                                            "12.5,101: 20,103=0.0081; ");
        EXPECT_EQ(reading.remarks.size(), 1U);
    }
}

TEST(FieldOtte, WhatCannotBeUnderstoodIsRefused)
{
    struct Case
    {
        std::string text;
        const char *failure;
    };
    for (const auto &[text, failure] : {
             Case{otteWith("otte", "opent"), "1: \"opent\" where \"otte\" is expected"},
             {otteWith("1.0\n", "1.1\n"), "2: \"1.1\" where \"1.0\" is expected"},
             {otteWith("2\n2\n", "3\n2\n"), "3: \"3\" where \"2\" is expected"},
             {otteWith("2\n2\n", "2\ntwo\n"),
              "4: \"two\" is no number: the number of spreads expected"},
             {otteWith("0;5;10", "0;here;10"), "5: \"here\" is no number: a position expected"},
             {otteWith("0;5;10", "0;;10"), "5: a position is missing"},
             {otteWith("100.5;101.5;102.5", "100.5;101.5"),
              "6: 2 values: the elevations of 3 positions expected"},
             {otteWith("100.5;101.5", "100.5;high"),
              "6: \"high\" is no number: an elevation expected"},
             {otteWith("100;101", "100"), "10: 1 value: the elevations of 2 positions expected"},
             {otteWith("0\n0\n2.1", "2\n0\n2.1"),
              "11: a record's spread is 2, counted from 0, but the file has 2 spreads"},
             {otteWith("0\n0\n2.1", "-1\n0\n2.1"),
              "11: \"-1\" is no whole number from 0 on: a record's spread expected"},
             {otteWith("0\n0\n2.1", "0\n2\n2.1"),
              "12: a record's shot is 2, counted from 0, but the file has 2 shots"},
             {otteWith("18.7;", ""), "13: 2 times: one for each of 3 receivers expected"},
             {otteWith("18.7;", "18.7;20;"), "13: 4 times: one for each of 3 receivers expected"},
             {otteWith("10.5", "soon"), "13: \"soon\" is no number: a time expected"},
             {"otte\n1.0\n2\n", "3: the file ends where the number of spreads is expected"},
             {"otte\n1.0\n2\n1\n", "4: the file ends where a spread's positions are expected"},
             {"otte\n1.0\n2\n1\n0;\n", "5: the file ends where the elevations are expected"},
             {"otte\n1.0\n2\n1\n0;\n1;\n",
              "6: the file ends where the shots' positions are expected"},
             {"otte\n1.0\n2\n1\n0;\n1;\n2;\n3;\n0\n",
              "9: the file ends where a record's shot is expected"},
             {"otte\n1.0\n2\n1\n0;\n1;\n2;\n3;\n0\n0\n",
              "10: the file ends where a record's times are expected"},
         })
        EXPECT_EQ(otteReading(text).failure, failure) << text;
}
