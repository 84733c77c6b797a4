// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

/// Appends `value` times ten to the `power` with the digits that it needs to be read back the same,
/// and laid out as appendNumber() does, which gives the same text where six digits are enough.
void appendExact(std::string &text, double value, int power = 0);

/// The same as a text of its own.
std::string exactNumber(double value, int power = 0);
