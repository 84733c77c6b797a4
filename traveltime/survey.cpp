// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "traveltime/survey.h"

#include <algorithm>
#include <bit>
#include <utility>

namespace {

/// Equal for spreads that are the same: 0 and -0 are.
std::size_t hash(const Spread &spread)
{
    std::uint64_t hash = spread.size();
    const auto mix = [&hash](double value) {
        hash = (hash ^ std::bit_cast<std::uint64_t>(value + 0.0)) * 0x9e3779b97f4a7c15;
        hash ^= hash >> 32;
    };
    for (const ReceiverPosition &receiver : spread) {
        mix(receiver.x);
        mix(receiver.elevation);
    }
    return static_cast<std::size_t>(hash);
}

} // namespace

bool sameSpread(const Spread &a, const Spread &b)
{
    const auto samePosition = [](const ReceiverPosition &left, const ReceiverPosition &right) {
        return left.x == right.x && left.elevation == right.elevation;
    };
    return !a.empty() && std::equal(a.begin(), a.end(), b.begin(), b.end(), samePosition);
}

std::uint32_t findOrAddSpread(std::vector<Spread> &spreads, Spread receivers, SpreadIndex &index)
{
    for (; index.indexed < spreads.size(); ++index.indexed)
        if (!spreads[index.indexed].empty()) // which is the same as none
            index.byHash.emplace(hash(spreads[index.indexed]), index.indexed);

    auto found = static_cast<std::uint32_t>(spreads.size());
    const auto [first, last] = index.byHash.equal_range(hash(receivers));
    for (auto candidate = first; candidate != last; ++candidate)
        if (candidate->second < found && sameSpread(spreads[candidate->second], receivers))
            found = candidate->second;
    if (found == spreads.size())
        spreads.push_back(std::move(receivers));
    return found;
}
