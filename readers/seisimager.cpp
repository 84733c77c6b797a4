// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "readers/seisimager.h"

namespace {

/// The fields of the next line, of which two must stand there.
void readTwoFields(TextFile &file, std::string &line, std::vector<std::string> &fields,
                   Problem &problem)
{
    nextLine(file, line, problem);
    splitLine(line, fields, " ", problem);
    requireFields(fields, 2, problem);
}

} // namespace

std::int32_t readSeisImagerTraveltimes(std::string path, std::vector<ShotTraveltimes> &traveltimes,
                                       std::vector<Spread> &spreads, std::vector<Shot> &shots)
{
    SpreadIndex index;
    Problem untold;
    return readSeisImagerTraveltimes(path, traveltimes, spreads, shots, index, untold);
}

std::int32_t readSeisImagerTraveltimes(const std::string &path,
                                       std::vector<ShotTraveltimes> &traveltimes,
                                       std::vector<Spread> &spreads, std::vector<Shot> &shots,
                                       SpreadIndex &index, Problem &problem)
{
    TextFile file = loadText(path, problem);
    if (!file.isOpen) {
        tell(problem, "the file cannot be opened");
        return 1;
    }

    std::string line;
    std::vector<std::string> fields;
    nextLine(file, line, problem);
    splitLine(line, fields, " ", problem); // a first line of blanks alone is refused as well
    readTwoFields(file, line, fields, problem);
    const std::int32_t shotCount = toInt(fields[1]);
    if (shotCount <= 0)
        problem.remark = "there are no shots in this file";

    for (std::int32_t shotNumber = 0; shotNumber < shotCount; ++shotNumber) {
        readTwoFields(file, line, fields, problem);
        const double shotX = toDouble(fields[0]);
        // -1 is 4294967295: the file ends before, with an error.
        const auto receiverCount = static_cast<std::uint32_t>(toInt(fields[1]));
        shots.push_back({shotX, 0.0, ""});

        Spread receivers;
        std::vector<double> times;
        for (std::uint32_t receiver = 0; receiver < receiverCount; ++receiver) {
            readTwoFields(file, line, fields, problem);
            receivers.push_back({toDouble(fields[0]), 0.0});
            times.push_back(toDouble(fields[1]) / 1000.0);
        }

        const std::uint32_t spreadIndex = findOrAddSpread(spreads, std::move(receivers), index);
        traveltimes.push_back(
            {spreadIndex, static_cast<std::uint32_t>(shotNumber), shotX, 0.0, std::move(times)});
    }
    return 0;
}
