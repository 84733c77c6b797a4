// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "tests/support/winsism_reading.h"

#include <gtest/gtest.h>

// What is refused: the whole standard error text, where and why, and what stays in the survey.

TEST(WinsismFailures, AFileThatCannotBeOpened)
{
    const TemporaryFolder folder;
    for (const std::string &path : {folder.path("no such Süd.xyz"), folder.path(""),
                                    folder.path("missing/line.xyz"), std::string()}) {
        const Reading reading = readPath(path);
        expectRefused(reading, "Cannot open file " + path + "\n", 0, path);
        EXPECT_EQ(failureOf(reading.report), "the file cannot be opened") << path;
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
        EXPECT_EQ(failureOf(reading.report), std::to_string(line) + ": \"" + twoShots[line - 1]
                                                 + "\" is expected: Invalid header : " + cleaned);
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
        const char *counts;
    } cases[] = {
        {2, "1", "Shot number, Shot elevation", 0, "3: 1 number and 2 values"},
        {2, "", "Shot number, Shot elevation", 0, "3: 0 numbers and 2 values"},
        {3, "100 101 102", "Shot number, Shot elevation", 0, "3: 2 numbers and 3 values"},
        {3, "100\t101", "Shot number, Shot elevation", 0, "3: 2 numbers and 1 value"},
        {5, "1 2 3", "Shot number, Shot distance", 0, "6: 3 numbers and 2 values"},
        {6, "-2.5", "Shot number, Shot distance", 0, "6: 2 numbers and 1 value"},
        {8, "1 2", "Receiver number, receiver distance", 2, "9: 2 numbers and 3 values"},
        {9, "   ", "Receiver number, receiver distance", 2, "9: 3 numbers and 0 values"},
        {11, "1 2 3 4", "Receiver number, receiver elevation", 2, "12: 4 numbers and 3 values"},
        {12, "1,2,3", "Receiver number, receiver elevation", 2, "12: 3 numbers and 1 value"},
    };
    for (const auto &[line, text, heading, shots, counts] : cases) {
        const Reading reading = readText(fileWith({{line, text}}));
        const std::string message = std::string("Invalid match : ") + heading;
        expectRefused(reading, message + '\n', shots, text);
        EXPECT_EQ(failureOf(reading.report), std::string(counts) + ": " + message) << text;
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
        EXPECT_TRUE(failureOf(second.report).starts_with("15: ")) << times;
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
        const char *detail;
    } cases[] = {
        {1, "Invalid header : ", 0, "1: the file ends: \"Shot number, Shot distance\" is expected"},
        {2, "Invalid match : Shot number, Shot elevation", 0,
         "2: the file ends: 2 numbers and 0 values"},
        {3, "Invalid header : ", 0, "3: the file ends: \"Shot number, Shot distance\" is expected"},
        {4, "Invalid shot ids : Shot number, Shot distance", 0,
         "4: the file ends: 0 numbers, 2 expected"},
        {5, "Invalid match : Shot number, Shot distance", 0,
         "5: the file ends: 2 numbers and 0 values"},
        {6, "Invalid header : ", 2,
         "6: the file ends: \"Receiver number, receiver distance\" is expected"},
        {7, "Invalid header : ", 2,
         "7: the file ends: \"Receiver number, receiver elevation\" is expected"},
        {8, "Invalid match : Receiver number, receiver distance", 2,
         "8: the file ends: 3 numbers and 0 values"},
        {9, "Invalid header : ", 2,
         "9: the file ends: \"Receiver number, receiver elevation\" is expected"},
        {10, "Invalid phone list : Receiver number, receiver elevation", 2,
         "10: the file ends: 0 numbers, 3 expected"},
        {11, "Invalid match : Receiver number, receiver elevation", 2,
         "11: the file ends: 3 numbers and 0 values"},
        {12, "Invalid header : ", 2, "12: the file ends: \"FBP times\" is expected"},
    };
    for (const auto &[lines, error, shots, detail] : cases) {
        const std::string text = joined(firstLines(twoShots, lines));
        const std::string lastLine = text.substr(0, text.size() - 1);
        for (const std::string &input : {text, lastLine, lastLine + '\r'}) {
            const Reading reading = readText(input);
            expectRefused(reading, std::string(error) + '\n', shots, input);
            EXPECT_EQ(failureOf(reading.report), std::string(detail) + ": " + error) << input;
        }
    }
    for (const std::size_t lines : {13U, 14U}) {
        const std::string text = joined(firstLines(twoShots, lines));
        expectRead(readText(text), twoShotPositions, threeReceiverPositions, text);
        expectRead(readText(text + "\r"), twoShotPositions, threeReceiverPositions, text + "\r");
    }
}

TEST(WinsismFailures, AnEmptyFile)
{
    const Reading reading = readText("");
    expectRefused(reading, "Invalid header : \n", 0, "");
    EXPECT_EQ(failureOf(reading.report),
              "the file is empty: \"Shot number, Shot elevation\" is expected: Invalid header : ");
}

TEST(WinsismFailures, WhereAndWhy)
{
    const std::string distance = "Shot number, Shot distance";
    const std::string elevation = "Receiver number, receiver elevation";
    const struct
    {
        ChangedLines changedLines;
        std::string failure;
    } cases[] = {
        {{{5, "1"}, {6, "5"}}, "5: 1 number, 2 expected: Invalid shot ids : " + distance},
        {{{5, "1 7"}}, "5: 7 is not listed above: Invalid shot ids : " + distance},
        {{{11, "1 2"}, {12, "5 6"}},
         "11: 2 numbers, 3 expected: Invalid phone list : " + elevation},
        {{{11, "1 2 -1"}}, "11: 4294967295 is not listed above: Invalid phone ids : " + elevation},
        {{{14, "1 2 3"}}, "14: 3 times in a line that must be empty: Invalid times : FBP times"},
        {{{15, "7"}}, "15: 1 time in a line that must be empty: Invalid times : FBP times"},
    };
    for (const auto &[changedLines, failure] : cases)
        EXPECT_EQ(failureOf(readText(fileWith(changedLines)).report), failure);
}

TEST(WinsismFailures, AFileThatCannotBeRead)
{
    // It opens, but its first byte cannot be read.
    const Reading reading = readPath("/proc/self/mem");
    expectRefused(reading, "Invalid header : \n", 0, "");
    EXPECT_EQ(failureOf(reading.report), "the file cannot be read to its end");
}
