// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "field/pick_summary.h"
#include "field/record_summary.h"

#include <string>

// What files hold, in lines for people: a word, then its value.

std::string describe(const PickSummary &summary, const std::string &units);
std::string describe(const RecordSummary &summary, const std::string &units);

/// A line of this kind.
std::string infoLine(const std::string &word, const std::string &value);
