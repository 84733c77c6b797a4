// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include <algorithm>
#include <limits>

/// The least and the greatest of some values; NaN is passed over.
struct Range
{
    double least = std::numeric_limits<double>::infinity();
    double greatest = -std::numeric_limits<double>::infinity();
};

inline bool isEmpty(const Range &range)
{
    return range.least > range.greatest;
}

inline void extend(Range &range, double value)
{
    range.least = std::min(range.least, value);
    range.greatest = std::max(range.greatest, value);
}
