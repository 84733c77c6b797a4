// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "field/json.h"

#include <QJsonDocument>

#include <iostream>

namespace {

QJsonObject toJson(const Place &place, const std::string &text)
{
    QJsonObject object;
    addPlace(object, place);
    object["text"] = QString::fromStdString(text);
    return object;
}

} // namespace

QJsonValue toJson(const Range &range)
{
    if (isEmpty(range))
        return QJsonValue::Null;
    return QJsonObject{{"min", range.least}, {"max", range.greatest}};
}

void addPlace(QJsonObject &object, const Place &place, std::size_t trace)
{
    object["file"] = QString::fromStdString(place.file);
    if (place.line != 0)
        object["line"] = static_cast<qint64>(place.line);
    if (trace != 0)
        object["trace"] = static_cast<qint64>(trace);
}

void addReport(QJsonObject &object, const Report &report)
{
    QJsonArray remarks = object["remarks"].toArray();
    for (const Remark &remark : report.remarks)
        remarks.append(toJson(remark.place, remark.text));
    object["remarks"] = remarks;
    QJsonArray failures = object["failures"].toArray();
    if (report.failure)
        failures.append(toJson(report.failure->place, report.failure->text));
    object["failures"] = failures;
}

std::string toText(const QJsonObject &object)
{
    return QJsonDocument(object).toJson().toStdString();
}

void flushOutput(Report &report)
{
    if (!std::cout.flush())
        fail(report, {"standard output"}, "cannot be written");
}
