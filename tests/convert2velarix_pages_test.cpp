// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "tests/support/converter_window.h"
#include "tests/support/filters.h"

#include <QAbstractButton>
#include <QTest>
#include <QToolBox>

class Convert2VelarixPagesTest : public ConverterWindowTests
{
    Q_OBJECT

private slots:
    void seismicPageComesFirstWhenAllAreVisible()
    {
        browse("browseInputButton_3", {file("shot.txt", "0;100;0.001\n")}, generic);
        showPage("page");
        showPage("page_2");
        const Outcome outcome = convert();
        QCOMPARE(outcome.seen, QStringList(conversionDone));
        QVERIFY(named<QWidget>(*window, "page_3")->isVisible());
    }

    void structuredPageComesBeforeTheGenericOne()
    {
        browse("browseInputButton_3", {file("shot.txt", "0;100;0.001\n")}, generic);
        showPage("page");
        QVERIFY(named<QWidget>(*window, "page_3")->isVisible());
        QCOMPARE(convert().seen, QStringList({formatNotRecognized, conversionDone}));
    }

    void visiblePageDecidesAgainstTheCurrentIndex_data()
    {
        QTest::addColumn<QString>("current");
        QTest::addColumn<QString>("visible");
        QTest::addColumn<QStringList>("seen");
        const QStringList nothing = {conversionDone};
        const QStringList warning = {formatNotRecognized, conversionDone};
        const QStringList asked = {"shot", conversionNotCompleted};
        QTest::newRow("structured") << "page_3"
                                    << "page" << warning;
        QTest::newRow("seismic") << "page_3"
                                 << "page_2" << nothing;
        QTest::newRow("generic instead of structured") << "page"
                                                       << "page_3" << asked;
        QTest::newRow("generic instead of seismic") << "page_2"
                                                    << "page_3" << asked;
        QTest::newRow("none instead of generic") << "page_3"
                                                 << "" << nothing;
        QTest::newRow("none instead of structured") << "page"
                                                    << "" << nothing;
    }

    void visiblePageDecidesAgainstTheCurrentIndex()
    {
        QFETCH(QString, current);
        QFETCH(QString, visible);
        QFETCH(QStringList, seen);
        browse("browseInputButton_3", {file("shot.txt", "0;100;0.001\n")}, generic);
        turnTo(*window, qPrintable(current));
        named<QWidget>(*window, qPrintable(current))->hide();
        if (!visible.isEmpty())
            showPage(qPrintable(visible));
        QCOMPARE(named<QToolBox>(*window, "toolBox")->currentWidget()->objectName(), current);
        const std::vector<Answer> answers(seen.contains("shot") ? 1 : 0, [](QDialog &dialog) {
            note("shot");
            dialog.reject();
        });
        QCOMPARE(convert(answers).seen, seen);
    }

    void hiddenWindowConvertsNothing()
    {
        turnTo(*window, "page");
        window->hide();
        QCOMPARE(watch([&] { named<QAbstractButton>(*window, "convertButton")->click(); }),
                 QStringList(conversionDone));
    }

private:
    /// Makes a page visible beside the current one.
    void showPage(const char *name) const
    {
        auto *const page = named<QWidget>(*window, name);
        for (QWidget *widget = page; !page->isVisible(); widget = widget->parentWidget())
            widget->show();
    }
};

template struct WindowTests<Convert2VelarixPagesTest>;

#include "convert2velarix_pages_test.moc"
