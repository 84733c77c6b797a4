// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "seg2/listing.h"

#include "tests/support/seg2_parser.h"
#include "tests/support/small_records.h"
#include "tests/support/support.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <limits>
#include <new>
#include <random>
#include <sstream>
#include <stdexcept>

namespace {

using Strings = std::vector<std::string>;

const std::string &heading = listingHeading;

const std::string invalidSubscript = "invalid vector subscript";

/// The samples 10 t, 10 t + 1, ... of trace t, eight of them, in any number of traces.
const RecordSamples eightSamples = {
    [](std::size_t, std::uint32_t count) { return std::min(count, 8U); },
    [](std::size_t trace, std::uint32_t count) {
        std::vector<float> samples;
        while (samples.size() < std::min<std::size_t>(count, 8))
            samples.push_back(static_cast<float>(10 * trace + samples.size()));
        return samples;
    },
};

struct Converted
{
    bool result = false;
    std::string output;
    std::string seg2;
    Report report = {};
};

Converted convert(const std::string &listing, std::optional<double> sourceX = 0.0,
                  const RecordSamples &samples = eightSamples)
{
    const TemporaryFolder folder;
    const std::string listingPath = folder.write("line_tmp", listing);
    Converted converted;
    converted.report.place = {"line.su"};
    std::ostringstream progress;
    CapturedStreams streams;
    converted.result = convertListing(listingPath, folder.path("line.seg2"), sourceX, samples,
                                      &progress, converted.report);
    streams.finish();
    EXPECT_EQ(streams.output + streams.error, "");
    EXPECT_EQ(converted.report.result, 0);
    EXPECT_EQ(converted.report.error, nullptr);
    converted.output = progress.str();
    converted.seg2 = readFile(folder.path("line.seg2"));
    EXPECT_EQ(readFile(listingPath), listing);
    return converted;
}

/// What a failure of the system at a file is.
Failure systemFailure(const std::string &path, int code)
{
    return {{path}, systemText(code)};
}

Strings strings(const std::string &delay, const std::string &receiver, const std::string &interval,
                const std::string &source = "0 0 0")
{
    return {"DELAY " + delay,
            "DESCALING_FACTOR 1",
            "RECEIVER_LOCATION " + receiver,
            "SAMPLE_INTERVAL " + interval,
            "SOURCE_LOCATION " + source,
            "STACK 1"};
}

struct LineCase
{
    std::string line;
    std::size_t sampleCount;
    std::string delay, interval, receiver;
};

/// The line makes one trace, and what is behind it makes none.
void expectOneTrace(const LineCase &expected, const std::string &behind)
{
    const auto &[line, sampleCount, delay, interval, receiver] = expected;
    const Converted converted = convert(heading + line + behind);
    EXPECT_TRUE(converted.result) << line;
    EXPECT_EQ(converted.report.printed, "") << line;
    EXPECT_EQ(converted.output, sampleCount == 2 ? "TraceINDEX : 0\n0\n1\n" : "TraceINDEX : 0\n")
        << line;
    const ParsedSeg2 seg2 = parseSeg2(converted.seg2);
    ASSERT_EQ(seg2.traces.size(), 1U) << line;
    EXPECT_EQ(seg2.traces[0].strings, strings(delay, receiver, interval)) << line;
    EXPECT_EQ(seg2.traces[0].sampleCount, sampleCount) << line;
}

} // namespace

TEST(WriteListing, HeadingAndALineForEachTrace)
{
    const TemporaryFolder folder;
    Report report;
    CapturedStreams streams;
    EXPECT_TRUE(writeListing(
        folder.path("line_tmp"),
        {{1000, 0, 0.00025, 12.5, 0.0, 0.0}, {0, 4294967295, 1.0 / 3.0, -0.0, 1234567.0, 0.00001}},
        report));
    streams.finish();
    EXPECT_EQ(readFile(folder.path("line_tmp")),
              "TRACE_SORT   AS_ACQUIRED\n"
              "UNITS\t\tMETERS\n"
              "\n"
              "                  Time    Sample\n"
              "Trace   No. of    Delay   Interval       Receiver Location\n"
              "No.     Samples   (s)     (s)        X           Y         Z\n"
              "1    1000      0     0.00025     12.5      0      0\n"
              "2    0      4294967295     0.333333     -0      1.23457e+06      1e-05\n");
    EXPECT_EQ(streams.output + streams.error + report.printed, "");
    EXPECT_EQ(report.failure, std::nullopt);
}

TEST(WriteListing, ValuesAreZeroUntilGiven)
{
    const ListingTrace trace;
    EXPECT_EQ(trace.sampleCount, 0U);
    EXPECT_EQ(trace.delay, 0U);
    EXPECT_EQ(trace.interval, 0.0);
    EXPECT_EQ(trace.receiverX, 0.0);
    EXPECT_EQ(trace.receiverY, 0.0);
    EXPECT_EQ(trace.receiverZ, 0.0);
}

TEST(WriteListing, WithoutTracesTheHeadingAlone)
{
    const TemporaryFolder folder;
    Report report;
    EXPECT_TRUE(writeListing(folder.path("line_tmp"), {}, report));
    EXPECT_EQ(readFile(folder.path("line_tmp")), heading);
}

TEST(WriteListing, IntervalThatIsInfinite)
{
    const TemporaryFolder folder;
    Report report;
    const double infinite = std::numeric_limits<double>::infinity();
    EXPECT_TRUE(writeListing(folder.path("line_tmp"), {{1, 0, infinite}}, report));
    EXPECT_EQ(readFile(folder.path("line_tmp")),
              heading + "1    1      0     inf     0      0      0\n");
}

TEST(WriteListing, ReplacesAnOlderListing)
{
    const TemporaryFolder folder;
    Report report;
    folder.write("line_tmp", std::string(10000, 'x'));
    EXPECT_TRUE(writeListing(folder.path("line_tmp"), {}, report));
    EXPECT_EQ(readFile(folder.path("line_tmp")), heading);
}

TEST(WriteListing, ListingThatCannotBeCreated)
{
    const TemporaryFolder folder;
    const std::string path = folder.path("");
    Report report;
    CapturedStreams streams;
    EXPECT_FALSE(writeListing(path, {}, report));
    streams.finish();
    EXPECT_EQ(streams.output + streams.error, "");
    EXPECT_EQ(report.printed, "Error in opening file " + path + '\n');
    EXPECT_EQ(report.failure, systemFailure(path, EISDIR));
    EXPECT_EQ(report.result, 1);
}

TEST(WriteListing, FullDiskIsAFailureForCommandsAlone)
{
    Report report;
    CapturedStreams streams;
    EXPECT_TRUE(writeListing("/dev/full", {}, report));
    streams.finish();
    EXPECT_EQ(streams.output + streams.error + report.printed, "");
    EXPECT_EQ(report.failure, systemFailure("/dev/full", ENOSPC));
    EXPECT_EQ(report.result, 0);
}

TEST(ConvertListing, EveryTraceGetsTheValuesOfItsLine)
{
    const Converted converted = convert(heading
                                            + "1    2      0     0.00025     12.5      0      0\n"
                                              "2    3      2.5     0.5     1      -2      3\n",
                                        -7.25);
    EXPECT_TRUE(converted.result);
    EXPECT_EQ(converted.report.printed, "");
    EXPECT_EQ(converted.output, "TraceINDEX : 0\n0\n1\nTraceINDEX : 1\n10\n11\n12\n");
    EXPECT_EQ(converted.report.failure, std::nullopt);
    EXPECT_EQ(converted.report.remarks, std::vector<Remark>());
    const ParsedSeg2 seg2 = parseSeg2(converted.seg2);
    EXPECT_EQ(seg2.strings, (Strings{"TRACE_SORT AS_ACQUIRED", "UNITS METERS"}));
    ASSERT_EQ(seg2.traces.size(), 2U);
    EXPECT_EQ(seg2.traces[0].strings, strings("0", "12.5 0 0", "0.00025", "-7.25 0 0"));
    EXPECT_EQ(seg2.traces[0].formatCode, 4);
    EXPECT_EQ(seg2.traces[0].samples, (std::vector<double>{0.0, 1.0}));
    EXPECT_EQ(seg2.traces[1].strings, strings("2.5", "1 -2 3", "0.5", "-7.25 0 0"));
    EXPECT_EQ(seg2.traces[1].samples, (std::vector<double>{10.0, 11.0, 12.0}));
}

TEST(ConvertListing, NumbersAreRoundedToSixDigits)
{
    const Converted converted =
        convert(heading + "1 0 1234567 0.33333333 123456.7 -0 1e-07\n", 2.0 / 3.0);
    const ParsedSeg2 seg2 = parseSeg2(converted.seg2);
    ASSERT_EQ(seg2.traces.size(), 1U);
    EXPECT_EQ(seg2.traces[0].strings,
              strings("1.23457e+06", "123457 -0 1e-07", "0.333333", "0.666667 0 0"));
}

TEST(ConvertListing, WordsCountAndNotLines)
{
    const Converted converted =
        convert("TRACE_SORT AS_ACQUIRED UNITS\r\nMETERS X Y Z 1 2 0 0.5 3 4 "
                "5 2\t1\n0\v0.25\f6\r\n7 8");
    EXPECT_TRUE(converted.result);
    EXPECT_EQ(converted.output, "TraceINDEX : 0\n0\n1\nTraceINDEX : 1\n10\n");
    const ParsedSeg2 seg2 = parseSeg2(converted.seg2);
    ASSERT_EQ(seg2.traces.size(), 2U);
    EXPECT_EQ(seg2.traces[0].strings, strings("0", "3 4 5", "0.5"));
    EXPECT_EQ(seg2.traces[1].strings, strings("0", "6 7 8", "0.25"));
}

TEST(ConvertListing, TracesAreCountedWhateverTheirNumbersAre)
{
    const Converted converted = convert(heading + "-5 1 0 1 0 0 0\n7 1 0 1 0 0 0\n7 1 0 1 0 0 0\n");
    EXPECT_EQ(converted.output, "TraceINDEX : 0\n0\nTraceINDEX : 1\n10\nTraceINDEX : 2\n20\n");
    EXPECT_EQ(parseSeg2(converted.seg2).traces.size(), 3U);
}

TEST(ConvertListing, FirstTwoPairsAreFileStrings)
{
    const Converted converted = convert("UNITS FEET\nOPERATOR me\nNOTE no\nZ\n");
    EXPECT_TRUE(converted.result);
    EXPECT_EQ(converted.report.printed,
              "WARNING: Keyword OPERATOR is not a standard keyword for the file "
              "descriptor block.\n");
    EXPECT_EQ(parseSeg2(converted.seg2).strings, (Strings{"OPERATOR me", "UNITS FEET"}));
}

TEST(ConvertListing, HeadingEndsWithAWordThatIsExactlyZ)
{
    const Converted converted = convert("UNITS FEET TRACE_SORT Z ZZ z Z. 1 1 0 1 0 0 0 Z "
                                        "1 2 0 0.5 0 0 0");
    EXPECT_TRUE(converted.result);
    EXPECT_EQ(converted.output, "TraceINDEX : 0\n0\n1\n");
    const ParsedSeg2 seg2 = parseSeg2(converted.seg2);
    EXPECT_EQ(seg2.strings, (Strings{"TRACE_SORT Z", "UNITS FEET"}));
    EXPECT_EQ(seg2.traces.size(), 1U);
}

TEST(ConvertListing, WithoutTheWordZThereAreNoTraces)
{
    const Converted converted = convert("UNITS FEET TRACE_SORT X 1 1 0 1 0 0 0");
    EXPECT_TRUE(converted.result);
    EXPECT_EQ(converted.output, "");
    EXPECT_EQ(parseSeg2(converted.seg2).traces.size(), 0U);
}

TEST(ConvertListing, WithoutTracesOnlyTheFileStrings)
{
    const Converted converted = convert(heading);
    EXPECT_TRUE(converted.result);
    EXPECT_EQ(converted.report.printed, "");
    EXPECT_EQ(converted.report.failure,
              (Failure{{"line.su"}, "no trace can be read back from the listing"}));
    EXPECT_EQ(converted.seg2,
              bytes("55 3A 00 00 00 00 00 00 01 00 20 01 0A 20 '                  '"
                    "19 00 'TRACE_SORT AS_ACQUIRED' 00 0F 00 'UNITS METERS' 00 00 00 '  '"));
}

TEST(ConvertListing, LineWithoutSamplesIsATrace)
{
    const Converted converted = convert(heading + "1 0 0 0.5 1 0 0\n2 1 0 0.5 1 0 0\n");
    EXPECT_EQ(converted.output, "TraceINDEX : 0\nTraceINDEX : 1\n10\n");
    const ParsedSeg2 seg2 = parseSeg2(converted.seg2);
    ASSERT_EQ(seg2.traces.size(), 2U);
    EXPECT_EQ(seg2.traces[0].sampleCount, 0U);
}

TEST(ConvertListing, ValueThatIsNoNumberAndThoseBehindItAreZeroInTheLastTrace)
{
    const LineCase cases[] = {
        {"1 2 inf 0.5 1 2 3", 2, "0", "0", "0 0 0"},
        {"1 2 4 inf 1 2 3", 2, "4", "0", "0 0 0"},
        {"1 2 4 -inf 1 2 3", 2, "4", "0", "0 0 0"},
        {"1 2 4 nan 1 2 3", 2, "4", "0", "0 0 0"},
        {"1 2 4 0.5 nan 2 3", 2, "4", "0.5", "0 0 0"},
        {"1 2 4 0.5 1 -nan 3", 2, "4", "0.5", "1 0 0"},
        {"1 2 4 0.5 1 2 inf", 2, "4", "0.5", "1 2 0"},
        {"1 two 4 0.5 1 2 3", 0, "0", "0", "0 0 0"},
    };
    for (const LineCase &lineCase : cases)
        expectOneTrace(lineCase, "\n2 2 4 0.5 1 2 3\n");
}

TEST(ConvertListing, ValuesThatAListingCutShortLacksAreZero)
{
    const LineCase cases[] = {
        {"1 2 4 0.5 1 2", 2, "4", "0.5", "1 2 0"},
        {"1 2 4 0.5 1", 2, "4", "0.5", "1 0 0"},
        {"1 2 4 0.5", 2, "4", "0.5", "0 0 0"},
        {"1 2 4", 2, "4", "0", "0 0 0"},
        {"1 2", 2, "0", "0", "0 0 0"},
        {"1", 0, "0", "0", "0 0 0"},
    };
    for (const LineCase &lineCase : cases)
        expectOneTrace(lineCase, "");
}

TEST(ConvertListing, WordThatIsNoTraceNumberEndsTheTraces)
{
    const Converted converted = convert(heading + "1 1 0 1 0 0 0\nend 2 0 1 0 0 0\n");
    EXPECT_TRUE(converted.result);
    EXPECT_EQ(parseSeg2(converted.seg2).traces.size(), 1U);
}

TEST(ConvertListing, TraceWithFewerSamplesThanItsLineSaysIsAnException)
{
    const Converted converted = convert(heading + "1 8 0 1 0 0 0\n2 9 0 1 0 0 0\n3 1 0 1 0 0 0\n");
    EXPECT_FALSE(converted.result);
    EXPECT_EQ(converted.report.printed, "EXCEPTION!\n");
    EXPECT_EQ(converted.output, "TraceINDEX : 0\n0\n1\n2\n3\n4\n5\n6\n7\n"
                                "TraceINDEX : 1\n10\n11\n12\n13\n14\n15\n16\n17\n");
    EXPECT_EQ(converted.seg2, "");
    EXPECT_EQ(converted.report.failure,
              (Failure{{"line.su"}, "the listing says 9 samples for trace 2, which has 8"}));
}

TEST(ConvertListing, EveryExceptionOfTheSamplesEndsIt)
{
    RecordSamples samples = eightSamples;
    samples.read = [](std::size_t, std::uint32_t) -> std::vector<float> {
        throw std::out_of_range(invalidSubscript);
    };
    const Converted outOfRange = convert(heading + "1 8 0 1 0 0 0\n", 0.0, samples);
    EXPECT_FALSE(outOfRange.result);
    EXPECT_EQ(outOfRange.report.printed, "EXCEPTION!\n");
    EXPECT_EQ(outOfRange.seg2, "");
    ASSERT_NE(outOfRange.report.failure, std::nullopt);
    EXPECT_EQ(outOfRange.report.failure->text, invalidSubscript);
    samples.read = [](std::size_t, std::uint32_t) -> std::vector<float> { throw std::bad_alloc(); };
    const Converted noMemory = convert(heading + "1 8 0 1 0 0 0\n", 0.0, samples);
    EXPECT_FALSE(noMemory.result);
    EXPECT_EQ(noMemory.report.printed, "EXCEPTION!\n");
}

TEST(ConvertListing, WithoutASourceItIsAnExceptionAfterTheHeading)
{
    const Converted converted = convert("UNITS FEET A B Z 1 1 0 1 0 0 0", std::nullopt);
    EXPECT_FALSE(converted.result);
    EXPECT_EQ(converted.report.printed, "WARNING: Keyword A is not a standard keyword for the file "
                                        "descriptor block.\nEXCEPTION!\n");
    EXPECT_EQ(converted.output, "");
    EXPECT_EQ(converted.seg2, "");
    ASSERT_NE(converted.report.failure, std::nullopt);
    EXPECT_EQ(converted.report.failure->text, invalidSubscript);
}

TEST(ConvertListing, ReplacesAnOlderSeg2File)
{
    const TemporaryFolder folder;
    folder.write("line_tmp", heading);
    folder.write("line.seg2", std::string(10000, 'x'));
    Report report;
    EXPECT_TRUE(convertListing(folder.path("line_tmp"), folder.path("line.seg2"), 0.0, eightSamples,
                               nullptr, report));
    EXPECT_EQ(parseSeg2(readFile(folder.path("line.seg2"))).strings.size(), 2U);
}

TEST(ConvertListing, Seg2FileThatCannotBeCreatedIsAFailureForCommandsAlone)
{
    const TemporaryFolder folder;
    folder.write("line_tmp", heading + "1 1 0 1 0 0 0\n2 1 0 1 0 0 0\n");
    Report report;
    std::ostringstream progress;
    EXPECT_TRUE(convertListing(folder.path("line_tmp"), folder.path(""), 0.0, eightSamples,
                               &progress, report));
    EXPECT_EQ(report.printed, "");
    EXPECT_EQ(progress.str(), "TraceINDEX : 0\n0\nTraceINDEX : 1\n10\n");
    EXPECT_EQ(report.failure, systemFailure(folder.path(""), EISDIR));
}

TEST(ConvertListing, FullDiskIsAFailureForCommandsAlone)
{
    const TemporaryFolder folder;
    folder.write("line_tmp", heading + "1 1 0 1 0 0 0\n");
    Report report;
    EXPECT_TRUE(
        convertListing(folder.path("line_tmp"), "/dev/full", 0.0, eightSamples, nullptr, report));
    EXPECT_EQ(report.printed, "");
    EXPECT_EQ(report.failure, systemFailure("/dev/full", ENOSPC));
}

TEST(ConvertListing, MoreTracesThanASeg2FileCanPointToAreAFailureForCommandsAlone)
{
    std::string lines;
    for (int i = 0; i < 16383; ++i)
        lines += "1 0 0 1 0 0 0\n";
    const Converted most = convert(heading + lines);
    EXPECT_EQ(most.report.failure, std::nullopt);
    EXPECT_EQ(parseSeg2(most.seg2).traces.size(), 16383U);
    const Converted tooMany = convert(heading + lines + "1 0 0 1 0 0 0\n");
    EXPECT_TRUE(tooMany.result);
    EXPECT_EQ(tooMany.report.failure,
              (Failure{{"line.su"},
                       "16384 traces, and a SEG2 file can point to 16383: split the record"}));
    EXPECT_EQ(parseSeg2(tooMany.seg2).traces.size(), 16384U);
}

TEST(ConvertListing, SamplesAreReadOnlyToBePrintedAndToBeWritten)
{
    const TemporaryFolder folder;
    folder.write("line_tmp", heading + "1 2 0 0.5 3 0 0\n2 1 0 0.5 6 0 0\n");
    std::vector<std::size_t> tracesRead;
    RecordSamples samples = eightSamples;
    samples.read = [&tracesRead](std::size_t trace, std::uint32_t count) {
        tracesRead.push_back(trace);
        return eightSamples.read(trace, count);
    };
    Report report;
    EXPECT_TRUE(convertListing(folder.path("line_tmp"), folder.path("line.seg2"), 0.0, samples,
                               nullptr, report));
    EXPECT_EQ(tracesRead, (std::vector<std::size_t>{0, 1}));
    std::ostringstream progress;
    EXPECT_TRUE(convertListing(folder.path("line_tmp"), folder.path("line.seg2"), 0.0, samples,
                               &progress, report));
    EXPECT_EQ(tracesRead, (std::vector<std::size_t>{0, 1, 0, 1, 0, 1}));
}

TEST(ConvertListing, DamagedListingsNeverCrash)
{
    const std::string good = heading
                             + "1    8      0     0.00025     12.5      0      0\n"
                               "2    8      3     0.00025     17.5      0      0\n";
    std::vector<std::string> damaged;
    for (std::size_t size = 0; size < good.size(); ++size)
        damaged.push_back(good.substr(0, size));
    std::mt19937 random(20240607);
    for (int i = 0; i < 300; ++i) {
        damaged.push_back(good);
        for (int flips = 0; flips <= i % 3; ++flips)
            damaged.back()[random() % good.size()] = static_cast<char>(random() % 256);
    }
    int written = 0;
    for (const std::string &listing : damaged) {
        const Converted converted = convert(listing);
        if (!converted.result) {
            EXPECT_TRUE(converted.report.printed.ends_with("EXCEPTION!\n")) << listing;
            EXPECT_NE(converted.report.failure, std::nullopt) << listing;
            EXPECT_EQ(converted.seg2, "") << listing;
            continue;
        }
        ++written;
        EXPECT_NO_THROW(EXPECT_LE(parseSeg2(converted.seg2).traces.size(), 3U) << listing)
            << listing;
    }
    // A file is written for every one that was cut short.
    EXPECT_GT(written, static_cast<int>(good.size()));
}
