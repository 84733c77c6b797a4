// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "readers/geogiga.h"

#include "tests/support/reading.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

const char noValue[] = "out_of_range: invalid vector subscript";
const char onlyDelimiters[] = "out_of_range: invalid string position";

/// Two shots on three receivers. The rows end in CR LF, so that the second block is found.
const Lines twoShots = {
    "TX_CURVE",                          // 1
    "VERSION: 1.0",                      // 2
    "INFO: line 7",                      // 3
    "ELEVATION: 100.5",                  // 4
    "TOTAL_NUMBER_OF_SHOTS: 2",          // 5
    "SEISMIC_DATA_FILE_NAME: shot1.sg2", // 6
    "SHOT_LOCATION: -2.5",               // 7
    "NUMBER_OF_RECEIVERS: 3",            // 8
    "NO X TIME ID",                      // 9
    "1 0 0.002 1\r",                     // 10
    "2 5 0.01 1\r",                      // 11
    "3 10 0.018 1\r",                    // 12
    "SEISMIC_DATA_FILE_NAME: shot2.sg2", // 13
    "SHOT_LOCATION: 12.5",               // 14
    "NUMBER_OF_RECEIVERS: 3",            // 15
    "NO X TIME ID",                      // 16
    "1 0.5 0.015 2\r",                   // 17
    "2 5.5 0.008 2\r",                   // 18
    "3 10.5 0.0025 2\r",                 // 19
};

/// The file above with some of its lines, counted from 1, replaced.
std::string fileWith(const ChangedLines &changedLines)
{
    return joined(withLines(twoShots, changedLines));
}

/// A file of one block with the given receiver count and rows.
std::string oneShot(const std::string &receiverCount, const std::string &rows)
{
    return "TX_CURVE\nVERSION: 1.0\nELEVATION: 100\nTOTAL_NUMBER_OF_SHOTS: 1\n"
           "SEISMIC_DATA_FILE_NAME: a\nSHOT_LOCATION: 3\nNUMBER_OF_RECEIVERS: "
           + receiverCount + "\nNO X TIME ID\n" + rows;
}

/// A file of many blocks without receivers.
std::string emptyShots(const std::string &shotCount, std::size_t blocks)
{
    std::string text =
        "TX_CURVE\nVERSION: 1.0\nELEVATION: 100\nTOTAL_NUMBER_OF_SHOTS:" + shotCount + '\n';
    for (std::size_t i = 0; i < blocks; ++i)
        text += "SEISMIC_DATA_FILE_NAME: a\nSHOT_LOCATION: 3\nNUMBER_OF_RECEIVERS: 0\nNO X\n";
    return text;
}

struct Reading
{
    std::string outcome; ///< the result, or the type and the text of the error
    TraveltimeSurvey survey;
    Problem problem;
};

/// Reads with both forms of the reader, which must do the same.
Reading readPath(const std::string &path, const TraveltimeSurvey &before = {})
{
    Reading reading{"", before, {}};
    TraveltimeSurvey &survey = reading.survey;
    reading.outcome = classOutcomeOf([&] {
        return readGeogigaTraveltimes(path, survey.traveltimes, survey.spreads, survey.shots);
    });
    TraveltimeSurvey other = before;
    const std::string otherOutcome = classOutcomeOf([&] {
        return readGeogigaTraveltimes(path, other.traveltimes, other.spreads, other.shots,
                                      reading.problem);
    });
    EXPECT_EQ(otherOutcome, reading.outcome) << path;
    EXPECT_EQ(sizesOf(other), sizesOf(survey)) << path;
    return reading;
}

Reading readText(const std::string &text, const TraveltimeSurvey &before = {})
{
    const TemporaryFolder folder;
    return readPath(folder.write("line.txt", text), before);
}

} // namespace

TEST(Geogiga, FillsTheSurvey)
{
    const Reading reading = readText(joined(twoShots));
    EXPECT_EQ(reading.outcome, "0");
    EXPECT_EQ(reading.problem.detail, "");
    const auto &[traveltimes, spreads, shots] = reading.survey;

    ASSERT_EQ(shots.size(), 2U);
    EXPECT_EQ(shots[0].name, " shot1.sg2"); // its leading blank kept
    EXPECT_EQ(shots[0].x, -2.5);
    EXPECT_EQ(shots[1].name, " shot2.sg2");
    EXPECT_EQ(shots[1].x, 12.5);

    ASSERT_EQ(traveltimes.size(), 2U);
    EXPECT_EQ(traveltimes[0].spreadIndex, 0U);
    EXPECT_EQ(traveltimes[0].shotIndex, 0U);
    EXPECT_EQ(traveltimes[0].shotX, -2.5);
    EXPECT_EQ(traveltimes[0].times, (Numbers{0.002, 0.01, 0.018}));
    EXPECT_EQ(traveltimes[1].spreadIndex, 0U);
    EXPECT_EQ(traveltimes[1].shotIndex, 1U);
    EXPECT_EQ(traveltimes[1].shotX, 12.5);
    EXPECT_EQ(traveltimes[1].times, (Numbers{0.015, 0.008, 0.0025}));

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

// Edge cases.

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
        fileWith({{15, "NUMBER_OF_RECEIVERS: 2"}, {17, "1 0.5 0.015 2"}, {18, "2 5.5 0.008 2"}}));
    EXPECT_EQ(reading.outcome, "0");
    ASSERT_EQ(sizesOf(reading.survey), (Sizes{2, 1, 2}));
    EXPECT_EQ(positionsOf(reading.survey.spreads[0]),
              (Positions{{0.5, 100.5}, {5.5, 100.5}, {10, 100.5}}));
    EXPECT_EQ(reading.survey.traveltimes[0].times, (Numbers{0.002, 0.01, 0.018}));
    EXPECT_EQ(reading.survey.traveltimes[1].times, (Numbers{0.015, 0.008}));
}

TEST(GeogigaEdgeCases, ASecondBlockWithMoreReceiversIsRefused)
{
    const Reading reading = readText(
        fileWith({{15, "NUMBER_OF_RECEIVERS: 4"}, {19, "3 10.5 0.0025 2\n4 15.5 0.001 2"}}));
    EXPECT_EQ(reading.outcome, noValue);
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
              (Positions{{0.5, -12.25}, {5.5, -12.25}, {10.5, -12.25}}));
}

// Failures, and what stays in the survey after them.

TEST(GeogigaFailures, AFileThatCannotBeOpened)
{
    const TemporaryFolder folder;
    TraveltimeSurvey before;
    before.shots = {{1, 2, "before"}};
    for (const std::string &path : {folder.path("missing.txt"), folder.path(""), std::string()}) {
        const Reading reading = readPath(path, before);
        EXPECT_EQ(reading.outcome, "1") << path;
        EXPECT_EQ(sizesOf(reading.survey), (Sizes{0, 0, 1})) << path;
        EXPECT_EQ(reading.problem.line, 0U) << path;
        EXPECT_NE(reading.problem.detail, "") << path;
    }
}

TEST(GeogigaFailures, AKeywordLineMissingEmptyOrWithAnotherFirstField)
{
    const struct
    {
        std::size_t line;
        std::string likeIt; ///< the line with something about its keyword
        Sizes left;
    } cases[] = {
        {1, "TX_CURVE: 1", {0, 0, 0}},
        {1, "tx_curve", {0, 0, 0}},
        {1, "TX_CURVE\t1", {0, 0, 0}},
        {2, "VERSION : 1.0", {0, 0, 0}},
        {2, "VERSION:1.0", {0, 0, 0}},
        {2, "Version: 1.0", {0, 0, 0}},
        {2, "VERSION", {0, 0, 0}},
        {4, "ELEVATION\t: 100.5", {0, 0, 0}},
        {4, "Elevation: 100.5", {0, 0, 0}},
        {5, "TOTAL_NUMBER_OF_SHOTS : 2", {0, 0, 0}},
        {5, "total_number_of_shots: 2", {0, 0, 0}},
        {6, "SEISMIC_DATA_FILE_NAME : a", {0, 0, 0}},
        {6, "Seismic_data_file_name: a", {0, 0, 0}},
        {7, "SHOT_LOCATION : 1", {0, 0, 0}},
        {7, "SHOT_LOCATIONS: 1", {0, 0, 0}},
        {8, "NUMBER_OF_RECEIVERS : 3", {0, 0, 1}},
        {8, "NUMBER_OF_RECEIVER: 3", {0, 0, 1}},
        {13, "SEISMIC_DATA_FILE_NAME : a", {1, 0, 1}},
        {14, "SHOT_LOCATION : 1", {1, 0, 1}},
        {15, "NUMBER_OF_RECEIVERS : 3", {1, 0, 2}},
    };
    for (const auto &[line, likeIt, left] : cases) {
        Lines without = twoShots;
        without.erase(without.begin() + static_cast<std::ptrdiff_t>(line) - 1);
        const char *noKeyword = line <= 2 ? "X" : " "; // " " alone is no keyword, but a delimiter
        for (const std::string &text :
             {fileWith({{line, likeIt}}), fileWith({{line, ""}}), fileWith({{line, noKeyword}}),
              joined(without), joined(firstLines(twoShots, line - 1))}) {
            const Reading reading = readText(text);
            EXPECT_EQ(reading.outcome, "1") << text;
            EXPECT_EQ(sizesOf(reading.survey), left) << text;
        }
    }
}

TEST(GeogigaFailures, AnEmptyFile)
{
    EXPECT_EQ(readText("").outcome, "1");
}

TEST(GeogigaFailures, AnEmptyOrForeignLineAmongTheInfoLines)
{
    for (const char *line : {"", " ", "INFO ", "info: a", "INFO\t", "REMARK: a"}) {
        EXPECT_EQ(readText(fileWith({{3, line}})).outcome, "1") << line;
    }
    EXPECT_EQ(readText("TX_CURVE\nVERSION: 1.0\nINFO: a\nINFO: b\n").outcome, "1");
}

TEST(GeogigaFailures, AKeywordWithoutAValue)
{
    const struct
    {
        std::size_t line;
        std::string keyword;
        Sizes left;
    } cases[] = {
        {4, "ELEVATION", {0, 0, 0}},
        {5, "TOTAL_NUMBER_OF_SHOTS", {0, 0, 0}},
        {6, "SEISMIC_DATA_FILE_NAME", {0, 0, 0}},
        {7, "SHOT_LOCATION", {0, 0, 0}},
        {8, "NUMBER_OF_RECEIVERS", {0, 0, 1}},
        {13, "SEISMIC_DATA_FILE_NAME", {1, 0, 1}},
        {14, "SHOT_LOCATION", {1, 0, 1}},
        {15, "NUMBER_OF_RECEIVERS", {1, 0, 2}},
    };
    for (const auto &[line, keyword, left] : cases) {
        for (const char *colons : {"", ":", "::"}) {
            const Reading reading = readText(fileWith({{line, keyword + colons}}));
            EXPECT_EQ(reading.outcome, noValue) << line << keyword << colons;
            EXPECT_EQ(sizesOf(reading.survey), left) << line << keyword << colons;
            EXPECT_EQ(reading.problem.line, line) << keyword << colons;
            EXPECT_EQ(reading.problem.detail, "1 field, 2 expected") << keyword << colons;
        }
    }
}

TEST(GeogigaFailures, AShotCountThatIsNoNumber)
{
    for (const char *count : {" abc", " ", "\t", " ,5", " .", " +", " --1"}) {
        const Reading reading = readText(emptyShots(count, 1));
        EXPECT_EQ(reading.outcome, "invalid_argument: invalid stod argument") << count;
        EXPECT_EQ(sizesOf(reading.survey), (Sizes{0, 0, 0})) << count;
    }
}

TEST(GeogigaFailures, AShotCountOutOfTheRangeOfDoubles)
{
    for (const char *count : {" 1e999", "-1e999", " 1e-999"}) {
        const Reading reading = readText(emptyShots(count, 1));
        EXPECT_EQ(reading.outcome, "out_of_range: stod argument out of range") << count;
        EXPECT_EQ(sizesOf(reading.survey), (Sizes{0, 0, 0})) << count;
    }
}

TEST(GeogigaFailures, SpreadsReadBeforeInAnotherNumberThanTheReceivers)
{
    TraveltimeSurvey before;
    before.traveltimes = {{4, 5, 6, 7, {8}}};
    before.spreads = {{{1, 2}}, {{3, 4}}};
    before.shots = {{1, 2, "before"}};
    for (const char *count : {"3", "0", "1", "-2"}) {
        const Reading refused = readText(oneShot(count, "1 0 1 1\n2 5 2 1\n3 10 3 1\n"), before);
        EXPECT_EQ(refused.outcome, "1") << count;
        EXPECT_EQ(sizesOf(refused.survey), (Sizes{1, 2, 2})) << count;
        EXPECT_EQ(refused.problem.line, 7U) << count;
        EXPECT_EQ(refused.problem.detail, "2 spreads read before") << count;
    }

    // The number of spreads, by chance, is that of the receivers: appended, still as spread 0.
    const Reading passed = readText(oneShot("2", "1 0 1 1\n2 5 2 1\n"), before);
    EXPECT_EQ(passed.outcome, "0");
    ASSERT_EQ(sizesOf(passed.survey), (Sizes{2, 3, 2}));
    EXPECT_EQ(passed.survey.traveltimes[0].times, (Numbers{8}));
    EXPECT_EQ(passed.survey.traveltimes[1].spreadIndex, 0U);
    EXPECT_EQ(passed.survey.traveltimes[1].shotIndex, 0U);
    EXPECT_EQ(positionsOf(passed.survey.spreads[1]), (Positions{{3, 4}}));
    EXPECT_EQ(positionsOf(passed.survey.spreads[2]), (Positions{{0, 100}, {5, 100}}));
    EXPECT_EQ(passed.survey.shots[0].name, "before");
    EXPECT_EQ(passed.survey.shots[1].name, " a");
}

TEST(GeogigaFailures, ALaterBlockWithAnotherNumberThanTheSpreadsReadBefore)
{
    TraveltimeSurvey before;
    before.spreads.resize(3);
    const Reading reading = readText(fileWith({{15, "NUMBER_OF_RECEIVERS: 2"}}), before);
    EXPECT_EQ(reading.outcome, "1");
    EXPECT_EQ(sizesOf(reading.survey), (Sizes{1, 3, 2}));
}

TEST(GeogigaFailures, ALaterBlockWithMoreReceiversThanTheFirstThatHasSome)
{
    // The first block without receivers sizes nothing, the second one does.
    const std::string blocks =
        "TX_CURVE\nVERSION: 1\nELEVATION: 1\nTOTAL_NUMBER_OF_SHOTS: 3\n"
        "SEISMIC_DATA_FILE_NAME: a\nSHOT_LOCATION: 1\nNUMBER_OF_RECEIVERS: 0\nNO\n"
        "SEISMIC_DATA_FILE_NAME: b\nSHOT_LOCATION: 2\nNUMBER_OF_RECEIVERS: 1\nNO\n1 5 6 7\r\n"
        "SEISMIC_DATA_FILE_NAME: c\nSHOT_LOCATION: 3\nNUMBER_OF_RECEIVERS: ";
    const Reading refused = readText(blocks + "2\nNO\n1 8 9 7\n2 8 9 7\n");
    EXPECT_EQ(refused.outcome, noValue);
    EXPECT_EQ(sizesOf(refused.survey), (Sizes{2, 0, 3}));

    const Reading passed = readText(blocks + "1\nNO\n1 8 9 7\n");
    EXPECT_EQ(passed.outcome, "0");
    ASSERT_EQ(sizesOf(passed.survey), (Sizes{3, 1, 3}));
    EXPECT_EQ(passed.survey.traveltimes[0].times, Numbers{});
    EXPECT_EQ(passed.survey.traveltimes[2].times, Numbers{9});
    EXPECT_EQ(positionsOf(passed.survey.spreads[0]), (Positions{{8, 1}}));
}

TEST(GeogigaFailures, AnUnparsableRowNumberEndsWithTheNextBlock)
{
    const Reading reading = readText(fileWith({{11, "2 5 abc 1\r"}}));
    EXPECT_EQ(reading.outcome, "1");
    ASSERT_EQ(sizesOf(reading.survey), (Sizes{1, 0, 1}));
    EXPECT_EQ(reading.survey.traveltimes[0].times, (Numbers{0.002, 0, 0}));
}

TEST(GeogigaFailures, AnUnparsableRowNumberInTheLastBlockPasses)
{
    const Reading reading = readText(fileWith({{18, "2 5.5 abc 2\r"}}));
    EXPECT_EQ(reading.outcome, "0");
    ASSERT_EQ(sizesOf(reading.survey), (Sizes{2, 1, 2}));
    EXPECT_EQ(reading.survey.traveltimes[1].times, (Numbers{0.015, 0, 0}));
    EXPECT_EQ(positionsOf(reading.survey.spreads[0]),
              (Positions{{0.5, 100.5}, {5.5, 100.5}, {5.5, 100.5}}));
}

// Counts.

TEST(Geogiga, ShotCounts)
{
    // 13 blocks stand in the file: a larger count meets its end.
    const struct
    {
        const char *count;
        const char *outcome;
        std::size_t shots;
    } cases[] = {
        {" 2.9", "0", 2},         {"2", "0", 2},
        {" -0.9", "0", 0},        {" -1", "1", 13},
        {" 1e300", "0", 0},       {" -1e300", "0", 0},
        {" nan", "0", 0},         {" inf", "0", 0},
        {" -inf", "0", 0},        {" 4294967296", "0", 0},
        {" 4294967297", "0", 1},  {" 4294967298.9", "0", 2},
        {" -4294967295", "0", 1}, {" -4294967293.9", "0", 3},
        {" 8589934595", "0", 3},  {" 18446744073709551616", "0", 0},
        {" 1e1", "0", 10},        {" 1e5", "1", 13},
        {" +1.5", "0", 1},        {" .5", "0", 0},
        {" 5.", "0", 5},          {" 0x1p3", "0", 8},
        {" 1,5", "0", 1},         {" 12abc", "0", 12},
        {"\t 7", "0", 7},         {" 13", "0", 13},
        {" 14", "1", 13},         {"2:9", "0", 2},
    };
    for (const auto &[count, outcome, shots] : cases) {
        const Reading reading = readText(emptyShots(count, 13));
        EXPECT_EQ(reading.outcome, outcome) << count;
        EXPECT_EQ(reading.survey.shots.size(), shots) << count;
        EXPECT_EQ(reading.survey.traveltimes.size(), shots) << count;
        EXPECT_EQ(reading.survey.spreads.size(), outcome[0] == '0' ? 1U : 0U) << count;
    }
}

TEST(Geogiga, ReceiverCounts)
{
    const struct
    {
        const char *count;
        std::size_t receivers;
    } cases[] = {
        {"0", 0},    {"3", 3},     {"2.9", 2}, {"+1", 1},         {"1e5", 1},         {".5", 0},
        {"3.", 3},   {"0x1p3", 0}, {"inf", 0}, {"nan", 0},        {"1,5", 1},         {"abc", 0},
        {"2abc", 2}, {"\t2", 2},   {"", 0},    {"4294967298", 2}, {"-4294967295", 1},
    };
    for (const auto &[count, receivers] : cases) {
        const Reading reading = readText(oneShot(count, "1 0 1 1\n2 5 2 1\n3 10 3 1\n"));
        EXPECT_EQ(reading.outcome, "0") << count;
        ASSERT_EQ(sizesOf(reading.survey), (Sizes{1, 1, 1})) << count;
        EXPECT_EQ(reading.survey.spreads[0].size(), receivers) << count;
        EXPECT_EQ(reading.survey.traveltimes[0].times.size(), receivers) << count;
    }
}

TEST(Geogiga, ANegativeReceiverCountInTheFirstBlock)
{
    for (const char *count : {"-1", "-2147483648", "2147483648", "99999999999999999999"}) {
        const Reading reading = readText(oneShot(count, "1 0 1 1\n"));
        EXPECT_EQ(reading.outcome, "length_error") << count;
        EXPECT_EQ(sizesOf(reading.survey), (Sizes{0, 0, 1})) << count;
    }
}

TEST(Geogiga, AReceiverCountBeyondAllBounds)
{
    const std::string rows = "1 0 1 1\n";
    const std::size_t most = oneShot("10000000", rows).size() + 10000000;
    const Reading within = readText(oneShot(std::to_string(most), rows));
    EXPECT_EQ(within.outcome, "0");
    ASSERT_EQ(sizesOf(within.survey), (Sizes{1, 1, 1}));
    EXPECT_EQ(within.survey.spreads[0].size(), most);
    EXPECT_EQ(within.survey.traveltimes[0].times.size(), most);
    for (const std::string &count : {std::to_string(most + 1), std::string("2147483647")}) {
        const Reading beyond = readText(oneShot(count, rows));
        EXPECT_EQ(beyond.outcome, "length_error") << count;
        EXPECT_EQ(sizesOf(beyond.survey), (Sizes{0, 0, 1})) << count;
    }
}

TEST(Geogiga, ANegativeReceiverCountInALaterBlockReadsNoRows)
{
    const Reading reading = readText(fileWith({{15, "NUMBER_OF_RECEIVERS: -1"}}));
    EXPECT_EQ(reading.outcome, "0");
    ASSERT_EQ(sizesOf(reading.survey), (Sizes{2, 1, 2}));
    EXPECT_EQ(reading.survey.traveltimes[1].times, Numbers{});
    EXPECT_EQ(positionsOf(reading.survey.spreads[0]),
              (Positions{{0, 100.5}, {5, 100.5}, {10, 100.5}}));
}

// Numbers.

TEST(Geogiga, NumbersBehindKeywords)
{
    const double infinity = std::numeric_limits<double>::infinity();
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const struct
    {
        const char *text;
        double value;
    } cases[] = {
        {"1e5", 100000}, {"+1.5", 1.5},       {".5", 0.5},
        {"5.", 5},       {"0x1p3", 8},        {"inf", infinity},
        {"nan", nan},    {"1,5", 1},          {" ", 0},
        {"12abc", 12},   {"abc", 0},          {" 7", 7},
        {"\t7", 7},      {"1e999", infinity}, {"-1e999", -infinity},
        {"-2.5", -2.5},  {"3:4", 3},          {":3", 3},
        {"\r", 0},
    };
    for (const auto &[text, value] : cases) {
        const Reading reading = readText(fileWith(
            {{4, std::string("ELEVATION:") + text}, {7, std::string("SHOT_LOCATION:") + text}}));
        EXPECT_EQ(reading.outcome, "0") << text;
        ASSERT_EQ(sizesOf(reading.survey), (Sizes{2, 1, 2})) << text;
        EXPECT_TRUE(same(reading.survey.shots[0].elevation, value)) << text;
        EXPECT_TRUE(same(reading.survey.shots[0].x, value)) << text;
        EXPECT_TRUE(same(reading.survey.traveltimes[0].shotElevation, value)) << text;
        EXPECT_TRUE(same(reading.survey.traveltimes[0].shotX, value)) << text;
        EXPECT_TRUE(same(reading.survey.spreads[0][2].elevation, value)) << text;
    }
}

TEST(Geogiga, ReceiverRows)
{
    const double largest = std::numeric_limits<double>::max();
    const struct
    {
        const char *rows;
        Numbers x;
        Numbers times;
    } cases[] = {
        // Where the lines end does not matter.
        {"1 5 0.25 1\n2 6 0.5 1\n", {5, 6}, {0.25, 0.5}},
        {"1 5 0.25 1\r\n2 6 0.5 1\r\n", {5, 6}, {0.25, 0.5}},
        {"1 5 0.25 1\r\r\n2 6 0.5 1\r\r\n", {5, 6}, {0.25, 0.5}},
        {"1 5 0.25 1 2 6 0.5 1\n", {5, 6}, {0.25, 0.5}},
        {"\n\n1\n5\r0.25\t1\f\v2\n\n6 0.5\n1", {5, 6}, {0.25, 0.5}},
        {"  1   5 0.25  1  \n   2 6 0.5 1", {5, 6}, {0.25, 0.5}},
        {"1 5 0.25 1\n2 6 0.5 1\n3 7 0.75 1\n", {5, 6}, {0.25, 0.5}},
        // How a stream takes numbers.
        {"1 1e5 +1.5 1\n2 .5 5. 1\n", {100000, 0.5}, {1.5, 5}},
        {"1 -5 -0.25 1\n2 1e-5 0 1\n", {-5, 1e-5}, {-0.25, 0}},
        {"-1 5 0.25 -1\n+2 6 0.5 +1\n", {5, 6}, {0.25, 0.5}},
        {"1 5 0.25 1\n2 inf 0.5 1\n", {5, 0}, {0.25, 0.25}},
        {"1 5 0.25 1\n2 nan 0.5 1\n", {5, 0}, {0.25, 0.25}},
        {"1 5 0.25 1\n2 1e 0.5 1\n", {5, 0}, {0.25, 0.25}},
        {"1 5 0.25 1\n2 1e999 0.5 1\n", {5, largest}, {0.25, 0.25}},
        // Of these it takes the beginning, and the rest is the next value.
        {"1 5 0.25 1\n2 0x1p3 0.5 1\n", {5, 0}, {0.25, 0}},
        {"1 5 0.25 1\n2 1,5 0.5 1\n", {5, 1}, {0.25, 0}},
        {"1 5 0.25 1\n2 12abc 0.5 1\n", {5, 12}, {0.25, 0}},
        {"1 5 0x1p3 1\n2 6 0.5 1\n", {5, 5}, {0, 0}},
        {"1 5 1,5 1\n2 6 0.5 1\n", {5, 5}, {1, 1}},
        {"1 5 12abc 1\n2 6 0.5 1\n", {5, 5}, {12, 12}},
        {"1.5 5 0.25 1\n2 6 0.5 1\n", {0.5, 0.5}, {5, 5}},
        {"1 5.5.25 1 2 6 0.5 1\n", {5.5, 6}, {0.25, 0.5}},
        // What cannot be taken becomes 0; what comes later stays as it was.
        {"1 abc 0.25 1\n2 6 0.5 1\n", {0, 0}, {0, 0}},
        {"1 5 abc 1\n2 6 0.5 1\n", {5, 5}, {0, 0}},
        {"abc 5 0.25 1\n2 6 0.5 1\n", {0, 0}, {0, 0}},
        {"4294967296 5 0.25 1\n2 6 0.5 1\n", {0, 0}, {0, 0}},
        {"1 5 0.25 abc\n2 6 0.5 1\n", {5, 5}, {0.25, 0.25}},
        {"1 5 0.25 1\nabc 6 0.5 1\n", {5, 5}, {0.25, 0.25}},
        {"1 5 0.25 1\n2 abc 0.5 1\n", {5, 0}, {0.25, 0.25}},
        {"1 5 0.25 1\n2 6 abc 1\n", {5, 6}, {0.25, 0}},
        {"1 5 0.25 1\n2 6 0.5 abc\n", {5, 6}, {0.25, 0.5}},
        // What meets the end of the file stays as it was.
        {"", {0, 0}, {0, 0}},
        {"1", {0, 0}, {0, 0}},
        {"1 5", {5, 5}, {0, 0}},
        {"1 5 0.25", {5, 5}, {0.25, 0.25}},
        {"1 5 0.25 1", {5, 5}, {0.25, 0.25}},
        {"1 5 0.25 1\n", {5, 5}, {0.25, 0.25}},
        {"1 5 0.25 1\n2 ", {5, 5}, {0.25, 0.25}},
        {"1 5 0.25 1\n2 6", {5, 6}, {0.25, 0.25}},
        {"1 5 0.25 1\n2 6 0.5", {5, 6}, {0.25, 0.5}},
    };
    for (const auto &[rows, x, times] : cases) {
        const Reading reading = readText(oneShot("2", rows));
        EXPECT_EQ(reading.outcome, "0") << rows;
        ASSERT_EQ(sizesOf(reading.survey), (Sizes{1, 1, 1})) << rows;
        EXPECT_EQ(reading.survey.traveltimes[0].times, times) << rows;
        EXPECT_EQ(positionsOf(reading.survey.spreads[0]), (Positions{{x[0], 100}, {x[1], 100}}))
            << rows;
    }
}

TEST(Geogiga, RowsWithoutABlankTakeNoLonger)
{
    std::string rows;
    for (int i = 0; i < 400000; ++i)
        rows += "+1+2-3+4";
    const Reading reading = readText(oneShot("400000", rows));
    EXPECT_EQ(reading.outcome, "0");
    ASSERT_EQ(sizesOf(reading.survey), (Sizes{1, 1, 1}));
    EXPECT_EQ(reading.survey.traveltimes[0].times, Numbers(400000, -3.0));
}

TEST(Geogiga, RowValuesStartAtZeroInEveryBlock)
{
    const Reading reading = readText(fileWith({{17, "abc"}}));
    EXPECT_EQ(reading.outcome, "0");
    ASSERT_EQ(sizesOf(reading.survey), (Sizes{2, 1, 2}));
    EXPECT_EQ(reading.survey.traveltimes[1].times, (Numbers{0, 0, 0}));
    EXPECT_EQ(positionsOf(reading.survey.spreads[0]),
              (Positions{{0, 100.5}, {0, 100.5}, {0, 100.5}}));
}

// Lines.

TEST(Geogiga, TheLineInFrontOfTheRowsIsPassedOver)
{
    for (const char *heading : {"", " ", ":", "::", "\r", "1 2 3 4", "SHOT_LOCATION: 9"}) {
        const Reading reading = readText(fileWith({{9, heading}, {16, heading}}));
        EXPECT_EQ(reading.outcome, "0") << heading;
        ASSERT_EQ(sizesOf(reading.survey), (Sizes{2, 1, 2})) << heading;
        EXPECT_EQ(reading.survey.traveltimes[0].times, (Numbers{0.002, 0.01, 0.018})) << heading;
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
        {5, ":TOTAL_NUMBER_OF_SHOTS", "invalid_argument: invalid stod argument"},
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
        EXPECT_EQ(reading.outcome, onlyDelimiters) << line << text;
        EXPECT_EQ(sizesOf(reading.survey), left) << line << text;
        EXPECT_EQ(reading.problem.line, line) << text;
        EXPECT_EQ(reading.problem.detail, "nothing but delimiters") << line << text;
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
        {":\n", onlyDelimiters},
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
    EXPECT_EQ(twoBlocks.problem.line, 12U);
    EXPECT_EQ(twoBlocks.problem.detail,
              "a carriage return or the next shot expected: do the rows end in CR LF?");
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
    EXPECT_EQ(reading.survey.shots[1].name, " shot2.sg2\r");
    EXPECT_EQ(reading.survey.shots[1].x, 12.5);
    EXPECT_EQ(reading.survey.traveltimes[1].times, (Numbers{0.015, 0.008, 0.0025}));
    EXPECT_EQ(positionsOf(reading.survey.spreads[0]),
              (Positions{{0.5, 100.5}, {5.5, 100.5}, {10.5, 100.5}}));

    // Of two carriage returns behind a row none is passed over.
    const Reading two = readText(joined(lines, "\r\r\n"));
    EXPECT_EQ(two.outcome, "1");
    ASSERT_EQ(sizesOf(two.survey), (Sizes{1, 0, 1}));
    EXPECT_EQ(two.survey.shots[0].name, " shot1.sg2\r\r");

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

// Names.

TEST(Geogiga, NamesWithBlanksAndLettersOutsideOfAscii)
{
    const TemporaryFolder folder;
    const Reading reading = readPath(folder.write(
        "Geländelinie 3 – Süd 日本.txt", fileWith({{6, "SEISMIC_DATA_FILE_NAME: Schuß 1 é.sg2"}})));
    EXPECT_EQ(reading.outcome, "0");
    ASSERT_EQ(sizesOf(reading.survey), (Sizes{2, 1, 2}));
    EXPECT_EQ(reading.survey.shots[0].name, " Schuß 1 é.sg2");
}

// Where it is wrong, and why.

TEST(GeogigaProblems, LineAndDetail)
{
    const struct
    {
        ChangedLines changedLines;
        std::size_t line;
        const char *detail;
    } cases[] = {
        {{{1, "TX"}}, 1, "\"TX_CURVE\" expected"},
        {{{1, "TX_CURVE\r"}}, 1, "\"TX_CURVE\" expected, then LF and not CR LF"},
        {{{2, ""}}, 2, "\"VERSION:\" expected"},
        {{{4, "DEPTH: 1"}}, 4, "\"ELEVATION\" expected"},
        {{{5, "TOTAL_NUMBER_OF_SHOTS: many"}}, 5, "number of shots \" many\""},
        {{{8, "NUMBER_OF_RECEIVERS: -3"}}, 8, "number of receivers -3"},
        {{{10, "1 x 0.002 1\r"}}, 10, "receiver row 1 of 3 is not four numbers"},
        {{{11, "2 5 x 1\r"}}, 11, "receiver row 2 of 3 is not four numbers"},
        {{{14, "SHOT: 1"}}, 14, "\"SHOT_LOCATION\" expected"},
        {{{15, "NUMBER_OF_RECEIVERS: 4"}, {19, "3 10 0.1 2\n4 15 0.2 2"}},
         20,
         "4 receivers after 3 in the first shot"},
        {{{18, "2 x 0.008 2\r"}}, 18, "receiver row 2 of 3 is not four numbers"}, // passes
    };
    for (const auto &[changedLines, line, detail] : cases) {
        const Problem problem = readText(fileWith(changedLines)).problem;
        EXPECT_EQ(problem.line, line) << detail;
        EXPECT_EQ(problem.detail, detail);
    }
}

TEST(GeogigaProblems, AFileThatEndsEarlyIsNamedByTheLineThatIsNotThere)
{
    const Problem problem = readText("TX_CURVE\nVERSION: 1.0\nELEVATION: 1\n").problem;
    EXPECT_EQ(problem.line, 4U);
    EXPECT_EQ(problem.detail, "\"TOTAL_NUMBER_OF_SHOTS\" expected");
}

TEST(GeogigaProblems, AFileThatEndsBeforeItsRows)
{
    for (const auto &[lineCount, line] : {std::pair(8U, 9U), {9, 10U}, {10, 11U}, {11, 12U}}) {
        const Lines lines = firstLines(twoShots, lineCount);
        EXPECT_EQ(readText(joined(lines)).problem.line, line);
    }
}

TEST(GeogigaProblems, ARemarkOnAFileWithoutShots)
{
    EXPECT_EQ(readText(fileWith({{5, "TOTAL_NUMBER_OF_SHOTS: 0.9"}})).problem.remark,
              "there are no shots in this file");
    EXPECT_EQ(readText(joined(twoShots)).problem.remark, "");
}
