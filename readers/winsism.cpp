// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "readers/winsism.h"

#include <map>

namespace {

/// A heading with its line of numbers (integers modulo 2^32) and its line of values.
struct Section
{
    std::string heading;
    std::vector<std::uint32_t> numbers;
    std::vector<double> values;
};

/// Fails with the line that the window prints, after the detail that it does not.
bool refuse(const std::string &detail, const std::string &message, const std::string &heading,
            Report &report)
{
    print(report, message + heading);
    return fail(report, detail + ": " + message + heading);
}

void readNextLine(std::istream &stream, std::string &line, Report &report)
{
    readLine(stream, line);
    report.place.line += stream ? 1 : 0;
    if (stream.bad())
        fail(report, "the file cannot be read to its end", Window::goesOn);
}

void readFields(std::istream &stream, std::vector<std::string> &fields, Report &report)
{
    std::string line;
    readNextLine(stream, line, report);
    splitLine(line, fields, " ", report);
}

bool readHeading(std::istream &stream, const std::string &expected, std::string &heading,
                 Report &report)
{
    readNextLine(stream, heading, report);
    if (heading == expected)
        return true;
    return refuse((stream ? "\"" : "the file ends where \"") + expected + "\" is expected",
                  "Invalid header : ", heading, report);
}

bool readSection(std::istream &stream, const std::string &expected, Section &section,
                 Report &report)
{
    section = {};
    if (!readHeading(stream, expected, section.heading, report))
        return false;
    std::vector<std::string> numbers;
    std::vector<std::string> values;
    readFields(stream, numbers, report);
    const Place numbersPlace = report.place;
    readFields(stream, values, report);
    if (numbers.size() != values.size())
        return refuse(counted(numbers.size(), "number") + " and " + counted(values.size(), "value"),
                      "Invalid match : ", section.heading, report);
    const Place valuesPlace = std::exchange(report.place, numbersPlace);
    for (const std::string &number : numbers)
        section.numbers.push_back(static_cast<std::uint32_t>(readInteger(number, report)));
    report.place = valuesPlace;
    for (const std::string &value : values)
        section.values.push_back(readPosition(value, report));
    return true;
}

/// The first section of shots or receivers makes the table: its values are their first coordinate.
template <typename Entry>
void begin(std::map<std::uint32_t, Entry> &table, double Entry::*coordinate, const Section &section,
           Report &report)
{
    for (std::size_t i = 0; i < section.numbers.size(); ++i) {
        if (!table.try_emplace(section.numbers[i]).second)
            remark(report, RemarkKind::numbering,
                   "number " + std::to_string(section.numbers[i])
                       + " is listed twice: its last value counts");
        table[section.numbers[i]].*coordinate = section.values[i];
    }
}

/// The second section gives the entries their other coordinate. It must have as many numbers as the
/// table has entries, else `countMessage` is printed, and each must be in the table, else
/// `numberMessage` is.
template <typename Entry>
bool complete(std::map<std::uint32_t, Entry> &table, double Entry::*coordinate,
              const Section &section, const std::string &countMessage,
              const std::string &numberMessage, Report &report)
{
    --report.place.line; // what can be wrong now is the line of numbers, before the values
    if (section.numbers.size() != table.size())
        return refuse(counted(section.numbers.size(), "number") + ", "
                          + std::to_string(table.size()) + " expected",
                      countMessage, section.heading, report);
    for (std::size_t i = 0; i < section.numbers.size(); ++i) {
        const auto entry = table.find(section.numbers[i]);
        if (entry == table.end())
            return refuse(std::to_string(section.numbers[i]) + " is not listed above",
                          numberMessage, section.heading, report);
        entry->second.*coordinate = section.values[i];
    }
    ++report.place.line;
    return true;
}

bool readTimes(std::istream &stream, TraveltimeSurvey &survey, Report &report)
{
    std::string heading;
    if (!readHeading(stream, "FBP times", heading, report))
        return false;
    std::vector<std::string> fields;
    for (const Shot &shot : survey.shots) {
        readFields(stream, fields, report);
        if (fields.size() != survey.spreads.size())
            return refuse(counted(fields.size(), "time") + " in a line that must be empty",
                          "Invalid times : ", heading, report);
        const auto shotIndex = static_cast<std::uint32_t>(survey.traveltimes.size());
        ShotTraveltimes &record = survey.traveltimes.emplace_back(
            ShotTraveltimes{0, shotIndex, shot.x, shot.elevation, {}});
        for (const std::string &field : fields)
            record.times.push_back(readTime(field, 1000.0, report));
    }
    return true;
}

bool readSections(std::istream &stream, TraveltimeSurvey &survey, Report &report)
{
    Section section;
    std::map<std::uint32_t, Shot> shots;
    if (!readSection(stream, "Shot number, Shot elevation", section, report))
        return false;
    begin(shots, &Shot::elevation, section, report);
    if (!readSection(stream, "Shot number, Shot distance", section, report)
        || !complete(shots, &Shot::x, section,
                     "Invalid shot ids : ", "Invalid shot ids : ", report))
        return false;
    for (const auto &[number, shot] : shots)
        survey.shots.push_back(shot);

    std::map<std::uint32_t, ReceiverPosition> receivers;
    if (!readSection(stream, "Receiver number, receiver distance", section, report))
        return false;
    begin(receivers, &ReceiverPosition::x, section, report);
    if (!readSection(stream, "Receiver number, receiver elevation", section, report)
        || !complete(receivers, &ReceiverPosition::elevation, section,
                     "Invalid phone list : ", "Invalid phone ids : ", report)
        || !readTimes(stream, survey, report))
        return false;
    // Only now, so that the lines of times were compared with no spread.
    Spread &spread = survey.spreads.emplace_back();
    for (const auto &[number, receiver] : receivers)
        spread.push_back(receiver);
    return true;
}

void remarkOnLinesLeft(std::istream &stream, Report &report)
{
    const Rest rest = readRest(
        [&](std::string &line) {
            readNextLine(stream, line, report);
            return static_cast<bool>(stream);
        },
        "\t\r", report);
    remarkOnRest(rest, rest.firstLine == "Shot number, Shot elevation", report);
}

} // namespace

std::int32_t readWinsismTraveltimes(std::string path, std::vector<ShotTraveltimes> &traveltimes,
                                    std::vector<Spread> &spreads, std::vector<Shot> &shots)
{
    Report report;
    readIntoSurvey(traveltimes, spreads, shots,
                   [&](TraveltimeSurvey &survey) { readWinsism(path, survey, report); });
    return finish(report);
}

bool readWinsism(const std::string &path, TraveltimeSurvey &survey, Report &report)
{
    survey.shots.clear();
    survey.spreads.clear();
    survey.traveltimes.clear();
    report.place = {path};
    return attempt(report, [&] {
        std::ifstream stream = openText(path);
        if (!stream)
            refuse("no such file, or no permission", "Cannot open file ", path, report);
        else if (readSections(stream, survey, report))
            remarkOnLinesLeft(stream, report);
    });
}
