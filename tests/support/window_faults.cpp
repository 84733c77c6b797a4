// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "tests/support/window_faults.h"

#include "tests/support/convertible_files.h"
#include "tests/support/faults.h"
#include "tests/support/odd_files.h"

#include <QTest>

#include <algorithm>
#include <fcntl.h>
#include <filesystem>
#include <unistd.h>

namespace fs = std::filesystem;

const std::vector<Traveltimes> &traveltimeFormats()
{
    static const std::vector<Traveltimes> formats = {
        {geogiga, "page", "browseInputButton", "outputEdit", geogigaFile, geogigaOtte},
        {winsism, "page", "browseInputButton", "outputEdit", winsismFile, winsismOtte},
        {seisImager, "page", "browseInputButton", "outputEdit", seisImagerFile, seisImagerOtte},
        {generic, "page_3", "browseInputButton_3", "outputGenTxt", "5;100.5;0.001\n10;101;0.004\n",
         "otte\n1.0\n2\n1\n5;10;\n100.5;101;\n-1;\n100;\n0\n0\n1;4;\n"},
    };
    return formats;
}

const Traveltimes &formatOf(const QString &filter)
{
    const std::vector<Traveltimes> &formats = traveltimeFormats();
    return *std::find_if(formats.begin(), formats.end(),
                         [&filter](const Traveltimes &format) { return format.filter == filter; });
}

const std::string &older()
{
    static const std::string text = repeated("older ", 1000);
    return text;
}

Outcome WindowFaultTests::convertTraveltimes(const Traveltimes &format, const QString &input,
                                             const QString &output,
                                             const std::function<void()> &before) const
{
    turnTo(*window, format.page);
    browse(format.browseButton, {input}, format.filter);
    type(*window, format.outputEdit, output);
    before();
    const OrdinaryUser user;
    if (format.filter != generic)
        return convert();
    Outcome outcome = convert({placeShot("-1", "100")});
    if (!outcome.seen.removeOne(input + ": 0.000000, 0.000000"))
        outcome.seen += "another shot was asked for";
    return outcome;
}

void WindowFaultTests::nextTraveltimesAreRight(const Traveltimes &format) const
{
    QVERIFY(window->isVisible() && window->isEnabled());
    const Outcome outcome =
        convertTraveltimes(format, file("next", format.input), path("next.otte"));
    QCOMPARE(outcome.seen, QStringList(conversionDone));
    QCOMPARE(outcome.error, "");
    QCOMPARE(written("next.otte"), text(format.otte));
}

Outcome WindowFaultTests::convertRecord(const QString &filter, const QString &input,
                                        const std::function<void()> &before) const
{
    turnTo(*window, "page_2");
    browse("pushButton", {input}, filter);
    before();
    const OrdinaryUser user;
    return convert();
}

void WindowFaultTests::nextRecordIsRight(const QString &filter) const
{
    QVERIFY(window->isVisible() && window->isEnabled());
    writeDolangSet("next");
    file("next.su", suFile);
    const Outcome outcome = convertRecord(filter, path(filter == su ? "next.su" : "next.ADT"));
    QCOMPARE(outcome.seen, QStringList(conversionDone));
    QCOMPARE(outcome.error, "");
    QCOMPARE(written(filter == su ? "next_tmp" : "tmp_ADT"),
             text(filter == su ? suListing : dolangListing));
    QCOMPARE(bytesOf(filter == su ? "next.seg2" : "next_ADT_dolang.seg2"),
             bytesOf(filter == su ? suSeg2 : dolangSeg2));
}

void WindowFaultTests::writeDolangSet(const std::string &base) const
{
    file(base + ".ADT", "1\n-\n-\n0\n2\n1000\n");
    file(base + ".A01", "7\n-3\n");
    file(base + ".CDT", "0\n-\n-\n0\n0\n1000\n");
    file(base + ".RDT", "0\n-\n-\n0\n0\n1000\n");
}

void WindowFaultTests::writeOlderRecord(const QString &filter) const
{
    for (const char *name : {"L_tmp", "L.seg2"}) {
        if (filter == su)
            file(name, older());
    }
    for (const char *name : {"tmp_ADT", "L_ADT_dolang.seg2"}) {
        if (filter == dolang)
            file(name, older());
    }
}

bool WindowFaultTests::makeReadOnly(const QString &name) const
{
    fs::permissions(name.toStdString(), fs::perms::owner_write, fs::perm_options::remove);
    const OrdinaryUser user;
    return faccessat(AT_FDCWD, name.toStdString().c_str(), W_OK, AT_EACCESS) != 0;
}

void WindowFaultTests::oddInputIsConverted(const OddInput &odd) const
{
    const Traveltimes &format = formatOf(odd.filter);
    const Outcome outcome =
        convertTraveltimes(format, file("odd", odd.bytes()), file("out.otte", older()));
    QCOMPARE(outcome.seen, QStringList(odd.box));
    QCOMPARE(outcome.output, "");
    QVERIFY(outcome.error == text(odd.error));
    QCOMPARE(written("out.otte"), text(odd.otte.empty() ? older() : odd.otte));
    nextTraveltimesAreRight(format);
}

void WindowFaultTests::oddDolangHeaderIsConverted(const std::string &header) const
{
    const WorkingFolder working(folder->path(""));
    writeDolangSet("L");
    file("L.ADT", header);
    writeOlderRecord(dolang);
    const Outcome outcome = convertRecord(dolang, path("L.ADT"));
    QCOMPARE(outcome.seen, QStringList(conversionDone));
    QCOMPARE(outcome.output, "");
    QCOMPARE(outcome.error, "");
    // The first line begins with no number: no channels.
    QCOMPARE(written("tmp_ADT"), text(listingHeading));
    QCOMPARE(bytesOf("L_ADT_dolang.seg2"), bytesOf(emptySeg2));
    nextRecordIsRight(dolang);
}
