// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

/// Where one receiver stood, in the length unit of the input file.
struct ReceiverPosition
{
    double x = 0.0;
    double elevation = 0.0;
};

/// The receivers of one layout, in recording order; shared by every shot recorded on it.
using Spread = std::vector<ReceiverPosition>;

/// Where one shot was fired, in the length unit of the input file.
struct Shot
{
    double x = 0.0;
    double elevation = 0.0;
    std::string name;
};

/// The first breaks picked for one shot.
struct ShotTraveltimes
{
    std::uint32_t spreadIndex = 0; ///< from 0, into the survey's spreads
    std::uint32_t shotIndex = 0;   ///< from 0
    double shotX = 0.0;
    double shotElevation = 0.0;
    std::vector<double> times; ///< seconds, one per receiver of the spread, in its order
};

/// A refraction survey as the readers fill it and the writer writes it.
///
/// A vendor reader that the window calls takes the input path and the three collections, in this
/// order, appends to them and returns 0 for success; content that it cannot read raises
/// std::out_of_range or std::invalid_argument with the texts that users of the program know. Each
/// reader has an inner form that does the same to a survey and a report, for callers that tell the
/// user what is wrong, and where; it returns whether the report has no failure.
struct TraveltimeSurvey
{
    std::vector<ShotTraveltimes> traveltimes;
    std::vector<Spread> spreads;
    std::vector<Shot> shots;
};

/// True when both layouts hold the same positions in the same order, compared exactly. `a` is a
/// spread of the survey and `b` the candidate: an empty `a` is the same as nothing, so a shot
/// without receivers never shares a spread.
bool sameSpread(const Spread &a, const Spread &b);

/// Maps a layout's hash to its index, so that only likely matches are compared. Belongs to one
/// collection of spreads and grows with it; starts empty whatever the collection holds.
struct SpreadIndex
{
    std::unordered_multimap<std::size_t, std::uint32_t> byHash;
    std::uint32_t indexed = 0;
};

/// Index of the first spread that is the same as `receivers`, which is appended when none is.
std::uint32_t findOrAddSpread(std::vector<Spread> &spreads, Spread receivers, SpreadIndex &index);

/// Lends the collections of a caller to `read` as one survey.
template <typename Read>
void readIntoSurvey(std::vector<ShotTraveltimes> &traveltimes, std::vector<Spread> &spreads,
                    std::vector<Shot> &shots, Read read)
{
    TraveltimeSurvey survey{std::move(traveltimes), std::move(spreads), std::move(shots)};
    read(survey);
    traveltimes = std::move(survey.traveltimes);
    spreads = std::move(survey.spreads);
    shots = std::move(survey.shots);
}
