// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "console/messages.h"

#include "traveltime/text.h"

#include <QCoreApplication>

#include <iostream>
#include <map>
#include <utility>

namespace {

/// Shows one line, whatever it quotes: a file given by mistake may be binary.
void show(const std::string &line)
{
    std::cerr << inOneLine(line) + '\n';
}

void show(const Place &place, const std::string &text)
{
    const std::string line = place.line != 0 ? std::to_string(place.line) + ':' : "";
    show(place.file + ':' + line + ' ' + text);
}

void showRemarks(const Report &report)
{
    std::map<std::pair<std::string, RemarkKind>, std::size_t> shown;
    for (const Remark &remark : report.remarks) {
        const std::pair kind(remark.place.file, remark.kind);
        const std::size_t count = report.remarkCounts.at(kind);
        if (report.worst.contains(kind)) {
            show(remark.place,
                 remark.text + (count > 1 ? " (the worst of " + std::to_string(count) + ')' : ""));
            continue;
        }
        show(remark.place, remark.text);
        if (++shown[kind] == mostRemarks && count > mostRemarks)
            show({remark.place.file}, std::to_string(count - mostRemarks) + " more of this kind");
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

int conclude(const Report &report, bool isStrict, const std::string &name)
{
    showRemarks(report);
    if (report.failure)
        show(report.failure->place, report.failure->text);
    else if (!isAccepted(report, isStrict))
        show({name}, "nothing is made: --strict takes no remarks");
    return isAccepted(report, isStrict) ? converted : conversionFailed;
}

int refuseUsage(const std::string &reason)
{
    show(QCoreApplication::applicationName().toStdString() + ": " + reason + "; see --help");
    return wrongUsage;
}
