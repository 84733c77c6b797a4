// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "traveltime/survey.h"

#include <algorithm>

bool sameSpread(const Spread &a, const Spread &b)
{
    const auto samePosition = [](const ReceiverPosition &left, const ReceiverPosition &right) {
        return left.x == right.x && left.elevation == right.elevation;
    };
    return !a.empty() && std::equal(a.begin(), a.end(), b.begin(), b.end(), samePosition);
}

std::uint32_t findOrAddSpread(std::vector<Spread> &spreads, const Spread &receivers)
{
    const auto found = std::find_if(spreads.begin(), spreads.end(), [&](const Spread &spread) {
        return sameSpread(spread, receivers);
    });
    const auto index = static_cast<std::uint32_t>(found - spreads.begin());
    if (found == spreads.end())
        spreads.push_back(receivers);
    return index;
}
