// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include <chrono>
#include <functional>
#include <iostream>
#include <poll.h>
#include <string>
#include <thread>
#include <unistd.h>

/// Runs `conversion` with a standard output that is not read until it is full and `change` was
/// made, in the middle of the conversion. Returns what the standard output got.
inline std::string changeInTheMiddle(const std::function<void()> &conversion,
                                     const std::function<void()> &change)
{
    int ends[2];
    if (pipe(ends) != 0)
        return "no pipe";
    std::cout.flush();
    const int outputBefore = dup(STDOUT_FILENO);
    dup2(ends[1], STDOUT_FILENO);
    std::string output;
    std::thread reader([&output, &ends, &change] {
        // At most 10 seconds: a conversion that writes too little is not kept waiting.
        pollfd fills = {ends[1], POLLOUT, 0};
        for (int i = 0; i < 10000 && poll(&fills, 1, 0) == 1; ++i)
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        change();
        close(ends[1]);
        char buffer[4096];
        for (ssize_t size = 0; (size = read(ends[0], buffer, sizeof buffer)) > 0;)
            output.append(buffer, static_cast<std::size_t>(size));
    });
    conversion();
    std::cout.flush();
    dup2(outputBefore, STDOUT_FILENO);
    close(outputBefore);
    reader.join();
    close(ends[0]);
    return output;
}
