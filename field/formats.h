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
    std::string name = {};                    ///< on the command line: "seisimager"
    std::string title = {};                   ///< for people: "SeisImager traveltimes"
    std::string units = {};                   ///< of a file: "metres, milliseconds"
    std::vector<std::string> extensions = {}; ///< of what is written: "vs"
    /// Whether what recognises the format can begin no file of another one.
    bool isCertain = false;
    /// How a file that begins with these bytes is known to be of the format ("TX_CURVE in its first
    /// line"); empty when it is not. `path` is for formats of several files.
    std::string (*recognise)(const std::string &start, const std::string &path) = nullptr;
    bool hasNoTimeUnit = false; ///< --times-in says it
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

/// Finds a file's format by its content, whatever its name. Where the content could be of several
/// formats, or of none, `from` decides, if it is given. Fails the report, and gives no format, when
/// the format stays unknown; remarks when the content contradicts `from`.
FoundFormat findFormat(const std::string &path, const Format *from, Report &report);
