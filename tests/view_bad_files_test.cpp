// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "tests/support/view_window.h"

#include <QDirIterator>
#include <QTest>

namespace {

/// The samples of all formats: of sets of files, the one that names the others.
QStringList sampleNames()
{
    return {"generic/shot1.txt",
            "geogiga/line.txt",
            "winsism/line_with_times.xyz",
            "seisimager/line.vs",
            "sgt/line.sgt",
            "otte.otte",
            "csv.csv",
            "seg2.seg2",
            "seismic_unix/line.su",
            "dolang/LINE.ADT"};
}

/// A file of every format: samples, and small ones where there is none.
std::string bytesOf(const QString &name)
{
    if (name == "otte.otte")
        return "otte\n1.0\n2\n1\n2;\n0;\n0;\n0;\n0\n0\n1;\n";
    if (name == "csv.csv")
        return "shot_x,shot_elevation,receiver_x,receiver_elevation,time\n0,0,5,0,0.01\n";
    if (name == "seg2.seg2")
        return std::string("\x55\x3a\x01\x00\x04\x00\x01\x00", 8) + std::string(200, '\x01');
    return readFile(SAMPLES_FOLDER "/" + name.toStdString());
}

std::string withEveryTenthByteTurned(std::string bytes)
{
    for (std::size_t i = 3; i < bytes.size(); i += 10)
        bytes[i] = static_cast<char>(~bytes[i]);
    return bytes;
}

} // namespace

class ViewBadFilesTest : public ViewWindowTests
{
    Q_OBJECT

private slots:
    void damagedFileLeavesTheWindowAlive_data()
    {
        QTest::addColumn<QString>("name");
        for (const QString &name : sampleNames())
            QTest::newRow(qPrintable(name)) << name;
    }

    void damagedFileLeavesTheWindowAlive()
    {
        QFETCH(QString, name);
        const std::string whole = bytesOf(name);
        const std::vector<std::string> damaged = {
            whole.substr(0, whole.size() / 3),         whole.substr(0, whole.size() * 2 / 3),
            whole.substr(0, whole.size() - 1),         withEveryTenthByteTurned(whole),
            whole + whole.substr(0, whole.size() / 2), std::string(whole.size(), '\0'),
        };
        open("clean.vs", cleanSurvey);
        for (std::size_t i = 0; i < damaged.size(); ++i) {
            const QString bad = QString("bad%1.").arg(i) + QFileInfo(name).suffix();
            const qsizetype messagesBefore = messages().size();
            const int shotsBefore = shotList().count();
            const qsizetype tabsBefore = tabs().size();
            open(bad.toStdString(), damaged[i]);
            QVERIFY2(messages().size() > messagesBefore || shotList().count() > shotsBefore
                         || tabs().size() > tabsBefore,
                     qPrintable(bad)); // it is shown, or there is a message
            cleanSurveyIsShown();
        }
        open("more.vs", "More\n0 1\n99 1\n30 10\n");
        QCOMPARE(shotList().item(shotList().count() - 1)->text().section(' ', 2),
                 QString("at 99 m"));
    }

    void whatIsNoFileLeavesAMessage_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QString>("message");
        QTest::newRow("nothing") << "none.vs"
                                 << "no such file";
        QTest::newRow("folder") << ""
                                << "this is a folder";
        QTest::newRow("empty") << "empty.vs"
                               << "the file is empty";
    }

    void whatIsNoFileLeavesAMessage()
    {
        QFETCH(QString, name);
        QFETCH(QString, message);
        file("empty.vs", "");
        open("clean.vs", cleanSurvey);
        window->openFiles({path(name)});
        QCOMPARE(messages().size(), 1);
        QVERIFY2(messages().front().contains(message), qPrintable(messages().front()));
        cleanSurveyIsShown();
    }

private:
    QListWidget &shotList() const
    {
        return *named<QListWidget>(*window, "shotList");
    }

    void cleanSurveyIsShown() const
    {
        QCOMPARE(shotList().item(0)->text(), QString("Shot 1 at 7 m"));
        QCOMPARE(pointsOf(picks(), "Shot 1 at 7 m"), QStringList({"0,12 5,4", "10,8 20,20"}));
        QVERIFY(!window->grab().isNull());
    }
};

template struct WindowTests<ViewBadFilesTest>;

#include "view_bad_files_test.moc"
