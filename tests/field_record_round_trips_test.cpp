// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "field/seg2.h"
#include "field/seismic_unix.h"
#include "tests/support/faults.h"
#include "tests/support/field_records.h"
#include "tests/support/field_seg2.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <random>

namespace {

constexpr int recordCount = isAddressSanitized ? 100 : 1000;

/// A record of a few traces, whose fields and samples are any.
std::string anyRecord(std::mt19937 &random, ByteOrder byteOrder)
{
    const auto upTo = [&random](std::int32_t most) {
        return std::uniform_int_distribution<std::int32_t>(0, most)(random);
    };
    const std::int32_t scalars[] = {0, 1, -1, 10, 100, -10, -100, -1000, -10000, -3, 7};
    const std::int32_t scalar = scalars[upTo(10)];
    std::string record;
    for (std::int32_t trace = 0, count = 1 + upTo(5); trace < count; ++trace) {
        std::map<std::size_t, std::int32_t> fields = {
            {0, trace + 1},          {4, upTo(9)},           {8, upTo(99)},
            {12, trace + 1},         {20, upTo(1000)},       {28, 1 + upTo(1)},
            {30, 1 + upTo(9)},       {40, upTo(9000) - 100}, {44, upTo(9000)},
            {68, scalars[upTo(10)]}, {70, scalar},           {72, upTo(999999)},
            {76, -upTo(999)},        {80, upTo(999999)},     {84, upTo(5)},
            {88, upTo(1)},           {108, upTo(400) - 200}, {116, 1 + upTo(30000)},
            {156, 1970 + upTo(99)},  {158, 1 + upTo(364)},   {160, upTo(23)},
            {162, upTo(59)},         {164, upTo(59)},
        };
        for (const std::size_t offset :
             {184U, 188U, 192U, 196U, 200U, 204U, 212U, 236U}) // any bits
            fields[offset] = static_cast<std::int32_t>(random());
        std::vector<float> samples(static_cast<std::size_t>(2 + upTo(20)));
        for (float &sample : samples)
            sample = std::bit_cast<float>(static_cast<std::uint32_t>(random()));
        record += suTrace(byteOrder, fields, samples);
    }
    return record;
}

TEST(FieldRecordRoundTrips, SeismicUnixThroughSeg2IsTheSameBitForBit)
{
    std::mt19937 random(20260);
    for (int i = 0; i < 2 * recordCount; ++i) {
        const bool isBig = i % 2 != 0;
        const ByteOrder byteOrder = isBig ? ByteOrder::bigEndian : ByteOrder::littleEndian;
        const std::string record = anyRecord(random, byteOrder);
        const TemporaryFolder folder;
        const std::string seg2 = folder.path("seg2");
        const std::string back = folder.path("back");
        Report report;
        ASSERT_TRUE(
            convertRecord(readSeismicUnix, folder.write("su", record), toSeg2, seg2, {}, report))
            << failureOf(report);
        ASSERT_TRUE(convertRecord(readSeg2, seg2, isBig ? toBigSu : toLittleSu, back, {}, report))
            << failureOf(report);
        ASSERT_EQ(readFile(back), record) << "record " << i;
    }
}

TEST(FieldRecordRoundTrips, FloatsOfAHeaderThatAreNoNumbersKeepTheirBits)
{
    for (const std::int32_t bits : {-1, 0x7F800000, 0x7F800001, 0x7FC00000, -0x00400000}) {
        const std::string record =
            suTrace(ByteOrder::bigEndian, {{28, 1}, {188, bits}}, {1.0F, 2.0F});
        const std::string seg2 = convertBytes(readSeismicUnix, record, toSeg2).output;
        EXPECT_EQ(convertBytes(readSeg2, seg2, toBigSu).output, record) << bits;
    }
}

TEST(FieldRecordRoundTrips, SeismicUnixThroughTheOtherByteOrderIsTheSame)
{
    std::mt19937 random(7);
    for (int i = 0; i < recordCount; ++i) {
        const std::string little = anyRecord(random, ByteOrder::littleEndian);
        const std::string big = convertBytes(readSeismicUnix, little, toBigSu).output;
        ASSERT_EQ(big.size(), little.size());
        ASSERT_EQ(convertBytes(readSeismicUnix, big, toLittleSu).output, little) << "record " << i;
    }
}

/// A SEG2 record of a few traces of any format code, whose strings are any.
std::string anySeg2(std::mt19937 &random, ByteOrder byteOrder)
{
    const auto upTo = [&random](std::int32_t most) {
        return std::uniform_int_distribution<std::int32_t>(0, most)(random);
    };
    const auto decimal = [&](std::int32_t most) {
        return std::to_string(upTo(most) - most / 2) + '.' + std::to_string(upTo(999));
    };
    std::vector<Seg2TraceBytes> traces;
    for (std::int32_t i = 0, count = 1 + upTo(4); i < count; ++i) {
        Seg2TraceBytes trace;
        trace.formatCode = static_cast<std::uint8_t>(1 + upTo(4));
        trace.sampleCount = static_cast<std::uint32_t>(4 * upTo(3) + 4);
        const std::size_t sizes[] = {2, 4, 0, 4, 8};
        const std::size_t size = trace.formatCode == 3
                                     ? trace.sampleCount / 4 * 10
                                     : trace.sampleCount * sizes[trace.formatCode - 1];
        while (trace.data.size() < size)
            trace.data += static_cast<char>(upTo(255));
        trace.strings = {"SAMPLE_INTERVAL 0.000" + std::to_string(1 + upTo(998)),
                         "DELAY " + decimal(2),
                         "STACK " + std::to_string(1 + upTo(9)),
                         "DESCALING_FACTOR " + decimal(90),
                         "SOURCE_LOCATION " + decimal(999) + ' ' + decimal(9) + ' ' + decimal(500),
                         "RECEIVER_LOCATION " + decimal(999),
                         "SHOT_SEQUENCE_NUMBER " + std::to_string(upTo(9999)),
                         "CHANNEL_NUMBER " + std::to_string(i + 1),
                         "ACQUISITION_DATE " + std::to_string(1 + upTo(27)) + "/Feb/"
                             + std::to_string(upTo(99)),
                         "LINE_ID " + std::to_string(upTo(9))};
        std::shuffle(trace.strings.begin(), trace.strings.end(), random);
        traces.push_back(trace);
    }
    return seg2File({.byteOrder = byteOrder, .pointersSize = static_cast<std::uint16_t>(upTo(90))},
                    {"ACQUISITION_TIME 13:58:30", "CLIENT Someone"}, traces);
}

/// What a trace says, samples as bits.
std::string described(const RecordTrace &trace)
{
    std::string text = std::visit(
        [](const auto &values) {
            const auto *const bytes = reinterpret_cast<const char *>(values.data());
            return std::string(bytes, bytes + values.size() * sizeof values[0]);
        },
        trace.samples);
    text += std::to_string(trace.samples.index());
    for (const double number :
         {trace.sampleInterval, trace.delay, trace.descalingFactor, trace.source.value()[0],
          trace.source.value()[1], trace.source.value()[2], trace.receiver.value()[0]})
        text += ' ' + std::to_string(std::bit_cast<std::uint64_t>(number + 0.0));
    for (const std::int32_t number :
         {trace.shotNumber.value(), trace.channelNumber.value(), trace.stackCount})
        text += ' ' + std::to_string(number);
    text += trace.date + ' ' + trace.time;
    for (const auto &[key, value] : trace.strings)
        text += '\n' + key + ' ' + value;
    return text;
}

TEST(FieldRecordRoundTrips, Seg2OfEveryKindThroughSeg2IsTheSame)
{
    std::mt19937 random(55);
    for (int i = 0; i < recordCount; ++i) {
        const ByteOrder byteOrder = i % 2 == 0 ? ByteOrder::littleEndian : ByteOrder::bigEndian;
        const std::string record = anySeg2(random, byteOrder);
        const RecordReading reading = readRecord(readSeg2, record);
        ASSERT_TRUE(reading.isRead) << failureOf(reading.report);
        const RecordConversion rewritten = convertBytes(readSeg2, record, toSeg2);
        ASSERT_TRUE(rewritten.isConverted) << failureOf(rewritten.report);
        const RecordReading back = readRecord(readSeg2, rewritten.output);
        ASSERT_EQ(back.traces.size(), reading.traces.size());
        for (std::size_t trace = 0; trace < back.traces.size(); ++trace)
            ASSERT_EQ(described(back.traces[trace]), described(reading.traces[trace])) << i;
        // Nothing is lost by way of it.
        const RecordConversion direct = convertBytes(readSeg2, record, toBigSu);
        const RecordConversion detour = convertBytes(readSeg2, rewritten.output, toBigSu);
        ASSERT_EQ(failureOf(detour.report), failureOf(direct.report));
        ASSERT_EQ(detour.output, direct.output) << i;
    }
}

} // namespace
