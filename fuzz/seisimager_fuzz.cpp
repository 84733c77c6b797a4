// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "fuzz/support.h"
#include "fuzz/traveltimes.h"
#include "plain/seisimager.h"
#include "readers/seisimager.h"
#include "traveltime/drivers.h"

namespace {

/// All files, numbered through, with the reader that the window calls.
std::int32_t readFiles(const std::vector<std::string> &paths, TraveltimeSurvey &survey)
{
    for (std::size_t i = 0; i < paths.size(); ++i) {
        const std::int32_t result =
            readSeisImagerTraveltimes(paths[i], survey.traveltimes, survey.spreads, survey.shots);
        if (i < survey.traveltimes.size())
            survey.traveltimes[i].shotIndex = static_cast<std::uint32_t>(i);
        if (result != 0)
            return result;
    }
    return 0;
}

} // namespace

// A section is a file; an input of one is converted as a single file.
void check(const std::string &input)
{
    std::vector<std::string> paths;
    for (const Section &section : sections(input))
        paths.push_back(writeSection(section, std::to_string(paths.size() + 1) + ".vs"));

    checkTraveltimes({
        [&](const std::string &output) {
            return paths.size() == 1 ? convertSeisImager(paths[0], output)
                                     : convertSeisImagerFiles(paths, output);
        },
        [&](TraveltimeSurvey &survey) { return readFiles(paths, survey); },
        [&](TraveltimeSurvey &survey, Report &report) {
            return readSeisImagerFiles(paths, survey, report);
        },
        [&](plain::Survey &survey) { return plain::readSeisImagerFiles(paths, survey); },
    });
}
