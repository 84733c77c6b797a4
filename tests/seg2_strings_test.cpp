// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "seg2/seg2_file.h"

#include "tests/support/seg2_writing.h"

#include <gtest/gtest.h>

#include <tuple>

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
