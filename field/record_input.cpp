// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "field/record_input.h"

#include "traveltime/text.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <system_error>

#include <QString>
#ifndef _WIN32
#include <unistd.h>
#endif

namespace {

/// Reads bytes into `to`; returns how many, 0 at the file's end and when it cannot be read.
std::size_t readAt(RecordInput &input, std::uint64_t position, char *to, std::size_t count)
{
#ifdef _WIN32
    input.file.seek(static_cast<qint64>(position));
    const qint64 read = input.file.read(to, static_cast<qint64>(count));
    if (read < 0)
        input.error = input.file.errorString().toStdString();
#else
    // One call of the system instead of two: the headers of a record are many.
    const ssize_t read = pread(input.file.handle(), to, count, static_cast<off_t>(position));
    if (read < 0)
        input.error = std::generic_category().message(errno);
#endif
    return read > 0 ? static_cast<std::size_t>(read) : 0;
}

/// Has the input hold `count` bytes from `position` on, or as many as can be read.
void hold(RecordInput &input, std::uint64_t position, std::size_t count)
{
    const std::uint64_t heldEnd = input.heldAt + input.heldSize;
    const bool overlaps = position >= input.heldAt && position < heldEnd;
    std::size_t end = overlaps ? static_cast<std::size_t>(heldEnd - position) : 0;
    if (input.buffer.size() < count)
        input.buffer.resize(count);
    char *const bytes = input.buffer.data();
    std::memmove(bytes, bytes + (input.heldSize - end), end);
    std::size_t read = 0;
    while (end < count && (read = readAt(input, position + end, bytes + end, count - end)) > 0)
        end += read;
    input.heldAt = position;
    input.heldSize = end;
}

std::string_view takeBytes(RecordInput &input, std::uint64_t position, std::size_t count,
                           std::size_t readAtOnce)
{
    if (position >= input.size)
        return {};
    const std::uint64_t left = input.size - position;
    if (position < input.heldAt || position + count > input.heldAt + input.heldSize)
        hold(input, position,
             static_cast<std::size_t>(std::min<std::uint64_t>(std::max(count, readAtOnce), left)));
    const std::string_view held(input.buffer.data(), input.heldSize);
    return held.substr(static_cast<std::size_t>(position - input.heldAt), count);
}

} // namespace

bool openRecord(RecordInput &input, const std::string &path, Report &report)
{
    report.place = {path};
    input.file.setFileName(QString::fromStdString(path));
    if (path.empty() || !input.file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return fail(report, path.empty() ? "no file" : input.file.errorString().toStdString());
    input.size = static_cast<std::uint64_t>(input.file.size());
    return input.size > 0 || fail(report, "the file is empty");
}

std::string_view bytesAt(RecordInput &input, std::uint64_t position, std::size_t count)
{
    return takeBytes(input, position, count, std::size_t{1} << 18);
}

std::string_view fewBytesAt(RecordInput &input, std::uint64_t position, std::size_t count)
{
    return takeBytes(input, position, count, count);
}

bool failAtDamage(const RecordInput &input, std::size_t number, const std::string &text,
                  Report &report)
{
    const std::string reason = input.error.empty() ? text : input.error;
    const std::string rest =
        number == 1 ? "no whole trace can be read"
                    : "only the " + counted(number - 1, "whole trace") + " before it can be read";
    return fail(report, reason + ": " + rest);
}
