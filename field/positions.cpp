// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "field/positions.h"

#include <bit>
#include <unordered_set>

namespace {

/// Equal for 0 and -0.
std::uint64_t hash(const ReceiverPosition &position)
{
    const auto bits = [](double value) { return std::bit_cast<std::uint64_t>(value + 0.0); };
    const std::uint64_t mixed =
        bits(position.x) * 0x9e3779b97f4a7c15 ^ bits(position.elevation) * 0xc2b2ae3d27d4eb4f;
    return mixed ^ mixed >> 32;
}

/// A shot and the receivers that it has.
struct Group
{
    std::uint32_t shot = 0;
    std::vector<Pick> picks = {};
    std::unordered_set<std::uint32_t> receivers = {};
};

} // namespace

std::uint32_t addPosition(PositionTable &table, const ReceiverPosition &position)
{
    const std::uint64_t key = hash(position);
    const auto [first, last] = table.byHash.equal_range(key);
    for (auto candidate = first; candidate != last; ++candidate) {
        const ReceiverPosition &known = table.positions[candidate->second];
        if (known.x == position.x && known.elevation == position.elevation)
            return candidate->second;
    }
    const auto index = static_cast<std::uint32_t>(table.positions.size());
    table.positions.push_back(position);
    table.byHash.emplace(key, index);
    return index;
}

void addShots(PickSurvey &picks, const std::vector<Measurement> &measurements,
              const PositionTable &table, const std::string &path)
{
    std::vector<Group> groups;
    std::unordered_map<std::uint32_t, std::size_t> latest; // of a shot's groups
    for (const Measurement &measurement : measurements) {
        const auto [entry, isNew] = latest.try_emplace(measurement.shot, groups.size());
        if (!isNew && groups[entry->second].receivers.contains(measurement.receiver))
            entry->second = groups.size();
        if (entry->second == groups.size())
            groups.push_back({measurement.shot});
        Group &group = groups[entry->second];
        group.receivers.insert(measurement.receiver);
        group.picks.push_back(measurement.pick);
    }
    for (const Group &group : groups) {
        const ReceiverPosition &shot = table.positions[group.shot];
        addShot(picks, {shot.x, shot.elevation, ""}, {path, group.picks.front().line}, group.picks);
    }
}
