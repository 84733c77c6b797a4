// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "fuzz/support.h"

#include "readers/seisimager.h"
#include "traveltime/drivers.h"

#include <cstdlib>
#include <sstream>

namespace {

using ReadFile = std::function<std::int32_t(std::size_t file, TraveltimeSurvey &survey)>;

/// All files, numbered through.
std::int32_t readFiles(std::size_t count, const ReadFile &read, TraveltimeSurvey &survey)
{
    for (std::size_t i = 0; i < count; ++i) {
        const std::int32_t result = read(i, survey);
        if (i < survey.traveltimes.size())
            survey.traveltimes[i].shotIndex = static_cast<std::uint32_t>(i);
        if (result != 0)
            return result;
    }
    return 0;
}

std::int32_t intOf(const std::string &text)
{
    return static_cast<std::int32_t>(std::strtoll(text.c_str(), nullptr, 10));
}

void readPlainly(const std::string &text, TraveltimeSurvey &survey)
{
    std::istringstream stream(text);
    const auto twoFields = [&stream] { return enoughFields(fieldsOf(nextLine(stream), " "), 2); };
    fieldsOf(nextLine(stream), " ");
    const std::int32_t shotCount = intOf(twoFields()[1]);
    for (std::int32_t shot = 0; shot < shotCount; ++shot) {
        const std::vector<std::string> shotLine = twoFields();
        const double x = std::atof(shotLine[0].c_str());
        const auto receiverCount = static_cast<std::uint32_t>(intOf(shotLine[1]));
        survey.shots.push_back({x, 0.0, ""});
        Spread receivers;
        std::vector<double> times;
        for (std::uint32_t i = 0; i < receiverCount; ++i) {
            const std::vector<std::string> fields = twoFields();
            receivers.push_back({std::atof(fields[0].c_str()), 0.0});
            times.push_back(std::atof(fields[1].c_str()) / 1000.0);
        }
        survey.traveltimes.push_back({plainSpreadIndex(survey.spreads, receivers),
                                      static_cast<std::uint32_t>(shot), x, 0.0, times});
    }
}

} // namespace

// A section is a file; an input of one is converted as a single file.
void check(const std::string &input)
{
    const std::vector<Section> files = sections(input);
    std::vector<std::string> paths;
    for (const Section &section : files)
        paths.push_back(writeSection(section, std::to_string(paths.size() + 1) + ".vs"));

    checkTraveltimes({
        [&](const std::string &output) {
            return paths.size() == 1 ? convertSeisImager(paths[0], output)
                                     : convertSeisImagerFiles(paths, output);
        },
        [&](const std::string &output, Problem &problem) {
            return paths.size() == 1 ? convertSeisImager(paths[0], output, problem)
                                     : convertSeisImagerFiles(paths, output, problem);
        },
        [&](TraveltimeSurvey &survey) {
            const auto read = [&](std::size_t i, TraveltimeSurvey &into) {
                return readSeisImagerTraveltimes(paths[i], into.traveltimes, into.spreads,
                                                 into.shots);
            };
            return readFiles(paths.size(), read, survey);
        },
        [&](TraveltimeSurvey &survey) {
            const auto read = [&](std::size_t i, TraveltimeSurvey &into) {
                if (files[i].name.ends_with("missing"))
                    return 1;
                readPlainly(files[i].bytes, into);
                return 0;
            };
            return readFiles(paths.size(), read, survey);
        },
    });
}
