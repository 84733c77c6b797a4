// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "seg2/dolang_conversion.h"

#include "tests/support/dolang_set.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <utility>
#include <vector>

using DolangConversion = DolangSet;

namespace {

using Strings = std::vector<std::string>;

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
    EXPECT_EQ(listing('C'), listingHeading + "1    2      0     0.004     0      0      0\n");
    EXPECT_EQ(listing('R'), listingHeading + "1    1      0     0.00025     0      0      0\n");
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
    EXPECT_EQ(listing('A'), listingHeading + "1    2      4     0.001     0      0      0\n");
    convertA("1\n\n\n\"4\"\n2\n1000\n", {"1\n2\n"});
    EXPECT_EQ(listing('A'), listingHeading + "1    2      0     0.001     0      0      0\n");
    convertA("1\n\n\n4\n\"\n2\n1000\n", {"1\n2\n"});
    EXPECT_EQ(listing('A'), listingHeading + "1    0      4     0.5     0      0      0\n");
}

TEST_F(DolangConversion, LineWithABlankBeforeItsQuoteIsTheCount)
{
    convertA(" \"comment\"\n1\n\n4\n2\n1000\n");
    EXPECT_EQ(listing('A'), listingHeading);
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
        EXPECT_EQ(listing('A'), listingHeading + line) << header;
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
    EXPECT_EQ(listing('A'),
              listingHeading + "1    1      4294967291     0.001     0      0      0\n");
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
                  listingHeading + "1    1      0     " + interval + "     0      0      0\n");
        EXPECT_EQ(parseSeg2(seg2('A')).traces.at(0).strings.at(3),
                  std::string("SAMPLE_INTERVAL ") + interval);
    }
}

TEST_F(DolangConversion, RateZeroLeavesOneTraceWithInterval0)
{
    convertA("2\n\n\n4\n2\n0\n", {"1\n2\n", "3\n4\n"});
    EXPECT_EQ(output, "TraceINDEX : 0\n1\n2\n");
    EXPECT_EQ(listing('A'), listingHeading
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
    EXPECT_EQ(listing('A'), listingHeading);
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
