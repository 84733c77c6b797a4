// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include <limits>

inline constexpr double infinity = std::numeric_limits<double>::infinity();
inline constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
