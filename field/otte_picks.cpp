// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "field/otte_picks.h"

#include "field/exact_number.h"
#include "field/pick_output.h"
#include "field/text_input.h"
#include "traveltime/text.h"

#include <algorithm>

namespace {

/// What stands in the file before its records.
struct Header
{
    bool hasEmptyLines = false; ///< between its lines, so that none stands for no values

    std::vector<Spread> spreads = {};
    std::vector<ReceiverPosition> shots = {};
    std::size_t shotLine = 0;      ///< of their elevations
    std::vector<bool> isShot = {}; ///< of each shot, whether a record names it
};

/// Goes to the next line with content, which holds what `name` says.
bool nextWord(const char *name, TextInput &input, Report &report)
{
    return nextContent(input, report)
           || fail(report, std::string("the file ends where ") + name + " is expected");
}

bool readWord(const char *word, TextInput &input, Report &report)
{
    const std::string name = '"' + std::string(word) + '"';
    if (!nextWord(name.c_str(), input, report))
        return false;
    return sameWord(input.line, word)
           || fail(report, inQuotes(input.line) + " where " + name + " is expected");
}

bool readIndex(const char *name, std::size_t &index, TextInput &input, Report &report)
{
    return nextWord(name, input, report) && readCount(input.line, name, index, input, report);
}

/// Goes to a line of values and splits it. It may be empty when there may be no values.
bool nextValues(const char *name, bool mayBeEmpty, TextInput &input, Report &report)
{
    do {
        if (!nextLine(input, report))
            return fail(report, std::string("the file ends where ") + name + " are expected");
    } while (input.line.starts_with('#') || (input.line.empty() && !mayBeEmpty));
    splitAt(';', input);
    if (input.fields.back().empty())
        input.fields.pop_back();
    return true;
}

/// Reads a line of x and one of elevations. Where there are no positions both are empty.
bool readPositions(const char *name, const char *elevationName, bool mayBeEmpty, Spread &positions,
                   TextInput &input, Report &report)
{
    if (!nextValues(name, mayBeEmpty, input, report)
        || (input.fields.empty() && !nextValues(elevationName, true, input, report)))
        return false;
    if (input.fields.empty())
        return true;
    for (const std::string_view field : input.fields)
        if (!readNumber(field, "a position", positions.emplace_back().x, input, report))
            return false;
    if (!nextValues(elevationName, false, input, report))
        return false;
    if (input.fields.size() != positions.size())
        return fail(report, counted(input.fields.size(), "value") + ": " + elevationName + " of "
                                + counted(positions.size(), "position") + " expected");
    for (std::size_t i = 0; i < positions.size(); ++i)
        if (!readNumber(input.fields[i], "an elevation", positions[i].elevation, input, report))
            return false;
    return true;
}

bool isNextLineEmpty(const TextInput &input)
{
    const std::size_t at =
        std::min(input.text.find_first_not_of(" \t", input.position), input.text.size());
    return std::string_view("\r\n").find(input.text[at]) != std::string_view::npos;
}

bool readHeader(Header &header, TextInput &input, Report &report)
{
    std::size_t spreadCount = 0;
    if (!readWord("otte", input, report))
        return false;
    header.hasEmptyLines = isNextLineEmpty(input);
    const bool mayBeEmpty = !header.hasEmptyLines;
    if (!readWord("1.0", input, report) || !readWord("2", input, report)
        || !readIndex("the number of spreads", spreadCount, input, report))
        return false;
    for (std::size_t i = 0; i < spreadCount; ++i)
        if (!readPositions("a spread's positions", "the elevations", mayBeEmpty,
                           header.spreads.emplace_back(), input, report))
            return false;
    if (!readPositions("the shots' positions", "the elevations", mayBeEmpty, header.shots, input,
                       report))
        return false;
    header.shotLine = report.place.line;
    header.isShot.resize(header.shots.size());
    return true;
}

/// Reads an index of one of `count` things.
bool readIndexBelow(std::size_t count, const char *name, const char *noun, std::size_t &index,
                    TextInput &input, Report &report)
{
    if (!readCount(input.line, name, index, input, report))
        return false;
    return index < count
           || fail(report, std::string(name) + " is " + std::to_string(index)
                               + ", counted from 0, but the file has " + counted(count, noun));
}

/// Reads a record, the first line of which is the current one.
bool readRecord(Header &header, PickSurvey &picks, TextInput &input, Report &report)
{
    std::size_t spread = 0;
    std::size_t shot = 0;
    const Place place = report.place;
    if (!readIndexBelow(header.spreads.size(), "a record's spread", "spread", spread, input, report)
        || !nextWord("a record's shot", input, report)
        || !readIndexBelow(header.shots.size(), "a record's shot", "shot", shot, input, report)
        || !nextValues("a record's times", header.spreads[spread].empty(), input, report))
        return false;
    const Spread &receivers = header.spreads[spread];
    if (input.fields.size() != receivers.size())
        return fail(report, counted(input.fields.size(), "time") + ": one for each of "
                                + counted(receivers.size(), "receiver") + " expected");
    std::vector<Pick> record;
    for (std::size_t i = 0; i < receivers.size(); ++i) {
        Pick &pick = record.emplace_back(Pick{receivers[i], 0.0, lineOf(report)});
        if (!readTime(input.fields[i], powerOf(TimeUnit::milliseconds), pick.time, input, report))
            return false;
    }
    header.isShot[shot] = true;
    const ReceiverPosition &position = header.shots[shot];
    addShot(picks, {position.x, position.elevation, ""}, place, record);
    return true;
}

template <typename Entries, typename Append>
void writeValues(TextOutput &output, const Entries &entries, Append append)
{
    for (const auto &entry : entries) {
        append(output.text, entry);
        output.text += ';';
    }
    output.text += '\n';
    passOn(output);
}

template <typename Positions>
void writePositions(TextOutput &output, const Positions &positions)
{
    writeValues(output, positions,
                [](std::string &text, const auto &position) { appendExact(text, position.x); });
    writeValues(output, positions, [](std::string &text, const auto &position) {
        appendExact(text, position.elevation);
    });
}

} // namespace

bool readOttePicks(const std::string &path, const PickOptions &options, PickSurvey &picks,
                   Report &report)
{
    TextInput input;
    Header header;
    if (!loadInput(path, options, input, report) || !readHeader(header, input, report))
        return false;
    if (header.shots.empty())
        remark(report, RemarkKind::noShots, "there are no shots in this file");
    while (nextContent(input, report))
        if (!readRecord(header, picks, input, report))
            return false;
    for (std::size_t i = 0; i < header.shots.size(); ++i) {
        if (header.isShot[i])
            continue;
        const Place place{path, header.shotLine};
        remark(report, RemarkKind::noReceivers, place,
               "no record has the times of shot " + std::to_string(i) + ", counted from 0");
        addShot(picks, {header.shots[i].x, header.shots[i].elevation, ""}, place, {});
    }
    return endNumbers(input, report);
}

bool writeOttePicks(const std::string &path, const PickSurvey &picks, Report &report)
{
    const TraveltimeSurvey &survey = picks.survey;
    TextOutput output;
    if (!openOutput(path, output, report))
        return false;
    output.text = "otte\n1.0\n2\n" + std::to_string(survey.spreads.size()) + '\n';
    for (const Spread &spread : survey.spreads)
        writePositions(output, spread);
    writePositions(output, survey.shots);
    for (const ShotTraveltimes &record : survey.traveltimes) {
        output.text += std::to_string(record.spreadIndex) + '\n';
        output.text += std::to_string(record.shotIndex) + '\n';
        writeValues(output, record.times,
                    [](std::string &text, double seconds) { appendExact(text, seconds, 3); });
    }
    remarkOnErrorsLeftOut(picks, report);
    return closeOutput(output, report);
}
