// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include <filesystem>
#include <string>

/// A folder for one test, removed with what it holds.
class TemporaryFolder
{
public:
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder &) = delete;
    TemporaryFolder &operator=(const TemporaryFolder &) = delete;

    /// The path of `name` in the folder, whether or not it exists.
    std::string path(const std::string &name) const;
    /// Writes a file byte by byte and returns its path.
    std::string write(const std::string &name, const std::string &bytes) const;

private:
    std::filesystem::path folder;
};

/// Makes a folder the working directory while it lives.
class WorkingFolder
{
public:
    explicit WorkingFolder(const std::string &path);
    ~WorkingFolder();
    WorkingFolder(const WorkingFolder &) = delete;
    WorkingFolder &operator=(const WorkingFolder &) = delete;

private:
    std::filesystem::path before = std::filesystem::current_path();
};

/// What a file holds; fails the test when it cannot be read.
std::string readFile(const std::string &path);

bool exists(const std::string &path);

/// The system's text for an error number, in the language of the process's locale.
std::string systemText(int code);

/// A file of tests/data, by its name there.
std::string dataFile(const std::string &name);

/// Collects what is written to the standard output and error streams of the process, by the C++
/// streams or past them, from its making to finish().
class CapturedStreams
{
public:
    CapturedStreams();
    ~CapturedStreams();
    CapturedStreams(const CapturedStreams &) = delete;
    CapturedStreams &operator=(const CapturedStreams &) = delete;

    /// Ends the collecting; `output` and `error` hold the texts afterwards.
    void finish();

    std::string output;
    std::string error;

private:
    TemporaryFolder folder;
    int outputBefore = -1;
    int errorBefore = -1;
};
