// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "tests/support/batch_command.h"
#include "tests/support/convertible_files.h"
#include "tests/support/faults.h"
#include "tests/support/odd_files.h"
#include "tests/support/small_surveys.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <map>
#include <random>
#include <sys/stat.h>
#include <thread>
#include <unistd.h>

namespace {

std::string manyReceiversOtte(std::size_t count)
{
    return "otte\n1.0\n2\n1\n" + repeated("5;", count) + '\n' + repeated("100;", count)
           + "\n-1;\n100;\n0\n0\n" + repeated("4;", count) + '\n';
}

constexpr int longLine = 100000; // receivers, so that writing them takes a while

/// The signals that end the runs of expectWholeOutputs in turn.
constexpr std::array endingSignals = {SIGINT, SIGTERM, SIGHUP, SIGKILL};

/// Runs the command to find `outputs`, which the folder has older ones of, all new; then runs it
/// again and again, ends it at some moment and finds all outputs new or all older ones, and nothing
/// beside them. Only SIGKILL may leave some of them new, each whole, and unfinished ones.
void expectWholeOutputs(const BatchFolder &folder, const Arguments &arguments,
                        const std::map<std::string, std::string> &outputs, int runs,
                        std::mt19937 &random)
{
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(folder.run(arguments), BatchRun{});
    const std::chrono::duration<double> whole = std::chrono::steady_clock::now() - start;
    for (const auto &[name, newer] : outputs)
        EXPECT_TRUE(readFile(folder.path(name)) == newer) << name;
    const std::vector<std::string> names = folder.names();

    for (int run = 0; run < runs; ++run) {
        const int signal = endingSignals.at(std::size_t(run) % endingSignals.size());
        for (const auto &[name, newer] : outputs)
            folder.write(name, "older");
        QProcess process;
        folder.start(process, arguments);
        std::this_thread::sleep_for(whole * (random() % 1000) / 1000);
        sendSignal(process, signal);
        const int status = finish(process).status;
        EXPECT_TRUE(status == 0 || status == -signal) << status;
        std::size_t newCount = 0;
        for (const auto &[name, newer] : outputs) {
            const std::string output = readFile(folder.path(name));
            newCount += output == newer ? 1 : 0;
            EXPECT_TRUE(output == newer || output == "older")
                << run << ", status " << status << ", " << name << ": " << output.size()
                << " bytes";
        }
        if (signal != SIGKILL) {
            EXPECT_EQ(folder.names(), names);
            EXPECT_TRUE(newCount == outputs.size() || (newCount == 0 && status != 0))
                << run << ", status " << status << ": " << newCount << " new";
        }
        for (const std::string &name : folder.names())
            if (isPart(name))
                std::filesystem::remove(folder.path(name));
    }
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
        const int pipe = openReadPipe(survey.path("pipe"));
        ASSERT_GE(pipe, 0);
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
    const int pipe = openReadPipe(survey.path("pipe"));
    ASSERT_GE(pipe, 0);
    sendSignal(process, SIGINT);
    sendSignal(process, SIGHUP);
    const std::string text = fileOf(genericLines);
    EXPECT_EQ(write(pipe, text.data(), text.size()), static_cast<ssize_t>(text.size()));
    close(pipe);
    EXPECT_EQ(finish(process), BatchRun{});
    EXPECT_EQ(readFile(survey.path("line.otte")), genericOtte);
}

TEST(BatchInterrupts, NothingOfAnOutputIsThereWhileReading)
{
    const GenericSurvey survey;
    ASSERT_EQ(mkfifo(survey.path("pipe").c_str(), 0600), 0);
    const std::vector<std::string> before = survey.names();
    QProcess process;
    survey.start(process, convert("pipe", "line.otte"));
    const int pipe = openReadPipe(survey.path("pipe"));
    ASSERT_GE(pipe, 0);
    EXPECT_EQ(survey.names(), before);
    const std::string text = fileOf(genericLines);
    EXPECT_EQ(write(pipe, text.data(), text.size()), static_cast<ssize_t>(text.size()));
    close(pipe);
    EXPECT_EQ(finish(process), BatchRun{});
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

TEST(BatchInterrupts, EndedAtAnyMomentTheOutputIsTheOlderOrTheNewOneWhole)
{
    std::mt19937 random(20261121);
    const GenericSurvey survey;
    survey.write("long.txt", manyReceivers(longLine));
    expectWholeOutputs(survey, convert("long.txt", "line.otte"),
                       {{"line.otte", manyReceiversOtte(longLine)}}, 24, random);
}

TEST(BatchInterrupts, EndedAtAnyMomentARecordsFilesAreBothTheOlderOrBothTheNewOnesWhole)
{
    std::mt19937 random(20261122);
    const BatchFolder folder;
    constexpr std::uint32_t traces = 2000;
    folder.write("line.su", repeated(suFile, traces / 2));
    std::string listing = listingHeading;
    std::string pointers;
    for (std::uint32_t i = 0; i < traces; ++i) {
        listing += std::to_string(i + 1) + "    3      0     0.00025     "
                   + (i % 2 == 0 ? "2500" : "5000") + "      0      0\n";
        pointers += inOrder(32 + 4 * traces + 44 + 172 * i, 4);
    }
    expectWholeOutputs(folder, {"su", "line.su"},
                       {{"line_tmp", listing},
                        {"line.seg2", seg2Head(traces) + pointers + seg2FileStrings
                                          + repeated(suSeg2Traces, traces / 2)}},
                       88, random);
}
