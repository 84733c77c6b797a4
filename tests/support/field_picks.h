// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "field/picks.h"
#include "tests/support/support.h"

#include <sstream>
#include <string>
#include <vector>

// Surveys of picks in tests.

/// What reading a file gave. The file is called "line".
struct PickReading
{
    PickSurvey picks = {};
    std::string failure = {};              ///< "3: text", or "text" without a line; empty for none
    std::vector<std::string> remarks = {}; ///< each likewise
};

/// A place's line and a text, in one.
inline std::string told(const Place &place, const std::string &text)
{
    return (place.line != 0 ? std::to_string(place.line) + ": " : "") + text;
}

/// What a report tells, added to what was told before.
inline void addReport(PickReading &reading, const Report &report)
{
    if (report.failure)
        reading.failure = told(report.failure->place, report.failure->text);
    for (const Remark &remark : report.remarks)
        reading.remarks.push_back(told(remark.place, remark.text));
}

/// Reads a file of these bytes after what `before` holds.
inline PickReading readPicks(ReadPicks *read, const std::string &bytes,
                             const PickOptions &options = {}, const PickSurvey &before = {})
{
    const TemporaryFolder folder;
    PickReading reading{before};
    Report report;
    read(folder.write("line", bytes), options, reading.picks, report);
    addReport(reading, report);
    return reading;
}

using Remarks = std::vector<std::string>;

/// A text with a part of it replaced.
inline std::string replaced(std::string text, const std::string &from, const std::string &to)
{
    const std::size_t at = text.find(from);
    return at == std::string::npos ? "not in the text: " + from : text.replace(at, from.size(), to);
}

/// A survey in a few words: "-2.5,100: 0,100=0.0125 5,101=0.02; " for each shot.
inline std::string described(const PickSurvey &picks)
{
    std::ostringstream text;
    text.imbue(std::locale::classic());
    text.precision(12);
    const TraveltimeSurvey &survey = picks.survey;
    for (std::size_t i = 0; i < survey.shots.size(); ++i) {
        const ShotTraveltimes &record = survey.traveltimes.at(i);
        text << survey.shots[i].x << ',' << survey.shots[i].elevation << ':';
        for (std::size_t j = 0; j < record.times.size(); ++j) {
            const ReceiverPosition &receiver = survey.spreads.at(record.spreadIndex).at(j);
            text << ' ' << receiver.x << ',' << receiver.elevation << '=' << record.times[j];
            if (!picks.errors.at(i).empty())
                text << "+-" << picks.errors[i].at(j);
        }
        text << "; ";
    }
    return text.str();
}

/// The lines that picks and their shots were read from: "3: 4 5; " for each shot.
inline std::string linesOf(const PickSurvey &picks)
{
    std::string text;
    for (std::size_t i = 0; i < picks.shotOrigins.size(); ++i) {
        text += std::to_string(picks.shotOrigins[i].line) + ':';
        for (const Origin &origin : picks.origins.at(i))
            text += ' ' + std::to_string(origin.line);
        text += "; ";
    }
    return text;
}

/// What a writer writes.
inline std::string written(WritePicks *write, const PickSurvey &picks, Remarks *remarks = nullptr)
{
    const TemporaryFolder folder;
    Report report;
    if (!write(folder.path("output"), picks, report))
        return "failed";
    PickReading told;
    addReport(told, report);
    if (remarks != nullptr)
        *remarks = told.remarks;
    return readFile(folder.path("output"));
}
