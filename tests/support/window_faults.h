// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#pragma once

#include "tests/support/converter_window.h"
#include "tests/support/filters.h"

#include <functional>
#include <string>
#include <vector>

/// A format of traveltimes: where the window takes it, a file of it and what that becomes.
struct Traveltimes
{
    QString filter;
    const char *page;
    const char *browseButton;
    const char *outputEdit;
    std::string input;
    std::string otte;
};

const std::vector<Traveltimes> &traveltimeFormats();

const Traveltimes &formatOf(const QString &filter);

/// An input that is not what its format is, and what comes of it. An empty `otte` stands for an
/// older output that is left alone.
struct OddInput
{
    const char *name;
    QString filter;
    std::function<std::string()> bytes;
    QString box;
    std::string error;
    std::string otte;
};

inline const std::string wentWrong = "Something went wrong\n";

/// What an older output holds; longer than what replaces it.
const std::string &older();

/// Tests of conversions that something disturbs, after which the window is alive and does the next
/// conversion right.
class WindowFaultTests : public ConverterWindowTests
{
protected:
    /// Chooses the input, lets `before` change it and converts as an ordinary user.
    Outcome convertTraveltimes(
        const Traveltimes &format, const QString &input, const QString &output,
        const std::function<void()> &before = [] {}) const;
    void nextTraveltimesAreRight(const Traveltimes &format) const;

    /// The same for records.
    Outcome convertRecord(
        const QString &filter, const QString &input,
        const std::function<void()> &before = [] {}) const;
    /// Dolang listings go to the working folder, which must be this test's.
    void nextRecordIsRight(const QString &filter) const;

    /// Converts an odd input over an older output.
    void oddInputIsConverted(const OddInput &odd) const;
    /// A Dolang header whose first line begins with no number.
    void oddDolangHeaderIsConverted(const std::string &header) const;

    /// One channel of kind A, and none of the others.
    void writeDolangSet(const std::string &base) const;
    void writeOlderRecord(const QString &filter) const;

    /// False where permissions hold nobody back.
    bool makeReadOnly(const QString &name) const;
};
