// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "field/progress_bar.h"

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <iostream>
#include <pty.h>
#include <string>
#include <thread>
#include <unistd.h>

namespace {

/// The standard error stream as a terminal, or as a pipe, while this lives.
class ErrorStream
{
public:
    explicit ErrorStream(bool isTerminal)
        : before(dup(STDERR_FILENO))
    {
        std::array<int, 2> ends = {};
        const int result =
            isTerminal ? openpty(&ends[0], &ends[1], nullptr, nullptr, nullptr) : pipe(ends.data());
        EXPECT_EQ(result, 0);
        reading = ends[0];
        dup2(ends[1], STDERR_FILENO);
        close(ends[1]);
    }
    ~ErrorStream()
    {
        dup2(before, STDERR_FILENO);
        close(before);
        close(reading);
    }
    ErrorStream(const ErrorStream &) = delete;
    ErrorStream &operator=(const ErrorStream &) = delete;

    /// What was written since the last call; at least the mark that this writes comes back.
    std::string written() const
    {
        std::cerr << '|' << std::flush;
        std::string text;
        while (!text.ends_with('|')) {
            std::array<char, 1000> part = {};
            const ssize_t size = read(reading, part.data(), part.size());
            if (size <= 0)
                return "nothing to read";
            text.append(part.data(), static_cast<std::size_t>(size));
        }
        text.pop_back();
        return text;
    }

private:
    int before = -1;
    int reading = -1;
};

void wait(int milliseconds)
{
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

} // namespace

TEST(ProgressBar, IsShownOnATerminalAfterASecond)
{
    const ErrorStream stream(true);
    {
        ProgressBar bar("line.vs");
        bar.show(0.2);
        EXPECT_EQ(stream.written(), "");
        wait(1010);
        bar.show(0.5);
        EXPECT_EQ(stream.written(), "\rline.vs [###############...............] 50 %\x1b[K");
        bar.show(0.51); // too soon after the last
        EXPECT_EQ(stream.written(), "");
        wait(110);
        bar.show(1.0);
        EXPECT_EQ(stream.written(), "\rline.vs [##############################] 100 %\x1b[K");
    }
    EXPECT_EQ(stream.written(), "\r\x1b[K");
}

TEST(ProgressBar, IsNotShownForShortWork)
{
    const ErrorStream stream(true);
    {
        ProgressBar bar("line.vs");
        bar.show(0.5);
        bar.show(1.0);
    }
    EXPECT_EQ(stream.written(), "");
}

TEST(ProgressBar, IsNotShownOnWhatIsNoTerminal)
{
    const ErrorStream stream(false);
    {
        ProgressBar bar("line.vs");
        wait(1010);
        bar.show(0.5);
    }
    EXPECT_EQ(stream.written(), "");
}

TEST(ProgressBar, TheEndOfALongNameIsShown)
{
    const ErrorStream stream(true);
    ProgressBar bar("/home/crew/2026/valley/line 12/day\x1B 1.vs");
    wait(1010);
    bar.show(0.0);
    // The last 29 of 40 characters.
    EXPECT_EQ(stream.written(),
              "\r~2026/valley/line 12/day? 1.vs [..............................] 0 %\x1b[K");
}
