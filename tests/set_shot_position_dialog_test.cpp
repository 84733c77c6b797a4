// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "app/set_shot_position_dialog.h"
#include "tests/support/window.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMetaMethod>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>

#include <limits>
#include <memory>

namespace {

struct Row
{
    const char *name;
    const char *className;
    int row;
    QFormLayout::ItemRole role;
    QSize minimumSize;
    const char *text;
};

const Row rows[] = {
    {"fileNameLabel", "QLabel", 0, QFormLayout::SpanningRole, {0, 18}, "/survey/shot 1.txt"},
    {"label_2", "QLabel", 1, QFormLayout::LabelRole, {0, 0}, "Shot X"},
    {"lineEdit", "QLineEdit", 1, QFormLayout::FieldRole, {0, 24}, "12.500000"},
    {"label_3", "QLabel", 2, QFormLayout::LabelRole, {0, 0}, "Shot Elevation"},
    {"lineEdit_2", "QLineEdit", 2, QFormLayout::FieldRole, {0, 24}, "-3.000000"},
};

QStringList childrenOf(const QObject &parent)
{
    QStringList names;
    for (const QObject *child : parent.children())
        names += child->objectName();
    return names;
}

} // namespace

class SetShotPositionDialogTest : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        prepareTest();
        shotX = 12.5;
        shotElevation = -3.0;
        dialog =
            std::make_unique<SetShotPositionDialog>("/survey/shot 1.txt", &shotX, &shotElevation);
    }

    void cleanup()
    {
        dialog.reset();
    }

    void dialogHasItsNameTitleAndSizes()
    {
        QCOMPARE(dialog->objectName(), "SetShotPositionDialog");
        QCOMPARE(dialog->windowTitle(), "Dialog");
        QCOMPARE(dialog->size(), QSize(469, 200));
        QCOMPARE(dialog->minimumSize(), QSize(0, 200));
        QCOMPARE(dialog->maximumSize(), QSize(16777215, 300));
        QCOMPARE(dialog->parent(), nullptr);
        QCOMPARE(dialog->windowFlags(), QDialog().windowFlags());
    }

    void dialogTakesTheParentGiven()
    {
        QWidget parent;
        const SetShotPositionDialog child("", &shotX, &shotElevation, &parent);
        QCOMPARE(child.parent(), &parent);
        QCOMPARE(child.windowFlags(), QDialog(&parent).windowFlags());
    }

    void heightStaysBetween200And300AndTheWidthIsFree()
    {
        dialog->show();
        QVERIFY(QTest::qWaitForWindowExposed(dialog.get()));
        QCOMPARE(dialog->size(), QSize(469, 200));
        dialog->resize(469, 199);
        QCOMPARE(dialog->size(), QSize(469, 200));
        dialog->resize(469, 301);
        QCOMPARE(dialog->size(), QSize(469, 300));
        dialog->resize(2000, 250);
        QCOMPARE(dialog->size(), QSize(2000, 250));
    }

    void rowStandsInItsCell_data()
    {
        QTest::addColumn<int>("index");
        for (int i = 0; i < int(std::size(rows)); ++i)
            QTest::addRow("%s", rows[i].name) << i;
    }

    void rowStandsInItsCell()
    {
        QFETCH(int, index);
        const Row &row = rows[index];
        auto *const widget = named<QWidget>(*dialog, row.name);
        QCOMPARE(widget->metaObject()->className(), row.className);
        QCOMPARE(widget->parent()->objectName(), "widget");
        QCOMPARE(widget->minimumSize(), row.minimumSize);
        QCOMPARE(widget->property("text").toString(), row.text);
        QVERIFY(widget->isEnabled());
        int place = -1;
        QFormLayout::ItemRole role = {};
        named<QFormLayout>(*dialog, "formLayout")->getWidgetPosition(widget, &place, &role);
        QCOMPARE(place, row.row);
        QCOMPARE(role, row.role);
    }

    void widgetsStandInTheOrderOfTheirMaking()
    {
        QCOMPARE(childrenOf(*dialog), QStringList({"verticalLayout", "widget", "buttonBox"}));
        QCOMPARE(childrenOf(*named<QWidget>(*dialog, "widget")),
                 QStringList({"formLayout", "fileNameLabel", "label_2", "lineEdit", "label_3",
                              "lineEdit_2"}));
        const auto *const column = named<QVBoxLayout>(*dialog, "verticalLayout");
        QCOMPARE(dialog->layout(), column);
        QCOMPARE(column->count(), 2);
        QCOMPARE(column->itemAt(0)->widget(), named<QWidget>(*dialog, "widget"));
        QCOMPARE(column->itemAt(1)->widget(), named<QWidget>(*dialog, "buttonBox"));
        const auto *const form = named<QFormLayout>(*dialog, "formLayout");
        QCOMPARE(named<QWidget>(*dialog, "widget")->layout(), form);
        QCOMPARE(form->rowCount(), 3);
        QCOMPARE(form->count(), 5);
    }

    void boxesHaveTheirClassesAndMinimumSizes()
    {
        const auto *const widget = named<QWidget>(*dialog, "widget");
        QCOMPARE(widget->metaObject()->className(), "QWidget");
        QCOMPARE(widget->minimumSize(), QSize(0, 130));
        const auto *const buttons = named<QDialogButtonBox>(*dialog, "buttonBox");
        QCOMPARE(buttons->metaObject()->className(), "QDialogButtonBox");
        QCOMPARE(buttons->minimumSize(), QSize(0, 24));
        QCOMPARE(buttons->orientation(), Qt::Horizontal);
        QCOMPARE(buttons->standardButtons(), QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
        QCOMPARE(buttons->buttons().size(), 2);
        QVERIFY(!buttons->centerButtons());
    }

    void marginsAndSpacingsAreTheStyles()
    {
        WideStyle style;
        dialog->setStyle(&style);
        named<QWidget>(*dialog, "widget")->setStyle(&style);
        const auto *const column = named<QVBoxLayout>(*dialog, "verticalLayout");
        const auto *const form = named<QFormLayout>(*dialog, "formLayout");
        QCOMPARE(column->contentsMargins(), QMargins(23, 23, 23, 23));
        QCOMPARE(column->spacing(), 29);
        QCOMPARE(form->contentsMargins(), QMargins(23, 23, 23, 23));
        QCOMPARE(form->horizontalSpacing(), 29);
        QCOMPARE(form->verticalSpacing(), 29);
        dialog.reset();
    }

    void lineEditsTakeAnyText()
    {
        for (const char *name : {"lineEdit", "lineEdit_2"}) {
            auto *const edit = named<QLineEdit>(*dialog, name);
            QCOMPARE(edit->validator(), nullptr);
            QCOMPARE(edit->inputMask(), "");
            QCOMPARE(edit->maxLength(), 32767);
            edit->clear();
            QTest::keyClicks(edit, "about -7 m, x");
            QCOMPARE(edit->text(), "about -7 m, x");
        }
    }

    void dialogDeclaresNoSignalsAndNoSlots()
    {
        const QMetaObject &meta = SetShotPositionDialog::staticMetaObject;
        QCOMPARE(meta.className(), "SetShotPositionDialog");
        QCOMPARE(meta.superClass(), &QDialog::staticMetaObject);
        QCOMPARE(meta.methodCount(), meta.methodOffset());
        QCOMPARE(meta.propertyCount(), meta.propertyOffset());
        QCOMPARE(meta.enumeratorCount(), meta.enumeratorOffset());
        QCOMPARE(meta.constructorCount(), 0);
    }

    void textsAreTranslatedInTheContextOfTheDialog()
    {
        const MarkingTranslator translator("SetShotPositionDialog");
        const SetShotPositionDialog translated("a.txt", &shotX, &shotElevation);
        QCOMPARE(translated.windowTitle(), "<Dialog>");
        QCOMPARE(named<QLabel>(translated, "label_2")->text(), "<Shot X>");
        QCOMPARE(named<QLabel>(translated, "label_3")->text(), "<Shot Elevation>");
        QCOMPARE(named<QLabel>(translated, "fileNameLabel")->text(), "a.txt");
    }

    void fileNameIsShownAsItIs_data()
    {
        QTest::addColumn<QString>("name");
        for (const char *name :
             {"", "shot.txt", "/survey/line 3/shot 1.txt", "/Gelände/Schuß 1.txt", "/測線/発破.txt",
              "C:/survey/a.txt", "/a&b/<b>c</b>.txt", "/a;b/100%.txt"})
            QTest::addRow("\"%s\"", name) << QString::fromUtf8(name);
    }

    void fileNameIsShownAsItIs()
    {
        QFETCH(QString, name);
        const SetShotPositionDialog shown(name.toStdString(), &shotX, &shotElevation);
        QCOMPARE(named<QLabel>(shown, "fileNameLabel")->text(), name);
    }

    void positionIsShownWithSixDigitsAfterThePoint_data()
    {
        QTest::addColumn<double>("value");
        QTest::addColumn<QString>("expected");
        QTest::newRow("nothing") << 0.0 << "0.000000";
        QTest::newRow("negative zero") << -0.0 << "-0.000000";
        QTest::newRow("half metres") << 12.5 << "12.500000";
        QTest::newRow("whole and negative") << -3.0 << "-3.000000";
        QTest::newRow("a tenth") << 0.1 << "0.100000";
        QTest::newRow("two thirds") << 2.0 / 3.0 << "0.666667";
        QTest::newRow("below a micrometre") << 1e-7 << "0.000000";
        QTest::newRow("small and negative") << -1e-7 << "-0.000000";
        QTest::newRow("edge of six digits") << 999999.5 << "999999.500000";
        QTest::newRow("grid coordinate") << 5201234.25 << "5201234.250000";
        QTest::newRow("never an exponent") << 1e21 << "1000000000000000000000.000000";
        QTest::newRow("infinite") << std::numeric_limits<double>::infinity() << "inf";
        QTest::newRow("no number") << std::numeric_limits<double>::quiet_NaN() << "nan";
    }

    void positionIsShownWithSixDigitsAfterThePoint()
    {
        QFETCH(double, value);
        QFETCH(QString, expected);
        const double other = 1.0;
        const SetShotPositionDialog asX("", &value, &other);
        QCOMPARE(named<QLineEdit>(asX, "lineEdit")->text(), expected);
        QCOMPARE(named<QLineEdit>(asX, "lineEdit_2")->text(), "1.000000");
        const SetShotPositionDialog asElevation("", &other, &value);
        QCOMPARE(named<QLineEdit>(asElevation, "lineEdit")->text(), "1.000000");
        QCOMPARE(named<QLineEdit>(asElevation, "lineEdit_2")->text(), expected);
    }

    void typedPositionIsRead_data()
    {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<double>("expected");
        const double infinite = std::numeric_limits<double>::infinity();
        const std::pair<const char *, double> numbers[] = {
            {"7.25", 7.25}, {"  7.25  ", 7.25}, {" 7", 7.0},         {"-3", -3.0},
            {"+1.5", 1.5},  {".5", 0.5},        {"5.", 5.0},         {"1e5", 100000.0},
            {"1E-2", 0.01}, {"-0", -0.0},       {"1e999", infinite}, {"inf", infinite},
            {"1,5", 0.0},   {"1.000,5", 0.0},   {"1,000.5", 0.0},    {"1 000", 0.0},
            {"", 0.0},      {"   ", 0.0},       {"twelve", 0.0},     {"12abc", 0.0},
            {"12 m", 0.0},  {"0x10", 0.0},      {"0x1p3", 0.0},      {"-", 0.0},
            {"1.2.3", 0.0}, {"--1", 0.0},       {"0.1", 0.1},        {"5201234.25", 5201234.25},
        };
        for (const auto &[typed, expected] : numbers)
            QTest::addRow("\"%s\"", typed) << typed << expected;
    }

    void typedPositionIsRead()
    {
        QFETCH(QString, typed);
        QFETCH(double, expected);
        double x = 111.0;
        double elevation = 222.0;
        named<QLineEdit>(*dialog, "lineEdit")->setText(typed);
        dialog->getShotPosition(&x, &elevation);
        QVERIFY2(x == expected, qPrintable(QString::number(x)));
        QCOMPARE(elevation, -3.0);
        named<QLineEdit>(*dialog, "lineEdit")->setText("8");
        named<QLineEdit>(*dialog, "lineEdit_2")->setText(typed);
        dialog->getShotPosition(&x, &elevation);
        QCOMPARE(x, 8.0);
        QVERIFY2(elevation == expected, qPrintable(QString::number(elevation)));
    }

    void nanIsReadAsNan()
    {
        double x = 0.0;
        double elevation = 0.0;
        named<QLineEdit>(*dialog, "lineEdit")->setText("nan");
        dialog->getShotPosition(&x, &elevation);
        QVERIFY(x != x);
    }

    void dialogClosesAsTheUserSays_data()
    {
        QTest::addColumn<Answer>("answer");
        QTest::addColumn<int>("result");
        const auto clickOn = [](QDialogButtonBox::StandardButton button) {
            return Answer([=](QDialog &shown) {
                QTest::mouseClick(named<QDialogButtonBox>(shown, "buttonBox")->button(button),
                                  Qt::LeftButton);
            });
        };
        const auto pressIn = [](const char *field, Qt::Key key) {
            return Answer([=](QDialog &shown) { //
                QTest::keyClick(named<QLineEdit>(shown, field), key);
            });
        };
        QTest::newRow("OK") << clickOn(QDialogButtonBox::Ok) << 1;
        QTest::newRow("Cancel") << clickOn(QDialogButtonBox::Cancel) << 0;
        QTest::newRow("Enter in Shot X") << pressIn("lineEdit", Qt::Key_Return) << 1;
        QTest::newRow("Enter in Shot Elevation") << pressIn("lineEdit_2", Qt::Key_Enter) << 1;
        QTest::newRow("Esc") << pressIn("lineEdit", Qt::Key_Escape) << 0;
        QTest::newRow("closing the window") << Answer([](QDialog &shown) { shown.close(); }) << 0;
    }

    // The caller's position changes only when the caller reads it.
    void dialogClosesAsTheUserSays()
    {
        QFETCH(Answer, answer);
        QFETCH(int, result);
        int found = -1;
        QCOMPARE(watch([&] { found = dialog->exec(); }, {[&](QDialog &shown) {
                           named<QLineEdit>(shown, "lineEdit")->setText("99");
                           named<QLineEdit>(shown, "lineEdit_2")->setText("98");
                           answer(shown);
                       }}),
                 QStringList());
        QCOMPARE(found, result);
        QCOMPARE(shotX, 12.5);
        QCOMPARE(shotElevation, -3.0);
        double x = 0.0;
        double elevation = 0.0;
        dialog->getShotPosition(&x, &elevation);
        QCOMPARE(x, 99.0);
        QCOMPARE(elevation, 98.0);
    }

    void addressesAreNotKept()
    {
        shotX = 1.0;
        shotElevation = 2.0;
        dialog->show();
        QCOMPARE(named<QLineEdit>(*dialog, "lineEdit")->text(), "12.500000");
        QCOMPARE(named<QLineEdit>(*dialog, "lineEdit_2")->text(), "-3.000000");
        dialog->accept();
        QCOMPARE(shotX, 1.0);
        QCOMPARE(shotElevation, 2.0);
    }

private:
    double shotX = 0.0;
    double shotElevation = 0.0;
    std::unique_ptr<SetShotPositionDialog> dialog;
};

template struct WindowTests<SetShotPositionDialogTest>;

#include "set_shot_position_dialog_test.moc"
