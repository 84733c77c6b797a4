// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "field/seg2_strings.h"

#include "field/numbers.h"
#include "field/record_time.h"
#include "field/text_input.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <utility>
#include <vector>

#include <QtEndian>

namespace {

constexpr char dateKey[] = "ACQUISITION_DATE";
constexpr char timeKey[] = "ACQUISITION_TIME";
constexpr char unitsKey[] = "UNITS";
constexpr char kindKey[] = "TRACE_TYPE";
constexpr char deadKind[] = "DEAD";
constexpr std::string_view blanks = " \t\r\n";

std::string_view withoutBlanks(std::string_view text)
{
    text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
    return text.substr(0, text.find_last_not_of(blanks) + 1);
}

/// A string less its end and what fills it up.
std::string_view withoutEnd(std::string_view text, const std::string &end)
{
    const std::string visibleEnd = end.substr(0, end.find('\0'));
    text = text.substr(0, text.find_last_not_of('\0') + 1);
    if (text.ends_with(visibleEnd))
        text.remove_suffix(visibleEnd.size());
    return text.substr(0, text.find('\0'));
}

void addString(std::string_view text, const Seg2Ends &ends, Seg2Strings &strings)
{
    text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
    const std::size_t keyEnd = std::min(text.find_first_of(blanks), text.size());
    if (keyEnd == 0)
        return;
    const std::string_view rest = text.substr(keyEnd);
    std::string value(rest.substr(std::min(rest.find_first_not_of(" \t"), rest.size())));
    if (!ends.line.empty() && ends.line != "\n")
        for (std::size_t at = 0; (at = value.find(ends.line, at)) != std::string::npos; ++at)
            value.replace(at, ends.line.size(), 1, '\n');
    const auto [before, isNew] = strings.try_emplace(std::string(text.substr(0, keyEnd)), value);
    if (!isNew && before->second != value)
        before->second.append("\n").append(value);
}

/// Moves a string's value out of the others; none when there is no such string or no value.
std::optional<std::string> take(Seg2Strings &strings, const std::string &key)
{
    const auto node = strings.extract(key);
    const std::string value(node.empty() ? "" : withoutBlanks(node.mapped()));
    return value.empty() ? std::nullopt : std::optional(value);
}

/// Keeps the first refusal.
void refuse(std::string &refusal, const std::string &key, const std::string &value,
            const std::string &expected)
{
    if (refusal.empty())
        refusal = key + " is \"" + value + "\", but should be " + expected;
}

std::optional<double> takeNumber(Seg2Strings &strings, const std::string &key,
                                 const std::string &expected, std::string &refusal)
{
    const auto value = take(strings, key);
    const auto number = value ? plainNumber(*value) : std::nullopt;
    if (value && !number)
        refuse(refusal, key, *value, expected);
    return number;
}

std::optional<std::int32_t> takeWholeNumber(Seg2Strings &strings, const std::string &key,
                                            std::string &refusal)
{
    const auto value = take(strings, key);
    const double number = value ? plainNumber(*value).value_or(0.5) : 0.0;
    if (number != std::floor(number) || number < std::numeric_limits<std::int32_t>::min()
        || number > std::numeric_limits<std::int32_t>::max()) {
        refuse(refusal, key, *value, "a whole number of 32 bits");
        return std::nullopt;
    }
    return value ? std::optional(static_cast<std::int32_t>(number)) : std::nullopt;
}

std::optional<Location> takeLocation(Seg2Strings &strings, const std::string &key,
                                     const LengthUnit &unit, std::string &refusal)
{
    const auto value = take(strings, key);
    if (!value)
        return std::nullopt;
    Location location = {};
    std::size_t count = 0;
    bool isWhole = true;
    for (std::string_view rest = *value; isWhole && !rest.empty(); rest = withoutBlanks(rest)) {
        const std::size_t end = std::min(rest.find_first_of(blanks), rest.size());
        const auto number = plainNumber(rest.substr(0, end));
        isWhole = number && count < location.size();
        if (isWhole)
            location[count++] = *number * unit.metres / unit.units;
        rest.remove_prefix(end);
    }
    if (isWhole)
        return location;
    refuse(refusal, key, *value, "one to three numbers");
    return std::nullopt;
}

/// A date or a time, empty where the string has no value; `otherwise` without such a string. What
/// `read` does not understand stays, and `isUnderstood` becomes false.
std::string takeTime(Seg2Strings &strings, const std::string &key,
                     std::optional<std::string> (*read)(std::string_view),
                     const std::string &otherwise, bool &isUnderstood)
{
    if (!strings.contains(key))
        return otherwise;
    const auto value = take(strings, key);
    if (!value)
        return "";
    const auto time = read(*value);
    if (!time) {
        strings[key] = *value;
        isUnderstood = false;
    }
    return time.value_or("");
}

std::string notUnderstood(const Seg2Strings &strings)
{
    const auto date = strings.find(dateKey);
    const auto time = strings.find(timeKey);
    const auto &[key, value] = *(date != strings.end() ? date : time);
    return key + " \"" + value + "\" is not understood: day/month/year and hh:mm:ss are";
}

constexpr std::array unitWords = {
    std::pair{"meters", LengthUnit{1.0, 1.0}},
    std::pair{"metres", LengthUnit{1.0, 1.0}},
    std::pair{"feet", LengthUnit{381.0, 1250.0}},
    std::pair{"inches", LengthUnit{127.0, 5000.0}},
    std::pair{"centimeters", LengthUnit{1.0, 100.0}},
};

void readUnits(Seg2Strings &strings, Seg2Common &common, Report &report)
{
    const auto name = take(strings, unitsKey);
    if (!name)
        return;
    const auto unit = std::ranges::find_if(
        unitWords, [&name](const auto &candidate) { return sameWord(*name, candidate.first); });
    if (unit == unitWords.end()) {
        strings[unitsKey] = *name;
        remark(report, RemarkKind::geometry,
               "UNITS is \"" + *name + "\": positions are taken as metres");
        return;
    }
    common.unit = unit->second;
    if (common.unit.units != 1.0)
        remark(report, RemarkKind::geometry, "UNITS is " + *name + ": positions become metres");
}

std::string textOf(const Location &location)
{
    return shortest(location[0]) + ' ' + shortest(location[1]) + ' ' + shortest(location[2]);
}

} // namespace

std::optional<Seg2Strings> readSeg2Strings(std::string_view block, ByteOrder byteOrder,
                                           const Seg2Ends &ends)
{
    Seg2Strings strings;
    while (block.size() >= 2) {
        const std::size_t distance = byteOrder == ByteOrder::bigEndian
                                         ? qFromBigEndian<quint16>(block.data())
                                         : qFromLittleEndian<quint16>(block.data());
        if (distance == 0)
            break;
        if (distance < 2 || distance > block.size())
            return std::nullopt;
        addString(withoutEnd(block.substr(2, distance - 2), ends.string), ends, strings);
        block.remove_prefix(distance);
    }
    return strings;
}

void readFileStrings(Seg2Strings &strings, Seg2Common &common, Report &report)
{
    bool isUnderstood = true;
    common.date = takeTime(strings, dateKey, readSeg2Date, "", isUnderstood);
    common.time = takeTime(strings, timeKey, readSeg2Time, "", isUnderstood);
    if (!isUnderstood)
        remark(report, RemarkKind::notANumber, notUnderstood(strings));
    readUnits(strings, common, report);
}

std::string readTraceStrings(RecordTrace &trace, const Seg2Common &common, std::size_t number,
                             Seg2Readings &readings)
{
    Seg2Strings &strings = trace.strings;
    std::string refusal;
    trace.sampleInterval =
        takeNumber(strings, "SAMPLE_INTERVAL", "a number of seconds", refusal).value_or(0.0);
    if (trace.sampleInterval < 0.0)
        refuse(refusal, "SAMPLE_INTERVAL", shortest(trace.sampleInterval), "0 or more");
    trace.delay = takeNumber(strings, "DELAY", "a number of seconds", refusal).value_or(0.0);
    trace.descalingFactor =
        takeNumber(strings, "DESCALING_FACTOR", "a number", refusal).value_or(1.0);
    trace.stackCount = takeWholeNumber(strings, "STACK", refusal).value_or(1);
    trace.channelNumber = takeWholeNumber(strings, "CHANNEL_NUMBER", refusal);
    trace.shotNumber = takeWholeNumber(strings, "SHOT_SEQUENCE_NUMBER", refusal);
    trace.source = takeLocation(strings, "SOURCE_LOCATION", common.unit, refusal);
    trace.receiver = takeLocation(strings, "RECEIVER_LOCATION", common.unit, refusal);
    if (const auto kind = strings.find(kindKey);
        kind != strings.end() && withoutBlanks(kind->second) == deadKind) {
        trace.isDead = true;
        strings.erase(kind);
    }
    bool isUnderstood = true;
    trace.date = takeTime(strings, dateKey, readSeg2Date, common.date, isUnderstood);
    trace.time = takeTime(strings, timeKey, readSeg2Time, common.time, isUnderstood);
    if (!isUnderstood)
        countTrace(readings.time, number, [&] { return notUnderstood(strings); });
    return refusal;
}

Seg2Strings stringsOf(const RecordTrace &trace, const Seg2Common &common)
{
    Seg2Strings strings = trace.strings;
    strings["DELAY"] = shortest(trace.delay);
    strings["DESCALING_FACTOR"] = shortest(trace.descalingFactor);
    strings["SAMPLE_INTERVAL"] = shortest(trace.sampleInterval);
    strings["STACK"] = std::to_string(trace.stackCount);
    if (trace.channelNumber)
        strings["CHANNEL_NUMBER"] = std::to_string(*trace.channelNumber);
    if (trace.shotNumber)
        strings["SHOT_SEQUENCE_NUMBER"] = std::to_string(*trace.shotNumber);
    if (trace.source)
        strings["SOURCE_LOCATION"] = textOf(*trace.source);
    if (trace.receiver)
        strings["RECEIVER_LOCATION"] = textOf(*trace.receiver);
    if (trace.isDead)
        strings[kindKey] = deadKind;
    if (trace.date != common.date && !strings.contains(dateKey))
        strings[dateKey] = seg2Date(trace.date);
    if (trace.time != common.time && !strings.contains(timeKey))
        strings[timeKey] = trace.time;
    return strings;
}
