// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "field/record_output.h"

namespace {

bool writeFirst(RecordOutput &output, std::size_t size, Report &report)
{
    output.stream.write(output.bytes.data(), static_cast<std::streamsize>(size));
    output.bytes.erase(0, size);
    output.start += size;
    return output.stream.flush() || failInSystem(report, output.path);
}

} // namespace

bool createOutput(RecordOutput &output, const std::string &path, Report &report)
{
    output.path = path;
    output.stream.open(path, std::ios::binary);
    return output.stream.is_open() || failInSystem(report, path);
}

bool writeRest(RecordOutput &output, Report &report)
{
    return writeFirst(output, output.bytes.size(), report);
}

bool writeLargePiece(RecordOutput &output, Report &report)
{
    constexpr std::size_t enough = std::size_t{1} << 18;
    constexpr std::size_t page = 4096;
    if (output.bytes.size() < enough)
        return true;
    const std::uint64_t end = output.start + output.bytes.size();
    return writeFirst(output, output.bytes.size() - end % page, report);
}
