// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "traveltime/report.h"
#include "traveltime/survey.h"

#include <cstdint>
#include <string>
#include <vector>

/// Reads a Geo2X Winsism traveltime file (*.xyz) of five sections, each a heading and its lines:
/// "Shot number, Shot elevation", "Shot number, Shot distance", "Receiver number, receiver
/// distance" and "Receiver number, receiver elevation" with a line of numbers and a line of values;
/// "FBP times" with a line of times in milliseconds for every shot. Shots and receivers are kept in
/// ascending number; one spread holds all receivers. The three collections are emptied first.
///
/// A line of times must have as many fields as there are spreads when it is read, which is none:
/// the spread is added last, so that lines of times must be empty.
///
/// Returns 1 after one line on the standard error stream when the file cannot be opened or a
/// section is not as it must be; what was read before stays in `shots` and `traveltimes`.
std::int32_t readWinsismTraveltimes(std::string path, std::vector<ShotTraveltimes> &traveltimes,
                                    std::vector<Spread> &spreads, std::vector<Shot> &shots);
/// The same with a report, which prints the line; see finish().
bool readWinsism(const std::string &path, TraveltimeSurvey &survey, Report &report);
