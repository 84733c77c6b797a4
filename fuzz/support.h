// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "tests/support/support.h"
#include "traveltime/problem.h"
#include "traveltime/survey.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <istream>
#include <map>
#include <string>
#include <vector>

// What the fuzz targets share. A target converts its input with the program's functions, compares
// what comes out with what a plain reading of the same input makes of it, and ends the process
// where the two differ: the fuzzer then keeps the input.

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

/// Cuts an input at its lines that begin with "=": a section's name is what follows there, less
/// blanks in front. What stands in front of the first such line is a section without a name.
std::vector<Section> sections(const std::string &input);

/// Writes a section's bytes as a file of the folder, unless its name ends in "missing", and returns
/// the path.
std::string writeSection(const Section &section, const std::string &fileName);

/// What a conversion left.
struct Outcome
{
    std::string result; ///< what it returned, or the class and the text of what it threw
    Problem problem = {};
    std::string output = {}; ///< on the standard streams
    std::string error = {};
    std::map<std::string, std::string> files = {}; ///< of the folder, its input files included
};

/// Runs a conversion with its standard streams caught. Of exceptions only those may leave it that
/// the users of the program know.
Outcome run(const std::function<std::int32_t(Problem &problem)> &call);

/// A conversion as a whole, run before, once more and in the form without a Problem.
void requireSame(const Outcome &first, const Outcome &again, const Outcome &untold);

/// Thrown for a count that the program takes, but that would keep the fuzzer waiting.
struct TooSlow
{
};

/// As the program refuses it, a count of values that a few bytes of input cannot mean.
void limitCount(std::uint64_t count, std::uint64_t bytesHeld);

// Reading and printing, plainly.

/// `value` as a stream prints it.
std::string printed(double value);

/// The next line; empty past the end.
std::string nextLine(std::istream &stream);

/// What tokenize gives for a line.
std::vector<std::string> fieldsOf(const std::string &line, const std::string &delimiters);

/// The fields, when there are `expected` of them at least; throws the error of a missing one.
std::vector<std::string> enoughFields(std::vector<std::string> fields, std::size_t expected);

/// The index of the first spread of the same positions, added when there is none.
std::uint32_t plainSpreadIndex(std::vector<Spread> &spreads, const Spread &receivers);

// Traveltimes.

using ReadSurvey = std::function<std::int32_t(TraveltimeSurvey &survey)>;

/// The two forms of a driver, the program's reader and a plain one, all of the same input.
struct TraveltimeConversion
{
    std::function<std::int32_t(const std::string &outputPath)> convert;
    std::function<std::int32_t(const std::string &outputPath, Problem &problem)> convertAndTell;
    ReadSurvey read;
    ReadSurvey readPlainly;
};

/// Checks that the forms agree, that the survey is the plain one's, that the OTTE file is sound and
/// tells the survey, and that there is none when the reading fails.
void checkTraveltimes(const TraveltimeConversion &conversion);

// Records.

/// A trace as it must stand in a SEG2 file.
struct ExpectedTrace
{
    std::vector<float> samples;
    double delay = 0.0;
    double interval = 0.0;
    double receiverX = 0.0;
    double receiverY = 0.0;
    double receiverZ = 0.0;
    double sourceX = 0.0;
};

/// Checks that a SEG2 file is sound and holds these file strings and traces.
void checkSeg2(const std::string &bytes, const std::vector<std::string> &strings,
               const std::vector<ExpectedTrace> &traces);

/// The listing of such traces, of which the receiver's x alone is not 0.
std::string listingOf(const std::vector<ExpectedTrace> &traces);
