#include "qt/inc/delegates.h"
#include "tests/helpers/active_window.h"
#include "tests/helpers/checked_test.h"
#include "tests/helpers/typed_table_model.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QEvent>
#include <QHeaderView>
#include <QLineEdit>
#include <QPainter>
#include <QPointer>
#include <QProxyStyle>
#include <QSignalSpy>
#include <QStyleOptionButton>
#include <QTableView>

#include <memory>
#include <stdexcept>
#include <utility>

using namespace zel::qt;
using zel::test::showActive;
using zel::test::TypedTableModel;

namespace {

struct DrawnButton
{
    QStyle::ControlElement element;
    QString text;
    QRect rect;
    QStyle::State state;
    QStyleOptionButton::ButtonFeatures features;
    const QWidget* widget;
};

/// Writes down the buttons and focus rectangles that are drawn.
class WritingStyle : public QProxyStyle
{
public:
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override
    {
        const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
        if (button != nullptr && !m_nested) {
            buttons.push_back(
                {element, button->text, button->rect, button->state, button->features, widget});
        }
        // CE_PushButton draws the label by itself.
        const bool outer = std::exchange(m_nested, true);
        QProxyStyle::drawControl(element, option, painter, widget);
        m_nested = outer;
    }

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override
    {
        focusRectangles += element == PE_FrameFocusRect ? 1 : 0;
        QProxyStyle::drawPrimitive(element, option, painter, widget);
    }

    mutable std::vector<DrawnButton> buttons;
    mutable int focusRectangles = 0;

private:
    mutable bool m_nested = false;
};

/// Puts a WritingStyle in force for its lifetime.
struct StyleInForce
{
    StyleInForce()
    {
        QApplication::setStyle(style);
    }
    ~StyleInForce()
    {
        QApplication::setStyle(QStringLiteral("fusion"));
    }

    WritingStyle* style = new WritingStyle; // the application owns it
};

QStyle::State enabledSelected()
{
    return QStyle::State_Enabled | QStyle::State_Selected;
}

} // namespace

class CheckAndButtonDelegatesTest : public zel::test::CheckedTest
{
    Q_OBJECT
private Q_SLOTS:
    void checkBoxHasNoFocusRectangle();
    void checkBoxTogglesAsUsual_data();
    void checkBoxTogglesAsUsual();
    void checkBoxForwards();
    void checkBoxSlot();
    void emptyFunction();
    void triggerRunsTheFunctionOnce_data();
    void triggerRunsTheFunctionOnce();
    void paintsSunkenWhileTheFunctionRuns();
    void looksRaisedAfterwards();
    void otherCellsStayRaised();
    void throwingFunction();
    void appearance_data();
    void appearance();
    void textComesFromTheModel();
    void functionRemovesItsRow();
    void functionResetsTheModel();
    void functionReplacesTheDelegate();
    void functionMakesFurtherButtonsRun();
    void dataOfNoEditor();
};

void CheckAndButtonDelegatesTest::checkBoxHasNoFocusRectangle()
{
    StyleInForce inForce;
    TypedTableModel model(1, 1);
    model.extraFlags = Qt::ItemIsUserCheckable;
    model.cell(0, 0).check = Qt::Checked;
    model.cell(0, 0).text = "hinged";
    QTableView view;
    view.setModel(&model);
    const QModelIndex index = model.index(0, 0);
    QImage image(100, 40, QImage::Format_RGB32);
    QPainter painter(&image);
    QStyleOptionViewItem option;
    option.rect = image.rect();
    option.widget = &view;
    option.state = enabledSelected() | QStyle::State_HasFocus | QStyle::State_Active;

    // What the plain delegate does shows that the rectangle would be seen.
    QItemDelegate plain;
    plain.paint(&painter, option, index);
    QCOMPARE(inForce.style->focusRectangles, 1);
    CheckboxItemDelegate delegate(nullptr);
    delegate.paint(&painter, option, index);
    QCOMPARE(inForce.style->focusRectangles, 1);
}

void CheckAndButtonDelegatesTest::checkBoxTogglesAsUsual_data()
{
    QTest::addColumn<QString>("gesture");
    QTest::addColumn<int>("before");
    QTest::addColumn<int>("after");
    QTest::newRow("click checks") << "indicator" << int(Qt::Unchecked) << int(Qt::Checked);
    QTest::newRow("click unchecks") << "indicator" << int(Qt::Checked) << int(Qt::Unchecked);
    QTest::newRow("click of a partly checked")
        << "indicator" << int(Qt::PartiallyChecked) << int(Qt::Checked);
    QTest::newRow("click beside") << "beside" << int(Qt::Unchecked) << int(Qt::Unchecked);
    QTest::newRow("space") << "space" << int(Qt::Unchecked) << int(Qt::Checked);
    QTest::newRow("not checkable") << "fixed" << int(Qt::Unchecked) << int(Qt::Unchecked);
}

void CheckAndButtonDelegatesTest::checkBoxTogglesAsUsual()
{
    QFETCH(QString, gesture);
    QFETCH(int, before);
    TypedTableModel model(2, 2);
    QAbstractItemModelTester tester(&model,
                                    QAbstractItemModelTester::FailureReportingMode::Warning);
    if (gesture != "fixed") {
        model.extraFlags = Qt::ItemIsUserCheckable;
    }
    model.cell(0, 0).check = before;
    QTableView view;
    CheckboxItemDelegate delegate(nullptr);
    view.setModel(&model);
    view.setItemDelegate(&delegate);
    view.setEditTriggers(QAbstractItemView::NoEditTriggers);
    QVERIFY(showActive(view));
    const QRect cell = view.visualRect(model.index(0, 0));
    view.setCurrentIndex(model.index(0, 0));
    if (gesture == "space") {
        QTest::keyClick(&view, Qt::Key_Space);
    } else {
        const QPoint indicator(cell.left() + 8, cell.center().y());
        const QPoint beside(cell.right() - 4, cell.center().y());
        QTest::mouseClick(view.viewport(), Qt::LeftButton, {},
                          gesture == "beside" ? beside : indicator);
    }
    QTEST(model.cell(0, 0).check.toInt(), "after");
    QFETCH(int, after);
    QCOMPARE(int(model.writes.size()), before == after ? 0 : 1);
}

void CheckAndButtonDelegatesTest::checkBoxForwards()
{
    TypedTableModel model(1, 1);
    model.cell(0, 0).text = "text";
    CheckboxItemDelegate delegate(nullptr);
    const QItemDelegate plain;
    const QModelIndex index = model.index(0, 0);
    QStyleOptionViewItem option;
    option.rect = QRect(3, 4, 50, 20);
    QCOMPARE(delegate.sizeHint(option, index), plain.sizeHint(option, index));
    QVERIFY(delegate.sizeHint(option, index).isValid());

    QWidget parent;
    std::unique_ptr<QWidget> asPlain(plain.createEditor(&parent, option, index));
    std::unique_ptr<QWidget> editor(delegate.createEditor(&parent, option, index));
    QCOMPARE(editor == nullptr, asPlain == nullptr);
    QWidget other(&parent);
    delegate.updateEditorGeometry(&other, option, index);
    QVERIFY(other.geometry().isValid());

    QLineEdit edit(&parent);
    edit.setText("old");
    delegate.setEditorData(&edit, index); // from Qt::EditRole, which the model does not have
    QCOMPARE(edit.text(), QString());
    edit.setText("new");
    delegate.setModelData(&edit, &model, index);
    QCOMPARE(int(model.writes.size()), 1);
    QCOMPARE(model.writes[0].role, int(Qt::EditRole));
    QCOMPARE(model.writes[0].value, QVariant("new"));
}

void CheckAndButtonDelegatesTest::checkBoxSlot()
{
    CheckboxItemDelegate delegate(nullptr);
    QSignalSpy commits(&delegate, &QAbstractItemDelegate::commitData);
    QVERIFY(QMetaObject::invokeMethod(&delegate, "onClicked"));
    QCOMPARE(commits.count(), 0);
}

void CheckAndButtonDelegatesTest::emptyFunction()
{
    ButtonItemDelegate delegate({}, nullptr);
    const auto reports = takeReports();
    QCOMPARE(int(reports.size()), 1);
    QCOMPARE(reports[0].expression, std::string("m_editFn"));
    QCOMPARE(reports[0].message, std::string("ButtonItemDelegate: no editing function specified!"));
    QCOMPARE(reports[0].file, std::string("qt/delegates/button/button_item_delegate.cpp"));

    TypedTableModel model(1, 1);
    QTableView view;
    view.setModel(&model);
    view.setItemDelegate(&delegate);
    QVERIFY(showActive(view));
    view.edit(model.index(0, 0));
    QVERIFY(model.writes.empty());
}

void CheckAndButtonDelegatesTest::triggerRunsTheFunctionOnce_data()
{
    QTest::addColumn<QString>("gesture");
    QTest::newRow("double click") << "double click";
    QTest::newRow("F2") << "F2";
    QTest::newRow("click on the selected cell") << "selected click";
}

void CheckAndButtonDelegatesTest::triggerRunsTheFunctionOnce()
{
    QFETCH(QString, gesture);
    TypedTableModel model(2, 2);
    QAbstractItemModelTester tester(&model,
                                    QAbstractItemModelTester::FailureReportingMode::Warning);
    QList<QPair<int, int>> runs;
    QTableView view;
    ButtonItemDelegate delegate(
        [&](QAbstractItemModel* m, const QModelIndex& index) {
            QCOMPARE(m, static_cast<QAbstractItemModel*>(&model));
            runs.append({index.row(), index.column()});
            QVERIFY(m->setData(index, "done", DisplayRole));
        },
        &view);
    QSignalSpy commits(&delegate, &QAbstractItemDelegate::commitData);
    view.setModel(&model);
    view.setItemDelegate(&delegate);
    QVERIFY(showActive(view));
    const QPoint centre = view.visualRect(model.index(1, 0)).center();
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, centre);
    QCOMPARE(runs.size(), 0);
    if (gesture == "double click") {
        QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, centre);
    } else if (gesture == "F2") {
        QTest::keyClick(&view, Qt::Key_F2);
    } else {
        view.setEditTriggers(QAbstractItemView::SelectedClicked);
        QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, centre);
        QTRY_COMPARE(runs.size(), 1); // the view waits whether it becomes a double click
    }
    QCOMPARE(runs, (QList<QPair<int, int>>{{1, 0}}));
    QCOMPARE(model.cell(1, 0).text, QVariant("done"));
    QVERIFY(view.viewport()->findChildren<QWidget*>().isEmpty());
    QCOMPARE(commits.count(), 0);
    // The view is not left in its editing state: keys still move the current cell.
    QTest::keyClick(&view, Qt::Key_Right);
    QCOMPARE(view.currentIndex(), model.index(1, 1));
}

void CheckAndButtonDelegatesTest::paintsSunkenWhileTheFunctionRuns()
{
    StyleInForce inForce;
    TypedTableModel model(2, 1);
    QTableView view;
    QList<bool> sunkenInside;
    const auto sunken = [&](int row) {
        for (auto it = inForce.style->buttons.rbegin(); it != inForce.style->buttons.rend(); ++it) {
            if (it->rect == view.visualRect(model.index(row, 0))) {
                return it->state.testFlag(QStyle::State_Sunken);
            }
        }
        return false;
    };
    ButtonItemDelegate delegate(
        [&](QAbstractItemModel*, const QModelIndex&) {
            // Painted before the function runs, without an event loop.
            QVERIFY(!inForce.style->buttons.empty());
            sunkenInside << sunken(0) << sunken(1);
        },
        &view);
    view.setModel(&model);
    view.setItemDelegate(&delegate);
    QVERIFY(showActive(view));
    inForce.style->buttons.clear();
    view.edit(model.index(0, 0));
    QCOMPARE(sunkenInside, (QList<bool>{true, false}));
    inForce.style->buttons.clear();
    view.viewport()->repaint();
    QVERIFY(!inForce.style->buttons.empty());
    for (const DrawnButton& button : inForce.style->buttons) {
        QVERIFY(button.state.testFlag(QStyle::State_Raised));
        QVERIFY(!button.state.testFlag(QStyle::State_Sunken));
    }
}

void CheckAndButtonDelegatesTest::looksRaisedAfterwards()
{
    // Nobody but the delegate knows that the cell has to be drawn anew.
    StyleInForce inForce;
    TypedTableModel model(1, 1);
    QTableView view;
    ButtonItemDelegate delegate([](QAbstractItemModel*, const QModelIndex&) {}, &view);
    view.setModel(&model);
    view.setItemDelegate(&delegate);
    QVERIFY(showActive(view));
    view.setCurrentIndex(model.index(0, 0));
    QTest::qWait(0);
    inForce.style->buttons.clear();
    QTest::keyClick(&view, Qt::Key_F2);
    QVERIFY(!inForce.style->buttons.empty());
    QVERIFY(inForce.style->buttons.back().state.testFlag(QStyle::State_Sunken));
    QTRY_VERIFY(inForce.style->buttons.back().state.testFlag(QStyle::State_Raised));
}

void CheckAndButtonDelegatesTest::otherCellsStayRaised()
{
    StyleInForce inForce;
    TypedTableModel model(2, 1);
    QPixmap pixmap(50, 20);
    QStyleOptionViewItem option;
    option.rect = pixmap.rect();
    option.state = QStyle::State_Enabled;
    ButtonItemDelegate* self = nullptr;
    QWidget parent;
    ButtonItemDelegate delegate(
        [&](QAbstractItemModel*, const QModelIndex&) {
            QPainter painter(&pixmap);
            self->paint(&painter, option, model.index(0, 0));
            self->paint(&painter, option, model.index(1, 0));
        },
        nullptr);
    self = &delegate;
    QCOMPARE(delegate.createEditor(&parent, option, model.index(1, 0)), nullptr);
    QCOMPARE(int(inForce.style->buttons.size()), 4);
    QVERIFY(inForce.style->buttons[0].state.testFlag(QStyle::State_Raised));
    QVERIFY(inForce.style->buttons[2].state.testFlag(QStyle::State_Sunken));
}

void CheckAndButtonDelegatesTest::throwingFunction()
{
    StyleInForce inForce;
    TypedTableModel model(1, 1);
    QWidget parent;
    QStyleOptionViewItem option;
    ButtonItemDelegate delegate(
        [](QAbstractItemModel*, const QModelIndex&) { throw std::runtime_error("failed"); },
        nullptr);
    QVERIFY_EXCEPTION_THROWN(delegate.createEditor(&parent, option, model.index(0, 0)),
                             std::runtime_error);
    QPixmap pixmap(50, 20);
    QPainter painter(&pixmap);
    delegate.paint(&painter, option, model.index(0, 0));
    QVERIFY(inForce.style->buttons[0].state.testFlag(QStyle::State_Sunken));
}

void CheckAndButtonDelegatesTest::appearance_data()
{
    QTest::addColumn<int>("state");
    QTest::addColumn<int>("buttonState");
    QTest::addColumn<bool>("flat");
    const int raised = QStyle::State_Raised;
    const int enabled = QStyle::State_Enabled;
    QTest::newRow("enabled and selected") << int(enabledSelected()) << (raised | enabled) << false;
    QTest::newRow("enabled") << enabled << (raised | enabled) << true;
    QTest::newRow("selected") << int(QStyle::State_Selected) << raised << true;
    QTest::newRow("neither") << 0 << raised << true;
    QTest::newRow("other bits are not taken over")
        << int(enabledSelected() | QStyle::State_HasFocus | QStyle::State_MouseOver)
        << (raised | enabled) << false;
}

void CheckAndButtonDelegatesTest::appearance()
{
    QFETCH(int, state);
    QFETCH(int, buttonState);
    QFETCH(bool, flat);
    StyleInForce inForce;
    TypedTableModel model(1, 1);
    model.cell(0, 0).text = "Zoom";
    QTableView view;
    ButtonItemDelegate delegate([](QAbstractItemModel*, const QModelIndex&) {}, &view);
    QPixmap pixmap(80, 30);
    QPainter painter(&pixmap);
    QStyleOptionViewItem option;
    option.rect = QRect(2, 3, 70, 20);
    option.state = QStyle::State(state);
    delegate.paint(&painter, option, model.index(0, 0));
    QCOMPARE(int(inForce.style->buttons.size()), 2);
    QCOMPARE(inForce.style->buttons[0].element, QStyle::CE_PushButton);
    QCOMPARE(inForce.style->buttons[1].element, QStyle::CE_PushButtonLabel);
    for (const DrawnButton& button : inForce.style->buttons) {
        QCOMPARE(button.text, QString("Zoom"));
        QCOMPARE(button.rect, option.rect);
        QCOMPARE(int(button.state), buttonState);
        QCOMPARE(button.features, flat ? QStyleOptionButton::Flat : QStyleOptionButton::None);
        QCOMPARE(button.widget, static_cast<const QWidget*>(&view));
    }
}

void CheckAndButtonDelegatesTest::textComesFromTheModel()
{
    StyleInForce inForce;
    TypedTableModel model(1, 1);
    QPixmap pixmap(80, 30);
    QPainter painter(&pixmap);
    QObject parent; // not a widget: drawn without one
    ButtonItemDelegate delegate([](QAbstractItemModel*, const QModelIndex&) {}, &parent);
    delegate.paint(&painter, QStyleOptionViewItem(), model.index(0, 0));
    QCOMPARE(inForce.style->buttons.at(0).text, QString());
    QCOMPARE(inForce.style->buttons.at(0).widget, nullptr);
    model.cell(0, 0).text = 12;
    delegate.paint(&painter, QStyleOptionViewItem(), model.index(0, 0));
    QCOMPARE(inForce.style->buttons.at(2).text, QString("12"));
    QCOMPARE(delegate.sizeHint(QStyleOptionViewItem(), model.index(0, 0)),
             QItemDelegate().sizeHint(QStyleOptionViewItem(), model.index(0, 0)));
}

void CheckAndButtonDelegatesTest::functionRemovesItsRow()
{
    StyleInForce inForce;
    TypedTableModel model(3, 1);
    QAbstractItemModelTester tester(&model,
                                    QAbstractItemModelTester::FailureReportingMode::Warning);
    QTableView view;
    ButtonItemDelegate delegate(
        [](QAbstractItemModel* m, const QModelIndex& index) { m->removeRows(index.row(), 1); },
        &view);
    view.setModel(&model);
    view.setItemDelegate(&delegate);
    QVERIFY(showActive(view));
    view.edit(model.index(1, 0));
    QCOMPARE(model.rowCount(), 2);
    inForce.style->buttons.clear();
    view.viewport()->repaint();
    QVERIFY(!inForce.style->buttons.empty());
    for (const DrawnButton& button : inForce.style->buttons) {
        QVERIFY(!button.state.testFlag(QStyle::State_Sunken));
    }
}

void CheckAndButtonDelegatesTest::functionResetsTheModel()
{
    TypedTableModel model(3, 1);
    QTableView view;
    ButtonItemDelegate delegate([&](QAbstractItemModel*, const QModelIndex&) { model.reset(1); },
                                &view);
    view.setModel(&model);
    view.setItemDelegate(&delegate);
    QVERIFY(showActive(view));
    view.edit(model.index(2, 0));
    QCOMPARE(model.rowCount(), 1);
    view.viewport()->repaint();
}

void CheckAndButtonDelegatesTest::functionReplacesTheDelegate()
{
    TypedTableModel model(1, 1);
    QTableView view;
    QPointer<ButtonItemDelegate> delegate;
    int runs = 0;
    delegate = new ButtonItemDelegate(
        [&](QAbstractItemModel*, const QModelIndex&) {
            delete delegate.data();
            ++runs; // what the function holds is still there
        },
        nullptr);
    QWidget parent;
    QCOMPARE(delegate->createEditor(&parent, QStyleOptionViewItem(), model.index(0, 0)), nullptr);
    QVERIFY(!delegate);
    QCOMPARE(runs, 1);
}

void CheckAndButtonDelegatesTest::functionMakesFurtherButtonsRun()
{
    TypedTableModel model(2, 1);
    QWidget parent;
    QList<int> rows;
    ButtonItemDelegate* self = nullptr;
    ButtonItemDelegate delegate(
        [&](QAbstractItemModel*, const QModelIndex& index) {
            rows << index.row();
            if (index.row() == 0) {
                self->createEditor(&parent, QStyleOptionViewItem(), model.index(1, 0));
            }
        },
        nullptr);
    self = &delegate;
    delegate.createEditor(&parent, QStyleOptionViewItem(), model.index(0, 0));
    QCOMPARE(rows, (QList<int>{0, 1}));
}

void CheckAndButtonDelegatesTest::dataOfNoEditor()
{
    TypedTableModel model(1, 1);
    ButtonItemDelegate delegate([](QAbstractItemModel*, const QModelIndex&) {}, nullptr);
    QWidget editor;
    delegate.setEditorData(&editor, model.index(0, 0));
    delegate.setModelData(&editor, &model, model.index(0, 0));
    QVERIFY(model.writes.empty());
    QStyleOptionViewItem option;
    option.rect = QRect(5, 6, 70, 80);
    delegate.updateEditorGeometry(&editor, option, model.index(0, 0));
    QCOMPARE(editor.geometry(), option.rect);
}

QTEST_MAIN(CheckAndButtonDelegatesTest)
#include "tst_check_and_button_delegates.moc"
