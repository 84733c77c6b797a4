// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "field/picks.h"
#include "field/range.h"

#include <cstddef>

/// What a survey of picks holds; lengths in metres, times in seconds.
struct PickSummary
{
    std::size_t shots = 0;
    std::size_t receivers = 0; ///< at different positions
    std::size_t layouts = 0;
    std::size_t picks = 0;
    std::size_t errors = 0; ///< picks that an error was given for
    Range shotX = {};
    Range shotElevation = {};
    Range receiverX = {};
    Range receiverElevation = {};
    Range time = {};
    Range error = {};
};

PickSummary summarise(const PickSurvey &survey);
