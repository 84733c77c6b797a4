// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "field/seg2.h"
#include "field/seismic_unix.h"
#include "tests/support/field_records.h"

#include <gtest/gtest.h>

#include <bit>
#include <random>

namespace {

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
    for (int i = 0; i < 2000; ++i) {
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
    for (int i = 0; i < 1000; ++i) {
        const std::string little = anyRecord(random, ByteOrder::littleEndian);
        const std::string big = convertBytes(readSeismicUnix, little, toBigSu).output;
        ASSERT_EQ(big.size(), little.size());
        ASSERT_EQ(convertBytes(readSeismicUnix, big, toLittleSu).output, little) << "record " << i;
    }
}

} // namespace
