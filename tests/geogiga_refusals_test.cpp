// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "tests/support/geogiga_reading.h"
#include "traveltime/fields.h"

#include <gtest/gtest.h>

// What is refused, where and why, and what stays in the survey.

TEST(GeogigaFailures, AFileThatCannotBeOpened)
{
    const TemporaryFolder folder;
    TraveltimeSurvey before;
    before.shots = {{1, 2, "before"}};
    for (const std::string &path : {folder.path("missing.txt"), folder.path(""), std::string()}) {
        const Reading reading = readPath(path, before);
        EXPECT_EQ(reading.outcome, "1") << path;
        EXPECT_EQ(sizesOf(reading.survey), (Sizes{0, 0, 1})) << path;
        EXPECT_EQ(failureOf(reading.report), "the file cannot be opened") << path;
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
    const Reading reading = readText("");
    EXPECT_EQ(reading.outcome, "1");
    EXPECT_EQ(failureOf(reading.report), "the file is empty");
    EXPECT_EQ(remarksOf(reading.report), Texts{});
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
            EXPECT_EQ(reading.outcome, invalidSubscript) << line << keyword << colons;
            EXPECT_EQ(sizesOf(reading.survey), left) << line << keyword << colons;
            EXPECT_EQ(failureOf(reading.report),
                      std::to_string(line) + ": 1 field, 2 expected: invalid vector subscript")
                << keyword << colons;
        }
    }
}

TEST(GeogigaFailures, AShotCountThatIsNoNumber)
{
    for (const char *count : {" abc", " ", "\t", " ,5", " .", " +", " --1"}) {
        const Reading reading = readText(emptyShots(count, 1));
        EXPECT_EQ(reading.outcome, invalidStod) << count;
        EXPECT_EQ(sizesOf(reading.survey), (Sizes{0, 0, 0})) << count;
        EXPECT_EQ(failureOf(reading.report),
                  "4: number of shots \"" + quotable(count) + "\": invalid stod argument");
    }
}

TEST(GeogigaFailures, AShotCountOutOfTheRangeOfDoubles)
{
    for (const char *count : {" 1e999", "-1e999", " 1e-999"}) {
        const Reading reading = readText(emptyShots(count, 1));
        EXPECT_EQ(reading.outcome, stodOutOfRange) << count;
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
        EXPECT_EQ(failureOf(refused.report), "7: 2 spreads read before") << count;
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
    EXPECT_EQ(refused.outcome, invalidSubscript);
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
    EXPECT_EQ(reading.survey.traveltimes[0].times, (Numbers{0.0021, 0, 0}));
}

TEST(GeogigaFailures, AnUnparsableRowNumberInTheLastBlockPasses)
{
    const Reading reading = readText(fileWith({{18, "2 5.5 abc 2\r"}}));
    EXPECT_EQ(reading.outcome, "0");
    ASSERT_EQ(sizesOf(reading.survey), (Sizes{2, 1, 2}));
    EXPECT_EQ(reading.survey.traveltimes[1].times, (Numbers{0.0152, 0, 0}));
    EXPECT_EQ(positionsOf(reading.survey.spreads[0]),
              (Positions{{0, 100.5}, {5.5, 100.5}, {5.5, 100.5}}));
}

TEST(GeogigaFailures, WhereAndWhy)
{
    const struct
    {
        ChangedLines changedLines;
        const char *failure;
    } cases[] = {
        {{{1, "TX"}}, "1: \"TX_CURVE\" expected"},
        {{{1, "TX_CURVE\r"}}, "1: \"TX_CURVE\" expected, then LF and not CR LF"},
        {{{2, ""}}, "2: \"VERSION:\" expected"},
        {{{4, "DEPTH: 1"}}, "4: \"ELEVATION\" expected"},
        {{{5, "TOTAL_NUMBER_OF_SHOTS: many"}},
         "5: number of shots \"many\": invalid stod argument"},
        {{{5, "TOTAL_NUMBER_OF_SHOTS: 1e999\r"}},
         "5: number of shots \"1e999\": stod argument out of range"},
        {{{8, "NUMBER_OF_RECEIVERS: -3"}}, "8: number of receivers -3: vector too long"},
        {{{8, "NUMBER_OF_RECEIVERS: 2147483647"}},
         "8: 2147483647 values asked for, of 370 bytes: vector too long"},
        {{{10, "1 x 0.002 1\r"}}, "10: receiver row 1 of 3 is not four numbers"},
        {{{11, "2 5 x 1\r"}}, "11: receiver row 2 of 3 is not four numbers"},
        {{{8, "NUMBER_OF_RECEIVERS: 3\r"}, {11, "2 5 x 1\r"}},
         "11: receiver row 2 of 3 is not four numbers"},
        {{{14, "SHOT: 1"}}, "14: \"SHOT_LOCATION\" expected"},
        {{{15, "NUMBER_OF_RECEIVERS: 4 \r"}, {19, "3 10 0.1 2\n4 15 0.2 2"}},
         "20: 4 receivers after 3 in the first shot: invalid vector subscript"},
        {{{18, "2 x 0.008 2\r"}}, "18: receiver row 2 of 3 is not four numbers"}, // passes
    };
    for (const auto &[changedLines, failure] : cases)
        EXPECT_EQ(failureOf(readText(fileWith(changedLines)).report), failure);
}

TEST(GeogigaFailures, AFileThatEndsEarlyTellsHowFarItGoes)
{
    const struct
    {
        std::size_t lines;
        const char *outcome;
        const char *failure;
    } cases[] = {
        {1, "1", "1: the file ends where \"VERSION:\" is expected"},
        {2, "1", "2: the file ends where \"ELEVATION\" is expected"},
        {3, "1", "3: the file ends where \"ELEVATION\" is expected"},
        {4, "1", "4: the file ends where \"TOTAL_NUMBER_OF_SHOTS\" is expected"},
        {5, "1",
         "5: the file ends after 0 of 2 shots where \"SEISMIC_DATA_FILE_NAME\" is expected"},
        {6, "1", "6: the file ends after 0 of 2 shots where \"SHOT_LOCATION\" is expected"},
        {7, "1", "7: the file ends after 0 of 2 shots where \"NUMBER_OF_RECEIVERS\" is expected"},
        {8, "1", "8: the file ends after 0 of 2 shots and 0 of 3 receivers"},
        {9, "1", "9: the file ends after 0 of 2 shots and 0 of 3 receivers"},
        {10, "1", "10: the file ends after 0 of 2 shots and 1 of 3 receivers"},
        {11, "1", "11: the file ends after 0 of 2 shots and 2 of 3 receivers"},
        {12, "1",
         "12: the file ends after 1 of 2 shots where \"SEISMIC_DATA_FILE_NAME\" is expected"},
        {13, "1", "13: the file ends after 1 of 2 shots where \"SHOT_LOCATION\" is expected"},
        {14, "1", "14: the file ends after 1 of 2 shots where \"NUMBER_OF_RECEIVERS\" is expected"},
        // In the last shot the window goes on.
        {15, "0", "15: the file ends after 1 of 2 shots and 0 of 3 receivers"},
        {16, "0", "16: the file ends after 1 of 2 shots and 0 of 3 receivers"},
        {17, "0", "17: the file ends after 1 of 2 shots and 1 of 3 receivers"},
        {18, "0", "18: the file ends after 1 of 2 shots and 2 of 3 receivers"},
    };
    for (const auto &[lines, outcome, failure] : cases) {
        std::string text = joined(firstLines(twoShots, lines));
        for (const bool lineFeedAtTheEnd : {true, false}) {
            if (!lineFeedAtTheEnd)
                text.pop_back();
            const Reading reading = readText(text);
            EXPECT_EQ(reading.outcome, outcome) << lines;
            EXPECT_EQ(failureOf(reading.report), failure) << lines;
            EXPECT_EQ(remarksOf(reading.report), Texts{}) << lines;
        }
    }
}

TEST(GeogigaFailures, AFileThatEndsInARow)
{
    for (const char *row : {"2", "2 5 ", "2 5 0.01", "2 5 0.01\n\n"}) {
        const Reading reading = readText(joined(firstLines(twoShots, 10)) + row);
        EXPECT_EQ(reading.outcome, "1") << row;
        EXPECT_EQ(failureOf(reading.report),
                  "11: the file ends after 0 of 2 shots and 1 of 3 receivers")
            << row;
    }
}

TEST(GeogigaFailures, CountsAreQuotedAsTheFileHasThem)
{
    ChangedLines counts = {{5, "TOTAL_NUMBER_OF_SHOTS: 2.9\r"}, {8, "NUMBER_OF_RECEIVERS: 3.5 \r"}};
    const Lines changed = withLines(twoShots, counts);
    EXPECT_EQ(failureOf(readText(joined(firstLines(changed, 11))).report),
              "11: the file ends after 0 of 2.9 shots and 2 of 3.5 receivers");
    counts[11] = "2 5 x 1\r";
    EXPECT_EQ(failureOf(readText(fileWith(counts)).report),
              "11: receiver row 2 of 3.5 is not four numbers");
    EXPECT_EQ(failureOf(readText(fileWith({{5, "TOTAL_NUMBER_OF_SHOTS: -1"}})).report),
              "19: the file ends after 2 of -1 shots where \"SEISMIC_DATA_FILE_NAME\" is expected");
}
