// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <string>

/// How much of a file is looked at to find its format: all of it when it is smaller.
inline constexpr std::size_t startSize = 16384;

// How files of picks are known by their content: each function gets the first bytes of a file and
// returns how it is known to be of the format, in a phrase for people, or nothing when it is not.
// A file that is damaged further on is still known, so that its reader can say where. `path` is not
// looked at.

std::string recogniseGeogiga(const std::string &start, const std::string &path);
std::string recogniseWinsism(const std::string &start, const std::string &path);
std::string recogniseOtte(const std::string &start, const std::string &path);
std::string recogniseCsv(const std::string &start, const std::string &path);
std::string recogniseSgt(const std::string &start, const std::string &path);

// Rows of numbers may be both of these; a file that no other reading fits is of one alone.

std::string recogniseSeisImager(const std::string &start, const std::string &path);
std::string recogniseGeneric(const std::string &start, const std::string &path);
