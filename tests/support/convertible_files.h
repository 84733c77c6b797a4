// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "tests/support/small_records.h"

#include <QString>

#include <cstdint>
#include <string>

// The file dialogs' filters, and a small file of each format with what it becomes.

using namespace std::string_literals;

inline const QString generic = "Generic text file (*.txt)";
inline const QString seisImager = "SeisImager traveltimes (*.vs)";
inline const QString geogiga = "Geogiga text file (*.txt)";
inline const QString winsism = "Geo2X Winsism XYZ file (*.xyz)";
inline const QString su = "Seismic Unix (*.su)";
inline const QString dolang = "Dolang seismic file (*.*DT  )";

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

/// A little-endian number.
inline std::string number(std::uint32_t value, int bytes)
{
    std::string encoded;
    for (int i = 0; i < bytes; ++i)
        encoded += char(value >> (8 * i) & 0xff);
    return encoded;
}

/// A trace of three samples: 240 bytes of header and the samples.
inline std::string suTrace(std::uint32_t sourceX, std::uint32_t receiverX,
                           const std::string &samples)
{
    std::string trace(240, '\0');
    const auto put = [&trace](std::size_t at, const std::string &bytes) {
        bytes.copy(&trace[at], bytes.size());
    };
    put(70, number(10, 2)); // coordinates are to be multiplied by 10
    put(72, number(sourceX, 4));
    put(80, number(receiverX, 4));
    put(114, number(3, 2));
    put(116, number(250, 2));
    return trace + samples;
}

inline const std::string one = "\0\0\x80\x3f"s;
inline const std::string minusTwo = "\0\0\0\xc0"s;
inline const std::string half = "\0\0\0\x3f"s;
inline const std::string four = "\0\0\x80\x40"s;
inline const std::string seven = "\0\0\xe0\x40"s;
inline const std::string minusThree = "\0\0\x40\xc0"s;
inline const std::string zero = "\0\0\0\0"s;

/// Two traces.
inline const std::string suFile =
    suTrace(100, 250, one + minusTwo + seven) + suTrace(100, 500, half + four + seven);

inline const std::string suListing = listingHeading
                                     + "1    3      0     0.00025     2500      0      0\n"
                                       "2    3      0     0.00025     5000      0      0\n";

/// What stands in front of the pointers.
inline std::string seg2Head(std::uint32_t traces)
{
    return "\x55\x3a\0\0"s + number(4 * traces, 2) + number(traces, 2) + "\1\0 \1\n "s
           + std::string(18, ' ');
}

inline const std::string seg2FileStrings =
    "\x19\0TRACE_SORT AS_ACQUIRED\0\x0f\0UNITS METERS\0\0\0  "s;

inline std::string suSeg2Trace(const std::string &receiverX, const std::string &samples)
{
    return "\x22\x44\xa0\0\x0c\0\0\0\3\0\0\0\4"s + std::string(19, ' ')
           + "\x0a\0DELAY 0\0\x15\0DESCALING_FACTOR 1\0\x1d\0RECEIVER_LOCATION "s + receiverX
           + " 0 0\0\x1a\0SAMPLE_INTERVAL 0.00025\0\x1b\0SOURCE_LOCATION 1000 0 0\0\x0a\0STACK 1\0"s
           + "\0\0   "s + samples;
}

// The blocks begin at 84 and 256; the last sample of a trace is lost on the way.
inline const std::string suSeg2 = seg2Head(2) + "\x54\0\0\0\0\1\0\0"s + seg2FileStrings
                                  + suSeg2Trace("2500", one + minusTwo + zero)
                                  + suSeg2Trace("5000", half + four + zero);

inline const std::string dolangSeg2 =
    seg2Head(1) + "\x50\0\0\0"s + seg2FileStrings + "\x22\x44\x98\0\x08\0\0\0\2\0\0\0\4"s
    + std::string(19, ' ')
    + "\x0a\0DELAY 0\0\x15\0DESCALING_FACTOR 1\0\x1a\0RECEIVER_LOCATION 0 0 0\0"s
    + "\x18\0SAMPLE_INTERVAL 0.001\0\x18\0SOURCE_LOCATION 0 0 0\0\x0a\0STACK 1\0"s + "\0\0   "s
    + seven + minusThree;

inline const std::string emptySeg2 = seg2Head(0) + seg2FileStrings;
