// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "field/sgt_picks.h"

#include "field/exact_number.h"
#include "field/pick_output.h"
#include "field/positions.h"
#include "field/sgt_blocks.h"
#include "field/text_input.h"
#include "traveltime/text.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <utility>

namespace {

const BlockKind pointKind{"point", "#x y", {"x"}, {"x", "y", "z"}, false};
const BlockKind measurementKind{
    "measurement", "#s g t", {"s", "g", "t"}, {"s", "g", "t", "err"}, true};
const BlockKind topographyKind{"topography point", "", {}, {}, true};

/// A shot or geophone point as the file has it, in metres.
struct Point
{
    double x = 0.0;
    double y = 0.0; ///< in plan; 0 where the file has no such column
    double elevation = 0.0;
    std::size_t line = 0;
};

bool readPoints(std::vector<Point> &points, Block &block, SgtInput &file, Report &report)
{
    if (!readBlock(pointKind, block, file, report) || !requireColumns(pointKind, block, report))
        return false;
    const std::size_t x = find("x", block.columns);
    const std::size_t y = find("y", block.columns);
    const bool isSpatial = has("y", block.columns) && has("z", block.columns);
    const std::size_t elevation = has("z", block.columns) ? find("z", block.columns) : y;
    if (elevation == block.columns.size())
        return fail(report, {report.place.file, block.countLine},
                    "the columns are x and y, x and z or x, y and z, not " + block.names);
    for (std::size_t i = 0; i < block.count; ++i) {
        Point &point = points.emplace_back();
        if (!nextRow(i, block, file, report) || !readCell(x, "x", point.x, block, file, report)
            || !readCell(elevation, "the elevation", point.elevation, block, file, report)
            || (isSpatial && !readCell(y, "y", point.y, block, file, report)))
            return false;
        point.line = report.place.line;
    }
    return true;
}

/// Finds the points' positions along their line, which runs along x or along y; `indices` are those
/// of the points in the table.
bool placeAlongLine(const std::vector<Point> &points, PositionTable &table,
                    std::vector<std::uint32_t> &indices, const Place &place, Report &report)
{
    const auto firstElsewhere = [&](double Point::*coordinate) {
        return std::find_if(points.begin(), points.end(), [&](const Point &point) {
            return point.*coordinate != points.front().*coordinate;
        });
    };
    const auto turn = firstElsewhere(&Point::y);
    const bool isAlongX = turn == points.end();
    if (!isAlongX && firstElsewhere(&Point::x) != points.end())
        return fail(
            report, {place.file, turn->line},
            "y is " + exactNumber(turn->y) + " here and " + exactNumber(points.front().y)
                + " in line " + std::to_string(points.front().line)
                + ", and x differs, too: only points of a line along x or along y are read");
    if (!isAlongX)
        remark(report, RemarkKind::geometry, place,
               "x is " + exactNumber(points.front().x) + " everywhere and left out: y is taken as "
                   + "the position along the line");
    else if (!points.empty() && points.front().y != 0.0)
        remark(report, RemarkKind::geometry, place,
               "y is " + exactNumber(points.front().y) + " everywhere and left out");
    for (const Point &point : points)
        indices.push_back(addPosition(table, {isAlongX ? point.x : point.y, point.elevation}));
    return true;
}

/// Where the columns of the measurements are.
struct MeasurementColumns
{
    std::size_t shot = 0;
    std::size_t receiver = 0;
    std::size_t time = 0;
    std::size_t error = 0; ///< the number of columns when there is none
};

bool readPoint(std::size_t column, const char *name, std::uint32_t &point,
               const std::vector<std::uint32_t> &indices, TextInput &input, Report &report)
{
    std::size_t number = 0;
    if (!readCount(input.fields[column], name, number, input, report))
        return false;
    if (number < 1 || number > indices.size())
        return fail(report, std::string(name) + " is " + std::to_string(number)
                                + ", but the points are 1 to " + std::to_string(indices.size()));
    point = indices[number - 1];
    return true;
}

bool readMeasurement(const MeasurementColumns &columns, Measurement &measurement,
                     const std::vector<std::uint32_t> &indices, const PositionTable &table,
                     const Block &block, SgtInput &file, Report &report)
{
    TextInput &input = file.input;
    Pick &pick = measurement.pick;
    pick.line = lineOf(report);
    if (!readPoint(columns.shot, "s", measurement.shot, indices, input, report)
        || !readPoint(columns.receiver, "g", measurement.receiver, indices, input, report)
        || !readTime(input.fields[columns.time], block.columns[columns.time].power, pick.time,
                     input, report))
        return false;
    pick.receiver = table.positions[measurement.receiver];
    if (columns.error == block.columns.size() || sameWord(input.fields[columns.error], "nan"))
        return true;
    if (!readCell(columns.error, "err", pick.error, block, file, report))
        return false;
    pick.error *= block.columns[columns.error].isPercent ? pick.time / 100.0 : 1.0;
    return true;
}

bool readMeasurements(std::vector<Measurement> &measurements, Block &block,
                      const std::vector<std::uint32_t> &indices, const PositionTable &table,
                      SgtInput &file, Report &report)
{
    if (!readBlock(measurementKind, block, file, report)
        || !requireColumns(measurementKind, block, report))
        return false;
    const MeasurementColumns columns{find("s", block.columns), find("g", block.columns),
                                     find("t", block.columns), find("err", block.columns)};
    for (std::size_t i = 0; i < block.count; ++i)
        if (!nextRow(i, block, file, report)
            || !readMeasurement(columns, measurements.emplace_back(), indices, table, block, file,
                                report))
            return false;
    return true;
}

/// Passes over the points of a topography, if there are some. Nothing else may follow the
/// measurements.
bool readRest(const Block &measurements, SgtInput &file, Report &report)
{
    TextInput &input = file.input;
    if (!nextRow(file, report))
        return true;
    if (input.fields.size() != 1)
        return fail(report, "line " + std::to_string(measurements.countLine) + " says "
                                + counted(measurements.count, "measurement")
                                + ", but this line comes after the last one");
    file.isPending = true;
    Block block;
    if (!readBlock(topographyKind, block, file, report))
        return false;
    if (block.count > 0)
        remark(report, RemarkKind::notRead, {report.place.file, block.countLine},
               counted(block.count, "topography point")
                   + ": not read, as shots and receivers have elevations of their own");
    for (std::size_t i = 0; i < block.count; ++i) {
        if (!nextRow(file, report))
            return fail(report, "the file ends after " + std::to_string(i) + " of "
                                    + counted(block.count, "topography point"));
        double unused = 0.0;
        for (const std::string_view field : input.fields)
            if (!readNumber(field, "a topography point", unused, input, report))
                return false;
    }
    return !nextRow(file, report)
           || fail(report, "line " + std::to_string(block.countLine) + " says "
                               + counted(block.count, "topography point")
                               + ", but this line comes after the last one");
}

/// Remarks on points that no measurement names.
void remarkOnUnused(const std::vector<Measurement> &measurements, const PositionTable &table,
                    const Place &place, Report &report)
{
    std::vector<bool> isUsed(table.positions.size());
    for (const Measurement &measurement : measurements)
        isUsed[measurement.shot] = isUsed[measurement.receiver] = true;
    const auto unused = static_cast<std::size_t>(std::count(isUsed.begin(), isUsed.end(), false));
    if (unused > 0)
        remark(report, RemarkKind::notRead, place,
               counted(unused, "point") + " that no measurement names: not read");
}

/// Appends "s g t" or "s g t err" of a record's picks.
void appendRecord(std::string &text, std::size_t record, const PickSurvey &picks,
                  std::uint32_t shot, const std::vector<std::uint32_t> &receivers, bool hasErrors)
{
    const std::vector<double> &times = picks.survey.traveltimes[record].times;
    const std::vector<double> &errors = picks.errors[record];
    for (std::size_t i = 0; i < times.size(); ++i) {
        text += std::to_string(shot) + ' ' + std::to_string(receivers[i]) + ' ';
        appendExact(text, times[i]);
        if (hasErrors) {
            text += ' ';
            if (errors.empty() || std::isnan(errors[i]))
                text += "nan";
            else
                appendExact(text, errors[i]);
        }
        text += '\n';
    }
}

/// Positions in ascending x, and the number of each of the survey's in it, counted from 1.
struct NumberedPositions
{
    std::vector<ReceiverPosition> sorted = {};
    std::vector<std::uint32_t> shots = {};
    std::vector<std::vector<std::uint32_t>> spreads = {};
};

NumberedPositions numberPositions(const TraveltimeSurvey &survey)
{
    NumberedPositions numbered;
    PositionTable table;
    for (const Spread &receivers : survey.spreads) {
        std::vector<std::uint32_t> &numbers = numbered.spreads.emplace_back();
        for (const ReceiverPosition &receiver : receivers)
            numbers.push_back(addPosition(table, receiver));
    }
    for (const Shot &shot : survey.shots)
        numbered.shots.push_back(addPosition(table, {shot.x, shot.elevation}));

    std::vector<std::uint32_t> order(table.positions.size());
    std::iota(order.begin(), order.end(), 0U);
    std::sort(order.begin(), order.end(), [&](std::uint32_t a, std::uint32_t b) {
        const ReceiverPosition &left = table.positions[a];
        const ReceiverPosition &right = table.positions[b];
        return std::pair(left.x, left.elevation) < std::pair(right.x, right.elevation);
    });
    std::vector<std::uint32_t> numbers(order.size());
    for (const std::uint32_t index : order) {
        numbered.sorted.push_back(table.positions[index]);
        numbers[index] = static_cast<std::uint32_t>(numbered.sorted.size());
    }
    for (std::uint32_t &shot : numbered.shots)
        shot = numbers[shot];
    for (std::vector<std::uint32_t> &receivers : numbered.spreads)
        for (std::uint32_t &receiver : receivers)
            receiver = numbers[receiver];
    return numbered;
}

} // namespace

bool readSgtPicks(const std::string &path, const PickOptions &options, PickSurvey &picks,
                  Report &report)
{
    SgtInput file;
    PositionTable table;
    std::vector<std::uint32_t> indices;
    std::vector<Point> points;
    Block pointBlock;
    Block block;
    std::vector<Measurement> measurements;
    if (!loadInput(path, options, file.input, report)
        || !readPoints(points, pointBlock, file, report)
        || !placeAlongLine(points, table, indices, {path, pointBlock.countLine}, report)
        || !readMeasurements(measurements, block, indices, table, file, report)
        || !readRest(block, file, report) || !endNumbers(file.input, report))
        return false;
    remarkOnUnused(measurements, table, {path, pointBlock.countLine}, report);
    if (measurements.empty())
        remark(report, RemarkKind::noShots, "there are no shots in this file");
    addShots(picks, measurements, table, path);
    return true;
}

bool writeSgtPicks(const std::string &path, const PickSurvey &picks, Report &report)
{
    TextOutput output;
    if (!openOutput(path, output, report))
        return false;
    const TraveltimeSurvey &survey = picks.survey;
    const NumberedPositions positions = numberPositions(survey);
    std::string &text = output.text;
    text = std::to_string(positions.sorted.size()) + " # shot/geophone points\n#x y\n";
    for (const ReceiverPosition &position : positions.sorted) {
        appendExact(text, position.x);
        text += ' ';
        appendExact(text, position.elevation);
        text += '\n';
    }
    std::size_t count = 0;
    for (const ShotTraveltimes &record : survey.traveltimes)
        count += record.times.size();
    const bool hasErrors = std::any_of(picks.errors.begin(), picks.errors.end(),
                                       [](const auto &errors) { return !errors.empty(); });
    text += std::to_string(count) + " # measurements\n#s g t" + (hasErrors ? " err" : "") + '\n';
    for (std::size_t i = 0; i < survey.traveltimes.size(); ++i) {
        appendRecord(text, i, picks, positions.shots[i],
                     positions.spreads[survey.traveltimes[i].spreadIndex], hasErrors);
        passOn(output);
    }
    remarkOnShotsAtOnePlace(picks, report);
    return closeOutput(output, report);
}
