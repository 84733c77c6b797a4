// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "field/pick_summary.h"
#include "field/record_summary.h"

#include <QJsonObject>

// What files hold, for programs: metres, seconds and samples as the file has them.

QJsonObject toJson(const PickSummary &summary);
QJsonObject toJson(const RecordSummary &summary);
