// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "seg2/seg2_file.h"

#include "tests/support/seg2_writing.h"
#include "tests/support/support.h"

#include <gtest/gtest.h>

#include <array>
#include <fstream>
#include <new>
#include <vector>

TEST(WriteSeg2, WholeFileByteByByte)
{
    Seg2File file;
    setFileString(file, "UNITS", "METERS");
    setFileString(file, "TRACE_SORT", "AS_ACQUIRED");
    Seg2TraceHeader header;
    header.sampleCount = 2;
    header.sampleInterval = 0.00025;
    header.stackCount = 1;
    header.descalingFactor = 1.0;
    header.receiverX = 12.5;
    header.sourceX = -3.0;
    addTrace(file, header, {1.5F, -2.0F});
    header.sampleCount = 1;
    header.delay = 0.5;
    addTrace(file, header, {0.25F});

    std::stringstream stream(std::ios::in | std::ios::out | std::ios::binary);
    EXPECT_EQ(&write(file, stream), &stream);
    const std::string expected = //
        bytes("55 3A 00 00 08 00 02 00 01 00 20 01 0A 20 '                  '"
              "54 00 00 00 F8 00 00 00" // 84 and 248
              "19 00 'TRACE_SORT AS_ACQUIRED' 00 0F 00 'UNITS METERS' 00 00 00 '  '")
        + bytes("22 44 9C 00 08 00 00 00 02 00 00 00 04 '                   '"
                "0A 00 'DELAY 0' 00 15 00 'DESCALING_FACTOR 1' 00"
                "1D 00 'RECEIVER_LOCATION 12.5 0 0' 00 1A 00 'SAMPLE_INTERVAL 0.00025' 00"
                "19 00 'SOURCE_LOCATION -3 0 0' 00 0A 00 'STACK 1' 00 00 00 ' '"
                "00 00 C0 3F 00 00 00 C0")
        + bytes("22 44 A0 00 04 00 00 00 01 00 00 00 04 '                   '"
                "0C 00 'DELAY 0.5' 00 15 00 'DESCALING_FACTOR 1' 00"
                "1D 00 'RECEIVER_LOCATION 12.5 0 0' 00 1A 00 'SAMPLE_INTERVAL 0.00025' 00"
                "19 00 'SOURCE_LOCATION -3 0 0' 00 0A 00 'STACK 1' 00 00 00 '   '"
                "00 00 80 3E");
    EXPECT_EQ(stream.str(), expected);

    EXPECT_EQ(file.tracePointersSize, 8);
    EXPECT_EQ(file.tracePointers, (std::vector<std::uint32_t>{84, 248}));
    EXPECT_EQ(file.traces[0].descriptorSize, 156);
    EXPECT_EQ(file.traces[0].dataSize, 8U);
    EXPECT_EQ(file.traces[1].dataSize, 4U);
}

TEST(WriteSeg2, FileOnDiskIsTheSame)
{
    Seg2File file;
    Seg2TraceHeader header;
    header.sampleCount = 1;
    addTrace(file, header, {1.5F});
    const std::string expected = written(file);
    const TemporaryFolder folder;
    std::ofstream stream(folder.path("line.seg2"), std::ios::binary);
    EXPECT_EQ(&write(file, stream), &stream);
    stream.close();
    EXPECT_EQ(readFile(folder.path("line.seg2")), expected);
    EXPECT_EQ(parseSeg2(expected).traces.size(), 1U);
}

TEST(WriteSeg2, FieldsOfTheRecordAreWrittenAsTheyStand)
{
    Seg2File file;
    file.blockId = 0x1122;
    file.revision = 0x3344;
    file.tracePointersSize = 0x5566;
    file.lineTerminatorSize = 2;
    file.lineTerminator = {0x0D, 0x0A};
    file.stringTerminator = {0x07, 0x08};
    file.reserved.fill('r');
    file.strings = {{"A", "B"}};
    EXPECT_EQ(written(file), bytes("22 11 44 33 00 00 00 00 01 07 08 02 0D 0A 'rrrrrrrrrrrrrrrrrr'"
                                   "06 00 'A B' 07 00 00"));
}

TEST(WriteSeg2, FileWithoutTraces)
{
    Seg2File file;
    file.strings["TRACE_SORT"] = "AS_ACQUIRED";
    EXPECT_EQ(written(file), emptyStart + bytes("19 00 'TRACE_SORT AS_ACQUIRED' 00 00 00 ' '"));
    EXPECT_EQ(file.tracePointersSize, 0);
    EXPECT_TRUE(file.tracePointers.empty());
}

TEST(WriteSeg2, PointersThatNothingFillsAreZero)
{
    Seg2File file;
    file.traceCount = 2;
    EXPECT_EQ(written(file), bytes("55 3A 00 00 08 00 02 00 01 00 20 01 0A 20 '                  '"
                                   "00 00 00 00 00 00 00 00 00 00 '  '"));
}

TEST(WriteSeg2, FileWithoutTracesAndStrings)
{
    EXPECT_EQ(writtenStrings({}), bytes("00 00 '  '"));
}

TEST(WriteSeg2, EveryFormatCodeWritesItsOwnSamples)
{
    struct Case
    {
        std::uint8_t formatCode;
        const char *descriptor;
        const char *data;
    };
    for (const auto &[formatCode, descriptor, data] : {
             Case{1, "22 44 24 00 06 00 00 00 03 00 00 00 01", "01 00 FE FF FF 7F"},
             Case{2, "22 44 24 00 0C 00 00 00 03 00 00 00 02",
                  "01 00 00 00 FE FF FF FF FF FF FF 7F"},
             Case{3, "22 44 24 00 05 00 00 00 03 00 00 00 03", "12 34 56 78 9A"},
             Case{4, "22 44 24 00 0C 00 00 00 03 00 00 00 04",
                  "00 00 C0 3F 00 00 00 80 00 00 40 40"},
             Case{5, "22 44 24 00 18 00 00 00 03 00 00 00 05",
                  "00 00 00 00 00 00 F8 3F 00 00 00 00 00 00 00 C0 00 00 00 00 00 00 10 40"},
         }) {
        const std::string expected =
            bytes(descriptor) + reserved19 + bytes("00 00 '  '") + bytes(data);
        EXPECT_EQ(writtenTrace(traceOfEveryFormat(formatCode, 3)), expected) << int(formatCode);
        const ParsedSeg2 parsed = parseSeg2(oneTraceStart + expected);
        ASSERT_EQ(parsed.traces.size(), 1U);
        EXPECT_EQ(parsed.traces[0].data, bytes(data)) << int(formatCode);
    }
}

TEST(WriteSeg2, OnlyAsManySamplesAsTheTraceSays)
{
    EXPECT_EQ(writtenTrace(traceOfEveryFormat(2, 1)).substr(36), bytes("01 00 00 00"));
    EXPECT_EQ(writtenTrace(traceOfEveryFormat(4, 0)).substr(36), "");
}

TEST(WriteSeg2, UnknownFormatCodeHasNoData)
{
    for (const std::uint8_t formatCode : std::to_array<std::uint8_t>({0, 6, 255})) {
        std::string expected = bytes("22 44 24 00 00 00 00 00 03 00 00 00 00");
        expected.back() = static_cast<char>(formatCode);
        Seg2File file;
        append(file, traceOfEveryFormat(formatCode, 3));
        file.traces[0].dataSize = 12;
        EXPECT_EQ(written(file), oneTraceStart + expected + reserved19 + bytes("00 00 '  '"))
            << int(formatCode);
        EXPECT_EQ(file.traces[0].dataSize, 0U) << int(formatCode);
    }
}

TEST(WriteSeg2, TraceFieldsAreWrittenAsTheyStand)
{
    Seg2Trace trace;
    trace.blockId = 0x1122;
    trace.descriptorSize = 0xFFFF;
    trace.dataSize = 0xFFFFFFFF;
    trace.reserved.fill('r');
    EXPECT_EQ(writtenTrace(trace), bytes("22 11 24 00 00 00 00 00 00 00 00 00 04"
                                         "'rrrrrrrrrrrrrrrrrrr' 00 00 '  '"));
}

TEST(WriteSeg2, SecondWriteOfARecordIsTheSame)
{
    Seg2File file;
    Seg2TraceHeader header;
    header.sampleCount = 1;
    addTrace(file, header, {1.5F});
    const std::string first = written(file);
    EXPECT_EQ(written(file), first);
}

TEST(WriteSeg2, FailureOfTheStreamShowsInItsState)
{
    Seg2File file;
    Seg2TraceHeader header;
    header.sampleCount = 20000;
    addTrace(file, header, std::vector<float>(20000));
    CapturedStreams streams;
    std::ofstream full("/dev/full", std::ios::binary);
    EXPECT_FALSE(write(file, full).flush());
    std::ofstream closed;
    EXPECT_FALSE(write(file, closed));
    streams.finish();
    EXPECT_EQ(streams.output + streams.error, "");
}

namespace {

/// What writeOneByOne makes of traces with `delays`, of one sample each.
std::string writtenOneByOne(Seg2File &file, const std::vector<double> &delays)
{
    std::stringstream stream(std::ios::in | std::ios::out | std::ios::binary);
    std::size_t index = 0;
    const auto addNext = [&] {
        EXPECT_TRUE(file.traces.empty()); // the one before is gone
        Seg2TraceHeader header;
        header.sampleCount = 1;
        header.delay = delays.at(index++);
        addTrace(file, header, {1.5F});
    };
    EXPECT_EQ(&writeOneByOne(file, delays.size(), addNext, stream), &stream);
    EXPECT_TRUE(stream.good());
    EXPECT_TRUE(file.traces.empty());
    return stream.str();
}

} // namespace

TEST(WriteSeg2OneByOne, SameAsTheWholeRecord)
{
    for (const std::vector<double> &delays :
         {std::vector<double>(), {0.5}, {1.0, 2.0, 3.0}, std::vector<double>(10000, 4.0)}) {
        Seg2File whole;
        setFileString(whole, "UNITS", "METERS");
        Seg2TraceHeader header;
        header.sampleCount = 1;
        for (const double delay : delays) {
            header.delay = delay;
            addTrace(whole, header, {1.5F});
        }
        Seg2File file;
        setFileString(file, "UNITS", "METERS");
        EXPECT_TRUE(writtenOneByOne(file, delays) == written(whole)) << delays.size();
        EXPECT_EQ(file.tracePointers, whole.tracePointers);
        EXPECT_EQ(file.traceCount, whole.traceCount);
        EXPECT_EQ(file.tracePointersSize, whole.tracePointersSize);
    }
}

TEST(WriteSeg2OneByOne, CountsAreKeptTo16Bits)
{
    Seg2File file;
    const std::string result = writtenOneByOne(file, std::vector<double>(65537, 0.0));
    EXPECT_EQ(result.substr(0, 8), bytes("55 3A 00 00 04 00 01 00"));
    EXPECT_EQ(file.traceCount, 1);
    EXPECT_EQ(file.tracePointers.size(), 65537U);
}

TEST(WriteSeg2OneByOne, TracesBeforeAnExceptionStay)
{
    Seg2File file;
    std::stringstream stream(std::ios::in | std::ios::out | std::ios::binary);
    const auto addNext = [&] {
        if (file.tracePointers.size() == 1)
            throw std::bad_alloc();
        Seg2TraceHeader header;
        addTrace(file, header, {});
        file.traces.back().strings.clear();
    };
    EXPECT_THROW(writeOneByOne(file, 2, addNext, stream), std::bad_alloc);
    EXPECT_EQ(stream.str(), bytes("55 3A 00 00 08 00 02 00 01 00 20 01 0A 20 '                  '"
                                  "00 00 00 00 00 00 00 00 00 00 '  '"
                                  "22 44 24 00 00 00 00 00 00 00 00 00 04")
                                + reserved19 + bytes("00 00 '  '"));
}
