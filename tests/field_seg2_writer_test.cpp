// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "field/seg2.h"
#include "field/seismic_unix.h"
#include "tests/support/field_records.h"
#include "tests/support/field_seg2.h"
#include "tests/support/seg2_parser.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sys/stat.h>
#include <thread>

namespace {

using Texts = std::vector<std::string>;
using Fields = std::map<std::size_t, std::int32_t>;

/// The SEG2 file that a record becomes.
ParsedSeg2 toParsedSeg2(ReadRecord *read, const std::string &bytes)
{
    const RecordConversion conversion = convertBytes(read, bytes, toSeg2);
    EXPECT_TRUE(conversion.isConverted) << failureOf(conversion.report);
    return conversion.isConverted ? parseSeg2(conversion.output, 1) : ParsedSeg2{};
}

/// The only trace of a SEG2 file that a record of this trace becomes.
ParsedTrace rewritten(const Seg2TraceBytes &trace, const Seg2Layout &layout = {})
{
    const ParsedSeg2 seg2 = toParsedSeg2(readSeg2, seg2File(layout, {}, {trace}));
    EXPECT_EQ(seg2.traces.size(), 1U);
    return seg2.traces.empty() ? ParsedTrace{} : seg2.traces[0];
}

std::string refusalOf(ReadRecord *read, const std::string &bytes)
{
    const RecordConversion conversion = convertBytes(read, bytes, toSeg2);
    EXPECT_FALSE(conversion.isConverted);
    return failureOf(conversion.report);
}

} // namespace

TEST(FieldSeg2Writer, SeismicUnixBecomesStringsThatOthersRead)
{
    const Fields fields = {{0, 1},     {4, 1},      {8, 329},    {12, 12},   {28, 1},    {30, 5},
                           {36, 58},   {40, 21225}, {44, 21100}, {68, -100}, {70, -100}, {72, -250},
                           {80, 5550}, {84, 100},   {88, 1},     {108, -10}, {116, 250}, {156, 22},
                           {158, 81},  {160, 13},   {162, 58},   {164, 30}};
    for (const ByteOrder order : bothOrders) {
        const ParsedSeg2 seg2 =
            toParsedSeg2(readSeismicUnix, suTrace(order, fields, {1.5F, -2.0F, 1e30F}));
        EXPECT_EQ(seg2.strings, (Texts{"ACQUISITION_DATE 22/Mar/2022", "ACQUISITION_TIME 13:58:30",
                                       "TRACE_SORT AS_ACQUIRED", "UNITS METERS"}));
        ASSERT_EQ(seg2.traces.size(), 1U);
        const ParsedTrace &trace = seg2.traces[0];
        EXPECT_EQ(trace.strings,
                  (Texts{"CHANNEL_NUMBER 12", "DELAY -0.01", "DESCALING_FACTOR 1",
                         "RECEIVER_LOCATION 55.5 1 212.25", "SAMPLE_INTERVAL 0.00025",
                         "SEISMIC_UNIX scalco -100", "SHOT_SEQUENCE_NUMBER 329",
                         "SOURCE_LOCATION -2.5 0 211", "STACK 5"}));
        EXPECT_EQ(trace.formatCode, 4);
        EXPECT_EQ(trace.sampleCount, 3U);
        EXPECT_EQ(trace.samples, (std::vector<double>{1.5, -2.0, static_cast<double>(1e30F)}));
    }
}

TEST(FieldSeg2Writer, NumbersHaveTheDigitsThatTheyNeed)
{
    const Texts strings = {"DELAY 0.1234567890123", "SAMPLE_INTERVAL 0.0000625",
                           "SOURCE_LOCATION 500123.125 5412345.678 -0.001"};
    const Texts expected = {"DELAY 0.1234567890123", "DESCALING_FACTOR 1",
                            "SAMPLE_INTERVAL 6.25e-05",
                            "SOURCE_LOCATION 500123.125 5412345.678 -0.001", "STACK 1"};
    EXPECT_EQ(rewritten(floatTrace(strings, {1.0F})).strings, expected);
}

TEST(FieldSeg2Writer, ASeg2InputKeepsItsSamplesAndItsFactor)
{
    const std::string factor = "DESCALING_FACTOR 0.00016985";
    for (const ByteOrder order : bothOrders) {
        const auto read = [&](std::uint8_t code, std::uint32_t count, const std::string &data) {
            const ParsedTrace trace =
                rewritten({{factor}, code, count, data}, {.byteOrder = order});
            EXPECT_NE(std::find(trace.strings.begin(), trace.strings.end(), factor),
                      trace.strings.end());
            return std::pair(int{trace.formatCode}, trace.samples);
        };
        const std::vector<double> samples = {1.0, -2.0, 30000.0};
        const std::vector<std::int16_t> shorts(samples.begin(), samples.end());
        const std::vector<std::int32_t> ints(samples.begin(), samples.end());
        const std::vector<float> floats(samples.begin(), samples.end());
        EXPECT_EQ(read(1, 3, sampleBytes(shorts, order)), std::pair(1, samples));
        EXPECT_EQ(read(2, 3, sampleBytes(ints, order)), std::pair(2, samples));
        EXPECT_EQ(read(4, 3, sampleBytes(floats, order)), std::pair(4, samples));
        EXPECT_EQ(read(5, 3, sampleBytes(samples, order)), std::pair(5, samples));
        // Samples of 20 bits become the integers that they mean: exponents 0, 0, 15.
        const std::vector<std::uint16_t> packed = {0x0F00, 1, 0xFFFD, 0x7FFF, 0};
        EXPECT_EQ(read(3, 3, sampleBytes(packed, order)),
                  std::pair(2, std::vector<double>{1.0, -2.0, 1073709056.0}));
    }
}

TEST(FieldSeg2Writer, OtherStringsStayAndNotesComeLast)
{
    const ParsedSeg2 seg2 = toParsedSeg2(
        readSeg2,
        seg2File({.lineEnd = "\r\n"},
                 {"NOTE first\r\nsecond", "COMPANY Ours", "UNITS FEET", "TRACE_SORT COMMON_OFFSET",
                  "ACQUISITION_DATE 2022-03-22"},
                 {floatTrace({"RECEIVER_LOCATION 1000", "NOTE a", "ALIAS_FILTER 0 0"}, {1.0F})}));
    EXPECT_EQ(seg2.strings,
              (Texts{"ACQUISITION_DATE 2022-03-22", "COMPANY Ours", "TRACE_SORT COMMON_OFFSET",
                     "UNITS METERS", "NOTE first\nsecond"}));
    EXPECT_EQ(seg2.traces.at(0).strings,
              (Texts{"ALIAS_FILTER 0 0", "DELAY 0", "DESCALING_FACTOR 1",
                     "RECEIVER_LOCATION 304.8 0 0", "SAMPLE_INTERVAL 0", "STACK 1", "NOTE a"}));
}

TEST(FieldSeg2Writer, TracesOfOtherTimesSayTheirOwn)
{
    const auto trace = [](std::int32_t day, std::int32_t hour) {
        return suTrace(ByteOrder::bigEndian, {{116, 250}, {156, 2022}, {158, day}, {160, hour}},
                       {1.0F, 2.0F});
    };
    const std::string withoutDay = suTrace(ByteOrder::bigEndian, {{116, 250}}, {1.0F, 2.0F});
    const ParsedSeg2 seg2 =
        toParsedSeg2(readSeismicUnix, trace(81, 13) + trace(82, 13) + trace(81, 14) + withoutDay);
    EXPECT_EQ(seg2.strings.at(0), "ACQUISITION_DATE 22/Mar/2022");
    EXPECT_EQ(seg2.strings.at(1), "ACQUISITION_TIME 13:00:00");
    const auto timesOf = [&](std::size_t number) {
        Texts times;
        for (const std::string &string : seg2.traces.at(number).strings)
            if (string.starts_with("ACQUISITION"))
                times.push_back(string);
        return times;
    };
    EXPECT_EQ(timesOf(0), Texts{});
    EXPECT_EQ(timesOf(1), Texts{"ACQUISITION_DATE 23/Mar/2022"});
    EXPECT_EQ(timesOf(2), Texts{"ACQUISITION_TIME 14:00:00"});
    EXPECT_EQ(timesOf(3), (Texts{"ACQUISITION_DATE ", "ACQUISITION_TIME "}));
}

TEST(FieldSeg2Writer, TracesOfAnyNumberOfSamples)
{
    const ParsedSeg2 seg2 = toParsedSeg2(
        readSeg2, seg2File({}, {}, {floatTrace({}, {}), floatTrace({}, {1.0F, 2.0F})}));
    ASSERT_EQ(seg2.traces.size(), 2U);
    EXPECT_EQ(seg2.traces[0].sampleCount, 0U);
    EXPECT_EQ(seg2.traces[1].samples, (std::vector<double>{1.0, 2.0}));
}

TEST(FieldSeg2Writer, RefusesAnglesAndLongStrings)
{
    const std::string metres = suTrace(ByteOrder::bigEndian, {{88, 1}}, {1.0F});
    const std::string angles = suTrace(ByteOrder::bigEndian, {{88, 2}}, {1.0F});
    EXPECT_EQ(refusalOf(readSeismicUnix, metres + angles),
              "trace 2: SEG2 has no room for positions that are angles: metres would fit");

    // Each keyword comes twice, and its values become one.
    const std::string half(40000, 'x');
    EXPECT_EQ(refusalOf(readSeg2,
                        seg2File({}, {"NOTE " + half, "NOTE y" + half}, {floatTrace({}, {1.0F})})),
              "SEG2 has no room for the string NOTE of 80,010 bytes: 65,535 would fit");
    // DELAY 0, DESCALING_FACTOR 1, SAMPLE_INTERVAL 0 and STACK 1 take 10 + 21 + 20 + 10 bytes, the
    // keyword and the ends of NOTE 8: a note of 65,429 bytes just fits.
    const auto noted = [](std::size_t size) {
        return seg2File({.stringEnd = ""}, {},
                        {floatTrace({"NOTE " + std::string(size, 'x')}, {1.0F})});
    };
    EXPECT_EQ(toParsedSeg2(readSeg2, noted(65429)).traces.size(), 1U);
    EXPECT_EQ(refusalOf(readSeg2, noted(65430)),
              "trace 1: SEG2 has no room for strings of 65,499 bytes: 65,498 would fit");
}

TEST(FieldSeg2Writer, AnOutputThatCannotBeWritten)
{
    const TemporaryFolder folder;
    Report missing;
    seg2Writer(folder.path("none/line.seg2"), missing);
    EXPECT_EQ(failureOf(missing), systemText(ENOENT));
    Report full;
    const std::string input = folder.write("su", suTrace(ByteOrder::bigEndian, {}, {1.0F}));
    EXPECT_FALSE(convertRecord(readSeismicUnix, input, toSeg2, "/dev/full", {}, full));
    EXPECT_EQ(failureOf(full), systemText(ENOSPC));
    EXPECT_EQ(full.failure->place.file, "/dev/full");
}

TEST(FieldSeg2Writer, APipeIsRefused)
{
    const TemporaryFolder folder;
    const std::string pipe = folder.path("pipe");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    std::thread reader([&] { std::ifstream(pipe).get(); });
    Report report;
    seg2Writer(pipe, report);
    reader.join();
    EXPECT_EQ(failureOf(report),
              "SEG2 cannot be written to a pipe: what comes first is known last");
    EXPECT_EQ(report.failure->place, Place{pipe});
}
