// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "field/seisimager_picks.h"

#include "field/exact_number.h"
#include "field/pick_output.h"
#include "field/text_input.h"
#include "traveltime/text.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

/// What was read so far.
struct Progress
{
    std::string firstLine = {};
    std::size_t countLine = 0;
    std::size_t shotCount = 0;
    std::size_t shots = 0;
    std::size_t shotLine = 0; ///< 0 before the first shot's
    std::size_t receiverCount = 0;
    std::size_t receivers = 0;
    /// The first receiver's line that looks like something else: a receiver may be missing before
    /// it, which shows only further down.
    Failure suspicion = {};
    bool isTrailer = false; ///< it looks like the end of the survey
    bool hasFlags = false;  ///< receivers have third fields
    Place withoutFlag = {}; ///< the first receiver of two fields, whose time could be a flag
};

bool isZero(std::string_view field)
{
    return wholeNumber(field) == 0.0;
}

bool isWhole(std::string_view field)
{
    return field.find_first_not_of("0123456789") == std::string_view::npos;
}

/// A shot's line, as pickers write it, has a whole number of receivers and then a 0.
bool looksLikeShot(const std::vector<std::string_view> &fields)
{
    return fields.size() > 2 && isZero(fields[2]) && !isZero(fields[1]) && isWhole(fields[1]);
}

/// A receiver's line has a time and then a flag.
bool looksLikeReceiver(const std::vector<std::string_view> &fields)
{
    return fields.size() > 2 && wholeNumber(fields[1]) && !isWhole(fields[1]) && !isZero(fields[2]);
}

/// Pickers write lines of zeros after the last shot.
bool looksLikeTrailer(const std::vector<std::string_view> &fields)
{
    return std::all_of(fields.begin(), fields.end(), isZero);
}

/// Fails because the lines do not fit the counts: at the suspicious line, if there was one.
bool failInCounts(const std::string &text, const Progress &progress, Report &report)
{
    if (progress.suspicion.place.line != 0)
        return fail(report, progress.suspicion.place, progress.suspicion.text);
    return fail(report, text);
}

std::string ending(const Progress &progress)
{
    std::string text = "the file ends after " + std::to_string(progress.shots) + " of "
                       + counted(progress.shotCount, "shot");
    if (progress.shotLine != 0)
        text += " and " + std::to_string(progress.receivers) + " of "
                + counted(progress.receiverCount, "receiver");
    return text;
}

/// Goes to the next line with content, which must be there and have the two fields of `names`.
bool nextFields(const char *names, const Progress &progress, TextInput &input, Report &report)
{
    if (!nextContent(input, report))
        return failInCounts(ending(progress), progress, report);
    splitAtBlanks(input);
    if (input.fields.size() < 2)
        return failInCounts(std::string("1 field: ") + names + " expected", progress, report);
    return true;
}

/// Takes note of a receiver's line that looks like none. Where the shot's `first` receiver's line
/// looks the same, it means nothing.
void suspect(const std::vector<std::string_view> &first, const TextInput &input, Progress &progress,
             const Report &report)
{
    const bool isShot = looksLikeShot(input.fields) && !looksLikeShot(first);
    const bool isTrailer =
        looksLikeTrailer(input.fields) && input.fields.size() < 3 && first.size() > 2;
    if (progress.suspicion.place.line != 0 || (!isShot && !isTrailer))
        return;
    progress.isTrailer = isTrailer;
    progress.suspicion = {report.place, "shot " + std::to_string(progress.shots + 1) + ", line "
                                            + std::to_string(progress.shotLine) + ", says "
                                            + counted(progress.receiverCount, "receiver")
                                            + ", but this line looks like "
                                            + (isShot ? "a shot's" : "the end of the survey")};
}

bool readReceiver(std::vector<Pick> &receivers, Progress &progress, TextInput &input,
                  Report &report)
{
    progress.hasFlags = progress.hasFlags || input.fields.size() > 2;
    if (input.fields.size() == 2 && input.fields[1].size() == 1 && progress.withoutFlag.line == 0)
        progress.withoutFlag = report.place;
    Pick &pick = receivers.emplace_back();
    pick.line = lineOf(report);
    return readNumber(input.fields[0], "the receiver's x", pick.receiver.x, input, report)
           && readTime(input.fields[1], powerOf(TimeUnit::milliseconds), pick.time, input, report);
}

bool readShotLine(Shot &shot, Progress &progress, TextInput &input, Report &report)
{
    constexpr char names[] = "the shot's x and its number of receivers";
    const std::size_t lineBefore = std::exchange(progress.shotLine, 0);
    progress.receivers = 0;
    if (!nextFields(names, progress, input, report))
        return false;
    if (progress.suspicion.place.line != 0 && !looksLikeShot(input.fields))
        return failInCounts("", progress, report);
    if (input.fields.size() == 2 && looksLikeTrailer(input.fields))
        return fail(report, "this line looks like the end of the survey after "
                                + std::to_string(progress.shots) + " of "
                                + counted(progress.shotCount, "shot"));
    if (progress.shots > 0 && looksLikeReceiver(input.fields))
        return fail(report, "shot " + std::to_string(progress.shots) + ", line "
                                + std::to_string(lineBefore) + ", says "
                                + counted(progress.receiverCount, "receiver")
                                + ", but this line looks like another one");
    progress.shotLine = report.place.line;
    if (!readNumber(input.fields[0], "the shot's x", shot.x, input, report)
        || !readCount(input.fields[1], "the shot's number of receivers", progress.receiverCount,
                      input, report))
        return false;
    if (progress.receiverCount == 0)
        remark(report, RemarkKind::noReceivers,
               "shot " + std::to_string(progress.shots + 1) + " has no receivers");
    return true;
}

/// Reads a shot's lines into the survey; `receivers` is working space.
bool readShot(std::vector<Pick> &receivers, Progress &progress, PickSurvey &picks, TextInput &input,
              Report &report)
{
    Shot shot;
    if (!readShotLine(shot, progress, input, report))
        return false;
    const Place place = report.place;
    receivers.clear();
    std::vector<std::string_view> first;
    for (; progress.receivers < progress.receiverCount; ++progress.receivers) {
        if (!nextFields("the receiver's x and its time", progress, input, report)
            || !readReceiver(receivers, progress, input, report))
            return false;
        if (progress.receivers == 0)
            first = input.fields;
        suspect(first, input, progress, report);
    }
    addShot(picks, shot, place, receivers);
    ++progress.shots;
    return true;
}

/// Reads up to the number of shots. The first line is any text; one that is empty or a comment may
/// be the first of several such lines, with the text or with the number of shots after them.
bool readHeader(Progress &progress, TextInput &input, Report &report)
{
    nextLine(input, report);
    const bool isText = !input.line.empty() && input.line.front() != '#';
    progress.firstLine = input.line;
    bool isThere = nextContent(input, report);
    splitAtBlanks(input);
    if (isThere && !isText
        && (input.fields.size() < 2 || !wholeNumber(input.fields[0])
            || wholeNumber(input.fields[1]).value_or(0.0) <= 0.0)) {
        progress.firstLine = input.line;
        isThere = nextContent(input, report);
        splitAtBlanks(input);
    }
    if (!isThere)
        return fail(report, "the file ends before its number of shots");
    progress.countLine = report.place.line;
    if (!requireFields(2, "anything and the number of shots", input, report)
        || !readCount(input.fields[1], "the number of shots", progress.shotCount, input, report))
        return false;
    if (progress.shotCount == 0)
        remark(report, RemarkKind::noShots, "there are no shots in this file");
    return true;
}

/// Refuses a line after the last shot.
bool refuseRest(const Progress &progress, TextInput &input, Report &report)
{
    const Place place = report.place;
    bool isSurvey = input.line == progress.firstLine;
    if (!isSurvey) {
        // Or any first line, with a number of shots and a shot's line after it.
        nextContent(input, report);
        splitAtBlanks(input);
        const bool hasCount = input.fields.size() > 1 && wholeNumber(input.fields[1]);
        nextContent(input, report);
        splitAtBlanks(input);
        isSurvey = hasCount && looksLikeShot(input.fields);
    }
    report.place = place;
    if (isSurvey)
        return fail(report, "another survey begins here: put it into a file of its own");
    return failInCounts("line " + std::to_string(progress.countLine) + " says "
                            + counted(progress.shotCount, "shot")
                            + ", but this line comes after the last one",
                        progress, report);
}

/// Reads what follows the last shot: nothing but a trailer may. `wasZero`: the last receiver's line
/// is one of zeros.
bool readRest(bool wasZero, Progress &progress, TextInput &input, Report &report)
{
    if (progress.isTrailer)
        return failInCounts("", progress, report);
    const Place last = report.place;
    for (bool isFirst = true; nextContent(input, report); isFirst = false) {
        splitAtBlanks(input);
        if (!looksLikeTrailer(input.fields))
            return refuseRest(progress, input, report);
        // A trailer begins with two zeros.
        if (isFirst && wasZero && input.fields.size() == 1)
            return fail(report, last,
                        "this line looks like the end of the survey: the last shot, line "
                            + std::to_string(progress.shotLine) + ", says "
                            + counted(progress.receiverCount, "receiver"));
    }
    return true;
}

/// Fails where a receiver may have a flag and no time.
bool requireTimes(const Progress &progress, Report &report)
{
    return !progress.hasFlags || progress.withoutFlag.line == 0
           || fail(report, progress.withoutFlag,
                   "2 fields, where other receivers have 3: is the time missing? Then write -1");
}

/// The middle one of the distances between the receivers of the first shot that has some.
double receiverSpacing(const TraveltimeSurvey &survey)
{
    for (const Spread &receivers : survey.spreads) {
        std::vector<double> distances;
        for (std::size_t i = 1; i < receivers.size(); ++i)
            distances.push_back(std::abs(receivers[i].x - receivers[i - 1].x));
        if (distances.empty())
            continue;
        const auto middle = distances.begin() + static_cast<std::ptrdiff_t>(distances.size() / 2);
        std::nth_element(distances.begin(), middle, distances.end());
        return std::round(*middle * 1e9) / 1e9; // less the last bits' errors of the difference
    }
    return 0.0;
}

} // namespace

bool readSeisImagerPicks(const std::string &path, const PickOptions &options, PickSurvey &picks,
                         Report &report)
{
    TextInput input;
    Progress progress;
    std::vector<Pick> receivers;
    if (!loadInput(path, options, input, report) || !readHeader(progress, input, report))
        return false;
    while (progress.shots < progress.shotCount)
        if (!readShot(receivers, progress, picks, input, report))
            return false;
    const bool wasZero = !receivers.empty() && looksLikeTrailer(input.fields);
    return readRest(wasZero, progress, input, report) && requireTimes(progress, report)
           && endNumbers(input, report);
}

bool writeSeisImagerPicks(const std::string &path, const PickSurvey &picks, Report &report)
{
    const TraveltimeSurvey &survey = picks.survey;
    TextOutput output;
    if (!openOutput(path, output, report))
        return false;
    std::string &text = output.text;
    text += "1996 0 3.0\n0 " + std::to_string(survey.shots.size()) + ' ';
    appendExact(text, receiverSpacing(survey));
    text += '\n';
    for (const ShotTraveltimes &record : survey.traveltimes) {
        const Spread &receivers = survey.spreads[record.spreadIndex];
        appendExact(text, record.shotX);
        text += ' ' + std::to_string(receivers.size()) + " 0\n";
        for (std::size_t i = 0; i < receivers.size(); ++i) {
            appendExact(text, receivers[i].x);
            text += ' ';
            appendExact(text, record.times[i], 3);
            text += " 1\n";
        }
        passOn(output);
    }
    text += "0 0\n 0\n 0 0\n";
    remarkOnElevationsLeftOut(picks, report);
    remarkOnErrorsLeftOut(picks, report);
    return closeOutput(output, report);
}
