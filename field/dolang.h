// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "field/record.h"

#include <string>

/// How a file is known to be a Dolang header, or one of its channel files: "its name and its six
/// numbers"; empty when it is neither.
std::string recogniseDolang(const std::string &start, const std::string &path);

/// Reads the record of a Dolang header: a text file LINE.ADT, .CDT or .RDT with leading lines in
/// quotes, the number of channels, two lines of notes, the delay in seconds, the samples per
/// channel and the samples per second; then notes. LINE.A01 and so on, beside it, have a sample in
/// each line. Every channel must have all of its samples, and no more. The notes become the string
/// NOTE.
bool readDolang(const std::string &path, const TakeTrace &take, Report &report);
