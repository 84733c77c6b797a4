// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "readers/seisimager.h"

namespace {

/// The fields of the next line, of which two must stand there.
void readTwoFields(std::istream &stream, std::vector<std::string> &fields, Problem &problem)
{
    std::string line;
    nextLine(stream, line, problem);
    splitLine(line, fields, " ", problem);
    requireFields(fields, 2, problem);
}

} // namespace

std::int32_t readSeisImagerTraveltimes(std::string path, std::vector<ShotTraveltimes> &traveltimes,
                                       std::vector<Spread> &spreads, std::vector<Shot> &shots)
{
    Problem untold;
    return readSeisImagerTraveltimes(path, traveltimes, spreads, shots, untold);
}

std::int32_t readSeisImagerTraveltimes(const std::string &path,
                                       std::vector<ShotTraveltimes> &traveltimes,
                                       std::vector<Spread> &spreads, std::vector<Shot> &shots,
                                       Problem &problem)
{
    std::ifstream stream = openText(path);
    if (!stream) {
        tell(problem, "the file cannot be opened");
        return 1;
    }

    std::string line;
    std::vector<std::string> fields;
    nextLine(stream, line, problem);
    splitLine(line, fields, " ", problem); // a first line of blanks alone is refused as well
    readTwoFields(stream, fields, problem);
    const std::int32_t shotCount = toInt(fields[1]);
    if (shotCount <= 0)
        problem.remark = "there are no shots in this file";

    for (std::int32_t shotNumber = 0; shotNumber < shotCount; ++shotNumber) {
        readTwoFields(stream, fields, problem);
        const double shotX = toDouble(fields[0]);
        const auto receiverCount = static_cast<std::uint32_t>(toInt(fields[1]));
        shots.push_back({shotX, 0.0, ""});

        Spread receivers;
        std::vector<double> times;
        for (std::uint32_t receiver = 0; receiver < receiverCount; ++receiver) {
            readTwoFields(stream, fields, problem);
            receivers.push_back({toDouble(fields[0]), 0.0});
            times.push_back(toDouble(fields[1]) / 1000.0);
        }

        const std::uint32_t spreadIndex = findOrAddSpread(spreads, receivers);
        traveltimes.push_back(
            {spreadIndex, static_cast<std::uint32_t>(shotNumber), shotX, 0.0, std::move(times)});
    }
    return 0;
}
