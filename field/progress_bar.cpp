// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "field/progress_bar.h"

#include <QString>

#include <algorithm>
#include <cmath>
#include <iostream>
#include <utility>

#ifndef _WIN32
#include <unistd.h>
#endif

namespace {

bool isErrorStreamTerminal()
{
#ifdef _WIN32
    return false;
#else
    return isatty(STDERR_FILENO) == 1;
#endif
}

/// `name` in at most 30 characters; its end is kept, as names of one folder begin alike.
std::string shortened(const std::string &name)
{
    constexpr qsizetype longest = 30;
    QString text = QString::fromStdString(name);
    for (QChar &character : text)
        if (!character.isPrint())
            character = '?';
    if (text.size() > longest)
        text = "~" + text.right(longest - 1);
    return text.toStdString();
}

} // namespace

ProgressBar::ProgressBar(const std::string &title)
    : shownTitle(shortened(title))
    , isTerminal(isErrorStreamTerminal())
    , due(Clock::now() + std::chrono::seconds(1))
{
}

ProgressBar::~ProgressBar()
{
    if (isShown)
        std::cerr << "\r\x1b[K" << std::flush;
}

void ProgressBar::show(double fraction)
{
    if (!isTerminal || Clock::now() < due)
        return;
    constexpr int width = 30;
    const double part = std::clamp(fraction, 0.0, 1.0);
    const auto filled = static_cast<std::size_t>(std::lround(part * width));
    std::cerr << "\r" + shownTitle + " [" + std::string(filled, '#')
                     + std::string(width - filled, '.') + "] "
                     + std::to_string(std::lround(part * 100.0)) + " %\x1b[K"
              << std::flush;
    isShown = true;
    due = Clock::now() + std::chrono::milliseconds(100);
}
