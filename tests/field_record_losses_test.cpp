// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "field/seg2.h"
#include "field/seismic_unix.h"
#include "tests/support/field_records.h"
#include "tests/support/field_seg2.h"

#include <gtest/gtest.h>

// What records lose on their way, and what has no room in Seismic Unix.

namespace {

using Texts = std::vector<std::string>;
using Floats = std::vector<float>;

constexpr RecordTarget inMillivolts = {RecordFormat::seismicUnix, ByteOrder::bigEndian, true};

/// A trace that there is nothing to say of.
Seg2TraceBytes plainTrace(const Texts &moreStrings = {})
{
    Seg2TraceBytes trace = floatTrace({"SAMPLE_INTERVAL 0.001"}, {1.0F, 2.0F});
    trace.strings.insert(trace.strings.end(), moreStrings.begin(), moreStrings.end());
    return trace;
}

RecordConversion toSu(const std::vector<Seg2TraceBytes> &traces, const Texts &fileStrings = {},
                      const RecordTarget &target = toBigSu)
{
    return convertBytes(readSeg2, seg2File({}, fileStrings, traces), target);
}

/// What is remarked on when two traces, the second with these strings, become Seismic Unix.
Texts remarksOn(const Texts &strings)
{
    const RecordConversion conversion = toSu({plainTrace(), plainTrace(strings)});
    EXPECT_TRUE(conversion.isConverted) << failureOf(conversion.report);
    return remarksOf(conversion.report);
}

std::string refusalOf(const Seg2TraceBytes &trace)
{
    const RecordConversion conversion = toSu({plainTrace(), trace});
    EXPECT_FALSE(conversion.isConverted);
    return failureOf(conversion.report);
}

/// The number at `offset` of a big-endian output.
std::int64_t numberOf(const std::string &output, std::size_t offset, std::size_t size)
{
    std::uint64_t number = 0;
    for (std::size_t i = 0; i < size; ++i)
        number = number << 8 | static_cast<unsigned char>(output.at(offset + i));
    const std::uint64_t half = std::uint64_t{1} << (8 * size - 1);
    return static_cast<std::int64_t>(number)
           - (number < half ? 0 : static_cast<std::int64_t>(2 * half));
}

/// The samples of a big-endian output of one trace.
Floats samplesOf(const std::string &output)
{
    Floats samples;
    for (std::size_t at = 240; at < output.size(); at += 4)
        samples.push_back(
            std::bit_cast<float>(static_cast<std::uint32_t>(numberOf(output, at, 4))));
    return samples;
}

} // namespace

TEST(FieldRecordLosses, NothingIsSaidOfWhatLosesNothing)
{
    EXPECT_EQ(remarksOn({"DELAY -0.010", "SOURCE_LOCATION 1234567.89 5 0.25", "STACK 32767",
                         "ACQUISITION_DATE 22/Mar/2022", "ACQUISITION_TIME 13:58:30",
                         "CHANNEL_NUMBER 12", "SHOT_SEQUENCE_NUMBER 329"}),
              Texts{});
    EXPECT_EQ(remarksOf(toSu({plainTrace()}, {"UNITS METERS", "TRACE_SORT AS_ACQUIRED"}).report),
              Texts{});
}

TEST(FieldRecordLosses, FieldsOfTheHeader)
{
    const RecordConversion conversion =
        toSu({plainTrace({"DELAY -0.010", "RECEIVER_LOCATION 55.25 -1 212", "STACK 5",
                          "SOURCE_LOCATION -2.5 0 211.5", "ACQUISITION_DATE 22/Mar/2022",
                          "ACQUISITION_TIME 13:58:30", "CHANNEL_NUMBER 12", "TRACE_TYPE DEAD",
                          "SHOT_SEQUENCE_NUMBER 329"})});
    const std::string expected =
        suTrace(ByteOrder::bigEndian,
                {{0, 1},     {4, 1},     {8, 329},   {12, 12},   {28, 2},     {30, 5},
                 {36, 58},   {40, 2120}, {44, 2115}, {68, -10},  {70, -100},  {72, -250},
                 {80, 5525}, {84, -100}, {88, 1},    {108, -10}, {116, 1000}, {156, 2022},
                 {158, 81},  {160, 13},  {162, 58},  {164, 30}},
                {1.0F, 2.0F});
    EXPECT_EQ(conversion.output, expected);
}

TEST(FieldRecordLosses, WhatIsRounded)
{
    EXPECT_EQ(remarksOn({"DELAY 0.0126"}), Texts{"trace 2: a delay of 0.0126 s becomes 13 ms"});
    EXPECT_EQ(remarksOn({"DELAY -0.0004"}), Texts{"trace 2: a delay of -4e-04 s becomes 0 ms"});
    EXPECT_EQ(remarksOn({"SOURCE_LOCATION 0.12346"}),
              Texts{"trace 2: a position of 0.12346 becomes 0.1235"});
    EXPECT_EQ(remarksOn({"RECEIVER_LOCATION 1 2 1000000.1234"}),
              Texts{"trace 2: an elevation of 1000000.1234 becomes 1000000.123"});
    EXPECT_EQ(remarksOn({"ACQUISITION_TIME 13:58:30.25"}),
              Texts{"trace 2: a time of 13:58:30.25 becomes 13:58:30"});
    const RecordConversion interval = toSu({floatTrace({"SAMPLE_INTERVAL 0.0000625"}, {1.0F}),
                                            floatTrace({"SAMPLE_INTERVAL 0.0000625"}, {1.0F})});
    EXPECT_EQ(remarksOf(interval.report),
              Texts{"trace 1 and 1 more: an interval of 6.25e-05 s becomes 63 us in dt; d1 holds "
                    "more digits"});
    EXPECT_EQ(numberOf(interval.output, 116, 2), 63);
    // d1 is read back.
    const RecordReading back = readRecord(readSeismicUnix, interval.output);
    EXPECT_EQ(back.traces.at(0).sampleInterval, 0.0000625);
    EXPECT_TRUE(back.report.remarks.empty());
}

TEST(FieldRecordLosses, SamplesThatNoFloatHolds)
{
    const ByteOrder order = ByteOrder::littleEndian;
    const auto convert = [&](std::uint8_t code, std::uint32_t count, const std::string &data) {
        return toSu({{{"SAMPLE_INTERVAL 0.001"}, code, count, data}});
    };
    const std::vector<std::int16_t> shorts = {32767, -32768};
    const RecordConversion exact = convert(1, 2, sampleBytes(shorts, order));
    EXPECT_EQ(samplesOf(exact.output), (Floats{32767.0F, -32768.0F}));
    EXPECT_EQ(remarksOf(exact.report), Texts{});

    // Of 20 bits: exponents 0, 0, 15 and mantissas 5, -5, 32767.
    const std::vector<std::uint16_t> packed = {0x0F00, 5, 0xFFFA, 0x7FFF, 0};
    const RecordConversion unpacked = convert(3, 3, sampleBytes(packed, order));
    EXPECT_EQ(samplesOf(unpacked.output), (Floats{5.0F, -5.0F, 1073709056.0F}));
    EXPECT_EQ(remarksOf(unpacked.report), Texts{});

    // The one that changes most is named.
    const std::vector<std::int32_t> ints = {16777216, 16777217, 2147483647};
    const RecordConversion rounded = convert(2, 3, sampleBytes(ints, order));
    EXPECT_EQ(samplesOf(rounded.output), (Floats{16777216.0F, 16777216.0F, 2147483648.0F}));
    EXPECT_EQ(remarksOf(rounded.report), Texts{"trace 1: samples become 32-bit floats: 16777217 "
                                               "becomes 16777216"});

    const std::vector<double> doubles = {0.5, 1e-60};
    const RecordConversion tiny = convert(5, 2, sampleBytes(doubles, order));
    EXPECT_EQ(samplesOf(tiny.output), (Floats{0.5F, 0.0F}));
    EXPECT_EQ(remarksOf(tiny.report),
              Texts{"trace 1: samples become 32-bit floats: 1e-60 becomes 0"});

    const std::vector<double> large = {0.5, -1e39};
    const RecordConversion refused = convert(5, 2, sampleBytes(large, order));
    EXPECT_EQ(failureOf(refused.report), "trace 1: Seismic Unix has no room for a sample of "
                                         "-1e+39: 3.4028235e+38 is the largest that fits");
}

TEST(FieldRecordLosses, FactorsAndMillivolts)
{
    const std::vector<std::int16_t> shorts = {4, -8};
    const Seg2TraceBytes trace = {{"SAMPLE_INTERVAL 0.001", "DESCALING_FACTOR 0.25"},
                                  1,
                                  2,
                                  sampleBytes(shorts, ByteOrder::littleEndian)};
    const RecordConversion plain = toSu({trace});
    EXPECT_EQ(samplesOf(plain.output), (Floats{4.0F, -8.0F}));
    EXPECT_EQ(remarksOf(plain.report),
              Texts{"trace 1: DESCALING_FACTOR 0.25 is left out: with --millivolts the samples are "
                    "multiplied by it"});
    const RecordConversion scaled = toSu({trace}, {}, inMillivolts);
    EXPECT_EQ(samplesOf(scaled.output), (Floats{1.0F, -2.0F}));
    EXPECT_EQ(remarksOf(scaled.report), Texts{});

    const Seg2TraceBytes large = {
        {"SAMPLE_INTERVAL 0.001", "DESCALING_FACTOR 5e37"}, 1, 2, trace.data};
    EXPECT_EQ(failureOf(toSu({plainTrace(), large}, {}, inMillivolts).report),
              "trace 2: a sample of -8 in millivolts is larger than a 32-bit float");
}

TEST(FieldRecordLosses, StringsWithoutAPlace)
{
    EXPECT_EQ(remarksOf(toSu({plainTrace({"LINE_ID 7", "NOTE a"}), plainTrace({"POLARITY 1"})},
                             {"COMPANY Ours", "TRACE_SORT COMMON_SOURCE"})
                            .report),
              Texts{"strings without a place in Seismic Unix are left out: COMPANY, LINE_ID, NOTE, "
                    "POLARITY, TRACE_SORT"});
    EXPECT_EQ(remarksOn({"A 1", "B 1", "C 1", "D 1", "E 1", "F 1", "G 1", "H 1", "I 1", "J 1"}),
              Texts{"strings without a place in Seismic Unix are left out: A, B, C, D, E, F, G, H "
                    "and 2 more"});
    EXPECT_EQ(remarksOn({"SEISMIC_UNIX cdp 7"}), Texts{});
    for (const std::string fields : {"cdp", "cdp x", "cpd 7", "cdp 7 and more", "trid 99999"})
        EXPECT_EQ(remarksOn({"SEISMIC_UNIX " + fields}),
                  Texts{"strings without a place in Seismic Unix are left out: SEISMIC_UNIX"})
            << fields;
}

TEST(FieldRecordLosses, TracesThatDiffer)
{
    const RecordConversion conversion =
        toSu({floatTrace({"SAMPLE_INTERVAL 0.001"}, {1.0F, 2.0F}),
              floatTrace({"SAMPLE_INTERVAL 0.002"}, {1.0F, 2.0F, 3.0F}),
              floatTrace({"SAMPLE_INTERVAL 0.003"}, {1.0F})});
    EXPECT_EQ(remarksOf(conversion.report),
              (Texts{"trace 2 and 1 more: 3 samples, but trace 1 has 2",
                     "trace 2 and 1 more: an interval of 0.002 s, but trace 1 has 0.001 s"}));
}

TEST(FieldRecordLosses, DeadTracesAndIntervalsOf0)
{
    const std::string alive = suTrace(ByteOrder::bigEndian, {{116, 250}}, {1.0F, 2.0F});
    const std::string marked = suTrace(ByteOrder::bigEndian, {{28, 2}, {116, 250}}, {1.0F, 2.0F});
    const std::string flat = suTrace(ByteOrder::bigEndian, {{116, 250}}, {3.0F, 3.0F});
    const std::string timeless = suTrace(ByteOrder::bigEndian, {}, {1.0F, 2.0F});
    for (const RecordTarget &target : {toSeg2, toBigSu}) {
        const auto remarks = [&](const std::string &record) {
            return remarksOf(convertBytes(readSeismicUnix, record, target).report);
        };
        EXPECT_EQ(remarks(alive + alive), Texts{});
        EXPECT_EQ(remarks(alive + marked + flat), Texts{"trace 2 and 1 more: marked as dead"});
        EXPECT_EQ(remarks(alive + flat), Texts{"trace 2: dead, as all samples are equal"});
        EXPECT_EQ(remarks(timeless + timeless),
                  Texts{"trace 1 and 1 more: the sample interval is 0"});
    }
}

TEST(FieldRecordLosses, HeadersThatSayWhatCannotBe)
{
    const std::int32_t d1 = std::bit_cast<std::int32_t>(0.00025F);
    const RecordReading interval =
        readRecord(readSeismicUnix, suTrace(ByteOrder::bigEndian, {{180, d1}}, {1.0F, 2.0F}));
    EXPECT_EQ(interval.traces.at(0).sampleInterval, 0.00025);
    EXPECT_EQ(remarksOf(interval.report),
              Texts{"trace 1: an interval of 0 us: taken from d1, 0.00025 s"});
    const auto remarks = [](const std::map<std::size_t, std::int32_t> &fields) {
        return remarksOf(
            readRecord(readSeismicUnix, suTrace(ByteOrder::bigEndian, fields, {1.0F})).report);
    };
    const std::string rest = " is no date and time: left out";
    EXPECT_EQ(remarks({{156, 2023}, {158, 366}, {160, 1}}),
              Texts{"trace 1: year 2023, day 366, 1:0:0" + rest});
    EXPECT_EQ(remarks({{156, 2023}}), Texts{"trace 1: year 2023, day 0, 0:0:0" + rest});
    EXPECT_EQ(remarks({{158, 81}}), Texts{"trace 1: year 0, day 81, 0:0:0" + rest});
    EXPECT_EQ(remarks({{156, 2024}, {158, 366}, {160, 24}}),
              Texts{"trace 1: year 2024, day 366, 24:0:0" + rest});
    EXPECT_EQ(remarks({{156, 2024}, {158, 366}, {160, 23}}), Texts{});
}

TEST(FieldRecordLosses, WhatSeismicUnixHasNoRoomFor)
{
    const std::string noRoom = "trace 2: Seismic Unix has no room for ";
    EXPECT_EQ(refusalOf(floatTrace({}, {})), noRoom + "no samples: 1 to 65,535 would fit");
    EXPECT_EQ(refusalOf(floatTrace({}, Floats(65536, 1.0F))),
              noRoom + "65,536 samples: 65,535 would fit, and SEG2 has room for all");
    EXPECT_TRUE(toSu({floatTrace({}, Floats(65535, 1.0F))}).isConverted);
    const std::pair<const char *, const char *> cases[] = {
        {"SOURCE_LOCATION 5412345.678", "a position of 5412345.678: 5412345.68 would fit"},
        {"RECEIVER_LOCATION 0 1e20",
         "a position of 1e+20: 21,474,836,470,000 is the largest that fits"},
        {"RECEIVER_LOCATION 0 0 -1e20",
         "an elevation of -1e+20: 21,474,836,470,000 is the largest that fits"},
        {"DELAY 32.768", "a delay of 32.768 s: from -32.768 s to 32.767 s would fit"},
        {"DELAY -32.769", "a delay of -32.769 s: from -32.768 s to 32.767 s would fit"},
        {"STACK 32768", "a stack of 32768: 1 to 32,767 would fit"},
        {"STACK -32769", "a stack of -32769: 1 to 32,767 would fit"},
    };
    for (const auto &[string, refusal] : cases)
        EXPECT_EQ(refusalOf(plainTrace({string})), noRoom + refusal) << string;
    EXPECT_EQ(refusalOf(floatTrace({"SAMPLE_INTERVAL 0.0656"}, {1.0F})),
              noRoom + "an interval of 0.0656 s: 0.065535 s would fit");
    for (const char *fitting : {"SOURCE_LOCATION 21474836470000", "DELAY 32.767", "DELAY -32.768",
                                "SOURCE_LOCATION 5412345.67"})
        EXPECT_EQ(remarksOn({fitting}), Texts{}) << fitting;
}
