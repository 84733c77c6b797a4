// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "traveltime/report.h"

#include <string>

// What is asked about files before they are converted. The window takes a missing file for an empty
// one; a script must not. Each check of an input fails the report if the answer is no.

/// Whether the file can be read and is not empty.
bool isReadable(const std::string &path, Report &report);

/// The same for a text. UTF-16 is refused: every number in it would read as 0.
bool isReadableText(const std::string &path, Report &report);

/// The same for a text whose first line counts. A byte order mark is refused: the first field would
/// read as 0.
bool isReadableFromItsStart(const std::string &path, Report &report);

/// Whether the file can be written to, as it is.
bool isWritable(const std::string &path);

/// Whether both are names of one existing file.
bool isSameFile(const std::string &first, const std::string &second);

/// Whether there is anything of this name.
bool isThere(const std::string &path);
