// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "tests/support/geogiga_reading.h"

#include <gtest/gtest.h>

TEST(Geogiga, FillsTheSurvey)
{
    const Reading reading = readText(fileWith(movedReceivers));
    EXPECT_EQ(reading.outcome, "0");
    EXPECT_EQ(failureOf(reading.report), "");
    const auto &[traveltimes, spreads, shots] = reading.survey;

    ASSERT_EQ(shots.size(), 2U);
    EXPECT_EQ(shots[0].name, " a.sg2"); // its leading blank kept
    EXPECT_EQ(shots[0].x, -2.5);
    EXPECT_EQ(shots[1].name, " b.sg2");
    EXPECT_EQ(shots[1].x, 12.5);

    ASSERT_EQ(traveltimes.size(), 2U);
    EXPECT_EQ(traveltimes[0].spreadIndex, 0U);
    EXPECT_EQ(traveltimes[0].shotIndex, 0U);
    EXPECT_EQ(traveltimes[0].shotX, -2.5);
    EXPECT_EQ(traveltimes[0].times, (Numbers{0.0021, 0.0105, 0.0187}));
    EXPECT_EQ(traveltimes[1].spreadIndex, 0U);
    EXPECT_EQ(traveltimes[1].shotIndex, 1U);
    EXPECT_EQ(traveltimes[1].shotX, 12.5);
    EXPECT_EQ(traveltimes[1].times, (Numbers{0.0152, 0.0081, 0.0024}));

    // One spread, with the positions that the last block gave.
    ASSERT_EQ(spreads.size(), 1U);
    EXPECT_EQ(positionsOf(spreads[0]), (Positions{{0.5, 100.5}, {5.5, 100.5}, {10.5, 100.5}}));
}

TEST(Geogiga, PrintsNothing)
{
    CapturedStreams streams;
    readText(joined(twoShots));
    readText(fileWith({{4, "DEPTH: 3"}}));
    readText(fileWith({{11, "2 abc 0.01 1\r"}}));
    readPath("/no/such/folder/line.txt");
    streams.finish();
    EXPECT_EQ(streams.output, "");
    EXPECT_EQ(streams.error, "");
}

TEST(GeogigaEdgeCases, AShotCountOfZeroGivesNoShotsAndOneEmptySpread)
{
    const Reading reading = readText(fileWith({{5, "TOTAL_NUMBER_OF_SHOTS: 0"}}));
    EXPECT_EQ(reading.outcome, "0");
    EXPECT_EQ(sizesOf(reading.survey), (Sizes{0, 1, 0}));
    EXPECT_TRUE(reading.survey.spreads.at(0).empty());
}

TEST(GeogigaEdgeCases, AShotCountOf2Point9ReadsTwoBlocks)
{
    const Reading reading = readText(fileWith({{5, "TOTAL_NUMBER_OF_SHOTS: 2.9"}}));
    EXPECT_EQ(reading.outcome, "0");
    EXPECT_EQ(sizesOf(reading.survey), (Sizes{2, 1, 2}));
}

TEST(GeogigaEdgeCases, AnyNumberOfInfoLines)
{
    for (const char *lines : {"", "INFO\n", "INFO:\n", "INFO: a\n", "INFO::a:b\n",
                              "INFO: a\nINFO\nINFO: TX_CURVE\nINFO:ELEVATION: 3\n"}) {
        const Reading reading = readText("TX_CURVE\nVERSION: 1.0\n" + std::string(lines)
                                         + "ELEVATION: 7\nTOTAL_NUMBER_OF_SHOTS: 1\n"
                                           "SEISMIC_DATA_FILE_NAME: a\nSHOT_LOCATION: 3\n"
                                           "NUMBER_OF_RECEIVERS: 0\nNO\n");
        EXPECT_EQ(reading.outcome, "0") << lines;
        ASSERT_EQ(reading.survey.shots.size(), 1U) << lines;
        EXPECT_EQ(reading.survey.shots[0].elevation, 7.0) << lines;
    }
}

TEST(GeogigaEdgeCases, ABlankBetweenElevationAndItsColonIsRefused)
{
    const Reading reading = readText(fileWith({{4, "ELEVATION : 100.5"}}));
    EXPECT_EQ(reading.outcome, "1");
    EXPECT_EQ(sizesOf(reading.survey), (Sizes{0, 0, 0}));
}

TEST(GeogigaEdgeCases, ADataFileNameIsCutBehindItsDriveLetter)
{
    const Reading reading =
        readText(fileWith({{6, "SEISMIC_DATA_FILE_NAME: C:\\survey\\shot1.sg2"}}));
    EXPECT_EQ(reading.outcome, "0");
    EXPECT_EQ(reading.survey.shots.at(0).name, " C");
}

TEST(GeogigaEdgeCases, ASecondBlockWithFewerReceiversKeepsTheTailOfTheFirst)
{
    const Reading reading = readText(
        fileWith({{15, "NUMBER_OF_RECEIVERS: 2"}, {17, "1 0.5 0.0152 2"}, {18, "2 5.5 0.0081 2"}}));
    EXPECT_EQ(reading.outcome, "0");
    ASSERT_EQ(sizesOf(reading.survey), (Sizes{2, 1, 2}));
    EXPECT_EQ(positionsOf(reading.survey.spreads[0]),
              (Positions{{0.5, 100.5}, {5.5, 100.5}, {10, 100.5}}));
    EXPECT_EQ(reading.survey.traveltimes[0].times, (Numbers{0.0021, 0.0105, 0.0187}));
    EXPECT_EQ(reading.survey.traveltimes[1].times, (Numbers{0.0152, 0.0081}));
}

TEST(GeogigaEdgeCases, ASecondBlockWithMoreReceiversIsRefused)
{
    const Reading reading = readText(
        fileWith({{15, "NUMBER_OF_RECEIVERS: 4"}, {19, "3 10.5 0.0025 2\n4 15.5 0.001 2"}}));
    EXPECT_EQ(reading.outcome, invalidSubscript);
    EXPECT_EQ(sizesOf(reading.survey), (Sizes{1, 0, 2}));
}

TEST(GeogigaEdgeCases, AllShotsAndReceiversGetTheOneElevation)
{
    const Reading reading = readText(fileWith({{4, "ELEVATION: -12.25"}}));
    EXPECT_EQ(reading.outcome, "0");
    ASSERT_EQ(sizesOf(reading.survey), (Sizes{2, 1, 2}));
    for (std::size_t i = 0; i < 2; ++i) {
        EXPECT_EQ(reading.survey.shots[i].elevation, -12.25);
        EXPECT_EQ(reading.survey.traveltimes[i].shotElevation, -12.25);
    }
    EXPECT_EQ(positionsOf(reading.survey.spreads[0]),
              (Positions{{0, -12.25}, {5, -12.25}, {10, -12.25}}));
}

TEST(Geogiga, TheLineInFrontOfTheRowsIsPassedOver)
{
    for (const char *heading : {"", " ", ":", "::", "\r", "1 2 3 4", "SHOT_LOCATION: 9"}) {
        const Reading reading = readText(fileWith({{9, heading}, {16, heading}}));
        EXPECT_EQ(reading.outcome, "0") << heading;
        ASSERT_EQ(sizesOf(reading.survey), (Sizes{2, 1, 2})) << heading;
        EXPECT_EQ(reading.survey.traveltimes[0].times, (Numbers{0.0021, 0.0105, 0.0187}))
            << heading;
    }
}

TEST(Geogiga, KeywordsOfTheFirstTwoLinesMayBeFollowedByAnything)
{
    EXPECT_EQ(readText(fileWith({{1, "TX_CURVE  1: x "}, {2, "VERSION:  2 TX_CURVE"}})).outcome,
              "0");
    EXPECT_EQ(readText(fileWith({{1, "TX_CURVE "}, {2, "VERSION:"}})).outcome, "0");
}

TEST(Geogiga, LinesThatBeginWithADelimiter)
{
    // Such a line has its whole rest as the first field, then the fields.
    const struct
    {
        std::size_t line;
        const char *text;
        const char *outcome;
    } cases[] = {
        {1, " TX_CURVE", "0"},
        {1, "   TX_CURVE", "0"},
        {1, " TX_CURVE ", "1"},
        {1, " TX_CURVE 1", "1"},
        {2, " VERSION:", "0"},
        {2, " VERSION: 1.0", "1"},
        {3, ":INFO", "0"},
        {3, "::INFO", "0"},
        {3, ":INFO: line 7", "1"},
        {4, ":ELEVATION:100.5", "1"},
        {5, ":TOTAL_NUMBER_OF_SHOTS:2", "1"},
        {5, ":TOTAL_NUMBER_OF_SHOTS", invalidStod},
        {6, ":SEISMIC_DATA_FILE_NAME:a", "1"},
        {7, ":SHOT_LOCATION:1", "1"},
        {8, ":NUMBER_OF_RECEIVERS:3", "1"},
        {13, ":SEISMIC_DATA_FILE_NAME:a", "1"},
    };
    for (const auto &[line, text, outcome] : cases) {
        EXPECT_EQ(readText(fileWith({{line, text}})).outcome, outcome) << text;
    }
}

TEST(Geogiga, AKeywordAloneBehindAColonIsItsOwnValue)
{
    const Reading reading = readText(fileWith({{4, ":ELEVATION"},
                                               {6, ":SEISMIC_DATA_FILE_NAME"},
                                               {7, ":SHOT_LOCATION"},
                                               {15, ":NUMBER_OF_RECEIVERS"}}));
    EXPECT_EQ(reading.outcome, "0");
    ASSERT_EQ(sizesOf(reading.survey), (Sizes{2, 1, 2}));
    EXPECT_EQ(reading.survey.shots[0].name, "SEISMIC_DATA_FILE_NAME");
    EXPECT_EQ(reading.survey.shots[0].x, 0.0);
    EXPECT_EQ(reading.survey.shots[0].elevation, 0.0);
    EXPECT_EQ(reading.survey.traveltimes[1].times, Numbers{});
}

TEST(Geogiga, LinesOfDelimitersAlone)
{
    const struct
    {
        std::size_t line;
        const char *text;
        Sizes left;
    } cases[] = {
        {1, " ", {0, 0, 0}},  {1, "   ", {0, 0, 0}}, {2, " ", {0, 0, 0}},  {3, ":", {0, 0, 0}},
        {4, ":", {0, 0, 0}},  {4, ":::", {0, 0, 0}}, {5, "::", {0, 0, 0}}, {6, ":", {0, 0, 0}},
        {7, ":", {0, 0, 0}},  {8, ":", {0, 0, 1}},   {13, ":", {1, 0, 1}}, {14, ":", {1, 0, 1}},
        {15, ":", {1, 0, 2}},
    };
    for (const auto &[line, text, left] : cases) {
        const Reading reading = readText(fileWith({{line, text}}));
        EXPECT_EQ(reading.outcome, invalidPosition) << line << text;
        EXPECT_EQ(sizesOf(reading.survey), left) << line << text;
        EXPECT_EQ(failureOf(reading.report),
                  std::to_string(line) + ": nothing but delimiters: invalid string position")
            << line << text;
    }
}

TEST(Geogiga, WhatStandsBetweenARowAndTheNextBlock)
{
    const struct
    {
        const char *between;
        const char *outcome;
    } cases[] = {
        {"\r\n", "0"},
        {"\r\n\r\n\r\n", "0"},
        {"", "0"}, // the keyword on the row's own line
        {"\n", "1"},
        {"\n\r\n", "1"},
        {"\r\n\n", "1"},
        {"\r\r\n", "1"},
        {"\r", "1"},
        {" \r\n", "1"},
        {" \n", "1"},
        {" ", "1"},
        {":", "1"},
        {"\r\n ", "1"},
        {":\n", invalidPosition},
    };
    for (const auto &[between, outcome] : cases) {
        const std::string text = fileWith({});
        const std::size_t behindRow = text.find("\r\nSEISMIC");
        const Reading reading = readText(std::string(text).replace(behindRow, 2, between));
        EXPECT_EQ(reading.outcome, outcome) << between;
        EXPECT_EQ(sizesOf(reading.survey), outcome[0] == '0' ? (Sizes{2, 1, 2}) : (Sizes{1, 0, 1}))
            << between;
    }
}

TEST(Geogiga, LoneCarriageReturnsInFrontOfTheFirstBlock)
{
    EXPECT_EQ(readText(fileWith({{5, "TOTAL_NUMBER_OF_SHOTS: 2\n\r\n\r"}})).outcome, "0");
    EXPECT_EQ(readText(fileWith({{5, "TOTAL_NUMBER_OF_SHOTS: 2\n"}})).outcome, "1");
    EXPECT_EQ(readText(fileWith({{5, "TOTAL_NUMBER_OF_SHOTS: 2\n\r\r"}})).outcome, "1");
}

TEST(Geogiga, LoneCarriageReturnsWithinABlock)
{
    EXPECT_EQ(readText(fileWith({{4, "\r\nELEVATION: 100.5"}})).outcome, "1");
    EXPECT_EQ(readText(fileWith({{5, "\r\nTOTAL_NUMBER_OF_SHOTS: 2"}})).outcome, "1");
    EXPECT_EQ(readText(fileWith({{7, "\r\nSHOT_LOCATION: -2.5"}})).outcome, "1");
    EXPECT_EQ(readText(fileWith({{8, "\r\nNUMBER_OF_RECEIVERS: 3"}})).outcome, "1");

    // One in front of the heading is passed over instead of it, and then no row can be read.
    const Reading heading = readText(fileWith({{16, "\r\nNO X TIME ID"}}));
    EXPECT_EQ(heading.outcome, "0");
    ASSERT_EQ(sizesOf(heading.survey), (Sizes{2, 1, 2}));
    EXPECT_EQ(heading.survey.traveltimes[1].times, (Numbers{0, 0, 0}));
}

TEST(Geogiga, AFileThatEndsInALoneCarriageReturnEnds)
{
    const std::string threeBlocksSaid = fileWith({{5, "TOTAL_NUMBER_OF_SHOTS: 3"}});
    for (const char *end : {"\r", "\r\n\r", "\r\n"}) {
        const Reading reading = readText(threeBlocksSaid + end);
        EXPECT_EQ(reading.outcome, "1") << end;
        EXPECT_EQ(sizesOf(reading.survey), (Sizes{2, 0, 2})) << end;
    }
    const Reading noBlock =
        readText("TX_CURVE\nVERSION: 1\nELEVATION: 1\nTOTAL_NUMBER_OF_SHOTS: 1\n\r");
    EXPECT_EQ(noBlock.outcome, "1");
}

TEST(Geogiga, BareLineFeeds)
{
    const Reading oneBlock = readText(oneShot("2", "1 0 1 1\n2 5 2 1\n"));
    EXPECT_EQ(oneBlock.outcome, "0");
    EXPECT_EQ(sizesOf(oneBlock.survey), (Sizes{1, 1, 1}));

    // A row of the first block that ends in a bare line feed hides the second block.
    const Reading twoBlocks = readText(fileWith({{12, "3 10 0.018 1"}}));
    EXPECT_EQ(twoBlocks.outcome, "1");
    EXPECT_EQ(sizesOf(twoBlocks.survey), (Sizes{1, 0, 1}));
    EXPECT_EQ(failureOf(twoBlocks.report),
              "12: a carriage return or the next shot expected: do the rows end in CR LF?");
}

TEST(Geogiga, CarriageReturnsBeforeLineFeeds)
{
    Lines lines = twoShots;
    for (const std::size_t row : {9U, 10U, 11U, 16U, 17U, 18U})
        lines[row].pop_back();

    // The keyword of the first line is compared with its carriage return.
    EXPECT_EQ(readText(joined(lines, "\r\n")).outcome, "1");
    EXPECT_EQ(readText(joined(lines, "\r\r\n")).outcome, "1");

    // A blank keeps them apart; the data file's name has the carriage return in the end.
    lines[0] = "TX_CURVE ";
    const Reading reading = readText(joined(lines, "\r\n"));
    EXPECT_EQ(reading.outcome, "0");
    ASSERT_EQ(sizesOf(reading.survey), (Sizes{2, 1, 2}));
    EXPECT_EQ(reading.survey.shots[1].name, " b.sg2\r");
    EXPECT_EQ(reading.survey.shots[1].x, 12.5);
    EXPECT_EQ(reading.survey.traveltimes[1].times, (Numbers{0.0152, 0.0081, 0.0024}));
    EXPECT_EQ(positionsOf(reading.survey.spreads[0]),
              (Positions{{0, 100.5}, {5, 100.5}, {10, 100.5}}));

    // Of two carriage returns behind a row none is passed over.
    const Reading two = readText(joined(lines, "\r\r\n"));
    EXPECT_EQ(two.outcome, "1");
    ASSERT_EQ(sizesOf(two.survey), (Sizes{1, 0, 1}));
    EXPECT_EQ(two.survey.shots[0].name, " a.sg2\r\r");

    // "VERSION:" and "INFO" alone are not found with a carriage return, a value may be one.
    EXPECT_EQ(readText(fileWith({{2, "VERSION:\r"}})).outcome, "1");
    EXPECT_EQ(readText(fileWith({{3, "INFO\r"}})).outcome, "1");
    EXPECT_EQ(readText(fileWith({{3, "INFO:\r"}})).outcome, "0");
    EXPECT_EQ(readText(fileWith({{4, "ELEVATION\r"}})).outcome, "1");
    EXPECT_EQ(readText(fileWith({{7, "SHOT_LOCATION:\r"}})).outcome, "0");
}

TEST(Geogiga, NothingBehindTheLastBlockIsRead)
{
    EXPECT_EQ(readText(joined(twoShots) + "abc\n:::\nTX_CURVE\n").outcome, "0");
    EXPECT_EQ(readText(fileWith({{5, "TOTAL_NUMBER_OF_SHOTS: 1"}, {13, "::"}})).outcome, "0");
}

TEST(Geogiga, NamesWithBlanksAndLettersOutsideOfAscii)
{
    const TemporaryFolder folder;
    const Reading reading = readPath(folder.write(
        "Geländelinie 3 – Süd 日本.txt", fileWith({{6, "SEISMIC_DATA_FILE_NAME: Schuß 1 é.sg2"}})));
    EXPECT_EQ(reading.outcome, "0");
    ASSERT_EQ(sizesOf(reading.survey), (Sizes{2, 1, 2}));
    EXPECT_EQ(reading.survey.shots[0].name, " Schuß 1 é.sg2");
}
