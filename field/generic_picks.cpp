// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "field/generic_picks.h"

#include "field/exact_number.h"
#include "field/rows.h"
#include "field/text_input.h"
#include "traveltime/text.h"

#include <filesystem>

namespace {

struct GenericFile
{
    TextInput input = {};
    RowStyle style = {};
    TimeUnit unit = TimeUnit::seconds;
    std::optional<ReceiverPosition> shot = {};
    Place shotPlace = {};
    Place longRow = {}; ///< the first of more than three fields
    std::vector<Pick> receivers = {};
};

bool nextRow(GenericFile &file, Report &report)
{
    return nextRow(file.style, file.receivers.empty(), file.input, report);
}

/// "x 5, elevation 100.5".
std::string inWords(const ReceiverPosition &position)
{
    return "x " + exactNumber(position.x) + ", elevation " + exactNumber(position.elevation);
}

/// Reads the position of the shot from the current row, which has two fields. Where the options
/// give it, too, it must be the same.
bool readShotRow(GenericFile &file, Report &report)
{
    TextInput &input = file.input;
    ReceiverPosition shot;
    if (!readNumber(input.fields[0], "the shot's x", shot.x, input, report)
        || !readNumber(input.fields[1], "the shot's elevation", shot.elevation, input, report))
        return false;
    if (file.shot && (file.shot->x != shot.x || file.shot->elevation != shot.elevation))
        return fail(report, "the shot is at " + inWords(shot) + " here, but at "
                                + inWords(*file.shot) + " in the list of shots");
    file.shot = shot;
    file.shotPlace = report.place;
    return true;
}

bool readReceiver(GenericFile &file, Report &report)
{
    TextInput &input = file.input;
    if (input.fields.size() > 3 && input.fields.back().empty())
        input.fields.pop_back();
    if (!requireFields(3, "a receiver's x, its elevation and its time", input, report))
        return false;
    if (file.style.delimiter == ' ' && input.fields.size() < file.style.mostNumbers)
        return fail(report, counted(input.fields.size(), "field") + ", where other rows have "
                                + std::to_string(file.style.mostNumbers)
                                + " numbers: is one missing?");
    if (input.fields.size() > 3 && file.longRow.line == 0)
        file.longRow = report.place;
    Pick &pick = file.receivers.emplace_back();
    pick.line = lineOf(report);
    return readNumber(input.fields[0], "the receiver's x", pick.receiver.x, input, report)
           && readNumber(input.fields[1], "the receiver's elevation", pick.receiver.elevation,
                         input, report)
           && readTime(input.fields[2], powerOf(file.unit), pick.time, input, report);
}

bool readRows(GenericFile &file, Report &report)
{
    bool isThere = nextRow(file, report);
    if (isThere && file.input.fields.size() == 2) {
        if (!readShotRow(file, report))
            return false;
        isThere = nextRow(file, report);
    }
    if (!isThere)
        return fail(report, "the file ends where rows of receivers are expected");
    for (; isThere; isThere = nextRow(file, report))
        if (!readReceiver(file, report))
            return false;
    return true;
}

/// Tells of fields after the third, or fails where a decimal comma may have made them.
bool endRows(const GenericFile &file, Report &report)
{
    if (file.longRow.line == 0)
        return true;
    if (file.style.delimiter == ',' && file.input.marks.pointLine == 0)
        return fail(report, file.longRow,
                    "more than three fields and no decimal point: if these are decimal commas, "
                    "put \";\" between the fields");
    remark(report, RemarkKind::notRead, file.longRow,
           "more than three fields, here first: those after the time are not read");
    return true;
}

bool requireShot(const GenericFile &file, Report &report)
{
    return file.shot
           || fail(report, {report.place.file},
                   "the shot's position is not known: list the file with --shots, in a line "
                   "\"file;x;elevation\", or let a first row of two fields say it");
}

/// Where the options say that the file's shot was.
std::optional<ReceiverPosition> listedPosition(const std::string &path, const PickOptions &options)
{
    const std::filesystem::path name = std::filesystem::path(path).filename();
    for (const ShotPosition &position : options.shotPositions) {
        std::error_code ignored;
        if (std::filesystem::path(position.file).filename() == name
            && std::filesystem::equivalent(position.file, path, ignored))
            return ReceiverPosition{position.x, position.elevation};
    }
    return {};
}

} // namespace

bool readGenericPicks(const std::string &path, const PickOptions &options, PickSurvey &picks,
                      Report &report)
{
    GenericFile file;
    if (!loadInput(path, options, file.input, report))
        return false;
    file.style = findStyle(file.input);
    file.unit = options.timesIn.value_or(TimeUnit::seconds);
    file.shot = listedPosition(path, options);
    file.shotPlace = {path, 1};
    if (!readRows(file, report) || !endRows(file, report) || !endNumbers(file.input, report)
        || !requireShot(file, report))
        return false;
    addShot(picks, {file.shot->x, file.shot->elevation, path}, file.shotPlace, file.receivers);
    return true;
}
