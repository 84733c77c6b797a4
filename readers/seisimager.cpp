// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "readers/seisimager.h"

#include "traveltime/fields.h"
#include "traveltime/text.h"

namespace {

/// What was read so far, and the counts as the file writes them.
struct Progress
{
    std::string shotCount = {};
    std::int32_t shots = 0;
    std::size_t shotLine = 0;
    std::string receiverCount = {}; ///< of the shot that is being read
    std::uint32_t receivers = 0;
};

/// A receiver's line that looks like something else: a receiver may be missing before it.
struct Suspicion
{
    std::size_t line = 0; ///< 0 for none
    bool isTrailer = false;
    std::string text = {};
    Report before = {}; ///< as it was at that line
};

/// The file as it is read, with the current line cut into fields.
struct SeisImagerFile
{
    TextFile text;
    std::string line = {};
    std::vector<std::string> fields = {};
    Progress progress = {};
    Suspicion suspicion = {};
};

std::string ending(const Progress &progress)
{
    if (progress.shotCount.empty())
        return "the file ends before its number of shots";
    std::string text =
        "the file ends after " + std::to_string(progress.shots) + " of " + progress.shotCount;
    text += " shots";
    if (!progress.receiverCount.empty())
        text += " and " + std::to_string(progress.receivers) + " of " + progress.receiverCount
                + " receivers";
    return text;
}

/// Gives up what was remarked on since the suspicious line: all of it came of reading a line as
/// what it is not.
Place believe(const Suspicion &suspicion, Report &report)
{
    report.remarks = suspicion.before.remarks;
    report.remarkCounts = suspicion.before.remarkCounts;
    report.worst = suspicion.before.worst;
    return {report.place.file, suspicion.line};
}

/// Reads the next line, which must have at least two fields. What goes wrong may show only long
/// after the line that is the reason for it.
void readTwoFields(SeisImagerFile &file, Report &report)
{
    const bool isThere = nextLine(file.text, file.line, report);
    splitNumbers(file.line, file.fields, " ", report);
    if (file.fields.size() < 2 && file.suspicion.line != 0)
        fail(report, believe(file.suspicion, report), file.suspicion.text);
    else if (!isThere)
        fail(report, ending(file.progress));
    requireFields(file.fields, 2, report);
}

bool isZero(const std::string &field)
{
    return field.find_first_not_of("0.\r") == std::string::npos
           && field.find('0') != std::string::npos;
}

/// A shot's line, as pickers write it, has a whole number of receivers and then a 0.
bool looksLikeShot(const std::vector<std::string> &fields)
{
    return fields.size() >= 3 && fields[1].find_first_not_of("0123456789") == std::string::npos
           && !isZero(fields[1]) && isZero(fields[2]);
}

/// The lines after the last shot, as pickers write them, hold nothing but zeros.
bool looksLikeTrailer(const std::vector<std::string> &fields)
{
    return fields.size() == 2 && isZero(fields[0]) && isZero(fields[1]);
}

/// Takes note of the first receiver's line that looks like none.
void suspect(bool isShot, bool isTrailer, SeisImagerFile &file, const Report &report)
{
    if (file.suspicion.line != 0 || (!isShot && !isTrailer))
        return;
    file.suspicion = {report.place.line, isTrailer,
                      "shot " + std::to_string(file.progress.shots + 1) + ", line "
                          + std::to_string(file.progress.shotLine) + ", says "
                          + file.progress.receiverCount + " receivers, but line "
                          + std::to_string(report.place.line) + " looks like "
                          + (isShot ? "a shot line" : "the end of the survey"),
                      report};
}

/// Reads a shot's line and its receivers' lines into the survey.
void readShot(SeisImagerFile &file, TraveltimeSurvey &survey, SpreadIndex &index, Report &report)
{
    Progress &progress = file.progress;
    progress.receiverCount.clear();
    readTwoFields(file, report);
    progress.shotLine = report.place.line;
    progress.receiverCount = quotable(file.fields[1]);
    const double shotX = readPosition(file.fields[0], report);
    // -1 is 4294967295: the file ends before, with an error.
    const auto receiverCount = static_cast<std::uint32_t>(readInteger(file.fields[1], report));
    if (receiverCount == 0)
        remark(report, RemarkKind::noReceivers,
               "shot " + std::to_string(progress.shots + 1) + " has no receivers");
    survey.shots.push_back({shotX, 0.0, ""});

    Spread receivers;
    std::vector<double> times;
    // What the first receiver's line looks like means nothing in the others.
    bool mayBeShot = false;
    bool mayBeTrailer = false;
    for (progress.receivers = 0; progress.receivers < receiverCount; ++progress.receivers) {
        readTwoFields(file, report);
        if (progress.receivers == 0) {
            mayBeShot = !looksLikeShot(file.fields);
            mayBeTrailer = file.fields.size() > 2;
        }
        suspect(mayBeShot && looksLikeShot(file.fields),
                mayBeTrailer && looksLikeTrailer(file.fields), file, report);
        receivers.push_back({readPosition(file.fields[0], report), 0.0});
        times.push_back(readTime(file.fields[1], 1000.0, report));
    }
    const std::uint32_t spread = findOrAddSpread(survey.spreads, std::move(receivers), index);
    survey.traveltimes.push_back(
        {spread, static_cast<std::uint32_t>(progress.shots), shotX, 0.0, std::move(times)});
}

/// Pickers write zeros after the last shot.
void remarkOnLinesLeft(const std::string &firstLine, SeisImagerFile &file, Report &report)
{
    const Rest rest = readRest([&](std::string &line) { return nextLine(file.text, line, report); },
                               "0. \t\r", report);
    const bool isSurvey = rest.firstLine == firstLine;
    if (file.suspicion.isTrailer || (file.suspicion.line != 0 && rest.lineCount > 0 && !isSurvey))
        remark(report, RemarkKind::notRead, believe(file.suspicion, report), file.suspicion.text);
    else
        remarkOnRest(rest, isSurvey, report);
}

} // namespace

std::int32_t readSeisImagerTraveltimes(std::string path, std::vector<ShotTraveltimes> &traveltimes,
                                       std::vector<Spread> &spreads, std::vector<Shot> &shots)
{
    Report report = windowReport();
    readIntoSurvey(traveltimes, spreads, shots, [&](TraveltimeSurvey &survey) {
        SpreadIndex index;
        readSeisImager(path, survey, index, report);
    });
    return finish(report);
}

bool readSeisImager(const std::string &path, TraveltimeSurvey &survey, SpreadIndex &index,
                    Report &report)
{
    return attempt(report, [&] {
        SeisImagerFile file{loadText(path, report)};
        if (!file.text.isOpen) {
            fail(report, "the file cannot be opened");
            return;
        }
        nextLine(file.text, file.line, report);
        const std::string firstLine = file.line;
        // Not used, but a line of blanks alone is refused.
        splitLine(firstLine, file.fields, " ", report);
        readTwoFields(file, report);
        const std::int32_t shotCount = readInteger(file.fields[1], report);
        file.progress.shotCount = quotable(file.fields[1]);
        if (shotCount <= 0)
            remark(report, RemarkKind::noShots, "there are no shots in this file");

        for (; file.progress.shots < shotCount; ++file.progress.shots)
            readShot(file, survey, index, report);
        remarkOnLinesLeft(firstLine, file, report);
    });
}
