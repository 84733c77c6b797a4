// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "traveltime/report.h"
#include "traveltime/survey.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

/// Where a shot or a pick was read.
struct Origin
{
    std::uint32_t file = 0; ///< index into PickSurvey::files
    std::uint32_t line = 0; ///< from 1
};

/// The picks of one or more files as one survey, in metres and seconds. Record i is that of shot i;
/// its spread holds the receivers that were picked for this shot, and layouts that are equal are
/// shared.
struct PickSurvey
{
    TraveltimeSurvey survey = {};
    std::vector<std::string> files = {};           ///< as the caller named them
    std::vector<Origin> shotOrigins = {};          ///< of each shot
    std::vector<std::vector<Origin>> origins = {}; ///< of each record's picks
    std::vector<std::vector<double>> errors = {}; ///< of each record's picks, in seconds; empty for
                                                  ///< a record whose file gives none
    SpreadIndex index = {};                       ///< of the survey's spreads
};

/// A receiver's pick for a shot.
struct Pick
{
    ReceiverPosition receiver = {};
    double time = 0.0; ///< seconds
    std::uint32_t line = 0;
    std::optional<double> error = {}; ///< seconds
};

/// Appends a shot with its picks; `path` becomes one of survey.files unless it is the last of them.
void addShot(PickSurvey &survey, const Shot &shot, const std::string &path, std::uint32_t line,
             const std::vector<Pick> &picks);

enum class TimeUnit {
    seconds,
    milliseconds
};

/// Where a generic file's shot was fired, as a list of shots says.
struct ShotPosition
{
    std::string file = {};
    double x = 0.0;
    double elevation = 0.0;
};

/// What the user says of files that do not say it themselves.
struct PickOptions
{
    std::optional<TimeUnit> timesIn = {};         ///< generic, Geogiga; seconds otherwise
    std::vector<ShotPosition> shotPositions = {}; ///< generic
};

// A reader of picks appends what a file holds to a survey and returns whether the report has no
// failure. It refuses, by file and line, what it does not understand, and remarks on what it leaves
// out or takes otherwise than written. A writer writes a whole survey to `path`.
using ReadPicks = bool(const std::string &path, const PickOptions &options, PickSurvey &survey,
                       Report &report);
using WritePicks = bool(const std::string &path, const PickSurvey &survey, Report &report);
