// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "field/picks.h"
#include "traveltime/report.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// Text files as people and programs save them. A function that returns bool returns whether all is
// well; where it returns false, the report has failed at the current line.

/// A text in UTF-8 without a mark. UTF-16 is known by its mark; other texts stay as they are.
std::string decodeText(std::string bytes);

/// The decimal commas and points of a file's numbers, as far as they were read.
struct DecimalMarks
{
    std::size_t commas = 0;
    bool isComma = false; ///< one of the commas cannot part thousands
    Place firstComma = {};
    std::string withComma = {}; ///< the first number that has one
    std::string withPoint = {};
    std::size_t pointLine = 0;
};

/// A text file in memory, read line by line. Lines and fields are views of its text.
struct TextInput
{
    std::string text = {};
    std::size_t position = 0;        ///< where the next line begins
    std::size_t lineFeed = 0;        ///< the first at or after `position`, once a line is read
    std::string_view wholeLine = {}; ///< the current one
    std::string_view line = {};      ///< the current one, less blanks and tabs around it
    std::vector<std::string_view> fields = {}; ///< of the current line, less blanks around them
    bool hasCommas = false;
    DecimalMarks marks = {};
    std::function<void(double fraction)> progress = {}; ///< see PickOptions
};

/// Loads the file at `path`, which becomes report.place.
bool loadInput(const std::string &path, TextInput &input, Report &report);

/// The same for a file of picks.
bool loadInput(const std::string &path, const PickOptions &options, TextInput &input,
               Report &report);

/// Goes to the next line, which ends in LF, CR LF or CR, and counts it in report.place. False at
/// the end of the file, where the line is empty and the last line stays the place; that is no
/// failure.
bool nextLine(TextInput &input, Report &report);

/// The same, passing over empty lines and comments, which begin with "#".
bool nextContent(TextInput &input, Report &report);

/// Splits the current line at runs of blanks and tabs.
void splitAtBlanks(TextInput &input);

/// Splits the current line at every `delimiter`; a field may be empty.
void splitAt(char delimiter, TextInput &input);

/// Fails unless the current line has at least `count` fields: `names` says what they are.
bool requireFields(std::size_t count, const char *names, const TextInput &input, Report &report);

/// Reads a field that is wholly a finite decimal number; `name` says what it is: "the shot's x". A
/// decimal comma is taken, and endNumbers() tells of it. `value` becomes the number times ten to
/// the `power`, rounded once: 12.3 ms are the same double as 0.0123 s.
bool readNumber(std::string_view field, const char *name, double &value, TextInput &input,
                Report &report, int power = 0);

/// Reads a field that is wholly a whole number, 0 or more.
bool readCount(std::string_view field, const char *name, std::size_t &count, TextInput &input,
               Report &report);

/// Reads a pick's time, as readNumber() does with its power. A receiver that was not picked has a
/// negative time, or an empty field, "nan" or "*", for which `seconds` becomes NaN; a remark tells
/// of either.
bool readTime(std::string_view field, int power, double &seconds, TextInput &input, Report &report);

/// The power of ten that makes seconds of a time.
inline int powerOf(TimeUnit unit)
{
    return unit == TimeUnit::milliseconds ? -3 : 0;
}

/// Ends the reading of a file's numbers: remarks on decimal commas, or fails where these could mean
/// something else.
bool endNumbers(const TextInput &input, Report &report);

/// The number that is all of `field`, with a decimal point, times ten to the `power`.
std::optional<double> wholeNumber(std::string_view field, int power = 0);

/// Part of an input for a message, in quotation marks: its first 40 characters.
std::string inQuotes(std::string_view text);

/// The line for Pick and Origin.
std::uint32_t lineOf(const Report &report);

/// Whether both are the same, but for capitals. `b` is in lower case.
bool sameWord(std::string_view a, std::string_view b);

/// `text` less the blanks and tabs around it.
std::string_view trimmed(std::string_view text);
