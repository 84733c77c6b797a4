// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "traveltime/drivers.h"

#include "readers/geogiga.h"
#include "readers/seisimager.h"
#include "readers/winsism.h"
#include "traveltime/otte_writer.h"
#include "traveltime/project_files.h"
#include "traveltime/text.h"

#include <algorithm>

namespace {

/// Remarks on the first file that has not one shot, when the shots of all are not numbered through.
void remarkOnNumbers(const std::vector<std::string> &files,
                     const std::vector<std::size_t> &shotCounts, const TraveltimeSurvey &survey,
                     Report &report)
{
    std::size_t numbered = 0;
    while (numbered < survey.traveltimes.size()
           && survey.traveltimes[numbered].shotIndex == numbered)
        ++numbered;
    const auto other = std::find_if(shotCounts.begin(), shotCounts.end(),
                                    [](std::size_t count) { return count != 1; });
    if (other == shotCounts.end() || numbered == survey.traveltimes.size())
        return;
    remark(report, RemarkKind::numbering,
           {files[static_cast<std::size_t>(other - shotCounts.begin())], 2},
           counted(*other, "shot")
               + " in one of several files: the shots are not numbered through, so that picks go "
                 "to another shot");
}

} // namespace

std::int32_t convertGeogiga(std::string inputPath, std::string outputPath)
{
    return convertToOtte(
        [&](TraveltimeSurvey &survey, Report &report) { readGeogiga(inputPath, survey, report); },
        outputPath);
}

std::int32_t convertWinsism(std::string inputPath, std::string outputPath)
{
    return convertToOtte(
        [&](TraveltimeSurvey &survey, Report &report) { readWinsism(inputPath, survey, report); },
        outputPath);
}

std::int32_t convertSeisImager(std::string inputPath, std::string outputPath)
{
    return convertSeisImagerFiles({inputPath}, outputPath); // its record 0 has index 0
}

std::int32_t convertSeisImagerFiles(std::vector<std::string> files, std::string outputPath)
{
    return convertToOtte([&](TraveltimeSurvey &survey,
                             Report &report) { readSeisImagerFiles(files, survey, report); },
                         outputPath);
}

bool readSeisImagerFiles(const std::vector<std::string> &files, TraveltimeSurvey &survey,
                         Report &report)
{
    SpreadIndex index;
    std::vector<std::size_t> shotCounts;
    for (std::size_t i = 0; i < files.size() && report.result == 0 && !report.error; ++i) {
        const std::size_t before = survey.traveltimes.size();
        readSeisImager(files[i], survey, index, report);
        // Also after a file that failed, and only when there are so many records by now.
        if (i < survey.traveltimes.size())
            survey.traveltimes[i].shotIndex = static_cast<std::uint32_t>(i);
        shotCounts.push_back(survey.traveltimes.size() - before);
    }
    if (!report.failure)
        remarkOnNumbers(files, shotCounts, survey, report);
    return !report.failure;
}
