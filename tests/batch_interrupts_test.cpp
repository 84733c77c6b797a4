// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "tests/support/batch_command.h"
#include "tests/support/small_surveys.h"

#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace {

std::string repeated(const std::string &text, int count)
{
    std::string result;
    for (int i = 0; i < count; ++i)
        result += text;
    return result;
}

std::string manyReceiversOtte(int count)
{
    return "otte\n1.0\n2\n1\n" + repeated("5;", count) + '\n' + repeated("100;", count)
           + "\n-1;\n100;\n0\n0\n" + repeated("4;", count) + '\n';
}

constexpr int longLine = 200000; // receivers, so that writing them takes a while

/// Opens a pipe as soon as the command reads from it.
int openForWriting(const std::string &path)
{
    int pipe = -1;
    EXPECT_TRUE(waitUntil([&] {
        pipe = open(path.c_str(), O_WRONLY | O_NONBLOCK);
        return pipe >= 0;
    }));
    return pipe;
}

} // namespace

TEST(BatchInterrupts, WhileReading)
{
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        SCOPED_TRACE(signal);
        const GenericSurvey survey;
        ASSERT_EQ(mkfifo(survey.path("pipe").c_str(), 0600), 0);
        const std::vector<std::string> before = survey.names();
        QProcess process;
        survey.start(process, convert("pipe", "line.otte"));
        const int pipe = openForWriting(survey.path("pipe"));
        EXPECT_EQ(write(pipe, "0;100;0.001\n", 12), 12);
        sendSignal(process, signal);
        EXPECT_EQ(finish(process), BatchRun{-signal});
        close(pipe);
        EXPECT_EQ(readFile(survey.path("line.otte")), "older");
        EXPECT_EQ(survey.names(), before);
    }
}

TEST(BatchInterrupts, IgnoredSignalsStayIgnored)
{
    const GenericSurvey survey;
    ASSERT_EQ(mkfifo(survey.path("pipe").c_str(), 0600), 0);
    QProcess process;
    process.setChildProcessModifier([] {
        for (const int ignored : {SIGINT, SIGHUP}) // as nohup and a shell's background do
            signal(ignored, SIG_IGN);
    });
    survey.start(process, convert("pipe", "line.otte"));
    const int pipe = openForWriting(survey.path("pipe"));
    sendSignal(process, SIGINT);
    sendSignal(process, SIGHUP);
    const std::string text = fileOf(genericLines);
    EXPECT_EQ(write(pipe, text.data(), text.size()), static_cast<ssize_t>(text.size()));
    close(pipe);
    EXPECT_EQ(finish(process), BatchRun{});
    EXPECT_EQ(readFile(survey.path("line.otte")), genericOtte);
}

TEST(BatchInterrupts, WhileWriting)
{
    const GenericSurvey survey;
    survey.write("long.txt", manyReceivers(longLine));
    const std::vector<std::string> before = survey.names();
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        SCOPED_TRACE(signal);
        BatchRun run;
        for (int attempt = 0; run.status == 0 && attempt < 20; ++attempt) {
            survey.write("line.otte", "older");
            QProcess process;
            survey.start(process, convert("long.txt", "line.otte"));
            EXPECT_TRUE(waitUntil([&] {
                return survey.names() != before || readFile(survey.path("line.otte")) != "older";
            }));
            sendSignal(process, signal);
            run = finish(process); // with status 0 when the signal came too late
        }
        EXPECT_EQ(run, BatchRun{-signal});
        EXPECT_EQ(readFile(survey.path("line.otte")), "older");
        EXPECT_EQ(survey.names(), before);
    }
}

TEST(BatchInterrupts, KilledAtAnyMomentTheOutputIsTheOlderOrTheNewOneWhole)
{
    constexpr int moments = 20;
    const GenericSurvey survey;
    survey.write("long.txt", manyReceivers(longLine));
    const std::string newer = manyReceiversOtte(longLine);
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(survey.run(convert("long.txt", "line.otte")), BatchRun{});
    const auto duration = std::chrono::steady_clock::now() - start;
    EXPECT_TRUE(readFile(survey.path("line.otte")) == newer);

    for (int moment = 0; moment < moments; ++moment) {
        survey.write("line.otte", "older");
        QProcess process;
        survey.start(process, convert("long.txt", "line.otte"));
        std::this_thread::sleep_for(duration * moment / moments);
        sendSignal(process, SIGKILL);
        const int status = finish(process).status;
        EXPECT_TRUE(status == 0 || status == -SIGKILL) << status;
        const std::string output = readFile(survey.path("line.otte"));
        EXPECT_TRUE(output == "older" || output == newer)
            << "moment " << moment << ": " << output.size() << " bytes";
    }
}
