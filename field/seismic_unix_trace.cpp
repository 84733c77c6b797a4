// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "field/seismic_unix_trace.h"

#include "field/numbers.h"
#include "field/record_time.h"

#include <cmath>
#include <limits>

namespace {

constexpr char headerKey[] = "SEISMIC_UNIX";

/// What a coordinate's number means: a negative scalar divides, 0 counts as 1.
double toMetres(double number, int scalar)
{
    if (scalar < 0)
        return number / -scalar;
    return scalar == 0 ? number : number * scalar;
}

double toNumber(double metres, int scalar)
{
    if (scalar < 0)
        return std::round(metres * -scalar);
    return std::round(scalar == 0 ? metres : metres / scalar);
}

/// The interval in seconds; 0 when the header does not say. Of d1, a float, the fewest digits are
/// meant that read back: 0.00025 is no 32-bit float.
double readInterval(const SuHeaderBytes &header, std::size_t number, SuReadings &readings)
{
    const auto microseconds = numberAt<std::uint16_t>(header, su::sampleInterval);
    const auto exact = plainNumber(shortest(numberAt<float>(header, su::exactInterval)));
    if (!exact || *exact <= 0.0)
        return microseconds / 1e6;
    const double difference = std::abs(*exact * 1e6 - microseconds);
    if (microseconds > 0) // the same in finer units, beyond the last digits of a float
        return difference < 1.0 && difference > 1e-5 * microseconds ? *exact : microseconds / 1e6;
    if (*exact * 1e6 > std::numeric_limits<std::uint16_t>::max())
        return 0.0;
    countTrace(readings.interval, number,
               [&] { return "an interval of 0 us: taken from d1, " + shortest(*exact) + " s"; });
    return *exact;
}

void readTime(const SuHeaderBytes &header, std::size_t number, RecordTrace &trace,
              SuReadings &readings)
{
    const auto at = [&header](std::size_t offset) {
        return static_cast<int>(numberAt<std::int16_t>(header, offset));
    };
    const bool hasDay = at(su::year) != 0 || at(su::dayOfYear) != 0;
    const bool hasTime = at(su::hour) != 0 || at(su::minute) != 0 || at(su::second) != 0;
    if (at(su::year) != 0)
        trace.date = dateOf(fullYear(at(su::year)), at(su::dayOfYear));
    if (hasTime || !trace.date.empty())
        trace.time = timeOf(at(su::hour), at(su::minute), at(su::second));
    if ((hasDay && trace.date.empty()) || (hasTime && trace.time.empty()))
        countTrace(readings.time, number, [&] {
            return "year " + std::to_string(at(su::year)) + ", day "
                   + std::to_string(at(su::dayOfYear)) + ", " + std::to_string(at(su::hour)) + ':'
                   + std::to_string(at(su::minute)) + ':' + std::to_string(at(su::second))
                   + " is no date and time: left out";
        });
}

struct Coordinate
{
    double metres;
    std::size_t offset;
};

/// Coordinates that share a scalar.
struct Coordinates
{
    const char *noun;
    std::size_t scalarOffset;
    std::vector<Coordinate> values;
};

/// How well numbers of 32 bits hold coordinates.
struct Fit
{
    int scalar = 0;
    double error = 0.0; ///< the largest, in metres
    double worst = 0.0; ///< the coordinate that has it
};

Fit fitOf(const Coordinates &coordinates, int scalar)
{
    Fit fit = {scalar};
    for (const auto &[metres, offset] : coordinates.values) {
        const double number = toNumber(metres, scalar);
        const bool hasRoom = number >= std::numeric_limits<std::int32_t>::min()
                             && number <= std::numeric_limits<std::int32_t>::max();
        const double error = hasRoom ? std::abs(toMetres(number, scalar) - metres)
                                     : std::numeric_limits<double>::infinity();
        if (error > fit.error)
            fit = {scalar, error, metres};
    }
    return fit;
}

/// Puts the coordinates by the scalar that the header has, if that is exact, or else by a power of
/// ten.
std::string putCoordinates(SuHeaderBytes &header, const Coordinates &coordinates, std::size_t trace,
                           SuRoundings &roundings)
{
    constexpr double exactly = 1e-9; // metres: less than the last digits of map coordinates
    constexpr double closely = 0.0005;
    Fit best = fitOf(coordinates, numberAt<std::int16_t>(header, coordinates.scalarOffset));
    if (best.error > exactly)
        best.error = std::numeric_limits<double>::infinity();
    for (const int scalar : {1, -10, -100, -1000, -10000, 10, 100, 1000, 10000}) {
        if (best.error <= exactly)
            break;
        if (const Fit fit = fitOf(coordinates, scalar); fit.error < best.error)
            best = fit;
    }

    const std::string value = std::string(coordinates.noun) + " of " + shortest(best.worst);
    if (std::isinf(best.error))
        return value + ": 21,474,836,470,000 is the largest that fits";
    const double fitting = toMetres(toNumber(best.worst, best.scalar), best.scalar);
    if (best.error > closely)
        return value + ": " + shortest(fitting) + " would fit";
    if (best.error > exactly)
        countTrace(roundings.position, trace,
                   [&] { return value + " becomes " + shortest(fitting); });

    putNumber(header, coordinates.scalarOffset, static_cast<std::int16_t>(best.scalar));
    for (const auto &[metres, offset] : coordinates.values)
        putNumber(header, offset, static_cast<std::int32_t>(toNumber(metres, best.scalar)));
    return "";
}

std::string putGeometry(SuHeaderBytes &header, const RecordTrace &trace, std::size_t number,
                        SuRoundings &roundings)
{
    const Location source = trace.source.value_or(Location{});
    const Location receiver = trace.receiver.value_or(Location{});
    std::string refusal = putCoordinates(header,
                                         {"a position",
                                          su::coordinateScalar,
                                          {{source[0], su::sourceX},
                                           {source[1], su::sourceY},
                                           {receiver[0], su::receiverX},
                                           {receiver[1], su::receiverY}}},
                                         number, roundings);
    if (!refusal.empty())
        return refusal;
    return putCoordinates(
        header,
        {"an elevation",
         su::elevationScalar,
         {{source[2], su::sourceElevation}, {receiver[2], su::receiverElevation}}},
        number, roundings);
}

std::string putInterval(SuHeaderBytes &header, const RecordTrace &trace, std::size_t number,
                        SuRoundings &roundings)
{
    const double microseconds = std::round(trace.sampleInterval * 1e6);
    if (microseconds > std::numeric_limits<std::uint16_t>::max())
        return "an interval of " + shortest(trace.sampleInterval) + " s: 0.065535 s would fit";
    putNumber(header, su::sampleInterval, static_cast<std::uint16_t>(microseconds));
    if (microseconds / 1e6 == trace.sampleInterval)
        return "";
    putNumber(header, su::exactInterval, static_cast<float>(trace.sampleInterval));
    countTrace(roundings.interval, number, [&] {
        return "an interval of " + shortest(trace.sampleInterval) + " s becomes "
               + shortest(microseconds) + " us in dt; d1 holds more digits";
    });
    return "";
}

std::string putDelay(SuHeaderBytes &header, const RecordTrace &trace, std::size_t number,
                     SuRoundings &roundings)
{
    const double milliseconds = std::round(trace.delay * 1000.0) + 0.0; // no "-0"
    if (milliseconds < std::numeric_limits<std::int16_t>::min()
        || milliseconds > std::numeric_limits<std::int16_t>::max())
        return "a delay of " + shortest(trace.delay) + " s: from -32.768 s to 32.767 s would fit";
    putNumber(header, su::delay, static_cast<std::int16_t>(milliseconds));
    if (milliseconds / 1000.0 != trace.delay)
        countTrace(roundings.delay, number, [&] {
            return "a delay of " + shortest(trace.delay) + " s becomes " + shortest(milliseconds)
                   + " ms";
        });
    return "";
}

void putTime(SuHeaderBytes &header, const RecordTrace &trace, std::size_t number,
             SuRoundings &roundings)
{
    const auto put = [&header](std::size_t offset, int value) {
        putNumber(header, offset, static_cast<std::int16_t>(value));
    };
    if (!trace.date.empty()) {
        const YearDay day = yearDayOf(trace.date);
        put(su::year, day.year);
        put(su::dayOfYear, day.dayOfYear);
    }
    if (trace.time.empty())
        return;
    const auto part = [&trace](std::size_t from) {
        return *plainNumber<int>(std::string_view(trace.time).substr(from, 2));
    };
    put(su::hour, part(0));
    put(su::minute, part(3));
    put(su::second, part(6));
    if (trace.time.size() > 8)
        countTrace(roundings.time, number, [&] {
            return "a time of " + trace.time + " becomes " + trace.time.substr(0, 8);
        });
}

/// 0 and less, which the fields of a header may say, count as 1.
std::string putStackCount(SuHeaderBytes &header, const RecordTrace &trace)
{
    if (trace.stackCount > std::numeric_limits<std::int16_t>::max()
        || trace.stackCount < std::numeric_limits<std::int16_t>::min())
        return "a stack of " + std::to_string(trace.stackCount) + ": 1 to 32,767 would fit";
    if (trace.stackCount != 1 || numberAt<std::int16_t>(header, su::stackCount) > 0)
        putNumber(header, su::stackCount, static_cast<std::int16_t>(trace.stackCount));
    return "";
}

/// The header before what the trace says elsewhere is put into it.
SuHeaderBytes plainHeader(const RecordTrace &trace, std::size_t number)
{
    SuHeaderBytes header = {};
    putNumber(header, 0, static_cast<std::int32_t>(number));
    putNumber(header, 4, static_cast<std::int32_t>(number));
    putNumber(header, su::traceKind, std::int16_t{1});
    putNumber(header, su::stackCount, std::int16_t{1});
    putNumber(header, su::elevationScalar, std::int16_t{1});
    putNumber(header, su::coordinateScalar, std::int16_t{1});
    putNumber(header, su::coordinateUnit, static_cast<std::int16_t>(trace.hasAngles ? 2 : 1));
    if (trace.source && trace.receiver && !trace.hasAngles) {
        const double x = (*trace.receiver)[0] - (*trace.source)[0];
        const double y = (*trace.receiver)[1] - (*trace.source)[1];
        const double offset = std::round(std::copysign(std::hypot(x, y), x));
        if (std::abs(offset) <= std::numeric_limits<std::int32_t>::max())
            putNumber(header, su::offset, static_cast<std::int32_t>(offset));
    }
    return header;
}

constexpr std::int16_t deadTrace = 2;

/// What makeHeader() makes of a trace that `header` was read for; what the trace says but need not
/// say in the same numbers is as in `header`.
SuHeaderBytes expectedHeader(const RecordTrace &trace, std::size_t number,
                             const SuHeaderBytes &header)
{
    SuHeaderBytes expected;
    SuRoundings roundings;
    makeHeader(trace, number, expected, roundings);
    for (const std::size_t offset : {su::receiverElevation, su::sourceElevation, su::sourceX,
                                     su::sourceY, su::receiverX, su::receiverY})
        putNumber(expected, offset, numberAt<std::int32_t>(header, offset));
    for (const std::size_t offset : {su::sampleCount, su::sampleInterval})
        putNumber(expected, offset, numberAt<std::uint16_t>(header, offset));
    if (!trace.date.empty())
        putNumber(expected, su::year, numberAt<std::int16_t>(header, su::year));
    return expected;
}

} // namespace

RecordTrace traceOf(const SuHeaderBytes &header, std::size_t number, SuReadings &readings)
{
    RecordTrace trace;
    const auto metres = [&header](std::size_t offset, std::size_t scalarOffset) {
        return toMetres(numberAt<std::int32_t>(header, offset),
                        numberAt<std::int16_t>(header, scalarOffset));
    };
    const auto location = [&](std::size_t x, std::size_t y, std::size_t elevation) {
        return Location{metres(x, su::coordinateScalar), metres(y, su::coordinateScalar),
                        metres(elevation, su::elevationScalar)};
    };
    trace.source = location(su::sourceX, su::sourceY, su::sourceElevation);
    trace.receiver = location(su::receiverX, su::receiverY, su::receiverElevation);
    trace.hasAngles = numberAt<std::int16_t>(header, su::coordinateUnit) > 1;
    trace.sampleInterval = readInterval(header, number, readings);
    trace.delay = numberAt<std::int16_t>(header, su::delay) / 1000.0;
    if (const auto shot = numberAt<std::int32_t>(header, su::shotNumber); shot != 0)
        trace.shotNumber = shot;
    if (const auto channel = numberAt<std::int32_t>(header, su::channelNumber); channel != 0)
        trace.channelNumber = channel;
    if (const auto stack = numberAt<std::int16_t>(header, su::stackCount); stack > 0)
        trace.stackCount = stack;
    trace.isDead = numberAt<std::int16_t>(header, su::traceKind) == deadTrace;
    readTime(header, number, trace, readings);

    if (std::string fields = fieldsAsText(header, expectedHeader(trace, number, header));
        !fields.empty())
        trace.strings[headerKey] = std::move(fields);
    return trace;
}

std::string makeHeader(const RecordTrace &trace, std::size_t number, SuHeaderBytes &header,
                       SuRoundings &roundings)
{
    header = plainHeader(trace, number);
    if (const auto fields = trace.strings.find(headerKey); fields != trace.strings.end())
        putFields(header, fields->second);

    putNumber(header, su::shotNumber, trace.shotNumber.value_or(0));
    putNumber(header, su::channelNumber, trace.channelNumber.value_or(0));
    if ((numberAt<std::int16_t>(header, su::traceKind) == deadTrace) != trace.isDead)
        putNumber(header, su::traceKind, trace.isDead ? deadTrace : std::int16_t{1});
    putTime(header, trace, number, roundings);
    std::string refusal = putStackCount(header, trace);
    if (refusal.empty())
        refusal = putGeometry(header, trace, number, roundings);
    if (refusal.empty())
        refusal = putInterval(header, trace, number, roundings);
    if (refusal.empty())
        refusal = putDelay(header, trace, number, roundings);
    return refusal;
}
