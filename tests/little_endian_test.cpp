// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "seg2/little_endian.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <vector>

namespace {

std::string bytesOf(const std::vector<int> &values)
{
    return {values.begin(), values.end()};
}

template <typename Sample>
std::string appended(const std::vector<Sample> &samples)
{
    std::string bytes;
    appendLittleSamples(bytes, samples.data(), samples.size());
    return bytes;
}

} // namespace

TEST(LittleEndian, LeastSignificantByteOfSixteenBitsComesFirst)
{
    std::string bytes;
    appendLittle16(bytes, 0x3A55);
    appendLittle16(bytes, 0xFF00);
    EXPECT_EQ(bytes, bytesOf({0x55, 0x3A, 0x00, 0xFF}));
}

TEST(LittleEndian, LeastSignificantByteOfThirtyTwoBitsComesFirst)
{
    std::string bytes;
    appendLittle32(bytes, 0x89ABCDEF);
    appendLittle32(bytes, 1);
    EXPECT_EQ(bytes, bytesOf({0xEF, 0xCD, 0xAB, 0x89, 0x01, 0x00, 0x00, 0x00}));
}

TEST(LittleEndian, AppendingKeepsWhatStandsInFront)
{
    std::string bytes = "AB";
    appendLittle16(bytes, 0x4443);
    appendLittle32(bytes, 0x48474645);
    appendLittleSamples(bytes, std::array<std::uint8_t, 2>{'I', 'J'}.data(), 2);
    EXPECT_EQ(bytes, "ABCDEFGHIJ");
}

TEST(LittleEndian, NoSamplesAppendNothing)
{
    EXPECT_EQ(appended(std::vector<float>()), "");
}

TEST(LittleEndian, PackedBytesStayAsTheyAre)
{
    EXPECT_EQ(appended<std::uint8_t>({0x00, 0x7F, 0x80, 0xFF}), bytesOf({0x00, 0x7F, 0x80, 0xFF}));
}

TEST(LittleEndian, IntegersAreInTwosComplement)
{
    EXPECT_EQ(appended<std::int16_t>({1, -2, -32768}),
              bytesOf({0x01, 0x00, 0xFE, 0xFF, 0x00, 0x80}));
    EXPECT_EQ(appended<std::int32_t>({70000, -2}),
              bytesOf({0x70, 0x11, 0x01, 0x00, 0xFE, 0xFF, 0xFF, 0xFF}));
}

TEST(LittleEndian, FloatsAreInIeeeFormat)
{
    EXPECT_EQ(appended<float>({1.0F, -0.5F, -0.0F}),
              bytesOf({0x00, 0x00, 0x80, 0x3F, 0x00, 0x00, 0x00, 0xBF, 0x00, 0x00, 0x00, 0x80}));
    EXPECT_EQ(appended<float>({std::numeric_limits<float>::infinity()}),
              bytesOf({0x00, 0x00, 0x80, 0x7F}));
}

TEST(LittleEndian, DoublesAreInIeeeFormat)
{
    EXPECT_EQ(appended<double>({1.0, -2.5}),
              bytesOf({0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0xF0, 0x3F, //
                       0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x04, 0xC0}));
}
