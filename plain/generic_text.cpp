// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "plain/generic_text.h"

#include "plain/text.h"

#include <fstream>
#include <stdexcept>

namespace plain {

namespace {

void readGeneric(const Shot &shot, std::uint32_t shotIndex, Survey &survey)
{
    std::ifstream stream(shot.name);
    Spread receivers;
    std::vector<double> times;
    std::string line;
    while (std::getline(stream, line)) {
        trimLeadingSpaces(line);
        const std::vector<std::string> fields = tokenize(line, ";", 3);
        receivers.push_back({number(fields[0]), number(fields[1])});
        times.push_back(number(fields[2]));
    }
    const std::uint32_t spreadIndex = findOrAddSpread(survey.spreads, receivers);
    survey.records.push_back({spreadIndex, shotIndex, shot.x, shot.elevation, times});
}

} // namespace

void readGenericFiles(const std::vector<std::string> &paths, const std::vector<double> &shotXs,
                      const std::vector<double> &shotElevations, Survey &survey)
{
    for (std::size_t i = 0; i < paths.size(); ++i) {
        if (i >= shotXs.size() || i >= shotElevations.size())
            throw std::out_of_range("invalid vector subscript");
        const Shot shot{shotXs[i], shotElevations[i], paths[i]};
        survey.shots.push_back(shot);
        readGeneric(shot, static_cast<std::uint32_t>(i), survey);
    }
}

} // namespace plain
