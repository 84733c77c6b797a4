// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "seg2/dolang_conversion.h"

#include "tests/support/seg2_parser.h"
#include "tests/support/small_records.h"
#include "tests/support/stalled_output.h"
#include "tests/support/support.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <system_error>
#include <unistd.h>
#include <utility>
#include <vector>

namespace {

using Strings = std::vector<std::string>;

const std::string &heading = listingHeading;

const std::string fileWithoutTraces =
    bytes("55 3A 00 00 00 00 00 00 01 00 20 01 0A 20 '                  '"
          "19 00 'TRACE_SORT AS_ACQUIRED' 00 0F 00 'UNITS METERS' 00 00 00 '  '");

const std::string noChannels = "0\n\n\n0\n0\n1000\n";

/// A data set "LINE" in a folder of its own, and another folder to work in.
class DolangConversion : public testing::Test
{
protected:
    /// Writes a header and the files of its channels, counted from 1. `kind` is A, C or R.
    void writeKind(char kind, const std::string &header, const Strings &channels = {}) const
    {
        set.write(std::string("LINE.") + kind + "DT", header);
        for (std::size_t i = 0; i < channels.size(); ++i)
            set.write(std::string("LINE.") + kind + '0' + std::to_string(i + 1), channels[i]);
    }

    /// A set whose kind A has 1000 channels of 100 samples, all of them missing.
    void writeThousandChannels() const
    {
        for (int channel = 1; channel <= 1000; ++channel)
            set.write("LINE.A" + std::string(channel < 10 ? "0" : "") + std::to_string(channel),
                      "");
        writeKind('A', "1000\n\n\n0\n100\n1000\n");
        writeKind('C', noChannels);
        writeKind('R', noChannels);
    }

    void convert()
    {
        CapturedStreams streams;
        convertDolangToSeg2(base);
        streams.finish();
        output = streams.output;
        error = streams.error;
    }

    /// Converts a set whose kind A is as given and whose other kinds have no channels.
    void convertA(const std::string &header, const Strings &channels = {})
    {
        writeKind('A', header, channels);
        writeKind('C', noChannels);
        writeKind('R', noChannels);
        convert();
        EXPECT_EQ(error, "");
        EXPECT_EQ(seg2('C'), fileWithoutTraces);
        EXPECT_EQ(seg2('R'), fileWithoutTraces);
    }

    std::string listingPath(char kind) const
    {
        return work.path(std::string("tmp_") + kind + "DT");
    }

    std::string seg2Path(char kind) const
    {
        return set.path(std::string("LINE_") + kind + "DT_dolang.seg2");
    }

    std::string listing(char kind) const
    {
        return readFile(listingPath(kind));
    }

    std::string seg2(char kind) const
    {
        return readFile(seg2Path(kind));
    }

    /// Neither the listing nor the SEG2 file of the kind is there.
    bool isUntouched(char kind) const
    {
        return !exists(listingPath(kind)) && !exists(seg2Path(kind));
    }

    TemporaryFolder set;
    TemporaryFolder work;
    WorkingFolder working{work.path("")};
    std::string base = set.path("LINE");
    std::string output;
    std::string error;
};

class DolangProblem : public DolangConversion
{
protected:
    bool convertKind(const std::string &listingPath, const std::string &seg2Path)
    {
        CapturedStreams streams;
        const bool result = convertDolangKind(base, dolangKinds[0], listingPath, seg2Path, problem);
        streams.finish();
        error = streams.error;
        return result;
    }

    Problem problem;
};

const std::string twoChannels = "2\nfirst line not used\nsecond\n4\n3\n1000\n";

const std::string twoChannelsListing = heading
                                       + "1    3      4     0.001     0      0      0\n"
                                         "2    3      4     0.001     0      0      0\n";

// Both trace blocks have 148 bytes of descriptor and 12 of data.
const std::string twoChannelsSeg2 =
    bytes("55 3A 00 00 08 00 02 00 01 00 20 01 0A 20 '                  '"
          "54 00 00 00 F8 00 00 00"
          "19 00 'TRACE_SORT AS_ACQUIRED' 00 0F 00 'UNITS METERS' 00 00 00 '  '"
          "22 44 98 00 0C 00 00 00 03 00 00 00 04 '                   '"
          "0A 00 'DELAY 4' 00 15 00 'DESCALING_FACTOR 1' 00 1A 00 'RECEIVER_LOCATION 0 0 0' 00"
          "18 00 'SAMPLE_INTERVAL 0.001' 00 18 00 'SOURCE_LOCATION 0 0 0' 00"
          "0A 00 'STACK 1' 00 00 00 '   ' 00 00 80 3F 00 00 00 C0 00 24 74 49"
          "22 44 98 00 0C 00 00 00 03 00 00 00 04 '                   '"
          "0A 00 'DELAY 4' 00 15 00 'DESCALING_FACTOR 1' 00 1A 00 'RECEIVER_LOCATION 0 0 0' 00"
          "18 00 'SAMPLE_INTERVAL 0.001' 00 18 00 'SOURCE_LOCATION 0 0 0' 00"
          "0A 00 'STACK 1' 00 00 00 '   ' 00 00 00 00 00 00 A0 40 00 00 C0 40");

} // namespace

TEST_F(DolangConversion, WholeRun)
{
    writeKind('A', twoChannels, {"1\n-2\n1000000\n", "0\n5\n6\n"});
    writeKind('C', "1\n\n\n0\n2\n250\n", {"7\n8\n"});
    writeKind('R', "1\n\n\n0\n1\n4000\n", {"-9\n"});
    convert();
    EXPECT_EQ(output, "TraceINDEX : 0\n"
                      "1\n"
                      "-2\n"
                      "1e+06\n"
                      "TraceINDEX : 1\n"
                      "0\n"
                      "5\n"
                      "6\n"
                      "TraceINDEX : 0\n"
                      "7\n"
                      "8\n"
                      "TraceINDEX : 0\n"
                      "-9\n");
    EXPECT_EQ(error, "");
    EXPECT_EQ(listing('A'), twoChannelsListing);
    EXPECT_EQ(listing('C'), heading + "1    2      0     0.004     0      0      0\n");
    EXPECT_EQ(listing('R'), heading + "1    1      0     0.00025     0      0      0\n");
    EXPECT_EQ(seg2('A'), twoChannelsSeg2);
    EXPECT_EQ(parseSeg2(twoChannelsSeg2).traces.size(), 2U);
    const ParsedSeg2 c = parseSeg2(seg2('C'));
    EXPECT_EQ(c.strings, (Strings{"TRACE_SORT AS_ACQUIRED", "UNITS METERS"}));
    ASSERT_EQ(c.traces.size(), 1U);
    EXPECT_EQ(c.traces[0].strings,
              (Strings{"DELAY 0", "DESCALING_FACTOR 1", "RECEIVER_LOCATION 0 0 0",
                       "SAMPLE_INTERVAL 0.004", "SOURCE_LOCATION 0 0 0", "STACK 1"}));
    EXPECT_EQ(c.traces[0].samples, (std::vector<double>{7.0, 8.0}));
    const ParsedSeg2 r = parseSeg2(seg2('R'));
    ASSERT_EQ(r.traces.size(), 1U);
    EXPECT_EQ(r.traces[0].samples, std::vector<double>{-9.0});
}

TEST_F(DolangConversion, RunningTwiceReplacesAllFiles)
{
    for (const char kind : {'A', 'C', 'R'}) {
        writeKind(kind, twoChannels, {"1\n-2\n1000000\n", "0\n5\n6\n"});
        work.write(std::string("tmp_") + kind + "DT", std::string(10000, 'x'));
        set.write(std::string("LINE_") + kind + "DT_dolang.seg2", std::string(10000, 'x'));
    }
    convert();
    convert();
    EXPECT_EQ(error, "");
    for (const char kind : {'A', 'C', 'R'}) {
        EXPECT_EQ(listing(kind), twoChannelsListing) << kind;
        EXPECT_EQ(seg2(kind), twoChannelsSeg2) << kind;
    }
}

TEST_F(DolangConversion, OnlyTheListingsLandInTheWorkingFolder)
{
    convertA(noChannels);
    Strings names;
    for (const auto &entry : std::filesystem::directory_iterator(work.path("")))
        names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    EXPECT_EQ(names, (Strings{"tmp_ADT", "tmp_CDT", "tmp_RDT"}));
    names.clear();
    for (const auto &entry : std::filesystem::directory_iterator(set.path("")))
        names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    EXPECT_EQ(names, (Strings{"LINE.ADT", "LINE.CDT", "LINE.RDT", "LINE_ADT_dolang.seg2",
                              "LINE_CDT_dolang.seg2", "LINE_RDT_dolang.seg2"}));
}

TEST_F(DolangConversion, BaseWithBlanksDotsAndLettersOutsideOfAscii)
{
    base = set.path("Profil Süd.3 b");
    for (const char *extension : {".ADT", ".CDT", ".RDT"})
        set.write(std::string("Profil Süd.3 b") + extension, "1\n\n\n0\n1\n1000\n");
    for (const char *suffix : {".A01", ".C01", ".R01"})
        set.write(std::string("Profil Süd.3 b") + suffix, "5\n");
    convert();
    EXPECT_EQ(error, "");
    for (const char *kind : {"ADT", "CDT", "RDT"}) {
        const std::string path = set.path(std::string("Profil Süd.3 b_") + kind + "_dolang.seg2");
        ASSERT_TRUE(exists(path)) << path;
        EXPECT_EQ(parseSeg2(readFile(path)).traces.at(0).samples, std::vector<double>{5.0});
    }
}

TEST_F(DolangConversion, HeaderBeginsBehindLeadingQuotedLines)
{
    convertA("\"comment\"\n\"\n" + twoChannels, {"1\n-2\n1000000\n", "0\n5\n6\n"});
    EXPECT_EQ(listing('A'), twoChannelsListing);
    EXPECT_EQ(seg2('A'), twoChannelsSeg2);
}

TEST_F(DolangConversion, QuotedLineBehindTheCountIsNotSkipped)
{
    convertA("1\n\"quoted\"\n\n4\n2\n1000\n", {"1\n2\n"});
    EXPECT_EQ(listing('A'), heading + "1    2      4     0.001     0      0      0\n");
    convertA("1\n\n\n\"4\"\n2\n1000\n", {"1\n2\n"});
    EXPECT_EQ(listing('A'), heading + "1    2      0     0.001     0      0      0\n");
    convertA("1\n\n\n4\n\"\n2\n1000\n", {"1\n2\n"});
    EXPECT_EQ(listing('A'), heading + "1    0      4     0.5     0      0      0\n");
}

TEST_F(DolangConversion, LineWithABlankBeforeItsQuoteIsTheCount)
{
    convertA(" \"comment\"\n1\n\n4\n2\n1000\n");
    EXPECT_EQ(listing('A'), heading);
    EXPECT_EQ(seg2('A'), fileWithoutTraces);
}

TEST_F(DolangConversion, EmptyFirstLineIsTheCount)
{
    convertA("\n1\n\n\n4\n2\n1000\n");
    EXPECT_EQ(seg2('A'), fileWithoutTraces);
}

TEST_F(DolangConversion, LinesMayEndInCarriageReturnAndLineFeed)
{
    convertA("\"comment\"\r\n2\r\n\r\n\r\n4\r\n3\r\n1000\r\n",
             {"1\r\n-2\r\n1000000\r\n", "0\r\n5\r\n6\r\n"});
    EXPECT_EQ(listing('A'), twoChannelsListing);
    EXPECT_EQ(seg2('A'), twoChannelsSeg2);
}

TEST_F(DolangConversion, LastLinesMayHaveNoEnd)
{
    convertA("2\n\n\n4\n3\n1000", {"1\n-2\n1000000", "0\n5\n6"});
    EXPECT_EQ(seg2('A'), twoChannelsSeg2);
}

TEST_F(DolangConversion, HeaderLinesBehindTheRateAreIgnored)
{
    convertA(twoChannels + "9\n9\n", {"1\n-2\n1000000\n", "0\n5\n6\n"});
    EXPECT_EQ(seg2('A'), twoChannelsSeg2);
}

TEST_F(DolangConversion, MissingHeaderLinesAreZero)
{
    const std::pair<const char *, const char *> cases[] = {
        {"1\n\n\n4\n3", "1    3      4     inf     0      0      0\n"},
        {"1\n\n\n4\n", "1    0      4     inf     0      0      0\n"},
        {"1\n7\n7", "1    0      0     inf     0      0      0\n"},
        {"1", "1    0      0     inf     0      0      0\n"},
        {"\"1\"\n", ""},
        {"\"", ""},
        {"", ""},
    };
    for (const auto &[header, line] : cases) {
        convertA(header, {"1\n2\n3\n"});
        EXPECT_EQ(listing('A'), heading + line) << header;
    }
}

TEST_F(DolangConversion, HeaderNumbersAreThoseThatBeginTheirLines)
{
    convertA(" \t2 channels\n\n\n+4 ms\n3samples\n1000.5\n", {"1\n-2\n1000000\n", "0\n5\n6\n"});
    EXPECT_EQ(listing('A'), twoChannelsListing);
    EXPECT_EQ(seg2('A'), twoChannelsSeg2);
}

TEST_F(DolangConversion, NegativeDelayIsALargeOne)
{
    convertA("1\n\n\n-5\n1\n1000\n", {"1\n"});
    EXPECT_EQ(listing('A'), heading + "1    1      4294967291     0.001     0      0      0\n");
    EXPECT_EQ(parseSeg2(seg2('A')).traces.at(0).strings.at(0), "DELAY 4.29497e+09");
}

TEST_F(DolangConversion, IntervalIsRoundedToSixDigits)
{
    const std::pair<const char *, const char *> cases[] = {
        {"3", "0.333333"},        {"7", "0.142857"},       {"1", "1"},
        {"48000", "2.08333e-05"}, {"1024", "0.000976562"}, {"-1", "2.32831e-10"},
    };
    for (const auto &[rate, interval] : cases) {
        convertA(std::string("1\n\n\n0\n1\n") + rate + '\n', {"1\n"});
        EXPECT_EQ(listing('A'),
                  heading + "1    1      0     " + interval + "     0      0      0\n");
        EXPECT_EQ(parseSeg2(seg2('A')).traces.at(0).strings.at(3),
                  std::string("SAMPLE_INTERVAL ") + interval);
    }
}

TEST_F(DolangConversion, RateZeroLeavesOneTraceWithInterval0)
{
    convertA("2\n\n\n4\n2\n0\n", {"1\n2\n", "3\n4\n"});
    EXPECT_EQ(output, "TraceINDEX : 0\n1\n2\n");
    EXPECT_EQ(listing('A'), heading
                                + "1    2      4     inf     0      0      0\n"
                                  "2    2      4     inf     0      0      0\n");
    const ParsedSeg2 a = parseSeg2(seg2('A'));
    ASSERT_EQ(a.traces.size(), 1U);
    EXPECT_EQ(a.traces[0].strings,
              (Strings{"DELAY 4", "DESCALING_FACTOR 1", "RECEIVER_LOCATION 0 0 0",
                       "SAMPLE_INTERVAL 0", "SOURCE_LOCATION 0 0 0", "STACK 1"}));
    EXPECT_EQ(a.traces[0].samples, (std::vector<double>{1.0, 2.0}));
}

TEST_F(DolangConversion, WithoutChannelsOnlyTheFileStrings)
{
    convertA("0\n\n\n4\n2\n1000\n");
    EXPECT_EQ(listing('A'), heading);
    EXPECT_EQ(seg2('A'), fileWithoutTraces);
    EXPECT_EQ(output, "");
}

TEST_F(DolangConversion, WithoutSamplesEveryChannelIsATrace)
{
    convertA("2\n\n\n4\n0\n1000\n", {"1\n", "2\n"});
    EXPECT_EQ(output, "TraceINDEX : 0\nTraceINDEX : 1\n");
    EXPECT_EQ(parseSeg2(seg2('A')).traces.size(), 2U);
}

TEST_F(DolangConversion, ChannelNumbersHaveTwoDigitsAtLeast)
{
    std::string samples;
    for (int channel = 1; channel <= 123; ++channel) {
        const std::string number = std::to_string(channel);
        set.write("LINE.C" + std::string(channel < 10 ? "0" : "") + number, number + '\n');
        samples += "TraceINDEX : " + std::to_string(channel - 1) + '\n' + number + '\n';
    }
    writeKind('A', noChannels);
    writeKind('C', "123\n\n\n0\n1\n1000\n");
    writeKind('R', noChannels);
    convert();
    EXPECT_EQ(error, "");
    EXPECT_EQ(output, samples);
    const ParsedSeg2 c = parseSeg2(seg2('C'));
    ASSERT_EQ(c.traces.size(), 123U);
    EXPECT_EQ(c.traces[6].samples, std::vector<double>{7.0});
    EXPECT_EQ(c.traces[122].samples, std::vector<double>{123.0});
}

TEST_F(DolangConversion, SamplesAreTheIntegersThatBeginTheirLines)
{
    convertA("1\n\n\n0\n17\n1000\n",
             {"12abc\n 7\n+5\n\n99999999999\n\t-8\nabc\n1.9\n1e3\n0x10\n2147483648\n- 5\n"
              "16777217\n--3\n007\n99999999999999999999\n1000005001\n"});
    EXPECT_EQ(output, "TraceINDEX : 0\n"
                      "12\n"
                      "7\n"
                      "5\n"
                      "0\n"
                      "1.21575e+09\n" // 1215752191, the low 32 bits
                      "-8\n"
                      "0\n"
                      "1\n"
                      "1\n"
                      "0\n"
                      "-2.14748e+09\n"
                      "0\n"
                      "1.67772e+07\n"
                      "0\n"
                      "7\n"
                      "-1\n"
                      "1e+09\n"); // 1000004992, the nearest 32-bit float
    EXPECT_EQ(parseSeg2(seg2('A')).traces.at(0).samples,
              (std::vector<double>{12, 7, 5, 0, 1215752192, -8, 0, 1, 1, 0, -2147483648.0, 0,
                                   16777216, 0, 7, -1, 1000004992}));
}

TEST_F(DolangConversion, MissingSampleLinesAreZero)
{
    convertA("3\n\n\n0\n3\n1000\n", {"7", "", "4\n5\n"});
    EXPECT_EQ(output,
              "TraceINDEX : 0\n7\n0\n0\nTraceINDEX : 1\n0\n0\n0\nTraceINDEX : 2\n4\n5\n0\n");
    const ParsedSeg2 a = parseSeg2(seg2('A'));
    ASSERT_EQ(a.traces.size(), 3U);
    EXPECT_EQ(a.traces[0].samples, (std::vector<double>{7.0, 0.0, 0.0}));
    EXPECT_EQ(a.traces[2].samples, (std::vector<double>{4.0, 5.0, 0.0}));
}

TEST_F(DolangConversion, SamplesBeyondAllBoundsAreRefused)
{
    // Of both channels together, beyond a value for every byte of their files.
    for (const char *count : {"5000004", "-1", "4294967295"}) {
        writeKind('A', "2\n\n\n0\n" + std::string(count) + "\n1000\n", {"7\n8\n", "9\n"});
        CapturedStreams streams;
        EXPECT_THROW(convertDolangToSeg2(base), std::length_error) << count;
        streams.finish();
        EXPECT_TRUE(isUntouched('A')) << count;
    }
}

TEST_F(DolangConversion, SamplesWithinTheBoundsAreFilledIn)
{
    convertA("2\n\n\n0\n5000003\n1000\n", {"7\n8\n", "9\n"});
    EXPECT_EQ(listing('A'), listingHeading
                                + "1    5000003      0     0.001     0      0      0\n"
                                  "2    5000003      0     0.001     0      0      0\n");
    const ParsedSeg2 a = parseSeg2(seg2('A'));
    ASSERT_EQ(a.traces.size(), 2U);
    EXPECT_EQ(a.traces[0].samples.size(), 5000003U);
    EXPECT_EQ(a.traces[0].samples[1], 8.0);
    EXPECT_EQ(a.traces[1].samples[0], 9.0);
    EXPECT_EQ(a.traces[1].samples.back(), 0.0);
}

TEST_F(DolangConversion, SampleLinesTooManyAreIgnored)
{
    convertA("2\n\n\n0\n1\n1000\n", {"1\n2\n3\n", "4\n5\n"});
    EXPECT_EQ(output, "TraceINDEX : 0\n1\nTraceINDEX : 1\n4\n");
}

TEST_F(DolangConversion, MissingFirstHeaderEndsItAtOnce)
{
    writeKind('C', noChannels);
    writeKind('R', noChannels);
    convert();
    EXPECT_EQ(error, "Error in reading file " + base + ".ADT\n");
    EXPECT_EQ(output, "");
    for (const char kind : {'A', 'C', 'R'})
        EXPECT_TRUE(isUntouched(kind)) << kind;
}

TEST_F(DolangConversion, MissingLastHeaderKeepsTheKindsBefore)
{
    writeKind('A', twoChannels, {"1\n-2\n1000000\n", "0\n5\n6\n"});
    writeKind('C', noChannels);
    convert();
    EXPECT_EQ(error, "Error in reading file " + base + ".RDT\n");
    EXPECT_EQ(listing('A'), twoChannelsListing);
    EXPECT_EQ(seg2('A'), twoChannelsSeg2);
    EXPECT_EQ(listing('C'), heading);
    EXPECT_EQ(seg2('C'), fileWithoutTraces);
    EXPECT_TRUE(isUntouched('R'));
}

TEST_F(DolangConversion, MissingChannelNamesTheHeaderAndEndsIt)
{
    writeKind('A', noChannels);
    writeKind('C', "2\n\n\n0\n1\n1000\n", {"1\n"});
    writeKind('R', noChannels);
    convert();
    EXPECT_EQ(error, "Error in reading file " + base + ".CDT\n");
    EXPECT_EQ(output, "");
    EXPECT_EQ(seg2('A'), fileWithoutTraces);
    EXPECT_TRUE(isUntouched('C'));
    EXPECT_TRUE(isUntouched('R'));
}

TEST_F(DolangConversion, NegativeChannelCountEndsAtTheFirstMissingChannel)
{
    writeKind('A', "-1\n\n\n0\n1\n1000\n", {"1\n", "2\n"});
    convert();
    EXPECT_EQ(error, "Error in reading file " + base + ".ADT\n");
    EXPECT_TRUE(isUntouched('A'));
}

TEST_F(DolangConversion, ListingThatCannotBeCreatedEndsIt)
{
    for (const char kind : {'A', 'C', 'R'})
        writeKind(kind, noChannels);
    std::filesystem::create_directory(listingPath('C'));
    convert();
    EXPECT_EQ(error, "Error in opening file tmp_CDT\n");
    EXPECT_EQ(seg2('A'), fileWithoutTraces);
    EXPECT_FALSE(exists(seg2Path('C')));
    EXPECT_TRUE(isUntouched('R'));
}

TEST_F(DolangConversion, Seg2FileThatCannotBeCreatedDoesNotEndIt)
{
    writeKind('A', "1\n\n\n0\n1\n1000\n", {"1\n"});
    writeKind('C', noChannels);
    writeKind('R', noChannels);
    std::filesystem::create_directory(seg2Path('A'));
    convert();
    EXPECT_EQ(error, "");
    EXPECT_EQ(output, "TraceINDEX : 0\n1\n");
    EXPECT_EQ(listing('A'), heading + "1    1      0     0.001     0      0      0\n");
    EXPECT_EQ(seg2('C'), fileWithoutTraces);
    EXPECT_EQ(seg2('R'), fileWithoutTraces);
}

TEST_F(DolangConversion, ExceptionInTheFirstKindEndsIt)
{
    // The listing is changed at its end, where the conversion still has most of it before it.
    writeThousandChannels();
    CapturedStreams streams;
    output = changeInTheMiddle([this] { convertDolangToSeg2(base); },
                               [this] {
                                   std::fstream file(listingPath('A'));
                                   file.seekp(0, std::ios::end);
                                   file << "1001    100      0     0.001     0      0      0\n";
                               });
    streams.finish();
    EXPECT_EQ(streams.error, "EXCEPTION!\n");
    EXPECT_TRUE(output.ends_with("\nTraceINDEX : 1000\n"));
    EXPECT_TRUE(listing('A').ends_with("\n1001    100      0     0.001     0      0      0\n"));
    EXPECT_EQ(seg2('A'), "");
    EXPECT_TRUE(isUntouched('C'));
    EXPECT_TRUE(isUntouched('R'));
}

TEST_F(DolangConversion, SamplesOfATraceBeginAtItsIndexTimesTheCountInItsLine)
{
    std::string samples;
    for (int i = 0; i < 50; ++i)
        samples += "0\n";
    writeThousandChannels();
    set.write("LINE.A500", samples + "5\n6\n");
    output = changeInTheMiddle([this] { convertDolangToSeg2(base); },
                               [this] {
                                   // "1000    100" becomes "1000    050".
                                   std::fstream file(listingPath('A'));
                                   file.seekp(-41, std::ios::end);
                                   file << "050";
                               });
    EXPECT_TRUE(listing('A').ends_with("\n1000    050      0     0.001     0      0      0\n"));
    const ParsedSeg2 a = parseSeg2(seg2('A'));
    ASSERT_EQ(a.traces.size(), 1000U);
    EXPECT_EQ(a.traces[499].samples.at(50), 5.0);
    ASSERT_EQ(a.traces[999].samples.size(), 50U); // 49950 is the first
    EXPECT_EQ(a.traces[999].samples[0], 5.0);
    EXPECT_EQ(a.traces[999].samples[1], 6.0);
}

TEST_F(DolangConversion, NobodyReadsTheProgress)
{
    for (const char kind : {'A', 'C', 'R'})
        writeKind(kind, twoChannels, {"1\n-2\n1000000\n", "0\n5\n6\n"});
    std::cout.flush();
    const int outputBefore = dup(STDOUT_FILENO);
    const auto expectTheSameFiles = [this] {
        convertDolangToSeg2(base);
        std::cout.flush();
        for (const char kind : {'A', 'C', 'R'}) {
            EXPECT_EQ(listing(kind), twoChannelsListing) << kind;
            EXPECT_EQ(seg2(kind), twoChannelsSeg2) << kind;
        }
    };
    const int nullDevice = open("/dev/null", O_WRONLY);
    dup2(nullDevice, STDOUT_FILENO);
    close(nullDevice);
    expectTheSameFiles();
    close(STDOUT_FILENO);
    expectTheSameFiles();
    dup2(outputBefore, STDOUT_FILENO);
    close(outputBefore);
    std::cout.clear();
}

TEST_F(DolangConversion, DamagedSetsNeverCrash)
{
    const std::string channel = "1\n-2\n1000000\n";
    for (std::size_t size = 0; size < channel.size(); ++size) {
        convertA(twoChannels, {channel.substr(0, size), "0\n5\n6\n"});
        EXPECT_EQ(parseSeg2(seg2('A')).traces.size(), 2U) << size;
    }
    for (std::size_t size = 0; size < twoChannels.size(); ++size) {
        convertA(twoChannels.substr(0, size), {channel, "0\n5\n6\n"});
        EXPECT_LE(parseSeg2(seg2('A')).traces.size(), 2U) << size;
    }
}

TEST_F(DolangProblem, NothingWrong)
{
    writeKind('A', twoChannels, {"1\n-2\n1000000\n", "0\n5\n6\n"});
    EXPECT_TRUE(convertKind(work.path("listing"), set.path("seg2")));
    EXPECT_EQ(problem.detail, "");
    EXPECT_EQ(problem.remark, "");
    EXPECT_EQ(readFile(work.path("listing")), twoChannelsListing);
    EXPECT_EQ(readFile(set.path("seg2")), twoChannelsSeg2);
}

TEST_F(DolangProblem, MissingHeader)
{
    EXPECT_FALSE(convertKind(work.path("listing"), set.path("seg2")));
    EXPECT_EQ(problem.file, base + ".ADT");
    EXPECT_EQ(problem.line, 0U);
    EXPECT_EQ(problem.detail, std::generic_category().message(ENOENT));
}

TEST_F(DolangProblem, MissingChannelIsNamedItself)
{
    writeKind('A', twoChannels, {"1\n"});
    EXPECT_FALSE(convertKind(work.path("listing"), set.path("seg2")));
    EXPECT_EQ(error, "Error in reading file " + base + ".ADT\n");
    EXPECT_EQ(problem.file, base + ".A02");
    EXPECT_EQ(problem.line, 0U);
    EXPECT_EQ(problem.detail, std::generic_category().message(ENOENT));
}

TEST_F(DolangProblem, RateZeroNamesItsLine)
{
    writeKind('A', "\"comment\"\n1\n\n\n0\n1\n0\n", {"1\n"});
    EXPECT_TRUE(convertKind(work.path("listing"), set.path("seg2")));
    EXPECT_EQ(error, "");
    EXPECT_EQ(problem.file, base + ".ADT");
    EXPECT_EQ(problem.line, 7U);
    EXPECT_NE(problem.detail.find("sampling rate"), std::string::npos) << problem.detail;
}

TEST_F(DolangProblem, MissingSampleLinesAreRemarked)
{
    writeKind('A', twoChannels, {"1\n2\n3\n", "4\n5\n"});
    EXPECT_TRUE(convertKind(work.path("listing"), set.path("seg2")));
    EXPECT_EQ(problem.detail, "");
    EXPECT_NE(problem.remark.find(base + ".A02"), std::string::npos) << problem.remark;
}

TEST_F(DolangProblem, FilesThatCannotBeWritten)
{
    writeKind('A', twoChannels, {"1\n-2\n1000000\n", "0\n5\n6\n"});
    const std::string listing = work.path("listing");
    const std::string seg2 = set.path("seg2");
    const std::string blocked = work.path("");
    const struct
    {
        std::string listing, seg2, named;
        bool result;
        int error;
    } cases[] = {
        {blocked, seg2, blocked, false, EISDIR},
        {listing, blocked, blocked, true, EISDIR},
        {listing, "/dev/full", "/dev/full", true, ENOSPC},
        {"/dev/full", seg2, "/dev/full", true, ENOSPC},
    };
    for (const auto &[listingPath, seg2Path, named, result, systemError] : cases) {
        problem = {};
        EXPECT_EQ(convertKind(listingPath, seg2Path), result);
        EXPECT_EQ(problem.file, named);
        EXPECT_EQ(problem.line, 0U);
        EXPECT_EQ(problem.detail, std::generic_category().message(systemError));
    }
}
