// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "seg2/su_conversion.h"

#include "seg2/listing.h"
#include "seg2/progress.h"
#include "seg2/su_file.h"
#include "traveltime/fields.h"

#include <algorithm>
#include <filesystem>
#include <optional>
#include <utility>

namespace {

/// A record that is converted.
struct Record
{
    QFile file = {};
    std::vector<ListingTrace> lines = {}; ///< of the listing: one for each trace
    std::optional<double> sourceX = {};   ///< of the first trace
    bool isHeld = false;
    std::vector<std::vector<double>> heldSamples = {};
    SuFindings findings = {};
};

/// A trace that was found in the file cannot be read any more.
struct LostTrace
{
    std::size_t index;
};

bool isSameFile(const std::string &first, const std::string &second)
{
    std::error_code ignored;
    return std::filesystem::equivalent(first, second, ignored);
}

void readRecord(Record &record, Report &report)
{
    const auto take = [&record](SuTrace &&trace) {
        if (!record.sourceX)
            record.sourceX = trace.sourceX;
        record.lines.push_back({record.findings.first->sampleCount, 0, trace.sampleInterval,
                                trace.receiverX, 0.0, trace.receiverZ});
        if (record.isHeld)
            record.heldSamples.push_back(std::move(trace.samples));
    };
    if (record.isHeld)
        readSuFile(record.file, take, record.findings, report);
    else
        indexSuFile(record.file, take, record.findings, report);
}

void remarkOnPositions(const Record &record, Report &report)
{
    remarkOnPosition(record.sourceX.value_or(0.0), report, 1);
    std::size_t number = 0;
    for (const ListingTrace &line : record.lines)
        remarkOnPosition(line.receiverX, report, ++number);
}

std::uint32_t availableSamples(const Record &record, std::size_t trace, std::uint32_t count)
{
    return trace < record.lines.size() ? std::min(count, record.lines[trace].sampleCount) : 0;
}

std::vector<float> readSamples(Record &record, std::size_t trace, std::uint32_t wanted)
{
    const std::uint32_t count = availableSamples(record, trace, wanted);
    if (count == 0)
        return {};
    std::vector<float> samples;
    if (record.isHeld) {
        const double *const held = record.heldSamples[trace].data();
        samples.assign(held, held + count);
        if (!areFinite(samples))
            takeOddSamples(record.findings, trace, samples);
    } else {
        samples = readSuSamples(record.file, trace, count, record.findings);
        if (samples.size() < count)
            throw LostTrace{trace};
    }
    return samples;
}

/// Ends the record before a trace that cannot be read, as if all had been read before it was
/// converted.
void endBefore(std::size_t trace, Record &record, Report &report)
{
    const std::string reason = record.file.error() == QFile::NoError
                                   ? "the file has become shorter"
                                   : record.file.errorString().toStdString();
    fail(report, "trace " + std::to_string(trace + 1) + " cannot be read: " + reason,
         Window::goesOn);
    record.lines.resize(trace);
    if (record.lines.empty())
        record.sourceX.reset();
}

void convertRecord(Record &record, const std::string &listingPath, const std::string &seg2Path,
                   std::ostream *progress, Report &report)
{
    const RecordSamples samples = {[&record](std::size_t trace, std::uint32_t count) {
                                       return availableSamples(record, trace, count);
                                   },
                                   [&record](std::size_t trace, std::uint32_t count) {
                                       return readSamples(record, trace, count);
                                   }};
    for (bool isConverted = false; !isConverted;) {
        try {
            if (writeListing(listingPath, record.lines, report))
                convertListing(listingPath, seg2Path, record.sourceX, samples, progress, report);
            isConverted = true;
        } catch (const LostTrace &lost) {
            endBefore(lost.index, record, report);
            progress = nullptr; // the traces that are left have been printed
        }
    }
}

} // namespace

std::string beforeLastDot(const std::string &path)
{
    return path.substr(0, path.rfind('.'));
}

std::string suListingPath(const std::string &path)
{
    return beforeLastDot(path) + "_tmp";
}

std::string suSeg2Path(const std::string &path)
{
    return beforeLastDot(path) + ".seg2";
}

std::int32_t convertSuToSeg2(std::string path)
{
    Report report = windowReport();
    convertSu(path, suListingPath(path), suSeg2Path(path), standardProgress(), report);
    return finish(report);
}

bool convertSu(const std::string &path, const std::string &listingPath, const std::string &seg2Path,
               std::ostream *progress, Report &report)
{
    return attempt(report, [&] {
        Record record;
        if (openSuFile(path, record.file, progress, report)) {
            record.isHeld = !isReadAnywhere(record.file) || isSameFile(path, listingPath)
                            || isSameFile(path, seg2Path);
            readRecord(record, report);
            if (!report.failure)
                remarkOnPositions(record, report);
        }
        convertRecord(record, listingPath, seg2Path, progress, report);
        if (!report.failure)
            remarkOnSamples(record.findings, report);
    });
}
