// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "field/range.h"
#include "traveltime/report.h"

#include <QJsonArray>
#include <QJsonObject>

// What the command writes for programs. A number has the digits that it needs to be read back the
// same; one that JSON has no words for (NaN, infinite) is null.

/// {"min": ..., "max": ...}, or null for an empty range.
QJsonValue toJson(const Range &range);

/// Adds the file and, where they are known, the line and the trace.
void addPlace(QJsonObject &object, const Place &place, std::size_t trace = 0);

/// Adds what a report tells to the arrays "remarks" and "failures".
void addReport(QJsonObject &object, const Report &report);

/// The object as text.
std::string toText(const QJsonObject &object);

/// Ends the output to the standard stream; the report fails when that could not be written.
void flushOutput(Report &report);
