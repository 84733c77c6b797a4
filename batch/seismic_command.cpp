// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "batch/seismic_command.h"

#include "batch/report.h"
#include "batch/whole_file.h"
#include "seg2/dolang_conversion.h"
#include "seg2/su_conversion.h"

#include <algorithm>
#include <filesystem>
#include <iostream>
#include <set>

#ifndef _WIN32
#include <unistd.h>
#endif

namespace {

/// Makes a record's listing and its SEG2 file, both whole or neither.
bool writeBoth(const std::string &listingPath, const std::string &seg2Path,
               const std::function<bool(const std::string &, const std::string &)> &write,
               Problem &problem)
{
    return writeWhole(
        listingPath,
        [&](const std::string &listing) {
            return writeWhole(
                seg2Path, [&](const std::string &seg2) { return write(listing, seg2); }, problem);
        },
        problem);
}

bool convertSu(const std::string &path)
{
    Problem problem;
    const std::string base = beforeLastDot(path);
    if (isSameFile(path, base + ".seg2") || isSameFile(path, base + "_tmp"))
        problem = {path, 0, "the output would replace this input"};
    const bool whole =
        isReadable(path, problem)
        && writeBoth(
            base + "_tmp", base + ".seg2",
            [&](const std::string &listing, const std::string &seg2) {
                return attempt([&] { return convertSuToSeg2(path, listing, seg2, problem); },
                               problem);
            },
            problem);
    report(problem);
    return whole;
}

/// Converts one kind of a Dolang set.
bool convertKind(const std::string &base, const DolangKind &kind, Problem &problem)
{
    return isReadableFromItsStart(base + kind.headerExtension, problem)
           && writeBoth(
               kind.listingName, base + kind.seg2Ending,
               [&](const std::string &listing, const std::string &seg2) {
                   return attempt(
                       [&] {
                           return convertDolangKind(base, kind, listing, seg2, problem) ? 0 : 1;
                       },
                       problem);
               },
               problem);
}

bool convertDolang(const std::string &base)
{
    std::vector<Problem> problems;
    for (const DolangKind &kind : dolangKinds) {
        if (!convertKind(base, kind, problems.emplace_back())) {
            report(problems.back());
            return false;
        }
    }
    std::for_each(problems.begin(), problems.end(), report); // remarks
    return true;
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

} // namespace

int runSeismic(const std::string &format, const std::vector<std::string> &files, bool echo)
{
    if (!echo)
        std::cout.setstate(std::ios::badbit);
    const bool isDolang = format == "dolang";
    const std::vector<std::string> inputs = isDolang ? dolangBases(files) : files;
    std::set<std::filesystem::path> bases;
    int status = converted;
    for (std::size_t i = 0; i < inputs.size(); ++i) {
        if (isTerminal())
            std::cerr << i + 1 << '/' << inputs.size() << ' ' << inputs[i] << '\n';
        const std::string base = isDolang ? inputs[i] : beforeLastDot(inputs[i]);
        if (!bases.insert(std::filesystem::weakly_canonical(std::filesystem::absolute(base)))
                 .second) {
            report({inputs[i], 0, "the output would replace that of an input before"});
            status = conversionFailed;
        } else if (!(isDolang ? convertDolang(base) : convertSu(inputs[i]))) {
            status = conversionFailed;
        }
    }
    if (echo && !std::cout.flush()) {
        report({"standard output", 0, "cannot be written"});
        status = conversionFailed;
    }
    return status;
}
