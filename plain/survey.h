// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace plain {

struct Receiver
{
    double x = 0.0;
    double elevation = 0.0;
};

using Spread = std::vector<Receiver>;

struct Shot
{
    double x = 0.0;
    double elevation = 0.0;
    std::string name = {};
};

struct Record
{
    std::uint32_t spreadIndex = 0;
    std::uint32_t shotIndex = 0;
    double shotX = 0.0;
    double shotElevation = 0.0;
    std::vector<double> times = {};
};

struct Survey
{
    std::vector<Record> records;
    std::vector<Spread> spreads;
    std::vector<Shot> shots;
};

/// The index of the first spread of the same positions, which is added when there is none. A spread
/// without receivers is always added.
std::uint32_t findOrAddSpread(std::vector<Spread> &spreads, const Spread &receivers);

} // namespace plain
