// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "console/messages.h"

#include "traveltime/text.h"

#include <QCoreApplication>

#include <iostream>
#include <map>
#include <utility>

namespace {

/// One line, whatever it quotes: a file given by mistake may be binary.
std::string lineOf(const Place &place, const std::string &text)
{
    const std::string line = place.line != 0 ? std::to_string(place.line) + ':' : "";
    return inOneLine(place.file + ':' + line + ' ' + text);
}

void show(const std::string &line)
{
    std::cerr << line + '\n';
}

void addRemarks(const Report &report, std::vector<std::string> &lines)
{
    std::map<std::pair<std::string, RemarkKind>, std::size_t> added;
    for (const Remark &remark : report.remarks) {
        const std::pair kind(remark.place.file, remark.kind);
        const std::size_t count = report.remarkCounts.at(kind);
        if (report.worst.contains(kind)) {
            lines.push_back(lineOf(
                remark.place,
                remark.text + (count > 1 ? " (the worst of " + std::to_string(count) + ')' : "")));
            continue;
        }
        lines.push_back(lineOf(remark.place, remark.text));
        if (++added[kind] == mostRemarks && count > mostRemarks)
            lines.push_back(lineOf({remark.place.file},
                                   std::to_string(count - mostRemarks) + " more of this kind"));
    }
}

} // namespace

std::string inOneLine(std::string text)
{
    constexpr std::size_t longest = 1000;
    if (text.size() > longest)
        text.replace(longest, std::string::npos, "...");
    for (char &character : text)
        if (static_cast<unsigned char>(character) < ' ' || character == 127)
            character = '?';
    return text;
}

bool isAccepted(const Report &report, bool isStrict)
{
    return !report.failure && !(isStrict && !report.remarks.empty());
}

std::vector<std::string> messagesOf(const Report &report)
{
    std::vector<std::string> lines;
    addRemarks(report, lines);
    if (report.failure)
        lines.push_back(lineOf(report.failure->place, report.failure->text));
    return lines;
}

int conclude(const Report &report, bool isStrict, const std::string &name)
{
    for (const std::string &line : messagesOf(report))
        show(line);
    if (!report.failure && !isAccepted(report, isStrict))
        show(lineOf({name}, "nothing is made: --strict takes no remarks"));
    return isAccepted(report, isStrict) ? converted : conversionFailed;
}

int refuseUsage(const std::string &reason)
{
    show(inOneLine(QCoreApplication::applicationName().toStdString() + ": " + reason
                   + "; see --help"));
    return wrongUsage;
}
