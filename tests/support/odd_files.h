// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <string>

// Files that nobody would make on purpose.

inline const std::string byteOrderMark = "\xEF\xBB\xBF";

/// A text of ASCII characters in UTF-16, little-endian, behind its byte order mark.
inline std::string inUtf16(const std::string &text)
{
    std::string bytes = "\xFF\xFE";
    for (const char character : text)
        bytes += {character, '\0'};
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
inline std::string repeated(const std::string &text, std::size_t count)
{
    std::string all;
    all.reserve(text.size() * count);
    for (std::size_t i = 0; i < count; ++i)
        all += text;
    return all;
}

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

/// A file of a million shots and what it becomes.
struct ManyShots
{
    std::string input;
    std::string otte;
};

inline constexpr std::size_t million = 1000000;

/// All on the same receiver.
inline ManyShots manyGeogigaShots()
{
    ManyShots shots;
    shots.input = "TX_CURVE\nVERSION: 1\nELEVATION:100\nTOTAL_NUMBER_OF_SHOTS:1000000\n"
                  + repeated("SEISMIC_DATA_FILE_NAME:a\nSHOT_LOCATION:1\nNUMBER_OF_RECEIVERS:1\n"
                             "-\n1 5 0.0025 1\r\n",
                             million);
    shots.otte = "otte\n1.0\n2\n1\n5;\n100;\n" + repeated("1;", million) + '\n'
                 + repeated("100;", million) + '\n';
    for (std::size_t i = 0; i < million; ++i)
        shots.otte += "0\n" + std::to_string(i) + "\n2.5;\n";
    return shots;
}

inline ManyShots manyWinsismShots()
{
    std::string numbers;
    for (std::size_t i = 1; i <= million; ++i)
        numbers += std::to_string(i) + ' ';
    ManyShots shots;
    shots.input = "Shot number, Shot elevation\n" + numbers + '\n' + repeated("100 ", million)
                  + "\nShot number, Shot distance\n" + numbers + '\n' + repeated("1 ", million)
                  + "\nReceiver number, receiver distance\n1\n5\n"
                    "Receiver number, receiver elevation\n1\n100\nFBP times\n"
                  + repeated("\n", million);
    shots.otte = "otte\n1.0\n2\n1\n5;\n100;\n" + repeated("1;", million) + '\n'
                 + repeated("100;", million) + '\n';
    for (std::size_t i = 0; i < million; ++i)
        shots.otte += "0\n" + std::to_string(i) + "\n\n";
    return shots;
}

/// Each on a receiver of its own.
inline ManyShots manySeisImagerShots()
{
    ManyShots shots = {"-\n0 1000000\n", "otte\n1.0\n2\n1000000\n"};
    for (std::size_t i = 0; i < million; ++i) {
        shots.input += "1 1\n" + std::to_string(i) + " 2.5\n";
        shots.otte += std::to_string(i) + ";\n0;\n";
    }
    shots.otte += repeated("1;", million) + '\n' + repeated("0;", million) + '\n';
    for (std::size_t i = 0; i < million; ++i) {
        const std::string index = std::to_string(i);
        shots.otte += index + '\n' + index + "\n2.5;\n";
    }
    return shots;
}
