// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "traveltime/report.h"

#include <cstdint>
#include <fstream>
#include <istream>
#include <string>
#include <vector>

// Numbers here are read and printed with "." as the decimal point whatever the user's locale is.

/// Splits `str` at runs of any character of `delimiters` into `tokens`, which is emptied first. No
/// field is empty. A line that begins with a delimiter has one field more, in front: all of the
/// line from its first other character on (";3;4" gives "3;4", "3", "4"); surveys in the field
/// count on it. Throws std::out_of_range "invalid string position" for a line of delimiters alone.
void tokenize(const std::string &str, std::vector<std::string> &tokens,
              const std::string &delimiters);

/// Reads up to the next line feed, drops one carriage return or line feed at the end, then leading
/// spaces. Past the end of the stream `line` is empty.
void readLine(std::istream &stream, std::string &line);

/// Removes leading spaces (code 32 alone: tabs stay).
void trimLeadingSpaces(std::string &line);

/// What toDouble and toInt skip before a number.
inline bool isWhiteSpace(char character)
{
    return character == ' ' || (character >= '\t' && character <= '\r');
}

/// The longest number that begins `text`, with everything that atof takes: leading white space, a
/// sign, hexadecimal, "inf", "nan". 0 when there is none.
double toDouble(const std::string &text);

/// As toDouble, but throws std::invalid_argument "invalid stod argument" when `text` begins with no
/// number and std::out_of_range "stod argument out of range" when a double cannot hold it.
double toDoubleOrThrow(const std::string &text);

/// The decimal integer that begins `text`, after white space; 0 when there is none. A value outside
/// of 64 bits is clamped to them; of the result the low 32 bits are kept.
std::int32_t toInt(const std::string &text);

/// Appends `value` as an output stream prints it: general notation, six significant digits.
void appendNumber(std::string &text, double value);

/// `value` in fixed notation with six digits after the point.
std::string fixedNumber(double value);

/// Opens a file for reading as text. A folder, which some systems open and then cannot read, counts
/// as not opened (and errno says why).
std::ifstream openText(const std::string &path);

/// A text file in memory, read from front to back.
struct TextFile
{
    std::string text;
    std::size_t position = 0;
    bool isOpen = false; ///< the file could be opened
    bool failed = false; ///< what was to be read was not there: nothing more is read
};

/// The bytes of the byte order mark that `text` begins with: 3 in UTF-8, 2 in UTF-16, 0 without
/// one.
std::size_t markSize(const std::string &text);

/// Loads the file at `path`, which becomes report.place. A file that is empty, or that cannot be
/// read to its end, is a failure for commands alone; of the latter the whole lines are kept.
TextFile loadText(const std::string &path, Report &report);

/// Reads up to the next line feed and counts the line in report.place. A carriage return stays.
/// False past the end of the file, where `line` is empty and the last line stays the place.
bool nextLine(TextFile &file, std::string &line, Report &report);

/// The text of the library that indexes a vector, which users of the window know.
[[noreturn]] void throwInvalidSubscript();

/// Throws std::length_error "vector too long" when a file asks for more values than it could hold
/// at one per byte, and ten million missing ones beside: a damaged count must not take all memory.
/// `bytes` is the size of what was read for these values.
void requireHoldable(std::uint64_t values, std::size_t bytes, Report &report);

/// "1 shot", "2 shots": for messages.
std::string counted(std::size_t count, const std::string &noun);
