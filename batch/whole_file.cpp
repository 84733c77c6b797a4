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
constexpr std::array endingSignals = {SIGINT, SIGTERM, SIGHUP, SIGPIPE};
#endif

extern "C" void removeUnfinished(int signal)
{
    for (int i = 0; i < unfinishedCount; ++i)
        std::remove(unfinished[static_cast<std::size_t>(i)].data());
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

void beginUnfinished(const std::string &path)
{
    const auto index = static_cast<std::size_t>(unfinishedCount);
    std::strncpy(unfinished[index].data(), path.c_str(), longestPath - 1);
    unfinishedCount = unfinishedCount + 1;
    for (const int signal : endingSignals)
        if (std::signal(signal, removeUnfinished) == SIG_IGN)
            std::signal(signal, SIG_IGN); // as under nohup
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
    if (fs::exists(before) && !fs::is_regular_file(before))
        return write(path);
    if (fs::exists(before) && (path.starts_with("/dev/") || path.starts_with("/proc/")))
        return fail(path, std::make_error_code(std::errc::operation_not_supported), problem);
    if (fs::exists(before) && !isWritable(path))
        return fail(path, std::make_error_code(std::errc::permission_denied), problem);

    // Through a link, the file that it leads to is replaced, not the link.
    std::string target = path;
    if (fs::exists(before))
        target = fs::canonical(path, error).string();
    else if (fs::is_symlink(path, error))
        target = (fs::path(path).parent_path() / fs::read_symlink(path, error)).string();
    // A short name of its own, so that the longest name that the system takes can be written.
    const fs::path partialName = ".part-" + std::to_string(QCoreApplication::applicationPid()) + '-'
                                 + std::to_string(unfinishedCount);
    const std::string partial = (fs::path(target).parent_path() / partialName).string();
    beginUnfinished(partial);
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
