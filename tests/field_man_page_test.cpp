// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "tests/support/field_command.h"
#include "tests/support/field_seismic_unix.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <gtest/gtest.h>

#include <regex>
#include <set>

namespace {

/// The words of the man page, less its requests and its quoting.
std::set<std::string> manPageWords()
{
    std::string text = readFile(FIELD_MAN_PAGE);
    for (std::size_t at = text.find("\\-"); at != std::string::npos; at = text.find("\\-"))
        text.erase(at, 1);
    text = std::regex_replace(text, std::regex("\\\\f[A-Z]"), "");
    std::set<std::string> words;
    const std::regex word("[-A-Za-z0-9]+");
    for (std::sregex_iterator match(text.begin(), text.end(), word), end; match != end; ++match)
        words.insert(match->str());
    return words;
}

/// The names of all fields in a value.
void addFields(const QJsonValue &value, std::set<std::string> &fields)
{
    for (const QJsonValue element : value.toArray())
        addFields(element, fields);
    const QJsonObject object = value.toObject();
    for (auto field = object.begin(); field != object.end(); ++field) {
        fields.insert(field.key().toStdString());
        addFields(field.value(), fields);
    }
}

} // namespace

TEST(FieldManPage, DescribesEveryOption)
{
    const FieldFolder folder;
    const std::string help = folder.run({"--help"}).output;
    const std::set<std::string> words = manPageWords();
    std::size_t options = 0;
    const std::regex option("^  (-[a-z], )?(--[-a-z]+)", std::regex::multiline);
    for (std::sregex_iterator match(help.begin(), help.end(), option), end; match != end; ++match) {
        EXPECT_TRUE(words.contains(match->str(2))) << match->str(2);
        ++options;
    }
    EXPECT_EQ(options, 13u) << help;
}

TEST(FieldManPage, DescribesEveryFieldOfTheObjects)
{
    const FieldFolder folder;
    // Something of every kind: a remark, a failure, a window that reads otherwise, a record.
    folder.write("a.vs", "First breaks, ms\n1 1\n0 3\n5 -1\n 10 9\n15 12\n");
    folder.write("line.su", suTrace(ByteOrder::bigEndian, {{116, 250}}, {0.0F, 1.0F}));
    std::set<std::string> fields;
    for (const std::string command : {"info", "check"}) {
        for (const std::string file : {"a.vs", "line.su", "none"}) {
            const FieldRun run = folder.run({command, file, "--json"});
            addFields(QJsonDocument::fromJson(QByteArray::fromStdString(run.output)).object(),
                      fields);
        }
    }
    EXPECT_GT(fields.size(), 40u);
    const std::set<std::string> words = manPageWords();
    for (const std::string &field : fields)
        EXPECT_TRUE(words.contains(field)) << field;
}

TEST(FieldManPage, DescribesEveryFormat)
{
    const FieldFolder folder;
    const std::set<std::string> words = manPageWords();
    std::istringstream lines(folder.run({"formats"}).output);
    std::string line;
    std::getline(lines, line); // headings
    std::size_t formats = 0;
    for (; std::getline(lines, line); ++formats)
        EXPECT_TRUE(words.contains(line.substr(0, line.find(' ')))) << line;
    EXPECT_EQ(formats, 10u);
}
