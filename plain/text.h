// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <istream>
#include <string>
#include <vector>

namespace plain {

/// The runs of characters between delimiters. A line that begins with a delimiter has a field more
/// in front, all that follows its first delimiters. Throws for a line of delimiters alone.
std::vector<std::string> tokenize(const std::string &line, const std::string &delimiters);

/// The same, with at least `count` fields; throws when there are fewer.
std::vector<std::string> tokenize(const std::string &line, const std::string &delimiters,
                                  std::size_t count);

/// The next line; empty past the end.
std::string nextLine(std::istream &stream);

void trimLeadingSpaces(std::string &line);

double number(const std::string &text);

/// The low 32 bits of the integer that begins `text`.
std::int32_t integer(const std::string &text);

/// Throws for a count of values beyond what `bytes` of a file can mean.
void requireHoldable(std::uint64_t count, std::uint64_t bytes);

/// Called with each count that requireHoldable lets pass: the fuzz targets pass over inputs that
/// would keep them waiting.
inline void (*noteCount)(std::uint64_t count) = [](std::uint64_t) {};

} // namespace plain
