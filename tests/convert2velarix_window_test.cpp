// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "app/convert2velarix_dialog.h"
#include "tests/support/window.h"
#include "tests/support/window_form.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QMetaMethod>
#include <QTest>
#include <QToolBox>

#include <memory>

class Convert2VelarixWindowTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        prepareTest();
        window = std::make_unique<Convert2VelarixDialog>();
    }

    void cleanup()
    {
        window.reset();
    }

    void windowHasItsNameTitleAndSizes()
    {
        QCOMPARE(window->objectName(), "Convert2VelarixDialog");
        QCOMPARE(window->windowTitle(), "Convert2Velarix v. 1.0");
        QCOMPARE(window->size(), QSize(640, 480));
        QCOMPARE(window->minimumSize(), QSize(550, 240));
        QCOMPARE(window->maximumSize(), QSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX));
        QVERIFY(window->windowIcon().isNull());
    }

    void windowIsAPlainDialogWithTheParentGiven()
    {
        QCOMPARE(window->parent(), nullptr);
        QCOMPARE(window->windowFlags(), QDialog().windowFlags());
        QVERIFY(!window->isModal());
        QWidget parent;
        QCOMPARE(Convert2VelarixDialog(&parent).parent(), &parent);
        QCOMPARE(Convert2VelarixDialog(&parent).windowFlags(), QDialog(&parent).windowFlags());
    }

    void windowOpensAt640x480AndIsNeverSmallerThan550x240()
    {
        window->show();
        QVERIFY(QTest::qWaitForWindowExposed(window.get()));
        QCOMPARE(window->size(), QSize(640, 480));
        window->resize(100, 100);
        QCOMPARE(window->size(), QSize(550, 240));
        window->resize(1000, 239);
        QCOMPARE(window->size(), QSize(1000, 240));
        window->resize(549, 900);
        QCOMPARE(window->size(), QSize(550, 900));
    }

    void genericPageIsShownAtTheStart()
    {
        QCOMPARE(named<QToolBox>(*window, "toolBox")->currentIndex(), 0);
        window->show();
        QVERIFY(named<QWidget>(*window, "page_3")->isVisible());
        QVERIFY(!named<QWidget>(*window, "page")->isVisible());
        QVERIFY(!named<QWidget>(*window, "page_2")->isVisible());
    }

    void onlyTheStructuredPageLetsTheUserTickABox()
    {
        window->show();
        auto *const several = named<QCheckBox>(*window, "multiTTFiles_3");
        auto *const position = named<QCheckBox>(*window, "firstRawShotPos_3");
        QVERIFY(several->isVisible() && !several->isEnabled() && several->isChecked());
        QVERIFY(position->isVisible() && !position->isEnabled() && !position->isChecked());
        tick(*window, "multiTTFiles_3");
        tick(*window, "firstRawShotPos_3");
        QVERIFY(several->isChecked() && !position->isChecked());

        turnTo(*window, "page");
        auto *const structured = named<QCheckBox>(*window, "multiTTFiles");
        QVERIFY(structured->isVisible() && structured->isEnabled() && !structured->isChecked());
        tick(*window, "multiTTFiles");
        QVERIFY(structured->isChecked());
        tick(*window, "multiTTFiles");
        QVERIFY(!structured->isChecked());
        for (const QCheckBox *box : window->findChildren<QCheckBox *>())
            QVERIFY(!box->isTristate());
    }

    void everythingButTheGreyedBoxesIsEnabled()
    {
        for (const Cell &cell : cells) {
            const bool greyed = qstrcmp(cell.name, "multiTTFiles_3") == 0
                                || qstrcmp(cell.name, "firstRawShotPos_3") == 0;
            QVERIFY2(named<QWidget>(*window, cell.name)->isEnabled() != greyed, cell.name);
        }
    }

    void lineEditsTakeAnyText()
    {
        for (const char *name :
             {"inputGenTxt", "outputGenTxt", "inputEdit", "outputEdit", "inputSeismicEdit"}) {
            auto *const edit = named<QLineEdit>(*window, name);
            QVERIFY2(!edit->isReadOnly(), name);
            QCOMPARE(edit->validator(), nullptr);
            QCOMPARE(edit->inputMask(), "");
            QCOMPARE(edit->placeholderText(), "");
        }
    }

    // The generic page alone says so, and keeps it where the user's language runs the other way.
    void genericPageRunsFromLeftToRight()
    {
        const auto *const generic = named<QWidget>(*window, "page_3");
        QCOMPARE(generic->layoutDirection(), Qt::LeftToRight);
        window->setLayoutDirection(Qt::RightToLeft);
        QCOMPARE(generic->layoutDirection(), Qt::LeftToRight);
        QCOMPARE(named<QWidget>(*window, "page")->layoutDirection(), Qt::RightToLeft);
        QCOMPARE(named<QWidget>(*window, "page_2")->layoutDirection(), Qt::RightToLeft);
    }

    void slotsAreSevenPrivateOnesInOrder()
    {
        const QMetaObject &meta = Convert2VelarixDialog::staticMetaObject;
        QCOMPARE(meta.className(), "Convert2VelarixDialog");
        QCOMPARE(meta.superClass(), &QDialog::staticMetaObject);
        QStringList found;
        for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
            const QMetaMethod method = meta.method(i);
            QCOMPARE(method.methodType(), QMetaMethod::Slot);
            QCOMPARE(method.access(), QMetaMethod::Private);
            QCOMPARE(method.returnMetaType(), QMetaType::fromType<void>());
            found += method.methodSignature();
        }
        QCOMPARE(found, QStringList({"on_convertButton_clicked()", "on_browseInputButton_clicked()",
                                     "on_browseOutputButton_clicked()", "on_quitButton_clicked()",
                                     "on_pushButton_clicked()", "on_browseInputButton_3_clicked()",
                                     "on_browseOutputButton_3_clicked()"}));
        QCOMPARE(meta.propertyCount(), meta.propertyOffset());
        QCOMPARE(meta.enumeratorCount(), meta.enumeratorOffset());
        QCOMPARE(meta.constructorCount(), 0);
    }

    void textsAreTranslatedInTheContextOfTheWindow()
    {
        const MarkingTranslator translator("Convert2VelarixDialog");
        const Convert2VelarixDialog translated;
        QCOMPARE(translated.windowTitle(), "<Convert2Velarix v. 1.0>");
        for (const Cell &cell : cells) {
            if (cell.text != nullptr && *cell.text != '\0')
                QCOMPARE(named<QWidget>(translated, cell.name)->property("text").toString(),
                         QString("<%1>").arg(cell.text));
        }
        for (const Page &page : pages) {
            const auto *const box = named<QToolBox>(translated, "toolBox");
            QCOMPARE(box->itemText(box->indexOf(named<QWidget>(translated, page.name))),
                     QString("<%1>").arg(page.title));
        }
    }

private:
    std::unique_ptr<Convert2VelarixDialog> window;
};

template struct WindowTests<Convert2VelarixWindowTest>;

#include "convert2velarix_window_test.moc"
