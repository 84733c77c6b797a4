// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "fuzz/traveltimes.h"

#include "fuzz/support.h"
#include "plain/otte.h"
#include "traveltime/otte_writer.h"
#include "traveltime/survey_checks.h"

#include <bit>
#include <sstream>

namespace {

/// All that a survey holds, to the last bit.
template <typename Records, typename Spreads, typename Shots>
std::string textOf(const Records &records, const Spreads &spreads, const Shots &shots)
{
    std::ostringstream text;
    const auto bits = [](double value) { return std::bit_cast<std::uint64_t>(value); };
    text << std::hex;
    for (const auto &record : records) {
        text << "record " << record.spreadIndex << ' ' << record.shotIndex << ' '
             << bits(record.shotX) << ' ' << bits(record.shotElevation) << ':';
        for (const double time : record.times)
            text << ' ' << bits(time);
        text << '\n';
    }
    for (const auto &spread : spreads) {
        text << "spread:";
        for (const auto &receiver : spread)
            text << ' ' << bits(receiver.x) << ' ' << bits(receiver.elevation);
        text << '\n';
    }
    for (const auto &shot : shots)
        text << "shot " << bits(shot.x) << ' ' << bits(shot.elevation) << ' ' << shot.name << '\n';
    return text.str();
}

std::string textOf(const TraveltimeSurvey &survey)
{
    return textOf(survey.traveltimes, survey.spreads, survey.shots);
}

} // namespace

void checkTraveltimes(const TraveltimeConversion &conversion)
{
    folder().write("out.otte", "older");
    const std::string output = folder().path("out.otte");
    plain::Survey plainSurvey;
    const Outcome plain = run([&] {
        return conversion.readPlainly(plainSurvey) && plain::writeOtte(output, plainSurvey) ? 0 : 1;
    });
    const std::string expected =
        textOf(plainSurvey.records, plainSurvey.spreads, plainSurvey.shots);

    requireSame(run([&] { return conversion.convert(output); }), plain, "driver");

    TraveltimeSurvey survey;
    Outcome reading = run([&] { return conversion.read(survey); });
    requireSame(reading.files.at("out.otte"), "older", "a reader writes nothing");
    reading.files = plain.files;
    requireSame(reading, plain, "reader");
    requireSame(textOf(survey), expected, "the reader's survey");

    const auto readAndWrite = [&](Report &report) {
        survey = {};
        conversion.readInner(survey, report);
        requireSame(textOf(survey), expected, "the inner form's survey");
        Report other{report.place};
        if (report.result == 0 && !report.error)
            require(writeOtte(output, survey, other), "a survey is written");
        if (!report.failure)
            checkSurvey(survey, "seconds", other);
        return !report.failure;
    };
    requireSame(runInner(readAndWrite), plain, "inner form");
}
