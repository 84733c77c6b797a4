// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "fuzz/support.h"
#include "fuzz/traveltimes.h"
#include "plain/generic_text.h"
#include "traveltime/generic_text.h"

#include <sstream>
#include <stdexcept>

namespace {

struct Input
{
    std::vector<std::string> paths;
    std::vector<double> shotXs;
    std::vector<double> shotElevations;
};

/// All files with the reader that the window calls.
std::int32_t readFiles(const Input &input, TraveltimeSurvey &survey)
{
    for (std::size_t i = 0; i < input.paths.size(); ++i) {
        if (i >= input.shotXs.size())
            throw std::out_of_range("invalid vector subscript");
        const Shot shot{input.shotXs[i], input.shotElevations[i], input.paths[i]};
        survey.shots.push_back(shot);
        readGenericTraveltimes(input.paths[i], survey.traveltimes, survey.spreads, shot,
                               static_cast<std::uint32_t>(i));
    }
    return 0;
}

} // namespace

// A section is a file. Its name is the shot's position, "x elevation": without one, the user has
// cancelled the dialog for this file.
void check(const std::string &text)
{
    Input input;
    for (const Section &section : sections(text)) {
        const std::string fileName = "shot" + std::to_string(input.paths.size() + 1) + ".txt";
        input.paths.push_back(writeSection(section, fileName));
        double x = 0.0;
        double elevation = 0.0;
        if (std::istringstream(section.name) >> x >> elevation) {
            input.shotXs.push_back(x);
            input.shotElevations.push_back(elevation);
        }
    }
    const std::vector<std::string> &paths = input.paths;
    const std::vector<double> &xs = input.shotXs;
    const std::vector<double> &elevations = input.shotElevations;

    checkTraveltimes({
        [&](const std::string &output) {
            return convertGenericText(paths, output, xs, elevations);
        },
        [&](TraveltimeSurvey &survey) { return readFiles(input, survey); },
        [&](TraveltimeSurvey &survey, Report &report) {
            return readGenericFiles(paths, xs, elevations, survey, report);
        },
        [&](plain::Survey &survey) {
            plain::readGenericFiles(paths, xs, elevations, survey);
            return true;
        },
    });
}
