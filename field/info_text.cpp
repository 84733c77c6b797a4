// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "field/info_text.h"

#include <QString>

namespace {

/// Ten digits: enough for map coordinates in millimetres, and 0.0897 s is 89.7 ms.
std::string number(double value)
{
    return QString::number(value, 'g', 10).toStdString();
}

/// "0 to 115 m", or "0 m" when all values are the same.
std::string rangeText(const Range &range, const std::string &unit, double scale = 1.0)
{
    if (isEmpty(range))
        return "none";
    const std::string first = number(range.least * scale);
    const std::string last = number(range.greatest * scale);
    return first + (first == last ? "" : " to " + last) + (unit.empty() ? "" : " " + unit);
}

constexpr double milliseconds = 1000.0;

std::string positionText(const Range &x, const Range &elevation)
{
    return isEmpty(x) ? ""
                      : ", x " + rangeText(x, "m") + ", elevation " + rangeText(elevation, "m");
}

std::string locationText(const LocationSummary &summary, const RecordSummary &record)
{
    if (summary.traces == 0)
        return "none";
    const auto &[x, y, elevation] = summary.ranges;
    const std::string unit = record.hasAngles ? "(an angle)" : "m";
    const bool hasY = y.least != 0.0 || y.greatest != 0.0;
    return std::to_string(summary.locations.size()) + ", x " + rangeText(x, unit)
           + (hasY ? ", y " + rangeText(y, unit) : "") + ", elevation " + rangeText(elevation, "m")
           + (summary.traces < record.traces ? ", in " + std::to_string(summary.traces) + " traces"
                                             : "");
}

std::string joined(const std::set<std::string> &words)
{
    std::string text;
    for (const std::string &word : words)
        text += (text.empty() ? "" : ", ") + word;
    return text;
}

/// "1 to 24", or "12 of 3 to 80" when there are gaps.
std::string numbersText(const std::set<std::int32_t> &numbers)
{
    if (numbers.empty())
        return "none";
    const std::int64_t first = *numbers.begin();
    const std::int64_t last = *numbers.rbegin();
    const bool hasGaps = last - first + 1 != static_cast<std::int64_t>(numbers.size());
    return (hasGaps ? std::to_string(numbers.size()) + " of " : "") + std::to_string(first)
           + (first == last ? "" : " to " + std::to_string(last));
}

} // namespace

std::string infoLine(const std::string &word, const std::string &value)
{
    constexpr std::size_t width = 13;
    return "  " + word + std::string(word.size() < width ? width - word.size() : 1, ' ') + value
           + '\n';
}

std::string describe(const PickSummary &summary, const std::string &units)
{
    std::string text =
        infoLine("units", units)
        + infoLine("shots", std::to_string(summary.shots)
                                + positionText(summary.shotX, summary.shotElevation))
        + infoLine("receivers", std::to_string(summary.receivers)
                                    + positionText(summary.receiverX, summary.receiverElevation))
        + infoLine("layouts", std::to_string(summary.layouts))
        + infoLine("picks", std::to_string(summary.picks))
        + infoLine("times", rangeText(summary.time, "ms", milliseconds));
    if (summary.errors != 0)
        text += infoLine("errors", rangeText(summary.error, "ms", milliseconds));
    return text;
}

std::string describe(const RecordSummary &summary, const std::string &units)
{
    std::string text = infoLine("units", units);
    if (summary.file.byteOrder)
        text += infoLine("byte order", *summary.file.byteOrder == ByteOrder::bigEndian
                                           ? "big-endian"
                                           : "little-endian");
    text +=
        infoLine("traces", std::to_string(summary.traces)
                               + (summary.deadTraces == 0
                                      ? ""
                                      : ", " + std::to_string(summary.deadTraces) + " dead"))
        + infoLine("samples", rangeText(summary.samples, "") + ", " + joined(summary.sampleTypes))
        + infoLine("interval", rangeText(summary.sampleInterval, "ms", milliseconds))
        + infoLine("delay", rangeText(summary.delay, "ms", milliseconds))
        + infoLine("amplitudes", rangeText(summary.amplitude, ""))
        + infoLine("shots", numbersText(summary.shotNumbers))
        + infoLine("channels", numbersText(summary.channelNumbers))
        + infoLine("sources", locationText(summary.sources, summary))
        + infoLine("receivers", locationText(summary.receivers, summary))
        + infoLine("stacked", rangeText(summary.stackCount, ""));
    if (!summary.times.empty())
        text += infoLine("recorded",
                         *summary.times.begin()
                             + (summary.times.size() == 1 ? "" : " to " + *summary.times.rbegin()));
    return text;
}
