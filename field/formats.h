// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "field/picks.h"
#include "field/record.h"

#include <span>
#include <string>
#include <vector>

/// What a format is called, how it is known by its content, and what it can do.
struct Format
{
    /// On the command line: "seisimager".
    std::string name = {};
    /// For people: "SeisImager traveltimes".
    std::string title = {};
    /// Of a file's numbers: "metres, milliseconds".
    std::string units = {};
    /// Of what is written: "vs". Empty when the format is only read.
    std::vector<std::string> extensions = {};
    /// Whether no file of another format can begin as `recognise` expects.
    bool isCertain = false;
    /// Returns how a file that begins with these bytes is known to be of the format ("TX_CURVE in
    /// its first line"), or nothing when it is not. `path` is for formats of several files.
    std::string (*recognise)(const std::string &start, const std::string &path) = nullptr;
    /// Whether a file does not say the unit of its times, so that --times-in does.
    bool hasNoTimeUnit = false;
    /// What it can do; nullptr or false for what it cannot.
    ReadPicks *readPicks = nullptr;
    WritePicks *writePicks = nullptr;
    ReadRecord *readRecord = nullptr;
    bool writesRecords = false;
};

/// All formats, in the order in which they are shown.
std::span<const Format> formats();

/// The format that is called so, or nullptr.
const Format *formatNamed(const std::string &name);

/// The format that files of this name are written in, by its extension in any case, or nullptr.
const Format *formatWrittenTo(const std::string &path);

/// A file's format and how it is known.
struct FoundFormat
{
    const Format *format = nullptr;
    std::string knownBy = {};
};

/// Finds a file's format by its content, whatever its name. Content that fits one format alone is
/// of this one; where it could be of several formats, or of none that is known, `from` decides, if
/// it is given. Fails the report, and gives no format, when the format stays unknown; remarks when
/// `from` is not what the content says.
FoundFormat findFormat(const std::string &path, const Format *from, Report &report);
