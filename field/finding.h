// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "traveltime/report.h"

#include <cstddef>
#include <string>

/// Something in a survey or a record that its user should look at.
struct Finding
{
    std::string kind = {}; ///< for programs: "negativeTime"
    Place place = {};      ///< the file and, of picks, the line
    std::size_t trace = 0; ///< of a record, counted from 1; 0 where no trace can be named
    std::string text = {}; ///< what it is and why it matters, in one line
};
