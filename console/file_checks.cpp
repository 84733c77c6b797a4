// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "console/file_checks.h"

#include "traveltime/text.h"

#include <filesystem>
#include <fstream>
#include <system_error>

#ifdef _WIN32
#include <io.h>
constexpr int R_OK = 4;
constexpr int W_OK = 2;
#else
#include <unistd.h>
#endif

namespace {

/// The first three bytes of a regular file. A pipe can be read only once, so it gives none.
std::string firstBytes(const std::string &path)
{
    std::string bytes(3, '\0');
    std::error_code ignored;
    if (std::filesystem::is_regular_file(path, ignored))
        std::ifstream(path, std::ios::binary).read(bytes.data(), 3);
    return bytes;
}

} // namespace

bool isReadable(const std::string &path, Report &report)
{
    std::error_code error;
    const std::filesystem::file_status status = std::filesystem::status(path, error);
    if (status.type() == std::filesystem::file_type::not_found)
        return fail(report, {path}, "no such file");
    if (!std::filesystem::exists(status))
        return fail(report, {path}, error.message());
    if (std::filesystem::is_directory(status))
        return fail(report, {path}, "this is a folder");
    if (access(path.c_str(), R_OK) != 0)
        return fail(report, {path}, "no permission to read this file");
    if (std::filesystem::is_regular_file(status) && std::filesystem::file_size(path, error) == 0)
        return fail(report, {path}, "the file is empty");
    return true;
}

bool isReadableText(const std::string &path, Report &report)
{
    if (!isReadable(path, report))
        return false;
    if (markSize(firstBytes(path)) == 2)
        return fail(report, {path}, "this text is in UTF-16: save it as UTF-8");
    return true;
}

bool isReadableFromItsStart(const std::string &path, Report &report)
{
    if (!isReadableText(path, report))
        return false;
    if (markSize(firstBytes(path)) == 3)
        return fail(report, {path}, "this text begins with a byte order mark: save it without one");
    return true;
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

bool isThere(const std::string &path)
{
    std::error_code ignored;
    return std::filesystem::exists(path, ignored);
}
