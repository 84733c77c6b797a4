// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "tests/support/batch_command.h"
#include "tests/support/reading.h"

#include <cstddef>
#include <string>
#include <vector>

// The lines stand with their line ends.

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

inline const Lines genericLines = {"0;100;0.001\n", "5;100;0.004\n"};

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

/// A folder with one generic file, which converts into genericOtte, and an older output.
struct GenericSurvey : BatchFolder
{
    GenericSurvey()
    {
        write("s1.txt", fileOf(genericLines));
        write("line.otte", "older");
    }
};

using Arguments = std::vector<std::string>;

/// The command line that converts the survey's `input`.
inline Arguments convert(const std::string &input, const std::string &output)
{
    return {"generic", input, "--shot", "-1,100", "-o", output};
}

/// A generic file of `count` receivers.
inline std::string manyReceivers(int count)
{
    std::string text;
    for (int i = 0; i < count; ++i)
        text += "5;100;0.004\n";
    return text;
}
