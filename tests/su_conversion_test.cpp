// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "seg2/su_conversion.h"

#include "tests/support/seg2_parser.h"
#include "tests/support/small_records.h"
#include "tests/support/stalled_output.h"
#include "tests/support/support.h"

#include <gtest/gtest.h>

#include <bit>
#include <cerrno>
#include <cmath>
#include <cstdint>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <limits>
#include <random>
#include <sys/syscall.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace {

int readsBeforeOneFails = -1; // as a disk does for a moment

} // namespace

/// Stands before the C library's, for Qt too.
extern "C" ssize_t read(int file, void *to, std::size_t size)
{
    if (readsBeforeOneFails >= 0 && readsBeforeOneFails-- == 0) {
        errno = EIO;
        return -1;
    }
    return syscall(SYS_read, file, to, size);
}

namespace {

using Strings = std::vector<std::string>;

const std::string &heading = listingHeading;

/// What is read of a trace's header; all else in it is filled with bytes that must not matter.
struct SuHeader
{
    std::int16_t scalar = 0;
    std::int32_t sourceX = 0;
    std::int32_t receiverX = 0;
    std::uint16_t sampleCount = 0;
    std::uint16_t interval = 0; ///< microseconds
};

std::string littleEndian(std::uint32_t value, std::size_t size)
{
    std::string result;
    for (std::size_t i = 0; i < size; ++i)
        result += static_cast<char>(value >> (8 * i) & 0xFF);
    return result;
}

/// A trace with the samples' bits behind its header, as many as there are.
std::string suTrace(const SuHeader &header, const std::vector<std::uint32_t> &samples)
{
    std::string trace(240, '\x5A');
    trace.replace(70, 2, littleEndian(static_cast<std::uint16_t>(header.scalar), 2));
    trace.replace(72, 4, littleEndian(static_cast<std::uint32_t>(header.sourceX), 4));
    trace.replace(80, 4, littleEndian(static_cast<std::uint32_t>(header.receiverX), 4));
    trace.replace(114, 2, littleEndian(header.sampleCount, 2));
    trace.replace(116, 2, littleEndian(header.interval, 2));
    for (const std::uint32_t sample : samples)
        trace += littleEndian(sample, 4);
    return trace;
}

std::vector<std::uint32_t> floats(const std::vector<float> &values)
{
    std::vector<std::uint32_t> samples;
    for (const float value : values)
        samples.push_back(std::bit_cast<std::uint32_t>(value));
    return samples;
}

/// Two traces of three samples, of which the last ones are not read.
const std::string twoTraces = suTrace({0, 5, 10, 3, 250}, floats({1.5F, -2.0F, 99.0F}))
                              + suTrace({0, 6, 25, 3, 250}, floats({0.25F, 1e6F, 98.0F}));

const std::string twoTracesListing = heading
                                     + "1    3      0     0.00025     10      0      0\n"
                                       "2    3      0     0.00025     25      0      0\n";

const std::string twoTracesSeg2 =
    bytes("55 3A 00 00 08 00 02 00 01 00 20 01 0A 20 '                  '"
          "54 00 00 00 F8 00 00 00"
          "19 00 'TRACE_SORT AS_ACQUIRED' 00 0F 00 'UNITS METERS' 00 00 00 '  '"
          "22 44 98 00 0C 00 00 00 03 00 00 00 04 '                   '"
          "0A 00 'DELAY 0' 00 15 00 'DESCALING_FACTOR 1' 00 1B 00 'RECEIVER_LOCATION 10 0 0' 00"
          "1A 00 'SAMPLE_INTERVAL 0.00025' 00 18 00 'SOURCE_LOCATION 5 0 0' 00"
          "0A 00 'STACK 1' 00 00 00 00 00 C0 3F 00 00 00 C0 00 00 00 00"
          "22 44 98 00 0C 00 00 00 03 00 00 00 04 '                   '"
          "0A 00 'DELAY 0' 00 15 00 'DESCALING_FACTOR 1' 00 1B 00 'RECEIVER_LOCATION 25 0 0' 00"
          "1A 00 'SAMPLE_INTERVAL 0.00025' 00 18 00 'SOURCE_LOCATION 5 0 0' 00"
          "0A 00 'STACK 1' 00 00 00 00 00 80 3E 00 24 74 49 00 00 00 00");

struct Converted
{
    std::int32_t result = -1;
    std::string output;
    std::string error;
    std::string listing;
    std::string seg2;
};

Converted convert(const std::string &su)
{
    const TemporaryFolder folder;
    const std::string path = folder.write("line.su", su);
    Converted converted;
    CapturedStreams streams;
    converted.result = convertSuToSeg2(path);
    streams.finish();
    const std::string opening = "opening su file " + path + '\n';
    EXPECT_EQ(streams.output.substr(0, opening.size()), opening);
    converted.output = streams.output.substr(opening.size());
    converted.error = streams.error;
    converted.listing = readFile(folder.path("line_tmp"));
    converted.seg2 = readFile(folder.path("line.seg2"));
    EXPECT_EQ(readFile(path), su);
    return converted;
}

std::vector<SuTrace> readTraces(const std::string &su)
{
    const TemporaryFolder folder;
    std::vector<SuTrace> traces;
    CapturedStreams streams;
    readSuFile(folder.write("line.su", su), traces);
    return traces;
}

/// A file without traces: six lines of heading, an empty SEG2 file, an exception.
void expectNoTraces(const std::string &su)
{
    const Converted converted = convert(su);
    EXPECT_EQ(converted.result, 0) << su.size() << " bytes";
    EXPECT_EQ(converted.output, "") << su.size() << " bytes";
    EXPECT_EQ(converted.error, "EXCEPTION!\n") << su.size() << " bytes";
    EXPECT_EQ(converted.listing, heading) << su.size() << " bytes";
    EXPECT_EQ(converted.seg2, "") << su.size() << " bytes";
}

/// What the form that tells what happened tells of a file.
Problem problemOf(const std::string &su)
{
    const TemporaryFolder folder;
    Problem problem;
    CapturedStreams streams;
    convertSuToSeg2(folder.write("line.su", su), folder.path("listing"), folder.path("seg2"),
                    problem);
    return problem;
}

std::string repeated(const std::string &text, std::size_t times)
{
    std::string result;
    for (std::size_t i = 0; i < times; ++i)
        result += text;
    return result;
}

/// Expects what a "line.su" in the folder makes that is not there, or is no file.
void expectCannotBeOpened(const TemporaryFolder &folder)
{
    const std::string path = folder.path("line.su");
    CapturedStreams streams;
    EXPECT_EQ(convertSuToSeg2(path), 0);
    streams.finish();
    EXPECT_EQ(streams.output, "opening su file " + path + '\n');
    EXPECT_EQ(streams.error, "Error while loading " + path + "\nEXCEPTION!\n");
    EXPECT_EQ(readFile(folder.path("line_tmp")), heading);
    EXPECT_EQ(readFile(folder.path("line.seg2")), "");
}

} // namespace

TEST(SuTrace, AtConstruction)
{
    const SuTrace trace;
    EXPECT_TRUE(trace.samples.empty());
    EXPECT_EQ(trace.sourceX, 0.0);
    EXPECT_EQ(trace.sourceZ, 0.0);
    EXPECT_EQ(trace.receiverX, 0.0);
    EXPECT_EQ(trace.receiverZ, 0.0);
    EXPECT_EQ(trace.unused, 0.0);
    EXPECT_EQ(trace.sampleInterval, 0.0);
    EXPECT_EQ(trace.unusedLimit, std::numeric_limits<double>::max());
}

TEST(IndexSuFile, CountAndOffsetsOfTheTraces)
{
    const TemporaryFolder folder;
    const std::string path = folder.write("line.su", twoTraces + twoTraces + std::string(251, 'x'));
    std::size_t count = 0;
    std::vector<std::size_t> offsets;
    CapturedStreams streams;
    indexSuFile(path, count, offsets);
    streams.finish();
    EXPECT_EQ(count, 4U);
    EXPECT_EQ(offsets, (std::vector<std::size_t>{0, 252, 504, 756}));
    EXPECT_EQ(streams.output, "opening su file " + path + '\n');
    EXPECT_EQ(streams.error, "");
}

TEST(IndexSuFile, MissingFile)
{
    const TemporaryFolder folder;
    const std::string path = folder.path("missing.su");
    std::size_t count = 7;
    std::vector<std::size_t> offsets;
    CapturedStreams streams;
    indexSuFile(path, count, offsets);
    streams.finish();
    EXPECT_EQ(count, 0U);
    EXPECT_TRUE(offsets.empty());
    EXPECT_EQ(streams.output, "opening su file " + path + '\n');
    EXPECT_EQ(streams.error, "Error while loading " + path + '\n');
}

TEST(ReadSuFile, Traces)
{
    const std::vector<SuTrace> traces = readTraces(twoTraces);
    ASSERT_EQ(traces.size(), 2U);
    EXPECT_EQ(traces[0].samples, (std::vector<double>{1.5, -2.0, 0.0}));
    EXPECT_EQ(traces[0].sourceX, 5.0);
    EXPECT_EQ(traces[0].sourceZ, 0.0);
    EXPECT_EQ(traces[0].receiverX, 10.0);
    EXPECT_EQ(traces[0].receiverZ, 0.0);
    EXPECT_EQ(traces[0].unused, 0.0);
    EXPECT_EQ(traces[0].sampleInterval, 0.00025);
    EXPECT_EQ(traces[0].unusedLimit, std::numeric_limits<double>::max());
    EXPECT_EQ(traces[1].samples, (std::vector<double>{0.25, 1e6, 0.0}));
    EXPECT_EQ(traces[1].sourceX, 6.0);
    EXPECT_EQ(traces[1].receiverX, 25.0);
}

TEST(ReadSuFile, NothingIsLeftOfAFileReadBefore)
{
    const TemporaryFolder folder;
    std::vector<SuTrace> traces;
    CapturedStreams streams;
    readSuFile(folder.write("line.su", twoTraces), traces);
    EXPECT_EQ(traces.size(), 2U);
    readSuFile(folder.write("other.su", suTrace({0, 1, 2, 2, 1000}, floats({3.0F, 4.0F}))), traces);
    ASSERT_EQ(traces.size(), 1U);
    EXPECT_EQ(traces[0].samples, (std::vector<double>{3.0, 0.0}));
    EXPECT_EQ(traces[0].sampleInterval, 0.001);
    readSuFile(folder.path("missing.su"), traces);
    EXPECT_TRUE(traces.empty());
}

TEST(ReadSuFile, AReadThatFailsOnceEndsTheTraces)
{
    const TemporaryFolder folder;
    const std::string path = folder.write("line.su", twoTraces);
    // Before the first header, within the first trace, and before the second one.
    const std::size_t expected[] = {0, 0, 1};
    for (int before = 0; before < 3; ++before) {
        SCOPED_TRACE(before);
        std::vector<SuTrace> traces;
        Problem problem;
        CapturedStreams streams;
        readsBeforeOneFails = before;
        readSuFile(path, traces, problem);
        EXPECT_EQ(std::exchange(readsBeforeOneFails, -1), -1);
        EXPECT_EQ(traces.size(), expected[before]);
        EXPECT_NE(problem.detail, "");
    }
}

TEST(ReadSuFile, CoordinateScalar)
{
    const struct
    {
        std::int16_t scalar;
        std::int32_t coordinate;
        double expected;
    } cases[] = {
        {0, 12345, 12345.0},
        {1, 12345, 12345.0},
        {10, 12345, 123450.0},
        {32767, 3, 98301.0},
        {-1, 12345, 12345.0},
        {-1, -12345, -12345.0},
        {-2, 12345, 0.0},
        {-100, 12345, 0.0},
        {-32768, 12345, 0.0},
        {-100, -12345, -0.0},
        {0, -2147483647 - 1, -2147483648.0},
        {1000, -7, -7000.0},
        {0, 0, 0.0},
    };
    for (const auto &[scalar, coordinate, expected] : cases) {
        // Two traces, as each has a scalar of its own.
        const std::vector<SuTrace> traces = readTraces(
            suTrace({0, 1, 1, 1, 0}, {0}) + suTrace({scalar, coordinate, coordinate, 1, 0}, {0}));
        ASSERT_EQ(traces.size(), 2U);
        for (const double x : {traces[1].sourceX, traces[1].receiverX}) {
            EXPECT_EQ(x, expected) << scalar << ' ' << coordinate;
            EXPECT_EQ(std::signbit(x), std::signbit(expected)) << scalar << ' ' << coordinate;
        }
        EXPECT_EQ(traces[0].sourceX, 1.0);
    }
}

TEST(ReadSuFile, CoordinatesAreOfSinglePrecision)
{
    const std::vector<SuTrace> traces = readTraces(suTrace({0, 16777217, -123456789, 1, 0}, {0})
                                                   + suTrace({10, 16777219, 123456, 1, 0}, {0}));
    ASSERT_EQ(traces.size(), 2U);
    EXPECT_EQ(traces[0].sourceX, 16777216.0);
    EXPECT_EQ(traces[0].receiverX, -123456792.0);
    EXPECT_EQ(traces[1].sourceX, 167772192.0); // 16777220 * 10, rounded again
    EXPECT_EQ(traces[1].receiverX, 1234560.0);
}

TEST(ReadSuFile, IntervalInSeconds)
{
    for (const auto &[interval, seconds] : {std::pair<std::uint16_t, double>{0, 0.0},
                                            {1, 1e-06},
                                            {250, 0.00025},
                                            {65535, 0.065535}}) {
        const std::vector<SuTrace> traces = readTraces(suTrace({0, 0, 0, 1, interval}, {0}));
        ASSERT_EQ(traces.size(), 1U);
        EXPECT_DOUBLE_EQ(traces[0].sampleInterval, seconds);
    }
}

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

TEST(SuConversion, LastSampleOfEveryTraceIsZero)
{
    const ParsedSeg2 seg2 = parseSeg2(convert(twoTraces).seg2);
    ASSERT_EQ(seg2.traces.size(), 2U);
    EXPECT_EQ(seg2.traces[0].samples, (std::vector<double>{1.5, -2.0, 0.0}));
    EXPECT_EQ(seg2.traces[1].samples, (std::vector<double>{0.25, 1e6, 0.0}));
}

TEST(SuConversion, SourceOfTheFirstTraceStandsForAll)
{
    const Converted converted =
        convert(suTrace({10, 7, 1, 1, 0}, {0}) + suTrace({0, 100, 2, 1, 0}, {0})
                + suTrace({-100, 200, 3, 1, 0}, {0}));
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
    const Converted converted = convert(suTrace({0, 0, 0, 2, 500}, floats({1.0F, 2.0F}))
                                        + suTrace({0, 0, 0, 9, 900}, floats({3.0F, 4.0F})));
    EXPECT_EQ(converted.listing, heading
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
        const Converted converted = convert(suTrace({scalar, x, x, 1, 0}, {0}));
        EXPECT_EQ(converted.listing,
                  heading + "1    1      0     0     " + expected + "      0      0\n");
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
        const Converted converted = convert(suTrace({0, 0, 0, 1, interval}, {0}));
        EXPECT_EQ(converted.listing,
                  heading + "1    1      0     " + text + "     0      0      0\n");
        EXPECT_EQ(parseSeg2(converted.seg2).traces.at(0).strings.at(3),
                  std::string("SAMPLE_INTERVAL ") + text);
    }
}

TEST(SuConversion, TraceOfOneSampleIsZero)
{
    const Converted converted = convert(suTrace({0, 0, 0, 1, 0}, floats({5.0F})));
    EXPECT_EQ(converted.output, "TraceINDEX : 0\n0\n");
    EXPECT_EQ(parseSeg2(converted.seg2).traces.at(0).data, bytes("00 00 00 00"));
}

TEST(SuConversion, OfTwoSamplesOneIsRead)
{
    const Converted converted = convert(suTrace({0, 0, 0, 2, 0}, floats({5.0F, 6.0F})));
    EXPECT_EQ(converted.output, "TraceINDEX : 0\n5\n0\n");
    EXPECT_EQ(parseSeg2(converted.seg2).traces.at(0).data, bytes("00 00 A0 40 00 00 00 00"));
}

TEST(SuConversion, WithoutSamplesEvery240BytesAreATrace)
{
    const Converted converted =
        convert(suTrace({0, 1, 2, 0, 500}, {}) + suTrace({0, 1, 3, 0, 0}, {}) + "rest");
    EXPECT_EQ(converted.result, 0);
    EXPECT_EQ(converted.error, "");
    EXPECT_EQ(converted.output, "TraceINDEX : 0\nTraceINDEX : 1\n");
    EXPECT_EQ(converted.listing, heading
                                     + "1    0      0     0.0005     2      0      0\n"
                                       "2    0      0     0.0005     3      0      0\n");
    const ParsedSeg2 seg2 = parseSeg2(converted.seg2);
    ASSERT_EQ(seg2.traces.size(), 2U);
    EXPECT_EQ(seg2.traces[0].sampleCount, 0U);
    EXPECT_EQ(seg2.traces[1].data, "");
}

TEST(SuConversion, LongestTrace)
{
    std::vector<std::uint32_t> samples(65535, 0x3F800000);
    const Converted converted = convert(suTrace({0, 0, 0, 65535, 0}, samples));
    EXPECT_TRUE(converted.output == "TraceINDEX : 0\n" + repeated("1\n", 65534) + "0\n");
    EXPECT_EQ(converted.listing, heading + "1    65535      0     0     0      0      0\n");
    const ParsedSeg2 seg2 = parseSeg2(converted.seg2);
    ASSERT_EQ(seg2.traces.size(), 1U);
    EXPECT_EQ(seg2.traces[0].sampleCount, 65535U);
    EXPECT_EQ(seg2.traces[0].samples[65533], 1.0);
    EXPECT_EQ(seg2.traces[0].samples[65534], 0.0);
}

TEST(SuConversion, FilesTooShortForATraceHaveNone)
{
    const std::string trace = suTrace({0, 1, 2, 1, 500}, floats({1.0F}));
    for (const std::size_t size : {0U, 10U, 70U, 115U, 116U, 117U, 239U, 240U, 241U, 243U})
        expectNoTraces(trace.substr(0, size));
}

TEST(SuConversion, ShortestFileWithATrace)
{
    const std::string trace = suTrace({0, 1, 2, 0, 500}, {});
    expectNoTraces(trace.substr(0, 239));
    for (const std::size_t size : {240U, 241U}) {
        const Converted converted = convert((trace + "x").substr(0, size));
        EXPECT_EQ(converted.error, "") << size;
        EXPECT_EQ(converted.listing, heading + "1    0      0     0.0005     2      0      0\n")
            << size;
    }
}

TEST(SuConversion, HeaderThatPromisesFarMoreThanTheFileHolds)
{
    expectNoTraces(suTrace({0, 1, 2, 65535, 500}, floats({1.0F, 2.0F, 3.0F})));
}

TEST(SuConversion, BytesBehindTheLastWholeTraceAreIgnored)
{
    for (const std::size_t size : {1U, 3U, 240U, 251U}) {
        const Converted converted = convert(twoTraces + twoTraces.substr(0, size));
        EXPECT_EQ(converted.result, 0) << size;
        EXPECT_EQ(converted.error, "") << size;
        EXPECT_EQ(converted.listing, twoTracesListing) << size;
        EXPECT_EQ(converted.seg2, twoTracesSeg2) << size;
    }
}

TEST(SuConversion, SamplesOfEveryKind)
{
    const Converted converted =
        convert(suTrace({0, 0, 0, 12, 0},
                        {0x7F800000, 0xFF800000, 0x7FC00000, 0xFFC00000, 0x80000000, 0x00000001,
                         0x7F7FFFFF, 0x3EAAAAAB, 0x4B800001, 0x7FC12345, 0x38D1B717, 0x3F800000}));
    EXPECT_EQ(converted.output, "TraceINDEX : 0\n"
                                "inf\n"
                                "-inf\n"
                                "nan\n"
                                "-nan\n"
                                "-0\n"
                                "1.4013e-45\n"
                                "3.40282e+38\n"
                                "0.333333\n"
                                "1.67772e+07\n"
                                "nan\n"
                                "0.0001\n"
                                "0\n");
    EXPECT_EQ(parseSeg2(converted.seg2).traces.at(0).data,
              bytes("00 00 80 7F 00 00 80 FF 00 00 C0 7F 00 00 C0 FF 00 00 00 80 01 00 00 00"
                    "FF FF 7F 7F AB AA AA 3E 01 00 80 4B 45 23 C1 7F 17 B7 D1 38 00 00 00 00"));
}

TEST(SuConversion, SignallingNansComeOutQuiet)
{
    const Converted converted =
        convert(suTrace({0, 0, 0, 3, 0}, {0x7F800001, 0xFFA00000, 0x3F800000}));
    EXPECT_EQ(converted.output, "TraceINDEX : 0\nnan\n-nan\n0\n");
    EXPECT_EQ(parseSeg2(converted.seg2).traces.at(0).data,
              bytes("01 00 C0 7F 00 00 E0 FF 00 00 00 00"));
}

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
    EXPECT_EQ(convertSuToSeg2(folder.write("other.su", suTrace({0, 1, 2, 1, 0}, {0}))), 0);
    streams.finish();
    for (const char *name : {"missing", "short"}) {
        EXPECT_EQ(readFile(folder.path(std::string(name) + "_tmp")), heading) << name;
        EXPECT_EQ(readFile(folder.path(std::string(name) + ".seg2")), "") << name;
    }
    EXPECT_EQ(readFile(folder.path("other_tmp")),
              heading + "1    1      0     0     2      0      0\n");
    EXPECT_EQ(parseSeg2(readFile(folder.path("other.seg2"))).traces.at(0).strings.at(4),
              "SOURCE_LOCATION 1 0 0");
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
    EXPECT_EQ(streams.output,
              "opening su file " + path
                  + "\nTraceINDEX : 0\n1.5\n-2\n0\nTraceINDEX : 1\n0.25\n1e+06\n0\n");
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
            "line.su", repeated(suTrace({0, 0, 0, 100, 0}, std::vector<std::uint32_t>(100)), 1000));
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

TEST(SuProblem, NothingWrong)
{
    const Problem problem = problemOf(twoTraces);
    EXPECT_EQ(problem.detail, "");
    EXPECT_EQ(problem.remark, "");
}

TEST(SuProblem, MissingInput)
{
    const TemporaryFolder folder;
    const std::string path = folder.path("line.su");
    Problem problem;
    CapturedStreams streams;
    EXPECT_EQ(convertSuToSeg2(path, folder.path("listing"), folder.path("seg2"), problem), 0);
    EXPECT_EQ(problem.file, path);
    EXPECT_NE(problem.detail, "");
}

TEST(SuProblem, FilesWithoutATrace)
{
    EXPECT_NE(problemOf("").detail.find("no trace found"), std::string::npos);
    EXPECT_NE(problemOf("").detail.find("empty"), std::string::npos);
    const Problem problem = problemOf(twoTraces.substr(0, 251));
    EXPECT_NE(problem.detail.find("no trace found"), std::string::npos) << problem.detail;
    EXPECT_NE(problem.detail.find("251 bytes"), std::string::npos) << problem.detail;
    EXPECT_NE(problem.detail.find("no whole number of traces of 252 bytes"), std::string::npos)
        << problem.detail;
    EXPECT_EQ(problem.detail.find("big-endian"), std::string::npos) << problem.detail;
}

TEST(SuProblem, BigEndianInput)
{
    // 0x0003 samples read as 0x0300: 3312 bytes.
    const std::string trace = suTrace({0, 0, 0, 0x0300, 0}, {0, 0, 0});
    const Problem problem = problemOf(repeated(trace, 10));
    EXPECT_NE(problem.detail.find("no trace found"), std::string::npos) << problem.detail;
    EXPECT_NE(problem.detail.find("big-endian: 10 traces of 252 bytes"), std::string::npos)
        << problem.detail;
    // Long enough for a trace that is none.
    const Problem longer = problemOf(repeated(trace, 14));
    EXPECT_NE(longer.detail.find("big-endian: 14 traces of 252 bytes"), std::string::npos)
        << longer.detail;
}

TEST(SuProblem, BytesLeftOutAreRemarked)
{
    const Problem problem = problemOf(twoTraces + "12345");
    EXPECT_EQ(problem.detail, "");
    EXPECT_NE(problem.remark.find("509 bytes"), std::string::npos) << problem.remark;
    EXPECT_NE(problem.remark.find("the last 5 "), std::string::npos) << problem.remark;
}

TEST(SuProblem, FilesThatCannotBeWritten)
{
    const TemporaryFolder folder;
    const std::string path = folder.write("line.su", twoTraces);
    const std::string listing = folder.path("listing");
    const std::string seg2 = folder.path("seg2");
    const std::string blocked = folder.path("");
    const struct
    {
        std::string listing, seg2, named;
        std::int32_t result;
        int error;
    } cases[] = {
        {blocked, seg2, blocked, 1, EISDIR},
        {listing, blocked, blocked, 0, EISDIR},
        {listing, "/dev/full", "/dev/full", 0, ENOSPC},
        {"/dev/full", seg2, "/dev/full", 0, ENOSPC},
    };
    for (const auto &[listingPath, seg2Path, named, result, error] : cases) {
        Problem problem;
        CapturedStreams streams;
        EXPECT_EQ(convertSuToSeg2(path, listingPath, seg2Path, problem), result);
        EXPECT_EQ(problem.file, named);
        EXPECT_EQ(problem.line, 0U);
        EXPECT_EQ(problem.detail, std::generic_category().message(error));
    }
}

TEST(SuConversion, DamagedFilesNeverCrash)
{
    std::string good;
    for (std::int32_t trace = 0; trace < 3; ++trace)
        good += suTrace({10, 3, trace, 8, 250},
                        floats({1.0F, 2.0F, 3.0F, 4.0F, 5.0F, 6.0F, 7.0F, 8.0F}));
    std::vector<std::string> damaged;
    for (std::size_t size = 0; size < good.size(); size += 7)
        damaged.push_back(good.substr(0, size));
    std::mt19937 random(20240607);
    for (int i = 0; i < 300; ++i) {
        damaged.push_back(good);
        for (int flips = 0; flips <= i % 8; ++flips)
            damaged.back()[random() % good.size()] = static_cast<char>(random() % 256);
        // Half of them where the counts and the coordinates of the first trace stand.
        if (i % 2 == 0)
            damaged.back()[68 + random() % 50] = static_cast<char>(random() % 256);
    }
    const auto byte = [](const std::string &su, std::size_t at) {
        return static_cast<std::size_t>(static_cast<unsigned char>(su[at]));
    };
    for (std::size_t i = 0; i < damaged.size(); ++i) {
        const std::string &su = damaged[i];
        const std::size_t sampleCount = su.size() < 116 ? 0 : byte(su, 114) + 256 * byte(su, 115);
        const std::size_t traceCount = su.size() / (240 + 4 * sampleCount);
        const Converted converted = convert(su);
        EXPECT_EQ(converted.result, 0) << i;
        EXPECT_EQ(converted.error, traceCount == 0 ? "EXCEPTION!\n" : "") << i;
        if (traceCount == 0) {
            EXPECT_EQ(converted.seg2, "") << i;
            continue;
        }
        ParsedSeg2 seg2;
        ASSERT_NO_THROW(seg2 = parseSeg2(converted.seg2)) << i;
        ASSERT_EQ(seg2.traces.size(), traceCount) << i;
        for (std::size_t trace = 0; trace < traceCount; ++trace) {
            std::string data = su.substr(trace * (240 + 4 * sampleCount) + 240, 4 * sampleCount);
            if (!data.empty())
                data.replace(data.size() - 4, 4, 4, '\0');
            // What may have become a signalling NaN.
            for (std::size_t at = 0; at < data.size(); at += 4) {
                const std::size_t exponent =
                    byte(data, at + 3) % 128 * 2 + byte(data, at + 2) / 128;
                if (exponent == 255
                    && (byte(data, at + 2) % 128 + byte(data, at + 1) + byte(data, at)) != 0)
                    data[at + 2] = static_cast<char>(data[at + 2] | 0x40);
            }
            EXPECT_EQ(seg2.traces[trace].data, data) << i;
        }
    }
}
