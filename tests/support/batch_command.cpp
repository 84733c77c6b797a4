// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "tests/support/batch_command.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <iterator>
#include <thread>
#include <unistd.h>

namespace {

constexpr int milliseconds = 60000; // far more than any run takes

std::string contentOf(const std::filesystem::directory_entry &entry)
{
    std::error_code error;
    if (!entry.is_regular_file(error))
        return "";
    constexpr std::uintmax_t megabyte = 1000000;
    std::ifstream stream(entry.path(), std::ios::binary);
    if (!stream || entry.file_size() > megabyte)
        return std::to_string(entry.file_size()) + " bytes";
    return {std::istreambuf_iterator<char>(stream), {}};
}

} // namespace

std::ostream &operator<<(std::ostream &stream, const BatchRun &run)
{
    return stream << "status " << run.status << "\noutput:\n"
                  << run.output << "error:\n"
                  << run.error;
}

BatchRun BatchFolder::run(const std::vector<std::string> &arguments,
                          const std::function<void()> &inChild) const
{
    QProcess process;
    process.setChildProcessModifier(inChild);
    start(process, arguments);
    return finish(process);
}

std::string BatchFolder::runOnTerminal(const std::vector<std::string> &arguments) const
{
    const int terminal = posix_openpt(O_RDWR | O_NOCTTY);
    if (terminal < 0 || grantpt(terminal) != 0 || unlockpt(terminal) != 0)
        return noTerminal;
    QProcess process;
    process.setStandardErrorFile(ptsname(terminal));
    start(process, arguments);
    std::string text;
    std::array<char, 256> part;
    // Reading fails when the command, the last to have the other end, has ended.
    for (ssize_t size = 1; size > 0; text.append(part.data(), static_cast<std::size_t>(size)))
        size = std::max<ssize_t>(read(terminal, part.data(), part.size()), 0);
    close(terminal);
    return text + finish(process).output;
}

void BatchFolder::start(QProcess &process, const std::vector<std::string> &arguments) const
{
    QStringList list;
    for (const std::string &argument : arguments)
        list << QString::fromStdString(argument);
    // Under nohup the tests would hand on that a hang-up is ignored.
    process.setChildProcessModifier([inChild = process.childProcessModifier()] {
        for (const int signalNumber : {SIGINT, SIGTERM, SIGHUP})
            signal(signalNumber, SIG_DFL);
        if (inChild)
            inChild();
    });
    process.setWorkingDirectory(QString::fromStdString(path("")));
    process.start(BATCH_COMMAND, list);
    process.waitForStarted(milliseconds);
}

std::vector<std::string> BatchFolder::names() const
{
    std::vector<std::string> names;
    for (const auto &entry : std::filesystem::directory_iterator(path("")))
        names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
}

std::map<std::string, std::string> BatchFolder::contents() const
{
    std::map<std::string, std::string> contents;
    for (const auto &entry : std::filesystem::recursive_directory_iterator(path("")))
        contents[entry.path().string()] = contentOf(entry);
    return contents;
}

void expectRefused(const BatchFolder &folder, const std::vector<std::string> &arguments,
                   const std::string &lines, const std::function<void()> &inChild)
{
    const std::map<std::string, std::string> before = folder.contents();
    EXPECT_EQ(folder.run(arguments, inChild), (BatchRun{1, "", lines + '\n'}))
        << testing::PrintToString(arguments);
    EXPECT_EQ(folder.contents(), before) << testing::PrintToString(arguments);
}

BatchRun finish(QProcess &process)
{
    if (process.state() != QProcess::NotRunning && !process.waitForFinished(milliseconds))
        return {-1, "", "The command does not come to its end."};
    if (process.error() == QProcess::FailedToStart)
        return {-1, "", "The command does not start."};
    const int code = process.exitCode();
    return {process.exitStatus() == QProcess::NormalExit ? code : -code,
            process.readAllStandardOutput().toStdString(),
            process.readAllStandardError().toStdString()};
}

bool isPart(const std::string &name)
{
    return name.starts_with(".convert2velarix-part-");
}

void sendSignal(const QProcess &process, int signal)
{
    kill(static_cast<pid_t>(process.processId()), signal);
}

bool waitUntil(const std::function<bool()> &condition)
{
    const auto end = std::chrono::steady_clock::now() + std::chrono::milliseconds(milliseconds);
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end)
            return false;
        std::this_thread::sleep_for(std::chrono::microseconds(100));
    }
    return true;
}
