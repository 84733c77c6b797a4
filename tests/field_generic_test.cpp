// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "field/generic_picks.h"

#include "tests/support/field_picks.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace {

const char genericDescription[] = "-2.5,100: 0,100.5=0.0125 5,101=0.025; ";

PickReading genericReading(const std::string &text, const PickOptions &options = {})
{
    return readPicks(readGenericPicks, text, options);
}

/// Reads a file whose shot a list of shots puts at -2.5, 100.
PickReading readListed(const std::string &text)
{
    const TemporaryFolder folder;
    const std::string path = folder.write("line", text);
    PickOptions options;
    options.shotPositions = {{folder.path("other"), 7.0, 8.0}, {path, -2.5, 100.0}};
    PickReading reading;
    Report report;
    readGenericPicks(path, options, reading.picks, report);
    addReport(reading, report);
    return reading;
}

} // namespace

TEST(FieldGeneric, TakesTheShotFromAFirstRowOfTwoFields)
{
    const PickReading reading = genericReading("-2.5;100\n0;100.5;0.0125\n5;101;0.025\n");
    EXPECT_EQ(reading.failure, "");
    EXPECT_EQ(reading.remarks, Remarks{});
    EXPECT_EQ(described(reading.picks), genericDescription);
    EXPECT_EQ(linesOf(reading.picks), "1: 2 3; ");
}

TEST(FieldGeneric, TakesTheShotFromAListOfShots)
{
    const PickReading reading = readListed("\n0;100.5;0.0125\n5;101;0.025\n");
    EXPECT_EQ(reading.failure, "");
    EXPECT_EQ(described(reading.picks), genericDescription);
    EXPECT_EQ(linesOf(reading.picks), "1: 2 3; ");
}

TEST(FieldGeneric, TheListAndTheFirstRowMustAgree)
{
    EXPECT_EQ(described(readListed("-2.5;100\n0;100.5;0.0125\n5;101;0.025\n").picks),
              genericDescription);
    EXPECT_EQ(
        readListed("-2;100\n0;100.5;0.0125\n").failure,
        "1: the shot is at x -2, elevation 100 here, but at x -2.5, elevation 100 in the list "
        "of shots");
    EXPECT_EQ(readListed("-2.5;101\n0;100.5;0.0125\n").failure,
              "1: the shot is at x -2.5, elevation 101 here, but at x -2.5, elevation 100 in the "
              "list of shots");
}

TEST(FieldGeneric, AShotThatIsNowhereIsRefused)
{
    const char failure[] = "the shot's position is not known: list the file with --shots, in a "
                           "line \"file;x;elevation\", or let a first row of two fields say it";
    EXPECT_EQ(genericReading("0;100.5;0.0125\n5;101;0.025\n").failure, failure);
    const TemporaryFolder folder;
    PickOptions options;
    options.shotPositions = {{folder.write("line", "0;1;2\n"), -2.5, 100.0}};
    EXPECT_EQ(genericReading("0;100.5;0.0125\n5;101;0.025\n", options).failure, failure);
}

TEST(FieldGeneric, FieldsMayBeApartInFourWays)
{
    for (const char *text : {
             "-2.5;100\n0;100.5;0.0125\n5;101;0.025\n",
             " -2.5 ; 100\n\t0 ;100.5\t; 0.0125 \n5;101;0.025\n",
             "-2.5;100;\n0;100.5;0.0125;\n5;101;0.025;\n",
             "-2.5 100\n0 100.5 0.0125\n5 101 0.025\n",
             "  -2.5   100  \n 0   100.5 0.0125\n5  101 0.025\t\n",
             "-2.5\t100\n0\t100.5\t0.0125\n5\t101\t0.025\n",
             "-2.5\t100\t\n0\t100.5\t0.0125\t\n5\t101\t0.025\t\n",
             "-2.5\t\t100\n0\t\t100.5\t0.0125\n5\t\t101\t0.025\n",
             "-2.5,100\n0,100.5,0.0125\n5,101,0.025\n",
             "-2.5, 100\n0, 100.5 , 0.0125\n5,\t101,0.025\n",
         }) {
        const PickReading reading = genericReading(text);
        EXPECT_EQ(reading.failure, "") << text;
        EXPECT_EQ(reading.remarks, Remarks{}) << text;
        EXPECT_EQ(described(reading.picks), genericDescription) << text;
    }
}

TEST(FieldGeneric, HeadingsBeforeTheReceiversAreSkipped)
{
    const PickReading reading = genericReading("x (m);elevation;t\n-2.5;100\nReceivers and times\n"
                                               "0;100.5;0.0125\n5;101;0.025\n");
    EXPECT_EQ(described(reading.picks), genericDescription);
    EXPECT_EQ(reading.remarks, (Remarks{"1: a heading, \"x (m);elevation;t\": not read",
                                        "3: a heading, \"Receivers and times\": not read"}));
    // The heading's blanks and commas separate no numbers.
    EXPECT_EQ(
        described(genericReading("x, z and t\n-2.5;100\n0;100.5;0.0125\n5;101;0.025\n").picks),
        genericDescription);
    EXPECT_EQ(described(genericReading("x;z\n-2.5 100\n0 100.5 0.0125\n5 101 0.025\n").picks),
              genericDescription);
    EXPECT_EQ(genericReading("-2.5;100\n0;100.5;0.0125\nx;z;t\n").failure,
              "3: \"x\" is no number: the receiver's x expected");
    EXPECT_EQ(genericReading("x 1;z\n-2.5;100\n0;100.5;0.0125\n").failure,
              "1: \"x 1\" is no number: the shot's x expected");
}

TEST(FieldGeneric, TimesMayBeInMilliseconds)
{
    PickOptions options;
    options.timesIn = TimeUnit::milliseconds;
    EXPECT_EQ(described(genericReading("-2.5;100\n0;100.5;12.5\n5;101;25\n", options).picks),
              genericDescription);
    options.timesIn = TimeUnit::seconds;
    EXPECT_EQ(described(genericReading("-2.5;100\n0;100.5;0.0125\n5;101;0.025\n", options).picks),
              genericDescription);
}

TEST(FieldGeneric, ReceiversThatWereNotPickedAreLeftOut)
{
    const std::string notPicked = ": not picked, so the receiver is left out of this shot";
    struct Case
    {
        const char *row;
        std::string remark;
    };
    for (const auto &[row, remark] : {
             Case{"3;100;-1", "3: a time of \"-1\"" + notPicked},
             {"3;100;", "3: no time" + notPicked},
             {"3;100; ", "3: no time" + notPicked},
             {"3;100;nan", "3: a time of \"nan\"" + notPicked},
             {"3;100;*", "3: a time of \"*\"" + notPicked},
         }) {
        const PickReading reading =
            genericReading("-2.5;100\n0;100.5;0.0125\n" + std::string(row) + "\n5;101;0.025\n");
        EXPECT_EQ(described(reading.picks), genericDescription) << row;
        EXPECT_EQ(reading.remarks, Remarks{remark}) << row;
    }
}

TEST(FieldGeneric, ATabAtTheEndMayStandBeforeATimeThatIsMissing)
{
    EXPECT_EQ(
        described(genericReading("-2.5\t100\n0\t100.5\t0.0125\n3\t100\t\n5\t101\t0.025\n").picks),
        genericDescription);
    EXPECT_EQ(described(readListed("3\t100\t\n0\t100.5\t0.0125\n5\t101\t0.025\n").picks),
              genericDescription);
    EXPECT_EQ(genericReading("-2.5\t100\n0\t100.5\t0.0125\n3\t100\n").failure,
              "3: 2 fields: a receiver's x, its elevation and its time expected");
}

TEST(FieldGeneric, AFieldThatMayBeMissingBetweenBlanksIsRefused)
{
    for (const char *rows :
         {"0\t100.5\t0.0125\t1\n3\t\t0.025\t1\n", "0  100.5  0.0125 1\n3         0.025  1\n"})
        EXPECT_EQ(genericReading("-2.5 100\n" + std::string(rows)).failure,
                  "3: 3 fields, where other rows have 4 numbers: is one missing?");
    EXPECT_EQ(genericReading("-2,5 100\n0  100,5  0,0125 1\n3         0,025  1\n").failure,
              "3: 3 fields, where other rows have 4 numbers: is one missing?");
    // A note in some rows is no number.
    EXPECT_EQ(
        described(
            genericReading("-2.5 100\n0 100.5 0.0125 clear first break\n5 101 0.025\n").picks),
        genericDescription);
}

TEST(FieldGeneric, DecimalCommasAreReadWhereTheyCanMeanNothingElse)
{
    const std::string remark = "1: 4 numbers with a decimal comma, of which the first is \"-2,5\"";
    for (const char *text :
         {"-2,5;100\n0;100,5;0,0125\n5;101;0,025\n", "-2,5 100\n0 100,5 0,0125\n5 101 0,025\n",
          "-2,5\t100\n0\t100,5\t0,0125\n5\t101\t0,025\n"}) {
        const PickReading reading = genericReading(text);
        EXPECT_EQ(described(reading.picks), genericDescription) << text;
        EXPECT_EQ(reading.remarks, Remarks{remark}) << text;
    }
    EXPECT_EQ(genericReading("-2.5;100\n0;100,5;0,0125\n").failure,
              "2: \"100,5\" has a comma and \"-2.5\" in line 1 a point: write a decimal point in "
              "every number");
    EXPECT_EQ(genericReading("1;2\n0;1,250;12\n").failure,
              "2: \"1,250\" has a comma that may part thousands: write a decimal point");
}

TEST(FieldGeneric, DecimalCommasBetweenCommasAreRefused)
{
    EXPECT_EQ(genericReading("1,2\n0,100,5,0,0125\n").failure,
              "2: more than three fields and no decimal point: if these are decimal commas, put "
              "\";\" between the fields");
    // The first row could be that of the shot, too.
    EXPECT_EQ(genericReading("1,5,100\n0,5,100,5,0,0125\n").failure,
              "2: more than three fields and no decimal point: if these are decimal commas, put "
              "\";\" between the fields");
    EXPECT_EQ(described(genericReading("1,2\n0,100,12\n").picks), "1,2: 0,100=12; ");
}

TEST(FieldGeneric, FieldsAfterTheTimeAreRemarkedOnOnce)
{
    const PickReading reading =
        genericReading("-2.5;100\n0;100.5;0.0125\n3;100;-1;bad\n5;101;0.025;good\n");
    EXPECT_EQ(described(reading.picks), genericDescription);
    EXPECT_EQ(reading.remarks.back(),
              "3: more than three fields, here first: those after the time are not read");
    EXPECT_EQ(reading.remarks.size(), 2U);
    EXPECT_EQ(described(genericReading("-2.5,100\n0,100.5,0.0125,a\n5,101,0.025\n").picks),
              genericDescription);
}

TEST(FieldGeneric, WhatCannotBeUnderstoodIsRefused)
{
    struct Case
    {
        const char *text;
        const char *failure;
    };
    for (const auto &[text, failure] : {
             Case{"-2.5;west\n0;1;2\n", "1: \"west\" is no number: the shot's elevation expected"},
             {"west;2.5\n0;1;2\n", "1: \"west\" is no number: the shot's x expected"},
             {"1;2\nabc;100.5;0.0125\n", "2: \"abc\" is no number: the receiver's x expected"},
             {"1;2\n0;high;0.0125\n",
              "2: \"high\" is no number: the receiver's elevation expected"},
             {"1;2\n0;100;0.0125 s\n", "2: \"0.0125 s\" is no number: a time expected"},
             {"1;2\n;0;100;0.0125\n", "2: the receiver's x is missing"},
             {"1;2\n0;;0.0125\n", "2: the receiver's elevation is missing"},
             {"1;2\n0;100\n", "2: 2 fields: a receiver's x, its elevation and its time expected"},
             {"1;2\n0 100 0.01\n",
              "2: 1 field: a receiver's x, its elevation and its time expected"},
             {"1;2\n", "1: the file ends where rows of receivers are expected"},
             {"1 2\n0 100 0.01\n5, 100, 0.01\n",
              "3: \"5,\" is no number: the receiver's x expected"},
         })
        EXPECT_EQ(genericReading(text).failure, failure) << text;
    EXPECT_EQ(readListed("# nothing\n").failure,
              "1: the file ends where rows of receivers are expected");
}
