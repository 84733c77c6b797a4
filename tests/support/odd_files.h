// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <string>

// Files that nobody would make on purpose.

inline const std::string byteOrderMark = "\xEF\xBB\xBF";

/// A text of ASCII characters in UTF-16 behind its byte order mark.
inline std::string inUtf16(const std::string &text, bool isBigEndian = false)
{
    std::string bytes = isBigEndian ? "\xFE\xFF" : "\xFF\xFE";
    for (const char character : text)
        bytes += isBigEndian ? std::string{'\0', character} : std::string{character, '\0'};
    return bytes;
}

/// A megabyte of NUL bytes.
inline std::string nulBytes()
{
    return std::string(1000000, '\0');
}

/// A line of 100 MB.
inline std::string endlessLine()
{
    return std::string(100000000, 'x');
}

/// `text` a number of times in a row.
std::string repeated(const std::string &text, std::size_t count);

/// A Geogiga file of one shot with one row, which says that there are `receivers`.
inline std::string geogigaWithReceivers(const std::string &receivers)
{
    return "TX_CURVE\nVERSION: 1\nELEVATION:1\nTOTAL_NUMBER_OF_SHOTS:1\n"
           "SEISMIC_DATA_FILE_NAME:a\nSHOT_LOCATION:1\nNUMBER_OF_RECEIVERS:"
           + receivers + "\nNo x t no\n1 5 0.0025 1\n";
}

/// A SeisImager file of one shot on one receiver, which says that there are `shots` on `receivers`.
inline std::string seisImagerWithCounts(const std::string &shots, const std::string &receivers)
{
    return "-\n0 " + shots + "\n2.5 " + receivers + "\n5 12.5\n";
}

inline constexpr std::size_t million = 1000000;

/// A file of a million shots and what it becomes.
struct ManyShots
{
    std::string input;
    std::string otte;
};

/// All on the same receiver.
ManyShots manyGeogigaShots();
ManyShots manyWinsismShots();
/// Each on a receiver of its own.
ManyShots manySeisImagerShots();
