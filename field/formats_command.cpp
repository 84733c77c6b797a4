// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "field/formats_command.h"

#include "console/messages.h"
#include "field/json.h"

#include <iostream>

namespace {

std::string padded(std::string text, std::size_t width)
{
    text.resize(std::max(text.size(), width), ' ');
    return text;
}

std::string lineOf(const std::string &name, const std::string &holds, const std::string &use,
                   const std::string &extensions, const std::string &title)
{
    return padded(name, 12) + padded(holds, 9) + padded(use, 12) + padded(extensions, 17) + title
           + '\n';
}

std::string useOf(const Format &format)
{
    const bool isRead = format.readPicks != nullptr || format.readRecord != nullptr;
    const bool isWritten = format.writePicks != nullptr || format.writesRecords;
    return isRead && isWritten ? "read, write" : isRead ? "read" : "write";
}

std::string extensionsOf(const Format &format)
{
    std::string text;
    for (const std::string &extension : format.extensions)
        text += (text.empty() ? "." : " .") + extension;
    return text;
}

bool isOfPicks(const Format &format)
{
    return format.readPicks != nullptr || format.writePicks != nullptr;
}

} // namespace

int runFormats(const Request & /*request*/)
{
    std::cout << lineOf("format", "holds", "use", "extensions", "what it is");
    for (const Format &format : formats())
        std::cout << lineOf(format.name, isOfPicks(format) ? "picks" : "records", useOf(format),
                            extensionsOf(format), format.title);
    Report report;
    flushOutput(report);
    return conclude(report, false, "");
}
