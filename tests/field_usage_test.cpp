// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "tests/support/field_command.h"

#include <gtest/gtest.h>

#include <sstream>

namespace {

using Arguments = std::vector<std::string>;

/// A folder with picks, the same record in two files, and an older output.
struct Files : FieldFolder
{
    Files()
    {
        write("a.vs", "-\n0 1\n0 1\n2 1\n");
        write("line.otte", "older");
    }
};

/// Expects that the command line is refused for this reason before anything happens.
void expectWrong(const Arguments &arguments, const std::string &reason)
{
    SCOPED_TRACE(testing::PrintToString(arguments));
    const Files files;
    const auto before = files.contents();
    EXPECT_EQ(files.run(arguments),
              (FieldRun{2, "", "convert2velarix-field: " + reason + "; see --help\n"}));
    EXPECT_EQ(files.contents(), before);
}

/// The arguments of a conversion that would go well, and further ones.
Arguments convert(const Arguments &further)
{
    Arguments arguments = {"convert", "a.vs", "-o", "line.otte"};
    arguments.insert(arguments.end(), further.begin(), further.end());
    return arguments;
}

const std::string noCommand = "a command is needed: info, check, convert or formats";
const std::string noInput = "an input file is needed";
const std::string noStream =
    "standard input and output are not taken: name a file instead of \"-\"";

} // namespace

TEST(FieldUsage, CommandAndFiles)
{
    expectWrong({}, noCommand);
    expectWrong({"--json"}, noCommand);
    expectWrong({"a.vs"},
                "\"a.vs\" is no command: the commands are info, check, convert or formats");
    expectWrong({"Info", "a.vs"},
                "\"Info\" is no command: the commands are info, check, convert or formats");
    for (const std::string command : {"info", "check"}) {
        expectWrong({command}, noInput);
        expectWrong({command, "a.vs", ""}, noInput);
        expectWrong({command, "-"}, noStream);
    }
    expectWrong({"convert", "-o", "line.otte"}, noInput);
    expectWrong({"convert", "-", "-o", "line.otte"}, noStream);
    expectWrong({"convert", "a.vs", "-o", "-"}, noStream);
    expectWrong({"convert", "a.vs"}, "an output is needed: -o OUT");
    expectWrong({"formats", "a.vs"}, "formats takes no files");
}

TEST(FieldUsage, OptionsThatTheCommandDoesNotTake)
{
    const std::vector<std::pair<std::string, Arguments>> refused = {
        {"info", {"output", "to", "topography", "byte-order", "millivolts", "tolerance", "strict"}},
        {"check", {"output", "to", "topography", "byte-order", "millivolts"}},
        {"convert", {"tolerance", "json"}},
        {"formats",
         {"output", "to", "from", "times-in", "shots", "topography", "byte-order", "millivolts",
          "tolerance", "strict", "json"}},
    };
    for (const auto &[command, options] : refused) {
        for (const std::string &option : options) {
            const bool hasValue = option != "millivolts" && option != "strict" && option != "json";
            Arguments arguments = {command};
            if (command != "formats")
                arguments.push_back("a.vs");
            arguments.push_back("--" + option + (hasValue ? "=1" : ""));
            if (command == "convert")
                arguments.insert(arguments.end(), {"-o", "line.otte"});
            expectWrong(arguments, command + " takes no --" + option);
        }
    }
}

TEST(FieldUsage, OptionsGivenTwiceOrWithoutValue)
{
    expectWrong(convert({"--output", "b.otte"}), "--output is given twice");
    for (const std::string option :
         {"to", "from", "times-in", "shots", "topography", "byte-order"}) {
        expectWrong(convert({"--" + option, "a", "--" + option, "b"}),
                    "--" + option + " is given twice");
        expectWrong(convert({"--" + option, ""}), "--" + option + " needs a value");
        expectWrong(convert({"--" + option}), "Missing value after '--" + option + "'");
    }
    expectWrong({"check", "a.vs", "--tolerance", ""}, "--tolerance needs a value");
    expectWrong({"convert", "a.vs", "-o", ""}, "--output needs a value");
    expectWrong(convert({"--loud"}), "Unknown option 'loud'");
}

TEST(FieldUsage, ValuesThatMeanNothing)
{
    const std::string read =
        "generic, geogiga, seisimager, winsism, otte, sgt, csv, su, seg2 or dolang";
    for (const std::string format : {"vs", "SeisImager", "generic,csv"}) {
        expectWrong({"info", "a.vs", "--from", format},
                    "--from takes " + read + ", not \"" + format + '"');
        expectWrong(convert({"--to", format}),
                    "--to takes seisimager, otte, sgt, csv, su or seg2, not \"" + format + '"');
    }
    for (const std::string format : {"generic", "geogiga", "winsism", "dolang"})
        expectWrong(convert({"--to", format}),
                    "--to takes seisimager, otte, sgt, csv, su or seg2, not \"" + format + '"');
    for (const std::string unit : {"S", "seconds", "us"})
        expectWrong({"info", "a.vs", "--times-in", unit},
                    "--times-in takes s or ms, not \"" + unit + '"');
    for (const std::string order : {"Big", "little-endian"})
        expectWrong(convert({"--to", "su", "--byte-order", order}),
                    "--byte-order takes little or big, not \"" + order + '"');
    for (const std::string number : {"x", "2ms", "2,5", "-1", "nan", "inf", "1e999"})
        expectWrong({"check", "a.vs", "--tolerance", number},
                    "--tolerance takes milliseconds, not \"" + number + '"');
}

TEST(FieldUsage, OutputsThatDoNotSayTheirFormat)
{
    for (const std::string output : {"line", "line.txt", "line.", ".otte", "otte/line"})
        expectWrong({"convert", "a.vs", "-o", output},
                    "the name " + output + " does not say the format to write: add --to FORMAT");
}

TEST(FieldUsage, OptionsThatTheTargetDoesNotTake)
{
    for (const std::string format : {"otte", "sgt", "seisimager", "csv"}) {
        expectWrong(convert({"--to", format, "--byte-order", "big"}),
                    format + " takes no --byte-order");
        expectWrong(convert({"--to", format, "--millivolts"}), format + " takes no --millivolts");
    }
    for (const std::string format : {"su", "seg2"}) {
        expectWrong(convert({"--to", format, "--times-in", "ms"}), format + " takes no --times-in");
        expectWrong(convert({"--to", format, "--shots", "s.txt"}), format + " takes no --shots");
        expectWrong(convert({"--to", format, "--topography", "t.txt"}),
                    format + " takes no --topography");
    }
    expectWrong(convert({"--to", "seg2", "--byte-order", "big"}), "seg2 takes no --byte-order");
    expectWrong(convert({"--to", "seg2", "--millivolts"}), "seg2 takes no --millivolts");
}

TEST(FieldUsage, HelpNamesEveryCommandAndOption)
{
    for (const std::string option : {"-h", "--help"}) {
        SCOPED_TRACE(option);
        const Files files;
        const FieldRun run = files.run({"convert", "a.vs", "-o", "line.otte", option});
        EXPECT_EQ(run.status, 0);
        EXPECT_EQ(run.error, "");
        for (const std::string text :
             {"convert2velarix-field info FILE... [--json]",
              "convert2velarix-field check FILE... [--json] [--strict] [--tolerance MS]",
              "convert2velarix-field convert FILE... -o OUT [options]",
              "convert2velarix-field formats", "-h, --help", "-v, --version", "-o, --output <OUT>",
              "--to <format>", "--from <format>", "--times-in <unit>", "--shots <file>",
              "--topography <file>", "--byte-order <order>", "--millivolts", "--tolerance <MS>",
              "--strict", "--json"})
            EXPECT_NE(run.output.find(text), std::string::npos) << text;
        std::istringstream lines(run.output);
        for (std::string line; std::getline(lines, line);) {
            if (!line.starts_with("Usage: ")) { // which names the command as it was called
                EXPECT_LE(line.size(), 80u) << line;
            }
        }
        EXPECT_EQ(readFile(files.path("line.otte")), "older");
    }
}

TEST(FieldUsage, Version)
{
    const Files files;
    for (const std::string option : {"-v", "--version"})
        EXPECT_EQ(files.run({option}), (FieldRun{0, "convert2velarix-field 1.0.0\n", ""}))
            << option;
}

TEST(FieldUsage, OptionsMayStandAnywhere)
{
    for (const Arguments &arguments : {Arguments{"-o", "line.otte", "convert", "a.vs"},
                                       {"convert", "--output=line.otte", "a.vs"},
                                       {"convert", "a.vs", "-oline.otte"},
                                       {"-o", "line.otte", "--", "convert", "a.vs"}}) {
        SCOPED_TRACE(testing::PrintToString(arguments));
        const Files files;
        EXPECT_EQ(files.run(arguments), FieldRun{});
        EXPECT_EQ(readFile(files.path("line.otte")), "otte\n1.0\n2\n1\n2;\n0;\n0;\n0;\n0\n0\n1;\n");
    }
}

TEST(FieldUsage, FormatsAreListed)
{
    const Files files;
    EXPECT_EQ(
        files.run({"formats"}),
        (FieldRun{0,
                  "format      holds    use         extensions       what it is\n"
                  "generic     picks    read                         text, a file for each shot\n"
                  "geogiga     picks    read                         TX_CURVE text\n"
                  "seisimager  picks    read, write .vs              SeisImager traveltimes\n"
                  "winsism     picks    read                         Geo2X Winsism XYZ\n"
                  "otte        picks    read, write .otte            OTTE traveltimes\n"
                  "sgt         picks    read, write .sgt             unified data format\n"
                  "csv         picks    read, write .csv             table with a heading\n"
                  "su          records  read, write .su              Seismic Unix\n"
                  "seg2        records  read, write .seg2 .sg2 .dat  SEG2\n"
                  "dolang      records  read                         Dolang, a set of files\n",
                  ""}));
}

TEST(FieldUsage, ArgumentThatIsNoUtf8IsRefused)
{
    const Files files;
    // QProcess would encode it: a shell hands the bytes over.
    QProcess process;
    process.setWorkingDirectory(QString::fromStdString(files.path("")));
    process.start("sh", {"-c", "exec '" BATCH_COMMAND "' info \"$(printf 'l\\344.su')\""});
    EXPECT_EQ(
        finish(process),
        (FieldRun{2, "", "convert2velarix-field: argument 2 is not valid UTF-8; see --help\n"}));
}
