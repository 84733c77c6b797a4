// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <vector>

// A small file of every traveltime format, line by line, from which the tests make theirs. Nothing
// is wrong with any of them.

/// Lines of a file, counted from 1.
using Lines = std::vector<std::string>;
using ChangedLines = std::map<std::size_t, std::string>;

/// The lines, some of them replaced.
inline Lines withLines(Lines lines, const ChangedLines &changedLines)
{
    for (const auto &[number, line] : changedLines)
        lines.at(number - 1) = line;
    return lines;
}

/// The lines before all others.
inline Lines firstLines(const Lines &lines, std::size_t count)
{
    return {lines.begin(), lines.begin() + static_cast<std::ptrdiff_t>(count)};
}

/// The lines less their line feeds.
inline Lines withoutLineFeeds(Lines lines)
{
    for (std::string &line : lines)
        line.pop_back();
    return lines;
}

/// The text of a file of these lines.
inline std::string joined(const Lines &lines, const std::string &lineEnd = "\n")
{
    std::string text;
    for (const std::string &line : lines)
        text += line + lineEnd;
    return text;
}

// These have their line feeds.

inline const Lines geogigaLines = {
    "TX_CURVE\n",                      // 1
    "VERSION: 1.0\n",                  // 2
    "INFO: two shots\n",               // 3
    "ELEVATION: 100.5\n",              // 4
    "TOTAL_NUMBER_OF_SHOTS:2\n",       // 5
    "SEISMIC_DATA_FILE_NAME: a.sg2\n", // 6
    "SHOT_LOCATION: -2.5\n",           // 7
    "NUMBER_OF_RECEIVERS: 3\n",        // 8
    "No Position Time Channel\n",      // 9
    "1 0 0.0021 1\r\n",                // 10
    "2 5 0.0105 1\r\n",                // 11
    "3 10 0.0187 1\r\n",               // 12
    "SEISMIC_DATA_FILE_NAME: b.sg2\n", // 13
    "SHOT_LOCATION: 12.5\n",           // 14
    "NUMBER_OF_RECEIVERS: 3\n",        // 15
    "No Position Time Channel\n",      // 16
    "1 0 0.0152 1\r\n",                // 17
    "2 5 0.0081 1\r\n",                // 18
    "3 10 0.0024 1\r\n",               // 19
};

inline const Lines winsismLines = {
    "Shot number, Shot elevation\n",         // 1
    "1 2\n",                                 // 2
    "100 101\n",                             // 3
    "Shot number, Shot distance\n",          // 4
    "1 2\n",                                 // 5
    "-2.5 12.5\n",                           // 6
    "Receiver number, receiver distance\n",  // 7
    "1 2 3\n",                               // 8
    "0 5 10\n",                              // 9
    "Receiver number, receiver elevation\n", // 10
    "1 2 3\n",                               // 11
    "100 100.5 101\n",                       // 12
    "FBP times\n",                           // 13
    "\n",                                    // 14
    "\n",                                    // 15
};

inline const Lines seisImagerLines = {
    "0 0 0\n",   // 1
    "0 1\n",     // 2
    "-2.5 3\n",  // 3
    "0 2.1\n",   // 4
    "5 10.5\n",  // 5
    "10 18.7\n", // 6
};

/// Two shots on the same two receivers.
inline const Lines twoSeisImagerShots = {
    "line 7\n",    // 1
    "0 2 0.5\n",   // 2
    "-2.5 2 0\n",  // 3
    "0 12.5 1\n",  // 4
    "5 25\n",      // 5
    "12.5 2\n",    // 6
    "0 62.5\n",    // 7
    "5 31.25 1\n", // 8
};

inline const Lines genericLines = {"0;100;0.001\n", "5;100;0.004\n"};

// What becomes of them; of the generic file with its shot at -1, in an elevation of 100.

inline const char geogigaLinesOtte[] = "otte\n1.0\n2\n1\n0;5;10;\n100.5;100.5;100.5;\n"
                                       "-2.5;12.5;\n100.5;100.5;\n"
                                       "0\n0\n2.1;10.5;18.7;\n0\n1\n15.2;8.1;2.4;\n";
inline const char winsismLinesOtte[] = "otte\n1.0\n2\n1\n0;5;10;\n100;100.5;101;\n"
                                       "-2.5;12.5;\n100;101;\n"
                                       "0\n0\n\n0\n1\n\n";
inline const char seisImagerShotsOtte[] = "otte\n1.0\n2\n1\n0;5;\n0;0;\n"
                                          "-2.5;12.5;\n0;0;\n"
                                          "0\n0\n12.5;25;\n0\n1\n62.5;31.25;\n";
inline const char genericOtte[] = "otte\n1.0\n2\n1\n0;5;\n100;100;\n-1;\n100;\n0\n0\n1;4;\n";

/// The file with some of its lines replaced.
inline std::string fileOf(const Lines &lines, const ChangedLines &replaced = {})
{
    return joined(withLines(lines, replaced), "");
}

/// The first lines of a file.
inline std::string start(const Lines &lines, std::size_t count)
{
    return fileOf(firstLines(lines, count));
}
