// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "field/picks.h"

#include <optional>
#include <string>

/// Whether the converter window reads the same survey from a file as the reader of its format.
struct WindowVerdict
{
    bool isSame = false;
    Place place = {};      ///< of the first line where it goes wrong, unless it is the same
    std::string text = {}; ///< why
};

/// Reads a file of picks both ways and compares. Nothing for a format that the window does not
/// read. `format` is its name on the command line.
std::optional<WindowVerdict> windowVerdict(const std::string &format, const std::string &path,
                                           const PickOptions &options);
