// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "tests/support/support.h"
#include "traveltime/report.h"

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <vector>

// What the fuzz targets share. A target converts its input with the program's entry point, with its
// inner form and with the plain functions of plain/, and ends the process where they differ: the
// fuzzer then keeps the input.

/// The target: converts `input` and checks what it makes. The folder is empty when it starts.
void check(const std::string &input);

/// Ends the process, naming the rule, when it does not hold.
void require(bool holds, const std::string &rule);
void requireSame(const std::string &text, const std::string &expected, const std::string &rule);

/// This process's folder. It is in the system's folder for temporary files, which fuzz/run puts
/// into memory.
const TemporaryFolder &folder();

/// A part of an input that stands for several files.
struct Section
{
    std::string name;
    std::string bytes;
};

/// Cuts an input at its lines that begin with "=": a section's name is the rest of that line, less
/// blanks in front. What comes before the first such line is a section without a name.
std::vector<Section> sections(const std::string &input);

/// Writes a section's bytes as a file of the folder, unless its name ends in "missing", and returns
/// the path.
std::string writeSection(const Section &section, const std::string &fileName);

/// The files of a folder, by name.
using Files = std::map<std::string, std::string>;

/// What a conversion left.
struct Outcome
{
    std::string result = {}; ///< what it returned, or the class and the text of what it threw
    std::string output = {}; ///< on the standard streams
    std::string error = {};
    Files files = {}; ///< of the folder, its input files included
};

/// Runs a conversion with its standard streams caught, and puts the folder back as it was. Of
/// errors only those may leave the conversion that the users of the program know.
Outcome run(const std::function<std::int32_t()> &call);

/// The same for an inner form, which fills a report: checks that it throws and prints nothing and
/// that its report is sound and the same each time, and ends it as its entry point does.
Outcome runInner(const std::function<bool(Report &report)> &call);

/// Checks that `outcome` is the one of the plain conversion.
void requireSame(const Outcome &outcome, const Outcome &plain, const std::string &form);
