// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "field/seismic_unix.h"

#include "tests/support/field_records.h"

#include <gtest/gtest.h>

namespace {

using Floats = std::vector<float>;

/// Two traces of three samples, 500 microseconds.
std::string twoTraces(ByteOrder byteOrder)
{
    return suTrace(byteOrder, {{8, 7}, {12, 1}, {28, 1}, {116, 500}}, {1.5F, -2.0F, 3.0F})
           + suTrace(byteOrder, {{8, 7}, {12, 2}, {28, 1}, {116, 500}}, {4.0F, 5.0F, -6.25F});
}

std::string recognise(const std::string &bytes)
{
    const TemporaryFolder folder;
    return recogniseSeismicUnix(bytes, folder.write("record", bytes));
}

TEST(FieldSeismicUnix, IsReadInEitherByteOrder)
{
    for (const ByteOrder byteOrder : bothOrders) {
        const RecordReading reading = readRecord(readSeismicUnix, twoTraces(byteOrder));
        EXPECT_TRUE(reading.isRead) << failureOf(reading.report);
        EXPECT_EQ(reading.file.byteOrder, byteOrder);
        EXPECT_EQ(reading.file.traceCount, 2U);
        EXPECT_EQ(reading.file.fractionRead, 1.0);
        ASSERT_EQ(reading.traces.size(), 2U);
        EXPECT_EQ(std::get<Floats>(reading.traces[0].samples), (Floats{1.5F, -2.0F, 3.0F}));
        EXPECT_EQ(std::get<Floats>(reading.traces[1].samples), (Floats{4.0F, 5.0F, -6.25F}));
        EXPECT_EQ(reading.traces[1].sampleInterval, 0.0005);
        EXPECT_EQ(reading.traces[1].shotNumber, 7);
        EXPECT_EQ(reading.traces[1].channelNumber, 2);
        EXPECT_TRUE(reading.report.remarks.empty());
    }
}

TEST(FieldSeismicUnix, IsKnownByHeadersThatRepeatOrByItsSize)
{
    EXPECT_EQ(recognise(twoTraces(ByteOrder::littleEndian)),
              "the header that repeats at byte 252, little-endian");
    EXPECT_EQ(recognise(twoTraces(ByteOrder::bigEndian)),
              "the header that repeats at byte 252, big-endian");
    // The end is damaged: the header that repeats counts more than the size.
    EXPECT_EQ(recognise(twoTraces(ByteOrder::bigEndian) + "rest"),
              "the header that repeats at byte 252, big-endian");
    const std::string one = suTrace(ByteOrder::bigEndian, {{116, 250}}, {1.0F, 2.0F});
    EXPECT_EQ(recognise(one), "its size, that of 1 trace, big-endian");
    const std::string another = suTrace(ByteOrder::bigEndian, {{116, 250}}, {1.0F});
    EXPECT_EQ(recognise(one + another), "its size, that of 2 traces, big-endian");
    // 257 samples are the same number in both orders, and so is 0 as an interval.
    for (const ByteOrder byteOrder : bothOrders)
        EXPECT_EQ(recognise(suTrace(byteOrder, {{0, 1}, {28, 1}}, Floats(257, 1.0F))),
                  byteOrder == ByteOrder::bigEndian ? "its size, that of 1 trace, big-endian"
                                                    : "its size, that of 1 trace, little-endian");
}

TEST(FieldSeismicUnix, OtherFilesAreNot)
{
    EXPECT_EQ(recognise(""), "");
    EXPECT_EQ(recognise(std::string(1000, '0')), "");
    EXPECT_EQ(recognise(std::string(1000, '\0')), "");
    EXPECT_EQ(recognise(suTrace(ByteOrder::bigEndian, {}, {1.0F}) + "rest"), "");
}

TEST(FieldSeismicUnix, FieldsAreScaledAsTheHeaderSays)
{
    const std::map<std::size_t, std::int32_t> fields = {
        {30, 4},   {40, 2125}, {44, -30}, {68, -10}, {70, -100}, {72, 1050},
        {76, -5},  {80, 205},  {84, 7},   {88, 1},   {108, -10}, {116, 250},
        {156, 22}, {158, 81},  {160, 13}, {162, 58}, {164, 30},  {28, 2},
    };
    for (const ByteOrder byteOrder : bothOrders) {
        const RecordReading reading =
            readRecord(readSeismicUnix, suTrace(byteOrder, fields, {1.0F, 2.0F}));
        ASSERT_EQ(reading.traces.size(), 1U);
        const RecordTrace &trace = reading.traces[0];
        EXPECT_EQ(trace.source, (Location{10.5, -0.05, -3.0}));
        EXPECT_EQ(trace.receiver, (Location{2.05, 0.07, 212.5}));
        EXPECT_EQ(trace.delay, -0.01);
        EXPECT_EQ(trace.date, "2022-03-22");
        EXPECT_EQ(trace.time, "13:58:30");
        EXPECT_EQ(trace.stackCount, 4);
        EXPECT_TRUE(trace.isDead);
        EXPECT_FALSE(trace.hasAngles);
    }
}

TEST(FieldSeismicUnix, ScalarsMultiplyDivideOrAre1)
{
    const struct
    {
        std::int32_t scalar;
        double x;
    } cases[] = {{0, 12.0},  {1, 12.0}, {10, 120.0},           {-1, 12.0},
                 {-10, 1.2}, {-8, 1.5}, {-32768, 12.0 / 32768}};
    for (const auto &[scalar, x] : cases) {
        const RecordReading reading = readRecord(
            readSeismicUnix, suTrace(ByteOrder::bigEndian, {{70, scalar}, {72, 12}}, {1.0F}));
        ASSERT_EQ(reading.traces.size(), 1U);
        EXPECT_EQ(reading.traces[0].source, (Location{x, 0.0, 0.0})) << scalar;
    }
}

TEST(FieldSeismicUnix, EachTraceHasItsOwnNumberOfSamples)
{
    const RecordReading reading = readRecord(
        readSeismicUnix, suTrace(ByteOrder::bigEndian, {{116, 250}}, {1.0F, 2.0F})
                             + suTrace(ByteOrder::bigEndian, {{116, 500}}, {3.0F})
                             + suTrace(ByteOrder::bigEndian, {{116, 250}}, {4.0F, 5.0F}));
    ASSERT_EQ(reading.traces.size(), 3U) << failureOf(reading.report);
    EXPECT_EQ(std::get<Floats>(reading.traces[1].samples), (Floats{3.0F}));
    EXPECT_EQ(reading.traces[1].sampleInterval, 0.0005);
    EXPECT_EQ(std::get<Floats>(reading.traces[2].samples), (Floats{4.0F, 5.0F}));
}

TEST(FieldSeismicUnix, ADamagedEndIsAFailureAfterTheTracesBeforeIt)
{
    const std::string record = twoTraces(ByteOrder::bigEndian);
    const struct
    {
        std::string bytes;
        std::size_t traces;
        const char *failure;
    } cases[] = {
        {record + record.substr(0, 251), 2,
         "the file ends within trace 3: only the 2 whole traces before it can be read"},
        {record + "x", 2,
         "the file ends within trace 3: only the 2 whole traces before it can be read"},
        {record.substr(0, 503), 1,
         "the file ends within trace 2: only the 1 whole trace before it can be read"},
        {record.substr(0, 251), 0, "the file ends within trace 1: no whole trace can be read"},
        {record + std::string(240, '\0'), 2,
         "the header of trace 3 says that it has no samples: only the 2 whole traces before it can "
         "be read"},
    };
    for (const auto &[bytes, traces, failure] : cases) {
        const RecordReading reading = readRecord(readSeismicUnix, bytes);
        EXPECT_FALSE(reading.isRead);
        EXPECT_EQ(reading.traces.size(), traces);
        EXPECT_EQ(failureOf(reading.report), failure);
    }
}

TEST(FieldSeismicUnix, OtherFilesAreRefused)
{
    std::string segy(3600, 'C');
    segy.replace(3224, 2, std::string("\0\5", 2));
    const struct
    {
        std::string bytes;
        const char *failure;
    } cases[] = {
        {"", "the file is empty"},
        {"short", "the file ends within its first header: 5 of 240 bytes"},
        {std::string(300, '\0'),
         "this is no Seismic Unix: the first header says that there are no samples"},
        {segy, "this is SEG-Y, not Seismic Unix"},
        {std::string("\x55\x3A\1\0\x60\0\x18\0", 8) + std::string(300, '\0'),
         "this is SEG2, not Seismic Unix"},
    };
    for (const auto &[bytes, failure] : cases)
        EXPECT_EQ(failureOf(readRecord(readSeismicUnix, bytes).report), failure);
}

TEST(FieldSeismicUnix, ASwappedRecordIsTheSameRecord)
{
    const std::string little = twoTraces(ByteOrder::littleEndian);
    const std::string big = twoTraces(ByteOrder::bigEndian);
    EXPECT_EQ(convertBytes(readSeismicUnix, little, toBigSu).output, big);
    EXPECT_EQ(convertBytes(readSeismicUnix, big, toLittleSu).output, little);
    EXPECT_EQ(convertBytes(readSeismicUnix, big, toBigSu).output, big);
}

} // namespace
