// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "field/info_json.h"

#include "field/json.h"

namespace {

qint64 count(std::size_t value)
{
    return static_cast<qint64>(value);
}

QJsonObject toJson(const LocationSummary &summary)
{
    const auto &[x, y, elevation] = summary.ranges;
    return {{"traces", count(summary.traces)},
            {"locations", count(summary.locations.size())},
            {"x", toJson(x)},
            {"y", toJson(y)},
            {"elevation", toJson(elevation)}};
}

template <typename Value, typename ToValue>
QJsonArray toArray(const std::set<Value> &values, ToValue toValue)
{
    QJsonArray array;
    for (const Value &value : values)
        array.append(toValue(value));
    return array;
}

qint64 toNumber(std::int32_t value)
{
    return value;
}

} // namespace

QJsonObject toJson(const PickSummary &summary)
{
    return {{"shots", count(summary.shots)},
            {"receivers", count(summary.receivers)},
            {"layouts", count(summary.layouts)},
            {"picks", count(summary.picks)},
            {"picksWithError", count(summary.errors)},
            {"shotX", toJson(summary.shotX)},
            {"shotElevation", toJson(summary.shotElevation)},
            {"receiverX", toJson(summary.receiverX)},
            {"receiverElevation", toJson(summary.receiverElevation)},
            {"time", toJson(summary.time)},
            {"error", toJson(summary.error)}};
}

QJsonObject toJson(const RecordSummary &summary)
{
    QJsonObject strings;
    for (const auto &[name, value] : summary.file.strings)
        strings[QString::fromStdString(name)] = QString::fromStdString(value);
    QJsonObject object{{"strings", strings},
                       {"traces", count(summary.traces)},
                       {"hasAngles", summary.hasAngles},
                       {"deadTraces", count(summary.deadTraces)},
                       {"sampleTypes", toArray(summary.sampleTypes, QString::fromStdString)},
                       {"samples", toJson(summary.samples)},
                       {"sampleInterval", toJson(summary.sampleInterval)},
                       {"delay", toJson(summary.delay)},
                       {"amplitude", toJson(summary.amplitude)},
                       {"stackCount", toJson(summary.stackCount)},
                       {"shotNumbers", toArray(summary.shotNumbers, toNumber)},
                       {"channelNumbers", toArray(summary.channelNumbers, toNumber)},
                       {"recorded", toArray(summary.times, QString::fromStdString)},
                       {"sources", toJson(summary.sources)},
                       {"receivers", toJson(summary.receivers)}};
    if (summary.file.byteOrder)
        object["byteOrder"] = *summary.file.byteOrder == ByteOrder::bigEndian ? "big" : "little";
    return object;
}
