// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "traveltime/report.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

// Lines and fields as the readers take them from a file, each with what the user should know of it.

/// Splits a line with tokenize and says why a line of delimiters alone has no fields.
void splitLine(const std::string &line, std::vector<std::string> &fields,
               const std::string &delimiters, Report &report);

/// The same for a line of numbers: remarks on a line that begins with a delimiter, and ends the
/// field in front where its number ends, so that no second remark follows.
void splitNumbers(const std::string &line, std::vector<std::string> &fields,
                  const std::string &delimiters, Report &report);

/// Throws std::out_of_range "invalid vector subscript" when there are fewer fields than `expected`.
void requireFields(const std::vector<std::string> &fields, std::size_t expected, Report &report);

// The fields that a conversion uses: read by toDouble and toInt, with a remark on what is not
// wholly a number, white space around it aside.

double readNumber(const std::string &field, Report &report);
std::int32_t readInteger(const std::string &field, Report &report);

/// Metres; also remarks on what six digits do not hold to a centimetre.
double readPosition(const std::string &field, Report &report);

/// Also remarks on a time below 0, and on what six digits of milliseconds do not hold to a
/// microsecond. The field holds seconds when `perSecond` is 1, milliseconds when it is 1000.
/// Returns seconds.
double readTime(const std::string &field, double perSecond, Report &report);

// What these remark on, for numbers that are read in other ways.

/// On a field that is not wholly a decimal number of the value that is used for it.
void remarkUnlessWhole(const std::string &field, double value, Report &report);
/// `trace` is named for positions that are in no line; 0 is none.
void remarkOnPosition(double metres, Report &report, std::size_t trace = 0);
void remarkOnTime(double seconds, Report &report);

/// What follows the last shot of a file: lines that hold more than some characters without meaning.
struct Rest
{
    std::size_t lineCount = 0;
    Place first = {};
    std::string firstLine = {};
};

/// Reads the rest of a file by `next`, which gives a line and returns false when there is none.
Rest readRest(const std::function<bool(std::string &line)> &next, const std::string &meaningless,
              const Report &report);

/// Remarks on lines that are not read; `isSurvey`: they begin another survey.
void remarkOnRest(const Rest &rest, bool isSurvey, Report &report);

/// What an input holds, as messages quote it: without white space around it, and not all of a field
/// of a megabyte.
std::string quotable(const std::string &text);
