#include "qt/inc/delegates.h"
#include "qt/inc/detail/line_edit_impl.h"
#include "qt/inc/validators/string_edit_validator.h"
#include "tests/helpers/checked_test.h"
#include "tests/helpers/typed_table_model.h"
#include "tests/helpers/whole_number_validator.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QContextMenuEvent>
#include <QEventLoop>
#include <QHeaderView>
#include <QIdentityProxyModel>
#include <QPainter>
#include <QPointer>
#include <QPushButton>
#include <QSignalSpy>
#include <QSortFilterProxyModel>
#include <QTableView>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>

#include <boost/make_shared.hpp>

#include <memory>
#include <utility>

using namespace zel::qt;
using zel::test::TypedTableModel;
using zel::test::WholeNumberValidator;

/// A value of a host that knows how to become a boost::any.
struct Length
{
    int metres;
};
Q_DECLARE_METATYPE(Length)

namespace {

constexpr auto toAny = &QVariant::fromValue<boost::any>;

/// A window with a table of two rows and three columns and a button to put the focus on. The cells
/// hold 10 to 15, apart from that at (1, 2), which has no typed value.
struct Fixture
{
    Fixture()
    {
        validator->setPostfix("kN");
        for (int i = 0; i < 5; ++i) {
            model.put(i / 3, i % 3, 10 + i, QString::number(10 + i) + " kN");
        }
        model.cell(1, 2).text = "plain";
        delegate = new LineEditItemDelegate(validator, view);
        view->setModel(&model);
        view->setItemDelegate(delegate);
        auto* layout = new QVBoxLayout(&window);
        layout->addWidget(view);
        layout->addWidget(elsewhere);
        window.resize(500, 300);
        QObject::connect(delegate, &QAbstractItemDelegate::commitData, delegate,
                         [this] { ++commits; });
        QObject::connect(
            delegate, &QAbstractItemDelegate::closeEditor, delegate,
            [this](QWidget*, QAbstractItemDelegate::EndEditHint hint) { hints << int(hint); });
    }

    bool show()
    {
        window.show();
        QApplication::setActiveWindow(&window);
        return QTest::qWaitForWindowActive(&window);
    }

    /// Opens the editor of a cell as a user does, by a double click.
    detail::LineEditImpl* open(int row, int column)
    {
        const QPoint centre = view->visualRect(model.index(row, column)).center();
        QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, centre);
        QTest::mouseDClick(view->viewport(), Qt::LeftButton, {}, centre);
        return editor();
    }

    detail::LineEditImpl* editor() const
    {
        for (auto* edit : view->viewport()->findChildren<detail::LineEditImpl*>()) {
            if (edit->isVisible()) {
                return edit;
            }
        }
        return nullptr;
    }

    int commits = 0; // before the window, whose end commits too
    QList<int> hints;
    TypedTableModel model{2, 3};
    QAbstractItemModelTester tester{&model,
                                    QAbstractItemModelTester::FailureReportingMode::Warning};
    boost::shared_ptr<WholeNumberValidator> validator = boost::make_shared<WholeNumberValidator>();
    QWidget window;
    QTableView* view = new QTableView(&window);
    QPushButton* elsewhere = new QPushButton("elsewhere", &window);
    LineEditItemDelegate* delegate;
};

void settle()
{
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

} // namespace

class LineEditItemDelegateTest : public zel::test::CheckedTest
{
    Q_OBJECT
private Q_SLOTS:
    void roles();
    void cellsWithoutTypedValue_data();
    void cellsWithoutTypedValue();
    void rightToLeftLayout_data();
    void rightToLeftLayout();
    void opensWithAllTextSelected();
    void gestures_data();
    void gestures();
    void refusedTextLeavesTheCell_data();
    void refusedTextLeavesTheCell();
    void askedInTheCLocale();
    void valueConvertedFromAnotherType();
    void longTextStays();
    void wrongEditor();
    void button();
    void buttonThatAsksTheUser_data();
    void buttonThatAsksTheUser();
    void noButton();
    void commitOnlyLeavesTheEditorOpen();
    void commitOnlyDeliversWhatIsPending();
    void slotOrder();
    void editorFillsItsCell();
    void closesWith_data();
    void closesWith();
    void modelThatAsksTheUser();
    void helperEdit();
    void contextMenuLeavesTheEditorOpen();
    void modelThatMovesOrHidesTheRow_data();
    void modelThatMovesOrHidesTheRow();
};

void LineEditItemDelegateTest::roles()
{
    QCOMPARE(DisplayRole, int(Qt::DisplayRole));
    QCOMPARE(ToolTipRole, int(Qt::ToolTipRole));
    QCOMPARE(EditRole, int(Qt::UserRole) + 1);
    const QVariant variant = toAny(boost::any(7));
    QVERIFY(variant.canConvert<boost::any>());
    QCOMPARE(boost::any_cast<int>(variant.value<boost::any>()), 7);
    QVERIFY(toAny(boost::any()).isValid());
    QVERIFY(toAny(boost::any()).value<boost::any>().empty());
}

void LineEditItemDelegateTest::cellsWithoutTypedValue_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<bool>("editable");
    QTest::newRow("nothing") << QVariant() << false;
    QTest::newRow("plain number") << QVariant(5) << false;
    QTest::newRow("plain text") << QVariant("5") << false;
    QTest::newRow("empty any") << toAny(boost::any()) << true;
    QTest::newRow("number in an any") << toAny(boost::any(5)) << true;
}

void LineEditItemDelegateTest::cellsWithoutTypedValue()
{
    QFETCH(QVariant, value);
    QFETCH(bool, editable);
    Fixture f;
    f.model.cell(1, 2).value = value;
    f.model.cell(1, 2).text = QString(40, QChar(0x2588));
    QVERIFY(f.show());
    QCOMPARE(f.open(1, 2) != nullptr, editable);
    QCOMPARE(f.commits, 0);

    const QModelIndex index = f.model.index(1, 2);
    QStyleOptionViewItem option;
    option.rect = QRect(0, 0, 60, 20);
    option.state = QStyle::State_Enabled | QStyle::State_Selected | QStyle::State_Active;
    option.palette.setColor(QPalette::Highlight, Qt::darkBlue);
    QImage image(62, 22, QImage::Format_RGB32);
    image.fill(Qt::magenta);
    QPainter painter(&image);
    f.delegate->paint(&painter, option, index);
    painter.end();
    if (editable) {
        QCOMPARE(QColor(image.pixel(0, 0)), QColor(Qt::darkBlue));
        return;
    }
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const bool inside = x >= 1 && x <= 57 && y >= 1 && y <= 17;
            QCOMPARE(QColor(image.pixel(x, y)), QColor(inside ? Qt::white : Qt::magenta));
        }
    }
}

void LineEditItemDelegateTest::rightToLeftLayout_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("negative") << "-0.150";
    QTest::newRow("unit") << "-2.5 kN/m2";
    QTest::newRow("feet and inches") << "-5' 6 1/2''";
}

void LineEditItemDelegateTest::rightToLeftLayout()
{
    QFETCH(QString, text);
    Fixture f;
    f.model.put(0, 0, 1, text);
    const auto painted = [&f](Qt::LayoutDirection direction, Qt::Alignment alignment) {
        QStyleOptionViewItem option;
        option.rect = QRect(0, 0, 160, 30);
        option.state = QStyle::State_Enabled;
        option.direction = direction;
        option.displayAlignment = alignment;
        QImage image(160, 30, QImage::Format_RGB32);
        image.fill(Qt::white);
        QPainter painter(&image);
        painter.setLayoutDirection(direction);
        f.delegate->paint(&painter, option, f.model.index(0, 0));
        return image;
    };
    const QImage onTheLeft = painted(Qt::LeftToRight, Qt::AlignLeft);
    const QImage onTheRight = painted(Qt::LeftToRight, Qt::AlignRight);
    QVERIFY(onTheLeft != onTheRight);
    // The sides are exchanged, the text is not.
    QCOMPARE(painted(Qt::RightToLeft, Qt::AlignLeft), onTheRight);
    QCOMPARE(painted(Qt::RightToLeft, Qt::AlignRight), onTheLeft);
}

void LineEditItemDelegateTest::opensWithAllTextSelected()
{
    Fixture f;
    QVERIFY(f.show());
    auto* editor = f.open(0, 1);
    QVERIFY(editor != nullptr);
    QCOMPARE(editor->text(), QString("11")); // without the postfix of the display
    QCOMPARE(editor->selectedText(), QString("11"));
    QVERIFY(editor->hasFocus());
    QCOMPARE(f.commits, 0);
    QCOMPARE(f.hints, QList<int>());
}

void LineEditItemDelegateTest::gestures_data()
{
    // What comes really: the filter of QItemDelegate and each editingFinished() of the edit commit
    // and close, and the edit finishes once more when the view takes the focus from it. That last
    // one is told from within the closing, so before the hint that closes. The view follows only
    // the first, after which it does not know the editor any more.
    QTest::addColumn<int>("key"); // 0 clicks elsewhere
    QTest::addColumn<QString>("typed");
    QTest::addColumn<int>("commits");
    QTest::addColumn<QList<int>>("hints");
    QTest::addColumn<bool>("written");
    QTest::addColumn<int>("nextColumn"); // of the editor that is open afterwards; -1 for none
    const int none = QAbstractItemDelegate::NoHint;
    const int next = QAbstractItemDelegate::EditNextItem;
    const int previous = QAbstractItemDelegate::EditPreviousItem;
    const int submit = QAbstractItemDelegate::SubmitModelCache;
    const int revert = QAbstractItemDelegate::RevertModelCache;
    const QList<int> returned{none, none, submit};
    QTest::newRow("Return") << int(Qt::Key_Return) << "77" << 3 << returned << true << -1;
    QTest::newRow("Enter") << int(Qt::Key_Enter) << "77" << 3 << returned << true << -1;
    QTest::newRow("Return, unchanged") << int(Qt::Key_Return) << "" << 3 << returned << true << -1;
    QTest::newRow("Tab") << int(Qt::Key_Tab) << "77" << 2 << QList<int>{none, next} << true << 2;
    QTest::newRow("Backtab") << int(Qt::Key_Backtab) << "77" << 2 << QList<int>{none, previous}
                             << true << 0;
    QTest::newRow("Escape") << int(Qt::Key_Escape) << "77" << 1 << QList<int>{none, revert} << false
                            << -1;
    QTest::newRow("click elsewhere") << 0 << "77" << 2 << QList<int>{none, none} << true << -1;
    QTest::newRow("click elsewhere, unchanged")
        << 0 << "" << 2 << QList<int>{none, none} << true << -1;
}

void LineEditItemDelegateTest::gestures()
{
    QFETCH(int, key);
    QFETCH(QString, typed);
    QFETCH(bool, written);
    QFETCH(int, nextColumn);
    Fixture f;
    QVERIFY(f.show());
    f.elsewhere->setFocusPolicy(Qt::StrongFocus);
    auto* editor = f.open(0, 1);
    QVERIFY(editor != nullptr);
    f.validator->calls.clear();
    QTest::keyClicks(editor, typed);
    QCOMPARE(f.model.itemWrites, 0);
    if (key != 0) {
        QTest::keyClick(editor, Qt::Key(key));
    } else {
        QTest::mouseClick(f.elsewhere, Qt::LeftButton);
    }
    settle();
    QTEST(f.commits, "commits");
    QTEST(f.hints, "hints");
    const QString number = typed.isEmpty() ? QString("11") : typed;
    if (written) {
        QCOMPARE(f.model.itemWrites, 1);
        QCOMPARE(int(f.model.writes.size()), 3);
        QCOMPARE(f.model.writes[0].role, 0);
        QCOMPARE(f.model.writes[1].role, 3);
        QCOMPARE(f.model.writes[2].role, 257);
        QCOMPARE(f.model.cell(0, 1).text, QVariant(number + " kN"));
        QCOMPARE(f.model.cell(0, 1).toolTip, QVariant(number + " kN"));
        QCOMPARE(boost::any_cast<int>(f.model.value(0, 1)), number.toInt());
        QVERIFY(!f.validator->calls.contains("validateWhenFinished"));
    } else {
        QCOMPARE(f.model.itemWrites, 0);
        QVERIFY(f.model.writes.empty());
    }
    auto* open = f.editor();
    QCOMPARE(open != nullptr, nextColumn >= 0);
    if (open != nullptr) {
        QCOMPARE(f.view->currentIndex().column(), nextColumn);
        QCOMPARE(open->text(), QString::number(10 + nextColumn));
    }
}

void LineEditItemDelegateTest::refusedTextLeavesTheCell_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("refused") << "abc";
    QTest::newRow("partly a number") << "12 m";
    QTest::newRow("stands for no value") << "";
}

void LineEditItemDelegateTest::refusedTextLeavesTheCell()
{
    QFETCH(QString, text);
    Fixture f;
    QVERIFY(f.show());
    auto* editor = f.open(0, 1);
    QVERIFY(editor != nullptr);
    QTest::keyClick(editor, Qt::Key_Delete);
    QTest::keyClicks(editor, text);
    QCOMPARE(editor->text(), text);
    QTest::keyClick(editor, Qt::Key_Return);
    settle();
    QVERIFY(f.editor() == nullptr);
    QCOMPARE(f.model.itemWrites, 0);
    QVERIFY(f.model.writes.empty());
    QCOMPARE(f.model.cell(0, 1).text, QVariant("11 kN"));
    QCOMPARE(f.model.cell(0, 1).toolTip, QVariant("11 kN"));
    QCOMPARE(boost::any_cast<int>(f.model.value(0, 1)), 11);
}

void LineEditItemDelegateTest::askedInTheCLocale()
{
    Fixture f;
    QLineEdit editor;
    f.delegate->setEditorData(&editor, f.model.index(0, 0));
    QCOMPARE(f.validator->calls, QStringList{"reformat 0"});
    f.validator->calls.clear();
    f.delegate->setModelData(&editor, &f.model, f.model.index(0, 0));
    QCOMPARE(f.validator->calls, (QStringList{"validate 10 0", "reformat 0"}));
}

void LineEditItemDelegateTest::valueConvertedFromAnotherType()
{
    QVERIFY((QMetaType::registerConverter<Length, boost::any>(
        [](const Length& length) { return boost::any(length.metres); })));
    Fixture f;
    f.model.cell(1, 2).value = QVariant::fromValue(Length{42});
    QVERIFY(f.show());
    auto* editor = f.open(1, 2);
    QVERIFY(editor != nullptr);
    QCOMPARE(editor->text(), QString("42"));
}

void LineEditItemDelegateTest::longTextStays()
{
    // An edit takes 32767 characters of itself.
    const std::wstring text = std::wstring(40000, L'a') + L"b";
    Fixture f;
    f.model.put(0, 0, text);
    LineEditItemDelegate delegate(boost::make_shared<StringEditValidator>(50000), nullptr);
    f.view->setItemDelegate(&delegate);
    QVERIFY(f.show());
    auto* editor = f.open(0, 0);
    QVERIFY(editor != nullptr);
    QVERIFY(editor->text() == QString::fromStdWString(text));
    QTest::keyClick(editor, Qt::Key_Return);
    settle();
    QVERIFY(f.editor() == nullptr);
    QVERIFY(boost::any_cast<std::wstring>(f.model.value(0, 0)) == text);
    f.view->setItemDelegate(f.delegate);
}

void LineEditItemDelegateTest::wrongEditor()
{
    Fixture f;
    QWidget widget;
    f.delegate->setEditorData(&widget, f.model.index(0, 0));
    f.delegate->setModelData(&widget, &f.model, f.model.index(0, 0));
    QVERIFY(f.model.writes.empty());
    const auto reports = takeReports();
    QCOMPARE(int(reports.size()), 2);
    for (const auto& report : reports) {
        QCOMPARE(report.expression, std::string("edit"));
        QCOMPARE(report.file, std::string("qt/delegates/lineedit/line_edit_item_delegate.cpp"));
    }
    // Any QLineEdit does, also one that the delegate has not made.
    QLineEdit edit;
    f.delegate->setEditorData(&edit, f.model.index(0, 2));
    QCOMPARE(edit.text(), QString("12"));
    QCOMPARE(edit.selectedText(), QString("12"));
}

void LineEditItemDelegateTest::button()
{
    Fixture f;
    auto* delegate = new LineEditItemDelegate(
        f.validator, [](const QString& text) { return text + "0"; }, f.view);
    f.view->setItemDelegate(delegate);
    QVERIFY(f.show());
    auto* editor = f.open(0, 1);
    QVERIFY(editor != nullptr);
    auto* inner = editor->findChild<QToolButton*>();
    QVERIFY(inner != nullptr);
    QVERIFY(!inner->icon().isNull());
    QCOMPARE(editor->minimumHeight(), 16); // that of an edit without a frame
    QTest::mouseClick(inner, Qt::LeftButton);
    QCOMPARE(editor->text(), QString("110"));
    QCOMPARE(editor->selectedText(), QString("110"));
    QCOMPARE(f.model.itemWrites, 0);
    QVERIFY(editor->isVisible());
    QTest::keyClick(editor, Qt::Key_Return);
    settle();
    QCOMPARE(f.model.itemWrites, 1);
    QCOMPARE(boost::any_cast<int>(f.model.value(0, 1)), 110);
}

void LineEditItemDelegateTest::buttonThatAsksTheUser_data()
{
    QTest::addColumn<QString>("what");
    QTest::newRow("dialog") << "dialog";
    QTest::newRow("dialog, behind a forwarding delegate") << "forward";
    QTest::newRow("focus to another widget") << "focus";
    QTest::newRow("row removed meanwhile") << "removed";
    QTest::newRow("view gone meanwhile") << "view gone";
}

void LineEditItemDelegateTest::buttonThatAsksTheUser()
{
    // The question takes the focus away from the edit, but the answer is still to come into it.
    QFETCH(QString, what);
    Fixture f;
    const auto ask = [&](const QString& text) {
        QWidget question;
        if (what == "focus") {
            f.elsewhere->setFocus();
        } else {
            question.show();
            QApplication::setActiveWindow(&question);
        }
        if (what == "removed") {
            f.model.removeRows(0, 1);
        } else if (what == "view gone") {
            delete std::exchange(f.view, nullptr);
        }
        QEventLoop loop;
        QTimer::singleShot(0, &loop, [&] { QTimer::singleShot(0, &loop, &QEventLoop::quit); });
        loop.exec();
        return text + "0";
    };
    auto* delegate = new LineEditItemDelegate(f.validator, ask, f.view);
    if (what == "forward") {
        auto* chosen = new ForwardDelegate(*f.view);
        chosen->setItemDelegate(delegate);
        f.view->setItemDelegate(chosen);
    } else {
        f.view->setItemDelegate(delegate);
    }
    QVERIFY(f.show());
    f.elsewhere->setFocusPolicy(Qt::StrongFocus);
    QPointer<detail::LineEditImpl> editor = f.open(0, 1);
    QVERIFY(editor != nullptr);
    QTest::mouseClick(editor->findChild<QToolButton*>(), Qt::LeftButton);
    QCOMPARE(f.model.itemWrites, 0);
    if (what == "removed" || what == "view gone") {
        settle();
        QVERIFY(!editor);
        return;
    }
    QVERIFY(editor != nullptr);
    QVERIFY(editor->isVisible());
    QCOMPARE(editor->selectedText(), QString("110"));
    QApplication::setActiveWindow(&f.window);
    settle();
    QVERIFY(editor != nullptr);
    QVERIFY(editor->hasFocus());
    QTest::keyClick(editor, Qt::Key_Return);
    settle();
    QVERIFY(!editor);
    QCOMPARE(f.model.itemWrites, 1);
    QCOMPARE(boost::any_cast<int>(f.model.value(0, 1)), 110);
}

void LineEditItemDelegateTest::noButton()
{
    Fixture f;
    QVERIFY(f.show());
    auto* editor = f.open(0, 1);
    QVERIFY(editor != nullptr);
    QVERIFY(editor->findChild<QToolButton*>() == nullptr);
    QTest::keyClick(editor, Qt::Key_Escape);
    settle();

    // A delegate without a validator paints and makes editors.
    LineEditItemDelegate bare(nullptr);
    std::unique_ptr<QWidget> made(
        bare.createEditor(f.view->viewport(), QStyleOptionViewItem(), f.model.index(0, 0)));
    QVERIFY(qobject_cast<detail::LineEditImpl*>(made.get()) != nullptr);
    QVERIFY(bare.createEditor(f.view->viewport(), QStyleOptionViewItem(), f.model.index(1, 2)) ==
            nullptr);
}

void LineEditItemDelegateTest::commitOnlyLeavesTheEditorOpen()
{
    Fixture f;
    QVERIFY(f.show());
    auto* editor = f.open(0, 1);
    QVERIFY(editor != nullptr);
    QVERIFY(QObject::connect(editor, SIGNAL(textEdited(QString)), f.delegate, SLOT(commitOnly())));
    QTest::keyClicks(editor, "5"); // replaces the selected text
    QCOMPARE(f.commits, 1);
    QCOMPARE(f.hints, QList<int>());
    QVERIFY(editor->isVisible());
    QVERIFY(f.editor() == editor);

    // Called by nobody, it commits no editor at all.
    QVERIFY(QMetaObject::invokeMethod(f.delegate, "commitOnly"));
    QCOMPARE(f.commits, 2);
    QVERIFY(QMetaObject::invokeMethod(f.delegate, "commitAndCloseEditor"));
    QCOMPARE(f.commits, 3);
    QCOMPARE(f.hints, QList<int>{int(QAbstractItemDelegate::NoHint)});
    QVERIFY(f.editor() == editor);
}

void LineEditItemDelegateTest::commitOnlyDeliversWhatIsPending()
{
    struct Edit : QLineEdit
    {
        bool event(QEvent* e) override
        {
            received += e->type() == QEvent::User ? 1 : 0;
            return QLineEdit::event(e);
        }
        int received = 0;
    };
    Fixture f;
    Edit edit;
    Edit other;
    QVERIFY(QObject::connect(&edit, SIGNAL(returnPressed()), f.delegate, SLOT(commitOnly())));
    QList<int> receivedAtTheCommit;
    connect(f.delegate, &QAbstractItemDelegate::commitData, this,
            [&] { receivedAtTheCommit << edit.received; });
    QCoreApplication::postEvent(&edit, new QEvent(QEvent::User));
    QCoreApplication::postEvent(&other, new QEvent(QEvent::User));
    Q_EMIT edit.returnPressed();
    disconnect(f.delegate, nullptr, this, nullptr);
    QCOMPARE(receivedAtTheCommit, QList<int>{0}); // only after it
    QCOMPARE(edit.received, 1);
    QCOMPARE(other.received, 0);
    QCOMPARE(f.hints, QList<int>());
}

void LineEditItemDelegateTest::slotOrder()
{
    const QMetaObject& meta = LineEditItemDelegate::staticMetaObject;
    QCOMPARE(meta.methodCount() - meta.methodOffset(), 2);
    QCOMPARE(meta.method(meta.methodOffset()).methodSignature(),
             QByteArray("commitAndCloseEditor()"));
    QCOMPARE(meta.method(meta.methodOffset() + 1).methodSignature(), QByteArray("commitOnly()"));
}

void LineEditItemDelegateTest::editorFillsItsCell()
{
    Fixture f;
    QVERIFY(f.show());
    auto* editor = f.open(1, 1);
    QVERIFY(editor != nullptr);
    QCOMPARE(editor->geometry(), f.view->visualRect(f.model.index(1, 1)));
    f.view->horizontalHeader()->resizeSection(1, 170);
    QTRY_COMPARE(editor->geometry(), f.view->visualRect(f.model.index(1, 1)));
}

void LineEditItemDelegateTest::closesWith_data()
{
    QTest::addColumn<QString>("what");
    for (const char* what : {"row removed", "model reset", "model gone", "view gone",
                             "delegate gone", "window closed", "delegate replaced"}) {
        QTest::newRow(what) << what;
    }
}

void LineEditItemDelegateTest::closesWith()
{
    QFETCH(QString, what);
    TypedTableModel other(1, 1);
    auto f = std::make_unique<Fixture>();
    QVERIFY(f->show());
    QPointer<detail::LineEditImpl> editor = f->open(0, 1);
    QVERIFY(editor != nullptr);
    QTest::keyClicks(editor, "77");
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
    } else if (what == "delegate replaced") {
        f->view->setItemDelegate(new LineEditItemDelegate(f->validator, f->view));
    }
    settle();
    settle();
    if (editor) {
        QTest::keyClick(editor, Qt::Key_Return);
        settle();
    }
    if (what == "row removed") {
        QCOMPARE(boost::any_cast<int>(f->model.value(0, 1)), 14); // the row that moved up
    }
    QVERIFY(other.writes.empty());
    f.reset();
    settle();
    QVERIFY(!editor);
}

void LineEditItemDelegateTest::modelThatAsksTheUser()
{
    // The question takes the focus away while the view is still writing: the editor may end only
    // after that, since the view goes on with it.
    Fixture f;
    QVERIFY(f.show());
    QPointer<detail::LineEditImpl> editor = f.open(0, 1);
    QVERIFY(editor != nullptr);
    int asked = 0;
    bool aliveAfterwards = false;
    f.model.written = [&](const QModelIndex&, int) {
        ++asked;
        QWidget question;
        question.show();
        QApplication::setActiveWindow(&question);
        QEventLoop loop;
        QTimer::singleShot(0, &loop, [&] { QTimer::singleShot(0, &loop, &QEventLoop::quit); });
        loop.exec();
        aliveAfterwards = !editor.isNull();
    };
    QTest::keyClicks(editor, "77");
    QTest::keyClick(editor, Qt::Key_Return);
    QCOMPARE(asked, 1);
    QVERIFY(aliveAfterwards);
    settle();
    QVERIFY(!editor);
    QCOMPARE(f.model.itemWrites, 1);
    QCOMPARE(boost::any_cast<int>(f.model.value(0, 1)), 77);
}

void LineEditItemDelegateTest::helperEdit()
{
    detail::MyLineEdit edit;
    QSignalSpy finished(&edit, SIGNAL(editingFinished()));
    QVERIFY(finished.isValid());
    QVERIFY(QMetaObject::invokeMethod(&edit, "emitEditingFinished"));
    QCOMPARE(finished.count(), 1);
}

void LineEditItemDelegateTest::contextMenuLeavesTheEditorOpen()
{
    Fixture f;
    QVERIFY(f.show());
    QPointer<QLineEdit> edit = f.open(0, 0);
    QVERIFY(edit != nullptr);
    QTest::keyClicks(edit, "77");
    const QPoint place(3, 3);
    QContextMenuEvent asked(QContextMenuEvent::Mouse, place, edit->mapToGlobal(place));
    QApplication::sendEvent(edit, &asked);
    QWidget* menu = QApplication::activePopupWidget();
    QVERIFY(menu != nullptr);
    settle();
    QVERIFY(f.editor() == edit);
    menu->close();
    settle();
    QVERIFY(f.editor() == edit);
    QCOMPARE(f.commits, 0);
    QCOMPARE(f.model.itemWrites, 0);
    QTest::keyClick(edit, Qt::Key_Return);
    settle();
    QCOMPARE(boost::any_cast<int>(f.model.value(0, 0)), 77);
}

void LineEditItemDelegateTest::modelThatMovesOrHidesTheRow_data()
{
    QTest::addColumn<QString>("filter");
    QTest::addColumn<bool>("behindAnother");
    QTest::newRow("sorts by the text") << "" << false;
    QTest::newRow("hides other texts") << "1" << false;
    QTest::newRow("sorts by the text, behind another proxy") << "" << true;
    QTest::newRow("hides other texts, behind another proxy") << "1" << true;
}

void LineEditItemDelegateTest::modelThatMovesOrHidesTheRow()
{
    QFETCH(QString, filter);
    Fixture f;
    QSortFilterProxyModel sorted;
    sorted.setSourceModel(&f.model);
    sorted.setFilterFixedString(filter);
    sorted.sort(0);
    QIdentityProxyModel same;
    same.setSourceModel(&sorted);
    QFETCH(bool, behindAnother);
    QAbstractItemModel& shown = behindAnother ? static_cast<QAbstractItemModel&>(same) : sorted;
    QLineEdit edit;
    edit.setText("99");
    f.delegate->setModelData(&edit, &shown, shown.index(0, 0));
    QCOMPARE(f.model.cell(0, 0).text, QVariant("99 kN"));
    QCOMPARE(f.model.cell(0, 0).toolTip, QVariant("99 kN"));
    QCOMPARE(boost::any_cast<int>(f.model.value(0, 0)), 99);
    QCOMPARE(f.model.cell(1, 0).text, QVariant("13 kN"));
    QCOMPARE(f.model.cell(1, 0).toolTip, QVariant("13 kN"));
    QCOMPARE(boost::any_cast<int>(f.model.value(1, 0)), 13);
    QCOMPARE(sorted.rowCount(), filter.isEmpty() ? 2 : 1);
}

QTEST_MAIN(LineEditItemDelegateTest)
#include "tst_line_edit_item_delegate.moc"
