// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "field/csv_picks.h"

#include "field/exact_number.h"
#include "field/pick_output.h"
#include "field/positions.h"
#include "field/text_input.h"
#include "traveltime/text.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace {

constexpr std::array columnNames = {
    "shot_x", "shot_elevation", "receiver_x", "receiver_elevation", "time", "err"};
constexpr std::size_t neededColumns = 5; ///< all but err

struct CsvFile
{
    TextInput input = {};
    char delimiter = ',';
    std::size_t columnCount = 0;
    std::array<std::size_t, columnNames.size()> columns = {}; ///< where each column is, or beyond
    std::vector<std::string> unquoted = {}; ///< the fields of a row with quotation marks
};

/// Adds what a line holds to the fields of its row; `isQuoted` while a quotation is open.
void addLine(std::string_view line, char delimiter, bool &isQuoted,
             std::vector<std::string> &fields)
{
    for (std::size_t i = 0; i < line.size(); ++i) {
        const bool isDoubled = isQuoted && line.substr(i, 2) == "\"\"";
        if (line[i] == '"' && !isDoubled)
            isQuoted = !isQuoted;
        else if (line[i] == delimiter && !isQuoted)
            fields.emplace_back();
        else
            fields.back() += line[i];
        i += isDoubled ? 1 : 0;
    }
}

/// Splits the row that begins in the current line. Quoted fields may go on in the next lines.
bool splitRow(CsvFile &file, Report &report)
{
    TextInput &input = file.input;
    if (input.line.find('"') == std::string_view::npos) {
        splitAt(file.delimiter, input);
        return true;
    }
    const Place place = report.place;
    bool isQuoted = false;
    file.unquoted = {""};
    addLine(input.wholeLine, file.delimiter, isQuoted, file.unquoted);
    while (isQuoted) {
        if (!nextLine(input, report))
            return fail(report, place, "a quotation mark that is not closed");
        file.unquoted.back() += '\n';
        addLine(input.wholeLine, file.delimiter, isQuoted, file.unquoted);
    }
    input.fields.clear();
    for (const std::string &field : file.unquoted)
        input.fields.push_back(trimmed(field));
    return true;
}

bool readHeading(CsvFile &file, Report &report)
{
    TextInput &input = file.input;
    if (!nextContent(input, report))
        return fail(report, "the file ends where its heading is expected");
    for (const char delimiter : {'\t', ';', ','})
        if (input.line.find(delimiter) != std::string_view::npos)
            file.delimiter = delimiter;
    if (!splitRow(file, report))
        return false;
    file.columnCount = input.fields.size();
    for (std::size_t i = 0; i < columnNames.size(); ++i) {
        const auto isColumn = [&](std::string_view field) {
            return sameWord(field, columnNames[i]);
        };
        const auto begin = input.fields.begin();
        const auto found = std::find_if(begin, input.fields.end(), isColumn);
        file.columns[i] = static_cast<std::size_t>(found - begin);
        if (found == input.fields.end() && i < neededColumns)
            return fail(report, std::string("the heading has no column \"") + columnNames[i] + '"');
        if (std::count_if(begin, input.fields.end(), isColumn) > 1)
            return fail(report, std::string("two columns \"") + columnNames[i] + '"');
    }
    return true;
}

/// Reads the row that is split.
bool readRow(Measurement &measurement, PositionTable &table, CsvFile &file, Report &report)
{
    TextInput &input = file.input;
    const auto field = [&](std::size_t column) { return input.fields[file.columns[column]]; };
    ReceiverPosition shot;
    Pick &pick = measurement.pick;
    pick.line = lineOf(report);
    if (!readNumber(field(0), "the shot's x", shot.x, input, report)
        || !readNumber(field(1), "the shot's elevation", shot.elevation, input, report)
        || !readNumber(field(2), "the receiver's x", pick.receiver.x, input, report)
        || !readNumber(field(3), "the receiver's elevation", pick.receiver.elevation, input, report)
        || !readTime(field(4), 0, pick.time, input, report))
        return false;
    measurement.shot = addPosition(table, shot);
    measurement.receiver = addPosition(table, pick.receiver);
    const bool hasError = file.columns[neededColumns] < file.columnCount && !field(5).empty()
                          && !sameWord(field(5), "nan");
    return !hasError || readNumber(field(5), "err", pick.error, input, report);
}

bool readRows(std::vector<Measurement> &measurements, PositionTable &table, CsvFile &file,
              Report &report)
{
    while (nextContent(file.input, report)) {
        const std::size_t firstLine = report.place.line;
        if (!splitRow(file, report))
            return false;
        const std::size_t lastLine = std::exchange(report.place.line, firstLine);
        const std::size_t size = file.input.fields.size();
        if (size != file.columnCount)
            return fail(report, counted(size, "field") + ", but the heading has "
                                    + std::to_string(file.columnCount));
        if (!readRow(measurements.emplace_back(), table, file, report))
            return false;
        report.place.line = lastLine;
    }
    return true;
}

/// Appends a position and the delimiter after it.
void appendPosition(std::string &text, double x, double elevation)
{
    appendExact(text, x);
    text += ',';
    appendExact(text, elevation);
    text += ',';
}

} // namespace

bool readCsvPicks(const std::string &path, const PickOptions &options, PickSurvey &picks,
                  Report &report)
{
    CsvFile file;
    std::vector<Measurement> measurements;
    PositionTable table;
    if (!loadInput(path, options, file.input, report) || !readHeading(file, report)
        || !readRows(measurements, table, file, report) || !endNumbers(file.input, report))
        return false;
    if (measurements.empty())
        remark(report, RemarkKind::noShots, "there are no shots in this file");
    addShots(picks, measurements, table, path);
    return true;
}

bool writeCsvPicks(const std::string &path, const PickSurvey &picks, Report &report)
{
    TextOutput output;
    if (!openOutput(path, output, report))
        return false;
    const TraveltimeSurvey &survey = picks.survey;
    const bool hasErrors = std::any_of(picks.errors.begin(), picks.errors.end(),
                                       [](const auto &errors) { return !errors.empty(); });
    std::string &text = output.text;
    text = "shot_x,shot_elevation,receiver_x,receiver_elevation,time";
    text += hasErrors ? ",err\r\n" : "\r\n";
    for (std::size_t record = 0; record < survey.traveltimes.size(); ++record) {
        const ShotTraveltimes &traveltimes = survey.traveltimes[record];
        const Spread &receivers = survey.spreads[traveltimes.spreadIndex];
        const std::vector<double> &errors = picks.errors[record];
        std::string shot;
        appendPosition(shot, traveltimes.shotX, traveltimes.shotElevation);
        for (std::size_t i = 0; i < receivers.size(); ++i) {
            text += shot;
            appendPosition(text, receivers[i].x, receivers[i].elevation);
            appendExact(text, traveltimes.times[i]);
            if (hasErrors)
                text += ',';
            if (!errors.empty() && !std::isnan(errors[i]))
                appendExact(text, errors[i]);
            text += "\r\n";
        }
        passOn(output);
    }
    remarkOnShotsAtOnePlace(picks, report);
    return closeOutput(output, report);
}
