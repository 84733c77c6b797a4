// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "batch/whole_file.h"

#include "batch/report.h"

#include <QCoreApplication>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <system_error>

namespace {

// What a signal has to remove: the files that are being written, one conversion's at most.
constexpr std::size_t longestPath = 4096;
std::array<std::array<char, longestPath>, 2> unfinished;
volatile std::sig_atomic_t unfinishedCount = 0;

#ifdef _WIN32
constexpr std::array endingSignals = {SIGINT, SIGTERM};
#else
constexpr std::array endingSignals = {SIGINT, SIGTERM, SIGHUP, SIGPIPE, SIGQUIT, SIGXCPU};
#endif

extern "C" void removeUnfinished(int signal)
{
    for (int i = 0; i < unfinishedCount; ++i)
        std::remove(unfinished[static_cast<std::size_t>(i)].data());
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

/// Makes an empty file of a short name in the folder, so that the longest name that the system
/// takes can be written beside it, and of a name that no other run has. Empty when the system
/// refuses.
std::string reserve(const std::filesystem::path &folder)
{
    const std::string name = ".part-" + std::to_string(QCoreApplication::applicationPid()) + '-';
    for (int number = 0;; ++number) {
        std::string path = (folder / (name + std::to_string(number))).string();
        if (std::FILE *file = std::fopen(path.c_str(), "wx")) {
            std::fclose(file);
            return path;
        }
        if (errno != EEXIST)
            return "";
    }
}

/// Reserves a file and sees to its removal by the signals, which wait until both are done.
std::string beginUnfinished(const std::filesystem::path &folder)
{
    for (const int signal : endingSignals)
        if (std::signal(signal, removeUnfinished) == SIG_IGN)
            std::signal(signal, SIG_IGN); // as under nohup
#ifndef _WIN32
    std::signal(SIGXFSZ, SIG_IGN); // a limit of the file size ends the writing, not the process
    sigset_t ending;
    sigset_t before;
    sigemptyset(&ending);
    for (const int signal : endingSignals)
        sigaddset(&ending, signal);
    sigprocmask(SIG_BLOCK, &ending, &before);
#endif
    std::string path = reserve(folder);
    if (!path.empty()) {
        const auto index = static_cast<std::size_t>(unfinishedCount);
        std::strncpy(unfinished[index].data(), path.c_str(), longestPath - 1);
        unfinishedCount = unfinishedCount + 1;
    }
#ifndef _WIN32
    const int reason = errno;
    sigprocmask(SIG_SETMASK, &before, nullptr);
    errno = reason;
#endif
    return path;
}

/// True for the names of what the process has open already.
bool isOpenDescriptor(const std::string &path)
{
    return path.starts_with("/dev/std") || path.starts_with("/dev/fd/")
           || path.starts_with("/proc/");
}

bool fail(const std::string &path, const std::error_code &error, Problem &problem)
{
    if (problem.detail.empty()) {
        problem.file = path;
        problem.line = 0;
        problem.detail = error.message();
    }
    return false;
}

} // namespace

bool writeWhole(const std::string &path, const std::function<bool(const std::string &)> &write,
                Problem &problem)
{
    namespace fs = std::filesystem;
    std::error_code error;
    const fs::file_status before = fs::status(path, error);
    if (before.type() == fs::file_type::none)
        return fail(path, error, problem);
    if (fs::exists(before) && !fs::is_regular_file(before))
        return write(path);
    if (fs::exists(before) && isOpenDescriptor(path))
        return fail(path, std::make_error_code(std::errc::operation_not_supported), problem);
    if (fs::exists(before) && !isWritable(path))
        return fail(path, std::make_error_code(std::errc::permission_denied), problem);

    // Through links, the file that they lead to is replaced, not the link.
    fs::path target = path;
    while (fs::is_symlink(target, error))
        target = target.parent_path() / fs::read_symlink(target, error);
    const std::string partial = beginUnfinished(target.parent_path());
    if (partial.empty())
        return fail(path, std::error_code(errno, std::generic_category()), problem);
    bool whole = write(partial);
    if (problem.file == partial)
        problem.file = path;
    if (whole && fs::exists(before))
        fs::permissions(partial, before.permissions(), error);
    if (whole) {
        fs::rename(partial, target, error);
        whole = !error || fail(path, error, problem);
    }
    if (!whole)
        std::remove(partial.c_str());
    unfinishedCount = unfinishedCount - 1;
    return whole;
}
