// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "traveltime/generic_text.h"

#include "traveltime/otte_writer.h"
#include "traveltime/project_files.h"
#include "traveltime/text.h"

#include <stdexcept>

std::int32_t readGenericTraveltimes(std::string path, std::vector<ShotTraveltimes> &traveltimes,
                                    std::vector<Spread> &spreads, const Shot &shot,
                                    std::uint32_t shotIndex)
{
    SpreadIndex index;
    Problem untold;
    return readGenericTraveltimes(path, traveltimes, spreads, shot, shotIndex, index, untold);
}

std::int32_t readGenericTraveltimes(const std::string &path,
                                    std::vector<ShotTraveltimes> &traveltimes,
                                    std::vector<Spread> &spreads, const Shot &shot,
                                    std::uint32_t shotIndex, SpreadIndex &index, Problem &problem)
{
    TextFile file = loadText(path, problem);
    if (!file.isOpen)
        tell(problem, "the file cannot be opened");
    Spread receivers;
    std::vector<double> times;
    std::string line;
    std::vector<std::string> fields;
    while (nextLine(file, line, problem)) {
        trimLeadingSpaces(line);
        splitLine(line, fields, ";", problem);
        requireFields(fields, 3, problem);
        receivers.push_back({toDouble(fields[0]), toDouble(fields[1])});
        times.push_back(toDouble(fields[2]));
    }

    if (receivers.empty())
        problem.remark = "there are no receivers in this file";
    const std::uint32_t spreadIndex = findOrAddSpread(spreads, std::move(receivers), index);
    traveltimes.push_back({spreadIndex, shotIndex, shot.x, shot.elevation, std::move(times)});
    return 0;
}

std::int32_t convertGenericText(std::vector<std::string> files, std::string outputPath,
                                std::vector<double> shotXs, std::vector<double> shotElevations)
{
    Problem untold;
    return convertGenericText(files, outputPath, shotXs, shotElevations, untold);
}

std::int32_t convertGenericText(const std::vector<std::string> &files,
                                const std::string &outputPath, const std::vector<double> &shotXs,
                                const std::vector<double> &shotElevations, Problem &problem)
{
    TraveltimeSurvey survey;
    SpreadIndex index;
    Problem kept;
    for (std::size_t i = 0; i < files.size(); ++i) {
        problem = {files[i]};
        if (i >= shotXs.size() || i >= shotElevations.size()) {
            problem.detail = "no shot position is given for this file";
            throw std::out_of_range("invalid vector subscript");
        }
        const Shot &shot = survey.shots.emplace_back(Shot{shotXs[i], shotElevations[i], files[i]});
        const std::int32_t result =
            readGenericTraveltimes(files[i], survey.traveltimes, survey.spreads, shot,
                                   static_cast<std::uint32_t>(i), index, problem);
        if (result != 0)
            return result;
        keepFirst(kept, problem);
    }
    problem = kept;
    return writeOtteFile(outputPath, survey.traveltimes, survey.spreads, survey.shots, problem);
}
