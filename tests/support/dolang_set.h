// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "seg2/dolang_conversion.h"
#include "tests/support/seg2_parser.h"
#include "tests/support/small_records.h"
#include "tests/support/support.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

inline const std::string fileWithoutTraces =
    bytes("55 3A 00 00 00 00 00 00 01 00 20 01 0A 20 '                  '"
          "19 00 'TRACE_SORT AS_ACQUIRED' 00 0F 00 'UNITS METERS' 00 00 00 '  '");

inline const std::string noChannels = "0\n\n\n0\n0\n1000\n";

/// A data set "LINE" in a folder of its own, and another folder to work in.
struct DolangSet : testing::Test
{
    /// Writes a header and the files of its channels, counted from 1. `kind` is A, C or R.
    void writeKind(char kind, const std::string &header,
                   const std::vector<std::string> &channels = {}) const
    {
        set.write(std::string("LINE.") + kind + "DT", header);
        for (std::size_t i = 0; i < channels.size(); ++i)
            set.write(std::string("LINE.") + kind + '0' + std::to_string(i + 1), channels[i]);
    }

    /// A set whose kind A has 1000 channels of 100 samples, all of them missing.
    void writeThousandChannels() const
    {
        for (int channel = 1; channel <= 1000; ++channel)
            set.write("LINE.A" + std::string(channel < 10 ? "0" : "") + std::to_string(channel),
                      "");
        writeKind('A', "1000\n\n\n0\n100\n1000\n");
        writeKind('C', noChannels);
        writeKind('R', noChannels);
    }

    void convert()
    {
        CapturedStreams streams;
        convertDolangToSeg2(base);
        streams.finish();
        output = streams.output;
        error = streams.error;
    }

    /// Converts a set whose kind A is as given and whose other kinds have no channels.
    void convertA(const std::string &header, const std::vector<std::string> &channels = {})
    {
        writeKind('A', header, channels);
        writeKind('C', noChannels);
        writeKind('R', noChannels);
        convert();
        EXPECT_EQ(error, "");
        EXPECT_EQ(seg2('C'), fileWithoutTraces);
        EXPECT_EQ(seg2('R'), fileWithoutTraces);
    }

    std::string listingPath(char kind) const
    {
        return work.path(std::string("tmp_") + kind + "DT");
    }

    std::string seg2Path(char kind) const
    {
        return set.path(std::string("LINE_") + kind + "DT_dolang.seg2");
    }

    std::string listing(char kind) const
    {
        return readFile(listingPath(kind));
    }

    std::string seg2(char kind) const
    {
        return readFile(seg2Path(kind));
    }

    /// Neither the listing nor the SEG2 file of the kind is there.
    bool isUntouched(char kind) const
    {
        return !exists(listingPath(kind)) && !exists(seg2Path(kind));
    }

    TemporaryFolder set;
    TemporaryFolder work;
    WorkingFolder working{work.path("")};
    std::string base = set.path("LINE");
    std::string output;
    std::string error;
};

inline const std::string twoChannels = "2\nfirst line not used\nsecond\n4\n3\n1000\n";

inline const std::string twoChannelsListing = listingHeading
                                              + "1    3      4     0.001     0      0      0\n"
                                                "2    3      4     0.001     0      0      0\n";

// Both trace blocks have 148 bytes of descriptor and 12 of data.
inline const std::string twoChannelsSeg2 =
    bytes("55 3A 00 00 08 00 02 00 01 00 20 01 0A 20 '                  '"
          "54 00 00 00 F8 00 00 00"
          "19 00 'TRACE_SORT AS_ACQUIRED' 00 0F 00 'UNITS METERS' 00 00 00 '  '"
          "22 44 98 00 0C 00 00 00 03 00 00 00 04 '                   '"
          "0A 00 'DELAY 4' 00 15 00 'DESCALING_FACTOR 1' 00 1A 00 'RECEIVER_LOCATION 0 0 0' 00"
          "18 00 'SAMPLE_INTERVAL 0.001' 00 18 00 'SOURCE_LOCATION 0 0 0' 00"
          "0A 00 'STACK 1' 00 00 00 '   ' 00 00 80 3F 00 00 00 C0 00 24 74 49"
          "22 44 98 00 0C 00 00 00 03 00 00 00 04 '                   '"
          "0A 00 'DELAY 4' 00 15 00 'DESCALING_FACTOR 1' 00 1A 00 'RECEIVER_LOCATION 0 0 0' 00"
          "18 00 'SAMPLE_INTERVAL 0.001' 00 18 00 'SOURCE_LOCATION 0 0 0' 00"
          "0A 00 'STACK 1' 00 00 00 '   ' 00 00 00 00 00 00 A0 40 00 00 C0 40");
