// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "tests/support/support.h"

#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <fstream>
#include <iostream>
#include <iterator>
#include <stdexcept>
#include <system_error>
#include <unistd.h>

TemporaryFolder::TemporaryFolder()
{
    std::string name = (std::filesystem::temp_directory_path() / "convert2velarix-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr)
        throw std::runtime_error("no temporary folder: " + name);
    folder = name;
}

TemporaryFolder::~TemporaryFolder()
{
    std::error_code ignored;
    std::filesystem::remove_all(folder, ignored);
}

std::string TemporaryFolder::path(const std::string &name) const
{
    return (folder / name).string();
}

std::string TemporaryFolder::write(const std::string &name, const std::string &bytes) const
{
    std::ofstream stream(path(name), std::ios::binary);
    stream << bytes;
    stream.close();
    if (!stream)
        throw std::runtime_error("cannot write " + path(name));
    return path(name);
}

WorkingFolder::WorkingFolder(const std::string &path)
{
    std::filesystem::current_path(path);
}

WorkingFolder::~WorkingFolder()
{
    std::filesystem::current_path(before);
}

std::string readFile(const std::string &path)
{
    std::ifstream stream(path, std::ios::binary);
    if (!stream)
        throw std::runtime_error("cannot read " + path);
    return {std::istreambuf_iterator<char>(stream), {}};
}

bool exists(const std::string &path)
{
    return std::filesystem::exists(path);
}

std::string systemText(int code)
{
    return std::generic_category().message(code);
}

std::string dataFile(const std::string &name)
{
    return TEST_DATA_FOLDER "/" + name;
}

CapturedStreams::CapturedStreams()
{
    std::fflush(nullptr);
    std::cout.flush();
    outputBefore = dup(STDOUT_FILENO);
    errorBefore = dup(STDERR_FILENO);
    for (const auto &[name, descriptor] :
         {std::pair("output", STDOUT_FILENO), {"error", STDERR_FILENO}}) {
        const int file = open(folder.path(name).c_str(), O_CREAT | O_RDWR | O_APPEND, 0600);
        dup2(file, descriptor);
        close(file);
    }
}

CapturedStreams::~CapturedStreams()
{
    finish();
}

void CapturedStreams::finish()
{
    if (outputBefore < 0)
        return;
    std::cout.flush();
    std::cerr.flush();
    std::fflush(nullptr);
    dup2(outputBefore, STDOUT_FILENO);
    dup2(errorBefore, STDERR_FILENO);
    close(outputBefore);
    close(errorBefore);
    outputBefore = errorBefore = -1;
    output = readFile(folder.path("output"));
    error = readFile(folder.path("error"));
}
