// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "traveltime/report.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

// The text listing that a conversion to SEG2 goes through: six lines of heading and a line per
// trace. It is written beside the result and stays there; what it says of a trace, rounded to six
// significant digits, is what the SEG2 file says.

/// A line of the listing.
struct ListingTrace
{
    std::uint32_t sampleCount = 0;
    std::uint32_t delay = 0;
    double interval = 0.0; ///< seconds
    double receiverX = 0.0;
    double receiverY = 0.0;
    double receiverZ = 0.0;
};

/// The samples of a record. Traces are counted from 0.
struct RecordSamples
{
    /// How many of the first `count` samples of a trace there are.
    std::function<std::uint32_t(std::size_t trace, std::uint32_t count)> available;
    /// Reads these.
    std::function<std::vector<float>(std::size_t trace, std::uint32_t count)> read;
};

/// Writes the listing. False when it cannot be created, which prints a line. A listing that is not
/// written whole is a failure for commands alone.
bool writeListing(const std::string &path, const std::vector<ListingTrace> &traces, Report &report);

/// Reads the listing back and writes the SEG2 file that it and the samples make, all traces with
/// the source at `sourceX`, 0, 0. Each trace's index and samples go to `progress`, if there is one,
/// before anything is written. A trace's samples are read when they are printed and again when they
/// are written.
///
/// False when an exception ended it, which prints "EXCEPTION!": a trace has fewer samples than its
/// line says, or there is no `sourceX` because there are no traces. That is a failure, and so are a
/// SEG2 file that cannot be created or is not written whole, and traces that it cannot point to;
/// report.result stays as it is.
bool convertListing(const std::string &listingPath, const std::string &seg2Path,
                    std::optional<double> sourceX, const RecordSamples &samples,
                    std::ostream *progress, Report &report);
