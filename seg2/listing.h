// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "traveltime/problem.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
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

/// Gives the first `count` samples of a trace, counted from 0, or as many of them as there are.
using TraceSamples = std::function<std::vector<float>(std::size_t trace, std::uint32_t count)>;

/// Writes the listing. False, after a line on the standard error stream, when it cannot be created;
/// a listing that is not written whole is told in `problem` alone.
bool writeListing(const std::string &path, const std::vector<ListingTrace> &traces,
                  Problem &problem);

/// Reads the listing back and writes the SEG2 file that it and the samples make, all traces with
/// the source at `sourceX`, 0, 0. Each trace's index and samples go to the standard output stream.
///
/// False, after "EXCEPTION!" on the standard error stream, when an exception ended it: a trace has
/// fewer samples than its line says, or there is no `sourceX` because there are no traces. A SEG2
/// file that cannot be created or is not written whole is told in `problem` alone.
bool convertListing(const std::string &listingPath, const std::string &seg2Path,
                    std::optional<double> sourceX, const TraceSamples &samples, Problem &problem);
