// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "seg2/su_conversion.h"
#include "seg2/su_file.h"

#include "tests/support/faults.h"
#include "tests/support/su_conversions.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <utility>

namespace {

std::vector<SuTrace> readTraces(const std::string &su)
{
    const TemporaryFolder folder;
    std::vector<SuTrace> traces;
    CapturedStreams streams;
    readSuFile(folder.write("line.su", su), traces);
    return traces;
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

TEST(IndexSuFile, PipeIsReadToItsEnd)
{
    const TemporaryFolder folder;
    const FedPipe pipe(folder.path("line.su"), twoTraces + "rest");
    std::size_t count = 0;
    std::vector<std::size_t> offsets;
    CapturedStreams streams;
    indexSuFile(folder.path("line.su"), count, offsets);
    streams.finish();
    EXPECT_EQ(count, 2U);
    EXPECT_EQ(offsets, (std::vector<std::size_t>{0, 252}));
}

TEST(ReadSuFile, MissingFile)
{
    const TemporaryFolder folder;
    const std::string path = folder.path("missing.su");
    std::vector<SuTrace> traces(3);
    CapturedStreams streams;
    readSuFile(path, traces);
    streams.finish();
    EXPECT_TRUE(traces.empty());
    EXPECT_EQ(streams.output, "opening su file " + path + '\n');
    EXPECT_EQ(streams.error, "Error while loading " + path + '\n');
}

TEST(ReadSuFile, Traces)
{
    const std::vector<SuTrace> traces =
        readTraces(filledTrace({0, 5, 10, 3, 250}, {1.5F, -2.0F, 99.0F})
                   + filledTrace({0, 6, 25, 3, 250}, {0.25F, 1e6F, 98.0F}));
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
    readSuFile(folder.write("other.su", filledTrace({0, 1, 2, 2, 1000}, {3.0F, 4.0F})), traces);
    ASSERT_EQ(traces.size(), 1U);
    EXPECT_EQ(traces[0].samples, (std::vector<double>{3.0, 0.0}));
    EXPECT_EQ(traces[0].sampleInterval, 0.001);
    readSuFile(folder.path("missing.su"), traces);
    EXPECT_TRUE(traces.empty());
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
        const std::vector<SuTrace> traces =
            readTraces(filledTrace({0, 1, 1, 1, 0}, {0.0F})
                       + filledTrace({scalar, coordinate, coordinate, 1, 0}, {0.0F}));
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
    const std::vector<SuTrace> traces =
        readTraces(filledTrace({0, 16777217, -123456789, 1, 0}, {0.0F})
                   + filledTrace({10, 16777219, 123456, 1, 0}, {0.0F}));
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
        const std::vector<SuTrace> traces = readTraces(filledTrace({0, 0, 0, 1, interval}, {0.0F}));
        ASSERT_EQ(traces.size(), 1U);
        EXPECT_DOUBLE_EQ(traces[0].sampleInterval, seconds);
    }
}
