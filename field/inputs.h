// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "field/formats.h"
#include "field/request.h"

#include <string>

/// A file that the command reads.
struct Input
{
    std::string path = {};
    const Format *format = nullptr; ///< nullptr when the file is refused
    std::string knownBy = {};
};

/// Finds the format of a file; the report fails when it cannot be read or its format stays unknown.
Input openInput(const std::string &path, const Request &request, Report &report);

bool holdsPicks(const Input &input);

/// Appends the picks of a file to a survey; returns whether the report has no failure. A file that
/// is given again is not remarked on again.
bool readPicks(const Input &input, const PickOptions &options, PickSurvey &survey, Report &report);

/// The same with a bar of progress for the file.
bool readPicksWithBar(const Input &input, PickOptions options, PickSurvey &survey, Report &report);

/// What the command line and the list of shots say of files of picks; the report fails when the
/// list cannot be read.
PickOptions pickOptionsOf(const Request &request, Report &report);
