// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include <chrono>
#include <string>

/// A bar on the standard error stream for work that lasts longer than a second. Shows nothing when
/// that stream is no terminal.
class ProgressBar
{
public:
    explicit ProgressBar(const std::string &title);
    /// Removes the bar.
    ~ProgressBar();
    ProgressBar(const ProgressBar &) = delete;
    ProgressBar &operator=(const ProgressBar &) = delete;

    /// Shows that this part of the work is done, from 0 to 1. May be called very often.
    void show(double fraction);

private:
    using Clock = std::chrono::steady_clock;

    std::string shownTitle;
    bool isTerminal;
    bool isShown = false;
    Clock::time_point due;
};
