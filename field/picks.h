// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "traveltime/report.h"
#include "traveltime/survey.h"

#include <cstdint>
#include <functional>
#include <limits>
#include <optional>
#include <string>
#include <vector>

/// Where a shot or a pick was read.
struct Origin
{
    std::uint32_t file = 0; ///< index into PickSurvey::files
    std::uint32_t line = 0; ///< from 1
};

/// A receiver that a file lists for a shot with a mark that it was not picked.
struct NotPicked
{
    std::uint32_t record = 0;       ///< of its shot, from 0
    ReceiverPosition receiver = {}; ///< metres
    double time = 0.0;              ///< seconds, below 0; NaN where the file gives no number
    Origin origin = {};
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
    /// Of each record's picks, in seconds, NaN where the file gives none; empty for a record
    /// without any.
    std::vector<std::vector<double>> errors = {};
    std::vector<NotPicked> notPicked = {};
    SpreadIndex index = {}; ///< of the survey's spreads
};

/// The file and the line of a pick or a shot.
Place placeOf(const Origin &origin, const PickSurvey &picks);

/// A receiver's line for a shot; its position is in metres.
struct Pick
{
    ReceiverPosition receiver = {};
    double time = 0.0; ///< seconds; below 0 or NaN when it was not picked
    std::uint32_t line = 0;
    double error = std::numeric_limits<double>::quiet_NaN(); ///< seconds; NaN when unknown
};

/// Appends the shot at `place` with its picks; receivers that were not picked are left out. The
/// place's file becomes one of survey.files unless it is the last of them.
void addShot(PickSurvey &picks, const Shot &shot, const Place &place,
             const std::vector<Pick> &receivers);

enum class TimeUnit {
    seconds,
    milliseconds
};

/// Where a generic file's shot was fired, in metres, as a list of shots says.
struct ShotPosition
{
    std::string file = {};
    double x = 0.0;
    double elevation = 0.0;
};

/// What the user says of files that do not say it themselves, and who waits for them.
struct PickOptions
{
    std::optional<TimeUnit> timesIn = {};         ///< generic, Geogiga; seconds otherwise
    std::vector<ShotPosition> shotPositions = {}; ///< generic
    /// Is called now and then with the part of the file that is read, from 0 to 1.
    std::function<void(double fraction)> progress = {};
};

// A reader of picks appends what a file holds to a survey and returns whether the report has no
// failure. It refuses, by file and line, what it does not understand, and remarks on what it leaves
// out or takes otherwise than written. A writer writes a whole survey to `path`.
using ReadPicks = bool(const std::string &path, const PickOptions &options, PickSurvey &survey,
                       Report &report);
using WritePicks = bool(const std::string &path, const PickSurvey &survey, Report &report);
