// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "tests/support/seg2_parser.h"

#include "tests/support/seg2_writing.h"
#include "tests/support/support.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace {

using Strings = std::vector<std::string>;

} // namespace

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

TEST(Seg2Parser, ReadsRevision1WithZerosForWhatIsReserved)
{
    std::string good = bytes("55 3A 01 00 04 00 01 00 01 00 00 01 0A 00");
    good += std::string(18, '\0');
    good +=
        bytes("34 00 00 00 0E 00 'UNITS METER' 00 00 00 22 44 24 00 02 00 00 00 01 00 00 00 01");
    good += std::string(19, '\0');
    good += bytes("00 00 '  ' FE FF");
    EXPECT_EQ(parseSeg2(good, 1).traces.at(0).samples, std::vector<double>{-2.0});
    EXPECT_THROW(parseSeg2(good), std::runtime_error);
    for (const std::size_t reserved : {10U, 13U, 14U, 31U, 65U, 83U}) {
        std::string flawed = good;
        flawed[reserved] = ' ';
        EXPECT_THROW(parseSeg2(flawed, 1), std::runtime_error) << reserved;
    }
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
