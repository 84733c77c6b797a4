// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "fuzz/support.h"

#include "traveltime/generic_text.h"

#include <cstdlib>
#include <sstream>
#include <stdexcept>

namespace {

struct Input
{
    std::vector<std::string> paths;
    std::vector<std::string> texts; ///< empty for a missing file
    std::vector<double> shotXs;
    std::vector<double> shotElevations;
};

using ReadFile = std::function<void(std::size_t file, const Shot &shot, TraveltimeSurvey &survey)>;

std::int32_t readFiles(const Input &input, const ReadFile &read, TraveltimeSurvey &survey)
{
    for (std::size_t i = 0; i < input.paths.size(); ++i) {
        if (i >= input.shotXs.size())
            throw std::out_of_range("invalid vector subscript");
        const Shot shot{input.shotXs[i], input.shotElevations[i], input.paths[i]};
        survey.shots.push_back(shot);
        read(i, shot, survey);
    }
    return 0;
}

void readPlainly(const std::string &text, std::uint32_t index, const Shot &shot,
                 TraveltimeSurvey &survey)
{
    Spread receivers;
    std::vector<double> times;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        while (line.starts_with(' '))
            line.erase(0, 1);
        const std::vector<std::string> fields = enoughFields(fieldsOf(line, ";"), 3);
        receivers.push_back({std::atof(fields[0].c_str()), std::atof(fields[1].c_str())});
        times.push_back(std::atof(fields[2].c_str()));
    }
    survey.traveltimes.push_back(
        {plainSpreadIndex(survey.spreads, receivers), index, shot.x, shot.elevation, times});
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
        input.texts.push_back(section.name.ends_with("missing") ? "" : section.bytes);
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
        [&](const std::string &output, Problem &problem) {
            return convertGenericText(paths, output, xs, elevations, problem);
        },
        [&](TraveltimeSurvey &survey) {
            const auto read = [&](std::size_t i, const Shot &shot, TraveltimeSurvey &into) {
                readGenericTraveltimes(paths[i], into.traveltimes, into.spreads, shot,
                                       static_cast<std::uint32_t>(i));
            };
            return readFiles(input, read, survey);
        },
        [&](TraveltimeSurvey &survey) {
            const auto read = [&](std::size_t i, const Shot &shot, TraveltimeSurvey &into) {
                readPlainly(input.texts[i], static_cast<std::uint32_t>(i), shot, into);
            };
            return readFiles(input, read, survey);
        },
    });
}
