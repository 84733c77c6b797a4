// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "tests/support/support.h"

#include <QProcess>

#include <functional>
#include <map>
#include <ostream>
#include <string>
#include <vector>

/// How a run of convert2velarix-batch ended, with all that it wrote to the standard streams.
struct BatchRun
{
    int status = 0; ///< minus the number of the signal, when one ended it
    std::string output = {};
    std::string error = {};

    bool operator==(const BatchRun &) const = default;
};

/// For the messages of failed tests.
std::ostream &operator<<(std::ostream &stream, const BatchRun &run);

/// What runOnTerminal gives where the system has no terminals to offer.
inline const std::string noTerminal = "There is no terminal.";

/// A folder in which convert2velarix-batch runs.
class BatchFolder : public TemporaryFolder
{
public:
    /// Runs the command to its end; `inChild` is called in the new process before the command.
    BatchRun run(const std::vector<std::string> &arguments,
                 const std::function<void()> &inChild = {}) const;
    /// The same with a terminal as the standard error stream; gives what is written there. Nothing
    /// must be written to the standard output stream.
    std::string runOnTerminal(const std::vector<std::string> &arguments) const;
    /// Starts the command and comes back at once.
    void start(QProcess &process, const std::vector<std::string> &arguments) const;

    /// What the folder holds, sorted.
    std::vector<std::string> names() const;
    /// Everything in the folder and below it by its path, with what a regular file holds; of one
    /// above a megabyte, or that may not be read, its size.
    std::map<std::string, std::string> contents() const;
};

/// Expects that the command fails with these lines on the standard error stream, and that it leaves
/// everything in the folder as it was.
void expectRefused(const BatchFolder &folder, const std::vector<std::string> &arguments,
                   const std::string &lines, const std::function<void()> &inChild = {});

/// Whether a name is that of an output that is not in its place yet.
bool isPart(const std::string &name);

/// Waits for the end of a command that was started.
BatchRun finish(QProcess &process);

/// Sends a signal to a command that was started.
void sendSignal(const QProcess &process, int signal);

/// Waits until `condition` holds; false when it still does not after a long while.
bool waitUntil(const std::function<bool()> &condition);
