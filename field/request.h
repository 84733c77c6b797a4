// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "field/formats.h"

#include <optional>
#include <string>
#include <vector>

/// What the command line asks for, beside the subcommand.
struct Request
{
    std::vector<std::string> files = {};
    std::string output = {};
    const Format *from = nullptr;
    const Format *to = nullptr;
    std::optional<TimeUnit> timesIn = {};
    std::string shotList = {};
    std::string topography = {};
    std::optional<ByteOrder> byteOrder = {};
    bool isInMillivolts = false;
    double tolerance = 2.0; ///< milliseconds
    bool isStrict = false;
    bool isJson = false;
};
