// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "field/window_verdict.h"

#include "tests/support/field_picks.h"

#include <gtest/gtest.h>

namespace {

/// What is said of a file: "same", "12: why", or nothing.
std::string verdictOn(const std::string &format, const std::string &text,
                      const PickOptions &options = {}, bool isListed = false)
{
    const TemporaryFolder folder;
    const std::string path = folder.write("line", text);
    PickOptions all = options;
    if (isListed)
        all.shotPositions = {{path, -2.5, 100.0}};
    const std::optional<WindowVerdict> verdict = windowVerdict(format, path, all);
    if (!verdict)
        return "";
    return verdict->isSame ? "same" : told(verdict->place, verdict->text);
}

const std::string geogiga = "TX_CURVE\n"                      // 1
                            "VERSION: 1.0\n"                  // 2
                            "ELEVATION: 100.5\n"              // 3
                            "TOTAL_NUMBER_OF_SHOTS: 2\n"      // 4
                            "SEISMIC_DATA_FILE_NAME: a.sg2\n" // 5
                            "SHOT_LOCATION: -2.5\n"           // 6
                            "NUMBER_OF_RECEIVERS: 2\n"        // 7
                            "No Position Time Channel\n"      // 8
                            "1 0 0.0021 1\r\n"                // 9
                            "2 5 0.0105 1\r\n"                // 10
                            "SEISMIC_DATA_FILE_NAME: b.sg2\n" // 11
                            "SHOT_LOCATION: 12.5\n"           // 12
                            "NUMBER_OF_RECEIVERS: 2\n"        // 13
                            "No Position Time Channel\n"      // 14
                            "1 0 0.0152 1\r\n"                // 15
                            "2 5 0.0081 1\r\n";               // 16

std::string with(const std::string &from, const std::string &to, std::string text)
{
    return replaced(std::move(text), from, to);
}

} // namespace

TEST(WindowVerdict, IsOfTheFormatsOfTheWindow)
{
    for (const char *format : {"otte", "sgt", "csv", "su", ""})
        EXPECT_EQ(verdictOn(format, "otte\n1.0\n2\n0\n\n\n"), "") << format;
}

TEST(WindowVerdict, ThereIsNoneOfAFileThatIsRefused)
{
    EXPECT_EQ(verdictOn("seisimager", "x\n0 1\n0 1\n5 soon\n"), "");
    EXPECT_EQ(verdictOn("seisimager", "x\n0 0\n"), "");
}

TEST(WindowVerdict, Geogiga)
{
    EXPECT_EQ(verdictOn("geogiga", geogiga), "same");
    std::string plain = geogiga;
    std::erase(plain, '\r');
    EXPECT_EQ(verdictOn("geogiga", plain),
              "10: the window refuses this: a carriage return or the next shot expected: do the "
              "rows end in CR LF?");
    EXPECT_EQ(verdictOn("geogiga", with("TX_CURVE\n", "TX_CURVE\r\n", geogiga)),
              "1: the window refuses this: \"TX_CURVE\" expected, then LF and not CR LF");
    EXPECT_EQ(verdictOn("geogiga", with("ELEVATION:", "ELEVATION :", geogiga)),
              "3: the window refuses this: \"ELEVATION\" expected");
    EXPECT_EQ(verdictOn("geogiga", with("2 5 0.0105", "2 6 0.0105", geogiga)),
              "6: the window reads this otherwise: the receivers of shot 1 stand elsewhere than "
              "the last shot's: only those are written");
    EXPECT_EQ(verdictOn("geogiga", with("0.0105", "-1", geogiga)),
              "10: the window reads this otherwise: a time of -1000 ms goes into the output like "
              "any other, also where it means \"not picked\"");
    EXPECT_EQ(verdictOn("geogiga", with("2 5 0.0081", "2 5 *", geogiga)),
              "16: the window goes on after this: receiver row 2 of 2 is not four numbers");
    PickOptions options;
    options.timesIn = TimeUnit::milliseconds;
    EXPECT_EQ(verdictOn("geogiga", geogiga, options),
              "9: the window reads the time, in seconds, as 0.0021, not 2.1e-06");
}

TEST(WindowVerdict, SeisImager)
{
    const std::string survey = "x\n0 2\n-2.5 2\n0 2.1\n5 10.5\n12.5 2\n0 15.2\n5 8.1\n0 0\n";
    EXPECT_EQ(verdictOn("seisimager", survey), "same");
    EXPECT_EQ(verdictOn("seisimager", with("0 2.1", " 0 2.1", survey)),
              "4: the window reads this otherwise: the line begins with a delimiter: its first "
              "field, \"0\", is read twice, so that all others shift");
    EXPECT_EQ(verdictOn("seisimager", with("0 2.1", "0\t2.1", survey)),
              "4: the window refuses this: 1 field, 2 expected: invalid vector subscript");
    EXPECT_EQ(verdictOn("seisimager", "\xEF\xBB\xBF" + with("0 2.1", "0\t2.1", survey)),
              "4: the window refuses this: 1 field, 2 expected: invalid vector subscript");
    EXPECT_EQ(verdictOn("seisimager", with("5 10.5", "5 -1", survey)),
              "5: the window reads this otherwise: a time of -1 ms goes into the output like any "
              "other, also where it means \"not picked\"");
    EXPECT_EQ(verdictOn("seisimager", with("5 10.5", "5 nan", survey)),
              "5: the window reads this otherwise: \"nan\" is read as nan: it is no plain number");
    std::string commas = survey;
    for (char &character : commas)
        character = character == '.' ? ',' : character;
    EXPECT_EQ(verdictOn("seisimager", commas),
              "3: the window reads this otherwise: \"-2,5\" is read as -2: write a decimal point, "
              "no comma");
    EXPECT_EQ(verdictOn("seisimager", with("5 10.5", "# five\n5 10.5", survey)),
              "5: the window reads this otherwise: \"#\" is read as 0: it is no plain number");
}

TEST(WindowVerdict, Winsism)
{
    EXPECT_EQ(verdictOn("winsism", "Shot number, Shot elevation\n1\n100\n"
                                   "Shot number, Shot distance\n1\n-2.5\n"
                                   "Receiver number, receiver distance\n1 2\n0 5\n"
                                   "Receiver number, receiver elevation\n1 2\n100 101\n"
                                   "FBP times\n2.1 10.5\n"),
              "14: the window refuses this: 2 times in a line that must be empty: Invalid times : "
              "FBP times");
}

TEST(WindowVerdict, Generic)
{
    const std::string rows = "0;100.5;0.0125\n5;101;0.025\n";
    EXPECT_EQ(verdictOn("generic", rows, {}, true), "same");
    EXPECT_EQ(verdictOn("generic", "-2.5;100\n" + rows),
              "1: the window refuses this: 2 fields, 3 expected: invalid vector subscript");
    EXPECT_EQ(verdictOn("generic", "\xEF\xBB\xBF" + rows, {}, true), "same"); // 0 as 0
    EXPECT_EQ(verdictOn("generic",
                        "\xEF\xBB\xBF"
                        "5;101;0.025\n",
                        {}, true),
              "1: the file begins with a byte order mark, which the window takes for a part of the "
              "first line: save it without one");
    EXPECT_EQ(verdictOn("generic", "x;z;t\n" + rows, {}, true),
              "1: the window reads this otherwise: \"x\" is read as 0: it is no plain number");
    EXPECT_EQ(verdictOn("generic", "0 100.5 0.0125\n", {}, true),
              "1: the window refuses this: 1 field, 3 expected: invalid vector subscript");
    EXPECT_EQ(verdictOn("generic", "0;100.5;0.0125\n5;100;\n", {}, true),
              "2: the window refuses this: 2 fields, 3 expected: invalid vector subscript");
    EXPECT_EQ(verdictOn("generic", rows + "\n", {}, true),
              "3: the window refuses this: 0 fields, 3 expected: invalid vector subscript");
}

TEST(WindowVerdict, TextsOfWhichTheWindowReadsNoLine)
{
    const std::string text = "x\r0 1\r-2.5 1\r0 2.1\r0 0\r";
    EXPECT_EQ(
        verdictOn("seisimager", text),
        "1: the lines end in CR alone, so that the window takes them for one: let them end in "
        "LF");
    for (const bool isLowFirst : {true, false}) {
        std::string wide = isLowFirst ? "\xFF\xFE" : "\xFE\xFF";
        for (const char character : text)
            wide += isLowFirst ? std::string{character, '\0'} : std::string{'\0', character};
        EXPECT_EQ(verdictOn("seisimager", wide),
                  "1: this is UTF-16, of which the window reads no number: save it as UTF-8");
    }
}
