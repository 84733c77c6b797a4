// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "readers/winsism.h"

#include "traveltime/fields.h"
#include "traveltime/text.h"

#include <algorithm>
#include <map>
#include <utility>

namespace {

/// The file as it is read.
struct WinsismFile
{
    std::ifstream stream;
    std::string heading = {}; ///< of the section that is being read
};

/// The line of numbers (integers modulo 2^32) of a section, and its line of values.
struct Section
{
    Place numbersPlace = {};
    std::vector<std::uint32_t> numbers = {};
    std::vector<double> values = {};
};

/// Fails with the line that the window prints, after the detail that it does not.
bool refuse(const std::string &detail, const std::string &message, const WinsismFile &file,
            Report &report)
{
    print(report, message + file.heading);
    const std::string ending = report.place.line == 0 ? "the file is empty: " : "the file ends: ";
    return fail(report, (file.stream ? "" : ending) + detail + ": " + message + file.heading);
}

void readNextLine(WinsismFile &file, std::string &line, Report &report)
{
    readLine(file.stream, line);
    report.place.line += file.stream ? 1 : 0;
    if (file.stream.bad())
        fail(report, "the file cannot be read to its end", Window::goesOn);
}

void readFields(WinsismFile &file, std::vector<std::string> &fields, Report &report)
{
    std::string line;
    readNextLine(file, line, report);
    splitLine(line, fields, " ", report);
}

bool readHeading(WinsismFile &file, const std::string &expected, Report &report)
{
    readNextLine(file, file.heading, report);
    return file.heading == expected
           || refuse('"' + expected + "\" is expected", "Invalid header : ", file, report);
}

/// Remarks on the first number that is listed more than once.
void remarkOnRepeats(std::vector<std::uint32_t> numbers, Report &report)
{
    std::sort(numbers.begin(), numbers.end());
    const auto repeat = std::adjacent_find(numbers.begin(), numbers.end());
    if (repeat != numbers.end())
        remark(report, RemarkKind::numbering,
               "number " + std::to_string(*repeat)
                   + " is listed more than once: its last value counts");
}

bool readSection(WinsismFile &file, const std::string &expected, Section &section, Report &report)
{
    section = {};
    if (!readHeading(file, expected, report))
        return false;
    std::vector<std::string> numbers;
    std::vector<std::string> values;
    readFields(file, numbers, report);
    section.numbersPlace = report.place;
    readFields(file, values, report);
    if (numbers.size() != values.size())
        return refuse(counted(numbers.size(), "number") + " and " + counted(values.size(), "value"),
                      "Invalid match : ", file, report);
    std::swap(report.place, section.numbersPlace);
    for (const std::string &number : numbers)
        section.numbers.push_back(static_cast<std::uint32_t>(readInteger(number, report)));
    remarkOnRepeats(section.numbers, report);
    std::swap(report.place, section.numbersPlace);
    for (const std::string &value : values)
        section.values.push_back(readPosition(value, report));
    return true;
}

/// The first section of shots or receivers makes the table: its values are their first coordinate.
template <typename Entry>
std::map<std::uint32_t, Entry> begin(double Entry::*coordinate, const Section &section)
{
    std::map<std::uint32_t, Entry> table;
    for (std::size_t i = 0; i < section.numbers.size(); ++i)
        table[section.numbers[i]].*coordinate = section.values[i];
    return table;
}

/// The second section gives the entries their other coordinate. It must have as many numbers as the
/// table has entries, else `countMessage` is printed, and each must be in the table, else
/// `numberMessage` is.
template <typename Entry>
bool complete(std::map<std::uint32_t, Entry> &table, double Entry::*coordinate,
              const Section &section, const std::string &countMessage,
              const std::string &numberMessage, const WinsismFile &file, Report &report)
{
    const Place valuesPlace = std::exchange(report.place, section.numbersPlace);
    if (section.numbers.size() != table.size())
        return refuse(counted(section.numbers.size(), "number") + ", "
                          + std::to_string(table.size()) + " expected",
                      countMessage, file, report);
    for (std::size_t i = 0; i < section.numbers.size(); ++i) {
        const auto entry = table.find(section.numbers[i]);
        if (entry == table.end())
            return refuse(std::to_string(section.numbers[i]) + " is not listed above",
                          numberMessage, file, report);
        entry->second.*coordinate = section.values[i];
    }
    report.place = valuesPlace;
    return true;
}

bool readTimes(WinsismFile &file, TraveltimeSurvey &survey, Report &report)
{
    if (!readHeading(file, "FBP times", report))
        return false;
    std::vector<std::string> fields;
    for (const Shot &shot : survey.shots) {
        readFields(file, fields, report);
        if (fields.size() != survey.spreads.size())
            return refuse(counted(fields.size(), "time") + " in a line that must be empty",
                          "Invalid times : ", file, report);
        const auto shotIndex = static_cast<std::uint32_t>(survey.traveltimes.size());
        ShotTraveltimes &record = survey.traveltimes.emplace_back(
            ShotTraveltimes{0, shotIndex, shot.x, shot.elevation, {}});
        for (const std::string &field : fields)
            record.times.push_back(readTime(field, 1000.0, report));
    }
    return true;
}

bool readSections(WinsismFile &file, TraveltimeSurvey &survey, Report &report)
{
    Section section;
    if (!readSection(file, "Shot number, Shot elevation", section, report))
        return false;
    std::map<std::uint32_t, Shot> shots = begin(&Shot::elevation, section);
    if (!readSection(file, "Shot number, Shot distance", section, report)
        || !complete(shots, &Shot::x, section, "Invalid shot ids : ", "Invalid shot ids : ", file,
                     report))
        return false;
    for (const auto &[number, shot] : shots)
        survey.shots.push_back(shot);

    if (!readSection(file, "Receiver number, receiver distance", section, report))
        return false;
    std::map<std::uint32_t, ReceiverPosition> receivers = begin(&ReceiverPosition::x, section);
    if (!readSection(file, "Receiver number, receiver elevation", section, report)
        || !complete(receivers, &ReceiverPosition::elevation, section,
                     "Invalid phone list : ", "Invalid phone ids : ", file, report)
        || !readTimes(file, survey, report))
        return false;
    // Only now, so that the lines of times were compared with no spread.
    Spread &spread = survey.spreads.emplace_back();
    for (const auto &[number, receiver] : receivers)
        spread.push_back(receiver);
    return true;
}

void remarkOnLinesLeft(WinsismFile &file, Report &report)
{
    const Rest rest = readRest(
        [&](std::string &line) {
            readNextLine(file, line, report);
            return static_cast<bool>(file.stream);
        },
        " \t\r", report);
    remarkOnRest(rest, rest.firstLine == "Shot number, Shot elevation", report);
}

} // namespace

std::int32_t readWinsismTraveltimes(std::string path, std::vector<ShotTraveltimes> &traveltimes,
                                    std::vector<Spread> &spreads, std::vector<Shot> &shots)
{
    Report report = windowReport();
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
        WinsismFile file{openText(path)};
        if (!file.stream) {
            print(report, "Cannot open file " + path);
            fail(report, "the file cannot be opened");
        } else if (readSections(file, survey, report)) {
            remarkOnLinesLeft(file, report);
        }
    });
}
