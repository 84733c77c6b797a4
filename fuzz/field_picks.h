// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "field/picks.h"

#include <functional>
#include <string>

// What the fuzz targets of the field command's picks share.

/// Checks that a report is sound: what it tells is in `path`, at a line that is there, and short.
void checkReport(const Report &report, const std::string &path, const std::string &bytes,
                 bool isGood);

/// All numbers of a survey, bit by bit, and its structure.
std::string bitsOf(const PickSurvey &picks);

/// Checks a reader of picks. Each section of the input is a file of one survey; in a section's name
/// "ms" makes its times milliseconds, and "listed" puts its shot at 1, 2.
///
/// Reports and surveys are sound, other line ends and encodings change nothing, every format gives
/// a survey back that it was written in, and no check ends the process.
void checkReader(ReadPicks *read, const std::string &formatName, const std::string &input);

/// Checks that other line ends and encodings of `bytes` change nothing in what `read` makes of a
/// file: a text.
void checkShapes(const std::function<std::string(const std::string &bytes)> &read,
                 const std::string &bytes);
