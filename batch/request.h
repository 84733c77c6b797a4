// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <vector>

/// What the command line asks for, beside the format.
struct Request
{
    std::vector<std::string> files = {};
    std::string output = {};
    std::vector<std::string> shotPositions = {}; ///< of generic files, "x,elevation" each
    std::string shotList = {};                   ///< the file that lists generic files
    bool isStrict = false;
    bool isEchoed = false; ///< the progress of records goes to the standard output stream
};
