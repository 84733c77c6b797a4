// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "readers/winsism.h"

#include <iostream>
#include <map>

namespace {

/// A heading with its line of numbers (integers modulo 2^32) and its line of values.
struct Section
{
    std::string heading;
    std::vector<std::uint32_t> numbers;
    std::vector<double> values;
};

std::int32_t refuse(const std::string &message, const std::string &heading, Problem &problem,
                    const std::string &detail = "")
{
    std::cerr << message << heading << std::endl;
    problem.detail = message + heading + detail;
    return 1;
}

void readFields(std::istream &stream, std::vector<std::string> &fields, Problem &problem)
{
    std::string line;
    readLine(stream, line);
    ++problem.line;
    splitLine(line, fields, " ", problem);
}

std::int32_t readHeading(std::istream &stream, const std::string &expected, std::string &heading,
                         Problem &problem)
{
    readLine(stream, heading);
    ++problem.line;
    if (heading != expected)
        return refuse("Invalid header : ", heading, problem, ", \"" + expected + "\" expected");
    return 0;
}

std::int32_t readSection(std::istream &stream, const std::string &expected, Section &section,
                         Problem &problem)
{
    section = {};
    if (readHeading(stream, expected, section.heading, problem) != 0)
        return 1;
    std::vector<std::string> numbers;
    std::vector<std::string> values;
    readFields(stream, numbers, problem);
    readFields(stream, values, problem);
    if (numbers.size() != values.size())
        return refuse("Invalid match : ", section.heading, problem,
                      ": " + counted(numbers.size(), "number") + ", "
                          + counted(values.size(), "value"));
    for (const std::string &number : numbers)
        section.numbers.push_back(static_cast<std::uint32_t>(toInt(number)));
    for (const std::string &value : values)
        section.values.push_back(toDouble(value));
    return 0;
}

/// Gives the entries of `table` that the section names their second coordinate. The section must
/// have as many numbers as the table has entries, else `countMessage` is written, and each must be
/// in the table, else `numberMessage` is.
template <typename Entry>
std::int32_t complete(std::map<std::uint32_t, Entry> &table, double Entry::*coordinate,
                      const Section &section, const std::string &countMessage,
                      const std::string &numberMessage, Problem &problem)
{
    --problem.line; // what can be wrong now is the line of numbers, in front of the values
    if (section.numbers.size() != table.size())
        return refuse(countMessage, section.heading, problem,
                      ": " + counted(section.numbers.size(), "number") + ", "
                          + std::to_string(table.size()) + " expected");
    for (std::size_t i = 0; i < section.numbers.size(); ++i) {
        const auto entry = table.find(section.numbers[i]);
        if (entry == table.end())
            return refuse(numberMessage, section.heading, problem,
                          ": " + std::to_string(section.numbers[i]) + " is not listed above");
        entry->second.*coordinate = section.values[i];
    }
    ++problem.line;
    return 0;
}

std::int32_t readTimes(std::istream &stream, std::vector<ShotTraveltimes> &traveltimes,
                       const std::vector<Spread> &spreads, const std::vector<Shot> &shots,
                       Problem &problem)
{
    std::string heading;
    if (readHeading(stream, "FBP times", heading, problem) != 0)
        return 1;
    std::vector<std::string> fields;
    for (const Shot &shot : shots) {
        readFields(stream, fields, problem);
        if (fields.size() != spreads.size())
            return refuse("Invalid times : ", heading, problem,
                          ": " + counted(fields.size(), "field") + ", "
                              + std::to_string(spreads.size()) + " expected");
        const auto shotIndex = static_cast<std::uint32_t>(traveltimes.size());
        ShotTraveltimes &record =
            traveltimes.emplace_back(ShotTraveltimes{0, shotIndex, shot.x, shot.elevation, {}});
        for (const std::string &field : fields)
            record.times.push_back(toDouble(field) / 1000.0);
    }
    return 0;
}

} // namespace

std::int32_t readWinsismTraveltimes(std::string path, std::vector<ShotTraveltimes> &traveltimes,
                                    std::vector<Spread> &spreads, std::vector<Shot> &shots)
{
    Problem untold;
    return readWinsismTraveltimes(path, traveltimes, spreads, shots, untold);
}

std::int32_t readWinsismTraveltimes(const std::string &path,
                                    std::vector<ShotTraveltimes> &traveltimes,
                                    std::vector<Spread> &spreads, std::vector<Shot> &shots,
                                    Problem &problem)
{
    shots.clear();
    spreads.clear();
    traveltimes.clear();

    std::ifstream stream = openText(path);
    if (!stream)
        return refuse("Cannot open file ", path, problem);

    Section section;
    std::map<std::uint32_t, Shot> shotTable;
    if (readSection(stream, "Shot number, Shot elevation", section, problem) != 0)
        return 1;
    for (std::size_t i = 0; i < section.numbers.size(); ++i)
        shotTable[section.numbers[i]].elevation = section.values[i];
    if (readSection(stream, "Shot number, Shot distance", section, problem) != 0
        || complete(shotTable, &Shot::x, section,
                    "Invalid shot ids : ", "Invalid shot ids : ", problem)
               != 0)
        return 1;
    for (const auto &[number, shot] : shotTable)
        shots.push_back(shot);

    std::map<std::uint32_t, ReceiverPosition> receiverTable;
    if (readSection(stream, "Receiver number, receiver distance", section, problem) != 0)
        return 1;
    for (std::size_t i = 0; i < section.numbers.size(); ++i)
        receiverTable[section.numbers[i]].x = section.values[i];
    if (readSection(stream, "Receiver number, receiver elevation", section, problem) != 0
        || complete(receiverTable, &ReceiverPosition::elevation, section,
                    "Invalid phone list : ", "Invalid phone ids : ", problem)
               != 0)
        return 1;
    Spread receivers;
    for (const auto &[number, receiver] : receiverTable)
        receivers.push_back(receiver);

    if (readTimes(stream, traveltimes, spreads, shots, problem) != 0)
        return 1;
    if (stream.bad())
        tell(problem, "the file cannot be read to its end");
    spreads.push_back(receivers);
    return 0;
}
