// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "field/window_verdict.h"

#include "field/generic_picks.h"
#include "field/geogiga_picks.h"
#include "field/numbers.h"
#include "field/reciprocal_picks.h"
#include "field/seisimager_picks.h"
#include "field/winsism_picks.h"
#include "readers/geogiga.h"
#include "readers/seisimager.h"
#include "readers/winsism.h"
#include "traveltime/generic_text.h"
#include "traveltime/text.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace {

/// Reads as the window does. It asks for a generic file's shot; here that is the first of `picks`.
using ReadAsWindow = void(const std::string &path, const PickSurvey &picks,
                          TraveltimeSurvey &survey, Report &report);

void readGenericAsWindow(const std::string &path, const PickSurvey &picks, TraveltimeSurvey &survey,
                         Report &report)
{
    SpreadIndex index;
    readGeneric(path, survey, picks.survey.shots.front(), 0, index, report);
}

void readGeogigaAsWindow(const std::string &path, const PickSurvey & /*picks*/,
                         TraveltimeSurvey &survey, Report &report)
{
    readGeogiga(path, survey, report);
}

void readSeisImagerAsWindow(const std::string &path, const PickSurvey & /*picks*/,
                            TraveltimeSurvey &survey, Report &report)
{
    SpreadIndex index;
    readSeisImager(path, survey, index, report);
}

void readWinsismAsWindow(const std::string &path, const PickSurvey & /*picks*/,
                         TraveltimeSurvey &survey, Report &report)
{
    readWinsism(path, survey, report);
}

/// A format that the window reads.
struct WindowFormat
{
    const char *name;
    ReadPicks *read;
    ReadAsWindow *readAsWindow;
};

constexpr WindowFormat windowFormats[] = {
    {"generic", readGenericPicks, readGenericAsWindow},
    {"geogiga", readGeogigaPicks, readGeogigaAsWindow},
    {"seisimager", readSeisImagerPicks, readSeisImagerAsWindow},
    {"winsism", readWinsismPicks, readWinsismAsWindow},
};

/// Something that the window does otherwise.
struct Difference
{
    Place place = {};
    std::string text = {};
    bool isInLine = true; ///< in the place's line itself, not somewhere after it
};

Difference difference(const Origin &origin, const PickSurvey &picks, const char *what, double read,
                      double meant)
{
    return {placeOf(origin, picks), std::string("the window reads ") + what + ' ' + shortest(read)
                                        + ", not " + shortest(meant)};
}

/// The first difference between the picks of a shot, if there is one.
std::optional<Difference> compareShot(std::size_t shot, const PickSurvey &picks,
                                      const TraveltimeSurvey &window)
{
    const ShotTraveltimes &meant = picks.survey.traveltimes[shot];
    const ShotTraveltimes &read = window.traveltimes[shot];
    const Spread &receivers = picks.survey.spreads[meant.spreadIndex];
    const Spread &readReceivers = window.spreads[read.spreadIndex];
    const Origin &origin = picks.shotOrigins[shot];
    if (read.shotX != meant.shotX)
        return difference(origin, picks, "the shot's x as", read.shotX, meant.shotX);
    if (read.shotElevation != meant.shotElevation)
        return difference(origin, picks, "the shot's elevation as", read.shotElevation,
                          meant.shotElevation);
    const std::size_t count = std::min(read.times.size(), readReceivers.size());
    for (std::size_t i = 0; i < std::min(count, receivers.size()); ++i) {
        const Origin &line = picks.origins[shot][i];
        if (readReceivers[i].x != receivers[i].x)
            return difference(line, picks, "x as", readReceivers[i].x, receivers[i].x);
        if (readReceivers[i].elevation != receivers[i].elevation)
            return difference(line, picks, "the elevation as", readReceivers[i].elevation,
                              receivers[i].elevation);
        // A time in milliseconds over 1000 may be a neighbour of the time in seconds.
        if (!(std::abs(read.times[i] - meant.times[i]) <= 1e-15 * std::abs(meant.times[i])))
            return difference(line, picks, "the time, in seconds, as", read.times[i],
                              meant.times[i]);
    }
    if (count != receivers.size() || read.times.size() != count)
        return Difference{placeOf(origin, picks),
                          "the window reads " + std::to_string(read.times.size())
                              + " times for this shot, not " + std::to_string(receivers.size()),
                          false};
    return {};
}

/// The first difference between the surveys, if there is one.
std::optional<Difference> compare(const PickSurvey &picks, const TraveltimeSurvey &window)
{
    const std::size_t count = std::min(picks.survey.shots.size(), window.traveltimes.size());
    for (std::size_t shot = 0; shot < count; ++shot) {
        if (window.traveltimes[shot].spreadIndex >= window.spreads.size())
            break; // it gave up before it had the receivers
        if (std::optional<Difference> found = compareShot(shot, picks, window))
            return found;
    }
    if (count == picks.survey.shots.size() && count == window.traveltimes.size())
        return {};
    const Origin &origin = picks.shotOrigins[std::min(count, picks.shotOrigins.size() - 1)];
    return Difference{placeOf(origin, picks),
                      "the window reads " + std::to_string(window.traveltimes.size())
                          + " shots, not " + std::to_string(picks.survey.shots.size()),
                      false};
}

/// Whether a remark tells of something that is read otherwise than it was meant.
bool isReason(const Remark &remark)
{
    constexpr RemarkKind reasons[] = {RemarkKind::notANumber, RemarkKind::shiftedLine,
                                      RemarkKind::notRead,    RemarkKind::numbering,
                                      RemarkKind::layout,     RemarkKind::negativeTime};
    return std::find(std::begin(reasons), std::end(reasons), remark.kind) != std::end(reasons);
}

/// Why the window reads no line of a text as it was meant; empty when it reads most of them.
std::string reasonOfWholeText(const std::string &path, std::size_t firstLine)
{
    Report unused;
    const std::string text = loadText(path, unused).text;
    const std::size_t mark = markSize(text);
    if (mark == 2)
        return "this is UTF-16, of which the window reads no number: save it as UTF-8";
    if (text.find('\n') == std::string::npos && text.find('\r') != std::string::npos)
        return "the lines end in CR alone, so that the window takes them for one: let them end in "
               "LF";
    return mark != 0 && firstLine == 1 ? "the file begins with a byte order mark, which the window "
                                         "takes for a part of the first line: save it without one"
                                       : "";
}

/// The first of what the window does otherwise: what its reader tells comes before a difference
/// that shows in the same line, or only further down.
Difference firstReason(const Report &report, const Difference &shown)
{
    Difference first = shown;
    const auto consider = [&](const Place &place, const std::string &text) {
        if (!first.isInLine || place.line <= first.place.line)
            first = {place, text};
    };
    const bool stops = report.result != 0 || report.error;
    if (report.failure)
        consider(report.failure->place,
                 (stops ? "the window refuses this: " : "the window goes on after this: ")
                     + report.failure->text);
    for (auto remark = report.remarks.rbegin(); remark != report.remarks.rend(); ++remark)
        if (isReason(*remark))
            consider(remark->place, "the window reads this otherwise: " + remark->text);
    return first;
}

} // namespace

std::optional<WindowVerdict> windowVerdict(const std::string &format, const std::string &path,
                                           const PickOptions &options)
{
    const auto *const found =
        std::find_if(std::begin(windowFormats), std::end(windowFormats),
                     [&](const WindowFormat &candidate) { return candidate.name == format; });
    if (found == std::end(windowFormats))
        return {};
    PickSurvey picks;
    Report report;
    if (!found->read(path, options, picks, report) || picks.survey.shots.empty())
        return {};
    TraveltimeSurvey window;
    Report windowReport;
    found->readAsWindow(path, picks, window, windowReport);
    std::optional<Difference> shown = compare(picks, window);
    if (!shown && !windowReport.failure)
        return WindowVerdict{true};
    if (!shown)
        shown = Difference{windowReport.failure->place, windowReport.failure->text, false};
    Difference first = firstReason(windowReport, *shown);
    if (const std::string reason = reasonOfWholeText(path, first.place.line); !reason.empty()) {
        first.place.file = path;
        first.place.line = 1;
        first.text = reason;
    }
    return WindowVerdict{false, first.place, first.text};
}
