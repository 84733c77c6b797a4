// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "traveltime/drivers.h"

#include "readers/geogiga.h"
#include "readers/seisimager.h"
#include "readers/winsism.h"
#include "traveltime/otte_writer.h"
#include "traveltime/project_files.h"
#include "traveltime/survey.h"

namespace {

using Reader = std::int32_t(const std::string &path, std::vector<ShotTraveltimes> &traveltimes,
                            std::vector<Spread> &spreads, std::vector<Shot> &shots,
                            Problem &problem);

std::int32_t convertFile(Reader &read, const std::string &inputPath, const std::string &outputPath,
                         Problem &problem)
{
    TraveltimeSurvey survey;
    problem = {inputPath};
    const std::int32_t result =
        read(inputPath, survey.traveltimes, survey.spreads, survey.shots, problem);
    if (result != 0)
        return result;
    return writeOtteFile(outputPath, survey.traveltimes, survey.spreads, survey.shots, problem);
}

} // namespace

std::int32_t convertGeogiga(std::string inputPath, std::string outputPath)
{
    Problem untold;
    return convertGeogiga(inputPath, outputPath, untold);
}

std::int32_t convertGeogiga(const std::string &inputPath, const std::string &outputPath,
                            Problem &problem)
{
    return convertFile(readGeogigaTraveltimes, inputPath, outputPath, problem);
}

std::int32_t convertWinsism(std::string inputPath, std::string outputPath)
{
    Problem untold;
    return convertWinsism(inputPath, outputPath, untold);
}

std::int32_t convertWinsism(const std::string &inputPath, const std::string &outputPath,
                            Problem &problem)
{
    return convertFile(readWinsismTraveltimes, inputPath, outputPath, problem);
}

std::int32_t convertSeisImager(std::string inputPath, std::string outputPath)
{
    Problem untold;
    return convertSeisImager(inputPath, outputPath, untold);
}

std::int32_t convertSeisImager(const std::string &inputPath, const std::string &outputPath,
                               Problem &problem)
{
    return convertSeisImagerFiles({inputPath}, outputPath, problem); // its record 0 has index 0
}

std::int32_t convertSeisImagerFiles(std::vector<std::string> files, std::string outputPath)
{
    Problem untold;
    return convertSeisImagerFiles(files, outputPath, untold);
}

std::int32_t convertSeisImagerFiles(const std::vector<std::string> &files,
                                    const std::string &outputPath, Problem &problem)
{
    TraveltimeSurvey survey;
    SpreadIndex index;
    Problem kept;
    for (std::size_t i = 0; i < files.size(); ++i) {
        problem = {files[i]};
        const std::int32_t result = readSeisImagerTraveltimes(
            files[i], survey.traveltimes, survey.spreads, survey.shots, index, problem);
        // Before the result is looked at, and only when so many records stand already.
        if (i < survey.traveltimes.size())
            survey.traveltimes[i].shotIndex = static_cast<std::uint32_t>(i);
        if (result != 0)
            return result;
        keepFirst(kept, problem);
    }
    problem = kept;
    return writeOtteFile(outputPath, survey.traveltimes, survey.spreads, survey.shots, problem);
}
