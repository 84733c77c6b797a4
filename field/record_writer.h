// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "field/record.h"

#include <functional>

/// What writes a record trace by trace. Each function returns whether the report it was made with
/// has no failure.
struct RecordWriter
{
    /// Takes the next trace, whose samples may become others. What the target has no room for is a
    /// failure.
    TakeTrace put;
    /// Ends the file after the last trace, and remarks on what it says less exactly than the
    /// traces.
    std::function<bool()> finish;
};
