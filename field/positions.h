// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "field/picks.h"

#include <cstdint>
#include <unordered_map>
#include <vector>

/// Positions, each of them once, and where each of them is.
struct PositionTable
{
    std::vector<ReceiverPosition> positions = {};
    std::unordered_multimap<std::uint64_t, std::uint32_t> byHash = {};
};

/// The index of the position, which is appended when it is new. Positions are the same when their
/// numbers are.
std::uint32_t addPosition(PositionTable &table, const ReceiverPosition &position);

/// Picks of any shots in any order; shots and receivers are indices of positions.
struct Measurement
{
    std::uint32_t shot = 0;
    std::uint32_t receiver = 0;
    Pick pick = {};
};

/// Appends the shots of a file, in the order of their first measurements. Those of one shot may
/// stand anywhere; one more for a receiver that the shot at this place has begins another shot
/// there.
void addShots(PickSurvey &picks, const std::vector<Measurement> &measurements,
              const PositionTable &table, const std::string &path);
