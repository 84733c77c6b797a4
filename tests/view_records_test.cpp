// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "tests/support/field_seismic_unix.h"
#include "tests/support/view_window.h"
#include "view/record_plottable.h"

#include <QComboBox>
#include <QSlider>
#include <QTabBar>
#include <QTest>

namespace {

/// Traces at 0, 5 and 10 m of a shot at `source`, four samples 1 ms apart.
std::string recordOf(int source, int shotNumber = 1)
{
    std::string record;
    for (int trace = 0; trace < 3; ++trace)
        record += suTrace(ByteOrder::littleEndian,
                          {{0, trace + 1},
                           {8, shotNumber},
                           {12, trace + 1},
                           {72, source},
                           {80, 5 * trace},
                           {70, 1},
                           {88, 1},
                           {116, 1000}},
                          {0, 1, -1, 0.5F});
    return record;
}

/// Picks at the first two receivers.
const std::string picksOfShotAt0 = "Line\n0 1\n0 2\n0 0\n5 2\n";

} // namespace

class ViewRecordsTest : public ViewWindowTests
{
    Q_OBJECT

private slots:
    void recordIsShown()
    {
        open("line.su", recordOf(20));
        QCOMPARE(shownPage(), QString("recordPage"));
        QCOMPARE(window->windowTitle(), QString("line.su - Convert2Velarix: pictures"));
        QVERIFY(shownTitle(record()).startsWith("line.su: "));
        QVERIFY(shownTitle(record()).endsWith("3 traces"));
        QVERIFY(record().axisRect()->axis(QCPAxis::atLeft)->rangeReversed());
    }

    void picksAndRecordsHavePagesOfTheirOwn()
    {
        open("line.su", recordOf(20));
        open("line.vs", cleanSurvey);
        open("other.su", recordOf(30));
        QCOMPARE(tabs(), QStringList({"*Picks", "line.su", "other.su"}));
        QCOMPARE(shownPage(), QString("picksPage"));
        QCOMPARE(press("Ctrl+Tab"), QStringList());
        QCOMPARE(shownPage(), QString("recordPage"));
        QVERIFY(shownTitle(record()).startsWith("line.su: "));
        auto *const bar = named<QTabBar>(*window, "tabs");
        QTest::mouseClick(bar, Qt::LeftButton, {}, bar->tabRect(2).center());
        QVERIFY(shownTitle(record()).startsWith("other.su: "));
        QCOMPARE(press("Ctrl+Tab"), QStringList());
        QCOMPARE(tabs(), QStringList({"*Picks", "line.su", "other.su"}));
    }

    void reloadingStaysAtTheRecord()
    {
        open("line.vs", cleanSurvey);
        open("line.su", recordOf(20));
        QCOMPARE(press("Ctrl+Tab"), QStringList());
        QCOMPARE(press("F5"), QStringList());
        QCOMPARE(tabs(), QStringList({"Picks", "*line.su"}));
        QCOMPARE(shownPage(), QString("recordPage"));
    }

    void ampersandInANameIsNoLetterOfTheKeyboard()
    {
        open("a&b.su", recordOf(20));
        QCOMPARE(tabs(), QStringList("*a&&b.su"));
        QCOMPARE(window->windowTitle(), QString("a&b.su - Convert2Velarix: pictures"));
    }

    void closedRecordLeavesTheMemory()
    {
        open("line.su", recordOf(20));
        const std::weak_ptr<const RecordData> data = recordOn(record())->drawing().record;
        QVERIFY(!data.expired());
        QCOMPARE(press("Ctrl+W"), QStringList());
        QVERIFY(data.expired());
        open("line.su", recordOf(30));
        QVERIFY(shownTitle(record()).endsWith("3 traces"));
    }

    void picksLieOnTheirRecord()
    {
        open("line.su", recordOf(0));
        window->openFiles({file("line.vs", picksOfShotAt0)});
        QCOMPARE(press("Ctrl+Tab"), QStringList());
        QCOMPARE(pointsOf(record(), "Picks"), QStringList("1,0 2,2"));
        tick(*window, "picksBox");
        QCOMPARE(pointsOf(record(), "Picks"), QStringList());
        tick(*window, "picksBox");
        QCOMPARE(pointsOf(record(), "Picks"), QStringList("1,0 2,2"));
    }

    void picksOfAnotherShotDoNot()
    {
        open("line.su", recordOf(20));
        open("line.vs", picksOfShotAt0);
        QCOMPARE(press("Ctrl+Tab"), QStringList());
        QVERIFY(!named<QWidget>(*window, "picksBox")->isEnabled());
        QVERIFY(pointsOf(record(), "Picks").join("").isEmpty());
    }

    void drawnAsWigglesOrDensity()
    {
        open("line.su", recordOf(0));
        QCOMPARE(options().style, RecordStyle::automatic);
        QCOMPARE(recordOn(record())->styleInView(), RecordStyle::wiggles);
        choose("styleBox", "density");
        QCOMPARE(recordOn(record())->styleInView(), RecordStyle::density);
        choose("styleBox", "wiggles");
        QCOMPARE(options().style, RecordStyle::wiggles);
    }

    void gain()
    {
        open("line.su", recordOf(0));
        QCOMPARE(options().gain, RecordGain::byTrace);
        choose("gainBox", "by record");
        QCOMPARE(options().gain, RecordGain::byRecord);
        choose("gainBox", "automatic");
        QCOMPARE(options().gain, RecordGain::automatic);
    }

    void clippingIsFrom1To1Percent()
    {
        open("line.su", recordOf(0));
        QCOMPARE(options().clipping, 1.0);
        auto *const slider = named<QSlider>(*window, "clippingSlider");
        slider->setFocus();
        QTest::keyClick(slider, Qt::Key_End);
        QCOMPARE(options().clipping, 0.01);
        for (int page = 0; page < 5; ++page)
            QTest::keyClick(slider, Qt::Key_PageDown);
        QCOMPARE(options().clipping, 0.1);
    }

    void tracesByPosition()
    {
        open("line.su", recordOf(0));
        open("line.vs", picksOfShotAt0);
        QCOMPARE(press("Ctrl+Tab"), QStringList());
        choose("spacingBox", "position");
        QCOMPARE(options().spacing, TraceSpacing::byPosition);
        QCOMPARE(pointsOf(record(), "Picks"), QStringList("0,0 5,2"));
        const QCPRange inView = record().axisRect()->axis(QCPAxis::atBottom)->range();
        QVERIFY(inView.lower < 0 && inView.upper > 10);
    }

    void oneOfSeveralShots()
    {
        open("line.su", recordOf(0));
        QVERIFY(!named<QWidget>(*window, "shotBox")->isVisible());
        open("two.su", recordOf(0) + recordOf(20, 2));
        QCOMPARE(press("Ctrl+Tab"), QStringList());
        QVERIFY(named<QWidget>(*window, "shotBox")->isVisible());
        QVERIFY(shownTitle(record()).contains("2 shots, 6 traces"));
        choose("shotBox", "2 at 20 m");
        QVERIFY(shownTitle(record()).contains("at 20 m, 3 traces"));
        choose("shotBox", "all");
        QVERIFY(shownTitle(record()).contains("2 shots, 6 traces"));
    }

    void controlsStayForTheNextRecord()
    {
        open("line.su", recordOf(0));
        choose("styleBox", "density");
        open("other.su", recordOf(20));
        QCOMPARE(press("Ctrl+Tab"), QStringList());
        QVERIFY(shownTitle(record()).startsWith("other.su: "));
        QCOMPARE(options().style, RecordStyle::density);
    }

    void findingsOfARecordShowIt()
    {
        open("line.vs", reciprocalSurvey);
        open("dead.su", suTrace(ByteOrder::littleEndian, {{116, 1000}}, {0, 0, 0})
                            + suTrace(ByteOrder::littleEndian, {{116, 1000}}, {0, 1, 0}));
        QVERIFY(findings().size() > 1);
        QVERIFY2(findings()[1].startsWith("dead.su: "), qPrintable(findings()[1]));
        auto *const list = named<QListWidget>(*window, "findingList");
        list->setCurrentRow(1);
        QCOMPARE(tabs(), QStringList({"Picks", "*dead.su"}));
        list->setCurrentRow(0);
        QCOMPARE(tabs(), QStringList({"*Picks", "dead.su"}));
        QCOMPARE(pointsOf(picks(), "Chosen finding"), QStringList("0,26 10,20"));
        list->setCurrentRow(1);
        QCOMPARE(pointsOf(picks(), "Chosen finding"), QStringList());
    }

    void findingOfATraceShowsItWithThoseBesideIt()
    {
        std::string traces;
        for (int number = 1; number <= 30; ++number)
            traces += suTrace(ByteOrder::littleEndian, {{116, 1000}},
                              number == 20 ? std::vector<float>{0, 0, 0}
                                           : std::vector<float>{0, float(number), 0});
        open("line.su", traces);
        const QStringList lines = findings();
        const auto dead = std::find_if(lines.begin(), lines.end(), [](const QString &line) {
            return line.startsWith("line.su: trace 20");
        });
        QVERIFY(dead != lines.end());
        auto *const list = named<QListWidget>(*window, "findingList");
        list->setCurrentRow(static_cast<int>(dead - lines.begin()));
        const QCPRange inView = record().axisRect()->axis(QCPAxis::atBottom)->range();
        QCOMPARE(inView.lower, 10.0);
        QCOMPARE(inView.upper, 30.0);
    }

    void damagedRecordShowsTheTracesBefore()
    {
        const std::string whole = recordOf(0);
        open("line.su", whole.substr(0, whole.size() - 4));
        QCOMPARE(messages().size(), 1);
        QVERIFY2(messages().front().endsWith("only the 2 whole traces before it can be read"),
                 qPrintable(messages().front()));
        QVERIFY(shownTitle(record()).endsWith("2 traces"));
    }

    void doubleClickShowsAll()
    {
        open("line.su", recordOf(0));
        const QString all = inView(record());
        record().axisRect()->axis(QCPAxis::atBottom)->setRange(1, 2);
        QTest::mouseDClick(&record(), Qt::LeftButton, {}, record().rect().center());
        QCOMPARE(inView(record()), all);
        record().axisRect()->axis(QCPAxis::atBottom)->setRange(1, 2);
        QCOMPARE(press("Ctrl+0"), QStringList());
        QCOMPARE(inView(record()), all);
    }

    void choosingAnotherGainKeepsWhatIsInView()
    {
        open("line.su", recordOf(0));
        record().axisRect()->axis(QCPAxis::atBottom)->setRange(1, 2);
        choose("gainBox", "by record");
        QCOMPARE(rangeOf(*record().axisRect()->axis(QCPAxis::atBottom)), QString("1,2"));
    }

    void darkThemeIsFollowed()
    {
        open("line.su", recordOf(0));
        QPalette dark = window->palette();
        dark.setColor(QPalette::Base, QColor(20, 20, 20));
        dark.setColor(QPalette::Text, QColor(230, 230, 230));
        window->setPalette(dark);
        const QImage shown = record().grab().toImage();
        QCOMPARE(shown.pixelColor(3, shown.height() - 3), QColor(20, 20, 20));
    }

    void pictureIsSaved()
    {
        open("line.su", recordOf(0));
        open("line.vs", picksOfShotAt0);
        QCOMPARE(press("Ctrl+Tab"), QStringList());
        QCOMPARE(press("Ctrl+S", {::choose({path("picture.svg")})}), QStringList());
        const std::string svg = readFile(folder->path("picture.svg"));
        QVERIFY(svg.find(">Trace<") != std::string::npos);
        QVERIFY(svg.find("3 traces</title>") != std::string::npos);
        QVERIFY(svg.find("#c80082") != std::string::npos); // the picks
    }

private:
    const RecordPlotOptions &options() const
    {
        return recordOn(record())->drawing().options;
    }

    /// Chooses an entry of a box by its keyboard.
    void choose(const char *name, const QString &entry) const
    {
        auto *const box = named<QComboBox>(*window, name);
        box->setFocus();
        QTest::keyClick(box, Qt::Key_Home);
        while (box->currentText() != entry && box->currentIndex() + 1 < box->count())
            QTest::keyClick(box, Qt::Key_Down);
        QCOMPARE(box->currentText(), entry);
    }
};

template struct WindowTests<ViewRecordsTest>;

#include "view_records_test.moc"
