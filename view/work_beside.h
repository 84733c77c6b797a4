// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "view/record_data.h"

#include <QString>

#include <functional>

class QWidget;

/// Does long work beside the window, which meanwhile shows how far it is and lets the user give it
/// up: then `goesOn` returns false, and the work should end. Returns what the work returns, false
/// when it throws.
bool workBeside(QWidget &window, const QString &title,
                const std::function<bool(const GoesOn &goesOn)> &work);
