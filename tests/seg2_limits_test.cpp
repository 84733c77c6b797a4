// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "seg2/seg2_file.h"

#include "tests/support/seg2_writing.h"

#include <gtest/gtest.h>

#include <array>
#include <stdexcept>

TEST(WriteSeg2, LengthOfAStringIsKeptTo16Bits)
{
    // 65536 characters with the blank and the terminator: the length would be 65538.
    const std::string value(65533, 'x');
    EXPECT_TRUE(writtenStrings({{"A", value}}) == bytes("02 00 'A '") + value + bytes("00 00 00"));
}

TEST(WriteSeg2, DescriptorSizeIsKeptTo16BitsAndTheDataSizeComesFromIt)
{
    const std::string x(40000, 'x');
    const std::string y(40000, 'y');
    Seg2File file;
    Seg2Trace trace;
    trace.sampleCount = 1;
    trace.floatSamples = {1.5F};
    trace.strings = {{"A", x}, {"B", y}};
    append(file, trace);
    // The block has 80044 bytes, of which the field keeps 14508; the data block's 4 bytes become
    // 65540.
    EXPECT_TRUE(written(file)
                == oneTraceStart + bytes("22 44 AC 38 04 00 01 00 01 00 00 00 04") + reserved19
                       + bytes("45 9C 'A '") + x + bytes("00 45 9C 'B '") + y
                       + bytes("00 00 00 00 00 C0 3F"));
    EXPECT_EQ(file.traces[0].descriptorSize, 14508);
    EXPECT_EQ(file.traces[0].dataSize, 65540U);
}

TEST(WriteSeg2, SizeOfThePointersIsKeptTo16BitsFrom16384Traces)
{
    Seg2TraceHeader header;
    header.sampleCount = 1;
    header.sampleInterval = 0.001;
    header.stackCount = 1;
    header.descalingFactor = 1.0;
    Seg2File file;
    for (int i = 0; i < 16383; ++i)
        addTrace(file, header, {1.5F});
    EXPECT_EQ(written(file).substr(0, 8), bytes("55 3A 00 00 FC FF FF 3F"));
    addTrace(file, header, {2.0F});
    const std::string result = written(file);
    EXPECT_EQ(result.substr(0, 8), bytes("55 3A 00 00 00 00 00 40"));
    EXPECT_EQ(file.tracePointersSize, 0);
    // The strings behind 65536 bytes of pointers, then 156 bytes for each trace.
    EXPECT_EQ(result.size(), 2621476U);
    EXPECT_EQ(result.substr(32, 8), bytes("24 00 01 00 C0 00 01 00")); // 65572 and 65728
    EXPECT_EQ(result.substr(65564, 12), bytes("88 FF 27 00 00 00 '  ' 22 44 98 00")); // 2621320
    const ParsedSeg2 parsed = parseSeg2(result);
    ASSERT_EQ(parsed.traces.size(), 16384U);
    EXPECT_EQ(parsed.traces[16382].samples, std::vector<double>{1.5});
    EXPECT_EQ(parsed.traces[16383].samples, std::vector<double>{2.0});
}

TEST(WriteSeg2, NumberOfTracesIsWholeUpTo65535)
{
    Seg2File file;
    for (int i = 0; i < 65535; ++i)
        append(file, Seg2Trace());
    const std::string result = written(file);
    EXPECT_EQ(result.substr(0, 8), bytes("55 3A 00 00 FC FF FF FF"));
    EXPECT_EQ(parseSeg2(result).traces.size(), 65535U);
}

TEST(WriteSeg2, NumberOfTracesIsKeptTo16BitsFrom65536Traces)
{
    // No room is left for the pointers, which then stand over the strings and the first traces.
    Seg2TraceHeader header;
    Seg2File file;
    for (int i = 0; i < 65535; ++i)
        append(file, Seg2Trace());
    addTrace(file, header, {});
    file.traces.back().strings.clear();
    EXPECT_EQ(file.traceCount, 0);
    ASSERT_EQ(file.tracePointers.size(), 65536U);
    const std::string result = written(file);
    EXPECT_EQ(file.tracePointersSize, 0);
    EXPECT_EQ(file.tracePointers[65535], 2359296U);
    EXPECT_EQ(result.size(), 2359332U);
    EXPECT_EQ(result.substr(0, 32), emptyStart);
    EXPECT_EQ(result.substr(32, 12), bytes("24 00 00 00 48 00 00 00 6C 00 00 00")); // 36, 72, 108
    // The last pointer, what it leaves of trace 7281, and trace 7282.
    EXPECT_EQ(result.substr(262172, 32), bytes("00 00 24 00 '        ' 00 00 '  '"
                                               "22 44 24 00 00 00 00 00 00 00 00 00 04 '   '"));
    EXPECT_EQ(result.substr(2359296, 16), bytes("22 44 24 00 00 00 00 00 00 00 00 00 04 '   '"));
}

TEST(WriteSeg2, TooFewSamplesOrPointersAreRefused)
{
    const auto messageOf = [](Seg2File file) -> std::string {
        try {
            written(file);
        } catch (const std::out_of_range &error) {
            return error.what();
        }
        return "nothing thrown";
    };
    for (const std::uint8_t formatCode : std::to_array<std::uint8_t>({1, 2, 4, 5})) {
        Seg2File file;
        append(file, traceOfEveryFormat(formatCode, 4));
        EXPECT_EQ(messageOf(file), "invalid vector subscript") << int(formatCode);
    }
    Seg2File packed;
    append(packed, traceOfEveryFormat(3, 3));
    packed.traces[0].packedByteCount = 7;
    EXPECT_EQ(messageOf(packed), "invalid vector subscript");
    Seg2File noPointer;
    append(noPointer, Seg2Trace());
    noPointer.tracePointers.clear();
    EXPECT_EQ(messageOf(noPointer), "invalid vector subscript");
}

TEST(WriteSeg2, TracesBeforeTheOneThatIsRefusedStay)
{
    Seg2Trace trace;
    trace.sampleCount = 1;
    trace.floatSamples = {1.5F};
    Seg2File file;
    append(file, trace);
    trace.sampleCount = 2;
    append(file, trace);
    std::stringstream stream(std::ios::in | std::ios::out | std::ios::binary);
    EXPECT_THROW(write(file, stream), std::out_of_range);
    // No pointer is written.
    const std::string firstTrace = bytes("55 3A 00 00 08 00 02 00 01 00 20 01 0A 20"
                                         "'                  '"
                                         "00 00 00 00 00 00 00 00 00 00 '  '"
                                         "22 44 24 00 04 00 00 00 01 00 00 00 04")
                                   + reserved19 + bytes("00 00 '  ' 00 00 C0 3F");
    EXPECT_EQ(stream.str(), firstTrace);
}

TEST(WriteSeg2, TraceWithoutAPointerIsWrittenBeforeItIsRefused)
{
    Seg2File file;
    append(file, Seg2Trace());
    file.tracePointers.clear();
    std::stringstream stream(std::ios::in | std::ios::out | std::ios::binary);
    EXPECT_THROW(write(file, stream), std::out_of_range);
    EXPECT_EQ(stream.str(), bytes("55 3A 00 00 04 00 01 00 01 00 20 01 0A 20"
                                  "'                  ' 00 00 00 00 00 00 '  '"
                                  "22 44 24 00 00 00 00 00 00 00 00 00 04")
                                + reserved19 + bytes("00 00 '  '"));
}

TEST(WriteSeg2, TracesOfMoreThanAMegabyteFollowEachOther)
{
    Seg2Trace trace;
    trace.sampleCount = 300000;
    trace.floatSamples.assign(300000, 1.5F);
    Seg2File file;
    append(file, trace);
    append(file, trace);
    const std::string result = written(file);
    // 44 bytes, then 36 and 1,200,000 for each trace.
    EXPECT_EQ(result.substr(32, 8), bytes("2C 00 00 00 D0 4F 12 00")); // 44 and 1200080
    ASSERT_EQ(result.size(), 2400116U);
    EXPECT_EQ(result.substr(1200076, 8), bytes("00 00 C0 3F 22 44 24 00"));
    EXPECT_EQ(result.substr(2400112), bytes("00 00 C0 3F"));
}

TEST(OverflowOf, MoreTracesThanTheSizeOfTheirPointersCanSay)
{
    Seg2File file;
    EXPECT_EQ(overflowOf(file), "");
    file.tracePointers.assign(16383, 100);
    EXPECT_EQ(overflowOf(file), "");
    file.tracePointers.push_back(100);
    EXPECT_EQ(overflowOf(file),
              "16384 traces, and a SEG2 file can point to 16383: split the record");
}

TEST(OverflowOf, TracesBeyond4GiB)
{
    Seg2File file;
    file.tracePointers = {100, 4294967295};
    EXPECT_EQ(overflowOf(file), "");
    file.tracePointers = {100, 4294967000, 96}; // 2^32 + 96
    EXPECT_EQ(overflowOf(file),
              "traces lie beyond the 4 GiB that a SEG2 file can point into: split the record");
}
