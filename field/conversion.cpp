// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "field/conversion.h"

#include "console/file_checks.h"
#include "console/messages.h"
#include "console/whole_file.h"
#include "field/inputs.h"
#include "field/progress_bar.h"
#include "field/record_conversion.h"
#include "field/topography.h"

#include <algorithm>
#include <filesystem>
#include <set>

namespace {

/// Opens the files that are to become `target`; false when one cannot.
bool openInputs(const Request &request, const Format &target, std::vector<Input> &inputs,
                Report &report)
{
    for (const std::string &path : request.files) {
        const Input input = openInput(path, request, report);
        if (input.format == nullptr)
            return false;
        if (holdsPicks(input) != (target.writePicks != nullptr))
            return fail(report, {path},
                        (holdsPicks(input) ? "picks (" : "a record (") + input.format->name
                            + ", known by " + input.knownBy + ") cannot become " + target.name);
        inputs.push_back(input);
    }
    return true;
}

int convertPicks(const Request &request, const Format &target, const std::vector<Input> &inputs,
                 const Conclude &conclude, Report &report)
{
    PickOptions options = pickOptionsOf(request, report);
    std::vector<std::string> read = request.files;
    for (const std::string &path : {request.shotList, request.topography})
        if (!path.empty())
            read.push_back(path);
    for (const std::string &path : read)
        if (isSameFile(path, request.output))
            fail(report, {path}, "the output would replace this input");
    const auto readAndWrite = [&](const std::vector<std::string> &parts) {
        ProgressBar bar(request.output);
        PickSurvey survey;
        for (std::size_t i = 0; i < inputs.size() && !report.failure; ++i) {
            options.progress = [&](double fraction) {
                bar.show((static_cast<double>(i) + fraction) / static_cast<double>(inputs.size()));
            };
            readPicks(inputs[i], options, survey, report);
        }
        if (!report.failure && !request.topography.empty()
            && isReadable(request.topography, report))
            applyTopography(request.topography, survey, report);
        return isAccepted(report, request.isStrict)
               && target.writePicks(parts.front(), survey, report)
               && isAccepted(report, request.isStrict);
    };
    if (!report.failure)
        writeWhole({request.output}, readAndWrite, report);
    return conclude(report, request.output);
}

/// The file that a record becomes: in a folder it is named as the input; LINE_ADT for the Dolang
/// header LINE.ADT, as its set has others.
std::string outputOf(const Request &request, const Format &target, const Input &input)
{
    std::error_code ignored;
    if (!std::filesystem::is_directory(request.output, ignored))
        return request.output;
    std::filesystem::path name = std::filesystem::path(input.path).filename();
    if (input.format->name == "dolang" && name.has_extension())
        name = name.stem().string() + '_' + name.extension().string().substr(1) + ".";
    return (std::filesystem::path(request.output) / name.stem()).string() + '.'
           + target.extensions.front();
}

RecordTarget recordTargetOf(const Request &request, const Format &target)
{
    RecordTarget record;
    record.format = target.name == "su" ? RecordFormat::seismicUnix : RecordFormat::seg2;
    record.byteOrder = request.byteOrder.value_or(
        std::endian::native == std::endian::big ? ByteOrder::bigEndian : ByteOrder::littleEndian);
    record.isInMillivolts = request.isInMillivolts;
    return record;
}

int convertOneRecord(const Request &request, const Format &target, const Input &input,
                     const std::string &output, const Conclude &conclude)
{
    Report report;
    // A new output replaces no input: asking of each would take longer than converting.
    if (isThere(output))
        for (const std::string &path : request.files)
            if (isSameFile(path, output))
                fail(report, {path}, "the output would replace this input");
    const auto write = [&](const std::vector<std::string> &parts) {
        ProgressBar bar(input.path);
        convertRecord(
            input.format->readRecord, input.path, recordTargetOf(request, target), parts.front(),
            [&](double fraction) { bar.show(fraction); }, report);
        return isAccepted(report, request.isStrict);
    };
    if (!report.failure)
        writeWhole({output}, write, report);
    return conclude(report, output);
}

/// Converts each record, also after one failed.
int convertRecords(const Request &request, const Format &target, const std::vector<Input> &inputs,
                   const Conclude &conclude)
{
    std::set<std::string> outputs;
    int status = converted;
    for (const Input &input : inputs) {
        const std::string output = outputOf(request, target, input);
        if (outputs.insert(output).second) {
            status = std::max(status, convertOneRecord(request, target, input, output, conclude));
            continue;
        }
        Report report;
        fail(report, {input.path}, "the output would replace that of an input before");
        status = conclude(report, output);
    }
    return status;
}

} // namespace

int convertFiles(const Request &request, const Format &target, const Conclude &conclude)
{
    Report report;
    std::vector<Input> inputs;
    std::error_code ignored;
    if (!openInputs(request, target, inputs, report))
        return conclude(report, request.output);
    if (target.writePicks != nullptr)
        return convertPicks(request, target, inputs, conclude, report);
    if (inputs.size() > 1 && !std::filesystem::is_directory(request.output, ignored))
        fail(report, {request.output}, "no folder: several records need one");
    const int status = conclude(report, request.output);
    return status == converted ? convertRecords(request, target, inputs, conclude) : status;
}
