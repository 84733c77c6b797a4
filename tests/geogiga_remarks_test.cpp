// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "tests/support/geogiga_reading.h"

#include <gtest/gtest.h>

// What the user should know of a file that converts.

namespace {

/// The remarks on a file that both forms read without a failure.
Texts remarksOn(const std::string &text)
{
    const Reading reading = readText(text);
    EXPECT_EQ(reading.outcome, "0") << text;
    EXPECT_EQ(failureOf(reading.report), "") << text;
    return remarksOf(reading.report);
}

/// A file with a shot for each of these positions of receivers, from line 5 on.
std::string shotsOn(const std::vector<std::vector<int>> &layouts)
{
    std::string text = "TX_CURVE\nVERSION: 1\nELEVATION: 1\nTOTAL_NUMBER_OF_SHOTS: "
                       + std::to_string(layouts.size()) + '\n';
    for (const std::vector<int> &layout : layouts) {
        text += "SEISMIC_DATA_FILE_NAME: a\nSHOT_LOCATION: 1\nNUMBER_OF_RECEIVERS: "
                + std::to_string(layout.size()) + "\nNO\n";
        for (const int x : layout)
            text += "1 " + std::to_string(x) + " 0.01 1\r\n";
        if (layout.empty())
            text += "\r\n";
    }
    return text;
}

const std::string elsewhere = " stand elsewhere than the last shot's: only those are written";

} // namespace

TEST(GeogigaRemarks, NoneOnAFileWithoutAFault)
{
    EXPECT_EQ(remarksOn(joined(twoShots)), Texts{});
    EXPECT_EQ(remarksOn(joined(twoShots) + "\r\n \t\n\n"), Texts{});
    EXPECT_EQ(remarksOn(fileWith({{3, "INFO\nINFO: a:b\n:INFO"}, {9, ":1,5"}})), Texts{});
    EXPECT_EQ(remarksOn(fileWith({{2, "VERSION:  2,5 x"}, {12, "3 10 0.0187 1\r\n\r\n\r"}})),
              Texts{});
    EXPECT_EQ(remarksOn(fileWith({{4, "ELEVATION:\t100.5 \r"},
                                  {5, "TOTAL_NUMBER_OF_SHOTS: 2.0\r"},
                                  {7, "SHOT_LOCATION:+.5e1\r"},
                                  {8, "NUMBER_OF_RECEIVERS:3\r"}})),
              Texts{});
    EXPECT_EQ(remarksOn(fileWith({{6, "SEISMIC_DATA_FILE_NAME: C:\\a.sg2"}})), Texts{});
    EXPECT_EQ(remarksOn(fileWith({{10, "+1 0 0.0021 -1\r"}, {11, "2\t+5\t1.05e-2\n1\r"}})),
              Texts{});
}

TEST(GeogigaRemarks, PositionsAndElevationsThatAreNotWhollyNumbers)
{
    const struct
    {
        std::size_t line;
        const char *text;
        const char *remark;
    } cases[] = {
        {4, "ELEVATION: abc", "not a number, 4: \"abc\" is read as 0: it is no plain number"},
        {4, "ELEVATION: ", "not a number, 4: \"\" is read as 0: it is no plain number"},
        {4, "ELEVATION: 214,5",
         "not a number, 4: \"214,5\" is read as 214: write a decimal point, no comma"},
        {4, ":ELEVATION", "not a number, 4: \"ELEVATION\" is read as 0: it is no plain number"},
        {7, "SHOT_LOCATION: 12 m",
         "not a number, 7: \"12 m\" is read as 12: it is no plain number"},
        {7, "SHOT_LOCATION: 0x10\r",
         "not a number, 7: \"0x10\" is read as 16: it is no plain number"},
        {14, "SHOT_LOCATION: inf",
         "not a number, 14: \"inf\" is read as inf: it is no plain number"},
        {14, "SHOT_LOCATION: nan",
         "not a number, 14: \"nan\" is read as nan: it is no plain number"},
    };
    for (const auto &[line, text, remark] : cases)
        EXPECT_EQ(remarksOn(fileWith({{line, text}})), Texts{remark});
    for (const NumberText &number : numberTexts)
        EXPECT_EQ(remarksOn(fileWith({{14, std::string("SHOT_LOCATION:") + number.text}})),
                  *number.remark == '\0'
                      ? Texts{}
                      : Texts{std::string("not a number, 14: ") + number.remark});
}

TEST(GeogigaRemarks, NumbersOfShots)
{
    const struct
    {
        const char *count;
        Texts remarks;
    } cases[] = {
        {"2.9", {"not a number, 5: \"2.9\" is read as 2: write a whole number in digits"}},
        {"0x2", {"not a number, 5: \"0x2\" is read as 2: it is no plain number"}},
        {"2,5", {"not a number, 5: \"2,5\" is read as 2: write a decimal point, no comma"}},
        {"2 shots", {"not a number, 5: \"2 shots\" is read as 2: it is no plain number"}},
        {"4294967298", {"not a number, 5: \"4294967298\" is read as 2: it is out of range"}},
        {"1e0", {"not read, 13: 7 lines after the last shot: not read"}},
        {"0",
         {"no shots, 5: there are no shots in this file",
          "not read, 6: 14 lines after the last shot: not read"}},
        {"nan",
         {"not a number, 5: \"nan\" is read as 0: it is no plain number",
          "no shots, 5: there are no shots in this file",
          "not read, 6: 14 lines after the last shot: not read"}},
        {"0.9",
         {"not a number, 5: \"0.9\" is read as 0: write a whole number in digits",
          "no shots, 5: there are no shots in this file",
          "not read, 6: 14 lines after the last shot: not read"}},
    };
    for (const auto &[count, remarks] : cases)
        EXPECT_EQ(remarksOn(fileWith({{5, std::string("TOTAL_NUMBER_OF_SHOTS: ") + count}})),
                  remarks);
    EXPECT_EQ(remarksOn(joined(firstLines(twoShots, 4)) + "TOTAL_NUMBER_OF_SHOTS: 0\n"),
              Texts{"no shots, 5: there are no shots in this file"});
    // A count that the file does not hold is a failure, with the remark.
    EXPECT_EQ(remarksOf(readText(fileWith({{5, "TOTAL_NUMBER_OF_SHOTS: -1"}})).report),
              Texts{"not a number, 5: \"-1\" is read as 4294967295: it is out of range"});
}

TEST(GeogigaRemarks, NumbersOfReceivers)
{
    for (const auto &[count, remark] :
         {std::pair("3x", "\"3x\" is read as 3: it is no plain number"),
          {"3.5", "\"3.5\" is read as 3: write a whole number in digits"},
          {"4294967299", "\"4294967299\" is read as 3: it is out of range"}})
        EXPECT_EQ(remarksOn(fileWith({{8, std::string("NUMBER_OF_RECEIVERS: ") + count}})),
                  Texts{std::string("not a number, 8: ") + remark});
}

TEST(GeogigaRemarks, ShotsWithoutReceivers)
{
    EXPECT_EQ(remarksOn(emptyShots(" 2", 2)), (Texts{"no receivers, 7: shot 1 has no receivers",
                                                     "no receivers, 11: shot 2 has no receivers"}));
    // A shot on none says nothing of where the others' receivers stand.
    EXPECT_EQ(remarksOn(shotsOn({{0, 5}, {}, {0, 5}})),
              Texts{"no receivers, 13: shot 2 has no receivers"});
    for (const char *count : {"0", "-1"})
        EXPECT_EQ(remarksOn(fileWith({{15, std::string("NUMBER_OF_RECEIVERS: ") + count}})),
                  (Texts{"no receivers, 15: shot 2 has no receivers",
                         "not read, 17: 3 lines after the last shot: not read"}));
}

TEST(GeogigaRemarks, WordsOfSeveralNumbers)
{
    EXPECT_EQ(remarksOn(fileWith({{11, "2 5+0.0105 1\r"}})),
              Texts{"not a number, 11: \"5+0.0105\" is read as 5: it is no plain number"});
    EXPECT_EQ(remarksOn(fileWith({{11, "2+5+0.0105+1\r"}})),
              Texts{"not a number, 11: \"2+5+0.0105+1\" is read as 2: it is no plain number"});
    EXPECT_EQ(remarksOn(fileWith({{10, "1+0 0.0021 1\r"}})),
              Texts{"not a number, 10: \"1+0\" is read as 1: it is no plain number"});
}

TEST(GeogigaRemarks, AWordBeforeTheOneThatIsNoNumber)
{
    const Reading comma = readText(fileWith({{11, "2 5,5 0.0105 1\r"}}));
    EXPECT_EQ(failureOf(comma.report), "11: receiver row 2 of 3 is not four numbers");
    EXPECT_EQ(remarksOf(comma.report),
              Texts{"not a number, 11: \"5,5\" is read as 5: write a decimal point, no comma"});
    const Reading hexadecimal = readText(fileWith({{18, "2 0x10 0.0105 1\r"}}));
    EXPECT_EQ(failureOf(hexadecimal.report), "18: receiver row 2 of 3 is not four numbers");
    EXPECT_EQ(remarksOf(hexadecimal.report),
              Texts{"not a number, 18: \"0x10\" is read as 0: it is no plain number"});
    for (const char *word : {"inf", "nan", "abc"}) {
        const Reading reading = readText(fileWith({{18, "2 5 " + std::string(word) + " 1\r"}}));
        EXPECT_EQ(reading.outcome, "0") << word;
        EXPECT_EQ(failureOf(reading.report), "18: receiver row 2 of 3 is not four numbers") << word;
        EXPECT_EQ(remarksOf(reading.report), Texts{}) << word;
    }
}

TEST(GeogigaRemarks, LinesAfterTheLastShot)
{
    EXPECT_EQ(remarksOn(joined(twoShots) + "\r\nabc\n\nTX\n"),
              Texts{"not read, 21: 2 lines after the last shot: not read"});
    EXPECT_EQ(remarksOn(fileWith({{5, "TOTAL_NUMBER_OF_SHOTS: 1"}})),
              Texts{"not read, 13: 7 lines after the last shot: not read"});
    EXPECT_EQ(remarksOn(fileWith({{19, "3 10 0.0024 1 7\r"}})),
              Texts{"not read, 19: 1 line after the last shot: not read"});
    EXPECT_EQ(remarksOn(joined(twoShots) + "0 0\n"),
              Texts{"not read, 20: 1 line after the last shot: not read"});
}

TEST(GeogigaRemarks, ASurveySavedTwice)
{
    EXPECT_EQ(remarksOn(joined(twoShots) + joined(twoShots)),
              Texts{"not read, 20: another survey begins here: only the first is read"});
    EXPECT_EQ(remarksOn(joined(twoShots) + "\r\n" + joined(twoShots)),
              Texts{"not read, 21: another survey begins here: only the first is read"});
}

TEST(GeogigaRemarks, ReceiversThatMove)
{
    EXPECT_EQ(remarksOn(fileWith(movedReceivers)),
              Texts{"layout, 7: the receivers of shot 1" + elsewhere});
    EXPECT_EQ(remarksOn(fileWith({{19, "3 10.01 0.0024 1\r"}})),
              Texts{"layout, 7: the receivers of shot 1" + elsewhere});
    // A shot of two receivers takes six lines, one of three takes seven.
    EXPECT_EQ(remarksOn(shotsOn({{0, 5}, {0, 5}, {0, 5}})), Texts{});
    EXPECT_EQ(remarksOn(shotsOn({{0, 5}, {0, 5}, {1, 5}, {1, 5}})),
              Texts{"layout, 6: the receivers of shots 1 to 2" + elsewhere});
    EXPECT_EQ(remarksOn(shotsOn({{0, 5}, {1, 5}, {1, 5}, {0, 5}})),
              Texts{"layout, 12: the receivers of shots 2 to 3" + elsewhere});
    EXPECT_EQ(remarksOn(shotsOn({{0, 5}, {1, 5}, {2, 5}, {0, 5}})),
              (Texts{"layout, 12: the receivers of shot 2" + elsewhere,
                     "layout, 18: the receivers of shot 3" + elsewhere}));
}

TEST(GeogigaRemarks, ShotsOfFewerReceivers)
{
    EXPECT_EQ(remarksOn(shotsOn({{0, 5, 10}, {0, 5}})),
              Texts{"layout, 13: 2 receivers in shot 2, of 3 that are written"});
    EXPECT_EQ(remarksOn(shotsOn({{0, 5, 10}, {0}, {0}, {0, 5, 10}})),
              Texts{"layout, 13: 1 receiver in shots 2 to 3, of 3 that are written"});
    // The tail of the first shot is written after the second one's positions.
    EXPECT_EQ(remarksOn(shotsOn({{0, 5, 10}, {1, 6}})),
              (Texts{"layout, 6: the receivers of shot 1" + elsewhere,
                     "layout, 13: 2 receivers in shot 2, of 3 that are written"}));
}

TEST(GeogigaRemarks, NoneOnTheLayoutsOfAFileThatBreaksOff)
{
    const Reading reading = readText(fileWith({{17, "1 0.5 0.0152 1\r"}, {18, "2 x 0.0081 1\r"}}));
    EXPECT_EQ(reading.outcome, "0");
    EXPECT_EQ(failureOf(reading.report), "18: receiver row 2 of 3 is not four numbers");
    EXPECT_EQ(remarksOf(reading.report), Texts{});
}

TEST(GeogigaRemarks, TimesBelowZero)
{
    EXPECT_EQ(remarksOn(fileWith({{11, "2 5 -0.001 1\r"}, {19, "3 10 -1 1\r"}})),
              (Texts{"negative time, 11: a time of -1 ms goes into the output like any other, also "
                     "where it means \"not picked\"",
                     "negative time, 19: a time of -1000 ms goes into the output like any other, "
                     "also where it means \"not picked\""}));
}

TEST(GeogigaRemarks, TheWorstThatSixDigitsDoNotHold)
{
    EXPECT_EQ(remarksOn(oneShot("2", "1 12345.67 2.3456784 1\n2 12345.64 2.3456794 1\n")),
              (Texts{"rounded position, 10: a position of 12345.64 m becomes 12345.6 m, as the "
                     "output has six digits",
                     "rounded time, 9: a time of 2345.6784 ms becomes 2345.68 ms, as the output "
                     "has six digits"}));
    EXPECT_EQ(remarksOn(fileWith({{7, "SHOT_LOCATION: 12345.67"}})),
              Texts{"rounded position, 7: a position of 12345.67 m becomes 12345.7 m, as the "
                    "output has six digits"});
    EXPECT_EQ(remarksOn(fileWith({{4, "ELEVATION: 12345.67"}})),
              Texts{"rounded position, 4: a position of 12345.67 m becomes 12345.7 m, as the "
                    "output has six digits"});
}
