// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace plain {

struct ListingTrace
{
    std::size_t sampleCount = 0;
    std::uint32_t delay = 0;
    double interval = 0.0;
    double receiverX = 0.0;
};

/// False, after a line on the standard error stream, when the listing cannot be created.
bool writeListing(const std::string &path, const std::vector<ListingTrace> &traces);

/// Makes the SEG2 file of a listing and of the samples that `sampleAt` gives, or throws for. They
/// are printed to the standard output stream. False, after "EXCEPTION!" on the standard error
/// stream, at an error.
bool convertListing(const std::string &listingPath, const std::string &seg2Path,
                    std::optional<double> sourceX,
                    const std::function<float(std::size_t trace, std::size_t sample)> &sampleAt);

} // namespace plain
