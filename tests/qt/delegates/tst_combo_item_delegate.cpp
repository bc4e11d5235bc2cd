#include "qt/inc/controls.h"
#include "qt/inc/delegates.h"
#include "tests/helpers/active_window.h"
#include "tests/helpers/checked_test.h"
#include "tests/helpers/typed_table_model.h"
#include "tests/helpers/whole_number_validator.h"

#include <QAbstractItemModelTester>
#include <QAbstractItemView>
#include <QApplication>
#include <QEventLoop>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QPushButton>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QSortFilterProxyModel>
#include <QTableView>
#include <QTimer>
#include <QVBoxLayout>

#include <boost/make_shared.hpp>

#include <memory>

using namespace zel::qt;
using zel::test::runDeferred;
using zel::test::showActive;
using zel::test::TypedTableModel;
using zel::test::WholeNumberValidator;

namespace {

constexpr char editorProperty[] = "zel_property_delegate_editor_widget";
constexpr char focusOutProperty[] = "zel_property_delegate_filter_focus_out";
constexpr char commitProperty[] = "zel_property_delegate_combobox_commit_on_activate";

bool equalNumbers(const boost::any& a, const boost::any& b)
{
    return a.empty() || boost::any_cast<int>(a) == boost::any_cast<int>(b);
}

NamedValueList sections()
{
    return {{"IPE 200", 1}, {"IPE 300", 2}, {"HEB 200", 3}};
}

/// A window with a table of two rows and two columns and a button to put the focus on. The cells
/// of the first row hold the sections 1 and 2, those of the second have no typed value.
struct Fixture
{
    explicit Fixture(boost::shared_ptr<IValidator> validator = nullptr)
    {
        model.put(0, 0, 1, "IPE 200");
        model.put(0, 1, 2, "IPE 300");
        delegate = new ComboItemDelegate(
            view,
            [this](MultiEditEnumBox& box, const QModelIndex& index) {
                filled << index;
                box.setValues(sections());
            },
            equalNumbers, std::move(validator));
        view->setModel(&model);
        view->setItemDelegate(delegate);
        view->horizontalHeader()->setDefaultSectionSize(150);
        auto* layout = new QVBoxLayout(&window);
        layout->addWidget(view);
        layout->addWidget(elsewhere);
        elsewhere->setFocusPolicy(Qt::StrongFocus);
        window.resize(500, 300);
        QObject::connect(delegate, &QAbstractItemDelegate::commitData, delegate,
                         [this](QWidget* editor) { commits << editor; });
        QObject::connect(delegate, &QAbstractItemDelegate::closeEditor, delegate,
                         [this](QWidget* editor, QAbstractItemDelegate::EndEditHint hint) {
                             closed << editor;
                             hints << int(hint);
                         });
    }

    /// Opens the editor of a cell as a user does, by a double click.
    MultiEditEnumBox* open(int row, int column)
    {
        const QPoint centre = view->visualRect(model.index(row, column)).center();
        QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, centre);
        QTest::mouseDClick(view->viewport(), Qt::LeftButton, {}, centre);
        return editor();
    }

    MultiEditEnumBox* editor() const
    {
        for (auto* box : view->viewport()->findChildren<MultiEditEnumBox*>()) {
            if (box->isVisible()) {
                return box;
            }
        }
        return nullptr;
    }

    static ZEL_QT4_ComboBox* combo(MultiEditEnumBox* box)
    {
        return box->findChild<ZEL_QT4_ComboBox*>();
    }

    /// The editor of a cell with its list open.
    MultiEditEnumBox* openList(int row, int column)
    {
        MultiEditEnumBox* box = open(row, column);
        if (box == nullptr) {
            return nullptr;
        }
        QTest::keyClick(combo(box), Qt::Key_Down, Qt::AltModifier);
        runDeferred(); // the activation of the list's window
        return combo(box)->view()->isVisible() ? box : nullptr;
    }

    /// Clicks on an item of the open list, as the mouse gets there: by moving.
    static void clickItem(MultiEditEnumBox* box, int row)
    {
        QAbstractItemView* list = combo(box)->view();
        const QPoint centre = list->visualRect(list->model()->index(row, 0)).center();
        QTest::mouseMove(list->viewport(), centre - QPoint(5, 0));
        QTest::mouseMove(list->viewport(), centre);
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, centre);
    }

    QList<QWidget*> commits; // before the window, whose end commits too
    QList<QWidget*> closed;
    QList<int> hints;
    QList<QPersistentModelIndex> filled;
    TypedTableModel model{2, 2};
    QAbstractItemModelTester tester{&model,
                                    QAbstractItemModelTester::FailureReportingMode::Warning};
    QWidget window;
    QTableView* view = new QTableView(&window);
    QPushButton* elsewhere = new QPushButton("elsewhere", &window);
    ComboItemDelegate* delegate;
};

void settle()
{
    runDeferred();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

} // namespace

class ComboItemDelegateTest : public zel::test::CheckedTest
{
    Q_OBJECT
private Q_SLOTS:
    void opensOnTheValue_data();
    void opensOnTheValue();
    void cellWithoutValue();
    void emptyArguments();
    void markedParts_data();
    void markedParts();
    void clickOnAnItemCommits_data();
    void clickOnAnItemCommits();
    void keysInTheListDoNotCommit();
    void keysOnTheClosedEditorDoNotCommit();
    void choiceByKeyboardStaysOpenAfterAClick();
    void endsOfEditing_data();
    void endsOfEditing();
    void escapeClosesTheListFirst();
    void freeText_data();
    void freeText();
    void varyingEditorWritesNothing();
    void writesInOrder();
    void refusedWrites_data();
    void refusedWrites();
    void modelThatSortsByTheText();
    void modelThatHidesTheRow();
    void persistentEditorShowsWhatWasWritten();
    void clickInAPersistentEditorWithoutFocus();
    void markOfTheMouseIsPassing();
    void boxGoneBeforeTheMarkIsCleared();
    void emitCommitData_data();
    void emitCommitData();
    void listKeepsTheEditorOpen();
    void outsideAnEditor();
    void wrongEditor();
    void closesWith_data();
    void closesWith();
    void modelThatAsksTheUser();
};

void ComboItemDelegateTest::opensOnTheValue_data()
{
    QTest::addColumn<bool>("editable");
    QTest::newRow("fixed list") << false;
    QTest::newRow("editable") << true;
}

void ComboItemDelegateTest::opensOnTheValue()
{
    QFETCH(bool, editable);
    Fixture f(editable ? boost::make_shared<WholeNumberValidator>() : nullptr);
    QVERIFY(showActive(f.window));
    MultiEditEnumBox* box = f.open(0, 1);
    QVERIFY(box != nullptr);
    QCOMPARE(f.filled, QList<QPersistentModelIndex>{f.model.index(0, 1)});
    QCOMPARE(Fixture::combo(box)->isEditable(), editable);
    QCOMPARE(Fixture::combo(box)->currentText(), QString("IPE 300"));
    QCOMPARE(boost::any_cast<int>(box->getSelectedValue()), 2);
    QVERIFY(!box->dataVaries());
    QVERIFY(box->findChild<QLabel*>(QString(), Qt::FindDirectChildrenOnly) == nullptr);
    QVERIFY(Fixture::combo(box)->hasFocus());
    QVERIFY(f.commits.isEmpty());
    QVERIFY(f.hints.isEmpty());
    QVERIFY(f.model.writes.empty());
}

void ComboItemDelegateTest::cellWithoutValue()
{
    Fixture f;
    QVERIFY(showActive(f.window));
    MultiEditEnumBox* box = f.open(1, 0);
    QVERIFY(box != nullptr);
    const auto reports = takeReports();
    QVERIFY(!reports.empty());
    for (const auto& report : reports) {
        QCOMPARE(report.expression, std::string("!value.empty()"));
        QCOMPARE(report.file, std::string("qt/delegates/enumbox/combo_item_delegate.cpp"));
    }
    QCOMPARE(boost::any_cast<int>(box->getSelectedValue()), 1);
    QTest::keyClick(Fixture::combo(box), Qt::Key_Escape);
    settle();
    QVERIFY(f.model.writes.empty());

    std::unique_ptr<QWidget> editor(
        f.delegate->createEditor(&f.window, QStyleOptionViewItem(), f.model.index(1, 0)));
    f.delegate->setEditorData(editor.get(), f.model.index(1, 0));
    QCOMPARE(takeExpressions(), QStringList{"!value.empty()"});
    f.model.put(1, 0, boost::any());
    f.delegate->setEditorData(editor.get(), f.model.index(1, 0));
    QCOMPARE(takeExpressions(), QStringList{"!value.empty()"});
}

void ComboItemDelegateTest::emptyArguments()
{
    TypedTableModel model(1, 1);
    QWidget parent;
    ComboItemDelegate delegate(nullptr, {}, equalNumbers, nullptr);
    auto* box = qobject_cast<MultiEditEnumBox*>(
        delegate.createEditor(&parent, QStyleOptionViewItem(), model.index(0, 0)));
    QVERIFY(box != nullptr);
    QCOMPARE(box->parentWidget(), &parent);
    QCOMPARE(Fixture::combo(box)->count(), 0);
    delegate.setModelData(box, &model, model.index(0, 0)); // nothing to choose
    QVERIFY(model.writes.empty());

    ComboItemDelegate withoutEquality(nullptr, {}, nullptr, nullptr);
    withoutEquality.createEditor(&parent, QStyleOptionViewItem(), model.index(0, 0));
    QCOMPARE(takeExpressions(), (QStringList{"eqFn", "anyEqAvailable()"}));
}

void ComboItemDelegateTest::markedParts_data()
{
    opensOnTheValue_data();
}

void ComboItemDelegateTest::markedParts()
{
    QFETCH(bool, editable);
    Fixture f(editable ? boost::make_shared<WholeNumberValidator>() : nullptr);
    QWidget parent;
    auto* box = qobject_cast<MultiEditEnumBox*>(
        f.delegate->createEditor(&parent, QStyleOptionViewItem(), f.model.index(0, 0)));
    QWidget* proxy = box;
    while (proxy->focusProxy() != nullptr) {
        proxy = proxy->focusProxy();
    }
    QCOMPARE(proxy, Fixture::combo(box));
    QVERIFY(!box->property(editorProperty).isValid());
    QVERIFY(!box->property(focusOutProperty).isValid());
    QVERIFY(!box->property(commitProperty).isValid());
    QCOMPARE(proxy->property(editorProperty).value<QWidget*>(), box);
    QVERIFY(!proxy->property(focusOutProperty).isValid());

    // All widgets below the combo box: its list, with viewport and bars, and its edit.
    int marked = 0;
    const auto parts = proxy->findChildren<QWidget*>();
    QVERIFY(parts.contains(Fixture::combo(box)->view()->viewport()));
    QCOMPARE(parts.contains(Fixture::combo(box)->lineEdit()), editable);
    for (QWidget* part : parts) {
        bool belowWidgetsOnly = true;
        for (QObject* p = part; p != box; p = p->parent()) {
            belowWidgetsOnly = belowWidgetsOnly && p->isWidgetType();
        }
        QCOMPARE(part->property(focusOutProperty), belowWidgetsOnly ? QVariant(true) : QVariant());
        QCOMPARE(part->property(editorProperty).value<QWidget*>(),
                 belowWidgetsOnly ? box : nullptr);
        marked += belowWidgetsOnly ? 1 : 0;
    }
    QVERIFY(marked >= 4);
}

void ComboItemDelegateTest::clickOnAnItemCommits_data()
{
    QTest::addColumn<bool>("editable");
    QTest::addColumn<int>("item");
    QTest::newRow("another item") << false << 2;
    QTest::newRow("the item that is selected already") << false << 0;
    QTest::newRow("another item, editable") << true << 2;
}

void ComboItemDelegateTest::clickOnAnItemCommits()
{
    QFETCH(bool, editable);
    QFETCH(int, item);
    Fixture f(editable ? boost::make_shared<WholeNumberValidator>() : nullptr);
    QVERIFY(showActive(f.window));
    QPointer<MultiEditEnumBox> box = f.openList(0, 0);
    QVERIFY(box != nullptr);
    Fixture::clickItem(box, item);
    // At once, without the event loop. The list, a window of its own, is told of as well when it
    // goes; to the view it is no editor. The editor loses the focus when the view closes it, which
    // is told from within the closing and so before it.
    QList<int> hintsOfTheBox;
    for (int i = 0; i < f.closed.size(); ++i) {
        if (f.closed[i] == box) {
            hintsOfTheBox << f.hints[i];
        }
    }
    QCOMPARE(hintsOfTheBox, (QList<int>{int(QAbstractItemDelegate::NoHint),
                                        int(QAbstractItemDelegate::SubmitModelCache)}));
    QCOMPARE(f.commits.count(box), 2);
    QCOMPARE(boost::any_cast<int>(f.model.value(0, 0)), item + 1);
    const QString name = sections()[std::size_t(item)].first;
    QCOMPARE(f.model.cell(0, 0).text, QVariant(name));
    QCOMPARE(f.model.cell(0, 0).toolTip, QVariant(name));
    QCOMPARE(int(f.model.writes.size()), 3);
    settle();
    QVERIFY(f.editor() == nullptr);
    QVERIFY(!box);
    QVERIFY(f.view->hasFocus());
    QCOMPARE(int(f.model.writes.size()), 3);
}

void ComboItemDelegateTest::keysInTheListDoNotCommit()
{
    Fixture f;
    QVERIFY(showActive(f.window));
    MultiEditEnumBox* box = f.openList(0, 0);
    QVERIFY(box != nullptr);
    QAbstractItemView* list = Fixture::combo(box)->view();
    QTest::keyClick(list, Qt::Key_Down);
    QTest::keyClick(list, Qt::Key_Down);
    QTest::keyClick(list, Qt::Key_Up);
    settle();
    QVERIFY(f.commits.isEmpty());
    QVERIFY(f.hints.isEmpty());
    QSignalSpy activated(box, &SimpleEnumBox::activated);
    QTest::keyClick(list, Qt::Key_Return);
    settle();
    QCOMPARE(activated.count(), 1);
    // Return chose the item and closed the list; the editor stays open with the choice.
    QVERIFY(!list->isVisible());
    QVERIFY(f.editor() == box);
    QCOMPARE(boost::any_cast<int>(box->getSelectedValue()), 2);
    QVERIFY(f.model.writes.empty());
    QVERIFY(!f.commits.contains(box));
    QVERIFY(!f.closed.contains(box));

    QTest::keyClick(Fixture::combo(box), Qt::Key_Return);
    settle();
    QVERIFY(f.editor() == nullptr);
    QCOMPARE(boost::any_cast<int>(f.model.value(0, 0)), 2);
    QCOMPARE(int(f.model.writes.size()), 3);
}

void ComboItemDelegateTest::keysOnTheClosedEditorDoNotCommit()
{
    Fixture f;
    QVERIFY(showActive(f.window));
    MultiEditEnumBox* box = f.open(0, 0);
    QVERIFY(box != nullptr);
    QSignalSpy activated(box, &SimpleEnumBox::activated);
    QTest::keyClick(Fixture::combo(box), Qt::Key_Down);
    QTest::keyClick(Fixture::combo(box), Qt::Key_Down);
    settle();
    QCOMPARE(activated.count(), 2);
    QVERIFY(f.commits.isEmpty());
    QVERIFY(f.hints.isEmpty());
    QCOMPARE(boost::any_cast<int>(box->getSelectedValue()), 3);
    QVERIFY(f.model.writes.empty());
}

void ComboItemDelegateTest::choiceByKeyboardStaysOpenAfterAClick()
{
    // The click that opened the list must not make the choice by keyboard final.
    Fixture f;
    QVERIFY(showActive(f.window));
    MultiEditEnumBox* box = f.open(0, 0);
    QVERIFY(box != nullptr);
    QTest::mouseClick(Fixture::combo(box), Qt::LeftButton);
    QAbstractItemView* list = Fixture::combo(box)->view();
    QVERIFY(list->isVisible());
    QVERIFY(box->property(commitProperty).toBool());
    settle();
    QVERIFY(!box->property(commitProperty).isValid());
    QTest::keyClick(list, Qt::Key_Down);
    QTest::keyClick(list, Qt::Key_Return);
    settle();
    QVERIFY(f.editor() == box);
    QVERIFY(f.model.writes.empty());
}

void ComboItemDelegateTest::endsOfEditing_data()
{
    QTest::addColumn<bool>("editable");
    QTest::addColumn<int>("key"); // 0 clicks elsewhere
    QTest::addColumn<QList<int>>("hints");
    QTest::addColumn<bool>("written");
    // The view takes the focus from the combo box when it closes the editor, and the filter calls
    // that an end of editing once more, before the hint that closes. Return goes to the combo box
    // and on to the editor around it, so it counts twice. The view follows only the first.
    const int none = QAbstractItemDelegate::NoHint;
    const int submit = QAbstractItemDelegate::SubmitModelCache;
    for (const bool editable : {false, true}) {
        const auto row = [editable](const char* name) -> QTestData& {
            return QTest::newRow(QByteArray(name) + (editable ? ", editable" : "")) << editable;
        };
        row("Return") << int(Qt::Key_Return) << QList<int>{none, submit, submit} << true;
        row("Enter") << int(Qt::Key_Enter) << QList<int>{none, submit, submit} << true;
        row("Tab") << int(Qt::Key_Tab) << QList<int>{none, int(QAbstractItemDelegate::EditNextItem)}
                   << true;
        row("Backtab") << int(Qt::Key_Backtab)
                       << QList<int>{none, int(QAbstractItemDelegate::EditPreviousItem)} << true;
        row("Escape") << int(Qt::Key_Escape)
                      << QList<int>{none, int(QAbstractItemDelegate::RevertModelCache)} << false;
        row("click elsewhere") << 0 << QList<int>{none} << true;
    }
}

void ComboItemDelegateTest::endsOfEditing()
{
    QFETCH(bool, editable);
    QFETCH(int, key);
    QFETCH(bool, written);
    Fixture f(editable ? boost::make_shared<WholeNumberValidator>() : nullptr);
    f.model.put(1, 0, 1, "IPE 200");
    f.model.put(1, 1, 1, "IPE 200");
    QVERIFY(showActive(f.window));
    QPointer<MultiEditEnumBox> box = f.open(0, 1);
    QVERIFY(box != nullptr);
    QTest::keyClick(Fixture::combo(box), Qt::Key_Down);
    if (key != 0) {
        QTest::keyClick(Fixture::combo(box), Qt::Key(key));
    } else {
        QTest::mouseClick(f.elsewhere, Qt::LeftButton);
    }
    settle();
    QTEST(f.hints, "hints");
    // Each closing hint is told with a commit, that of Escape excepted.
    QCOMPARE(f.commits.size(), f.hints.size() - (written ? 0 : 1));
    QVERIFY(!box);
    QCOMPARE(boost::any_cast<int>(f.model.value(0, 1)), written ? 3 : 2);
    QCOMPARE(int(f.model.writes.size()), written ? 3 : 0);
}

void ComboItemDelegateTest::escapeClosesTheListFirst()
{
    Fixture f;
    QVERIFY(showActive(f.window));
    MultiEditEnumBox* box = f.openList(0, 0);
    QVERIFY(box != nullptr);
    QAbstractItemView* list = Fixture::combo(box)->view();
    QTest::keyClick(list, Qt::Key_Down);
    QTest::keyClick(list, Qt::Key_Escape);
    settle();
    QVERIFY(!list->isVisible());
    QVERIFY(f.editor() == box);
    QCOMPARE(boost::any_cast<int>(box->getSelectedValue()), 1);
    QVERIFY(f.model.writes.empty());
    QTest::keyClick(Fixture::combo(box), Qt::Key_Escape);
    settle();
    QVERIFY(f.editor() == nullptr);
    QVERIFY(f.model.writes.empty());
}

void ComboItemDelegateTest::freeText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("display"); // empty for nothing written
    QTest::addColumn<int>("value");
    QTest::newRow("name of an entry") << "HEB 200"
                                      << "HEB 200" << 3;
    QTest::newRow("value of an entry") << "3"
                                       << "HEB 200" << 3;
    QTest::newRow("value in no entry") << "77"
                                       << "77" << 77;
    QTest::newRow("invalid") << "abc"
                             << "" << 1;
    QTest::newRow("no value") << ""
                              << "" << 1;
}

void ComboItemDelegateTest::freeText()
{
    QFETCH(QString, text);
    QFETCH(QString, display);
    QFETCH(int, value);
    Fixture f(boost::make_shared<WholeNumberValidator>());
    QVERIFY(showActive(f.window));
    MultiEditEnumBox* box = f.open(0, 0);
    QVERIFY(box != nullptr);
    QLineEdit* edit = Fixture::combo(box)->lineEdit();
    edit->selectAll();
    QTest::keyClick(Fixture::combo(box), Qt::Key_Delete);
    QTest::keyClicks(Fixture::combo(box), text);
    QCOMPARE(edit->text(), text);
    QTest::keyClick(Fixture::combo(box), Qt::Key_Return);
    settle();
    QVERIFY(f.editor() == nullptr);
    QCOMPARE(boost::any_cast<int>(f.model.value(0, 0)), value);
    QCOMPARE(f.model.cell(0, 0).text, QVariant(display.isEmpty() ? "IPE 200" : display));
    QCOMPARE(int(f.model.writes.size()), display.isEmpty() ? 0 : 3);
}

void ComboItemDelegateTest::varyingEditorWritesNothing()
{
    Fixture f;
    QVERIFY(showActive(f.window));
    MultiEditEnumBox* box = f.open(0, 0);
    QVERIFY(box != nullptr);
    box->readValue(2);
    QVERIFY(box->dataVaries());
    f.delegate->setModelData(box, &f.model, f.model.index(0, 0));
    // Stepping on to an entry leaves the values varying.
    box->previous();
    QVERIFY(box->dataVaries());
    QCOMPARE(boost::any_cast<int>(box->getSelectedValue()), 3);
    f.delegate->setModelData(box, &f.model, f.model.index(0, 0));
    QTest::keyClick(Fixture::combo(box), Qt::Key_Return);
    settle();
    QVERIFY(f.model.writes.empty());
    QVERIFY(f.editor() == nullptr);
}

void ComboItemDelegateTest::writesInOrder()
{
    Fixture f;
    QWidget parent;
    auto* box = qobject_cast<MultiEditEnumBox*>(
        f.delegate->createEditor(&parent, QStyleOptionViewItem(), f.model.index(0, 0)));
    f.delegate->setEditorData(box, f.model.index(0, 0));
    box->selectByName("HEB 200");
    QString textAtTheValue;
    f.model.written = [&](const QModelIndex& index, int role) {
        if (role == EditRole) {
            textAtTheValue = index.data().toString();
        }
    };
    f.delegate->setModelData(box, &f.model, f.model.index(0, 0));
    QCOMPARE(int(f.model.writes.size()), 3);
    QCOMPARE(f.model.writes[0].role, 0);
    QCOMPARE(f.model.writes[1].role, 3);
    QCOMPARE(f.model.writes[2].role, 257);
    QCOMPARE(f.model.itemWrites, 0);
    QCOMPARE(textAtTheValue, QString("HEB 200"));
}

void ComboItemDelegateTest::refusedWrites_data()
{
    QTest::addColumn<QList<int>>("refused");
    QTest::newRow("text") << QList<int>{0};
    QTest::newRow("tool tip") << QList<int>{3};
    QTest::newRow("value") << QList<int>{257};
    QTest::newRow("all") << QList<int>{0, 3, 257};
    QTest::newRow("none") << QList<int>{};
}

void ComboItemDelegateTest::refusedWrites()
{
    QFETCH(QList<int>, refused);
    Fixture f;
    QWidget parent;
    auto* box = qobject_cast<MultiEditEnumBox*>(
        f.delegate->createEditor(&parent, QStyleOptionViewItem(), f.model.index(0, 0)));
    f.model.refuse = [&](int role) { return refused.contains(role); };
    f.delegate->setModelData(box, &f.model, f.model.index(0, 1));
    QCOMPARE(int(f.model.writes.size()), 3);
    const auto reports = takeReports();
    QCOMPARE(int(reports.size()), refused.size());
    for (int i = 0; i < refused.size(); ++i) {
        const std::string message =
            refused[i] == 0   ? "model->setData( index, display, qt::DisplayRole )"
            : refused[i] == 3 ? "model->setData( index, display, qt::ToolTipRole )"
                              : "model->setData( index, QVariant::fromValue<any>(editData), "
                                "qt::EditRole )";
        QCOMPARE(reports[std::size_t(i)].expression, std::string("ok"));
        QCOMPARE(reports[std::size_t(i)].message, message);
        QCOMPARE(reports[std::size_t(i)].file,
                 std::string("qt/delegates/enumbox/combo_item_delegate.cpp"));
    }
}

void ComboItemDelegateTest::modelThatSortsByTheText()
{
    // The first of the three writes moves the row; the others belong to it all the same.
    Fixture f;
    f.model.put(1, 0, 2, "IPE 300");
    QSortFilterProxyModel sorted;
    sorted.setSourceModel(&f.model);
    sorted.setDynamicSortFilter(true);
    sorted.sort(0, Qt::AscendingOrder);
    QWidget parent;
    auto* box = qobject_cast<MultiEditEnumBox*>(
        f.delegate->createEditor(&parent, QStyleOptionViewItem(), sorted.index(1, 0)));
    box->selectByName("HEB 200");
    f.delegate->setModelData(box, &sorted, sorted.index(1, 0));
    QCOMPARE(boost::any_cast<int>(f.model.value(0, 0)), 1);
    QCOMPARE(f.model.cell(0, 0).toolTip, QVariant("IPE 200"));
    QCOMPARE(boost::any_cast<int>(f.model.value(1, 0)), 3);
    QCOMPARE(f.model.cell(1, 0).toolTip, QVariant("HEB 200"));
}

void ComboItemDelegateTest::modelThatHidesTheRow()
{
    // A filter drops the row at the first of the three writes; the others belong to it all the
    // same.
    Fixture f;
    f.model.put(1, 0, 2, "IPE 300");
    QSortFilterProxyModel filtered;
    filtered.setSourceModel(&f.model);
    filtered.setDynamicSortFilter(true);
    filtered.setFilterRegularExpression(QRegularExpression("IPE"));
    QWidget parent;
    auto* box = qobject_cast<MultiEditEnumBox*>(
        f.delegate->createEditor(&parent, QStyleOptionViewItem(), filtered.index(0, 0)));
    box->selectByName("HEB 200");
    f.delegate->setModelData(box, &filtered, filtered.index(0, 0));
    QCOMPARE(filtered.rowCount(), 1);
    QCOMPARE(f.model.cell(0, 0).text, QVariant("HEB 200"));
    QCOMPARE(f.model.cell(0, 0).toolTip, QVariant("HEB 200"));
    QCOMPARE(boost::any_cast<int>(f.model.value(0, 0)), 3);
    QCOMPARE(boost::any_cast<int>(f.model.value(1, 0)), 2);
    QCOMPARE(f.model.cell(1, 0).toolTip, QVariant("IPE 300"));
    QCOMPARE(int(f.model.writes.size()), 3);
}

void ComboItemDelegateTest::persistentEditorShowsWhatWasWritten()
{
    Fixture f;
    QVERIFY(showActive(f.window));
    f.view->openPersistentEditor(f.model.index(0, 0));
    MultiEditEnumBox* box = f.editor();
    QVERIFY(box != nullptr);
    Fixture::combo(box)->setFocus();
    QTest::keyClick(Fixture::combo(box), Qt::Key_Down, Qt::AltModifier);
    Fixture::clickItem(box, 2);
    settle();
    QVERIFY(f.editor() == box);
    QCOMPARE(boost::any_cast<int>(f.model.value(0, 0)), 3);
    QVERIFY(!box->dataVaries());
    QCOMPARE(Fixture::combo(box)->currentText(), QString("HEB 200"));
    QCOMPARE(Fixture::combo(box)->count(), 3);
    Fixture::combo(box)->setFocus();
    QTest::keyClick(Fixture::combo(box), Qt::Key_Up);
    QTest::mouseClick(f.elsewhere, Qt::LeftButton);
    settle();
    QCOMPARE(boost::any_cast<int>(f.model.value(0, 0)), 2);
}

void ComboItemDelegateTest::clickInAPersistentEditorWithoutFocus()
{
    Fixture f;
    QVERIFY(showActive(f.window));
    f.view->openPersistentEditor(f.model.index(0, 0));
    MultiEditEnumBox* box = f.editor();
    QVERIFY(box != nullptr);
    f.view->setFocus();
    Fixture::combo(box)->showPopup();
    settle();
    Fixture::clickItem(box, 2);
    QCOMPARE(boost::any_cast<int>(f.model.value(0, 0)), 3);
    QVERIFY(f.editor() == box);
}

void ComboItemDelegateTest::markOfTheMouseIsPassing()
{
    Fixture f;
    QWidget parent;
    auto* box = qobject_cast<MultiEditEnumBox*>(
        f.delegate->createEditor(&parent, QStyleOptionViewItem(), f.model.index(0, 0)));
    QWidget* viewport = Fixture::combo(box)->view()->viewport();
    QMouseEvent press(QEvent::MouseButtonPress, QPointF(1, 1), Qt::LeftButton, Qt::LeftButton, {});
    f.delegate->eventFilter(viewport, &press);
    QVERIFY(!box->property(commitProperty).isValid());
    QMouseEvent release(QEvent::MouseButtonRelease, QPointF(1, 1), Qt::LeftButton, Qt::NoButton,
                        {});
    f.delegate->eventFilter(viewport, &release);
    QCOMPARE(box->property(commitProperty), QVariant(true));
    // A view that is told of the end of editing while the list closes delivers what is pending for
    // the editor. The choice is told behind that.
    QCoreApplication::sendPostedEvents(box, 0);
    QCOMPARE(box->property(commitProperty), QVariant(true));
    Q_EMIT box->activated(0);
    QCOMPARE(f.commits, QList<QWidget*>{box});
    QCOMPARE(f.hints, QList<int>{3});
    settle();
    QVERIFY(!box->property(commitProperty).isValid());
    Q_EMIT box->activated(0);
    QCOMPARE(f.commits.size(), 1);

    // Elsewhere a release means nothing.
    f.delegate->eventFilter(&parent, &release);
    QVERIFY(!parent.property(commitProperty).isValid());
}

void ComboItemDelegateTest::boxGoneBeforeTheMarkIsCleared()
{
    Fixture f;
    auto parent = std::make_unique<QWidget>();
    auto* box = qobject_cast<MultiEditEnumBox*>(
        f.delegate->createEditor(parent.get(), QStyleOptionViewItem(), f.model.index(0, 0)));
    QMouseEvent release(QEvent::MouseButtonRelease, QPointF(1, 1), Qt::LeftButton, Qt::NoButton,
                        {});
    f.delegate->eventFilter(box, &release);
    parent.reset();
    settle();
    QVERIFY(f.commits.isEmpty());
}

void ComboItemDelegateTest::emitCommitData_data()
{
    QTest::addColumn<QString>("state");
    QTest::addColumn<int>("signals");
    QTest::addColumn<QStringList>("reports");
    QTest::newRow("value") << "value" << 1 << QStringList{};
    QTest::newRow("varying") << "varying" << 0
                             << QStringList{"!editor->getSelectedValue().empty()"};
    QTest::newRow("varying on an entry") << "stepped" << 0 << QStringList{};
    QTest::newRow("no entries") << "no entries" << 0
                                << QStringList{"!editor->getSelectedValue().empty()"};
}

void ComboItemDelegateTest::emitCommitData()
{
    QFETCH(QString, state);
    QFETCH(int, signals);
    Fixture f;
    QWidget parent;
    auto* box = qobject_cast<MultiEditEnumBox*>(
        f.delegate->createEditor(&parent, QStyleOptionViewItem(), f.model.index(0, 0)));
    if (state == "varying") {
        box->forceVaries();
    } else if (state == "stepped") {
        box->forceVaries();
        box->previous();
    } else if (state == "no entries") {
        box->setValues({});
    }
    QVERIFY(QObject::connect(box, SIGNAL(activated(int)), f.delegate, SLOT(emitCommitData())));
    Q_EMIT box->activated(0);
    QCOMPARE(f.commits.size(), signals);
    QCOMPARE(f.hints, signals == 1 ? QList<int>{3} : QList<int>{});
    QTEST(takeExpressions(), "reports");

    // Called by nobody it does nothing.
    QVERIFY(QMetaObject::invokeMethod(f.delegate, "emitCommitData"));
    QCOMPARE(f.commits.size(), signals);
    const QMetaObject& meta = ComboItemDelegate::staticMetaObject;
    QCOMPARE(meta.methodCount() - meta.methodOffset(), 1);
}

void ComboItemDelegateTest::listKeepsTheEditorOpen()
{
    // The focus goes to the list and comes back: none of that is the end of editing.
    Fixture f;
    QVERIFY(showActive(f.window));
    MultiEditEnumBox* box = f.openList(0, 0);
    QVERIFY(box != nullptr);
    settle();
    QVERIFY(f.editor() == box);
    Fixture::combo(box)->hidePopup();
    settle();
    QVERIFY(f.editor() == box);
    QVERIFY(!f.closed.contains(box));
    QVERIFY(!f.commits.contains(box));
}

void ComboItemDelegateTest::outsideAnEditor()
{
    Fixture f;
    QStyleOptionViewItem option;
    option.rect = QRect(0, 0, 80, 20);
    const QModelIndex index = f.model.index(0, 0);
    struct Open : ComboItemDelegate
    {
        using ComboItemDelegate::ComboItemDelegate;
        using ComboItemDelegate::editorEvent;
    };
    Open delegate(nullptr, {}, equalNumbers, nullptr);
    QKeyEvent space(QEvent::KeyPress, Qt::Key_Space, Qt::NoModifier);
    f.model.extraFlags = Qt::ItemIsUserCheckable;
    f.model.cell(0, 0).check = Qt::Unchecked;
    option.state = QStyle::State_Enabled;
    QVERIFY(!delegate.editorEvent(&space, &f.model, option, index));
    QVERIFY(f.model.writes.empty());
    QCOMPARE(delegate.sizeHint(option, index), QItemDelegate().sizeHint(option, index));
    const auto painted = [&](const QAbstractItemDelegate& d) {
        QImage image(80, 20, QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        d.paint(&painter, option, index);
        return image;
    };
    QCOMPARE(painted(delegate), painted(QItemDelegate()));
    QWidget editor;
    QWidget plain;
    delegate.updateEditorGeometry(&editor, option, index);
    QItemDelegate().updateEditorGeometry(&plain, option, index);
    QCOMPARE(editor.geometry(), plain.geometry());
}

void ComboItemDelegateTest::wrongEditor()
{
    Fixture f;
    QWidget widget;
    f.delegate->setEditorData(&widget, f.model.index(0, 0));
    f.delegate->setModelData(&widget, &f.model, f.model.index(0, 0));
    QVERIFY(f.model.writes.empty());
}

void ComboItemDelegateTest::closesWith_data()
{
    QTest::addColumn<QString>("what");
    QTest::addColumn<bool>("listOpen");
    QTest::addColumn<bool>("editable");
    for (const char* what : {"row removed", "model reset", "model gone", "view gone",
                             "delegate gone", "window closed", "editor gone"}) {
        QTest::newRow(what) << what << false << false;
        QTest::newRow(QByteArray(what) + ", list open") << what << true << false;
        QTest::newRow(QByteArray(what) + ", list open, editable") << what << true << true;
    }
}

void ComboItemDelegateTest::closesWith()
{
    QFETCH(QString, what);
    QFETCH(bool, listOpen);
    QFETCH(bool, editable);
    TypedTableModel other(1, 1);
    auto f =
        std::make_unique<Fixture>(editable ? boost::make_shared<WholeNumberValidator>() : nullptr);
    QVERIFY(showActive(f->window));
    QPointer<MultiEditEnumBox> box = listOpen ? f->openList(0, 0) : f->open(0, 0);
    QVERIFY(box != nullptr);
    QPointer<QWidget> list = Fixture::combo(box)->view();
    if (what == "row removed") {
        f->model.removeRows(0, 1);
    } else if (what == "model reset") {
        f->model.reset(2);
    } else if (what == "model gone") {
        f->view->setModel(&other);
    } else if (what == "view gone") {
        delete f->view;
    } else if (what == "delegate gone") {
        delete f->delegate;
    } else if (what == "window closed") {
        f->window.close();
    } else {
        delete box;
    }
    settle();
    if (list && list->isVisible()) {
        QTest::keyClick(list, Qt::Key_Down);
        QTest::keyClick(list, Qt::Key_Return);
    }
    settle();
    if (what == "row removed" || what == "model reset" || what == "model gone") {
        QVERIFY(!box);
        QVERIFY(!list);
    }
    QVERIFY(other.writes.empty());
    f.reset();
    settle();
    QVERIFY(!box);
    QVERIFY(!list);
    QVERIFY(QApplication::activePopupWidget() == nullptr);
}

void ComboItemDelegateTest::modelThatAsksTheUser()
{
    Fixture f;
    QVERIFY(showActive(f.window));
    QPointer<MultiEditEnumBox> box = f.openList(0, 0);
    QVERIFY(box != nullptr);
    int asked = 0;
    bool aliveAfterwards = false;
    f.model.written = [&](const QModelIndex&, int role) {
        if (role != EditRole) {
            return;
        }
        ++asked;
        QWidget question;
        question.show();
        QApplication::setActiveWindow(&question);
        QEventLoop loop;
        QTimer::singleShot(0, &loop, [&] { QTimer::singleShot(0, &loop, &QEventLoop::quit); });
        loop.exec();
        aliveAfterwards = !box.isNull();
    };
    Fixture::clickItem(box, 2);
    QCOMPARE(asked, 1);
    QVERIFY(aliveAfterwards);
    settle();
    QVERIFY(!box);
    QCOMPARE(boost::any_cast<int>(f.model.value(0, 0)), 3);
}

QTEST_MAIN(ComboItemDelegateTest)
#include "tst_combo_item_delegate.moc"
