// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "readers/geogiga.h"

#include "traveltime/fields.h"
#include "traveltime/text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <sstream>
#include <stdexcept>
#include <string_view>

namespace {

/// The file as it is read, with the current line cut into fields.
struct GeogigaFile
{
    TextFile text;
    std::string line = {};
    std::vector<std::string> fields = {};
    std::string shotCount = {}; ///< as the file writes it
    std::uint32_t shotsRead = 0;
};

/// Where a file ends too early.
std::string ending(const GeogigaFile &file)
{
    return "the file ends"
           + (file.shotCount.empty() ? ""
                                     : " after " + std::to_string(file.shotsRead) + " of "
                                           + file.shotCount + " shots");
}

void splitAt(const std::string &delimiters, GeogigaFile &file, Report &report)
{
    splitLine(file.line, file.fields, delimiters, report);
}

bool startsWith(const std::string &keyword, const GeogigaFile &file, Report &report)
{
    if (!file.fields.empty() && file.fields.front() == keyword)
        return true;
    const bool hasReturn = !file.fields.empty() && file.fields.front() == keyword + '\r';
    return fail(report, (file.text.failed ? ending(file) + " where " : "") + '"' + keyword + '"'
                            + (file.text.failed ? " is" : "") + " expected"
                            + (hasReturn ? ", then LF and not CR LF" : ""));
}

/// Gives the value after the keyword of the current line; false when it is not `keyword`.
bool valueOf(const std::string &keyword, std::string &value, GeogigaFile &file, Report &report)
{
    splitAt(":", file, report);
    if (!startsWith(keyword, file, report))
        return false;
    requireFields(file.fields, 2, report);
    value = file.fields[1];
    return true;
}

bool nextValue(const std::string &keyword, std::string &value, GeogigaFile &file, Report &report)
{
    nextLine(file.text, file.line, report);
    return valueOf(keyword, value, file, report);
}

/// The number of shots as the file writes it, decimals and all: cut to an integer, modulo 2^32, so
/// that -1 is 4294967295; 0 when it is infinite or not a number.
std::uint32_t toShotCount(const std::string &text, Report &report)
{
    try {
        const double value = std::fmod(toDoubleOrThrow(text), 4294967296.0);
        const std::uint32_t count =
            std::isfinite(value) ? static_cast<std::uint32_t>(static_cast<std::int64_t>(value)) : 0;
        remarkUnlessWhole(text, count, report);
        return count;
    } catch (const std::logic_error &) {
        fail(report, "number of shots \"" + quotable(text) + '"');
        throw;
    }
}

bool readHeader(GeogigaFile &file, double &elevation, std::uint32_t &shotCount, Report &report)
{
    for (const char *keyword : {"TX_CURVE", "VERSION:"}) {
        nextLine(file.text, file.line, report);
        splitAt(" ", file, report);
        if (!startsWith(keyword, file, report))
            return false;
    }

    do {
        nextLine(file.text, file.line, report);
        splitAt(":", file, report);
    } while (!file.fields.empty() && file.fields.front() == "INFO");

    std::string value;
    if (!valueOf("ELEVATION", value, file, report))
        return false;
    elevation = readPosition(value, report);
    if (!nextValue("TOTAL_NUMBER_OF_SHOTS", value, file, report))
        return false;
    shotCount = toShotCount(value, report);
    file.shotCount = quotable(value);
    return true;
}

/// The decimal number that is the whole of `word`; false for all else that a stream may take.
template <typename Number>
bool parseQuickly(std::string_view word, Number &number)
{
    const char *const last = word.data() + word.size();
    Number parsed = 0;
    const auto [end, error] = std::from_chars(word.data(), last, parsed);
    if (error != std::errc() || end != last)
        return false;
    number = parsed;
    return true;
}

/// The end of the longest text from `at` on that a stream may take for one number. For an integer
/// it may stop before: "12.5" is then 12, and ".5" comes next.
std::size_t endOfNumber(const std::string &text, std::size_t at)
{
    const auto isAt = [&](char character) { return at < text.size() && text[at] == character; };
    const auto skipDigits = [&] {
        while (at < text.size() && text[at] >= '0' && text[at] <= '9')
            ++at;
    };
    if (isAt('+') || isAt('-'))
        ++at;
    skipDigits();
    if (isAt('.'))
        ++at;
    skipDigits();
    if (isAt('e') || isAt('E')) {
        ++at;
        if (isAt('+') || isAt('-'))
            ++at;
        skipDigits();
    }
    return at;
}

/// Remarks on a word that begins at `begin` and of which only the start was read: what follows is
/// read as the next number.
void remarkOnWord(const std::string &text, std::size_t begin, double value, Report &report)
{
    if (begin > 0 && !isWhiteSpace(text[begin - 1]))
        return; // Once for a word, however many numbers are read of it.
    const auto first = text.begin() + static_cast<std::ptrdiff_t>(begin);
    remarkUnlessWhole({first, std::find_if(first, text.end(), isWhiteSpace)}, value, report);
}

/// Extracts one number as `>>` does, counting the line ends before it: a word that begins with no
/// number gives 0, the end of the file leaves `number` as it was, and after either nothing more is
/// extracted and the position is that of what was not read.
template <typename Number>
void extract(TextFile &file, Number &number, Report &report)
{
    if (file.failed)
        return;
    std::size_t lineEnds = 0;
    for (; file.position < file.text.size() && isWhiteSpace(file.text[file.position]);
         ++file.position)
        lineEnds += file.text[file.position] == '\n' ? 1 : 0;
    const std::size_t begin = file.position;
    file.failed = begin == file.text.size();
    if (file.failed)
        return;
    report.place.line += lineEnds;
    const std::size_t end = std::max(endOfNumber(file.text, begin), begin + 1);
    const std::string_view word(&file.text[begin], end - begin);
    file.position = end;
    if (!parseQuickly(word, number)) {
        std::istringstream stream{std::string(word)};
        stream >> number;
        file.failed = stream.fail();
        if (file.failed)
            file.position = begin;
        else if (!stream.eof())
            file.position = begin + static_cast<std::size_t>(stream.tellg());
        if (file.failed)
            return;
    }
    if (file.position < file.text.size() && !isWhiteSpace(file.text[file.position]))
        remarkOnWord(file.text, begin, static_cast<double>(number), report);
}

/// Fails, with the window going on, where a row is not four numbers.
void failInRow(const GeogigaFile &file, const std::string &receiverCount, std::int32_t row,
               Report &report)
{
    const std::string count = quotable(receiverCount);
    if (file.text.position == file.text.text.size())
        fail(report, ending(file) + " and " + std::to_string(row) + " of " + count + " receivers",
             Window::goesOn);
    else
        fail(report,
             "receiver row " + std::to_string(row + 1) + " of " + count + " is not four numbers",
             Window::goesOn);
}

/// Reads a block's rows: the positions overwrite the first entries of `receivers`, the times are
/// appended to `times`. From a row on that has something other than numbers, values stay as the row
/// before left them. Returns whether a receiver was elsewhere before.
bool readRows(GeogigaFile &file, const std::string &receiverCount, double elevation,
              Spread &receivers, std::vector<double> &times, Report &report)
{
    TextFile &text = file.text;
    const std::int32_t count = toInt(receiverCount);
    std::uint32_t receiverNumber = 0;
    double x = 0.0;
    double time = 0.0;
    std::uint32_t unused = 0;
    bool moved = false;
    report.place.line += text.failed || text.position == text.text.size() ? 0 : 1;
    for (std::int32_t i = 0; i < count; ++i) {
        extract(text, receiverNumber, report);
        extract(text, x, report);
        extract(text, time, report);
        extract(text, unused, report);
        if (text.failed && !report.failure)
            failInRow(file, receiverCount, i, report);
        if (static_cast<std::size_t>(i) >= receivers.size()) {
            fail(report, quotable(receiverCount) + " receivers after "
                             + std::to_string(receivers.size()) + " in the first shot");
            throwInvalidSubscript();
        }
        ReceiverPosition &receiver = receivers[static_cast<std::size_t>(i)];
        moved = moved || receiver.x != x;
        receiver = {x, elevation};
        times.push_back(time);
        if (text.failed)
            continue;
        remarkOnPosition(x, report);
        remarkOnTime(time, report);
    }
    // The rest of the last row's line is read, and counted, as a line.
    if (!text.failed && text.position < text.text.size())
        --report.place.line;
    return moved;
}

/// The working receiver list, as long as the first block with receivers says.
void sizeOnce(Spread &receivers, const std::string &receiverCount, std::size_t fileSize,
              Report &report)
{
    const std::int32_t count = toInt(receiverCount);
    if (!receivers.empty() || count == 0)
        return;
    if (count < 0) {
        fail(report, "number of receivers " + quotable(receiverCount));
        throw std::length_error("vector too long");
    }
    requireHoldable(static_cast<std::uint64_t>(count), fileSize, report);
    receivers.resize(static_cast<std::size_t>(count));
}

/// Where the receivers of one or more shots in a row stood.
struct Layout
{
    Place place = {}; ///< of the first shot
    std::uint32_t firstShot = 0;
    std::uint32_t lastShot = 0;
    Spread receivers = {};
};

/// Takes note of where the first `count` receivers stood for a shot; `moved`: not all where they
/// did before.
void noteLayout(std::vector<Layout> &layouts, const Place &place, std::uint32_t shot,
                const Spread &receivers, std::size_t count, bool moved)
{
    if (moved || layouts.empty() || layouts.back().receivers.size() != count)
        layouts.push_back(
            {place, shot, shot, {receivers.begin(), receivers.begin() + std::ptrdiff_t(count)}});
    layouts.back().lastShot = shot;
}

/// Remarks on shots whose receivers are not those of the spread that all shots refer to.
void remarkOnLayouts(const std::vector<Layout> &layouts, const Spread &written, Report &report)
{
    for (const Layout &layout : layouts) {
        const bool isOne = layout.firstShot == layout.lastShot;
        const std::string shots = (isOne ? "shot " : "shots ")
                                  + std::to_string(layout.firstShot + 1)
                                  + (isOne ? "" : " to " + std::to_string(layout.lastShot + 1));
        const auto sameX = [](const ReceiverPosition &a, const ReceiverPosition &b) {
            return a.x == b.x;
        };
        if (!std::equal(layout.receivers.begin(), layout.receivers.end(), written.begin(), sameX))
            remark(report, RemarkKind::layout, layout.place,
                   "the receivers of " + shots
                       + " stand elsewhere than the last shot's: only those are written");
        else if (!layout.receivers.empty() && layout.receivers.size() < written.size())
            remark(report, RemarkKind::layout, layout.place,
                   counted(layout.receivers.size(), "receiver") + " in " + shots + ", of "
                       + std::to_string(written.size()) + " that are written");
    }
}

/// Reads the block of the next shot; false when a line lacks its keyword.
bool readShot(GeogigaFile &file, double elevation, TraveltimeSurvey &survey, Spread &receivers,
              std::vector<Layout> &layouts, Report &report)
{
    // The rest of the previous row's line comes first.
    do
        nextLine(file.text, file.line, report);
    while (file.line == "\r");
    if (file.shotsRead > 0 && file.line.empty() && !file.text.failed)
        fail(report, "a carriage return or the next shot expected: do the rows end in CR LF?");

    Shot shot{0.0, elevation, ""};
    std::string value;
    if (!valueOf("SEISMIC_DATA_FILE_NAME", shot.name, file, report)
        || !nextValue("SHOT_LOCATION", value, file, report))
        return false;
    const Place place = report.place;
    shot.x = readPosition(value, report);
    survey.shots.push_back(shot);

    if (!nextValue("NUMBER_OF_RECEIVERS", value, file, report))
        return false;
    const std::int32_t receiverCount = readInteger(value, report);
    // The number of spreads, not of receivers; there are none before a first file.
    if (!survey.spreads.empty() && survey.spreads.size() != static_cast<std::size_t>(receiverCount))
        return fail(report, counted(survey.spreads.size(), "spread") + " read before");
    sizeOnce(receivers, value, file.text.text.size(), report);
    if (receiverCount <= 0)
        remark(report, RemarkKind::noReceivers,
               "shot " + std::to_string(file.shotsRead + 1) + " has no receivers");

    nextLine(file.text, file.line, report); // the column heading
    ShotTraveltimes record{0, file.shotsRead, shot.x, elevation, {}};
    const bool moved = readRows(file, value, elevation, receivers, record.times, report);
    if (!report.failure)
        noteLayout(layouts, place, file.shotsRead, receivers, record.times.size(), moved);
    ++file.shotsRead;
    survey.traveltimes.push_back(std::move(record));
    return true;
}

bool readFile(GeogigaFile &file, TraveltimeSurvey &survey, Report &report)
{
    if (!file.text.isOpen)
        return fail(report, "the file cannot be opened");
    double elevation = 0.0;
    std::uint32_t shotCount = 0;
    if (!readHeader(file, elevation, shotCount, report))
        return false;
    if (shotCount == 0)
        remark(report, RemarkKind::noShots, "there are no shots in this file");
    Spread receivers;
    std::vector<Layout> layouts;
    while (file.shotsRead < shotCount)
        if (!readShot(file, elevation, survey, receivers, layouts, report))
            return false;
    if (!report.failure)
        remarkOnLayouts(layouts, receivers, report);
    survey.spreads.push_back(std::move(receivers));
    const Rest rest = readRest([&](std::string &line) { return nextLine(file.text, line, report); },
                               " \t\r", report);
    remarkOnRest(rest, rest.firstLine.starts_with("TX_CURVE"), report);
    return true;
}

} // namespace

std::int32_t readGeogigaTraveltimes(std::string path, std::vector<ShotTraveltimes> &traveltimes,
                                    std::vector<Spread> &spreads, std::vector<Shot> &shots)
{
    Report report = windowReport();
    readIntoSurvey(traveltimes, spreads, shots,
                   [&](TraveltimeSurvey &survey) { readGeogiga(path, survey, report); });
    return finish(report);
}

bool readGeogiga(const std::string &path, TraveltimeSurvey &survey, Report &report)
{
    return attempt(report, [&] {
        GeogigaFile file{loadText(path, report)};
        readFile(file, survey, report);
    });
}
