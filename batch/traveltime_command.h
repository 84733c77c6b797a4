// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <vector>

/// A generic traveltime file with the position of its shot.
struct GenericShot
{
    std::string file;
    double x = 0.0;
    double elevation = 0.0;
};

// Each converts traveltime files into one OTTE file, tells a failure in one line and returns the
// exit status.

/// `format` is "geogiga", "winsism" (one file each) or "seisimager".
int runTraveltimes(const std::string &format, const std::vector<std::string> &files,
                   const std::string &outputPath);

int runGeneric(const std::vector<GenericShot> &shots, const std::string &outputPath);

/// Takes the shots from a list with a line "file;x;elevation" for each; a name that is not absolute
/// counts from the list's folder.
int runGenericList(const std::string &listPath, const std::string &outputPath);

/// Parses "x<separator>elevation"; false when these are not two numbers.
bool parsePosition(const std::string &text, char separator, GenericShot &shot);
