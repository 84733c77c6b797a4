// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "field/csv_picks.h"
#include "field/generic_picks.h"
#include "field/geogiga_picks.h"
#include "field/otte_picks.h"
#include "field/seisimager_picks.h"
#include "field/sgt_picks.h"
#include "field/winsism_picks.h"

#include "tests/support/field_picks.h"
#include "tests/support/odd_files.h"

#include <gtest/gtest.h>

#include <functional>

// Every format in every shape in which programs and people save text, and files of several formats
// as one survey.

namespace {

/// One survey in every format. Elevations are 0, as one of the formats has none.
struct ShapedFormat
{
    const char *name;
    ReadPicks *read;
    Remarks lines;
    const char *described;
};

const char oneShot[] = "-2.5,0: 0,0=0.0021 5,0=0.0105; ";
const char twoShots[] = "-2.5,0: 0,0=0.0021 5,0=0.0105; 12.5,0: 0,0=0.0152 5,0=0.0081; ";

const ShapedFormat formats[] = {
    {"generic", readGenericPicks, {"-2.5;0", "0;0;0.0021", "5;0;0.0105"}, oneShot},
    {"geogiga",
     readGeogigaPicks,
     {"TX_CURVE", "VERSION: 1.0", "INFO: two shots", "ELEVATION: 0", "TOTAL_NUMBER_OF_SHOTS: 2",
      "SEISMIC_DATA_FILE_NAME: a.sg2", "SHOT_LOCATION: -2.5", "NUMBER_OF_RECEIVERS: 2",
      "No Position Time Channel", "1 0 0.0021 1", "2 5 0.0105 1", "SEISMIC_DATA_FILE_NAME: b.sg2",
      "SHOT_LOCATION: 12.5", "NUMBER_OF_RECEIVERS: 2", "No Position Time Channel", "1 0 0.0152 1",
      "2 5 0.0081 1"},
     twoShots},
    {"seisimager",
     readSeisImagerPicks,
     {"First breaks", "0 2", "-2.5 2", "0 2.1", "5 10.5", "12.5 2", "0 15.2", "5 8.1"},
     twoShots},
    {"winsism",
     readWinsismPicks,
     {"Shot number, Shot elevation", "1 2", "0 0", "Shot number, Shot distance", "1 2", "-2.5 12.5",
      "Receiver number, receiver distance", "1 2", "0 5", "Receiver number, receiver elevation",
      "1 2", "0 0", "FBP times", "2.1 10.5", "15.2 8.1"},
     twoShots},
    {"otte",
     readOttePicks,
     {"otte", "1.0", "2", "1", "0;5;", "0;0;", "-2.5;12.5;", "0;0;", "0", "0", "2.1;10.5;", "0",
      "1", "15.2;8.1;"},
     twoShots},
    {"sgt",
     readSgtPicks,
     {"4", "#x y", "-2.5 0", "0 0", "5 0", "12.5 0", "4", "#s g t", "1 2 0.0021", "1 3 0.0105",
      "4 2 0.0152", "4 3 0.0081"},
     twoShots},
    {"csv",
     readCsvPicks,
     {"shot_x,shot_elevation,receiver_x,receiver_elevation,time", "-2.5,0,0,0,0.0021",
      "-2.5,0,5,0,0.0105", "12.5,0,0,0,0.0152", "12.5,0,5,0,0.0081"},
     twoShots},
};

/// A file of lines with something before and after each.
std::string joined(const Remarks &lines, const std::string &before, const std::string &after)
{
    std::string text;
    for (const std::string &line : lines)
        text += before + line + after;
    return text;
}

/// Bytes of ASCII in UTF-16.
void expectSurvey(const ShapedFormat &format, const std::string &bytes)
{
    const PickReading reading = readPicks(format.read, bytes);
    EXPECT_EQ(reading.failure, "") << format.name << ":\n" << bytes;
    EXPECT_EQ(reading.remarks, Remarks{}) << format.name << ":\n" << bytes;
    EXPECT_EQ(described(reading.picks), format.described) << format.name << ":\n" << bytes;
}

} // namespace

TEST(Shapes, AnyLineEnds)
{
    for (const ShapedFormat &format : formats) {
        for (const char *end : {"\n", "\r\n", "\r"}) {
            const std::string text = joined(format.lines, "", end);
            expectSurvey(format, text);
            expectSurvey(format, text.substr(0, text.size() - std::string(end).size()));
        }
    }
}

TEST(Shapes, AnyEncodingWithAMark)
{
    for (const ShapedFormat &format : formats) {
        const std::string text = joined(format.lines, "", "\r\n");
        expectSurvey(format, "\xEF\xBB\xBF" + text);
        expectSurvey(format, inUtf16(text));
        expectSurvey(format, inUtf16(text, true));
    }
}

TEST(Shapes, BlanksAndTabsAroundLines)
{
    for (const ShapedFormat &format : formats) {
        expectSurvey(format, joined(format.lines, " \t ", " \t\n"));
        expectSurvey(format, joined(format.lines, "\t", "\t\n"));
    }
}

TEST(Shapes, BlanksAndTabsBetweenFields)
{
    for (const ShapedFormat &format : formats) {
        const std::string text = joined(format.lines, "", "\n");
        for (const std::string &blanks :
             {std::string("   "), std::string("\t"), std::string(" \t ")}) {
            std::string spread;
            for (const char character : text) {
                const bool isDelimiter = character == ';' || character == ',' || character == ':';
                spread += character == ' ' ? blanks
                          : isDelimiter    ? blanks + character + blanks
                                           : std::string(1, character);
            }
            expectSurvey(format, spread);
        }
    }
}

TEST(Shapes, CommentsAndEmptyLines)
{
    for (const ShapedFormat &format : formats) {
        expectSurvey(format, joined(format.lines, "", "\n# a comment\n"));
        expectSurvey(format, joined(format.lines, "", "\n\n"));
        expectSurvey(format, joined(format.lines, "", "\n \t\n  # one, two; 3 4 5\n\n"));
        expectSurvey(format, "# a comment\n\n" + joined(format.lines, "", "\n"));
        expectSurvey(format, "\n# a comment\n" + joined(format.lines, "", "\n"));
    }
}

TEST(Shapes, TheReadersSayHowFarTheyAre)
{
    // Line 4096 begins at byte 8190, line 8192 at byte 16382.
    std::string comments;
    for (int i = 0; i < 8192; ++i)
        comments += "#\n";
    for (const ShapedFormat &format : formats) {
        const std::string text = comments + joined(format.lines, "", "\n");
        const auto size = static_cast<double>(text.size());
        std::vector<double> fractions;
        PickOptions options;
        options.progress = [&](double fraction) { fractions.push_back(fraction); };
        EXPECT_EQ(described(readPicks(format.read, text, options).picks), format.described);
        EXPECT_EQ(fractions, (std::vector<double>{8190.0 / size, 16382.0 / size})) << format.name;
    }
}

TEST(Shapes, KeywordsInAnyCase)
{
    for (const ShapedFormat &format : formats) {
        std::string lower = joined(format.lines, "", "\n");
        std::string upper = lower;
        for (char &character : lower)
            character = character >= 'A' && character <= 'Z' ? char(character + 32) : character;
        for (char &character : upper)
            character = character >= 'a' && character <= 'z' ? char(character - 32) : character;
        expectSurvey(format, lower);
        expectSurvey(format, upper);
    }
}

TEST(Shapes, NoSurveyIsReadFromAFileThatIsCutShort)
{
    for (const ShapedFormat &format : formats) {
        for (std::size_t i = 0; i < format.lines.size(); ++i) {
            const PickReading reading = readPicks(
                format.read,
                joined({format.lines.begin(), format.lines.begin() + std::ptrdiff_t(i)}, "", "\n"));
            // Formats without a count may end after any row.
            const bool mayEnd = (format.read == readGenericPicks && i > 1)
                                || (format.read == readCsvPicks && i > 0)
                                || (format.read == readOttePicks && (i == 8 || i == 11));
            EXPECT_EQ(reading.failure.empty(), mayEnd) << format.name << ", line " << i;
        }
    }
}

TEST(Merging, FilesOfAnyFormatsBecomeOneSurvey)
{
    PickReading all;
    std::string expected;
    for (const ShapedFormat &format : formats) {
        all = readPicks(format.read, joined(format.lines, "", "\n"), {}, all.picks);
        EXPECT_EQ(all.failure, "") << format.name;
        expected += format.described;
    }
    EXPECT_EQ(described(all.picks), expected);
    const TraveltimeSurvey &survey = all.picks.survey;
    // One layout for all; the shots are numbered through.
    EXPECT_EQ(survey.spreads.size(), 1U);
    EXPECT_EQ(all.picks.files.size(), 7U);
    ASSERT_EQ(survey.shots.size(), 13U);
    for (std::uint32_t i = 0; i < 13; ++i) {
        EXPECT_EQ(survey.traveltimes[i].shotIndex, i);
        EXPECT_EQ(survey.traveltimes[i].spreadIndex, 0U);
        EXPECT_EQ(survey.traveltimes[i].shotX, survey.shots[i].x);
        EXPECT_EQ(all.picks.shotOrigins[i].file, (i + 1) / 2);
        EXPECT_EQ(all.picks.origins[i][0].file, (i + 1) / 2);
    }
}

TEST(Merging, OneFileTwiceIsTwoSurveys)
{
    const std::string text = joined(formats[2].lines, "", "\n");
    const TemporaryFolder folder;
    const std::string path = folder.write("line", text);
    PickSurvey picks;
    Report report;
    EXPECT_TRUE(readSeisImagerPicks(path, {}, picks, report));
    EXPECT_TRUE(readSeisImagerPicks(path, {}, picks, report));
    EXPECT_EQ(picks.files, Remarks{path});
    EXPECT_EQ(described(picks), std::string(twoShots) + twoShots);
}

TEST(Merging, ErrorsAreThoseOfTheirPicks)
{
    PickSurvey picks;
    const double unknown = std::numeric_limits<double>::quiet_NaN();
    addShot(
        picks, {1.0, 2.0, ""}, {"a", 1},
        {{{3.0, 4.0}, 0.5, 2, 0.1}, {{5.0, 6.0}, -1.0, 3, 0.2}, {{7.0, 8.0}, 0.25, 4, unknown}});
    addShot(picks, {1.0, 2.0, ""}, {"b", 1}, {{{3.0, 4.0}, 0.5, 2, unknown}});
    EXPECT_EQ(described(picks), "1,2: 3,4=0.5+-0.1 7,8=0.25+-nan; 1,2: 3,4=0.5; ");
    EXPECT_TRUE(picks.errors[1].empty());
    EXPECT_EQ(picks.files, (Remarks{"a", "b"}));
}
