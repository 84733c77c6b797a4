// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "fuzz/support.h"

#include "plain/text.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <set>
#include <sstream>
#include <stdexcept>

namespace {

/// Thrown for a count that the program takes, but that would keep the fuzzer waiting.
struct TooSlow
{
};

void limitCount(std::uint64_t count)
{
    if (count > 2000)
        throw TooSlow();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    plain::noteCount = limitCount;
    for (const auto &entry : std::filesystem::directory_iterator(folder().path("")))
        std::filesystem::remove(entry.path());
    try {
        check(std::string(data, data + size));
    } catch (const TooSlow &) {
    }
    return 0;
}

void require(bool holds, const std::string &rule)
{
    if (holds)
        return;
    std::fprintf(stderr, "BROKEN: %s\n", rule.c_str());
    std::abort();
}

void requireSame(const std::string &text, const std::string &expected, const std::string &rule)
{
    if (text != expected)
        require(false, rule + "\n--- expected\n" + expected + "\n--- but\n" + text);
}

const TemporaryFolder &folder()
{
    static const TemporaryFolder own;
    return own;
}

std::vector<Section> sections(const std::string &input)
{
    std::vector<Section> result;
    for (std::size_t position = 0; position < input.size();) {
        const std::size_t end = std::min(input.find('\n', position), input.size() - 1) + 1;
        const std::string line = input.substr(position, end - position);
        position = end;
        if (line[0] == '=') {
            std::string name = line.substr(1, line.find('\n') - 1);
            name.erase(0, name.find_first_not_of(' '));
            result.push_back({name, ""});
        } else {
            if (result.empty())
                result.emplace_back();
            result.back().bytes += line;
        }
    }
    return result;
}

std::string writeSection(const Section &section, const std::string &fileName)
{
    return section.name.ends_with("missing") ? folder().path(fileName)
                                             : folder().write(fileName, section.bytes);
}

namespace {

/// Catches what goes through a stream while it lives.
class Caught
{
public:
    explicit Caught(std::ostream &streamToCatch)
        : stream(streamToCatch)
        , before(streamToCatch.rdbuf(text.rdbuf()))
    {
    }
    ~Caught()
    {
        stream.rdbuf(before);
    }
    Caught(const Caught &) = delete;
    Caught &operator=(const Caught &) = delete;

    std::ostringstream text;

private:
    std::ostream &stream;
    std::streambuf *before;
};

std::string nameOf(const std::logic_error &error)
{
    static const std::set<std::string> known = {
        "out of range: invalid vector subscript", "out of range: invalid string position",
        "out of range: stod argument out of range", "invalid argument: invalid stod argument",
        "length error: vector too long"};
    std::string name = "another error: ";
    if (dynamic_cast<const std::out_of_range *>(&error) != nullptr)
        name = "out of range: ";
    else if (dynamic_cast<const std::invalid_argument *>(&error) != nullptr)
        name = "invalid argument: ";
    else if (dynamic_cast<const std::length_error *>(&error) != nullptr)
        name = "length error: ";
    name += error.what();
    require(known.contains(name), "only known errors leave a conversion: " + name);
    return name;
}

Files filesOfFolder()
{
    Files files;
    for (const auto &entry : std::filesystem::directory_iterator(folder().path("")))
        files[entry.path().filename()] = readFile(entry.path());
    return files;
}

/// Changes the folder's files from `now` to `before`.
void putBack(const Files &now, const Files &before)
{
    for (const auto &[name, bytes] : now)
        if (!before.contains(name))
            std::filesystem::remove(folder().path(name));
    for (const auto &[name, bytes] : before)
        if (!now.contains(name) || now.at(name) != bytes)
            folder().write(name, bytes);
}

bool isOneLine(const std::string &text)
{
    return !text.empty() && text.find('\n') == std::string::npos;
}

/// Checks what holds for the report of any inner form; `result` is what the form returned.
void checkReport(const Report &report, bool result)
{
    require(result == !report.failure, "an inner form returns whether nothing failed");
    require(report.failure || (report.result == 0 && !report.error),
            "whatever stops the window is a failure");
    require(!report.failure || !report.failure->place.file.empty(), "a failure has a file");
    require(!report.failure || isOneLine(report.failure->text), "a failure is one line");
    std::map<std::pair<std::string, RemarkKind>, std::size_t> kept;
    for (const Remark &remark : report.remarks) {
        require(!remark.place.file.empty(), "a remark has a file");
        require(isOneLine(remark.text), "a remark is one line");
        ++kept[{remark.place.file, remark.kind}];
    }
    require(kept.size() == report.remarkCounts.size(), "every kind of remark is counted");
    for (const auto &[kind, count] : kept)
        require(count <= mostRemarks && count <= report.remarkCounts.at(kind),
                "of a kind so many remarks are kept");
}

} // namespace

Outcome run(const std::function<std::int32_t()> &call)
{
    const Files before = filesOfFolder();
    Outcome outcome;
    const Caught output(std::cout);
    const Caught error(std::cerr);
    try {
        outcome.result = std::to_string(call());
    } catch (const std::logic_error &known) {
        outcome.result = nameOf(known);
    }
    outcome.output = output.text.str();
    outcome.error = error.text.str();
    outcome.files = filesOfFolder();
    putBack(outcome.files, before);
    return outcome;
}

Outcome runInner(const std::function<bool(Report &report)> &call)
{
    Report reports[2];
    Outcome outcome;
    for (Report &report : reports) {
        bool result = false;
        outcome = run([&] {
            result = call(report);
            return 0;
        });
        requireSame(outcome.result, "0", "no error leaves an inner form");
        requireSame(outcome.output + outcome.error, "", "an inner form prints nothing");
        checkReport(report, result);
    }
    require(reports[0].failure == reports[1].failure, "the same failure each time");
    require(reports[0].remarks == reports[1].remarks, "the same remarks each time");

    const Outcome end = run([&] { return finish(reports[1]); });
    requireSame(end.output + end.error, "", "what was printed is in the report");
    return {end.result, "", reports[1].printed, outcome.files};
}

void requireSame(const Outcome &outcome, const Outcome &plain, const std::string &form)
{
    requireSame(outcome.result, plain.result, form + ": the result");
    requireSame(outcome.output, plain.output, form + ": the standard output");
    requireSame(outcome.error, plain.error, form + ": the standard error");
    for (const auto &[name, bytes] : plain.files) {
        require(outcome.files.contains(name), form + ": the file " + name);
        requireSame(outcome.files.at(name), bytes, form + ": the file " + name);
    }
    require(outcome.files.size() == plain.files.size(), form + ": no other files");
}
