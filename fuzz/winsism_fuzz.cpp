// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "fuzz/support.h"

#include "readers/winsism.h"
#include "traveltime/drivers.h"

#include <cstdlib>
#include <iostream>
#include <sstream>

namespace {

/// Why a file is refused, less the heading that the message ends in.
struct Refused
{
    std::string reason;
};

using Points = std::map<std::uint32_t, ReceiverPosition>;

std::string cleanLine(std::istream &stream)
{
    std::string line = nextLine(stream);
    if (line.ends_with('\r'))
        line.pop_back();
    while (line.starts_with(' '))
        line.erase(0, 1);
    return line;
}

void readHeading(std::istream &stream, const std::string &expected, std::string &heading)
{
    heading = cleanLine(stream);
    if (heading != expected)
        throw Refused{"Invalid header : "};
}

/// The two lines below a heading.
std::vector<std::pair<std::uint32_t, double>> readPairs(std::istream &stream)
{
    const std::vector<std::string> numbers = fieldsOf(cleanLine(stream), " ");
    const std::vector<std::string> values = fieldsOf(cleanLine(stream), " ");
    if (numbers.size() != values.size())
        throw Refused{"Invalid match : "};
    std::vector<std::pair<std::uint32_t, double>> pairs;
    for (std::size_t i = 0; i < numbers.size(); ++i)
        pairs.emplace_back(
            static_cast<std::uint32_t>(std::strtoll(numbers[i].c_str(), nullptr, 10)),
            std::atof(values[i].c_str()));
    return pairs;
}

/// A section that gives listed points, all of them, their other coordinate.
void complete(std::istream &stream, Points &points, double ReceiverPosition::*coordinate,
              const std::string &countReason, const std::string &numberReason)
{
    const auto pairs = readPairs(stream);
    if (pairs.size() != points.size())
        throw Refused{countReason};
    for (const auto &[number, value] : pairs) {
        if (!points.contains(number))
            throw Refused{numberReason};
        points[number].*coordinate = value;
    }
}

void readPlainly(std::istream &stream, TraveltimeSurvey &survey, std::string &heading)
{
    Points shots;
    readHeading(stream, "Shot number, Shot elevation", heading);
    for (const auto &[number, elevation] : readPairs(stream))
        shots[number].elevation = elevation;
    readHeading(stream, "Shot number, Shot distance", heading);
    complete(stream, shots, &ReceiverPosition::x, "Invalid shot ids : ", "Invalid shot ids : ");
    for (const auto &[number, shot] : shots)
        survey.shots.push_back({shot.x, shot.elevation, ""});

    Points receivers;
    readHeading(stream, "Receiver number, receiver distance", heading);
    for (const auto &[number, x] : readPairs(stream))
        receivers[number].x = x;
    readHeading(stream, "Receiver number, receiver elevation", heading);
    complete(stream, receivers, &ReceiverPosition::elevation,
             "Invalid phone list : ", "Invalid phone ids : ");

    readHeading(stream, "FBP times", heading);
    for (const Shot &shot : survey.shots) {
        if (!fieldsOf(cleanLine(stream), " ").empty())
            throw Refused{"Invalid times : "};
        const auto index = static_cast<std::uint32_t>(survey.traveltimes.size());
        survey.traveltimes.push_back({0, index, shot.x, shot.elevation, {}});
    }
    survey.spreads.emplace_back();
    for (const auto &[number, receiver] : receivers)
        survey.spreads[0].push_back(receiver);
}

} // namespace

void check(const std::string &text)
{
    const std::string path = folder().write("line.xyz", text);
    checkTraveltimes({
        [&](const std::string &output) { return convertWinsism(path, output); },
        [&](const std::string &output, Problem &problem) {
            return convertWinsism(path, output, problem);
        },
        [&](TraveltimeSurvey &survey) {
            return readWinsismTraveltimes(path, survey.traveltimes, survey.spreads, survey.shots);
        },
        [&](TraveltimeSurvey &survey) {
            std::istringstream stream(text);
            std::string heading;
            try {
                readPlainly(stream, survey, heading);
                return 0;
            } catch (const Refused &refused) {
                std::cerr << refused.reason << heading << '\n';
                return 1;
            }
        },
    });
}
