// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "plain/survey.h"

namespace plain {

namespace {

bool sameSpread(const Spread &a, const Spread &b)
{
    if (a.empty() || a.size() != b.size())
        return false;
    for (std::size_t i = 0; i < a.size(); ++i) {
        if (a[i].x != b[i].x || a[i].elevation != b[i].elevation)
            return false;
    }
    return true;
}

} // namespace

std::uint32_t findOrAddSpread(std::vector<Spread> &spreads, const Spread &receivers)
{
    for (std::size_t i = 0; i < spreads.size(); ++i) {
        if (sameSpread(spreads[i], receivers))
            return static_cast<std::uint32_t>(i);
    }
    spreads.push_back(receivers);
    return static_cast<std::uint32_t>(spreads.size() - 1);
}

} // namespace plain
