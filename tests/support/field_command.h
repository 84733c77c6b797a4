// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "tests/support/batch_command.h"

#include <QJsonDocument>
#include <QJsonObject>

// convert2velarix-field is run as convert2velarix-batch is.

using FieldRun = BatchRun;
using FieldFolder = BatchFolder;

/// What the command writes with --json.
inline QJsonObject objectOf(const FieldRun &run)
{
    return QJsonDocument::fromJson(QByteArray::fromStdString(run.output)).object();
}
