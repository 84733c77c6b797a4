// SPDX-FileCopyrightText: 2026 the Convert2Velarix authors
// SPDX-License-Identifier: MIT

#include "app/convert2velarix_dialog.h"
#include "tests/support/window.h"
#include "tests/support/window_form.h"

#include <QBoxLayout>
#include <QFormLayout>
#include <QTest>
#include <QToolBox>

#include <memory>

namespace {

/// A layout, on a widget or in the cell of another layout.
struct Arrangement
{
    const char *name;
    const char *className;
    const char *parent;
    int row; ///< in the parent, when that is a layout
    int role;
    int count;
};

const Arrangement arrangements[] = {
    {"verticalLayout", "QVBoxLayout", "Convert2VelarixDialog", 0, noRole, 2},
    {"horizontalLayout", "QHBoxLayout", "verticalLayout", 1, noRole, 2},
    {"verticalLayout_3", "QVBoxLayout", "page_3", 0, noRole, 1},
    {"formLayout_6", "QFormLayout", "verticalLayout_3", 0, noRole, 8},
    {"formLayout_7", "QFormLayout", "formLayout_6", 3, label, 2},
    {"horizontalLayout_4", "QHBoxLayout", "widget_4", 0, noRole, 2},
    {"verticalLayout_31", "QVBoxLayout", "page", 0, noRole, 1},
    {"formLayout", "QFormLayout", "verticalLayout_31", 0, noRole, 8},
    {"formLayout_2", "QFormLayout", "formLayout", 3, label, 2},
    {"horizontalLayout_2", "QHBoxLayout", "widget_2", 0, noRole, 1},
    {"verticalLayout_2", "QVBoxLayout", "page_2", 0, noRole, 1},
    {"formLayout_3", "QFormLayout", "widget", 0, noRole, 4},
};

/// The children in the order in which they were made.
struct Family
{
    const char *parent;
    QStringList children;
};

const Family families[] = {
    {"Convert2VelarixDialog", {"verticalLayout", "toolBox", "convertButton", "quitButton"}},
    {"page_3",
     {"verticalLayout_3", "label_8", "inputGenTxt", "browseInputButton_3", "label_9",
      "formatSelected_3", "label_10", "outputGenTxt", "browseOutputButton_3", "widget_4"}},
    {"widget_4", {"horizontalLayout_4", "multiTTFiles_3", "firstRawShotPos_3"}},
    {"page",
     {"verticalLayout_31", "label", "inputEdit", "browseInputButton", "label_2", "formatSelected",
      "label_3", "outputEdit", "browseOutputButton", "widget_2"}},
    {"widget_2", {"horizontalLayout_2", "multiTTFiles"}},
    {"page_2", {"verticalLayout_2", "widget"}},
    {"widget", {"formLayout_3", "label_4", "inputSeismicEdit", "pushButton", "formatSeismicInput"}},
    {"verticalLayout", {"horizontalLayout"}},
    {"verticalLayout_3", {"formLayout_6"}},
    {"formLayout_6", {"formLayout_7"}},
    {"verticalLayout_31", {"formLayout"}},
    {"formLayout", {"formLayout_2"}},
};

/// Notes the name and the geometry of every page that gets a parent.
class HandoverRecorder : public QObject
{
public:
    QStringList handovers;

protected:
    bool eventFilter(QObject *object, QEvent *event) override
    {
        const auto *const widget = qobject_cast<const QWidget *>(object);
        if (event->type() == QEvent::ParentChange && object->objectName().startsWith("page"))
            handovers += QString("%1 %2 %3 %4 %5")
                             .arg(object->objectName())
                             .arg(widget->x())
                             .arg(widget->y())
                             .arg(widget->width())
                             .arg(widget->height());
        return false;
    }
};

/// The place of an item in a box layout or in a form layout, whose role it tells too.
std::pair<int, int> placeIn(const QLayout &layout, const QLayoutItem &item)
{
    for (int i = 0; i < layout.count(); ++i) {
        if (layout.itemAt(i) != &item)
            continue;
        auto *const form = qobject_cast<const QFormLayout *>(&layout);
        if (form == nullptr)
            return {i, noRole};
        int row = 0;
        QFormLayout::ItemRole role = {};
        form->getItemPosition(i, &row, &role);
        return {row, role};
    }
    return {-1, -1};
}

} // namespace

class Convert2VelarixFormTest : public QObject
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

    void widgetStandsInItsCell_data()
    {
        QTest::addColumn<int>("index");
        for (int i = 0; i < int(std::size(cells)); ++i)
            QTest::addRow("%s", cells[i].name) << i;
    }

    void widgetStandsInItsCell()
    {
        QFETCH(int, index);
        const Cell &cell = cells[index];
        auto *const widget = named<QWidget>(*window, cell.name);
        QCOMPARE(widget->metaObject()->className(), cell.className);
        QCOMPARE(widget->parent()->objectName(), cell.parent);
        QCOMPARE(widget->minimumSize(), cell.minimumSize);
        QCOMPARE(widget->maximumSize(), QSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX));
        if (cell.text != nullptr)
            QCOMPARE(widget->property("text").toString(), cell.text);
        auto *const layout = named<QLayout>(*window, cell.layout);
        const int place = layout->indexOf(widget);
        QVERIFY(place >= 0);
        QCOMPARE(placeIn(*layout, *layout->itemAt(place)), std::pair(cell.row, cell.role));
        QCOMPARE(layout->itemAt(place)->alignment(), Qt::Alignment());
    }

    void layoutStandsInItsPlace_data()
    {
        QTest::addColumn<int>("index");
        for (int i = 0; i < int(std::size(arrangements)); ++i)
            QTest::addRow("%s", arrangements[i].name) << i;
    }

    void layoutStandsInItsPlace()
    {
        QFETCH(int, index);
        const Arrangement &arrangement = arrangements[index];
        auto *const layout = named<QLayout>(*window, arrangement.name);
        QCOMPARE(layout->metaObject()->className(), arrangement.className);
        QCOMPARE(layout->parent()->objectName(), arrangement.parent);
        QCOMPARE(layout->count(), arrangement.count);
        if (auto *const outer = qobject_cast<QLayout *>(layout->parent()))
            QCOMPARE(placeIn(*outer, *layout), std::pair(arrangement.row, arrangement.role));
        else
            QCOMPARE(layout->parentWidget()->layout(), layout);
        if (auto *const box = qobject_cast<QBoxLayout *>(layout)) {
            for (int i = 0; i < box->count(); ++i)
                QCOMPARE(box->stretch(i), 0);
        }
    }

    // In a style with other defaults, to tell what the form says from what it leaves open.
    void spacingIs6AndLayoutsOnWidgetsHaveMarginsOf11()
    {
        WideStyle style;
        window->setStyle(&style);
        for (QWidget *widget : window->findChildren<QWidget *>())
            widget->setStyle(&style);
        for (const Arrangement &arrangement : arrangements) {
            auto *const layout = named<QLayout>(*window, arrangement.name);
            const bool nested = qobject_cast<QLayout *>(layout->parent()) != nullptr;
            QVERIFY2(layout->spacing() == 6, arrangement.name);
            if (auto *const form = qobject_cast<QFormLayout *>(layout)) {
                QVERIFY2(form->horizontalSpacing() == 6, arrangement.name);
                QVERIFY2(form->verticalSpacing() == 6, arrangement.name);
            }
            QVERIFY2(layout->contentsMargins()
                         == (nested ? QMargins(0, 0, 0, 0) : QMargins(11, 11, 11, 11)),
                     arrangement.name);
        }
        window.reset();
    }

    void rowsThatNothingFillsStayEmpty()
    {
        auto *const seismic = named<QFormLayout>(*window, "formLayout_3");
        QCOMPARE(seismic->rowCount(), 4);
        QCOMPARE(seismic->itemAt(1, QFormLayout::LabelRole), nullptr);
        QCOMPARE(seismic->itemAt(1, QFormLayout::FieldRole), nullptr);
        QCOMPARE(named<QFormLayout>(*window, "formLayout_6")->rowCount(), 6);
        QCOMPARE(named<QFormLayout>(*window, "formLayout")->rowCount(), 6);
        QCOMPARE(named<QFormLayout>(*window, "formLayout_7")->rowCount(), 1);
        QCOMPARE(named<QFormLayout>(*window, "formLayout_2")->rowCount(), 1);
    }

    void toolBoxHoldsThePagesInOrder()
    {
        auto *const box = named<QToolBox>(*window, "toolBox");
        QCOMPARE(box->count(), int(std::size(pages)));
        for (int i = 0; i < box->count(); ++i) {
            const QWidget *page = box->widget(i);
            QCOMPARE(page->objectName(), pages[i].name);
            QCOMPARE(page->metaObject()->className(), "QWidget");
            QCOMPARE(box->itemText(i), pages[i].title);
            QVERIFY2(box->itemIcon(i).isNull(), pages[i].name);
            QVERIFY2(box->itemToolTip(i).isEmpty(), pages[i].name);
            QVERIFY2(box->isItemEnabled(i), pages[i].name);
            QVERIFY2(box->isAncestorOf(page), pages[i].name);
            QCOMPARE(page->minimumSize(), pages[i].minimumSize);
        }
    }

    void childrenStandInTheOrderOfTheirMaking()
    {
        for (const auto &[parent, children] : families) {
            const QObject *owner =
                window->objectName() == parent ? window.get() : named<QObject>(*window, parent);
            QStringList found;
            for (const QObject *child : owner->children())
                found += child->objectName();
            QCOMPARE(found, children);
        }
    }

    void nothingElseIsInTheWindow()
    {
        QStringList expected;
        for (const Cell &cell : cells)
            expected += cell.name;
        for (const Arrangement &arrangement : arrangements)
            expected += arrangement.name;
        for (const Page &page : pages)
            expected += page.name;
        QStringList found;
        for (const QObject *child : window->findChildren<QObject *>()) {
            if (!child->objectName().isEmpty() && !child->objectName().startsWith("qt_"))
                found += child->objectName();
        }
        expected.sort();
        found.sort();
        QCOMPARE(found, expected);
    }

    // The tool box gives a page another size at once, so it is looked at on its way there.
    void pagesAreMadeAt616x312AndGivenToTheToolBox()
    {
        HandoverRecorder recorder;
        QCoreApplication::instance()->installEventFilter(&recorder);
        const Convert2VelarixDialog observed;
        QCOMPARE(recorder.handovers,
                 QStringList({"page_3 0 0 616 312", "page 0 0 616 312", "page_2 0 0 616 312"}));
    }

private:
    std::unique_ptr<Convert2VelarixDialog> window;
};

template struct WindowTests<Convert2VelarixFormTest>;

#include "convert2velarix_form_test.moc"
