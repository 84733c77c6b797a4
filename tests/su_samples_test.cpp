// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "seg2/su_conversion.h"

#include "tests/support/odd_files.h"
#include "tests/support/su_conversions.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <random>

TEST(SuSamples, LastSampleOfEveryTraceIsZero)
{
    const ParsedSeg2 seg2 = parseSeg2(convertedSu(twoTraces).seg2);
    ASSERT_EQ(seg2.traces.size(), 2U);
    EXPECT_EQ(seg2.traces[0].samples, (std::vector<double>{1.5, -2.0, 0.0}));
    EXPECT_EQ(seg2.traces[1].samples, (std::vector<double>{0.25, 1e6, 0.0}));
}

TEST(SuSamples, TraceOfOneSampleIsZero)
{
    const ConvertedSu converted = convertedSu(filledTrace({0, 0, 0, 1, 0}, {5.0F}));
    EXPECT_EQ(converted.output, "TraceINDEX : 0\n0\n");
    EXPECT_EQ(parseSeg2(converted.seg2).traces.at(0).data, bytes("00 00 00 00"));
}

TEST(SuSamples, OfTwoSamplesOneIsRead)
{
    const ConvertedSu converted = convertedSu(filledTrace({0, 0, 0, 2, 0}, {5.0F, 6.0F}));
    EXPECT_EQ(converted.output, "TraceINDEX : 0\n5\n0\n");
    EXPECT_EQ(parseSeg2(converted.seg2).traces.at(0).data, bytes("00 00 A0 40 00 00 00 00"));
}

TEST(SuSamples, WithoutSamplesEvery240BytesAreATrace)
{
    const ConvertedSu converted =
        convertedSu(filledTrace({0, 1, 2, 0, 500}, {}) + filledTrace({0, 1, 3, 0, 0}, {}) + "rest");
    EXPECT_EQ(converted.result, 0);
    EXPECT_EQ(converted.error, "");
    EXPECT_EQ(converted.output, "TraceINDEX : 0\nTraceINDEX : 1\n");
    EXPECT_EQ(converted.listing, listingHeading
                                     + "1    0      0     0.0005     2      0      0\n"
                                       "2    0      0     0.0005     3      0      0\n");
    const ParsedSeg2 seg2 = parseSeg2(converted.seg2);
    ASSERT_EQ(seg2.traces.size(), 2U);
    EXPECT_EQ(seg2.traces[0].sampleCount, 0U);
    EXPECT_EQ(seg2.traces[1].data, "");
}

TEST(SuSamples, LongestTrace)
{
    const std::vector<float> samples(65535, 1.0F);
    const ConvertedSu converted = convertedSu(filledTrace({0, 0, 0, 65535, 0}, samples));
    EXPECT_TRUE(converted.output == "TraceINDEX : 0\n" + repeated("1\n", 65534) + "0\n");
    EXPECT_EQ(converted.listing, listingHeading + "1    65535      0     0     0      0      0\n");
    const ParsedSeg2 seg2 = parseSeg2(converted.seg2);
    ASSERT_EQ(seg2.traces.size(), 1U);
    EXPECT_EQ(seg2.traces[0].sampleCount, 65535U);
    EXPECT_EQ(seg2.traces[0].samples[65533], 1.0);
    EXPECT_EQ(seg2.traces[0].samples[65534], 0.0);
}

TEST(SuSamples, FilesTooShortForATraceHaveNone)
{
    const std::string trace = filledTrace({0, 1, 2, 1, 500}, {1.0F});
    for (const std::size_t size : {0U, 10U, 70U, 115U, 116U, 117U, 239U, 240U, 241U, 243U})
        expectNoTraces(trace.substr(0, size));
}

TEST(SuSamples, ShortestFileWithATrace)
{
    const std::string trace = filledTrace({0, 1, 2, 0, 500}, {});
    expectNoTraces(trace.substr(0, 239));
    for (const std::size_t size : {240U, 241U}) {
        const ConvertedSu converted = convertedSu((trace + "x").substr(0, size));
        EXPECT_EQ(converted.error, "") << size;
        EXPECT_EQ(converted.listing,
                  listingHeading + "1    0      0     0.0005     2      0      0\n")
            << size;
    }
}

TEST(SuSamples, HeaderThatPromisesFarMoreThanTheFileHolds)
{
    expectNoTraces(filledTrace({0, 1, 2, 65535, 500}, {1.0F, 2.0F, 3.0F}));
}

TEST(SuSamples, BytesBehindTheLastWholeTraceAreIgnored)
{
    for (const std::size_t size : {1U, 3U, 240U, 251U}) {
        const ConvertedSu converted = convertedSu(twoTraces + twoTraces.substr(0, size));
        EXPECT_EQ(converted.result, 0) << size;
        EXPECT_EQ(converted.error, "") << size;
        EXPECT_EQ(converted.listing, twoTracesListing) << size;
        EXPECT_EQ(converted.seg2, twoTracesSeg2) << size;
    }
}

TEST(SuSamples, SamplesOfEveryKind)
{
    const ConvertedSu converted = convertedSu(filledTrace(
        {0, 0, 0, 12, 0},
        fromBits({0x7F800000, 0xFF800000, 0x7FC00000, 0xFFC00000, 0x80000000, 0x00000001,
                  0x7F7FFFFF, 0x3EAAAAAB, 0x4B800001, 0x7FC12345, 0x38D1B717, 0x3F800000})));
    EXPECT_EQ(converted.output, "TraceINDEX : 0\n"
                                "inf\n"
                                "-inf\n"
                                "nan\n"
                                "-nan\n"
                                "-0\n"
                                "1.4013e-45\n"
                                "3.40282e+38\n"
                                "0.333333\n"
                                "1.67772e+07\n"
                                "nan\n"
                                "0.0001\n"
                                "0\n");
    EXPECT_EQ(parseSeg2(converted.seg2).traces.at(0).data,
              bytes("00 00 80 7F 00 00 80 FF 00 00 C0 7F 00 00 C0 FF 00 00 00 80 01 00 00 00"
                    "FF FF 7F 7F AB AA AA 3E 01 00 80 4B 45 23 C1 7F 17 B7 D1 38 00 00 00 00"));
}

TEST(SuSamples, SignallingNansComeOutQuiet)
{
    const ConvertedSu converted =
        convertedSu(filledTrace({0, 0, 0, 3, 0}, fromBits({0x7F800001, 0xFFA00000, 0x3F800000})));
    EXPECT_EQ(converted.output, "TraceINDEX : 0\nnan\n-nan\n0\n");
    EXPECT_EQ(parseSeg2(converted.seg2).traces.at(0).data,
              bytes("01 00 C0 7F 00 00 E0 FF 00 00 00 00"));
}

TEST(SuSamples, DamagedFilesNeverCrash)
{
    std::string good;
    for (std::int32_t trace = 0; trace < 3; ++trace)
        good +=
            filledTrace({10, 3, trace, 8, 250}, {1.0F, 2.0F, 3.0F, 4.0F, 5.0F, 6.0F, 7.0F, 8.0F});
    std::vector<std::string> damaged;
    for (std::size_t size = 0; size < good.size(); size += 7)
        damaged.push_back(good.substr(0, size));
    std::mt19937 random(20240607);
    for (int i = 0; i < 300; ++i) {
        damaged.push_back(good);
        for (int flips = 0; flips <= i % 8; ++flips)
            damaged.back()[random() % good.size()] = static_cast<char>(random() % 256);
        // Half of them where the counts and the coordinates of the first trace stand.
        if (i % 2 == 0)
            damaged.back()[68 + random() % 50] = static_cast<char>(random() % 256);
    }
    const auto byte = [](const std::string &su, std::size_t at) {
        return static_cast<std::size_t>(static_cast<unsigned char>(su[at]));
    };
    for (std::size_t i = 0; i < damaged.size(); ++i) {
        const std::string &su = damaged[i];
        const std::size_t sampleCount = su.size() < 116 ? 0 : byte(su, 114) + 256 * byte(su, 115);
        const std::size_t traceCount = su.size() / (240 + 4 * sampleCount);
        const ConvertedSu converted = convertedSu(su);
        EXPECT_EQ(converted.result, 0) << i;
        EXPECT_EQ(converted.error, traceCount == 0 ? "EXCEPTION!\n" : "") << i;
        if (traceCount == 0) {
            EXPECT_EQ(converted.seg2, "") << i;
            continue;
        }
        ParsedSeg2 seg2;
        ASSERT_NO_THROW(seg2 = parseSeg2(converted.seg2)) << i;
        ASSERT_EQ(seg2.traces.size(), traceCount) << i;
        for (std::size_t trace = 0; trace < traceCount; ++trace) {
            std::string data = su.substr(trace * (240 + 4 * sampleCount) + 240, 4 * sampleCount);
            if (!data.empty())
                data.replace(data.size() - 4, 4, 4, '\0');
            // What may have become a signalling NaN.
            for (std::size_t at = 0; at < data.size(); at += 4) {
                const std::size_t exponent =
                    byte(data, at + 3) % 128 * 2 + byte(data, at + 2) / 128;
                if (exponent == 255
                    && (byte(data, at + 2) % 128 + byte(data, at + 1) + byte(data, at)) != 0)
                    data[at + 2] = static_cast<char>(data[at + 2] | 0x40);
            }
            EXPECT_EQ(seg2.traces[trace].data, data) << i;
        }
    }
}
