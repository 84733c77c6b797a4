// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "batch/report.h"

#include "traveltime/text.h"

#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>

#ifdef _WIN32
#include <io.h>
constexpr int R_OK = 4;
constexpr int W_OK = 2;
#else
#include <unistd.h>
#endif

namespace {

/// Writes one line at once, whatever it quotes: a file given by mistake may be binary.
void tellUser(std::string line)
{
    constexpr std::size_t longest = 1000;
    if (line.size() > longest)
        line.replace(longest, std::string::npos, "...");
    for (char &character : line)
        if (static_cast<unsigned char>(character) < ' ' || character == 127)
            character = '?';
    std::cerr << line + '\n';
}

/// How a file begins; nothing of a pipe, which gives what it holds only once.
std::string firstBytes(const std::string &path)
{
    std::string bytes(3, '\0');
    std::error_code ignored;
    if (std::filesystem::is_regular_file(path, ignored))
        std::ifstream(path, std::ios::binary).read(bytes.data(), 3);
    return bytes;
}

/// The size of a readable text's byte order mark; that of UTF-16 is a problem.
std::size_t readMark(const std::string &path, Problem &problem)
{
    if (!isReadable(path, problem))
        return 0;
    const std::size_t mark = markSize(firstBytes(path));
    if (mark == 2)
        tell(problem, "this text is in UTF-16: save it as UTF-8");
    return mark;
}

} // namespace

bool attempt(const std::function<std::int32_t()> &conversion, Problem &problem)
{
    bool wentWell = false;
    std::cerr.setstate(std::ios::badbit);
    try {
        wentWell = conversion() == 0;
    } catch (const std::exception &error) {
        problem.detail = error.what() + (problem.detail.empty() ? "" : ": " + problem.detail);
    }
    std::cerr.clear();
    if (!wentWell)
        tell(problem, "not converted");
    return problem.detail.empty();
}

void report(const Problem &problem)
{
    const std::string &text = problem.detail.empty() ? problem.remark : problem.detail;
    if (text.empty())
        return;
    const std::string line = problem.line != 0 ? std::to_string(problem.line) + ':' : "";
    tellUser(problem.file + ':' + line + ' ' + text);
}

bool isReadable(const std::string &path, Problem &problem)
{
    std::error_code error;
    const std::filesystem::file_status status = std::filesystem::status(path, error);
    problem.file = path;
    if (status.type() == std::filesystem::file_type::not_found)
        tell(problem, "no such file");
    else if (!std::filesystem::exists(status))
        tell(problem, error.message());
    else if (std::filesystem::is_directory(status))
        tell(problem, "this is a folder");
    else if (access(path.c_str(), R_OK) != 0)
        tell(problem, "no permission to read this file");
    return problem.detail.empty();
}

bool isReadableText(const std::string &path, Problem &problem)
{
    readMark(path, problem);
    return problem.detail.empty();
}

bool isReadableFromItsStart(const std::string &path, Problem &problem)
{
    if (readMark(path, problem) == 3)
        tell(problem, "this text begins with a byte order mark: save it without one");
    return problem.detail.empty();
}

bool isWritable(const std::string &path)
{
    return access(path.c_str(), W_OK) == 0;
}

bool isSameFile(const std::string &first, const std::string &second)
{
    std::error_code ignored;
    return std::filesystem::equivalent(first, second, ignored);
}

int refuseUsage(const std::string &reason)
{
    tellUser("convert2velarix-batch: " + reason + "; --help tells more");
    return wrongUsage;
}
