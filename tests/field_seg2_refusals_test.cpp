// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "field/seg2.h"

#include "tests/support/field_records.h"
#include "tests/support/field_seg2.h"

#include <gtest/gtest.h>

namespace {

using Texts = std::vector<std::string>;

/// Two traces of two samples: pointers at byte 32, no strings at 40, traces at 42 and 108.
std::string twoTracesOfSeg2(ByteOrder byteOrder = ByteOrder::littleEndian)
{
    return seg2File({.byteOrder = byteOrder}, {},
                    {floatTrace({"SAMPLE_INTERVAL 0.001"}, {1.0F, 2.0F}, byteOrder),
                     floatTrace({"SAMPLE_INTERVAL 0.001"}, {3.0F, 4.0F}, byteOrder)});
}

std::string with(std::string file, std::size_t at, const std::string &bytes)
{
    return file.replace(at, bytes.size(), bytes);
}

std::string refusalOf(const std::string &file)
{
    const RecordReading reading = readRecord(readSeg2, file);
    EXPECT_FALSE(reading.isRead);
    EXPECT_EQ(reading.report.failure.has_value() && reading.report.failure->place.line == 0, true);
    return failureOf(reading.report);
}

} // namespace

TEST(FieldSeg2Refusals, TheWholeTracesBeforeADamagedEndAreRead)
{
    const struct
    {
        std::size_t size;
        std::size_t traces;
        const char *failure;
    } cases[] = {
        {173, 1, "the file ends within trace 2: only the 1 whole trace before it can be read"},
        {140, 1, "the file ends within trace 2: only the 1 whole trace before it can be read"},
        {139, 1, "the file ends before trace 2: only the 1 whole trace before it can be read"},
        {108, 1, "the file ends before trace 2: only the 1 whole trace before it can be read"},
        {107, 0, "the file ends within trace 1: no whole trace can be read"},
        {73, 0, "the file ends before trace 1: no whole trace can be read"},
        {42, 0, "the file ends before trace 1: no whole trace can be read"},
        {39, 0, "the file ends within its pointers to traces"},
        {32, 0, "the file ends within its pointers to traces"},
        {31, 0, "the file ends within its first 32 bytes"},
        {1, 0, "the file ends within its first 32 bytes"},
        {0, 0, "the file is empty"},
    };
    for (const ByteOrder order : {ByteOrder::littleEndian, ByteOrder::bigEndian}) {
        ASSERT_EQ(twoTracesOfSeg2(order).size(), 174U);
        EXPECT_TRUE(readRecord(readSeg2, twoTracesOfSeg2(order)).isRead);
        for (const auto &[size, traces, failure] : cases) {
            const RecordReading reading = readRecord(readSeg2, twoTracesOfSeg2(order).substr(0, size));
            EXPECT_FALSE(reading.isRead) << size;
            EXPECT_EQ(reading.traces.size(), traces) << size;
            EXPECT_EQ(failureOf(reading.report), failure) << size;
        }
    }
}

TEST(FieldSeg2Refusals, ATraceThatIsNotWhereItShouldBe)
{
    EXPECT_EQ(refusalOf(with(twoTracesOfSeg2(), 108, "xx")),
              "at byte 108, where trace 2 should begin, is no trace: only the 1 whole trace before "
              "it can be read");
    EXPECT_EQ(refusalOf(with(twoTracesOfSeg2(), 32, std::string(4, '\0'))),
              "at byte 0, where trace 1 should begin, is no trace: no whole trace can be read");
    EXPECT_EQ(refusalOf(with(twoTracesOfSeg2(), 36, std::string(4, '\xFF'))),
              "the file ends before trace 2: only the 1 whole trace before it can be read");
}

TEST(FieldSeg2Refusals, OfTheWholeFile)
{
    using namespace std::string_literals;
    const std::string id = "this is no SEG2: it does not begin with 55 3A or 3A 55";
    EXPECT_EQ(refusalOf(with(twoTracesOfSeg2(), 0, "\x55\x55")), id);
    EXPECT_EQ(refusalOf(std::string(32, ' ')), id);
    EXPECT_EQ(refusalOf(with(twoTracesOfSeg2(), 2, "\2"s)),
              "this is SEG2 of revision 2: only 0 and 1 are known");
    EXPECT_EQ(refusalOf(with(twoTracesOfSeg2(), 6, "\0"s)), "the file says that it has no traces");
    EXPECT_EQ(refusalOf(with(twoTracesOfSeg2(), 6, "\3"s)),
              "the pointers to 3 traces take 12 bytes, but the file gives them 8");
    for (const std::string &distance : {"\1\0"s, "\3\0"s, "\xFF\xFF"s})
        EXPECT_EQ(refusalOf(with(twoTracesOfSeg2(), 40, distance)),
                  "the strings of the file reach beyond their block");
}

TEST(FieldSeg2Refusals, OfATrace)
{
    using namespace std::string_literals;
    const std::string file = twoTracesOfSeg2();
    // The second trace's fields are at bytes 108 (id), 110 (size of its descriptor), 112 (of its
    // data), 116 (samples) and 120 (format code), its string is at 140.
    EXPECT_EQ(refusalOf(with(file, 110, "\x1F"s)),
              "trace 2: its descriptor of 31 bytes is too short");
    for (const char code : {'\0', '\6', '\xFF'})
        EXPECT_EQ(refusalOf(with(file, 120, std::string(1, code))),
                  "trace 2: sample format code " + std::to_string(static_cast<unsigned char>(code))
                      + ": only 1 to 5 are known");
    EXPECT_EQ(refusalOf(with(file, 116, "\3"s)),
              "trace 2: 3 samples take 12 bytes, but its data have 8");
    EXPECT_EQ(refusalOf(with(file, 116, "\xFF\xFF\xFF\xFF")),
              "trace 2: 4,294,967,295 samples take 17,179,869,180 bytes, but its data have 8");
    for (const std::string &distance : {"\1\0"s, "\x1B\0"s})
        EXPECT_EQ(refusalOf(with(file, 140, distance)),
                  "trace 2: its strings reach beyond its descriptor");
}

TEST(FieldSeg2Refusals, StringsThatAreNoNumbers)
{
    const struct
    {
        const char *string;
        const char *refusal;
    } cases[] = {
        {"SAMPLE_INTERVAL fast", R"(SAMPLE_INTERVAL is "fast", but should be a number of seconds)"},
        {"SAMPLE_INTERVAL 0,001",
         R"(SAMPLE_INTERVAL is "0,001", but should be a number of seconds)"},
        {"SAMPLE_INTERVAL -0.001", R"(SAMPLE_INTERVAL is "-0.001", but should be 0 or more)"},
        {"DELAY nan", R"(DELAY is "nan", but should be a number of seconds)"},
        {"DESCALING_FACTOR 1 V", R"(DESCALING_FACTOR is "1 V", but should be a number)"},
        {"STACK 1.5", R"(STACK is "1.5", but should be a whole number of 32 bits)"},
        {"STACK many", R"(STACK is "many", but should be a whole number of 32 bits)"},
        {"CHANNEL_NUMBER 3000000000",
         R"(CHANNEL_NUMBER is "3000000000", but should be a whole number of 32 bits)"},
        {"SHOT_SEQUENCE_NUMBER -3000000000",
         R"(SHOT_SEQUENCE_NUMBER is "-3000000000", but should be a whole number of 32 bits)"},
        {"SOURCE_LOCATION 1 2 3 4",
         R"(SOURCE_LOCATION is "1 2 3 4", but should be one to three numbers)"},
        {"RECEIVER_LOCATION 1 m",
         R"(RECEIVER_LOCATION is "1 m", but should be one to three numbers)"},
    };
    for (const auto &[string, refusal] : cases) {
        const RecordReading reading = readRecord(
            readSeg2, seg2File({}, {}, {floatTrace({}, {1.0F}), floatTrace({string}, {1.0F})}));
        EXPECT_EQ(failureOf(reading.report), std::string("trace 2: ") + refusal);
        EXPECT_EQ(reading.traces.size(), 1U);
    }
}
