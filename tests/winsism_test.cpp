// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "readers/winsism.h"

#include "tests/support/reading.h"

#include <gtest/gtest.h>

namespace {

/// Two shots and three receivers, without times.
const Lines twoShots = {
    "Shot number, Shot elevation",         // 1
    "1 2",                                 // 2
    "100 101.5",                           // 3
    "Shot number, Shot distance",          // 4
    "1 2",                                 // 5
    "-2.5 12.5",                           // 6
    "Receiver number, receiver distance",  // 7
    "1 2 3",                               // 8
    "0 5 10",                              // 9
    "Receiver number, receiver elevation", // 10
    "1 2 3",                               // 11
    "100 100.5 101",                       // 12
    "FBP times",                           // 13
    "",                                    // 14
    "",                                    // 15
};

const Positions twoShotPositions = {{-2.5, 100}, {12.5, 101.5}};
const Positions threeReceiverPositions = {{0, 100}, {5, 100.5}, {10, 101}};

/// The file above with some of its lines, counted from 1, replaced.
std::string fileWith(const ChangedLines &changedLines)
{
    return joined(withLines(twoShots, changedLines));
}

struct Reading
{
    std::int32_t result;
    std::string error; ///< all that went to the standard error stream
    TraveltimeSurvey survey;
    Problem problem;
};

/// Reads with both forms of the reader, which must do the same, into a survey that is not empty.
Reading readPath(const std::string &path)
{
    TraveltimeSurvey before;
    before.traveltimes.resize(4);
    before.spreads.resize(5);
    before.shots.resize(6);

    Reading reading{-1, "", before, {}};
    auto &[traveltimes, spreads, shots] = reading.survey;
    CapturedStreams streams;
    reading.result = readWinsismTraveltimes(path, traveltimes, spreads, shots);
    streams.finish();
    EXPECT_EQ(streams.output, "");
    reading.error = streams.error;

    CapturedStreams otherStreams;
    const std::int32_t otherResult = readWinsismTraveltimes(
        path, before.traveltimes, before.spreads, before.shots, reading.problem);
    otherStreams.finish();
    EXPECT_EQ(otherResult, reading.result);
    EXPECT_EQ(otherStreams.error, reading.error);
    EXPECT_EQ(sizesOf(before), sizesOf(reading.survey));
    return reading;
}

Reading readText(const std::string &text)
{
    const TemporaryFolder folder;
    return readPath(folder.write("line.xyz", text));
}

/// The positions of the one spread.
Positions receiversOf(const TraveltimeSurvey &survey)
{
    return survey.spreads.size() == 1 ? positionsOf(survey.spreads[0]) : Positions();
}

void expectRead(const Reading &reading, const Positions &shots, const Positions &receivers,
                const std::string &input)
{
    EXPECT_EQ(reading.result, 0) << input;
    EXPECT_EQ(reading.error, "") << input;
    EXPECT_EQ(reading.problem.detail, "") << input;
    EXPECT_EQ(sizesOf(reading.survey), (Sizes{shots.size(), 1, shots.size()})) << input;
    EXPECT_EQ(positionsOf(reading.survey.shots), shots) << input;
    EXPECT_EQ(receiversOf(reading.survey), receivers) << input;
}

/// What stays: so many shots, so many records, no spread.
void expectRefused(const Reading &reading, const std::string &error, std::size_t shots,
                   const std::string &input, std::size_t records = 0)
{
    EXPECT_EQ(reading.result, 1) << input;
    EXPECT_EQ(reading.error, error) << input;
    EXPECT_EQ(sizesOf(reading.survey), (Sizes{records, 0, shots})) << input;
}

} // namespace

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

// Edge cases.

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

// Failures: the whole standard error text, and what stays in the survey.

TEST(WinsismFailures, AFileThatCannotBeOpened)
{
    const TemporaryFolder folder;
    for (const std::string &path : {folder.path("no such Süd.xyz"), folder.path(""),
                                    folder.path("missing/line.xyz"), std::string()}) {
        const Reading reading = readPath(path);
        expectRefused(reading, "Cannot open file " + path + "\n", 0, path);
        EXPECT_EQ(reading.problem.line, 0U) << path;
        EXPECT_EQ(reading.problem.detail, "Cannot open file " + path);
    }
}

TEST(WinsismFailures, AHeadingThatDiffers)
{
    const struct
    {
        std::size_t line;
        const char *heading;
        const char *cleaned;
        std::size_t shots;
    } cases[] = {
        {1, "Shot number, shot elevation", "Shot number, shot elevation", 0},
        {1, "Shot number, Shot elevation ", "Shot number, Shot elevation ", 0},
        {1, "Shot number, Shot elevation\r\r", "Shot number, Shot elevation\r", 0},
        {1, "\tShot number, Shot elevation", "\tShot number, Shot elevation", 0},
        {1, "  Shot number,Shot elevation\r", "Shot number,Shot elevation", 0},
        {1, "Shot number, Shot elevations", "Shot number, Shot elevations", 0},
        {1, "", "", 0},
        {1, "   ", "", 0},
        {1, "\nShot number, Shot elevation", "", 0},
        {4, "Shot number, Shot distanc", "Shot number, Shot distanc", 0},
        {4, "Shot number, Shot elevation", "Shot number, Shot elevation", 0},
        {4, "", "", 0},
        {7, "receiver number, receiver distance", "receiver number, receiver distance", 2},
        {7, "Receiver number, receiver elevation", "Receiver number, receiver elevation", 2},
        {10, "Receiver number, Receiver elevation", "Receiver number, Receiver elevation", 2},
        {10, "   Receiver number,  receiver elevation", "Receiver number,  receiver elevation", 2},
        {13, "FBP Times", "FBP Times", 2},
        {13, "FBP times ", "FBP times ", 2},
        {13, "", "", 2},
    };
    for (const auto &[line, heading, cleaned, shots] : cases) {
        const Reading reading = readText(fileWith({{line, heading}}));
        expectRefused(reading, std::string("Invalid header : ") + cleaned + '\n', shots, heading);
        EXPECT_EQ(reading.problem.line, line) << heading;
        EXPECT_EQ(reading.problem.detail, std::string("Invalid header : ") + cleaned + ", \""
                                              + twoShots[line - 1] + "\" expected");
    }
}

TEST(WinsismFailures, MoreOrFewerValuesThanNumbers)
{
    const struct
    {
        std::size_t line;
        const char *text;
        const char *heading;
        std::size_t shots;
        std::size_t problemLine;
        const char *counts;
    } cases[] = {
        {2, "1", "Shot number, Shot elevation", 0, 3, "1 number, 2 values"},
        {2, "", "Shot number, Shot elevation", 0, 3, "0 numbers, 2 values"},
        {3, "100 101 102", "Shot number, Shot elevation", 0, 3, "2 numbers, 3 values"},
        {3, "100\t101", "Shot number, Shot elevation", 0, 3, "2 numbers, 1 value"},
        {5, "1 2 3", "Shot number, Shot distance", 0, 6, "3 numbers, 2 values"},
        {6, "-2.5", "Shot number, Shot distance", 0, 6, "2 numbers, 1 value"},
        {8, "1 2", "Receiver number, receiver distance", 2, 9, "2 numbers, 3 values"},
        {9, "   ", "Receiver number, receiver distance", 2, 9, "3 numbers, 0 values"},
        {11, "1 2 3 4", "Receiver number, receiver elevation", 2, 12, "4 numbers, 3 values"},
        {12, "1,2,3", "Receiver number, receiver elevation", 2, 12, "3 numbers, 1 value"},
    };
    for (const auto &[line, text, heading, shots, problemLine, counts] : cases) {
        const Reading reading = readText(fileWith({{line, text}}));
        const std::string message = std::string("Invalid match : ") + heading;
        expectRefused(reading, message + '\n', shots, text);
        EXPECT_EQ(reading.problem.line, problemLine) << text;
        EXPECT_EQ(reading.problem.detail, message + ": " + counts) << text;
    }
}

TEST(WinsismFailures, MoreOrFewerShotDistancesThanShots)
{
    for (const auto &[numbers, distances] :
         {std::pair("1", "5"), {"1 2 2", "5 6 7"}, {"", ""}, {"1 2 3", "5 6 7"}}) {
        const Reading reading = readText(fileWith({{5, numbers}, {6, distances}}));
        expectRefused(reading, "Invalid shot ids : Shot number, Shot distance\n", 0, numbers);
    }
    // A repeated number counts once among the shots.
    expectRefused(readText(fileWith({{2, "1 1"}})),
                  "Invalid shot ids : Shot number, Shot distance\n", 0, "1 1");
}

TEST(WinsismFailures, AShotDistanceWithAnUnknownNumber)
{
    for (const char *numbers : {"1 3", "3 1", "0 1", "1 -2", "1 abc"}) {
        expectRefused(readText(fileWith({{5, numbers}})),
                      "Invalid shot ids : Shot number, Shot distance\n", 0, numbers);
    }
}

TEST(WinsismFailures, MoreOrFewerReceiverElevationsThanReceivers)
{
    for (const auto &[numbers, elevations] :
         {std::pair("1 2", "5 6"), {"1 2 3 3", "5 6 7 8"}, {"", ""}, {"1 2 3 4", "5 6 7 8"}}) {
        const Reading reading = readText(fileWith({{11, numbers}, {12, elevations}}));
        expectRefused(reading, "Invalid phone list : Receiver number, receiver elevation\n", 2,
                      numbers);
    }
    // A repeated number counts once among the receivers.
    expectRefused(readText(fileWith({{8, "1 2 2"}})),
                  "Invalid phone list : Receiver number, receiver elevation\n", 2, "1 2 2");
}

TEST(WinsismFailures, AReceiverElevationWithAnUnknownNumber)
{
    for (const char *numbers : {"1 2 4", "4 1 2", "0 1 2", "1 2 -3", "1 2 x"}) {
        expectRefused(readText(fileWith({{11, numbers}})),
                      "Invalid phone ids : Receiver number, receiver elevation\n", 2, numbers);
    }
}

TEST(WinsismFailures, TimesInALineOfTimes)
{
    // One field, a carriage return or a tab among them, is one too many.
    for (const char *times : {"12.5", "1 2", "1 2 3", "abc", "\t", "\r\r", "0"}) {
        expectRefused(readText(fileWith({{14, times}})), "Invalid times : FBP times\n", 2, times);
        // The first shot's record stays when the second one's line is refused.
        const Reading second = readText(fileWith({{15, times}}));
        expectRefused(second, "Invalid times : FBP times\n", 2, times, 1);
        EXPECT_EQ(second.problem.line, 15U) << times;
    }
}

TEST(WinsismFailures, AFileThatEndsEarly)
{
    // A line that is not there is an empty one.
    const struct
    {
        std::size_t lines;
        const char *error;
        std::size_t shots;
    } cases[] = {
        {0, "Invalid header : \n", 0},
        {1, "Invalid header : \n", 0},
        {2, "Invalid match : Shot number, Shot elevation\n", 0},
        {3, "Invalid header : \n", 0},
        {4, "Invalid shot ids : Shot number, Shot distance\n", 0},
        {5, "Invalid match : Shot number, Shot distance\n", 0},
        {6, "Invalid header : \n", 2},
        {7, "Invalid header : \n", 2},
        {8, "Invalid match : Receiver number, receiver distance\n", 2},
        {9, "Invalid header : \n", 2},
        {10, "Invalid phone list : Receiver number, receiver elevation\n", 2},
        {11, "Invalid match : Receiver number, receiver elevation\n", 2},
        {12, "Invalid header : \n", 2},
    };
    for (const auto &[lines, error, shots] : cases) {
        std::string text = joined(firstLines(twoShots, lines));
        expectRefused(readText(text), error, shots, text);
        if (text.empty())
            continue;
        text.pop_back(); // without the last line feed
        expectRefused(readText(text), error, shots, text);
        expectRefused(readText(text + "\r"), error, shots, text);
    }
    for (const std::size_t lines : {13U, 14U}) {
        const std::string text = joined(firstLines(twoShots, lines));
        expectRead(readText(text), twoShotPositions, threeReceiverPositions, text);
        expectRead(readText(text + "\r"), twoShotPositions, threeReceiverPositions, text + "\r");
    }
}

// Numbers.

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
    for (const auto &[text, value] : numberTexts) {
        const Reading reading = readText(fileWith({{2, "1"},
                                                   {3, text},
                                                   {5, "1"},
                                                   {6, text},
                                                   {8, "1"},
                                                   {9, text},
                                                   {11, "1"},
                                                   {12, text}}));
        EXPECT_EQ(reading.result, 0) << text;
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
               {{8, 100}, {0, 101.5}}, {{20, 0}, {5, 8}, {10, 0}}, "");
    // -1 and 4294967295 are one number.
    expectRead(readText(fileWith({{2, "-1 4294967295 1"}, {3, "5 6 7"}, {5, "1 -1"}})),
               {{-2.5, 7}, {12.5, 6}}, threeReceiverPositions, "");
}

// Lines.

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
    expectRead(readText(fileWith({{3, "\t100   101.5 "}, {6, "-2.5  12.5   "}})), twoShotPositions,
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
    expectRead(readText(fileWith({{2, "1 2\r\r"}, {3, "100 101.5\r\r"}, {8, "1 2 3 \r"}})),
               twoShotPositions, threeReceiverPositions, "");
    expectRefused(readText(fileWith({{3, "100 101.5 \r\r"}})),
                  "Invalid match : Shot number, Shot elevation\n", 0, "");
    // Carriage returns alone end no line.
    const std::string oneLine = joined(twoShots, "\r");
    expectRefused(readText(oneLine),
                  "Invalid header : " + oneLine.substr(0, oneLine.size() - 1) + '\n', 0, "");
}

// Names.

TEST(Winsism, NamesWithBlanksAndLettersOutsideOfAscii)
{
    const TemporaryFolder folder;
    expectRead(readPath(folder.write("Geländelinie 3 – Süd 日本.xyz", joined(twoShots))),
               twoShotPositions, threeReceiverPositions, "");
}

// Where it is wrong, and why; the other cases stand above.

TEST(WinsismProblems, LineAndDetail)
{
    const struct
    {
        ChangedLines changedLines;
        std::size_t line;
        const char *detail;
    } cases[] = {
        {{{5, "1"}, {6, "5"}},
         5,
         "Invalid shot ids : Shot number, Shot distance: 1 number, 2 expected"},
        {{{5, "1 7"}}, 5, "Invalid shot ids : Shot number, Shot distance: 7 is not listed above"},
        {{{11, "1 2"}, {12, "5 6"}},
         11,
         "Invalid phone list : Receiver number, receiver elevation: 2 numbers, 3 expected"},
        {{{11, "1 2 -1"}},
         11,
         "Invalid phone ids : Receiver number, receiver elevation: 4294967295 is not listed "
         "above"},
        {{{14, "1 2 3"}}, 14, "Invalid times : FBP times: 3 fields, 0 expected"},
    };
    for (const auto &[changedLines, line, detail] : cases) {
        const Problem problem = readText(fileWith(changedLines)).problem;
        EXPECT_EQ(problem.line, line) << detail;
        EXPECT_EQ(problem.detail, detail);
    }
}
