// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "tests/support/winsism_reading.h"

#include <gtest/gtest.h>

TEST(Winsism, FillsTheSurvey)
{
    const Reading reading = readText(joined(twoShots));
    expectRead(reading, twoShotPositions, threeReceiverPositions, "");
    ASSERT_EQ(reading.survey.traveltimes.size(), 2U);
    for (std::uint32_t i = 0; i < 2; ++i) {
        const ShotTraveltimes &record = reading.survey.traveltimes[i];
        EXPECT_EQ(record.spreadIndex, 0U);
        EXPECT_EQ(record.shotIndex, i);
        EXPECT_EQ(record.shotX, twoShotPositions[i].first);
        EXPECT_EQ(record.shotElevation, twoShotPositions[i].second);
        EXPECT_EQ(record.times, Numbers{});
        EXPECT_EQ(reading.survey.shots[i].name, "");
    }
}

TEST(WinsismEdgeCases, HeadingsBehindBlanksAndBeforeACarriageReturn)
{
    ChangedLines changedLines;
    for (const std::size_t line : {1U, 4U, 7U, 10U, 13U})
        changedLines[line] = "   " + twoShots[line - 1] + "\r";
    expectRead(readText(fileWith(changedLines)), twoShotPositions, threeReceiverPositions, "");
}

TEST(WinsismEdgeCases, ARepeatedShotNumberMakesOneShotWithItsLastElevation)
{
    expectRead(readText(fileWith({{2, "1 2 1"}, {3, "100 101.5 77"}})), {{-2.5, 77}, {12.5, 101.5}},
               threeReceiverPositions, "");
}

TEST(WinsismEdgeCases, ShotsComeInAscendingNumber)
{
    const Reading reading = readText(fileWith({{2, "10 9 2"},
                                               {3, "110 109 102"},
                                               {5, "9 2 10"},
                                               {6, "0.9 0.2 1"},
                                               {8, "30 3 21"},
                                               {9, "3 1 2"},
                                               {11, "21 30 3"},
                                               {12, "52 53 51"}}));
    expectRead(reading, {{0.2, 102}, {0.9, 109}, {1, 110}}, {{1, 51}, {2, 52}, {3, 53}}, "");
    ASSERT_EQ(reading.survey.traveltimes.size(), 3U);
    EXPECT_EQ(reading.survey.traveltimes[2].shotIndex, 2U);
    EXPECT_EQ(reading.survey.traveltimes[2].shotX, 1.0);
    EXPECT_EQ(reading.survey.traveltimes[2].shotElevation, 110.0);
}

TEST(WinsismEdgeCases, NegativeNumbersComeLast)
{
    expectRead(readText(fileWith({{2, "-1 -2 2147483647 0"},
                                  {3, "4 3 2 1"},
                                  {5, "-1 -2 2147483647 0"},
                                  {6, "40 30 20 10"},
                                  {8, "-5 7"},
                                  {9, "1 2"},
                                  {11, "-5 7"},
                                  {12, "3 4"}})),
               {{10, 1}, {20, 2}, {30, 3}, {40, 4}}, {{2, 4}, {1, 3}}, "");
}

TEST(WinsismEdgeCases, AShotNumberWithoutAnElevation)
{
    expectRefused(readText(fileWith({{5, "1 3"}})),
                  "Invalid shot ids : Shot number, Shot distance\n", 0, "");
}

TEST(WinsismEdgeCases, AReceiverNumberWithoutADistance)
{
    expectRefused(readText(fileWith({{11, "1 2 4"}})),
                  "Invalid phone ids : Receiver number, receiver elevation\n", 2, "");
}

TEST(WinsismEdgeCases, LinesOfTimesThatHoldTimesAreRefused)
{
    const Reading reading = readText(fileWith({{14, "2 12.5 20"}, {15, "20 10 3"}}));
    expectRefused(reading, "Invalid times : FBP times\n", 2, "");
    EXPECT_EQ(positionsOf(reading.survey.shots), twoShotPositions);
}

TEST(WinsismEdgeCases, LinesOfTimesThatAreEmptyPass)
{
    const Reading reading = readText(fileWith({{14, ""}, {15, "   "}}));
    expectRead(reading, twoShotPositions, threeReceiverPositions, "");
    for (const ShotTraveltimes &record : reading.survey.traveltimes)
        EXPECT_EQ(record.times, Numbers{});
}

TEST(Winsism, NumbersOfShotsAndReceivers)
{
    // Each text stands for the number that another section writes plainly.
    for (const auto &[text, plain] : {std::pair("1e5", "1"),
                                      {"+1.5", "1"},
                                      {".5", "0"},
                                      {"5.", "5"},
                                      {"0x1p3", "0"},
                                      {"inf", "0"},
                                      {"nan", "0"},
                                      {"1,5", "1"},
                                      {"12abc", "12"},
                                      {"abc", "0"},
                                      {"\t7", "7"},
                                      {"007", "7"},
                                      {"4294967297", "1"},
                                      {"4294967295", "-1"},
                                      {"99999999999999999999", "-1"},
                                      {"-99999999999999999999", "0"}}) {
        const Reading reading = readText(fileWith({{2, text},
                                                   {3, "100"},
                                                   {5, plain},
                                                   {6, "-2.5"},
                                                   {8, plain},
                                                   {9, "5"},
                                                   {11, text},
                                                   {12, "101"}}));
        expectRead(reading, {{-2.5, 100}}, {{5, 101}}, text);
    }
}

TEST(Winsism, DistancesAndElevations)
{
    for (const auto &[text, value, unused] : numberTexts) {
        const Reading reading = readText(fileWith({{2, "1"},
                                                   {3, text},
                                                   {5, "1"},
                                                   {6, text},
                                                   {8, "1"},
                                                   {9, text},
                                                   {11, "1"},
                                                   {12, text}}));
        EXPECT_EQ(reading.outcome, "0") << text;
        ASSERT_EQ(sizesOf(reading.survey), (Sizes{1, 1, 1})) << text;
        EXPECT_TRUE(same(reading.survey.shots[0].x, value)) << text;
        EXPECT_TRUE(same(reading.survey.shots[0].elevation, value)) << text;
        EXPECT_TRUE(same(reading.survey.traveltimes[0].shotX, value)) << text;
        EXPECT_TRUE(same(reading.survey.traveltimes[0].shotElevation, value)) << text;
        EXPECT_TRUE(same(reading.survey.spreads[0].at(0).x, value)) << text;
        EXPECT_TRUE(same(reading.survey.spreads[0].at(0).elevation, value)) << text;
    }
}

TEST(Winsism, RepeatedNumbers)
{
    // The last value counts. A shot that has no distance stands at 0, a receiver that has no
    // elevation too.
    expectRead(readText(fileWith({{5, "1 1"},
                                  {6, "7 8"},
                                  {8, "1 2 3 1"},
                                  {9, "0 5 10 20"},
                                  {11, "2 2 2"},
                                  {12, "6 7 8"}})),
               {{8, 100}, {0, 101}}, {{20, 0}, {5, 8}, {10, 0}}, "");
    // -1 and 4294967295 are one number.
    expectRead(readText(fileWith({{2, "-1 4294967295 1"}, {3, "5 6 7"}, {5, "1 -1"}})),
               {{-2.5, 7}, {12.5, 6}}, threeReceiverPositions, "");
}

TEST(Winsism, AFileWithoutShotsOrReceivers)
{
    expectRead(readText(fileWith({{2, ""}, {3, ""}, {5, ""}, {6, ""}})), {}, threeReceiverPositions,
               "no shots");
    // Nothing behind the heading is read then.
    expectRead(readText(fileWith({{2, ""}, {3, ""}, {5, ""}, {6, ""}, {14, "1 2 3"}})), {},
               threeReceiverPositions, "no shots, times");
    expectRead(readText(fileWith({{8, ""}, {9, ""}, {11, ""}, {12, ""}})), twoShotPositions, {},
               "no receivers");
}

TEST(Winsism, NothingBehindTheLinesOfTimesIsRead)
{
    expectRead(readText(joined(twoShots) + "1 2 3\nabc"), twoShotPositions, threeReceiverPositions,
               "");
}

TEST(Winsism, LinesThatBeginWithBlanks)
{
    // The blanks go before the line is cut: no field more.
    Lines lines = twoShots;
    for (std::string &line : lines)
        line.insert(0, "   ");
    expectRead(readText(joined(lines)), twoShotPositions, threeReceiverPositions, "");
    // Behind a tab blanks stand apart as ever.
    expectRead(readText(fileWith({{3, "\t100   101 "}, {6, "-2.5  12.5   "}})), twoShotPositions,
               threeReceiverPositions, "");
}

TEST(Winsism, LinesOfBlanksAloneHaveNoFields)
{
    for (const char *blanks : {" ", "    ", "  \r", "\r"}) {
        expectRead(readText(fileWith({{2, blanks}, {3, blanks}, {5, blanks}, {6, blanks}})), {},
                   threeReceiverPositions, blanks);
        expectRead(readText(fileWith({{14, blanks}, {15, blanks}})), twoShotPositions,
                   threeReceiverPositions, blanks);
        expectRefused(readText(fileWith({{12, blanks}})),
                      "Invalid match : Receiver number, receiver elevation\n", 2, blanks);
    }
}

TEST(Winsism, LineEnds)
{
    expectRead(readText(joined(twoShots, "\n")), twoShotPositions, threeReceiverPositions, "");
    expectRead(readText(joined(twoShots, "\r\n")), twoShotPositions, threeReceiverPositions, "");
    // Of two carriage returns one goes, the other stays in the heading and in the message.
    expectRefused(readText(joined(twoShots, "\r\r\n")),
                  "Invalid header : Shot number, Shot elevation\r\n", 0, "");
    // In a line of numbers it belongs to the last one, or is a field of its own behind a blank.
    expectRead(readText(fileWith({{2, "1 2\r\r"}, {3, "100 101\r\r"}, {8, "1 2 3 \r"}})),
               twoShotPositions, threeReceiverPositions, "");
    expectRefused(readText(fileWith({{3, "100 101.5 \r\r"}})),
                  "Invalid match : Shot number, Shot elevation\n", 0, "");
    // Carriage returns alone end no line.
    const std::string oneLine = joined(twoShots, "\r");
    expectRefused(readText(oneLine),
                  "Invalid header : " + oneLine.substr(0, oneLine.size() - 1) + '\n', 0, "");
}

TEST(Winsism, NamesWithBlanksAndLettersOutsideOfAscii)
{
    const TemporaryFolder folder;
    expectRead(readPath(folder.write("Geländelinie 3 – Süd 日本.xyz", joined(twoShots))),
               twoShotPositions, threeReceiverPositions, "");
}
