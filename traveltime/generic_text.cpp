// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "traveltime/generic_text.h"

#include "traveltime/fields.h"
#include "traveltime/otte_writer.h"
#include "traveltime/project_files.h"
#include "traveltime/text.h"

std::int32_t readGenericTraveltimes(std::string path, std::vector<ShotTraveltimes> &traveltimes,
                                    std::vector<Spread> &spreads, const Shot &shot,
                                    std::uint32_t shotIndex)
{
    Report report = windowReport();
    std::vector<Shot> noShots;
    readIntoSurvey(traveltimes, spreads, noShots, [&](TraveltimeSurvey &survey) {
        SpreadIndex index;
        readGeneric(path, survey, shot, shotIndex, index, report);
    });
    return finish(report);
}

bool readGeneric(const std::string &path, TraveltimeSurvey &survey, const Shot &shot,
                 std::uint32_t shotIndex, SpreadIndex &index, Report &report)
{
    return attempt(report, [&] {
        TextFile file = loadText(path, report);
        if (!file.isOpen)
            fail(report, "the file cannot be opened", Window::goesOn);
        Spread receivers;
        std::vector<double> times;
        std::string line;
        std::vector<std::string> fields;
        while (nextLine(file, line, report)) {
            trimLeadingSpaces(line);
            splitNumbers(line, fields, ";", report);
            requireFields(fields, 3, report);
            receivers.push_back({readPosition(fields[0], report), readPosition(fields[1], report)});
            times.push_back(readTime(fields[2], 1.0, report));
        }

        const std::uint32_t spread = findOrAddSpread(survey.spreads, std::move(receivers), index);
        survey.traveltimes.push_back({spread, shotIndex, shot.x, shot.elevation, std::move(times)});
    });
}

std::int32_t convertGenericText(std::vector<std::string> files, std::string outputPath,
                                std::vector<double> shotXs, std::vector<double> shotElevations)
{
    return convertToOtte(
        [&](TraveltimeSurvey &survey, Report &report) {
            readGenericFiles(files, shotXs, shotElevations, survey, report);
        },
        outputPath);
}

bool readGenericFiles(const std::vector<std::string> &files, const std::vector<double> &shotXs,
                      const std::vector<double> &shotElevations, TraveltimeSurvey &survey,
                      Report &report)
{
    SpreadIndex index;
    for (std::size_t i = 0; i < files.size() && !report.error; ++i) {
        attempt(report, [&] {
            report.place = {files[i]};
            if (i >= shotXs.size() || i >= shotElevations.size()) {
                fail(report, "no shot position is given for this file");
                throwInvalidSubscript();
            }
            remarkOnPosition(shotXs[i], report);
            remarkOnPosition(shotElevations[i], report);
            survey.shots.push_back({shotXs[i], shotElevations[i], files[i]});
            readGeneric(files[i], survey, survey.shots.back(), static_cast<std::uint32_t>(i), index,
                        report);
        });
    }
    return !report.failure;
}
