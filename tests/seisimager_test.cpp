// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "tests/support/seisimager_reading.h"

#include <gtest/gtest.h>

namespace {

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
    EXPECT_EQ(failureOf(reading.report), "");
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
    EXPECT_EQ(readText(fileWith({{4, "0"}})).outcome, invalidSubscript);
    EXPECT_EQ(readText(fileWith({{8, "5 "}})).outcome, invalidSubscript);
}

TEST(SeisImagerEdgeCases, FieldsApartByATabAreOneField)
{
    EXPECT_EQ(readText(fileWith({{4, "0\t12.5"}})).outcome, invalidSubscript);
    EXPECT_EQ(readText(fileWith({{3, "-2.5\t2"}})).outcome, invalidSubscript);
    EXPECT_EQ(readText(fileWith({{2, "0\t2"}})).outcome, invalidSubscript);
    EXPECT_EQ(readText(fileWith({{4, "\t"}})).outcome, invalidSubscript);
}

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
        {"14", invalidSubscript, 13},
        {"2147483647", invalidSubscript, 13},
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
        {"4", invalidSubscript, 0},
        {"-1", invalidSubscript, 0},
        {"-2147483648", invalidSubscript, 0},
        {"2147483647", invalidSubscript, 0},
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

TEST(SeisImager, Numbers)
{
    for (const auto &[text, value, unused] : numberTexts) {
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
    EXPECT_EQ(readText(joined(twoShots, "\r")).outcome, invalidSubscript);
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

TEST(SeisImager, NamesWithBlanksAndLettersOutsideOfAscii)
{
    const TemporaryFolder folder;
    const Reading reading =
        readPath(folder.write("Geländelinie 3 – Süd 日本.vs", joined(twoShots)));
    EXPECT_EQ(reading.outcome, "0");
    EXPECT_EQ(sizesOf(reading.survey), (Sizes{2, 1, 2}));
}
