// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <exception>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

// How every conversion reports: it fails at most once, remarks on what the user should know, and
// prints what the window writes to the standard error stream. Whoever gave the report decides what
// is shown. A function that takes a report and returns a bool returns whether the report has no
// failure, unless it says otherwise.

/// Where something stands in the inputs.
struct Place
{
    std::string file = {}; ///< as the caller named it
    std::size_t line = 0;  ///< counted from 1; 0 where no line can be named

    bool operator==(const Place &) const = default;
};

/// Why a conversion did not go well, and where.
struct Failure
{
    Place place = {};
    std::string text = {};

    bool operator==(const Failure &) const = default;
};

enum class RemarkKind {
    notANumber,      ///< a field that is used is not wholly a number
    shiftedLine,     ///< a line begins with a delimiter, so that its fields shift
    notRead,         ///< lines or bytes after what the file announces
    noShots,         ///< one of several files
    noReceivers,     ///< a shot
    numbering,       ///< shots that are not numbered through, or a number given twice
    layout,          ///< receivers that stand elsewhere than the output says
    negativeTime,    ///< -1 means "not picked" to pickers
    units,           ///< velocities that the ground does not have
    roundedPosition, ///< six digits do not hold it to a centimetre
    roundedTime,     ///< nor to a microsecond
    geometry,        ///< positions that become 0, a delay, elevations, several sources
    leftOut,         ///< the output has no room for it
    format,          ///< taken otherwise than its user or its content says
    samples,         ///< not finite, missing, or an interval that cannot be
};

/// What the user should know although the conversion goes well.
struct Remark
{
    RemarkKind kind = {};
    Place place = {};
    std::string text = {};

    bool operator==(const Remark &) const = default;
};

struct Report
{
    Place place = {}; ///< what is being read; a reader counts the lines in it
    std::optional<Failure> failure = {};
    std::vector<Remark> remarks = {};
    /// How many there were of a kind for a file: of those, mostRemarks are kept.
    std::map<std::pair<std::string, RemarkKind>, std::size_t> remarkCounts = {};
    std::map<std::pair<std::string, RemarkKind>, double> worst = {}; ///< see remarkWorst()

    // What the window sees of it, which is less: see finish().
    std::int32_t result = 0;
    std::exception_ptr error = {};
    bool printsAtOnce = false; ///< to the standard error stream; otherwise into `printed`
    std::string printed = {};
};

inline constexpr std::size_t mostRemarks = 10;

/// Whether the window, too, ends a conversion there. It goes on after an input that breaks off, for
/// example, and shows "Conversion done".
enum class Window {
    stops,
    goesOn
};

/// Records a failure at report.place, unless something failed before, and returns false.
bool fail(Report &report, const std::string &text, Window window = Window::stops);

/// The same at another place.
bool fail(Report &report, Place place, const std::string &text, Window window = Window::stops);

/// The same for a file that the system refused to open or to write: its reason is in errno.
bool failInSystem(Report &report, const std::string &path, Window window = Window::stops);

/// Remarks on something at report.place.
void remark(Report &report, RemarkKind kind, const std::string &text);

/// The same at another place.
void remark(Report &report, RemarkKind kind, Place place, const std::string &text);

/// Remarks on something at report.place that is the worse the larger `size` is: of this kind only
/// the worst is kept for a file, with the text that `text` makes of it.
void remarkWorst(Report &report, RemarkKind kind, double size,
                 const std::function<std::string()> &text);

/// The report of a function that the window calls: its lines are printed at once, so that they keep
/// their place among those of the standard output stream.
Report windowReport();

/// Prints a line; see Report::printsAtOnce.
void print(Report &report, const std::string &line);

/// Runs `work`, whose errors become the report's failure: one that `work` recorded itself is
/// followed by the error's text, one from before stays as it is. Returns whether all went well.
template <typename Work>
bool attempt(Report &report, Work work);

/// Ends a function that the window calls: raises the report's error, if there is one, or returns
/// report.result: 0, or 1 where the window stops.
std::int32_t finish(const Report &report);

template <typename Work>
bool attempt(Report &report, Work work)
{
    const bool failedBefore = report.failure.has_value();
    try {
        work();
    } catch (const std::exception &error) {
        report.error = std::current_exception();
        if (!report.failure)
            fail(report, error.what());
        else if (!failedBefore)
            report.failure->text += std::string(": ") + error.what();
    }
    return !report.failure;
}
