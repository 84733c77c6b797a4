// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "seg2/seg2_file.h"

#include "tests/support/seg2_writing.h"
#include "tests/support/special_numbers.h"
#include "tests/support/support.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

/// What the standard error stream gets when `key` is set.
std::string warningOf(const std::string &key)
{
    Seg2File file;
    CapturedStreams streams;
    setFileString(file, key, "value");
    streams.finish();
    EXPECT_EQ(streams.output, "") << key;
    EXPECT_EQ(file.strings, (std::map<std::string, std::string>{{key, "value"}})) << key;
    return streams.error;
}

std::string stringOf(const Seg2TraceHeader &header, const std::string &key)
{
    return buildTrace(header, std::vector<float>(header.sampleCount)).strings.at(key);
}

} // namespace

TEST(Seg2Record, FileAtConstruction)
{
    const Seg2File file;
    EXPECT_EQ(file.blockId, 0x3A55);
    EXPECT_EQ(file.revision, 0);
    EXPECT_EQ(file.tracePointersSize, 0);
    EXPECT_EQ(file.traceCount, 0);
    EXPECT_EQ(file.stringTerminatorSize, 1);
    EXPECT_EQ(file.stringTerminator[0], 0x00);
    EXPECT_EQ(file.stringTerminator[1], 0x20);
    EXPECT_EQ(file.lineTerminatorSize, 1);
    EXPECT_EQ(file.lineTerminator[0], 0x0A);
    EXPECT_EQ(file.lineTerminator[1], 0x20);
    EXPECT_EQ(std::string(file.reserved.begin(), file.reserved.end()), std::string(18, ' '));
    EXPECT_TRUE(file.tracePointers.empty());
    EXPECT_TRUE(file.strings.empty());
    EXPECT_TRUE(file.traces.empty());
}

TEST(Seg2Record, TraceAtConstruction)
{
    const Seg2Trace trace;
    EXPECT_EQ(trace.blockId, 0x4422);
    EXPECT_EQ(trace.descriptorSize, 0);
    EXPECT_EQ(std::string(trace.reserved.begin(), trace.reserved.end()), std::string(19, ' '));
    EXPECT_TRUE(trace.strings.empty());
}

TEST(Seg2Record, CopiedTraceHasBuffersOfItsOwn)
{
    Seg2Trace trace = traceOfEveryFormat(4, 3);
    trace.strings["STACK"] = "1";
    const Seg2Trace copy = trace;
    trace.int16Samples[0] = 7;
    trace.int32Samples[0] = 7;
    trace.packedSamples[0] = 7;
    trace.floatSamples[0] = 7.0F;
    trace.doubleSamples[0] = 7.0;
    trace.strings["STACK"] = "7";
    EXPECT_EQ(copy.int16Samples, (std::vector<std::int16_t>{1, -2, 32767}));
    EXPECT_EQ(copy.int32Samples, (std::vector<std::int32_t>{1, -2, 2147483647}));
    EXPECT_EQ(copy.packedSamples, (std::vector<std::uint8_t>{0x12, 0x34, 0x56, 0x78, 0x9A, 0xBC}));
    EXPECT_EQ(copy.floatSamples, (std::vector<float>{1.5F, -0.0F, 3.0F}));
    EXPECT_EQ(copy.doubleSamples, (std::vector<double>{1.5, -2.0, 4.0}));
    EXPECT_EQ(copy.strings.at("STACK"), "1");
}

TEST(Seg2Record, MovedTraceLeavesNoSamplesBehind)
{
    Seg2Trace trace = traceOfEveryFormat(4, 3);
    const float *samples = trace.floatSamples.data();
    const Seg2Trace moved = std::move(trace);
    EXPECT_EQ(moved.floatSamples.data(), samples);
    EXPECT_TRUE(trace.int16Samples.empty()); // NOLINT(bugprone-use-after-move)
    EXPECT_TRUE(trace.int32Samples.empty());
    EXPECT_TRUE(trace.packedSamples.empty());
    EXPECT_TRUE(trace.floatSamples.empty());
    EXPECT_TRUE(trace.doubleSamples.empty());
}

TEST(SetFileString, EveryStandardKeywordPassesWithoutAWarning)
{
    for (const char *key : {"ACQUISITION_DATE", "ACQUISITION_TIME", "CLIENT", "COMPANY",
                            "GENERAL_CONSTANT", "INSTRUMENT", "JOB_ID", "OBSERVER",
                            "PROCESSING_DATE", "PROCESSING_TIME", "TRACE_SORT", "UNITS", "NOTE"})
        EXPECT_EQ(warningOf(key), "") << key;
}

TEST(SetFileString, KeyThatBeginsWithAStandardKeywordPassesWithoutAWarning)
{
    for (const char *key : {"UNITSX", "NOTES", "CLIENT 2", "ACQUISITION_DATES", "JOB_ID_"})
        EXPECT_EQ(warningOf(key), "") << key;
}

TEST(SetFileString, OtherKeysAreStoredWithAWarning)
{
    EXPECT_EQ(warningOf("UNIT"),
              "WARNING: Keyword UNIT is not a standard keyword for the file descriptor block.\n");
    EXPECT_EQ(warningOf("units"),
              "WARNING: Keyword units is not a standard keyword for the file descriptor block.\n");
    EXPECT_EQ(warningOf("XUNITS"),
              "WARNING: Keyword XUNITS is not a standard keyword for the file descriptor block.\n");
    EXPECT_EQ(warningOf("ACQUISITION"), "WARNING: Keyword ACQUISITION is not a standard keyword "
                                        "for the file descriptor block.\n");
    EXPECT_EQ(warningOf("DELAY"),
              "WARNING: Keyword DELAY is not a standard keyword for the file descriptor block.\n");
}

TEST(SetFileString, EmptyKeyIsStoredWithAWarning)
{
    EXPECT_EQ(warningOf(""),
              "WARNING: Keyword  is not a standard keyword for the file descriptor block.\n");
}

TEST(SetFileString, WarningOfTheFormWithAReportIsPrintedThere)
{
    Seg2File file;
    Report report;
    CapturedStreams streams;
    setFileString(file, "DELAY", "1", report);
    setFileString(file, "UNITS", "FEET", report);
    streams.finish();
    EXPECT_EQ(streams.output + streams.error, "");
    EXPECT_EQ(report.printed,
              "WARNING: Keyword DELAY is not a standard keyword for the file descriptor block.\n");
    EXPECT_EQ(report.failure, std::nullopt);
    EXPECT_EQ(file.strings,
              (std::map<std::string, std::string>{{"DELAY", "1"}, {"UNITS", "FEET"}}));
}

TEST(SetFileString, SameKeyTwiceKeepsTheLastValueInOneEntry)
{
    Seg2File file;
    setFileString(file, "UNITS", "METERS");
    setFileString(file, "UNITS", "FEET");
    EXPECT_EQ(written(file), emptyStart + bytes("0D 00 'UNITS FEET' 00 00 00 ' '"));
}

TEST(BuildTrace, RecordOfATrace)
{
    Seg2TraceHeader header;
    header.formatCode = 1;
    header.sampleCount = 3;
    const Seg2Trace trace = buildTrace(header, {1.5F, -2.0F, 0.25F});
    EXPECT_EQ(trace.blockId, 0x4422);
    EXPECT_EQ(trace.descriptorSize, 0);
    EXPECT_EQ(trace.dataSize, 12U);
    EXPECT_EQ(trace.sampleCount, 3U);
    EXPECT_EQ(trace.formatCode, 4);
    EXPECT_EQ(std::string(trace.reserved.begin(), trace.reserved.end()), std::string(19, ' '));
    EXPECT_EQ(trace.floatSamples, (std::vector<float>{1.5F, -2.0F, 0.25F}));
    EXPECT_TRUE(trace.int16Samples.empty());
    EXPECT_TRUE(trace.int32Samples.empty());
    EXPECT_TRUE(trace.packedSamples.empty());
    EXPECT_TRUE(trace.doubleSamples.empty());
}

TEST(BuildTrace, SixStrings)
{
    Seg2TraceHeader header;
    header.sampleInterval = 0.00025;
    header.stackCount = 4294967295;
    header.delay = -12.5;
    header.descalingFactor = 1e-05;
    header.receiverX = 1.0;
    header.receiverY = 2.0;
    header.receiverZ = 3.25;
    header.sourceX = 4.0;
    header.sourceY = 5.0;
    header.sourceZ = 6.125;
    CapturedStreams streams;
    const Seg2Trace trace = buildTrace(header, {});
    streams.finish();
    EXPECT_EQ(trace.strings, (std::map<std::string, std::string>{{"DELAY", "-12.5"},
                                                                 {"DESCALING_FACTOR", "1e-05"},
                                                                 {"RECEIVER_LOCATION", "1 2 3.25"},
                                                                 {"SAMPLE_INTERVAL", "0.00025"},
                                                                 {"SOURCE_LOCATION", "4 5 6.125"},
                                                                 {"STACK", "4294967295"}}));
    EXPECT_EQ(streams.error, "");
}

TEST(BuildTrace, NumbersHaveSixSignificantDigits)
{
    const double infinite = std::numeric_limits<double>::infinity();
    const std::pair<double, const char *> cases[] = {
        {0.0, "0"},
        {-0.0, "-0"},
        {1.0, "1"},
        {12.5, "12.5"},
        {1.0 / 3.0, "0.333333"},
        {2.0 / 3.0, "0.666667"},
        {0.0001, "0.0001"},
        {0.00001, "1e-05"},
        {0.00012345678, "0.000123457"},
        {123456.0, "123456"},
        {123457.5, "123458"},
        {999999.4, "999999"},
        {999999.5, "1e+06"},
        {1000000.0, "1e+06"},
        {-1234567.0, "-1.23457e+06"},
        {1e100, "1e+100"},
        {infinite, "inf"},
        {-infinite, "-inf"},
        {std::copysign(notANumber, 1.0), "nan"},
        {std::copysign(notANumber, -1.0), "-nan"},
    };
    for (const auto &[value, text] : cases) {
        Seg2TraceHeader header;
        header.sampleInterval = header.delay = header.descalingFactor = value;
        header.receiverX = header.receiverY = header.receiverZ = value;
        header.sourceX = header.sourceY = header.sourceZ = value;
        const std::string three = std::string(text) + ' ' + text + ' ' + text;
        EXPECT_EQ(stringOf(header, "DELAY"), text);
        EXPECT_EQ(stringOf(header, "DESCALING_FACTOR"), text);
        EXPECT_EQ(stringOf(header, "SAMPLE_INTERVAL"), text);
        EXPECT_EQ(stringOf(header, "RECEIVER_LOCATION"), three);
        EXPECT_EQ(stringOf(header, "SOURCE_LOCATION"), three);
    }
}

TEST(AddTrace, KeepsTracesPointersAndCountTogether)
{
    Seg2File file;
    Seg2TraceHeader header;
    header.sampleCount = 2;
    header.delay = 1.0;
    addTrace(file, header, {1.0F, 2.0F});
    header.delay = 2.0;
    addTrace(file, header, {3.0F, 4.0F});
    EXPECT_EQ(file.traceCount, 2);
    EXPECT_EQ(file.tracePointers, (std::vector<std::uint32_t>{0, 0}));
    ASSERT_EQ(file.traces.size(), 2U);
    EXPECT_EQ(file.traces[0].strings.at("DELAY"), "1");
    EXPECT_EQ(file.traces[1].strings.at("DELAY"), "2");
    EXPECT_EQ(file.traces[1].floatSamples, (std::vector<float>{3.0F, 4.0F}));
}
