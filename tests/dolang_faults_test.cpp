// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "seg2/dolang_conversion.h"

#include "tests/support/dolang_set.h"
#include "tests/support/stalled_output.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <stdexcept>
#include <string>
#include <unistd.h>
#include <vector>

using DolangFaults = DolangSet;

namespace {

using Strings = std::vector<std::string>;

} // namespace

TEST_F(DolangFaults, MissingSampleLinesAreZero)
{
    convertA("3\n\n\n0\n3\n1000\n", {"7", "", "4\n5\n"});
    EXPECT_EQ(output,
              "TraceINDEX : 0\n7\n0\n0\nTraceINDEX : 1\n0\n0\n0\nTraceINDEX : 2\n4\n5\n0\n");
    const ParsedSeg2 a = parseSeg2(seg2('A'));
    ASSERT_EQ(a.traces.size(), 3U);
    EXPECT_EQ(a.traces[0].samples, (std::vector<double>{7.0, 0.0, 0.0}));
    EXPECT_EQ(a.traces[2].samples, (std::vector<double>{4.0, 5.0, 0.0}));
}

TEST_F(DolangFaults, SamplesBeyondAllBoundsAreRefused)
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

TEST_F(DolangFaults, SamplesWithinTheBoundsAreFilledIn)
{
    writeKind('A', "2\n\n\n0\n5000003\n1000\n", {"7\n8\n", "9\n"});
    Report report;
    EXPECT_TRUE(
        convertDolang(base, dolangKinds[0], listingPath('A'), seg2Path('A'), nullptr, report));
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

TEST_F(DolangFaults, SampleLinesTooManyAreIgnored)
{
    convertA("2\n\n\n0\n1\n1000\n", {"1\n2\n3\n", "4\n5\n"});
    EXPECT_EQ(output, "TraceINDEX : 0\n1\nTraceINDEX : 1\n4\n");
}

TEST_F(DolangFaults, MissingFirstHeaderEndsItAtOnce)
{
    writeKind('C', noChannels);
    writeKind('R', noChannels);
    convert();
    EXPECT_EQ(error, "Error in reading file " + base + ".ADT\n");
    EXPECT_EQ(output, "");
    for (const char kind : {'A', 'C', 'R'})
        EXPECT_TRUE(isUntouched(kind)) << kind;
}

TEST_F(DolangFaults, MissingLastHeaderKeepsTheKindsBefore)
{
    writeKind('A', twoChannels, {"1\n-2\n1000000\n", "0\n5\n6\n"});
    writeKind('C', noChannels);
    convert();
    EXPECT_EQ(error, "Error in reading file " + base + ".RDT\n");
    EXPECT_EQ(listing('A'), twoChannelsListing);
    EXPECT_EQ(seg2('A'), twoChannelsSeg2);
    EXPECT_EQ(listing('C'), listingHeading);
    EXPECT_EQ(seg2('C'), fileWithoutTraces);
    EXPECT_TRUE(isUntouched('R'));
}

TEST_F(DolangFaults, MissingChannelNamesTheHeaderAndEndsIt)
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

TEST_F(DolangFaults, NegativeChannelCountEndsAtTheFirstMissingChannel)
{
    writeKind('A', "-1\n\n\n0\n1\n1000\n", {"1\n", "2\n"});
    convert();
    EXPECT_EQ(error, "Error in reading file " + base + ".ADT\n");
    EXPECT_TRUE(isUntouched('A'));
}

TEST_F(DolangFaults, ListingThatCannotBeCreatedEndsIt)
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

TEST_F(DolangFaults, Seg2FileThatCannotBeCreatedDoesNotEndIt)
{
    writeKind('A', "1\n\n\n0\n1\n1000\n", {"1\n"});
    writeKind('C', noChannels);
    writeKind('R', noChannels);
    std::filesystem::create_directory(seg2Path('A'));
    convert();
    EXPECT_EQ(error, "");
    EXPECT_EQ(output, "TraceINDEX : 0\n1\n");
    EXPECT_EQ(listing('A'), listingHeading + "1    1      0     0.001     0      0      0\n");
    EXPECT_EQ(seg2('C'), fileWithoutTraces);
    EXPECT_EQ(seg2('R'), fileWithoutTraces);
}

TEST_F(DolangFaults, ExceptionInTheFirstKindEndsIt)
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

TEST_F(DolangFaults, SamplesOfATraceBeginAtItsIndexTimesTheCountInItsLine)
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

TEST_F(DolangFaults, NobodyReadsTheProgress)
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

TEST_F(DolangFaults, DamagedSetsNeverCrash)
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
