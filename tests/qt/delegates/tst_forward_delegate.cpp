#include "qt/inc/controls.h"
#include "qt/inc/delegates.h"
#include "tests/helpers/active_window.h"
#include "tests/helpers/checked_test.h"
#include "tests/helpers/typed_table_model.h"
#include "tests/helpers/whole_number_validator.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QComboBox>
#include <QEventLoop>
#include <QHeaderView>
#include <QLineEdit>
#include <QPainter>
#include <QPointer>
#include <QSignalSpy>
#include <QStandardItemModel>
#include <QTableView>
#include <QTimer>

#include <boost/make_shared.hpp>

#include <memory>

using namespace zel::qt;
using zel::test::runDeferred;
using zel::test::showActive;
using zel::test::TypedTableModel;
using zel::test::WholeNumberValidator;

namespace {

/// Answers its name as size and writes down what it is asked for.
class NamedDelegate : public QAbstractItemDelegate
{
public:
    explicit NamedDelegate(int name, QObject* parent = nullptr)
        : QAbstractItemDelegate(parent)
        , m_name(name)
    {}

    void paint(QPainter*, const QStyleOptionViewItem&, const QModelIndex&) const override
    {
        asked << "paint";
    }
    QSize sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const override
    {
        asked << "sizeHint";
        return {m_name, m_name};
    }
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem&,
                          const QModelIndex&) const override
    {
        asked << "createEditor";
        return new QLineEdit(QString::number(m_name), parent);
    }
    void setEditorData(QWidget*, const QModelIndex&) const override
    {
        asked << "setEditorData";
    }
    void setModelData(QWidget*, QAbstractItemModel*, const QModelIndex&) const override
    {
        asked << "setModelData";
    }
    void updateEditorGeometry(QWidget*, const QStyleOptionViewItem&,
                              const QModelIndex&) const override
    {
        asked << "updateEditorGeometry";
    }
    bool editorEvent(QEvent*, QAbstractItemModel*, const QStyleOptionViewItem&,
                     const QModelIndex&) override
    {
        asked << "editorEvent";
        return true;
    }

    mutable QStringList asked;

private:
    int m_name;
};

/// Calls what the view would call, which ForwardDelegate keeps protected.
bool callEditorEvent(QAbstractItemDelegate& delegate, QEvent& event, QAbstractItemModel& model,
                     const QModelIndex& index)
{
    QStyleOptionViewItem option;
    option.state = QStyle::State_Enabled;
    return delegate.editorEvent(&event, &model, option, index);
}

struct Fixture
{
    explicit Fixture(int rows = 6)
        : model(rows, 3)
    {
        view.setModel(&model);
        delegate = new ForwardDelegate(view);
        view.setItemDelegate(delegate);
    }

    /// The name of the delegate that works for a cell; 0 for QStyledItemDelegate.
    int chosen(int row, int column)
    {
        const QStyleOptionViewItem option;
        const QSize size = delegate->sizeHint(option, model.index(row, column));
        return size.width() == size.height() ? size.width() : 0;
    }

    TypedTableModel model;
    QAbstractItemModelTester tester{&model,
                                    QAbstractItemModelTester::FailureReportingMode::Warning};
    QTableView view;
    ForwardDelegate* delegate;
    NamedDelegate a{101};
    NamedDelegate b{102};
    NamedDelegate c{103};
    NamedDelegate d{104};
};

} // namespace

class ForwardDelegateTest : public zel::test::CheckedTest
{
    Q_OBJECT
private Q_SLOTS:
    void viewIsTheParent();
    void precedence_data();
    void precedence();
    void forwardsEveryOperation();
    void fallsBackToTheStyledDelegate();
    void nullEntryIsNoEntry_data();
    void nullEntryIsNoEntry();
    void keysFollowInsertedRows_data();
    void keysFollowInsertedRows();
    void insertionBelowAnyParent();
    void keysStayWhenRowsAreRemoved();
    void laterModelIsNotFollowed();
    void signalsReachTheView();
    void delegateUnderTwoKeys();
    void replacedDelegateIsSilent_data();
    void replacedDelegateIsSilent();
    void editsThroughTheChosenDelegate();
    void sizeHintChangesWithTheValue();
    void choosesInAComboByMouse();
    void modelThatAsksTheUser();
    void modelOutlivesTheView();
    void closesWithOpenEditor_data();
    void closesWithOpenEditor();
};

void ForwardDelegateTest::viewIsTheParent()
{
    Fixture f;
    QCOMPARE(f.delegate->parent(), static_cast<QObject*>(&f.view));
}

void ForwardDelegateTest::precedence_data()
{
    QTest::addColumn<QString>("entries"); // of cell, row, column, default
    QTest::addColumn<int>("chosen");
    QTest::newRow("none") << "" << 0;
    QTest::newRow("default") << "d" << 104;
    QTest::newRow("column") << "c" << 103;
    QTest::newRow("row") << "b" << 102;
    QTest::newRow("cell") << "a" << 101;
    QTest::newRow("column over default") << "cd" << 103;
    QTest::newRow("row over default") << "bd" << 102;
    QTest::newRow("row over column") << "bc" << 102;
    QTest::newRow("cell over row") << "ab" << 101;
    QTest::newRow("cell over column") << "ac" << 101;
    QTest::newRow("cell over all") << "abcd" << 101;
}

void ForwardDelegateTest::precedence()
{
    QFETCH(QString, entries);
    Fixture f;
    if (entries.contains('a')) {
        f.delegate->setItemDelegateForCell(2, 1, &f.a);
    }
    if (entries.contains('b')) {
        f.delegate->setItemDelegateForRow(2, &f.b);
    }
    if (entries.contains('c')) {
        f.delegate->setItemDelegateForColumn(1, &f.c);
    }
    if (entries.contains('d')) {
        f.delegate->setItemDelegate(&f.d);
    }
    QTEST(f.chosen(2, 1), "chosen");
    // A key holds for its own cells only.
    const int other = entries.contains('d') ? 104 : 0;
    QCOMPARE(f.chosen(1, 2), other);
    QCOMPARE(f.chosen(2, 2), entries.contains('b') ? 102 : other);
    QCOMPARE(f.chosen(1, 1), entries.contains('c') ? 103 : other);
}

void ForwardDelegateTest::forwardsEveryOperation()
{
    Fixture f;
    f.delegate->setItemDelegateForCell(0, 0, &f.a);
    const QModelIndex index = f.model.index(0, 0);
    const QStyleOptionViewItem option;
    QPixmap pixmap(10, 10);
    QPainter painter(&pixmap);
    QWidget parent;
    f.delegate->paint(&painter, option, index);
    f.delegate->sizeHint(option, index);
    QWidget* editor = f.delegate->createEditor(&parent, option, index);
    f.delegate->setEditorData(editor, index);
    f.delegate->setModelData(editor, &f.model, index);
    f.delegate->updateEditorGeometry(editor, option, index);
    QEvent event(QEvent::User);
    QVERIFY(callEditorEvent(*f.delegate, event, f.model, index));
    QCOMPARE(f.a.asked, (QStringList{"paint", "sizeHint", "createEditor", "setEditorData",
                                     "setModelData", "updateEditorGeometry", "editorEvent"}));
    QCOMPARE(qobject_cast<QLineEdit*>(editor)->text(), QString("101"));
}

void ForwardDelegateTest::fallsBackToTheStyledDelegate()
{
    Fixture f;
    f.model.extraFlags = Qt::ItemIsUserCheckable;
    f.model.cell(0, 0).text = "text";
    f.model.cell(0, 0).check = Qt::Unchecked;
    const QModelIndex index = f.model.index(0, 0);
    QStyleOptionViewItem option;
    option.rect = QRect(0, 0, 100, 30);
    option.state = QStyle::State_Enabled;
    option.widget = &f.view;
    const QStyledItemDelegate plain;

    QCOMPARE(f.delegate->sizeHint(option, index), plain.sizeHint(option, index));
    const auto painted = [&](const QAbstractItemDelegate& delegate) {
        QImage image(100, 30, QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        delegate.paint(&painter, option, index);
        return image;
    };
    const QImage image = painted(*f.delegate);
    QCOMPARE(image, painted(plain));
    QImage blank(100, 30, QImage::Format_RGB32);
    blank.fill(Qt::white);
    QVERIFY(image != blank);

    QWidget parent;
    QLineEdit edit(&parent);
    edit.setText("old");
    f.delegate->setEditorData(&edit, index); // from Qt::EditRole, which the model does not have
    QCOMPARE(edit.text(), QString());
    f.model.writes.clear();
    edit.setText("new");
    f.delegate->setModelData(&edit, &f.model, index);
    QCOMPARE(int(f.model.writes.size()), 1);
    QCOMPARE(f.model.writes[0].role, int(Qt::EditRole));
    f.delegate->updateEditorGeometry(&edit, option, index);
    QVERIFY(!edit.geometry().isEmpty());
    QVERIFY(f.view.itemDelegate() == f.delegate);

    QKeyEvent space(QEvent::KeyPress, Qt::Key_Space, Qt::NoModifier);
    QVERIFY(callEditorEvent(*f.delegate, space, f.model, index));
    QCOMPARE(f.model.cell(0, 0).check.toInt(), int(Qt::Checked));
}

void ForwardDelegateTest::nullEntryIsNoEntry_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<int>("chosen");
    QTest::newRow("cell") << "cell" << 102;
    QTest::newRow("row") << "row" << 101;
    QTest::newRow("column") << "column" << 101;
    QTest::newRow("default") << "default" << 101;
}

void ForwardDelegateTest::nullEntryIsNoEntry()
{
    QFETCH(QString, key);
    Fixture f;
    f.delegate->setItemDelegateForCell(2, 1, &f.a);
    f.delegate->setItemDelegateForRow(2, &f.b);
    f.delegate->setItemDelegateForColumn(1, &f.c);
    f.delegate->setItemDelegate(&f.d);
    NamedDelegate* old = nullptr;
    if (key == "cell") {
        f.delegate->setItemDelegateForCell(2, 1, nullptr);
        old = &f.a;
    } else if (key == "row") {
        f.delegate->setItemDelegateForRow(2, nullptr);
        QCOMPARE(f.chosen(2, 0), 104);
        old = &f.b;
    } else if (key == "column") {
        f.delegate->setItemDelegateForColumn(1, nullptr);
        QCOMPARE(f.chosen(0, 1), 104);
        old = &f.c;
    } else {
        f.delegate->setItemDelegate(nullptr);
        QCOMPARE(f.chosen(0, 0), 0);
        old = &f.d;
    }
    QTEST(f.chosen(2, 1), "chosen");
    QSignalSpy commits(f.delegate, &QAbstractItemDelegate::commitData);
    Q_EMIT old->commitData(nullptr);
    QCOMPARE(commits.count(), 0);
}

void ForwardDelegateTest::keysFollowInsertedRows_data()
{
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("count");
    QTest::addColumn<int>("row0"); // where the keys of the rows 0, 1 and 3 are afterwards
    QTest::addColumn<int>("row1");
    QTest::addColumn<int>("row3");
    QTest::newRow("two at 1") << 1 << 2 << 0 << 3 << 5;
    QTest::newRow("one at the top") << 0 << 1 << 1 << 2 << 4;
    QTest::newRow("between") << 2 << 3 << 0 << 1 << 6;
    QTest::newRow("right before") << 3 << 1 << 0 << 1 << 4;
    QTest::newRow("right behind") << 4 << 1 << 0 << 1 << 3;
    QTest::newRow("at the end") << 6 << 5 << 0 << 1 << 3;
}

void ForwardDelegateTest::keysFollowInsertedRows()
{
    QFETCH(int, first);
    QFETCH(int, count);
    QFETCH(int, row0);
    QFETCH(int, row1);
    QFETCH(int, row3);
    Fixture f;
    f.delegate->setItemDelegateForRow(3, &f.a);
    f.delegate->setItemDelegateForCell(1, 0, &f.b);
    f.delegate->setItemDelegateForRow(0, &f.c);
    f.delegate->setItemDelegateForCell(0, 2, &f.d);
    f.delegate->setItemDelegateForCell(3, 2, &f.d);
    QVERIFY(f.model.insertRows(first, count));
    for (int row = 0; row < f.model.rowCount(); ++row) {
        QCOMPARE(f.chosen(row, 1), row == row0 ? 103 : row == row3 ? 101 : 0);
        QCOMPARE(f.chosen(row, 0), row == row0 ? 103 : row == row1 ? 102 : row == row3 ? 101 : 0);
        QCOMPARE(f.chosen(row, 2), row == row0 || row == row3 ? 104 : 0);
    }
}

void ForwardDelegateTest::insertionBelowAnyParent()
{
    // The parent is not looked at: rows below a cell shift the keys as well.
    QStandardItemModel model(4, 3);
    QTableView view;
    view.setModel(&model);
    auto* delegate = new ForwardDelegate(view);
    NamedDelegate row(101);
    NamedDelegate column(102);
    delegate->setItemDelegateForRow(1, &row);
    delegate->setItemDelegateForColumn(2, &column);
    const auto chosen = [&](int r, int c) {
        return delegate->sizeHint(QStyleOptionViewItem(), model.index(r, c)).width();
    };
    QVERIFY(model.insertRows(0, 2, model.index(0, 0)));
    QCOMPARE(model.rowCount(), 4);
    QVERIFY(chosen(1, 0) != 101);
    QCOMPARE(chosen(3, 0), 101);
    QCOMPARE(chosen(0, 2), 102);
}

void ForwardDelegateTest::keysStayWhenRowsAreRemoved()
{
    Fixture f;
    f.delegate->setItemDelegateForRow(3, &f.a);
    f.delegate->setItemDelegateForCell(2, 0, &f.b);
    QVERIFY(f.model.removeRows(0, 2));
    QCOMPARE(f.chosen(3, 0), 101);
    QCOMPARE(f.chosen(2, 0), 102);
    QCOMPARE(f.chosen(1, 0), 0);
}

void ForwardDelegateTest::laterModelIsNotFollowed()
{
    Fixture f;
    f.delegate->setItemDelegateForRow(1, &f.a);
    TypedTableModel later(6, 3);
    f.view.setModel(&later);
    QVERIFY(later.insertRows(0, 1));
    QCOMPARE(f.chosen(1, 0), 101);
    QVERIFY(f.model.insertRows(0, 1)); // the first model is followed still
    QCOMPARE(f.chosen(2, 0), 101);
}

void ForwardDelegateTest::signalsReachTheView()
{
    Fixture f;
    f.delegate->setItemDelegateForCell(0, 0, &f.a);
    QWidget editor;
    QList<QWidget*> commits;
    QList<QPair<QWidget*, int>> closes;
    QList<QModelIndex> hints;
    connect(f.delegate, &QAbstractItemDelegate::commitData, this,
            [&](QWidget* w) { commits << w; });
    connect(f.delegate, &QAbstractItemDelegate::closeEditor, this,
            [&](QWidget* w, QAbstractItemDelegate::EndEditHint hint) {
                closes << qMakePair(w, int(hint));
            });
    connect(f.delegate, &QAbstractItemDelegate::sizeHintChanged, this,
            [&](const QModelIndex& index) { hints << index; });
    Q_EMIT f.a.commitData(&editor);
    Q_EMIT f.a.closeEditor(&editor, QAbstractItemDelegate::EditNextItem);
    Q_EMIT f.a.sizeHintChanged(f.model.index(2, 1));
    QCOMPARE(commits, QList<QWidget*>{&editor});
    QCOMPARE(closes, (QList<QPair<QWidget*, int>>{{&editor, 1}}));
    QCOMPARE(hints, QList<QModelIndex>{f.model.index(2, 1)});
    disconnect(f.delegate, nullptr, this, nullptr);
}

void ForwardDelegateTest::delegateUnderTwoKeys()
{
    // Deliberate: a connection for each key, and all of them go with the first key.
    Fixture f;
    QSignalSpy commits(f.delegate, &QAbstractItemDelegate::commitData);
    f.delegate->setItemDelegateForRow(0, &f.a);
    f.delegate->setItemDelegateForColumn(1, &f.a);
    Q_EMIT f.a.commitData(nullptr);
    QCOMPARE(commits.count(), 2);
    f.delegate->setItemDelegateForRow(0, &f.b);
    Q_EMIT f.a.commitData(nullptr);
    QCOMPARE(commits.count(), 2);
    QCOMPARE(f.chosen(1, 1), 101); // it still works for its other key
    Q_EMIT f.b.commitData(nullptr);
    QCOMPARE(commits.count(), 3);
}

void ForwardDelegateTest::replacedDelegateIsSilent_data()
{
    QTest::addColumn<bool>("same");
    QTest::newRow("by another") << false;
    QTest::newRow("by itself") << true;
}

void ForwardDelegateTest::replacedDelegateIsSilent()
{
    QFETCH(bool, same);
    Fixture f;
    QSignalSpy commits(f.delegate, &QAbstractItemDelegate::commitData);
    f.delegate->setItemDelegate(&f.a);
    f.delegate->setItemDelegate(same ? &f.a : &f.b);
    Q_EMIT f.a.commitData(nullptr);
    QCOMPARE(commits.count(), same ? 1 : 0);
    QCOMPARE(f.chosen(0, 0), same ? 101 : 102);
}

void ForwardDelegateTest::editsThroughTheChosenDelegate()
{
    Fixture f;
    auto validator = boost::make_shared<WholeNumberValidator>();
    LineEditItemDelegate numbers(validator, nullptr);
    f.delegate->setItemDelegateForCell(1, 1, &numbers);
    f.model.put(1, 1, 5, "5");
    QVERIFY(showActive(f.view));
    const QPoint centre = f.view.visualRect(f.model.index(1, 1)).center();
    QTest::mouseClick(f.view.viewport(), Qt::LeftButton, {}, centre);
    QTest::mouseDClick(f.view.viewport(), Qt::LeftButton, {}, centre);
    auto* editor = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    QVERIFY(editor != nullptr);
    QCOMPARE(editor->selectedText(), QString("5"));
    QTest::keyClicks(editor, "42");
    QTest::keyClick(editor, Qt::Key_Return);
    runDeferred();
    QCOMPARE(f.model.itemWrites, 1);
    QCOMPARE(boost::any_cast<int>(f.model.value(1, 1)), 42);
    QVERIFY(f.view.hasFocus());
}

void ForwardDelegateTest::sizeHintChangesWithTheValue()
{
    // The height of a row may follow its text.
    struct Growing : NamedDelegate
    {
        using NamedDelegate::NamedDelegate;
        void setModelData(QWidget*, QAbstractItemModel*, const QModelIndex& index) const override
        {
            Q_EMIT const_cast<Growing*>(this)->sizeHintChanged(index);
        }
    };
    Fixture f;
    Growing growing(105);
    f.delegate->setItemDelegateForRow(2, &growing);
    QList<QModelIndex> changed;
    connect(f.delegate, &QAbstractItemDelegate::sizeHintChanged, this,
            [&](const QModelIndex& index) { changed << index; });
    QWidget editor;
    f.delegate->setModelData(&editor, &f.model, f.model.index(2, 1));
    QCOMPARE(changed, QList<QModelIndex>{f.model.index(2, 1)});
    disconnect(f.delegate, nullptr, this, nullptr);
}

void ForwardDelegateTest::choosesInAComboByMouse()
{
    Fixture f;
    ComboItemDelegate combos(
        nullptr,
        [](MultiEditEnumBox& box, const QModelIndex&) {
            box.setValues({{"IPE 200", 1}, {"IPE 300", 2}, {"HEB 200", 3}});
        },
        [](const boost::any& a, const boost::any& b) {
            return boost::any_cast<int>(a) == boost::any_cast<int>(b);
        },
        nullptr);
    f.delegate->setItemDelegateForColumn(1, &combos);
    f.model.put(1, 1, 1, "IPE 200");
    f.view.horizontalHeader()->setDefaultSectionSize(150);
    QVERIFY(showActive(f.view));
    int closes = 0;
    connect(f.delegate, &QAbstractItemDelegate::closeEditor, this, [&] { ++closes; });
    f.view.edit(f.model.index(1, 1));
    QPointer<MultiEditEnumBox> box = f.view.viewport()->findChild<MultiEditEnumBox*>();
    QVERIFY(box != nullptr);
    auto* combo = box->findChild<QComboBox*>();
    QTest::keyClick(combo, Qt::Key_Down, Qt::AltModifier);
    QTest::keyClick(combo->view(), Qt::Key_Down);
    runDeferred();
    QCOMPARE(closes, 0);
    const QPoint centre = combo->view()->visualRect(combo->model()->index(2, 0)).center();
    QTest::mouseMove(combo->view()->viewport(), centre);
    QTest::mouseClick(combo->view()->viewport(), Qt::LeftButton, {}, centre);
    QCOMPARE(int(f.model.writes.size()), 3);
    QCOMPARE(boost::any_cast<int>(f.model.value(1, 1)), 3);
    QTRY_VERIFY(!box);
    QVERIFY(closes > 0);
    disconnect(f.delegate, nullptr, this, nullptr);
    QVERIFY(f.view.hasFocus());
    QCOMPARE(int(f.model.writes.size()), 3);
}

void ForwardDelegateTest::modelThatAsksTheUser()
{
    Fixture f;
    LineEditItemDelegate numbers(boost::make_shared<WholeNumberValidator>(), nullptr);
    f.delegate->setItemDelegate(&numbers);
    f.model.put(1, 1, 5, "5");
    QVERIFY(showActive(f.view));
    int asked = 0;
    f.model.written = [&](const QModelIndex&, int) {
        ++asked;
        QWidget question;
        question.show();
        QApplication::setActiveWindow(&question);
        QEventLoop loop;
        QTimer::singleShot(0, &loop, [&] { QTimer::singleShot(0, &loop, &QEventLoop::quit); });
        loop.exec();
    };
    f.view.edit(f.model.index(1, 1));
    QPointer<QLineEdit> editor = f.view.viewport()->findChild<QLineEdit*>();
    QVERIFY(editor != nullptr);
    QTest::keyClicks(editor, "42");
    QTest::keyClick(editor, Qt::Key_Return);
    QCOMPARE(asked, 1);
    QTRY_VERIFY(!editor);
    QCOMPARE(boost::any_cast<int>(f.model.value(1, 1)), 42);
    QCOMPARE(f.model.itemWrites, 1);
}

void ForwardDelegateTest::modelOutlivesTheView()
{
    TypedTableModel model(3, 3);
    {
        QTableView view;
        view.setModel(&model);
        auto* delegate = new ForwardDelegate(view);
        delegate->setItemDelegateForRow(1, delegate);
    }
    QVERIFY(model.insertRows(0, 1));
    QCOMPARE(model.rowCount(), 4);
}

void ForwardDelegateTest::closesWithOpenEditor_data()
{
    QTest::addColumn<QString>("what");
    for (const char* what :
         {"row removed", "model reset", "view gone", "inner delegate taken out"}) {
        QTest::newRow(what) << what;
    }
}

void ForwardDelegateTest::closesWithOpenEditor()
{
    QFETCH(QString, what);
    TypedTableModel model(3, 3);
    model.put(1, 1, 5, "5");
    auto view = std::make_unique<QTableView>();
    view->setModel(&model);
    auto* delegate = new ForwardDelegate(*view);
    view->setItemDelegate(delegate);
    auto* numbers =
        new LineEditItemDelegate(boost::make_shared<WholeNumberValidator>(), view.get());
    delegate->setItemDelegateForCell(1, 1, numbers);
    QVERIFY(showActive(*view));
    view->edit(model.index(1, 1));
    QPointer<QLineEdit> editor = view->viewport()->findChild<QLineEdit*>();
    QVERIFY(editor != nullptr);
    QTest::keyClicks(editor, "42");
    if (what == "row removed") {
        model.removeRows(1, 1);
    } else if (what == "model reset") {
        model.reset(3);
    } else if (what == "view gone") {
        view.reset();
    } else {
        delegate->setItemDelegateForCell(1, 1, nullptr);
        delete numbers;
    }
    runDeferred();
    QCOMPARE(model.itemWrites, 0);
    view.reset();
    QTRY_VERIFY(!editor);
}

QTEST_MAIN(ForwardDelegateTest)
#include "tst_forward_delegate.moc"
