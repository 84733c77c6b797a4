// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "tests/support/seg2_parser.h"
#include "tests/support/small_records.h"
#include "tests/support/su_file.h"

#include <string>

// A small file of each format, and what it becomes.

inline const std::string emptyOtte = "otte\n1.0\n2\n0\n\n\n";

inline const std::string geogigaFile = "TX_CURVE\nVERSION: 1\nELEVATION:100.5\n"
                                       "TOTAL_NUMBER_OF_SHOTS:1\nSEISMIC_DATA_FILE_NAME:1.dat\n"
                                       "SHOT_LOCATION:-2.5\nNUMBER_OF_RECEIVERS:2\nNo x t no\n"
                                       "1 0 0.0025 1\n2 5 0.0105 1\n";
inline const std::string geogigaOtte = "otte\n1.0\n2\n1\n0;5;\n100.5;100.5;\n-2.5;\n100.5;\n0\n0\n"
                                       "2.5;10.5;\n";

inline const std::string winsismFile =
    "Shot number, Shot elevation\n1\n101\nShot number, Shot distance\n1\n2.5\n"
    "Receiver number, receiver distance\n1 2\n0 5\n"
    "Receiver number, receiver elevation\n1 2\n100 100.5\nFBP times\n\n";
inline const std::string winsismOtte = "otte\n1.0\n2\n1\n0;5;\n100;100.5;\n2.5;\n101;\n0\n0\n\n";

inline const std::string seisImagerFile = "1996 0 3.0\n0 1\n2.5 2\n0 10\n5 12.5\n";
inline const std::string seisImagerOtte = "otte\n1.0\n2\n1\n0;5;\n0;0;\n2.5;\n0;\n0\n0\n10;12.5;\n";

/// Two traces; their coordinates are to be multiplied by 10.
inline const std::string suFile = suTrace({10, 100, 250, 3, 250}, {1.0F, -2.0F, 7.0F})
                                  + suTrace({10, 100, 500, 3, 250}, {0.5F, 4.0F, 7.0F});

inline const std::string suListing = listingHeading
                                     + "1    3      0     0.00025     2500      0      0\n"
                                       "2    3      0     0.00025     5000      0      0\n";

/// What comes before the pointers of a SEG2 file.
inline std::string seg2Head(std::uint32_t traces)
{
    return bytes("55 3A 00 00 ") + inOrder(4 * traces, 2) + inOrder(traces, 2)
           + bytes("01 00 20 01 0A 20 " + blanks18);
}

inline std::string suSeg2Trace(const std::string &receiverX, const std::string &samples)
{
    return bytes("22 44 A0 00 0C 00 00 00 03 00 00 00 04 " + blanks19
                 + "0A 00 'DELAY 0' 00  15 00 'DESCALING_FACTOR 1' 00"
                   "1D 00 'RECEIVER_LOCATION "
                 + receiverX
                 + " 0 0' 00  1A 00 'SAMPLE_INTERVAL 0.00025' 00"
                   "1B 00 'SOURCE_LOCATION 1000 0 0' 00  0A 00 'STACK 1' 00  00 00 '   '"
                 + samples);
}

/// The last sample of a trace is lost on the way.
inline const std::string suSeg2Traces =
    suSeg2Trace("2500", "00 00 80 3F  00 00 00 C0  00 00 00 00")
    + suSeg2Trace("5000", "00 00 00 3F  00 00 80 40  00 00 00 00");

inline const std::string seg2FileStrings = bytes(fileStrings + "'  '");

// The traces begin at 84 and 256.
inline const std::string suSeg2 =
    seg2Head(2) + bytes("54 00 00 00  00 01 00 00") + seg2FileStrings + suSeg2Traces;

inline const std::string dolangListing =
    listingHeading + "1    2      0     0.001     0      0      0\n";

inline const std::string dolangSeg2 =
    seg2Head(1) + bytes("50 00 00 00") + seg2FileStrings
    + bytes("22 44 98 00 08 00 00 00 02 00 00 00 04 " + blanks19
            + "0A 00 'DELAY 0' 00  15 00 'DESCALING_FACTOR 1' 00"
              "1A 00 'RECEIVER_LOCATION 0 0 0' 00  18 00 'SAMPLE_INTERVAL 0.001' 00"
              "18 00 'SOURCE_LOCATION 0 0 0' 00  0A 00 'STACK 1' 00  00 00 '   '"
              "00 00 E0 40  00 00 40 C0");

inline const std::string emptySeg2 = seg2Head(0) + seg2FileStrings;
