// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "seg2/seg2_file.h"

#include "tests/support/seg2_parser.h"
#include "tests/support/support.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <fstream>
#include <limits>
#include <sstream>
#include <stdexcept>
#include <tuple>
#include <utility>

namespace {

using Strings = std::vector<std::string>;

/// The 32 bytes that begin a file without traces.
const std::string emptyStart = bytes("55 3A 00 00 00 00 00 00 01 00 20 01 0A 20"
                                     "'                  '");
/// A file of one trace up to the trace's descriptor block, which begins at byte 40.
const std::string oneTraceStart = bytes("55 3A 00 00 04 00 01 00 01 00 20 01 0A 20"
                                        "'                  ' 28 00 00 00 00 00 20 20");
const std::string reserved19 = bytes("'                   '");

std::string written(Seg2File &file)
{
    std::stringstream stream(std::ios::in | std::ios::out | std::ios::binary);
    write(file, stream);
    EXPECT_TRUE(stream.good());
    return stream.str();
}

/// What stands behind the first 32 bytes of a file without traces.
std::string writtenStrings(const std::map<std::string, std::string> &strings)
{
    Seg2File file;
    file.strings = strings;
    return written(file).substr(32);
}

/// Appends a trace as it is, as a caller without addTrace does.
void append(Seg2File &file, Seg2Trace trace)
{
    file.traces.push_back(std::move(trace));
    file.tracePointers.push_back(0);
    ++file.traceCount;
}

/// The file that one trace without file strings makes, from the trace's descriptor block on.
std::string writtenTrace(const Seg2Trace &trace)
{
    Seg2File file;
    append(file, trace);
    const std::string result = written(file);
    EXPECT_EQ(result.substr(0, 40), oneTraceStart);
    return result.substr(40);
}

/// A trace with something in every sample buffer, so that only the right one gives the right bytes.
Seg2Trace traceOfEveryFormat(std::uint8_t formatCode, std::uint32_t sampleCount)
{
    Seg2Trace trace;
    trace.formatCode = formatCode;
    trace.sampleCount = sampleCount;
    trace.int16Samples = {1, -2, 32767};
    trace.int32Samples = {1, -2, 2147483647};
    trace.packedSamples = {0x12, 0x34, 0x56, 0x78, 0x9A, 0xBC};
    trace.packedByteCount = 5;
    trace.floatSamples = {1.5F, -0.0F, 3.0F};
    trace.doubleSamples = {1.5, -2.0, 4.0};
    return trace;
}

/// What the standard error stream gets when `key` is set.
std::string warningOf(const std::string &key)
{
    Seg2File file;
    CapturedStreams streams;
    setFileString(file, key, "value");
    streams.finish();
    EXPECT_EQ(streams.output, "") << key;
    EXPECT_EQ(file.strings, (std::map<std::string, std::string>{{key, "value"}})) << key;
    return streams.error;
}

std::string stringOf(const Seg2TraceHeader &header, const std::string &key)
{
    return buildTrace(header, std::vector<float>(header.sampleCount)).strings.at(key);
}

} // namespace

TEST(Seg2Record, FileAtConstruction)
{
    const Seg2File file;
    EXPECT_EQ(file.blockId, 0x3A55);
    EXPECT_EQ(file.revision, 0);
    EXPECT_EQ(file.tracePointersSize, 0);
    EXPECT_EQ(file.traceCount, 0);
    EXPECT_EQ(file.stringTerminatorSize, 1);
    EXPECT_EQ(file.stringTerminator[0], 0x00);
    EXPECT_EQ(file.stringTerminator[1], 0x20);
    EXPECT_EQ(file.lineTerminatorSize, 1);
    EXPECT_EQ(file.lineTerminator[0], 0x0A);
    EXPECT_EQ(file.lineTerminator[1], 0x20);
    EXPECT_EQ(std::string(file.reserved.begin(), file.reserved.end()), std::string(18, ' '));
    EXPECT_TRUE(file.tracePointers.empty());
    EXPECT_TRUE(file.strings.empty());
    EXPECT_TRUE(file.traces.empty());
}

TEST(Seg2Record, TraceAtConstruction)
{
    const Seg2Trace trace;
    EXPECT_EQ(trace.blockId, 0x4422);
    EXPECT_EQ(trace.descriptorSize, 0);
    EXPECT_EQ(std::string(trace.reserved.begin(), trace.reserved.end()), std::string(19, ' '));
    EXPECT_TRUE(trace.strings.empty());
}

TEST(Seg2Record, CopiedTraceHasBuffersOfItsOwn)
{
    Seg2Trace trace = traceOfEveryFormat(4, 3);
    trace.strings["STACK"] = "1";
    const Seg2Trace copy = trace;
    trace.int16Samples[0] = 7;
    trace.int32Samples[0] = 7;
    trace.packedSamples[0] = 7;
    trace.floatSamples[0] = 7.0F;
    trace.doubleSamples[0] = 7.0;
    trace.strings["STACK"] = "7";
    EXPECT_EQ(copy.int16Samples, (std::vector<std::int16_t>{1, -2, 32767}));
    EXPECT_EQ(copy.int32Samples, (std::vector<std::int32_t>{1, -2, 2147483647}));
    EXPECT_EQ(copy.packedSamples, (std::vector<std::uint8_t>{0x12, 0x34, 0x56, 0x78, 0x9A, 0xBC}));
    EXPECT_EQ(copy.floatSamples, (std::vector<float>{1.5F, -0.0F, 3.0F}));
    EXPECT_EQ(copy.doubleSamples, (std::vector<double>{1.5, -2.0, 4.0}));
    EXPECT_EQ(copy.strings.at("STACK"), "1");
}

TEST(Seg2Record, MovedTraceLeavesNoSamplesBehind)
{
    Seg2Trace trace = traceOfEveryFormat(4, 3);
    const float *samples = trace.floatSamples.data();
    const Seg2Trace moved = std::move(trace);
    EXPECT_EQ(moved.floatSamples.data(), samples);
    EXPECT_TRUE(trace.int16Samples.empty()); // NOLINT(bugprone-use-after-move)
    EXPECT_TRUE(trace.int32Samples.empty());
    EXPECT_TRUE(trace.packedSamples.empty());
    EXPECT_TRUE(trace.floatSamples.empty());
    EXPECT_TRUE(trace.doubleSamples.empty());
}

TEST(SetFileString, EveryStandardKeywordPassesWithoutAWarning)
{
    for (const char *key : {"ACQUISITION_DATE", "ACQUISITION_TIME", "CLIENT", "COMPANY",
                            "GENERAL_CONSTANT", "INSTRUMENT", "JOB_ID", "OBSERVER",
                            "PROCESSING_DATE", "PROCESSING_TIME", "TRACE_SORT", "UNITS", "NOTE"})
        EXPECT_EQ(warningOf(key), "") << key;
}

TEST(SetFileString, KeyThatBeginsWithAStandardKeywordPassesWithoutAWarning)
{
    for (const char *key : {"UNITSX", "NOTES", "CLIENT 2", "ACQUISITION_DATES", "JOB_ID_"})
        EXPECT_EQ(warningOf(key), "") << key;
}

TEST(SetFileString, OtherKeysAreStoredWithAWarning)
{
    EXPECT_EQ(warningOf("UNIT"),
              "WARNING: Keyword UNIT is not a standard keyword for the file descriptor block.\n");
    EXPECT_EQ(warningOf("units"),
              "WARNING: Keyword units is not a standard keyword for the file descriptor block.\n");
    EXPECT_EQ(warningOf("XUNITS"),
              "WARNING: Keyword XUNITS is not a standard keyword for the file descriptor block.\n");
    EXPECT_EQ(warningOf("ACQUISITION"), "WARNING: Keyword ACQUISITION is not a standard keyword "
                                        "for the file descriptor block.\n");
    EXPECT_EQ(warningOf("DELAY"),
              "WARNING: Keyword DELAY is not a standard keyword for the file descriptor block.\n");
}

TEST(SetFileString, EmptyKeyIsStoredWithAWarning)
{
    EXPECT_EQ(warningOf(""),
              "WARNING: Keyword  is not a standard keyword for the file descriptor block.\n");
}

TEST(SetFileString, SameKeyTwiceKeepsTheLastValueInOneEntry)
{
    Seg2File file;
    setFileString(file, "UNITS", "METERS");
    setFileString(file, "UNITS", "FEET");
    EXPECT_EQ(written(file), emptyStart + bytes("0D 00 'UNITS FEET' 00 00 00 ' '"));
}

TEST(BuildTrace, RecordOfATrace)
{
    Seg2TraceHeader header;
    header.formatCode = 1;
    header.sampleCount = 3;
    const Seg2Trace trace = buildTrace(header, {1.5F, -2.0F, 0.25F});
    EXPECT_EQ(trace.blockId, 0x4422);
    EXPECT_EQ(trace.descriptorSize, 0);
    EXPECT_EQ(trace.dataSize, 12U);
    EXPECT_EQ(trace.sampleCount, 3U);
    EXPECT_EQ(trace.formatCode, 4);
    EXPECT_EQ(std::string(trace.reserved.begin(), trace.reserved.end()), std::string(19, ' '));
    EXPECT_EQ(trace.floatSamples, (std::vector<float>{1.5F, -2.0F, 0.25F}));
    EXPECT_TRUE(trace.int16Samples.empty());
    EXPECT_TRUE(trace.int32Samples.empty());
    EXPECT_TRUE(trace.packedSamples.empty());
    EXPECT_TRUE(trace.doubleSamples.empty());
}

TEST(BuildTrace, SixStrings)
{
    Seg2TraceHeader header;
    header.sampleInterval = 0.00025;
    header.stackCount = 4294967295;
    header.delay = -12.5;
    header.descalingFactor = 1e-05;
    header.receiverX = 1.0;
    header.receiverY = 2.0;
    header.receiverZ = 3.25;
    header.sourceX = 4.0;
    header.sourceY = 5.0;
    header.sourceZ = 6.125;
    CapturedStreams streams;
    const Seg2Trace trace = buildTrace(header, {});
    streams.finish();
    EXPECT_EQ(trace.strings, (std::map<std::string, std::string>{{"DELAY", "-12.5"},
                                                                 {"DESCALING_FACTOR", "1e-05"},
                                                                 {"RECEIVER_LOCATION", "1 2 3.25"},
                                                                 {"SAMPLE_INTERVAL", "0.00025"},
                                                                 {"SOURCE_LOCATION", "4 5 6.125"},
                                                                 {"STACK", "4294967295"}}));
    EXPECT_EQ(streams.error, "");
}

TEST(BuildTrace, NumbersHaveSixSignificantDigits)
{
    const double infinite = std::numeric_limits<double>::infinity();
    const double notANumber = std::numeric_limits<double>::quiet_NaN();
    const std::pair<double, const char *> cases[] = {
        {0.0, "0"},
        {-0.0, "-0"},
        {1.0, "1"},
        {12.5, "12.5"},
        {1.0 / 3.0, "0.333333"},
        {2.0 / 3.0, "0.666667"},
        {0.0001, "0.0001"},
        {0.00001, "1e-05"},
        {0.00012345678, "0.000123457"},
        {123456.0, "123456"},
        {123457.5, "123458"},
        {999999.4, "999999"},
        {999999.5, "1e+06"},
        {1000000.0, "1e+06"},
        {-1234567.0, "-1.23457e+06"},
        {1e100, "1e+100"},
        {infinite, "inf"},
        {-infinite, "-inf"},
        {std::copysign(notANumber, 1.0), "nan"},
        {std::copysign(notANumber, -1.0), "-nan"},
    };
    for (const auto &[value, text] : cases) {
        Seg2TraceHeader header;
        header.sampleInterval = header.delay = header.descalingFactor = value;
        header.receiverX = header.receiverY = header.receiverZ = value;
        header.sourceX = header.sourceY = header.sourceZ = value;
        const std::string three = std::string(text) + ' ' + text + ' ' + text;
        EXPECT_EQ(stringOf(header, "DELAY"), text);
        EXPECT_EQ(stringOf(header, "DESCALING_FACTOR"), text);
        EXPECT_EQ(stringOf(header, "SAMPLE_INTERVAL"), text);
        EXPECT_EQ(stringOf(header, "RECEIVER_LOCATION"), three);
        EXPECT_EQ(stringOf(header, "SOURCE_LOCATION"), three);
    }
}

TEST(AddTrace, KeepsTracesPointersAndCountTogether)
{
    Seg2File file;
    Seg2TraceHeader header;
    header.sampleCount = 2;
    header.delay = 1.0;
    addTrace(file, header, {1.0F, 2.0F});
    header.delay = 2.0;
    addTrace(file, header, {3.0F, 4.0F});
    EXPECT_EQ(file.traceCount, 2);
    EXPECT_EQ(file.tracePointers, (std::vector<std::uint32_t>{0, 0}));
    ASSERT_EQ(file.traces.size(), 2U);
    EXPECT_EQ(file.traces[0].strings.at("DELAY"), "1");
    EXPECT_EQ(file.traces[1].strings.at("DELAY"), "2");
    EXPECT_EQ(file.traces[1].floatSamples, (std::vector<float>{3.0F, 4.0F}));
}

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

TEST(WriteSeg2, StringsStandInTheOrderOfTheBytesOfTheirKeys)
{
    EXPECT_EQ(writtenStrings({{"UNITS", "1"},
                              {"a", "2"},
                              {"TRACE_SORT", "3"},
                              {"\xC3\x84", "4"},
                              {"", "5"},
                              {"UNIT", "6"},
                              {"_X", "7"}}),
              bytes("05 00 ' 5' 00 0F 00 'TRACE_SORT 3' 00 09 00 'UNIT 6' 00 0A 00 'UNITS 1' 00"
                    "07 00 '_X 7' 00 06 00 'a 2' 00 07 00 C3 84 ' 4' 00 00 00 '   '"));
}

TEST(WriteSeg2, NoteIsWrittenLast)
{
    EXPECT_EQ(writtenStrings({{"NOTE", "n"}, {"TRACE_SORT", "t"}, {"UNITS", "u"}, {"CLIENT", "c"}}),
              bytes("0B 00 'CLIENT c' 00 0F 00 'TRACE_SORT t' 00 0A 00 'UNITS u' 00"
                    "09 00 'NOTE n' 00 00 00 ' '"));
}

TEST(WriteSeg2, NotesIsNotHeldBack)
{
    EXPECT_EQ(writtenStrings({{"NOTES", "n"}, {"UNITS", "u"}}),
              bytes("0A 00 'NOTES n' 00 0A 00 'UNITS u' 00 00 00 '  '"));
}

TEST(WriteSeg2, OnlyTheExactKeyNoteIsHeldBack)
{
    EXPECT_EQ(writtenStrings({{"NOT", "1"}, {"NOTE ", "2"}, {"Note", "3"}, {"UNITS", "4"}}),
              bytes("08 00 'NOT 1' 00 0A 00 'NOTE  2' 00 09 00 'Note 3' 00 0A 00 'UNITS 4' 00"
                    "00 00 ' '"));
}

TEST(WriteSeg2, NoteOfATraceIsWrittenLast)
{
    Seg2Trace trace;
    trace.strings = {{"NOTE", "n"}, {"STACK", "1"}};
    EXPECT_EQ(writtenTrace(trace), //
              bytes("22 44 38 00 00 00 00 00 00 00 00 00 04") + reserved19
                  + bytes("0A 00 'STACK 1' 00 09 00 'NOTE n' 00 00 00 '   '"));
}

TEST(WriteSeg2, EmptyValueKeepsItsBlank)
{
    EXPECT_EQ(writtenStrings({{"UNITS", ""}}), bytes("09 00 'UNITS ' 00 00 00 ' '"));
}

TEST(WriteSeg2, TerminatorOfTwoBytesIsWrittenAsTheirSum)
{
    Seg2File file;
    file.stringTerminatorSize = 2;
    file.stringTerminator = {0x0A, 0x0D};
    file.strings = {{"TRACE_SORT", "AS_ACQUIRED"}, {"UNITS", "METERS"}};
    Seg2Trace trace;
    trace.strings = {{"STACK", "1"}};
    append(file, trace);
    EXPECT_EQ(written(file), //
              bytes("55 3A 00 00 04 00 01 00 02 0A 0D 01 0A 20 '                  ' 50 00 00 00"
                    "19 00 'TRACE_SORT AS_ACQUIRED' 17 0F 00 'UNITS METERS' 17 00 00 '  '"
                    "22 44 2C 00 00 00 00 00 00 00 00 00 04")
                  + reserved19 + bytes("0A 00 'STACK 1' 17 00 00"));
}

TEST(WriteSeg2, TerminatorIsAlwaysOneByte)
{
    struct Case
    {
        std::uint8_t size, first, second;
        const char *expected;
    };
    for (const auto &[size, first, second, expected] : {
             Case{1, 0x41, 0x42, "06 00 'A B' 41 00 00"},
             Case{0, 0x41, 0x02, "06 00 'A B' 43 00 00"},
             Case{2, 0xFF, 0x03, "06 00 'A B' 02 00 00"},
             Case{3, 0x41, 0x00, "06 00 'A B' 41 00 00"},
         }) {
        Seg2File file;
        file.stringTerminatorSize = size;
        file.stringTerminator = {first, second};
        file.strings = {{"A", "B"}};
        EXPECT_EQ(written(file).substr(32), bytes(expected)) << int(size);
    }
}

TEST(WriteSeg2, BlanksUpToAMultipleOfFourBehindTheFileStrings)
{
    EXPECT_EQ(writtenStrings({{"UNITS", ""}}), bytes("09 00 'UNITS ' 00 00 00 ' '"));
    EXPECT_EQ(writtenStrings({{"UNITS", "M"}}), bytes("0A 00 'UNITS M' 00 00 00"));
    EXPECT_EQ(writtenStrings({{"UNITS", "MM"}}), bytes("0B 00 'UNITS MM' 00 00 00 '   '"));
    EXPECT_EQ(writtenStrings({{"UNITS", "MMM"}}), bytes("0C 00 'UNITS MMM' 00 00 00 '  '"));
}

TEST(WriteSeg2, BlanksUpToAMultipleOfFourBehindTheStringsOfATrace)
{
    for (const auto &[value, size, strings] : {
             std::tuple{"", "2C", "09 00 'STACK ' 00 00 00 ' '"},
             std::tuple{"1", "2C", "0A 00 'STACK 1' 00 00 00"},
             std::tuple{"12", "30", "0B 00 'STACK 12' 00 00 00 '   '"},
             std::tuple{"123", "30", "0C 00 'STACK 123' 00 00 00 '  '"},
         }) {
        Seg2Trace trace;
        trace.strings["STACK"] = value;
        EXPECT_EQ(writtenTrace(trace),
                  bytes(std::string("22 44 ") + size + " 00 00 00 00 00 00 00 00 00 04")
                      + reserved19 + bytes(strings))
            << value;
    }
}

TEST(WriteSeg2, PaddingCountsFromTheStartOfTheFile)
{
    // A data block of 2 bytes lets the next trace begin at byte 82: no blanks are needed behind its
    // strings, and its descriptor block is shorter.
    Seg2File file;
    append(file, traceOfEveryFormat(1, 1));
    append(file, traceOfEveryFormat(1, 2));
    EXPECT_EQ(written(file), bytes("55 3A 00 00 08 00 02 00 01 00 20 01 0A 20 '                  '"
                                   "2C 00 00 00 52 00 00 00 00 00 '  '"
                                   "22 44 24 00 02 00 00 00 01 00 00 00 01")
                                 + reserved19 + bytes("00 00 '  ' 01 00")
                                 + bytes("22 44 22 00 04 00 00 00 02 00 00 00 01") + reserved19
                                 + bytes("00 00 01 00 FE FF"));
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

// The parser that the other tests trust.

TEST(Seg2Parser, ReadsWhatAFileHolds)
{
    const ParsedSeg2 parsed =
        parseSeg2(bytes("55 3A 00 00 04 00 01 00 01 00 20 01 0A 20 '                  ' 34 00 00 00"
                        "0E 00 'UNITS METER' 00 00 00"
                        "22 44 2C 00 08 00 00 00 02 00 00 00 04 '                   '"
                        "0A 00 'STACK 1' 00 00 00 00 00 C0 3F 00 00 00 C0"));
    EXPECT_EQ(parsed.strings, Strings{"UNITS METER"});
    ASSERT_EQ(parsed.traces.size(), 1U);
    EXPECT_EQ(parsed.traces[0].position, 52U);
    EXPECT_EQ(parsed.traces[0].sampleCount, 2U);
    EXPECT_EQ(parsed.traces[0].formatCode, 4);
    EXPECT_EQ(parsed.traces[0].strings, Strings{"STACK 1"});
    EXPECT_EQ(parsed.traces[0].samples, (std::vector<double>{1.5, -2.0}));
}

TEST(Seg2Parser, FindsEveryFlaw)
{
    const std::string good = bytes("55 3A 00 00 08 00 02 00 01 00 20 01 0A 20 '                  '"
                                   "38 00 00 00 64 00 00 00 0D 00 'UNITS FEET' 00 00 00 ' '"
                                   "22 44 2C 00 00 00 00 00 00 00 00 00 04 '                   '"
                                   "0A 00 'STACK 1' 00 00 00"
                                   "22 44 2C 00 00 00 00 00 00 00 00 00 04 '                   '"
                                   "0A 00 'STACK 2' 00 00 00");
    ASSERT_EQ(parseSeg2(good).traces.size(), 2U);
    for (std::size_t i = 0; i < good.size(); ++i) {
        EXPECT_THROW(parseSeg2(good.substr(0, i)), std::runtime_error) << i;
        // The letters of the strings may be any; the format code of a trace without samples too.
        const bool isFree = (i >= 42 && i < 52) || (i >= 90 && i < 97) || (i >= 134 && i < 141)
                            || i == 68 || i == 112;
        std::string flawed = good;
        flawed[i] = static_cast<char>(flawed[i] ^ 0x11);
        if (!isFree) {
            EXPECT_THROW(parseSeg2(flawed), std::runtime_error) << i;
        }
    }
    EXPECT_THROW(parseSeg2(good + ' '), std::runtime_error);
}

TEST(Seg2Parser, FindsStringsOutOfOrder)
{
    EXPECT_EQ(parseSeg2(emptyStart + bytes("06 00 'A 1' 00 06 00 'B 1' 00 00 00 '  '")).strings,
              (Strings{"A 1", "B 1"}));
    EXPECT_EQ(parseSeg2(emptyStart + bytes("06 00 'Z 1' 00 09 00 'NOTE 1' 00 00 00 '   '")).strings,
              (Strings{"Z 1", "NOTE 1"}));
    EXPECT_THROW(parseSeg2(emptyStart + bytes("06 00 'B 1' 00 06 00 'A 1' 00 00 00 '  '")),
                 std::runtime_error);
    EXPECT_THROW(parseSeg2(emptyStart + bytes("06 00 'A 1' 00 06 00 'A 2' 00 00 00 '  '")),
                 std::runtime_error);
    EXPECT_THROW(parseSeg2(emptyStart + bytes("09 00 'NOTE 1' 00 06 00 'Z 1' 00 00 00 '   '")),
                 std::runtime_error);
}

TEST(Seg2Parser, ReadsTheExpectedFilesOfTheSamples)
{
    const ParsedSeg2 line = parseSeg2(readFile(dataFile("line.seg2")));
    EXPECT_EQ(line.strings, (Strings{"TRACE_SORT AS_ACQUIRED", "UNITS METERS"}));
    ASSERT_EQ(line.traces.size(), 12U);
    for (const ParsedTrace &trace : line.traces) {
        EXPECT_EQ(trace.samples.size(), 500U);
        EXPECT_EQ(trace.samples.back(), 0.0);
    }
    for (const char *name :
         {"LINE_ADT_dolang.seg2", "LINE_CDT_dolang.seg2", "LINE_RDT_dolang.seg2"})
        EXPECT_EQ(parseSeg2(readFile(dataFile(name))).traces.size(), 6U) << name;
}
