// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "batch/seismic_command.h"

#include "batch/file_checks.h"
#include "batch/messages.h"
#include "batch/whole_file.h"
#include "seg2/dolang_conversion.h"
#include "seg2/su_conversion.h"

#include <algorithm>
#include <filesystem>
#include <functional>
#include <iostream>
#include <set>
#include <system_error>

#ifndef _WIN32
#include <unistd.h>
#endif

namespace {

/// Converts a record into a listing and a SEG2 file, of these names; progress goes to the stream.
using Convert = std::function<void(const std::string &listingPath, const std::string &seg2Path,
                                   std::ostream *progress)>;

/// Makes both files of a record, if the report allows it, and shows what there is to say about the
/// input. Returns whether all went well.
bool makeRecord(const Request &request, const std::string &input, const std::string &listingPath,
                const std::string &seg2Path, const Convert &convert, Report &report)
{
    const auto write = [&](const std::vector<std::string> &parts) {
        convert(parts[0], parts[1], request.isEchoed ? &std::cout : nullptr);
        if (request.isEchoed && !std::cout.flush())
            fail(report, {"standard output"}, "cannot be written");
        return isAccepted(report, request.isStrict);
    };
    if (!report.failure)
        writeWhole({listingPath, seg2Path}, write, report);
    return conclude(report, request.isStrict, input) == converted;
}

bool convertSuFile(const std::string &path, const Request &request)
{
    const std::string listingPath = suListingPath(path);
    const std::string seg2Path = suSeg2Path(path);
    Report report;
    if (isSameFile(path, seg2Path) || isSameFile(path, listingPath))
        fail(report, {path}, "the output would replace this input");
    else
        isReadable(path, report);
    return makeRecord(
        request, path, listingPath, seg2Path,
        [&](const std::string &listing, const std::string &seg2, std::ostream *progress) {
            convertSu(path, listing, seg2, progress, report);
        },
        report);
}

/// Whether a set is named by one of its channel files, such as LINE.A01.
bool isChannelOfASet(const std::string &base)
{
    const std::size_t digits = base.find_last_not_of("0123456789") + 1;
    return base.size() >= digits + 2
           && std::any_of(dolangKinds.begin(), dolangKinds.end(),
                          [&](const DolangKind &kind) {
                              return base.substr(0, digits).ends_with(kind.channelSuffix);
                          })
           && !isThere(base + dolangKinds.front().headerExtension);
}

/// Converts the kinds of a set in turn; one that fails ends it, as in the window.
bool convertDolangSet(const std::string &base, const Request &request)
{
    const bool isChannel = isChannelOfASet(base);
    return std::all_of(dolangKinds.begin(), dolangKinds.end(), [&](const DolangKind &kind) {
        const std::string header = base + kind.headerExtension;
        Report report;
        if (isChannel)
            fail(report, {base},
                 "this is one channel of a set: name the set by its base, " + beforeLastDot(base)
                     + ", or by a header");
        else
            isReadableFromItsStart(header, report);
        return makeRecord(
            request, header, kind.listingName, base + kind.seg2Ending,
            [&](const std::string &listing, const std::string &seg2, std::ostream *progress) {
                convertDolang(base, kind, listing, seg2, progress, report);
            },
            report);
    });
}

/// The bases of the Dolang sets named, each once, though all three headers may be named.
std::vector<std::string> dolangBases(const std::vector<std::string> &files)
{
    std::vector<std::string> bases;
    for (const std::string &file : files) {
        const bool isHeader =
            std::any_of(dolangKinds.begin(), dolangKinds.end(), [&](const DolangKind &kind) {
                return file.ends_with(kind.headerExtension);
            });
        const std::string base = isHeader ? beforeLastDot(file) : file;
        if (std::find(bases.begin(), bases.end(), base) == bases.end())
            bases.push_back(base);
    }
    return bases;
}

bool isTerminal()
{
#ifdef _WIN32
    return false;
#else
    return isatty(STDERR_FILENO) == 1;
#endif
}

/// Converts every input whose outputs, which begin with `baseOf` of it, replace no other's.
int convertAll(const std::vector<std::string> &inputs, const Request &request,
               std::string (*baseOf)(const std::string &input),
               bool (*convert)(const std::string &input, const Request &request))
{
    std::set<std::filesystem::path> bases;
    int status = converted;
    for (std::size_t i = 0; i < inputs.size(); ++i) {
        if (isTerminal())
            std::cerr << std::to_string(i + 1) + '/' + std::to_string(inputs.size()) + ' '
                             + inputs[i] + '\n';
        const std::filesystem::path base = baseOf(inputs[i]);
        std::error_code error;
        std::filesystem::path place = std::filesystem::absolute(base, error);
        if (!error)
            place = std::filesystem::weakly_canonical(place, error);
        if (bases.insert(error ? base : place).second) {
            if (!convert(inputs[i], request))
                status = conversionFailed;
            continue;
        }
        Report report;
        fail(report, {inputs[i]}, "the output would replace that of an input before");
        status = conclude(report, request.isStrict, inputs[i]);
    }
    return status;
}

} // namespace

int runSeismicUnix(const Request &request)
{
    return convertAll(request.files, request, beforeLastDot, convertSuFile);
}

int runDolang(const Request &request)
{
    return convertAll(
        dolangBases(request.files), request, [](const std::string &base) { return base; },
        convertDolangSet);
}
