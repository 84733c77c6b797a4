// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "tests/support/seisimager_reading.h"

#include <gtest/gtest.h>

// What is refused, where and why, and what stays in the survey.

TEST(SeisImagerFailures, AFileThatCannotBeOpenedLeavesTheSurveyUnchanged)
{
    const TemporaryFolder folder;
    TraveltimeSurvey before;
    before.traveltimes.resize(1);
    before.spreads.resize(2);
    before.shots.resize(3);
    for (const std::string &path : {folder.path("missing.vs"), folder.path(""), std::string()}) {
        const Reading reading = readPath(path, before);
        EXPECT_EQ(reading.outcome, "1") << path;
        EXPECT_EQ(sizesOf(reading.survey), (Sizes{1, 2, 3})) << path;
        EXPECT_EQ(failureOf(reading.report), "the file cannot be opened") << path;
    }
}

TEST(SeisImagerFailures, ALineOfFewerThanTwoFields)
{
    const struct
    {
        std::size_t line;
        Sizes left;
    } cases[] = {
        {2, {0, 0, 0}}, {3, {0, 0, 0}}, {4, {0, 0, 1}}, {5, {0, 0, 1}},
        {6, {1, 1, 1}}, {7, {1, 1, 2}}, {8, {1, 1, 2}},
    };
    for (const auto &[line, left] : cases) {
        for (const std::string text : {"", "2", "2 ", "2   ", "\t", "\r", "2\r", "2,3", "2;3"}) {
            const Reading reading = readText(fileWith({{line, text}}));
            EXPECT_EQ(reading.outcome, invalidSubscript) << line << ' ' << text;
            EXPECT_EQ(sizesOf(reading.survey), left) << line << ' ' << text;
            EXPECT_EQ(failureOf(reading.report),
                      std::to_string(line)
                          + (text.empty() ? ": 0 fields, 2 expected" : ": 1 field, 2 expected")
                          + ": invalid vector subscript")
                << line << ' ' << text;
        }
    }
}

TEST(SeisImagerFailures, AFileThatEndsEarly)
{
    const struct
    {
        std::size_t lines;
        Sizes left;
        const char *failure;
    } cases[] = {
        {1, {0, 0, 0}, "1: the file ends before its number of shots"},
        {2, {0, 0, 0}, "2: the file ends after 0 of 2 shots"},
        {3, {0, 0, 1}, "3: the file ends after 0 of 2 shots and 0 of 2 receivers"},
        {4, {0, 0, 1}, "4: the file ends after 0 of 2 shots and 1 of 2 receivers"},
        {5, {1, 1, 1}, "5: the file ends after 1 of 2 shots"},
        {6, {1, 1, 2}, "6: the file ends after 1 of 2 shots and 0 of 2 receivers"},
        {7, {1, 1, 2}, "7: the file ends after 1 of 2 shots and 1 of 2 receivers"},
    };
    for (const auto &[lines, left, failure] : cases) {
        std::string text = joined(firstLines(twoShots, lines));
        for (const bool lineFeedAtTheEnd : {true, false}) {
            if (!lineFeedAtTheEnd)
                text.pop_back();
            const Reading reading = readText(text);
            EXPECT_EQ(reading.outcome, invalidSubscript) << lines;
            EXPECT_EQ(sizesOf(reading.survey), left) << lines;
            EXPECT_EQ(failureOf(reading.report),
                      std::string(failure) + ": invalid vector subscript");
            EXPECT_EQ(remarksOf(reading.report), Texts{}) << lines;
        }
    }
}

TEST(SeisImagerFailures, AnEmptyFile)
{
    const Reading reading = readText("");
    EXPECT_EQ(reading.outcome, invalidSubscript);
    EXPECT_EQ(sizesOf(reading.survey), (Sizes{0, 0, 0}));
    EXPECT_EQ(failureOf(reading.report), "the file is empty: invalid vector subscript");
    EXPECT_EQ(remarksOf(reading.report), Texts{});
}

TEST(SeisImagerFailures, CountsAreQuotedAsTheFileHasThem)
{
    EXPECT_EQ(failureOf(readText("x\r\n0 12.0\r\n1 0\r\n1 0\r\n").report),
              "4: the file ends after 2 of 12.0 shots: invalid vector subscript");
    EXPECT_EQ(
        failureOf(readText("x\r\n0 1\r\n1 24\r\n5 12.5\r\n").report),
        "4: the file ends after 0 of 1 shots and 1 of 24 receivers: invalid vector subscript");
    EXPECT_EQ(
        failureOf(readText("x\n0 1\n1 -1\n5 12.5\n").report),
        "4: the file ends after 0 of 1 shots and 1 of -1 receivers: invalid vector subscript");
}

TEST(SeisImagerFailures, NumbersThatDoNotParseAreZero)
{
    const Reading reading = readText(fileWith({{3, "abc 2"}, {4, "abc abc"}, {6, "x none"}}));
    EXPECT_EQ(reading.outcome, "0");
    ASSERT_EQ(sizesOf(reading.survey), (Sizes{2, 2, 2}));
    EXPECT_EQ(reading.survey.shots[0].x, 0.0);
    EXPECT_EQ(positionsOf(reading.survey.spreads[0]), (Positions{{0, 0}, {5, 0}}));
    EXPECT_EQ(reading.survey.traveltimes[0].times, (Numbers{0, 0.025}));
    EXPECT_EQ(reading.survey.traveltimes[1].times, Numbers{});
}

TEST(SeisImager, LinesOfBlanksAlone)
{
    const struct
    {
        std::size_t line;
        Sizes left;
    } cases[] = {{1, {0, 0, 0}}, {2, {0, 0, 0}}, {3, {0, 0, 0}}, {4, {0, 0, 1}},
                 {5, {0, 0, 1}}, {6, {1, 1, 1}}, {8, {1, 1, 2}}};
    for (const auto &[line, left] : cases) {
        for (const char *blanks : {" ", "   "}) {
            const Reading reading = readText(fileWith({{line, blanks}}));
            EXPECT_EQ(reading.outcome, invalidPosition) << line;
            EXPECT_EQ(sizesOf(reading.survey), left) << line;
            EXPECT_EQ(failureOf(reading.report),
                      std::to_string(line) + ": nothing but delimiters: invalid string position");
        }
    }
}

TEST(SeisImager, ALoneCarriageReturnAtTheEndIsALineOfOneField)
{
    Lines lines = twoShots;
    lines.pop_back();
    const Reading reading = readText(joined(lines) + "\r");
    EXPECT_EQ(reading.outcome, invalidSubscript);
    EXPECT_EQ(failureOf(reading.report), "8: 1 field, 2 expected: invalid vector subscript");
}
