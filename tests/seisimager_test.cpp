// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "readers/seisimager.h"

#include "tests/support/reading.h"

#include <gtest/gtest.h>

namespace {

const char tooFewFields[] = "out_of_range: invalid vector subscript";
const char onlyDelimiters[] = "out_of_range: invalid string position";

/// Two shots on the same two receivers.
const Lines twoShots = {
    "line 7",    // 1
    "0 2 0.5",   // 2
    "-2.5 2 0",  // 3
    "0 12.5 1",  // 4
    "5 25",      // 5
    "12.5 2",    // 6
    "0 62.5",    // 7
    "5 31.25 1", // 8
};

/// The file above with some of its lines, counted from 1, replaced.
std::string fileWith(const ChangedLines &changedLines)
{
    return joined(withLines(twoShots, changedLines));
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
        return readSeisImagerTraveltimes(path, survey.traveltimes, survey.spreads, survey.shots);
    });
    TraveltimeSurvey other = before;
    SpreadIndex index;
    const std::string otherOutcome = classOutcomeOf([&] {
        return readSeisImagerTraveltimes(path, other.traveltimes, other.spreads, other.shots, index,
                                         reading.problem);
    });
    EXPECT_EQ(otherOutcome, reading.outcome) << path;
    EXPECT_EQ(sizesOf(other), sizesOf(survey)) << path;
    return reading;
}

Reading readText(const std::string &text, const TraveltimeSurvey &before = {})
{
    const TemporaryFolder folder;
    return readPath(folder.write("line.vs", text), before);
}

std::vector<std::uint32_t> spreadIndicesOf(const TraveltimeSurvey &survey)
{
    std::vector<std::uint32_t> indices;
    for (const ShotTraveltimes &record : survey.traveltimes)
        indices.push_back(record.spreadIndex);
    return indices;
}

using Indices = std::vector<std::uint32_t>;

} // namespace

TEST(SeisImager, FillsTheSurvey)
{
    const Reading reading = readText(joined(twoShots));
    EXPECT_EQ(reading.outcome, "0");
    EXPECT_EQ(reading.problem.detail, "");
    const auto &[traveltimes, spreads, shots] = reading.survey;

    ASSERT_EQ(shots.size(), 2U);
    EXPECT_EQ(shots[0].x, -2.5);
    EXPECT_EQ(shots[1].x, 12.5);
    ASSERT_EQ(traveltimes.size(), 2U);
    EXPECT_EQ(traveltimes[0].shotX, -2.5);
    EXPECT_EQ(traveltimes[1].shotX, 12.5);
    EXPECT_EQ(traveltimes[0].times, (Numbers{0.0125, 0.025}));
    EXPECT_EQ(traveltimes[1].times, (Numbers{0.0625, 0.03125}));
    for (std::uint32_t i = 0; i < 2; ++i) {
        EXPECT_EQ(shots[i].elevation, 0.0);
        EXPECT_EQ(shots[i].name, "");
        EXPECT_EQ(traveltimes[i].shotElevation, 0.0);
        EXPECT_EQ(traveltimes[i].shotIndex, i);
        EXPECT_EQ(traveltimes[i].spreadIndex, 0U);
    }
    ASSERT_EQ(spreads.size(), 1U);
    EXPECT_EQ(positionsOf(spreads[0]), (Positions{{0, 0}, {5, 0}}));
}

TEST(SeisImager, PrintsNothing)
{
    CapturedStreams streams;
    readText(joined(twoShots));
    readText(fileWith({{4, "0"}}));
    readText(fileWith({{2, "1"}}));
    readPath("/no/such/folder/line.vs");
    streams.finish();
    EXPECT_EQ(streams.output, "");
    EXPECT_EQ(streams.error, "");
}

// Edge cases.

TEST(SeisImagerEdgeCases, AShotCountOfZeroLeavesTheSurveyUnchanged)
{
    TraveltimeSurvey before;
    before.spreads = {{{0, 0}}};
    const Reading reading = readText(fileWith({{2, "0 0"}}), before);
    EXPECT_EQ(reading.outcome, "0");
    EXPECT_EQ(sizesOf(reading.survey), (Sizes{0, 1, 0}));
    EXPECT_EQ(positionsOf(reading.survey.spreads[0]), (Positions{{0, 0}}));
}

TEST(SeisImagerEdgeCases, TwoShotsOnTheSameReceiversShareASpread)
{
    const Reading reading = readText("x\n0 3\n1 1\n9 8\n2 2\n0 1\n5 2\n3 2\n0 3\n5 4\n");
    EXPECT_EQ(reading.outcome, "0");
    EXPECT_EQ(spreadIndicesOf(reading.survey), (Indices{0, 1, 1}));
    EXPECT_EQ(sizesOf(reading.survey), (Sizes{3, 2, 3}));
}

TEST(SeisImagerEdgeCases, ASecondFileSharesTheSpreadsOfTheFirst)
{
    const TraveltimeSurvey first = readText(joined(twoShots)).survey;
    const Reading second = readText("x\n0 3\n7 2\n0 1\n5 2\n8 1\n5 3\n9 2\n0 4\n5 5\n", first);
    EXPECT_EQ(second.outcome, "0");
    const auto &[traveltimes, spreads, shots] = second.survey;
    ASSERT_EQ(sizesOf(second.survey), (Sizes{5, 2, 5}));
    EXPECT_EQ(spreadIndicesOf(second.survey), (Indices{0, 0, 0, 1, 0}));
    // The first file's records stand as they were, in front.
    EXPECT_EQ(traveltimes[1].shotIndex, 1U);
    EXPECT_EQ(traveltimes[1].times, (Numbers{0.0625, 0.03125}));
    EXPECT_EQ(traveltimes[2].shotIndex, 0U);
    EXPECT_EQ(traveltimes[3].shotIndex, 1U);
    EXPECT_EQ(traveltimes[4].shotIndex, 2U);
    EXPECT_EQ(traveltimes[4].times, (Numbers{0.004, 0.005}));
    EXPECT_EQ(shots[1].x, 12.5);
    EXPECT_EQ(shots[2].x, 7.0);
    EXPECT_EQ(positionsOf(spreads[1]), (Positions{{5, 0}}));
}

TEST(SeisImagerEdgeCases, AShotWithoutReceiversAlwaysAddsAnEmptySpread)
{
    TraveltimeSurvey before;
    before.spreads.resize(1);
    const Reading reading = readText("x\n0 2\n1 0\n2 0\n", before);
    EXPECT_EQ(reading.outcome, "0");
    ASSERT_EQ(sizesOf(reading.survey), (Sizes{2, 3, 2}));
    EXPECT_EQ(spreadIndicesOf(reading.survey), (Indices{1, 2}));
    EXPECT_TRUE(reading.survey.spreads[1].empty());
    EXPECT_TRUE(reading.survey.spreads[2].empty());
    EXPECT_EQ(reading.survey.traveltimes[0].times, Numbers{});
    EXPECT_EQ(reading.survey.traveltimes[1].times, Numbers{});
}

TEST(SeisImagerEdgeCases, ATimeOf12Point5MillisecondsIsHeldInSeconds)
{
    const Reading reading = readText("x\n0 1\n1 1\n5 12.5\n");
    EXPECT_EQ(reading.outcome, "0");
    ASSERT_EQ(reading.survey.traveltimes.size(), 1U);
    EXPECT_EQ(reading.survey.traveltimes[0].times, (Numbers{0.0125}));
}

TEST(SeisImagerEdgeCases, AReceiverLineOfOneField)
{
    EXPECT_EQ(readText(fileWith({{4, "0"}})).outcome, tooFewFields);
    EXPECT_EQ(readText(fileWith({{8, "5 "}})).outcome, tooFewFields);
}

TEST(SeisImagerEdgeCases, FieldsApartByATabAreOneField)
{
    EXPECT_EQ(readText(fileWith({{4, "0\t12.5"}})).outcome, tooFewFields);
    EXPECT_EQ(readText(fileWith({{3, "-2.5\t2"}})).outcome, tooFewFields);
    EXPECT_EQ(readText(fileWith({{2, "0\t2"}})).outcome, tooFewFields);
    EXPECT_EQ(readText(fileWith({{4, "\t"}})).outcome, tooFewFields);
}

// Which layouts are the same.

TEST(SeisImagerSpreads, EqualPositionsInTheSameOrder)
{
    const struct
    {
        const char *secondShot; ///< the first one has receivers at 0 and 5
        std::uint32_t spreadIndex;
    } cases[] = {
        {"1 2\n0 1\n5 1\n", 0},
        {"1 2\n0.0 9\n5e0 9\n", 0},
        {"1 2\n-0 1\n5 1\n", 0},
        {"1 2\n5 1\n0 1\n", 1},
        {"1 1\n0 1\n", 1},
        {"1 3\n0 1\n5 1\n10 1\n", 1},
        {"1 2\n0 1\n5.0000001 1\n", 1},
        {"1 2\n1e-300 1\n5 1\n", 1},
        {"1 2\n0 1\n5.000000000000001 1\n", 1},
        {"1 0\n", 1},
    };
    for (const auto &[secondShot, spreadIndex] : cases) {
        const Reading reading = readText(std::string("x\n0 2\n1 2\n0 1\n5 1\n") + secondShot);
        EXPECT_EQ(reading.outcome, "0") << secondShot;
        EXPECT_EQ(spreadIndicesOf(reading.survey), (Indices{0, spreadIndex})) << secondShot;
        EXPECT_EQ(reading.survey.spreads.size(), spreadIndex + 1U) << secondShot;
    }
}

TEST(SeisImagerSpreads, APositionThatIsNoNumberNeverMatches)
{
    const Reading reading = readText("x\n0 2\n1 2\n0 1\nnan 1\n1 2\n0 1\nnan 1\n");
    EXPECT_EQ(reading.outcome, "0");
    EXPECT_EQ(spreadIndicesOf(reading.survey), (Indices{0, 1}));
    EXPECT_EQ(reading.survey.spreads.size(), 2U);
}

TEST(SeisImagerSpreads, ASpreadReadBeforeWithAnotherElevationIsAnotherOne)
{
    TraveltimeSurvey before;
    before.spreads = {{{0, 0}, {5, 0.5}}};
    const Reading reading = readText(joined(twoShots), before);
    EXPECT_EQ(reading.outcome, "0");
    EXPECT_EQ(spreadIndicesOf(reading.survey), (Indices{1, 1}));
    ASSERT_EQ(reading.survey.spreads.size(), 2U);
    EXPECT_EQ(positionsOf(reading.survey.spreads[0]), (Positions{{0, 0}, {5, 0.5}}));
}

TEST(SeisImagerSpreads, TheFirstOfEqualSpreadsIsTaken)
{
    TraveltimeSurvey before;
    before.spreads = {{}, {{0, 0}, {5, 0}}, {{0, 0}, {5, 0}}};
    const Reading reading = readText(joined(twoShots), before);
    EXPECT_EQ(reading.outcome, "0");
    EXPECT_EQ(spreadIndicesOf(reading.survey), (Indices{1, 1}));
    EXPECT_EQ(reading.survey.spreads.size(), 3U);
}

// Failures, and what stays in the survey after them.

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
        EXPECT_EQ(reading.problem.line, 0U) << path;
        EXPECT_NE(reading.problem.detail, "") << path;
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
            EXPECT_EQ(reading.outcome, tooFewFields) << line << ' ' << text;
            EXPECT_EQ(sizesOf(reading.survey), left) << line << ' ' << text;
            EXPECT_EQ(reading.problem.line, line) << text;
            EXPECT_EQ(reading.problem.detail,
                      text.empty() ? "0 fields, 2 expected" : "1 field, 2 expected")
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
    } cases[] = {{0, {0, 0, 0}}, {1, {0, 0, 0}}, {2, {0, 0, 0}}, {3, {0, 0, 1}},
                 {4, {0, 0, 1}}, {5, {1, 1, 1}}, {6, {1, 1, 2}}, {7, {1, 1, 2}}};
    for (const auto &[lines, left] : cases) {
        std::string text = joined(firstLines(twoShots, lines));
        Reading reading = readText(text);
        EXPECT_EQ(reading.outcome, tooFewFields) << lines;
        EXPECT_EQ(sizesOf(reading.survey), left) << lines;
        if (text.empty())
            continue;
        text.pop_back(); // without the last line feed
        reading = readText(text);
        EXPECT_EQ(reading.outcome, tooFewFields) << lines;
        EXPECT_EQ(sizesOf(reading.survey), left) << lines;
        EXPECT_EQ(reading.problem.line, lines + 1) << lines;
        EXPECT_EQ(reading.problem.detail, "0 fields, 2 expected") << lines;
    }
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

// Counts.

TEST(SeisImager, ShotCounts)
{
    // 13 shots stand in the file.
    const struct
    {
        const char *count;
        const char *outcome;
        std::size_t shots;
    } cases[] = {
        {"2", "0", 2},
        {"2.9", "0", 2},
        {"-1", "0", 0},
        {"-2147483648", "0", 0},
        {"2147483648", "0", 0},
        {"4294967295", "0", 0},
        {"4294967297", "0", 1},
        {"99999999999999999999", "0", 0},
        {"1e5", "0", 1},
        {"+1.5", "0", 1},
        {".5", "0", 0},
        {"5.", "0", 5},
        {"0x1p3", "0", 0},
        {"inf", "0", 0},
        {"nan", "0", 0},
        {"1,5", "0", 1},
        {"12abc", "0", 12},
        {"abc", "0", 0},
        {"\t7", "0", 7},
        {"\r", "0", 0},
        {"13", "0", 13},
        {"14", tooFewFields, 13},
        {"2147483647", tooFewFields, 13},
    };
    for (const auto &[count, outcome, shots] : cases) {
        std::string text = std::string("x\n0 ") + count + '\n';
        for (int i = 0; i < 13; ++i)
            text += "1 0\n";
        const Reading reading = readText(text);
        EXPECT_EQ(reading.outcome, outcome) << count;
        EXPECT_EQ(sizesOf(reading.survey), (Sizes{shots, shots, shots})) << count;
    }
}

TEST(SeisImager, ReceiverCounts)
{
    // Three receiver lines stand in the file. A negative count is a large one.
    const struct
    {
        const char *count;
        const char *outcome;
        std::size_t receivers;
    } cases[] = {
        {"0", "0", 0},
        {"3", "0", 3},
        {"2.9", "0", 2},
        {"+1", "0", 1},
        {"1e5", "0", 1},
        {".5", "0", 0},
        {"3.", "0", 3},
        {"0x2", "0", 0},
        {"inf", "0", 0},
        {"nan", "0", 0},
        {"1,5", "0", 1},
        {"2abc", "0", 2},
        {"abc", "0", 0},
        {"\t2", "0", 2},
        {"4294967298", "0", 2},
        {"-4294967295", "0", 1},
        {"4", tooFewFields, 0},
        {"-1", tooFewFields, 0},
        {"-2147483648", tooFewFields, 0},
        {"2147483647", tooFewFields, 0},
    };
    for (const auto &[count, outcome, receivers] : cases) {
        const Reading reading = readText(std::string("x\n0 1\n1 ") + count + "\n0 1\n5 2\n10 3\n");
        EXPECT_EQ(reading.outcome, outcome) << count;
        if (outcome[0] != '0') {
            EXPECT_EQ(sizesOf(reading.survey), (Sizes{0, 0, 1})) << count;
            continue;
        }
        ASSERT_EQ(sizesOf(reading.survey), (Sizes{1, 1, 1})) << count;
        EXPECT_EQ(reading.survey.spreads[0].size(), receivers) << count;
        EXPECT_EQ(reading.survey.traveltimes[0].times.size(), receivers) << count;
    }
}

// Numbers.

TEST(SeisImager, Numbers)
{
    for (const auto &[text, value] : numberTexts) {
        const Reading reading =
            readText(std::string("x\n0 1\n") + text + " 1\n" + text + " " + text + " 9\n");
        EXPECT_EQ(reading.outcome, "0") << text;
        ASSERT_EQ(sizesOf(reading.survey), (Sizes{1, 1, 1})) << text;
        EXPECT_TRUE(same(reading.survey.shots[0].x, value)) << text;
        EXPECT_TRUE(same(reading.survey.traveltimes[0].shotX, value)) << text;
        EXPECT_TRUE(same(reading.survey.spreads[0].at(0).x, value)) << text;
        EXPECT_TRUE(same(reading.survey.traveltimes[0].times.at(0), value / 1000)) << text;
    }
}

// Lines.

TEST(SeisImager, TheFirstLineIsPassedOver)
{
    for (const char *line : {"", "x", "1 2 3", "\t", "\r", " x", " 1 2 "}) {
        const Reading reading = readText(fileWith({{1, line}}));
        EXPECT_EQ(reading.outcome, "0") << line;
        EXPECT_EQ(sizesOf(reading.survey), (Sizes{2, 1, 2})) << line;
    }
}

TEST(SeisImager, NothingBehindTheLastShotIsRead)
{
    for (const char *more : {"\n", "   \n", "x", "1 2 3\n", "\r"}) {
        const Reading reading = readText(joined(twoShots) + more);
        EXPECT_EQ(reading.outcome, "0") << more;
        EXPECT_EQ(sizesOf(reading.survey), (Sizes{2, 1, 2})) << more;
    }
}

TEST(SeisImager, LinesThatBeginWithABlank)
{
    // Such a line has its whole rest as the first field, then the fields.
    const Reading count = readText(" x\n 1 2 3\n5 0\n5 0\n");
    EXPECT_EQ(count.outcome, "0");
    EXPECT_EQ(count.survey.shots.size(), 1U);

    const Reading shot = readText("x\n0 1\n 2 1\n0 10\n5 20\n");
    EXPECT_EQ(shot.outcome, "0");
    ASSERT_EQ(sizesOf(shot.survey), (Sizes{1, 1, 1}));
    EXPECT_EQ(shot.survey.shots[0].x, 2.0);
    EXPECT_EQ(shot.survey.traveltimes[0].times, (Numbers{0.01, 0.02})); // two receivers, not one

    const Reading receiver = readText("x\n0 1\n2 2\n   4 10\n 8\n");
    EXPECT_EQ(receiver.outcome, "0");
    ASSERT_EQ(sizesOf(receiver.survey), (Sizes{1, 1, 1}));
    EXPECT_EQ(positionsOf(receiver.survey.spreads[0]), (Positions{{4, 0}, {8, 0}}));
    EXPECT_EQ(receiver.survey.traveltimes[0].times, (Numbers{0.004, 0.008}));
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
            EXPECT_EQ(reading.outcome, onlyDelimiters) << line;
            EXPECT_EQ(sizesOf(reading.survey), left) << line;
            EXPECT_EQ(reading.problem.line, line);
            EXPECT_EQ(reading.problem.detail, "nothing but delimiters") << line;
        }
    }
}

TEST(SeisImager, RunsOfBlanksAndBlanksAtTheEnd)
{
    const Reading reading = readText("x\n0   1  \n2     2   \n0    10   \n5 20 \n");
    EXPECT_EQ(reading.outcome, "0");
    ASSERT_EQ(sizesOf(reading.survey), (Sizes{1, 1, 1}));
    EXPECT_EQ(reading.survey.traveltimes[0].times, (Numbers{0.01, 0.02}));
}

TEST(SeisImager, LineEnds)
{
    for (const char *lineEnd : {"\n", "\r\n", "\r\r\n"}) {
        std::string text = joined(twoShots, lineEnd);
        for (const bool lineFeedAtTheEnd : {true, false}) {
            if (!lineFeedAtTheEnd)
                text.pop_back();
            const Reading reading = readText(text);
            EXPECT_EQ(reading.outcome, "0") << text;
            ASSERT_EQ(sizesOf(reading.survey), (Sizes{2, 1, 2})) << text;
            EXPECT_EQ(reading.survey.traveltimes[0].times, (Numbers{0.0125, 0.025})) << text;
            EXPECT_EQ(reading.survey.traveltimes[1].times, (Numbers{0.0625, 0.03125})) << text;
            EXPECT_EQ(positionsOf(reading.survey.spreads[0]), (Positions{{0, 0}, {5, 0}})) << text;
        }
    }
    // Carriage returns alone end no line.
    EXPECT_EQ(readText(joined(twoShots, "\r")).outcome, tooFewFields);
}

TEST(SeisImager, ACarriageReturnBehindABlankIsAField)
{
    const Reading reading = readText(fileWith({{5, "5 \r"}}));
    EXPECT_EQ(reading.outcome, "0");
    ASSERT_EQ(sizesOf(reading.survey), (Sizes{2, 1, 2}));
    EXPECT_EQ(reading.survey.traveltimes[0].times, (Numbers{0.0125, 0}));

    // A line of blanks with one is not a line of blanks alone: its two fields are both "\r".
    const Reading blanks = readText(fileWith({{5, "  \r"}}));
    EXPECT_EQ(blanks.outcome, "0");
    ASSERT_EQ(sizesOf(blanks.survey), (Sizes{2, 2, 2}));
    EXPECT_EQ(positionsOf(blanks.survey.spreads[0]), (Positions{{0, 0}, {0, 0}}));
}

TEST(SeisImager, ALoneCarriageReturnAtTheEndIsALineOfOneField)
{
    Lines lines = twoShots;
    lines.pop_back();
    const Reading reading = readText(joined(lines) + "\r");
    EXPECT_EQ(reading.outcome, tooFewFields);
    EXPECT_EQ(reading.problem.line, 8U);
    EXPECT_EQ(reading.problem.detail, "1 field, 2 expected");
}

// Names.

TEST(SeisImager, NamesWithBlanksAndLettersOutsideOfAscii)
{
    const TemporaryFolder folder;
    const Reading reading =
        readPath(folder.write("Geländelinie 3 – Süd 日本.vs", joined(twoShots)));
    EXPECT_EQ(reading.outcome, "0");
    EXPECT_EQ(sizesOf(reading.survey), (Sizes{2, 1, 2}));
}

TEST(SeisImagerProblems, ARemarkOnAFileWithoutShots)
{
    for (const char *count : {"0 0", "0 -3", "0 none"}) {
        EXPECT_EQ(readText(fileWith({{2, count}})).problem.remark,
                  "there are no shots in this file")
            << count;
    }
    EXPECT_EQ(readText(joined(twoShots)).problem.remark, "");
}
