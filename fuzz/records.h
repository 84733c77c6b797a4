// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "fuzz/support.h"
#include "traveltime/report.h"

#include <cstdint>
#include <functional>
#include <ostream>

/// A conversion to SEG2: the program's and the plain one, of the same input.
struct RecordConversion
{
    std::function<std::int32_t()> convert;
    std::function<bool(std::ostream *progress, Report &report)> convertInner;
    std::function<std::int32_t()> convertPlainly;
};

/// Checks that all write the same files and lines, with and without a place for the progress, and
/// that the SEG2 files are sound.
void checkRecord(const RecordConversion &conversion);

/// Checks that a file is empty, as after an exception, or a SEG2 file without a flaw.
void requireSoundSeg2(const std::string &bytes);
