// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "fuzz/field_picks.h"

#include "field/csv_picks.h"
#include "field/otte_picks.h"
#include "field/pick_checks.h"
#include "field/pick_content.h"
#include "field/seisimager_picks.h"
#include "field/sgt_picks.h"
#include "field/text_input.h"
#include "field/window_verdict.h"
#include "fuzz/support.h"

#include <algorithm>
#include <bit>
#include <cmath>

namespace {

void checkPlace(const Place &place, const std::string &path, std::size_t lineCount)
{
    require(place.file == path, "a report tells of the file that was read");
    require(place.line <= lineCount, "a report tells of a line that is there");
}

/// Checks what must hold of every survey that was read.
void checkSurvey(const PickSurvey &picks)
{
    const TraveltimeSurvey &survey = picks.survey;
    const std::size_t count = survey.shots.size();
    require(survey.traveltimes.size() == count && picks.shotOrigins.size() == count
                && picks.origins.size() == count && picks.errors.size() == count,
            "all lists have an entry for each shot");
    for (std::size_t i = 0; i < count; ++i) {
        const ShotTraveltimes &record = survey.traveltimes[i];
        const std::size_t size = record.times.size();
        require(record.shotIndex == i && record.spreadIndex < survey.spreads.size(),
                "indices are those of the lists");
        require(record.shotX == survey.shots[i].x
                    && record.shotElevation == survey.shots[i].elevation
                    && std::isfinite(record.shotX) && std::isfinite(record.shotElevation),
                "a record is at its shot");
        require(survey.spreads[record.spreadIndex].size() == size && picks.origins[i].size() == size
                    && (picks.errors[i].empty() || picks.errors[i].size() == size),
                "a record has an entry for each receiver");
        for (const double time : record.times)
            require(std::isfinite(time) && time >= 0.0, "times are numbers from 0 on");
    }
    for (std::size_t i = 0; i < survey.spreads.size(); ++i)
        for (std::size_t j = 0; j < i; ++j)
            require(!sameSpread(survey.spreads[i], survey.spreads[j]), "layouts are shared");
    for (const NotPicked &receiver : picks.notPicked)
        require(receiver.record < count && !(receiver.time >= 0.0),
                "what was not picked has no time");
}

/// Bytes of ASCII in UTF-16.
std::string inUtf16(const std::string &text, bool isBigEndian)
{
    std::string bytes = isBigEndian ? "\xFE\xFF" : "\xFF\xFE";
    for (const char character : text) {
        bytes += isBigEndian ? '\0' : character;
        bytes += isBigEndian ? character : '\0';
    }
    return bytes;
}

/// What was read and told, in a text.
std::string inWords(const PickSurvey &picks, const Report &report)
{
    std::string text = bitsOf(picks);
    for (const std::vector<Origin> &origins : picks.origins)
        for (const Origin &origin : origins)
            text += std::to_string(origin.line) + ' ';
    for (const Remark &remark : report.remarks)
        text += std::to_string(remark.place.line) + ": " + remark.text + '\n';
    if (report.failure)
        text += std::to_string(report.failure->place.line) + ": " + report.failure->text;
    return text;
}

/// Writes the survey in every format and reads it back; a format that has no room for all of it
/// says so.
void checkWriters(const PickSurvey &picks)
{
    struct Writer
    {
        WritePicks *write;
        ReadPicks *read;
        const char *rule;
    };
    for (const auto &[write, read, rule] : {
             Writer{writeOttePicks, readOttePicks, "OTTE gives the survey back"},
             {writeSgtPicks, readSgtPicks, "sgt gives the survey back"},
             {writeSeisImagerPicks, readSeisImagerPicks, "SeisImager gives the survey back"},
             {writeCsvPicks, readCsvPicks, "CSV gives the survey back"},
         }) {
        const std::string path = folder().path("written");
        Report report;
        require(write(path, picks, report), "a survey is written");
        if (!report.remarks.empty())
            continue;
        PickSurvey back;
        require(read(path, {}, back, report), std::string(rule) + ": " + readFile(path));
        requireSame(bitsOf(back), bitsOf(picks), rule);
    }
}

} // namespace

void checkReport(const Report &report, const std::string &path, const std::string &bytes,
                 bool isGood)
{
    require(isGood == !report.failure, "the result tells of the failure");
    // A lone carriage return ends a line, too.
    const auto lineCount =
        static_cast<std::size_t>(1 + std::count_if(bytes.begin(), bytes.end(), [](char character) {
                                     return character == '\n' || character == '\r';
                                 }));
    if (report.failure) {
        checkPlace(report.failure->place, path, lineCount);
        require(!report.failure->text.empty() && report.failure->text.size() < 400,
                "a failure is told in a line");
    }
    for (const Remark &remark : report.remarks) {
        checkPlace(remark.place, path, lineCount);
        require(!remark.text.empty() && remark.text.size() < 400, "a remark is a line");
    }
}

std::string bitsOf(const PickSurvey &picks)
{
    std::string bits;
    const auto add = [&bits](double value) {
        bits +=
            std::isnan(value) ? "nan" : std::to_string(std::bit_cast<std::uint64_t>(value + 0.0));
        bits += ' ';
    };
    const TraveltimeSurvey &survey = picks.survey;
    for (std::size_t i = 0; i < survey.shots.size(); ++i) {
        const ShotTraveltimes &record = survey.traveltimes[i];
        bits += "shot " + std::to_string(record.spreadIndex) + ' ';
        add(record.shotX);
        add(record.shotElevation);
        for (const ReceiverPosition &receiver : survey.spreads[record.spreadIndex]) {
            add(receiver.x);
            add(receiver.elevation);
        }
        std::for_each(record.times.begin(), record.times.end(), add);
        std::for_each(picks.errors[i].begin(), picks.errors[i].end(), add);
        bits += '\n';
    }
    return bits;
}

void checkReader(ReadPicks *read, const std::string &formatName, const std::string &input)
{
    PickSurvey all;
    bool isAllGood = true;
    for (const Section &section : sections(input)) {
        const std::string path = folder().path("file");
        PickOptions options;
        if (section.name.find("ms") != std::string::npos)
            options.timesIn = TimeUnit::milliseconds;
        if (section.name.find("listed") != std::string::npos)
            options.shotPositions = {{path, 1.0, 2.0}};
        checkShapes(
            [&](const std::string &bytes) {
                folder().write("file", bytes);
                PickSurvey picks;
                Report report;
                const bool isGood = read(path, options, picks, report);
                checkReport(report, path, decodeText(bytes), isGood);
                checkSurvey(picks);
                return inWords(picks, report);
            },
            section.bytes);
        for (auto *recognise : {recogniseGeogiga, recogniseWinsism, recogniseOtte, recogniseCsv,
                                recogniseSgt, recogniseSeisImager, recogniseGeneric})
            recognise(section.bytes, path);
        folder().write("file", section.bytes);
        Report report;
        isAllGood = read(path, options, all, report) && isAllGood;
        windowVerdict(formatName, path, options);
    }
    checkSurvey(all);
    if (!isAllGood)
        return;
    checkWriters(all);
    PickCheckSummary summary;
    checkPicks(all, 2.0, summary);
}

void checkShapes(const std::function<std::string(const std::string &bytes)> &read,
                 const std::string &bytes)
{
    const std::string words = read(bytes);
    requireSame(read(bytes), words, "the same file gives the same twice");
    const auto isPlain = [](char character) { return character > '\0' && character < '\x7F'; };
    if (bytes.empty() || !std::all_of(bytes.begin(), bytes.end(), isPlain))
        return;
    requireSame(read("\xEF\xBB\xBF" + bytes), words, "a mark changes nothing");
    requireSame(read(inUtf16(bytes, false)), words, "UTF-16 changes nothing");
    requireSame(read(inUtf16(bytes, true)), words, "UTF-16 changes nothing");
    if (bytes.find('\r') != std::string::npos)
        return;
    std::string withReturns;
    std::string returns;
    for (const char character : bytes) {
        withReturns += character == '\n' ? "\r\n" : std::string(1, character);
        returns += character == '\n' ? '\r' : character;
    }
    requireSame(read(withReturns), words, "CR LF changes nothing");
    requireSame(read(returns), words, "CR changes nothing");
}
