// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "field/winsism_picks.h"

#include "field/text_input.h"
#include "traveltime/text.h"

#include <map>
#include <set>

namespace {

/// Shots or receivers by their number.
using Positions = std::map<std::size_t, ReceiverPosition>;

bool nextContent(const std::string &expected, TextInput &input, Report &report)
{
    return nextContent(input, report)
           || fail(report, "the file ends where " + expected + " is expected");
}

/// The text without blanks and in lower case.
std::string squeezed(std::string_view text)
{
    std::string squeezed(text);
    std::erase_if(squeezed, [](char character) { return character == ' ' || character == '\t'; });
    for (char &character : squeezed)
        if (character >= 'A' && character <= 'Z')
            character = static_cast<char>(character - 'A' + 'a');
    return squeezed;
}

/// Goes to a section's heading. Capitals and blanks do not count in it.
bool nextHeading(const char *heading, TextInput &input, Report &report)
{
    const std::string expected = '"' + std::string(heading) + '"';
    if (!nextContent(expected, input, report))
        return false;
    return squeezed(input.line) == squeezed(heading)
           || fail(report, inQuotes(input.line) + " where " + expected + " is expected");
}

/// Reads a section's line of numbers: each may be there once.
bool readNumbers(std::vector<std::size_t> &numbers, TextInput &input, Report &report)
{
    if (!nextContent("a line of numbers", input, report))
        return false;
    splitAtBlanks(input);
    std::set<std::size_t> seen;
    for (const std::string_view field : input.fields) {
        std::size_t &number = numbers.emplace_back();
        if (!readCount(field, "a number", number, input, report))
            return false;
        if (!seen.insert(number).second)
            return fail(report, "number " + std::to_string(number) + " twice in this line");
    }
    return true;
}

/// Fails unless the numbers are those of the section before.
bool requireSame(const std::vector<std::size_t> &numbers, const Positions &entries, Report &report)
{
    for (const std::size_t number : numbers)
        if (!entries.contains(number))
            return fail(report,
                        "number " + std::to_string(number) + " is not in the section before");
    return numbers.size() == entries.size()
           || fail(report, counted(numbers.size(), "number") + ", but "
                               + std::to_string(entries.size()) + " in the section before");
}

/// Reads a section, whose values become a coordinate of the entries with its numbers.
bool readSection(const char *heading, double ReceiverPosition::*coordinate, bool isFirst,
                 Positions &entries, TextInput &input, Report &report)
{
    std::vector<std::size_t> numbers;
    if (!nextHeading(heading, input, report) || !readNumbers(numbers, input, report)
        || (!isFirst && !requireSame(numbers, entries, report))
        || !nextContent("a line of values", input, report))
        return false;
    splitAtBlanks(input);
    if (input.fields.size() != numbers.size())
        return fail(report, counted(input.fields.size(), "value") + ", one for each of "
                                + counted(numbers.size(), "number") + " expected");
    for (std::size_t i = 0; i < numbers.size(); ++i)
        if (!readNumber(input.fields[i], "a value", entries[numbers[i]].*coordinate, input, report))
            return false;
    return true;
}

/// Reads the line of times of a shot.
bool readTimes(const ReceiverPosition &shot, const std::string &name, const Positions &receivers,
               PickSurvey &picks, TextInput &input, Report &report)
{
    if (!nextContent("the line of times of " + name, input, report))
        return false;
    splitAtBlanks(input);
    if (input.fields.size() != receivers.size())
        return fail(report, counted(input.fields.size(), "time") + " for " + name
                                + ", one for each of " + counted(receivers.size(), "receiver")
                                + " expected");
    std::vector<Pick> record;
    for (const auto &[number, receiver] : receivers) {
        const std::string_view field = input.fields[record.size()];
        Pick &pick = record.emplace_back(Pick{receiver, 0.0, lineOf(report)});
        if (!readTime(field, powerOf(TimeUnit::milliseconds), pick.time, input, report))
            return false;
    }
    addShot(picks, {shot.x, shot.elevation, ""}, report.place, record);
    return true;
}

bool readSections(PickSurvey &picks, TextInput &input, Report &report)
{
    constexpr auto x = &ReceiverPosition::x;
    constexpr auto elevation = &ReceiverPosition::elevation;
    Positions shots;
    Positions receivers;
    if (!readSection("Shot number, Shot elevation", elevation, true, shots, input, report)
        || !readSection("Shot number, Shot distance", x, false, shots, input, report)
        || !readSection("Receiver number, receiver distance", x, true, receivers, input, report)
        || !readSection("Receiver number, receiver elevation", elevation, false, receivers, input,
                        report)
        || !nextHeading("FBP times", input, report))
        return false;
    for (const auto &[number, shot] : shots) {
        const std::string name = "shot " + std::to_string(number);
        if (!readTimes(shot, name, receivers, picks, input, report))
            return false;
    }
    if (!nextContent(input, report))
        return true;
    if (squeezed(input.line) == "shotnumber,shotelevation")
        return fail(report, "another survey begins here: put it into a file of its own");
    return fail(report, "the file has " + counted(shots.size(), "shot")
                            + ", but this line comes after the times of the last one");
}

} // namespace

bool readWinsismPicks(const std::string &path, const PickOptions &options, PickSurvey &picks,
                      Report &report)
{
    TextInput input;
    return loadInput(path, options, input, report) && readSections(picks, input, report)
           && endNumbers(input, report);
}
