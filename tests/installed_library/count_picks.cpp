// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include <field/formats.h>
#include <field/pick_summary.h>
#include <traveltime/otte_writer.h>

#include <iostream>

int main(int argc, char *argv[])
{
    Report report;
    PickSurvey picks;
    for (int i = 1; i < argc - 1; ++i)
        if (const Format *format = findFormat(argv[i], nullptr, report).format)
            format->readPicks(argv[i], {}, picks, report);
    std::cout << summarise(picks).shots << " shots, " << summarise(picks).picks << " picks\n";
    return !report.failure && writeOtte(argv[argc - 1], picks.survey, report) ? 0 : 1;
}
