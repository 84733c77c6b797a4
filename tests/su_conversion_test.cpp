// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "seg2/su_conversion.h"

#include "tests/support/odd_files.h"
#include "tests/support/stalled_output.h"
#include "tests/support/su_conversions.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>
#include <tuple>
#include <unistd.h>
#include <utility>

TEST(BeforeLastDot, LastDotOfTheWholePath)
{
    const std::pair<const char *, const char *> cases[] = {
        {"C:/data/line1.su", "C:/data/line1"},
        {"/survey.2024/line", "/survey"},
        {"/survey.2024/line.su", "/survey.2024/line"},
        {"line.1.su", "line.1"},
        {"line", "line"},
        {"line.", "line"},
        {".su", ""},
        {"", ""},
        {"../line", "."},
    };
    for (const auto &[path, base] : cases)
        EXPECT_EQ(beforeLastDot(path), base) << path;
}

TEST(SuConversion, NamesOfTheOutputs)
{
    EXPECT_EQ(suListingPath("C:/data/line1.su"), "C:/data/line1_tmp");
    EXPECT_EQ(suSeg2Path("C:/data/line1.su"), "C:/data/line1.seg2");
    EXPECT_EQ(suListingPath("/survey.2024/line"), "/survey_tmp");
    EXPECT_EQ(suSeg2Path("/survey.2024/line"), "/survey.seg2");
}

TEST(SuConversion, WholeRun)
{
    const TemporaryFolder folder;
    const std::string path = folder.write("line.su", twoTraces);
    CapturedStreams streams;
    EXPECT_EQ(convertSuToSeg2(path), 0);
    streams.finish();
    EXPECT_EQ(streams.output, "opening su file " + path
                                  + "\n"
                                    "TraceINDEX : 0\n"
                                    "1.5\n"
                                    "-2\n"
                                    "0\n"
                                    "TraceINDEX : 1\n"
                                    "0.25\n"
                                    "1e+06\n"
                                    "0\n");
    EXPECT_EQ(streams.error, "");
    EXPECT_EQ(readFile(folder.path("line_tmp")), twoTracesListing);
    EXPECT_EQ(readFile(folder.path("line.seg2")), twoTracesSeg2);
    EXPECT_EQ(parseSeg2(twoTracesSeg2).traces.size(), 2U);
}

TEST(SuConversion, RunningTwiceReplacesBothFiles)
{
    const TemporaryFolder folder;
    const std::string path = folder.write("line.su", twoTraces);
    CapturedStreams streams;
    EXPECT_EQ(convertSuToSeg2(path), 0);
    folder.write("line_tmp", std::string(10000, 'x'));
    folder.write("line.seg2", std::string(10000, 'x'));
    EXPECT_EQ(convertSuToSeg2(path), 0);
    streams.finish();
    EXPECT_EQ(readFile(folder.path("line_tmp")), twoTracesListing);
    EXPECT_EQ(readFile(folder.path("line.seg2")), twoTracesSeg2);
}

TEST(SuConversion, FilesAreNamedAfterTheInput)
{
    const std::tuple<const char *, const char *, const char *> cases[] = {
        {"line1.su", "line1_tmp", "line1.seg2"},
        {"line.1.SU", "line.1_tmp", "line.1.seg2"},
        {".su", "_tmp", ".seg2"},
        {"Profil Süd 3.su", "Profil Süd 3_tmp", "Profil Süd 3.seg2"},
        {"survey.2024/line.su", "survey.2024/line_tmp", "survey.2024/line.seg2"},
        {"survey.2024/line", "survey_tmp", "survey.seg2"},
    };
    for (const auto &[input, listing, seg2] : cases) {
        const TemporaryFolder folder;
        std::filesystem::create_directory(folder.path("survey.2024"));
        CapturedStreams streams;
        EXPECT_EQ(convertSuToSeg2(folder.write(input, twoTraces)), 0) << input;
        streams.finish();
        EXPECT_EQ(streams.error, "") << input;
        ASSERT_TRUE(exists(folder.path(listing))) << input;
        ASSERT_TRUE(exists(folder.path(seg2))) << input;
        EXPECT_EQ(readFile(folder.path(listing)), twoTracesListing) << input;
        EXPECT_EQ(readFile(folder.path(seg2)), twoTracesSeg2) << input;
    }
}

TEST(SuConversion, PathWithoutADotIsTheBase)
{
    const TemporaryFolder folder;
    const WorkingFolder working(folder.path(""));
    folder.write("line", twoTraces);
    CapturedStreams streams;
    EXPECT_EQ(convertSuToSeg2("line"), 0);
    streams.finish();
    EXPECT_EQ(readFile(folder.path("line_tmp")), twoTracesListing);
    EXPECT_EQ(readFile(folder.path("line.seg2")), twoTracesSeg2);
}

TEST(SuConversion, SourceOfTheFirstTraceStandsForAll)
{
    const ConvertedSu converted =
        convertedSu(filledTrace({10, 7, 1, 1, 0}, {0.0F}) + filledTrace({0, 100, 2, 1, 0}, {0.0F})
                    + filledTrace({-100, 200, 3, 1, 0}, {0.0F}));
    const ParsedSeg2 seg2 = parseSeg2(converted.seg2);
    ASSERT_EQ(seg2.traces.size(), 3U);
    for (const ParsedTrace &trace : seg2.traces)
        EXPECT_EQ(trace.strings[4], "SOURCE_LOCATION 70 0 0");
    EXPECT_EQ(seg2.traces[0].strings[2], "RECEIVER_LOCATION 10 0 0");
    EXPECT_EQ(seg2.traces[1].strings[2], "RECEIVER_LOCATION 2 0 0");
    EXPECT_EQ(seg2.traces[2].strings[2], "RECEIVER_LOCATION 0 0 0");
}

TEST(SuConversion, CountAndIntervalAreTakenFromTheFirstTrace)
{
    const ConvertedSu converted = convertedSu(filledTrace({0, 0, 0, 2, 500}, {1.0F, 2.0F})
                                              + filledTrace({0, 0, 0, 9, 900}, {3.0F, 4.0F}));
    EXPECT_EQ(converted.listing, listingHeading
                                     + "1    2      0     0.0005     0      0      0\n"
                                       "2    2      0     0.0005     0      0      0\n");
    EXPECT_EQ(converted.output, "TraceINDEX : 0\n1\n0\nTraceINDEX : 1\n3\n0\n");
}

TEST(SuConversion, ScaledCoordinates)
{
    const struct
    {
        std::int16_t scalar;
        std::int32_t x;
        const char *expected;
    } cases[] = {
        {-100, 12345, "0"},         {10, 12345, "123450"}, {0, 12345, "12345"},
        {-1, 12345, "12345"},       {-100, -12345, "-0"},  {1, 16777217, "1.67772e+07"},
        {32767, 100, "3.2767e+06"}, {-32768, 12345, "0"},
    };
    for (const auto &[scalar, x, expected] : cases) {
        const ConvertedSu converted = convertedSu(filledTrace({scalar, x, x, 1, 0}, {0.0F}));
        EXPECT_EQ(converted.listing,
                  listingHeading + "1    1      0     0     " + expected + "      0      0\n");
        const ParsedSeg2 seg2 = parseSeg2(converted.seg2);
        ASSERT_EQ(seg2.traces.size(), 1U);
        EXPECT_EQ(seg2.traces[0].strings[2], std::string("RECEIVER_LOCATION ") + expected + " 0 0");
        EXPECT_EQ(seg2.traces[0].strings[4], std::string("SOURCE_LOCATION ") + expected + " 0 0");
    }
}

TEST(SuConversion, IntervalOfEveryWidth)
{
    for (const auto &[interval, text] : {std::pair<std::uint16_t, const char *>{0, "0"},
                                         {1, "1e-06"},
                                         {62, "6.2e-05"},
                                         {100, "0.0001"},
                                         {250, "0.00025"},
                                         {65535, "0.065535"}}) {
        const ConvertedSu converted = convertedSu(filledTrace({0, 0, 0, 1, interval}, {0.0F}));
        EXPECT_EQ(converted.listing,
                  listingHeading + "1    1      0     " + text + "     0      0      0\n");
        EXPECT_EQ(parseSeg2(converted.seg2).traces.at(0).strings.at(3),
                  std::string("SAMPLE_INTERVAL ") + text);
    }
}

namespace {

/// Expects what a "line.su" in the folder makes that is not there, or is not a file.
void expectCannotBeOpened(const TemporaryFolder &folder)
{
    const std::string path = folder.path("line.su");
    CapturedStreams streams;
    EXPECT_EQ(convertSuToSeg2(path), 0);
    streams.finish();
    EXPECT_EQ(streams.output, "opening su file " + path + '\n');
    EXPECT_EQ(streams.error, "Error while loading " + path + "\nEXCEPTION!\n");
    EXPECT_EQ(readFile(folder.path("line_tmp")), listingHeading);
    EXPECT_EQ(readFile(folder.path("line.seg2")), "");
}

} // namespace

TEST(SuConversion, MissingInput)
{
    const TemporaryFolder folder;
    expectCannotBeOpened(folder);
}

TEST(SuConversion, FolderAsInputCannotBeOpened)
{
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder.path("line.su"));
    expectCannotBeOpened(folder);
}

TEST(SuConversion, NothingIsLeftOfAFileConvertedBefore)
{
    const TemporaryFolder folder;
    CapturedStreams streams;
    EXPECT_EQ(convertSuToSeg2(folder.write("first.su", twoTraces)), 0);
    EXPECT_EQ(convertSuToSeg2(folder.path("missing.su")), 0);
    EXPECT_EQ(convertSuToSeg2(folder.write("short.su", twoTraces.substr(0, 100))), 0);
    EXPECT_EQ(convertSuToSeg2(folder.write("other.su", filledTrace({0, 1, 2, 1, 0}, {0.0F}))), 0);
    streams.finish();
    for (const char *name : {"missing", "short"}) {
        EXPECT_EQ(readFile(folder.path(std::string(name) + "_tmp")), listingHeading) << name;
        EXPECT_EQ(readFile(folder.path(std::string(name) + ".seg2")), "") << name;
    }
    EXPECT_EQ(readFile(folder.path("other_tmp")),
              listingHeading + "1    1      0     0     2      0      0\n");
    EXPECT_EQ(parseSeg2(readFile(folder.path("other.seg2"))).traces.at(0).strings.at(4),
              "SOURCE_LOCATION 1 0 0");
}

TEST(SuConversion, LinesOfBothStreamsKeepTheirOrder)
{
    const TemporaryFolder folder;
    const auto linesOf = [](const std::string &path) {
        std::ostringstream both;
        std::streambuf *const output = std::cout.rdbuf(both.rdbuf());
        std::streambuf *const error = std::cerr.rdbuf(both.rdbuf());
        convertSuToSeg2(path);
        std::cout.rdbuf(output);
        std::cerr.rdbuf(error);
        return both.str();
    };
    const std::string missing = folder.path("missing.su");
    EXPECT_EQ(linesOf(missing),
              "opening su file " + missing + "\nError while loading " + missing + "\nEXCEPTION!\n");
    const std::string path = folder.write("line.su", twoTraces);
    EXPECT_EQ(linesOf(path), "opening su file " + path + '\n' + twoTracesProgress);
    std::filesystem::create_symlink("/dev/full", folder.path("other_tmp"));
    const std::string other = folder.write("other.su", twoTraces);
    // A device gives no listing back.
    const std::string warning = "WARNING: Keyword  is not a standard keyword for the file "
                                "descriptor block.\n";
    EXPECT_EQ(linesOf(other), "opening su file " + other + '\n' + warning + warning);
}

TEST(SuConversion, ListingThatCannotBeCreatedEndsWith1)
{
    const TemporaryFolder folder;
    const std::string path = folder.write("line.su", twoTraces);
    std::filesystem::create_directory(folder.path("line_tmp"));
    CapturedStreams streams;
    EXPECT_EQ(convertSuToSeg2(path), 1);
    streams.finish();
    EXPECT_EQ(streams.output, "opening su file " + path + '\n');
    EXPECT_EQ(streams.error, "Error in opening file " + folder.path("line_tmp") + '\n');
    EXPECT_FALSE(exists(folder.path("line.seg2")));
}

TEST(SuConversion, Seg2FileThatCannotBeCreatedMakesNoMessage)
{
    const TemporaryFolder folder;
    const std::string path = folder.write("line.su", twoTraces);
    std::filesystem::create_directory(folder.path("line.seg2"));
    CapturedStreams streams;
    EXPECT_EQ(convertSuToSeg2(path), 0);
    streams.finish();
    EXPECT_EQ(streams.output, "opening su file " + path + '\n' + twoTracesProgress);
    EXPECT_EQ(streams.error, "");
    EXPECT_EQ(readFile(folder.path("line_tmp")), twoTracesListing);
}

TEST(SuConversion, FullDiskMakesNoMessage)
{
    const TemporaryFolder folder;
    const std::string path = folder.write("line.su", twoTraces);
    std::filesystem::create_symlink("/dev/full", folder.path("line.seg2"));
    CapturedStreams streams;
    EXPECT_EQ(convertSuToSeg2(path), 0);
    streams.finish();
    EXPECT_EQ(streams.error, "");
    EXPECT_EQ(readFile(folder.path("line_tmp")), twoTracesListing);
}

TEST(SuConversion, ListingThatPromisesMoreThanThereIsIsAnException)
{
    const struct
    {
        std::streamoff fromEnd;
        std::string text, lastLine, lastOutput;
    } cases[] = {
        {-37, "101", "1000    101      0     0     0      0      0\n",
         "\nTraceINDEX : 999\n" + repeated("0\n", 100)},
        {0, "1001    1      0     0     0      0      0\n",
         "1001    1      0     0     0      0      0\n", "\nTraceINDEX : 1000\n"},
    };
    for (const auto &change : cases) {
        const TemporaryFolder folder;
        const std::string path = folder.write(
            "line.su", repeated(filledTrace({0, 0, 0, 100, 0}, std::vector<float>(100)), 1000));
        std::int32_t result = -1;
        CapturedStreams streams;
        const std::string output =
            changeInTheMiddle([&] { result = convertSuToSeg2(path); },
                              [&] {
                                  std::fstream listing(folder.path("line_tmp"));
                                  listing.seekp(change.fromEnd, std::ios::end);
                                  listing << change.text;
                              });
        streams.finish();
        EXPECT_EQ(result, 0);
        EXPECT_EQ(streams.error, "EXCEPTION!\n");
        EXPECT_TRUE(output.ends_with(change.lastOutput)) << change.text;
        EXPECT_TRUE(readFile(folder.path("line_tmp")).ends_with(change.lastLine)) << change.text;
        EXPECT_EQ(readFile(folder.path("line.seg2")), "");
    }
}

TEST(SuConversion, NobodyReadsTheProgress)
{
    const TemporaryFolder folder;
    const std::string path = folder.write("line.su", twoTraces);
    std::cout.flush();
    const int outputBefore = dup(STDOUT_FILENO);
    const int nullDevice = open("/dev/null", O_WRONLY);
    dup2(nullDevice, STDOUT_FILENO);
    close(nullDevice);
    EXPECT_EQ(convertSuToSeg2(path), 0);
    std::cout.flush();
    EXPECT_EQ(readFile(folder.path("line_tmp")), twoTracesListing);
    EXPECT_EQ(readFile(folder.path("line.seg2")), twoTracesSeg2);
    close(STDOUT_FILENO);
    EXPECT_EQ(convertSuToSeg2(path), 0);
    std::cout.flush();
    dup2(outputBefore, STDOUT_FILENO);
    close(outputBefore);
    std::cout.clear();
    EXPECT_EQ(readFile(path), twoTraces);
    EXPECT_EQ(readFile(folder.path("line_tmp")), twoTracesListing);
    EXPECT_EQ(readFile(folder.path("line.seg2")), twoTracesSeg2);
}

TEST(SuConversion, ProgressThatNobodyReadsIsNotEvenMade)
{
    const TemporaryFolder folder;
    const std::string path = folder.write("line.su", twoTraces);
    const auto progressMade = [&path] {
        std::ostringstream made;
        std::streambuf *const before = std::cout.rdbuf(made.rdbuf());
        EXPECT_EQ(convertSuToSeg2(path), 0);
        std::cout.rdbuf(before);
        return made.str();
    };
    std::cout.flush();
    const int outputBefore = dup(STDOUT_FILENO);
    const int file = open(folder.path("output").c_str(), O_WRONLY | O_CREAT, 0600);
    dup2(file, STDOUT_FILENO);
    close(file);
    EXPECT_EQ(progressMade(), "opening su file " + path + '\n' + twoTracesProgress);
    const int nullDevice = open("/dev/null", O_WRONLY);
    dup2(nullDevice, STDOUT_FILENO);
    close(nullDevice);
    EXPECT_EQ(progressMade(), "");
    close(STDOUT_FILENO);
    EXPECT_EQ(progressMade(), "");
    dup2(outputBefore, STDOUT_FILENO);
    close(outputBefore);
    EXPECT_EQ(readFile(folder.path("line.seg2")), twoTracesSeg2);
}
