// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "traveltime/report.h"

#include <cstddef>
#include <string>
#include <vector>

/// A pick of a survey: the record that has it, and its receiver.
struct PickIndex
{
    std::size_t record = 0;
    std::size_t pick = 0;

    bool operator==(const PickIndex &) const = default;
};

/// Something in a survey or a record that its user should look at.
struct Finding
{
    std::string kind = {}; ///< for programs: "negativeTime"
    Place place = {};      ///< the file and, of picks, the line
    std::size_t trace = 0; ///< of a record, counted from 1; 0 where no trace can be named
    std::string text = {}; ///< what it is and why it matters, in one line
    std::vector<PickIndex> picks = {}; ///< of a survey: the pick itself and, of a pair, the other
};

/// "line.vs:12: ..." or "line.su: trace 3: ...".
std::string lineOf(const Finding &finding);
