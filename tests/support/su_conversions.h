// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "seg2/su_conversion.h"
#include "tests/support/seg2_parser.h"
#include "tests/support/small_records.h"
#include "tests/support/su_file.h"
#include "tests/support/support.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <sstream>
#include <string>
#include <vector>

/// A trace in whose header the bytes that are not read are neither 0 nor blanks.
inline std::string filledTrace(SuFields fields, const std::vector<float> &samples)
{
    fields.filling = '\x5A';
    return suTrace(fields, samples);
}

/// Two traces of three samples, of which the last ones are not read.
inline const std::string twoTraces = filledTrace({0, 5, 10, 3, 250}, {1.5F, -2.0F, 99.0F})
                                     + filledTrace({0, 5, 25, 3, 250}, {0.25F, 1e6F, 98.0F});

inline const std::string twoTracesListing = listingHeading
                                            + "1    3      0     0.00025     10      0      0\n"
                                              "2    3      0     0.00025     25      0      0\n";

inline const std::string twoTracesProgress =
    "TraceINDEX : 0\n1.5\n-2\n0\nTraceINDEX : 1\n0.25\n1e+06\n0\n";

inline const std::string twoTracesSeg2 =
    bytes("55 3A 00 00 08 00 02 00 01 00 20 01 0A 20 '                  '"
          "54 00 00 00 F8 00 00 00"
          "19 00 'TRACE_SORT AS_ACQUIRED' 00 0F 00 'UNITS METERS' 00 00 00 '  '"
          "22 44 98 00 0C 00 00 00 03 00 00 00 04 '                   '"
          "0A 00 'DELAY 0' 00 15 00 'DESCALING_FACTOR 1' 00 1B 00 'RECEIVER_LOCATION 10 0 0' 00"
          "1A 00 'SAMPLE_INTERVAL 0.00025' 00 18 00 'SOURCE_LOCATION 5 0 0' 00"
          "0A 00 'STACK 1' 00 00 00 00 00 C0 3F 00 00 00 C0 00 00 00 00"
          "22 44 98 00 0C 00 00 00 03 00 00 00 04 '                   '"
          "0A 00 'DELAY 0' 00 15 00 'DESCALING_FACTOR 1' 00 1B 00 'RECEIVER_LOCATION 25 0 0' 00"
          "1A 00 'SAMPLE_INTERVAL 0.00025' 00 18 00 'SOURCE_LOCATION 5 0 0' 00"
          "0A 00 'STACK 1' 00 00 00 00 00 80 3E 00 24 74 49 00 00 00 00");

/// What the window's conversion of a file made.
struct ConvertedSu
{
    std::int32_t result = -1;
    std::string output = {}; ///< after its first line
    std::string error = {};
    std::string listing = {};
    std::string seg2 = {};
};

inline ConvertedSu convertedSu(const std::string &su)
{
    const TemporaryFolder folder;
    const std::string path = folder.write("line.su", su);
    ConvertedSu converted;
    CapturedStreams streams;
    converted.result = convertSuToSeg2(path);
    streams.finish();
    const std::string opening = "opening su file " + path + '\n';
    EXPECT_EQ(streams.output.substr(0, opening.size()), opening);
    converted.output = streams.output.substr(opening.size());
    converted.error = streams.error;
    converted.listing = readFile(folder.path("line_tmp"));
    converted.seg2 = readFile(folder.path("line.seg2"));
    EXPECT_EQ(readFile(path), su);
    return converted;
}

/// A file without traces: six lines of heading, an empty SEG2 file, an exception.
inline void expectNoTraces(const std::string &su)
{
    const ConvertedSu converted = convertedSu(su);
    EXPECT_EQ(converted.result, 0) << su.size() << " bytes";
    EXPECT_EQ(converted.output, "") << su.size() << " bytes";
    EXPECT_EQ(converted.error, "EXCEPTION!\n") << su.size() << " bytes";
    EXPECT_EQ(converted.listing, listingHeading) << su.size() << " bytes";
    EXPECT_EQ(converted.seg2, "") << su.size() << " bytes";
}
