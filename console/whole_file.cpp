// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "console/whole_file.h"

#include "console/file_checks.h"

#include <QCoreApplication>

#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <optional>
#include <random>
#include <system_error>

#ifdef RENAME_EXCHANGE
#include <fcntl.h>
#endif

namespace fs = std::filesystem;

namespace {

#ifdef _WIN32
constexpr std::array endingSignals = {SIGINT, SIGTERM};
#else
constexpr std::array endingSignals = {SIGINT, SIGTERM, SIGHUP, SIGPIPE};
#endif

// What a signal has to remove: the new files of one call of writeWhole().
constexpr std::size_t longestPath = 4096;
std::array<std::array<char, longestPath>, 2> unfinished;
std::atomic<std::size_t> unfinishedCount = 0;

std::atomic<bool> areSignalsHeld = false;
std::atomic<int> heldSignal = 0;

extern "C" void endProcess(int signal)
{
    if (areSignalsHeld) {
        heldSignal = signal;
        std::signal(signal, endProcess); // some systems reset it
        return;
    }
    for (std::size_t i = 0; i < unfinishedCount; ++i)
        std::remove(unfinished[i].data());
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

/// Has the signals that end the process wait while it lives.
class HeldSignals
{
public:
    HeldSignals()
    {
        areSignalsHeld = true;
    }
    ~HeldSignals()
    {
        areSignalsHeld = false;
        if (heldSignal != 0)
            endProcess(heldSignal);
    }
    HeldSignals(const HeldSignals &) = delete;
    HeldSignals &operator=(const HeldSignals &) = delete;
};

void catchSignals()
{
    for (const int signal : endingSignals)
        if (std::signal(signal, endProcess) == SIG_IGN)
            std::signal(signal, SIG_IGN); // as under nohup
#ifndef _WIN32
    std::signal(SIGXFSZ, SIG_IGN); // a limit of the file size fails the writing, not the process
#endif
}

struct Output
{
    fs::path target;                ///< the file to replace, after all links
    std::optional<fs::perms> older; ///< the permissions of the older file, if there is one
    std::string part;               ///< the new file beside it; empty when written directly
};

/// Whether the path names what the process has open already.
bool isOpenDescriptor(const std::string &path)
{
    return path.starts_with("/dev/std") || path.starts_with("/dev/fd/")
           || path.starts_with("/proc/");
}

/// Finds out where an output goes; false when it cannot go there.
bool locate(const std::string &path, Output &output, Report &report)
{
    std::error_code error;
    const fs::file_status status = fs::status(path, error);
    if (status.type() == fs::file_type::none)
        return fail(report, {path}, error.message());
    if (fs::is_directory(status))
        return fail(report, {path}, "this is a folder");
    output.target = path;
    if (!fs::exists(status) || fs::is_regular_file(status)) {
        while (fs::is_symlink(output.target, error))
            output.target = output.target.parent_path() / fs::read_symlink(output.target, error);
    }
    if (!fs::is_regular_file(status))
        return true;
    if (isOpenDescriptor(path))
        return fail(report, {path},
                    "leads into a file here, which would not be replaced whole: "
                    "name that file as the output");
    if (!isWritable(path))
        return fail(report, {path}, "no permission to write this file");
    output.older = status.permissions();
    return true;
}

/// Names a new file beside the target, after trying that it can be made. No other run takes the
/// name, not even one of the same process number in another container, and it is short: the longest
/// name that the system takes can be written. False when the system refuses.
bool namePart(Output &output)
{
    const std::string name =
        ".convert2velarix-part-" + std::to_string(QCoreApplication::applicationPid()) + '-';
    for (std::random_device random;;) {
        output.part = (output.target.parent_path() / (name + std::to_string(random()))).string();
        if (std::FILE *file = std::fopen(output.part.c_str(), "wx")) {
            std::fclose(file);
            std::strncpy(unfinished[unfinishedCount].data(), output.part.c_str(), longestPath - 1);
            ++unfinishedCount;
            // A file that stands already is cut when it is opened to be written, and one that was
            // cut some systems write to the disk when it is closed: a quarter of a record's time.
            std::remove(output.part.c_str());
            return true;
        }
        if (errno != EEXIST) {
            output.part.clear();
            return false;
        }
    }
}

/// Says why no file can be made in the target's folder, after the system refused.
bool failInFolder(const std::string &path, const Output &output, Report &report)
{
    const std::string folder = output.target.parent_path().string();
    if (errno == ENOENT && !folder.empty())
        return fail(report, {path}, "the folder " + folder + " does not exist");
    if (errno == ENOTDIR)
        return fail(report, {path}, folder + " is not a folder");
    return failInSystem(report, path);
}

bool begin(const std::vector<std::string> &paths, std::vector<Output> &outputs, Report &report)
{
    const HeldSignals held;
    for (const std::string &path : paths) {
        Output &output = outputs.emplace_back();
        if (!locate(path, output, report))
            return false;
        std::error_code ignored;
        const bool isDirect = fs::exists(output.target, ignored) && !output.older;
        if (!isDirect && !namePart(output))
            return failInFolder(path, output, report);
    }
    return true;
}

bool moveFile(const fs::path &from, const fs::path &to)
{
    std::error_code error;
    fs::rename(from, to, error);
    errno = error.value();
    return !error;
}

/// Gives two files each other's names.
bool swapNames(const fs::path &first, const fs::path &second)
{
#ifdef RENAME_EXCHANGE
    if (renameat2(AT_FDCWD, first.c_str(), AT_FDCWD, second.c_str(), RENAME_EXCHANGE) == 0)
        return true; // not every file system can
#endif
    const fs::path aside = first.string() + '~';
    if (!moveFile(second, aside))
        return false;
    if (moveFile(first, second) && moveFile(aside, first))
        return true;
    const int reason = errno;
    moveFile(aside, second);
    errno = reason;
    return false;
}

/// Puts the new file into its place, and the older one, which is still needed if a later output
/// fails, into that of the new one.
bool putIntoPlace(const Output &output, bool isLast)
{
    if (output.part.empty())
        return true;
    std::error_code ignored;
    if (output.older)
        fs::permissions(output.part, *output.older, ignored);
    return output.older && !isLast ? swapNames(output.part, output.target)
                                   : moveFile(output.part, output.target);
}

/// Undoes putIntoPlace() for an output that is not the last.
void takeBack(Output &output, Report &report)
{
    if (output.part.empty())
        return;
    if (!output.older) {
        moveFile(output.target, output.part);
    } else if (!swapNames(output.part, output.target)) {
        report.failure->text +=
            "; the older " + output.target.string() + " is kept as " + output.part;
        output.part.clear();
    }
}

bool putAllIntoPlace(const std::vector<std::string> &paths, std::vector<Output> &outputs,
                     Report &report)
{
    for (std::size_t i = 0; i < outputs.size(); ++i) {
        if (putIntoPlace(outputs[i], i + 1 == outputs.size()))
            continue;
        fail(report, {paths[i]},
             (outputs[i].older ? "cannot be replaced: " : "cannot be made: ")
                 + std::generic_category().message(errno));
        while (i-- > 0)
            takeBack(outputs[i], report);
        return false;
    }
    return true;
}

} // namespace

bool writeWhole(const std::vector<std::string> &paths,
                const std::function<bool(const std::vector<std::string> &)> &write, Report &report)
{
    catchSignals();
    std::vector<Output> outputs;
    bool isWhole = begin(paths, outputs, report);
    if (isWhole) {
        std::vector<std::string> parts;
        for (std::size_t i = 0; i < paths.size(); ++i)
            parts.push_back(outputs[i].part.empty() ? paths[i] : outputs[i].part);
        isWhole = attempt(report, [&] { isWhole = write(parts); }) && isWhole;
        for (std::size_t i = 0; i < paths.size(); ++i)
            if (report.failure && report.failure->place.file == parts[i])
                report.failure->place.file = paths[i];
    }
    const HeldSignals held;
    isWhole = isWhole && putAllIntoPlace(paths, outputs, report);
    for (const Output &output : outputs)
        std::remove(output.part.c_str());
    unfinishedCount = 0;
    return isWhole;
}
