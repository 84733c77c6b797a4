// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "plain/winsism.h"

#include "plain/text.h"

#include <fstream>
#include <iostream>
#include <map>

namespace plain {

namespace {

using Points = std::map<std::uint32_t, Receiver>;

std::string cleanLine(std::istream &stream)
{
    std::string line = nextLine(stream);
    if (!line.empty() && (line.back() == '\r' || line.back() == '\n'))
        line.pop_back();
    trimLeadingSpaces(line);
    return line;
}

bool refuse(const std::string &message, const std::string &heading)
{
    std::cerr << message << heading << std::endl;
    return false;
}

struct Section
{
    std::string heading;
    std::vector<std::string> numbers;
    std::vector<std::string> values;
};

bool readSection(std::istream &stream, const std::string &expected, Section &section)
{
    section.heading = cleanLine(stream);
    if (section.heading != expected)
        return refuse("Invalid header : ", section.heading);
    section.numbers = tokenize(cleanLine(stream), " ");
    section.values = tokenize(cleanLine(stream), " ");
    if (section.numbers.size() != section.values.size())
        return refuse("Invalid match : ", section.heading);
    return true;
}

std::uint32_t identifier(const std::string &text)
{
    return static_cast<std::uint32_t>(integer(text));
}

/// A section that lists points with one of their coordinates.
bool readPoints(std::istream &stream, const std::string &heading, double Receiver::*coordinate,
                Points &points)
{
    Section section;
    if (!readSection(stream, heading, section))
        return false;
    for (std::size_t i = 0; i < section.numbers.size(); ++i)
        points[identifier(section.numbers[i])].*coordinate = number(section.values[i]);
    return true;
}

/// A section that gives listed points, all of them, their other coordinate.
bool completePoints(std::istream &stream, const std::string &heading, double Receiver::*coordinate,
                    const std::string &badCount, const std::string &badNumber, Points &points)
{
    Section section;
    if (!readSection(stream, heading, section))
        return false;
    if (section.numbers.size() != points.size())
        return refuse(badCount, section.heading);
    for (std::size_t i = 0; i < section.numbers.size(); ++i) {
        if (points.count(identifier(section.numbers[i])) == 0)
            return refuse(badNumber, section.heading);
        points[identifier(section.numbers[i])].*coordinate = number(section.values[i]);
    }
    return true;
}

bool readTimes(std::istream &stream, Survey &survey)
{
    const std::string heading = cleanLine(stream);
    if (heading != "FBP times")
        return refuse("Invalid header : ", heading);
    for (const Shot &shot : survey.shots) {
        const std::vector<std::string> fields = tokenize(cleanLine(stream), " ");
        if (fields.size() != survey.spreads.size()) // none yet
            return refuse("Invalid times : ", heading);
        const auto shotIndex = static_cast<std::uint32_t>(survey.records.size());
        survey.records.push_back({0, shotIndex, shot.x, shot.elevation});
    }
    return true;
}

} // namespace

bool readWinsism(const std::string &path, Survey &survey)
{
    std::ifstream stream(path);
    if (!stream)
        return refuse("Cannot open file ", path);

    Points shots;
    if (!readPoints(stream, "Shot number, Shot elevation", &Receiver::elevation, shots)
        || !completePoints(stream, "Shot number, Shot distance", &Receiver::x,
                           "Invalid shot ids : ", "Invalid shot ids : ", shots))
        return false;
    for (const auto &[shotNumber, shot] : shots)
        survey.shots.push_back({shot.x, shot.elevation});

    Points receivers;
    if (!readPoints(stream, "Receiver number, receiver distance", &Receiver::x, receivers)
        || !completePoints(stream, "Receiver number, receiver elevation", &Receiver::elevation,
                           "Invalid phone list : ", "Invalid phone ids : ", receivers)
        || !readTimes(stream, survey))
        return false;
    survey.spreads.emplace_back();
    for (const auto &[receiverNumber, receiver] : receivers)
        survey.spreads.back().push_back(receiver);
    return true;
}

} // namespace plain
