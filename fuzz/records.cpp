// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "fuzz/records.h"

#include "seg2/progress.h"
#include "tests/support/seg2_parser.h"

#include <sstream>
#include <stdexcept>

void checkRecord(const RecordConversion &conversion)
{
    const Outcome plain = run(conversion.convertPlainly);
    for (const auto &[name, bytes] : plain.files)
        if (name.ends_with(".seg2"))
            requireSoundSeg2(bytes);

    Outcome outcome = run(conversion.convert);
    if (standardProgress() == nullptr)
        outcome.output = plain.output;
    requireSame(outcome, plain, "entry point");

    std::ostringstream progress;
    outcome = runInner([&](Report &report) {
        progress.str("");
        return conversion.convertInner(&progress, report);
    });
    outcome.output = progress.str();
    requireSame(outcome, plain, "inner form");

    outcome = runInner([&](Report &report) { return conversion.convertInner(nullptr, report); });
    outcome.output = plain.output;
    requireSame(outcome, plain, "inner form without progress");
}

void requireSoundSeg2(const std::string &bytes)
{
    if (bytes.empty())
        return;
    try {
        parseSeg2(bytes);
    } catch (const std::runtime_error &flaw) {
        require(false, std::string("a SEG2 file is without a flaw: ") + flaw.what());
    }
}
