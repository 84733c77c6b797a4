// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "plain/seisimager.h"

#include "plain/text.h"

#include <fstream>

namespace plain {

namespace {

bool readSeisImager(const std::string &path, Survey &survey)
{
    std::ifstream stream(path);
    if (!stream)
        return false;
    tokenize(nextLine(stream), " ");
    const std::int32_t shotCount = integer(tokenize(nextLine(stream), " ", 2)[1]);
    for (std::int32_t shot = 0; shot < shotCount; ++shot) {
        const std::vector<std::string> shotFields = tokenize(nextLine(stream), " ", 2);
        const double shotX = number(shotFields[0]);
        survey.shots.push_back({shotX, 0.0});
        const auto receiverCount = static_cast<std::uint32_t>(integer(shotFields[1]));
        Spread receivers;
        std::vector<double> times;
        for (std::uint32_t i = 0; i < receiverCount; ++i) {
            const std::vector<std::string> fields = tokenize(nextLine(stream), " ", 2);
            receivers.push_back({number(fields[0]), 0.0});
            times.push_back(number(fields[1]) / 1000.0);
        }
        survey.records.push_back({findOrAddSpread(survey.spreads, receivers),
                                  static_cast<std::uint32_t>(shot), shotX, 0.0, times});
    }
    return true;
}

} // namespace

bool readSeisImagerFiles(const std::vector<std::string> &paths, Survey &survey)
{
    for (std::size_t i = 0; i < paths.size(); ++i) {
        const bool isRead = readSeisImager(paths[i], survey);
        if (i < survey.records.size())
            survey.records[i].shotIndex = static_cast<std::uint32_t>(i);
        if (!isRead)
            return false;
    }
    return true;
}

} // namespace plain
