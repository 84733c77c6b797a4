// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "field/seg2.h"

#include "tests/support/field_records.h"
#include "tests/support/field_seg2.h"

#include <gtest/gtest.h>

namespace {

using Texts = std::vector<std::string>;
using Floats = std::vector<float>;
using Ints = std::vector<std::int32_t>;

/// What is read of a file with this trace alone.
RecordReading readTrace(const Seg2TraceBytes &trace, const Seg2Layout &layout = {},
                        const Texts &strings = {})
{
    return readRecord(readSeg2, seg2File(layout, strings, {trace}));
}

/// The same for a trace of a sample, with these strings.
RecordReading readStrings(const Texts &traceStrings, const Texts &fileStrings = {})
{
    return readTrace(floatTrace(traceStrings, {1.0F}), {}, fileStrings);
}

Samples samplesOf(std::uint8_t formatCode, std::uint32_t sampleCount, const std::string &data,
                  ByteOrder byteOrder)
{
    const RecordReading reading =
        readTrace({{}, formatCode, sampleCount, data}, {.byteOrder = byteOrder});
    EXPECT_TRUE(reading.isRead) << failureOf(reading.report);
    EXPECT_EQ(reading.traces.size(), 1U);
    return reading.traces.empty() ? Samples{} : reading.traces[0].samples;
}

} // namespace

TEST(FieldSeg2, SamplesOfEveryFormatCode)
{
    const std::vector<std::int16_t> shorts = {1, -2, 32767, -32768};
    const Ints ints = {1, -2, 2147483647, -2147483647 - 1};
    const Floats floats = {1.5F, -0.0F, 1e38F};
    const std::vector<double> doubles = {1.5, -2.0, 1e300};
    for (const ByteOrder order : bothOrders) {
        EXPECT_EQ(samplesOf(1, 4, sampleBytes(shorts, order), order), Samples(shorts));
        EXPECT_EQ(samplesOf(2, 4, sampleBytes(ints, order), order), Samples(ints));
        EXPECT_EQ(samplesOf(4, 3, sampleBytes(floats, order), order), Samples(floats));
        EXPECT_EQ(samplesOf(5, 3, sampleBytes(doubles, order), order), Samples(doubles));
    }
}

TEST(FieldSeg2, SamplesOf20BitsHaveAnExponentAndAMantissaInOnesComplement)
{
    // Exponents 0, 0, 3, 15 and mantissas 5, -5, 1000, -1; then exponents 1, 0 and mantissas 32767,
    // -0; two places are free.
    const std::vector<std::uint16_t> words = {0xF300, 0x0005, 0xFFFA, 0x03E8, 0xFFFE,
                                              0x0001, 0x7FFF, 0xFFFF, 0x0000, 0x0000};
    for (const ByteOrder order : bothOrders)
        EXPECT_EQ(samplesOf(3, 6, sampleBytes(words, order), order),
                  Samples(Ints{5, -5, 8000, -32768, 65534, 0}));
    // A group is there as a whole.
    const std::string data = sampleBytes(words, ByteOrder::littleEndian);
    EXPECT_EQ(failureOf(readTrace({{}, 3, 6, data.substr(0, 18)}).report),
              "trace 1: 6 samples take 20 bytes, but its data have 18");
}

TEST(FieldSeg2, EitherByteOrderAndRevision)
{
    for (const ByteOrder order : bothOrders) {
        for (const std::uint16_t revision : {std::uint16_t{0}, std::uint16_t{1}}) {
            const RecordReading reading =
                readTrace(floatTrace({"STACK 3"}, {1.5F, -2.0F}, order),
                          {.byteOrder = order, .revision = revision}, {"CLIENT Someone"});
            EXPECT_TRUE(reading.isRead) << failureOf(reading.report);
            EXPECT_EQ(reading.file.format, "seg2");
            EXPECT_EQ(reading.file.byteOrder, order);
            EXPECT_EQ(reading.file.knownBy, order == ByteOrder::bigEndian
                                                ? "its first bytes, 3A 55, big-endian"
                                                : "its first bytes, 55 3A, little-endian");
            EXPECT_EQ(reading.file.traceCount, 1U);
            EXPECT_EQ(reading.file.fractionRead, 1.0);
            EXPECT_EQ(reading.file.strings.at("CLIENT"), "Someone");
            ASSERT_EQ(reading.traces.size(), 1U);
            EXPECT_EQ(reading.traces[0].stackCount, 3);
            EXPECT_EQ(reading.traces[0].samples, Samples(Floats{1.5F, -2.0F}));
            EXPECT_TRUE(reading.report.remarks.empty());
        }
    }
}

TEST(FieldSeg2, IsKnownByItsFirstBytes)
{
    for (const ByteOrder order : bothOrders) {
        const std::string file = seg2File({.byteOrder = order}, {}, {floatTrace({}, {}, order)});
        EXPECT_EQ(recogniseSeg2(file.substr(0, 32), ""),
                  order == ByteOrder::bigEndian ? "its first bytes, 3A 55, big-endian"
                                                : "its first bytes, 55 3A, little-endian");
        EXPECT_EQ(recogniseSeg2(file.substr(0, 31), ""), "");
        EXPECT_EQ(recogniseSeg2('x' + file, ""), "");
    }
    EXPECT_EQ(recogniseSeg2(seg2File({.revision = 2}, {}, {{}}), ""), "");
}

TEST(FieldSeg2, RoomForMorePointersThanThereAreTraces)
{
    const RecordReading reading =
        readRecord(readSeg2, seg2File({.pointersSize = 4224}, {"CLIENT Someone"},
                                      {floatTrace({}, {1.0F}), floatTrace({}, {2.0F})}));
    EXPECT_TRUE(reading.isRead) << failureOf(reading.report);
    ASSERT_EQ(reading.traces.size(), 2U);
    EXPECT_EQ(reading.traces[1].samples, Samples(Floats{2.0F}));
    EXPECT_EQ(reading.file.strings.at("CLIENT"), "Someone");
}

TEST(FieldSeg2, StringsEndInUpToTwoBytes)
{
    const std::string zero(1, '\0');
    for (const std::string &end : {std::string(), zero, zero + zero, std::string("\n"),
                                   std::string("\r\n"), '\n' + zero, std::string("#")}) {
        const RecordReading reading =
            readTrace(floatTrace({"SAMPLE_INTERVAL 0.001", "LINE_ID A 7", "STACK 2"}, {1.0F}),
                      {.stringEnd = end}, {"CLIENT Someone else", "UNITS METERS"});
        EXPECT_TRUE(reading.isRead) << failureOf(reading.report);
        EXPECT_TRUE(reading.report.remarks.empty());
        EXPECT_EQ(reading.file.strings,
                  (std::map<std::string, std::string>{{"CLIENT", "Someone else"}}));
        ASSERT_EQ(reading.traces.size(), 1U);
        EXPECT_EQ(reading.traces[0].sampleInterval, 0.001);
        EXPECT_EQ(reading.traces[0].stackCount, 2);
        EXPECT_EQ(reading.traces[0].strings,
                  (std::map<std::string, std::string>{{"LINE_ID", "A 7"}}));
    }
}

TEST(FieldSeg2, LinesOfAStringEndAsTheFileSays)
{
    for (const std::string end : {"\n", "\r\n", "|"}) {
        const RecordReading reading =
            readTrace(floatTrace({}, {1.0F}), {.lineEnd = end}, {"NOTE first" + end + "second"});
        EXPECT_EQ(reading.file.strings.at("NOTE"), "first\nsecond");
    }
    // A keyword that comes again adds a line.
    EXPECT_EQ(readStrings({}, {"NOTE first", "NOTE second"}).file.strings.at("NOTE"),
              "first\nsecond");
}

TEST(FieldSeg2, StringsInAnyOrderFillTheTrace)
{
    Texts strings = {"CHANNEL_NUMBER 12",
                     "DELAY -0.010",
                     "DESCALING_FACTOR 4.270400E-005",
                     "RECEIVER_LOCATION 55.5 1 212.25",
                     "SAMPLE_INTERVAL 0.00025",
                     "SHOT_SEQUENCE_NUMBER 329",
                     "SOURCE_LOCATION  -2.5\t0 +211",
                     "STACK 5.00",
                     "TRACE_TYPE DEAD",
                     "LINE_ID 7"};
    for (int i = 0; i < 2; ++i) {
        const RecordReading reading = readStrings(strings);
        ASSERT_EQ(reading.traces.size(), 1U) << failureOf(reading.report);
        const RecordTrace &trace = reading.traces[0];
        EXPECT_EQ(trace.channelNumber, 12);
        EXPECT_EQ(trace.delay, -0.01);
        EXPECT_EQ(trace.descalingFactor, 4.2704e-5);
        EXPECT_EQ(trace.receiver, (Location{55.5, 1.0, 212.25}));
        EXPECT_EQ(trace.sampleInterval, 0.00025);
        EXPECT_EQ(trace.shotNumber, 329);
        EXPECT_EQ(trace.source, (Location{-2.5, 0.0, 211.0}));
        EXPECT_EQ(trace.stackCount, 5);
        EXPECT_TRUE(trace.isDead);
        EXPECT_FALSE(trace.hasAngles);
        EXPECT_EQ(trace.strings, (std::map<std::string, std::string>{{"LINE_ID", "7"}}));
        std::reverse(strings.begin(), strings.end());
    }
}

TEST(FieldSeg2, WhatNoStringSaysIsNotKnown)
{
    for (const Texts &strings : {Texts{}, {"DELAY", "SOURCE_LOCATION ", "STACK", "TRACE_TYPE X"}}) {
        const RecordReading reading = readStrings(strings);
        ASSERT_EQ(reading.traces.size(), 1U) << failureOf(reading.report);
        const RecordTrace &trace = reading.traces[0];
        EXPECT_EQ(trace.sampleInterval, 0.0);
        EXPECT_EQ(trace.delay, 0.0);
        EXPECT_EQ(trace.descalingFactor, 1.0);
        EXPECT_EQ(trace.stackCount, 1);
        EXPECT_EQ(trace.source, std::nullopt);
        EXPECT_EQ(trace.receiver, std::nullopt);
        EXPECT_EQ(trace.shotNumber, std::nullopt);
        EXPECT_EQ(trace.channelNumber, std::nullopt);
        EXPECT_FALSE(trace.isDead);
        EXPECT_EQ(trace.date + trace.time, "");
    }
}

TEST(FieldSeg2, LocationsOfOneToThreeNumbers)
{
    const std::pair<const char *, Location> cases[] = {
        {"12.5", {12.5, 0.0, 0.0}},
        {"12.5 3", {12.5, 3.0, 0.0}},
        {"12.5 3 -7", {12.5, 3.0, -7.0}},
    };
    for (const auto &[text, location] : cases)
        EXPECT_EQ(readStrings({std::string("SOURCE_LOCATION ") + text}).traces.at(0).source,
                  location)
            << text;
}

TEST(FieldSeg2, PositionsInOtherUnitsBecomeMetres)
{
    const struct
    {
        const char *units;
        double x; // of 1000 units
        const char *remark;
    } cases[] = {
        {"METERS", 1000.0, ""},
        {"Meters", 1000.0, ""},
        {"METRES", 1000.0, ""},
        {"FEET", 304.8, "UNITS is FEET: positions become metres"},
        {"feet", 304.8, "UNITS is feet: positions become metres"},
        {"INCHES", 25.4, "UNITS is INCHES: positions become metres"},
        {"CENTIMETERS", 10.0, "UNITS is CENTIMETERS: positions become metres"},
        {"NONE", 1000.0, "UNITS is \"NONE\": positions are taken as metres"},
    };
    for (const auto &[units, x, remark] : cases) {
        const RecordReading reading =
            readStrings({"SOURCE_LOCATION 1000"}, {std::string("UNITS ") + units});
        EXPECT_EQ(reading.traces.at(0).source, (Location{x, 0.0, 0.0})) << units;
        EXPECT_EQ(remarksOf(reading.report), *remark == '\0' ? Texts{} : Texts{remark});
    }
}

TEST(FieldSeg2, DatesAndTimesInManyForms)
{
    const std::pair<const char *, const char *> dates[] = {
        {"22/Mar/2022", "2022-03-22"}, {"7/MAR/2018", "2018-03-07"}, {"17/10/2021", "2021-10-17"},
        {"17/10/69", "2069-10-17"},    {"17/10/70", "1970-10-17"},   {"29/feb/2024", "2024-02-29"},
        {"1/January/99", "1999-01-01"}};
    for (const auto &[text, date] : dates)
        EXPECT_EQ(readStrings({}, {std::string("ACQUISITION_DATE ") + text}).traces.at(0).date,
                  date);
    const std::pair<const char *, const char *> times[] = {{"13:58:30", "13:58:30"},
                                                           {"9:05", "09:05:00"},
                                                           {"9:5:7", "09:05:07"},
                                                           {"23:59:60.25", "23:59:60.25"}};
    for (const auto &[text, time] : times)
        EXPECT_EQ(readStrings({}, {std::string("ACQUISITION_TIME ") + text}).traces.at(0).time,
                  time);
    // A trace's own count more than the file's.
    const RecordTrace trace = readStrings({"ACQUISITION_TIME 14:00:00", "ACQUISITION_DATE "},
                                          {"ACQUISITION_DATE 1/1/2020", "ACQUISITION_TIME 13:00"})
                                  .traces.at(0);
    EXPECT_EQ(trace.date, "");
    EXPECT_EQ(trace.time, "14:00:00");
}

TEST(FieldSeg2, DatesAndTimesThatAreNotUnderstoodStay)
{
    const std::string rest = " is not understood: day/month/year and hh:mm:ss are";
    for (const std::string date : {"2022-03-22", "2022/03/22", "30/Feb/2022", "1/13/2022", "x"}) {
        const std::string string = "ACQUISITION_DATE " + date;
        const RecordReading file = readStrings({}, {string});
        EXPECT_EQ(remarksOf(file.report), Texts{"ACQUISITION_DATE \"" + date + '"' + rest});
        EXPECT_EQ(file.file.strings.at("ACQUISITION_DATE"), date);
        EXPECT_EQ(file.traces.at(0).date, "");
        const RecordReading trace = readStrings({string});
        EXPECT_EQ(remarksOf(trace.report),
                  Texts{"trace 1: ACQUISITION_DATE \"" + date + '"' + rest});
        EXPECT_EQ(trace.traces.at(0).strings.at("ACQUISITION_DATE"), date);
    }
    for (const std::string time : {"24:00:00", "13", "13:58:61", "13:58.5", "1:2:3:4", "noon"})
        EXPECT_EQ(remarksOf(readStrings({}, {"ACQUISITION_TIME " + time}).report),
                  Texts{"ACQUISITION_TIME \"" + time + '"' + rest});
    // One remark for all traces.
    EXPECT_EQ(remarksOf(readRecord(readSeg2, seg2File({}, {},
                                                      {floatTrace({}, {1.0F}),
                                                       floatTrace({"ACQUISITION_TIME x"}, {1.0F}),
                                                       floatTrace({"ACQUISITION_TIME y"}, {1.0F})}))
                            .report),
              Texts{"trace 2 and 1 more: ACQUISITION_TIME \"x\"" + rest});
}
