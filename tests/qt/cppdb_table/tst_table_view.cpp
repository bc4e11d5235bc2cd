#include "qt/inc/controls/enum_box.h"
#include "qt/inc/delegates/combo_item_delegate.h"
#include "qt/inc/delegates/roles.h"
#include "qt/inc/table_view.h"
#include "tests/helpers/active_window.h"
#include "tests/helpers/checked_test.h"
#include "tests/helpers/typed_table_model.h"
#include "tests/helpers/whole_number_validator.h"

#include <QAbstractItemModelTester>
#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QPointer>
#include <QSignalSpy>
#include <QSortFilterProxyModel>
#include <QStandardItemModel>

#include <boost/make_shared.hpp>

#include <memory>

using namespace zel::qt;
using detail::CppDbTableViewBase;
using zel::test::showActive;
using zel::test::TypedTableModel;
using zel::test::WholeNumberValidator;

using Cells = QList<QPair<int, int>>;
Q_DECLARE_METATYPE(Cells)

namespace {

constexpr int columns = 4;
constexpr int columnWithoutValidator = 3;

/// "-" for no number.
QString numberText(const boost::any& value)
{
    return value.empty() ? QStringLiteral("-") : QString::number(boost::any_cast<int>(value));
}

/// A table of four columns; the first three hold whole numbers, ten times the row and the column,
/// the last has numbers too but no validator.
struct Fixture
{
    explicit Fixture(int rows = 4)
        : model(rows, columns)
        , view(
              &model, [this](int column) { return validatorOf(column); }, nullptr)
    {
        for (int row = 0; row < rows; ++row) {
            for (int column = 0; column < columns; ++column) {
                model.put(row, column, row * 10 + column);
            }
        }
        QGuiApplication::clipboard()->setText(QStringLiteral("nothing copied"));
    }

    boost::shared_ptr<IValidator> validatorOf(int column)
    {
        asked << column;
        return column == columnWithoutValidator ? nullptr : validator;
    }

    /// Selects cells one by one, in this order.
    void select(const Cells& cells)
    {
        view.clearSelection();
        for (const auto& cell : cells) {
            view.selectionModel()->select(model.index(cell.first, cell.second),
                                          QItemSelectionModel::Select);
        }
    }

    void press(QKeySequence::StandardKey key)
    {
        QTest::keySequence(&view, QKeySequence(key));
    }

    void paste(const QString& text)
    {
        QGuiApplication::clipboard()->setText(text);
        press(QKeySequence::Paste);
    }

    static QString clipboard()
    {
        return QGuiApplication::clipboard()->text();
    }

    /// The table as text: "0 1 2 3|10 11 12 13".
    QString table() const
    {
        QStringList rows;
        for (int row = 0; row < model.rowCount(); ++row) {
            QStringList texts;
            for (int column = 0; column < columns; ++column) {
                texts << numberText(model.value(row, column));
            }
            rows << texts.join(' ');
        }
        return rows.join('|');
    }

    /// The writes in order: "0,1=5 1,1=-".
    QString writes() const
    {
        QStringList texts;
        for (const auto& write : model.writes) {
            texts << QStringLiteral("%1,%2=%3%4")
                         .arg(write.row)
                         .arg(write.column)
                         .arg(numberText(write.value.value<boost::any>()),
                              write.role == 257 ? QString() : QStringLiteral(" in another role"));
        }
        return texts.join(' ');
    }

    /// A handler that appends a row with the values.
    void appendRows()
    {
        view.setCreateNewRowHandler(
            [this](int left, const std::deque<boost::optional<boost::any>>& values) {
                note(left, values);
                const int row = model.rowCount();
                model.insertRows(row, 1);
                for (std::size_t i = 0; i < values.size(); ++i) {
                    const int column = left + static_cast<int>(i);
                    if (values[i] && column < columns) {
                        model.put(row, column, *values[i]);
                    }
                }
            });
    }

    /// Writes a call of the handler down: "1: 5 none".
    void note(int left, const std::deque<boost::optional<boost::any>>& values)
    {
        QStringList texts;
        for (const boost::optional<boost::any>& value : values) {
            texts << (value ? numberText(*value) : QStringLiteral("none"));
        }
        newRows << QStringLiteral("%1: %2").arg(left).arg(texts.join(' '));
    }

    QList<int> asked; // columns whose validator was asked for
    QStringList newRows;
    boost::shared_ptr<WholeNumberValidator> validator = boost::make_shared<WholeNumberValidator>();
    TypedTableModel model;
    QAbstractItemModelTester tester{&model,
                                    QAbstractItemModelTester::FailureReportingMode::Warning};
    CppDbTableViewBase view;
};

} // namespace

class TableViewTest : public zel::test::CheckedTest
{
    Q_OBJECT
private Q_SLOTS:
    void showsItsModel();
    void missingArguments();
    void clears_data();
    void clears();
    void clearsNothing_data();
    void clearsNothing();
    void copies_data();
    void copies();
    void copiesTexts_data();
    void copiesTexts();
    void copyOfNothing();
    void copyAsksInTheLocaleOfTheApplication();
    void validatorAskedOncePerColumn();
    void cuts();
    void pastesAValue_data();
    void pastesAValue();
    void pastesABlock_data();
    void pastesABlock();
    void splitsText_data();
    void splitsText();
    void pastesNothing_data();
    void pastesNothing();
    void pasteAsksInTheCLocale();
    void pasteBeyondTheEnd_data();
    void pasteBeyondTheEnd();
    void pasteWithoutHandler();
    void handlerThatDeclines();
    void handlerThatMakesRowsAhead();
    void handlerIsReplaced();
    void handlerReplacesItself();
    void newRowsBehindRowsThatGoAway();
    void blockRoundTrip();
    void rowsThatSortThemselves_data();
    void rowsThatSortThemselves();
    void rowsThatAreHidden_data();
    void rowsThatAreHidden();
    void refusedWrites();
    void hiddenRowsAndColumns();
    void rowsThatGoAway_data();
    void rowsThatGoAway();
    void modelThatResets_data();
    void modelThatResets();
    void otherKeys();
    void keysInTheEditorStayThere_data();
    void keysInTheEditorStayThere();
    void viewGoesDuringAPaste_data();
    void viewGoesDuringAPaste();
    void handlerThatClosesTheWindow();
    void modelGone();
};

void TableViewTest::showsItsModel()
{
    Fixture f;
    QCOMPARE(f.view.model(), static_cast<QAbstractItemModel*>(&f.model));
    QCOMPARE(f.model.QObject::parent(), nullptr);
}

void TableViewTest::missingArguments()
{
    TypedTableModel model(2, 2);
    model.put(0, 0, 1);
    CppDbTableViewBase withoutModel(
        nullptr, [](int) { return boost::shared_ptr<IValidator>(); }, nullptr);
    auto reports = takeReports();
    QCOMPARE(int(reports.size()), 1);
    QCOMPARE(reports[0].expression, std::string("m_model"));
    QCOMPARE(reports[0].file, std::string("qt/src/cppdb_table/cppdb_table_view_base.cpp"));

    CppDbTableViewBase withoutValidators(&model, {}, nullptr);
    reports = takeReports();
    QCOMPARE(int(reports.size()), 1);
    QCOMPARE(reports[0].expression, std::string("m_getColumnValidator"));
    QCOMPARE(reports[0].file, std::string("qt/src/cppdb_table/cppdb_table_view_base.cpp"));

    CppDbTableViewBase withNeither(nullptr, {}, nullptr);
    QCOMPARE(takeExpressions(), (QStringList{"m_model", "m_getColumnValidator"}));

    // They go on: without a model there are no cells, without the function no validators.
    withoutValidators.selectAll();
    for (CppDbTableViewBase* view : {&withoutModel, &withoutValidators, &withNeither}) {
        for (const auto key : {QKeySequence::Copy, QKeySequence::Paste}) {
            QGuiApplication::clipboard()->setText("1\t2\n3\t4\n");
            QTest::keySequence(view, QKeySequence(key));
        }
    }
    QVERIFY(model.writes.empty());
    QTest::keyClick(&withoutValidators, Qt::Key_Delete);
    QCOMPARE(int(model.writes.size()), 4);
}

void TableViewTest::clears_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<Cells>("cells");
    QTest::addColumn<QString>("writes");
    const Cells cells{{1, 2}, {0, 0}, {3, 3}};
    const QString writes = "1,2=- 0,0=- 3,3=-"; // in the order of the selection
    const int none = Qt::NoModifier;
    QTest::newRow("Delete") << int(Qt::Key_Delete) << none << cells << writes;
    QTest::newRow("Backspace") << int(Qt::Key_Backspace) << none << cells << writes;
    QTest::newRow("Backspace with Control")
        << int(Qt::Key_Backspace) << int(Qt::ControlModifier) << cells << writes;
    QTest::newRow("one cell") << int(Qt::Key_Delete) << none << Cells{{2, 1}} << "2,1=-";
    QTest::newRow("nothing selected") << int(Qt::Key_Delete) << none << Cells{} << "";
}

void TableViewTest::clears()
{
    QFETCH(int, key);
    QFETCH(int, modifiers);
    QFETCH(Cells, cells);
    Fixture f;
    f.select(cells);
    QSignalSpy changes(&f.model, &QAbstractItemModel::dataChanged);
    QTest::keyClick(&f.view, Qt::Key(key), Qt::KeyboardModifiers(modifiers));
    QTEST(f.writes(), "writes");
    QCOMPARE(changes.count(), cells.size());
    QCOMPARE(f.clipboard(), QString("nothing copied"));
    QVERIFY(f.asked.isEmpty());
    for (const auto& write : f.model.writes) {
        QVERIFY(write.value.canConvert<boost::any>()); // an empty boost::any, not an empty QVariant
    }
}

void TableViewTest::clearsNothing_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("Left") << int(Qt::Key_Left);
    QTest::newRow("letter") << int(Qt::Key_D);
    QTest::newRow("Insert") << int(Qt::Key_Insert);
}

void TableViewTest::clearsNothing()
{
    QFETCH(int, key);
    Fixture f;
    f.view.setEditTriggers(QAbstractItemView::NoEditTriggers);
    f.select({{1, 1}});
    QTest::keyClick(&f.view, Qt::Key(key));
    QVERIFY(f.model.writes.empty());
    QCOMPARE(f.clipboard(), QString("nothing copied"));
}

void TableViewTest::copies_data()
{
    QTest::addColumn<Cells>("cells");
    QTest::addColumn<QString>("text");
    QTest::newRow("one cell, no line feed") << Cells{{1, 2}} << "#12";
    QTest::newRow("one cell without validator") << Cells{{1, 3}} << "";
    QTest::newRow("row") << Cells{{1, 0}, {1, 1}, {1, 2}} << "#10\t#11\t#12\n";
    QTest::newRow("column") << Cells{{0, 1}, {1, 1}} << "#1\n#11\n";
    QTest::newRow("block") << Cells{{1, 1}, {1, 2}, {2, 1}, {2, 2}} << "#11\t#12\n#21\t#22\n";
    QTest::newRow("selected backwards")
        << Cells{{2, 2}, {2, 1}, {1, 2}, {1, 1}} << "#11\t#12\n#21\t#22\n";
    QTest::newRow("columns one after the other, the right one first")
        << Cells{{0, 2}, {1, 2}, {3, 2}, {0, 0}, {1, 0}, {3, 0}, {1, 1}}
        << "#0\t\t#2\n#10\t#11\t#12\n\t\t\n#30\t\t#32\n";
    QTest::newRow("hole inside") << Cells{{0, 0}, {0, 2}} << "#0\t\t#2\n";
    QTest::newRow("rows as wide as the block")
        << Cells{{0, 0}, {1, 2}, {2, 1}} << "#0\t\t\n\t\t#12\n\t#21\t\n";
    QTest::newRow("row in between not selected") << Cells{{0, 1}, {2, 2}} << "#1\t\n\t\n\t#22\n";
    QTest::newRow("column without validator")
        << Cells{{0, 2}, {0, 3}, {1, 2}, {1, 3}} << "#2\t\n#12\t\n";
    QTest::newRow("only the column without validator") << Cells{{0, 3}, {1, 3}} << "\n\n";
}

void TableViewTest::copies()
{
    QFETCH(Cells, cells);
    Fixture f;
    f.select(cells);
    const QModelIndexList before = f.view.selectionModel()->selectedIndexes();
    f.press(QKeySequence::Copy);
    QTEST(f.clipboard(), "text");
    QVERIFY(f.model.writes.empty());
    QCOMPARE(f.view.selectionModel()->selectedIndexes(), before);
}

void TableViewTest::copiesTexts_data()
{
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<QString>("text");
    QTest::newRow("empty any") << QVariant::fromValue<boost::any>(boost::any()) << "";
    QTest::newRow("no value at all") << QVariant() << "";
    QTest::newRow("not a boost::any") << QVariant("plain") << "";
    QTest::newRow("number") << QVariant::fromValue<boost::any>(boost::any(-7)) << "#-7";
}

void TableViewTest::copiesTexts()
{
    QFETCH(QVariant, value);
    QFETCH(QString, text);
    Fixture f;
    f.model.cell(1, 1).value = value;
    f.select({{1, 1}});
    f.press(QKeySequence::Copy);
    QCOMPARE(f.clipboard(), text);
    f.select({{1, 0}, {1, 1}, {1, 2}});
    f.press(QKeySequence::Copy);
    QCOMPARE(f.clipboard(), "#10\t" + text + "\t#12\n");
}

void TableViewTest::copyOfNothing()
{
    Fixture f;
    f.press(QKeySequence::Copy);
    QCOMPARE(f.clipboard(), QString("nothing copied"));
    f.press(QKeySequence::Cut);
    QCOMPARE(f.clipboard(), QString("nothing copied"));
    QVERIFY(f.model.writes.empty());
}

void TableViewTest::copyAsksInTheLocaleOfTheApplication()
{
    Fixture f;
    f.select({{0, 0}, {0, 1}});
    f.press(QKeySequence::Copy);
    QCOMPARE(f.validator->calls, (QStringList{"reformat 1", "reformat 1"}));
}

void TableViewTest::validatorAskedOncePerColumn()
{
    Fixture f;
    f.view.selectAll();
    f.press(QKeySequence::Copy);
    std::sort(f.asked.begin(), f.asked.end());
    QCOMPARE(f.asked, (QList<int>{0, 1, 2, 3}));
    f.asked.clear();
    f.paste("1\t2\n3\t4\n5\t6\n");
    QCOMPARE(f.asked, (QList<int>{0, 1}));
    f.asked.clear();
    f.paste("1");
    std::sort(f.asked.begin(), f.asked.end());
    QCOMPARE(f.asked, (QList<int>{0, 1, 2, 3}));
}

void TableViewTest::cuts()
{
    // The text is that of the values before they are cleared.
    Fixture f;
    f.select({{1, 1}, {1, 2}});
    QString atTheFirstWrite;
    f.model.written = [&](const QModelIndex&, int) {
        if (atTheFirstWrite.isNull()) {
            atTheFirstWrite = f.clipboard();
        }
    };
    f.press(QKeySequence::Cut);
    QCOMPARE(f.clipboard(), QString("#11\t#12\n"));
    QCOMPARE(atTheFirstWrite, QString("#11\t#12\n"));
    QCOMPARE(f.writes(), QString("1,1=- 1,2=-"));
}

void TableViewTest::pastesAValue_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<Cells>("cells");
    QTest::addColumn<QString>("writes");
    QTest::newRow("one cell") << "77" << Cells{{1, 1}} << "1,1=77";
    QTest::newRow("into each cell")
        << "77" << Cells{{2, 1}, {0, 0}, {3, 2}} << "2,1=77 0,0=77 3,2=77";
    QTest::newRow("column without validator is skipped")
        << "77" << Cells{{0, 3}, {0, 2}} << "0,2=77";
    QTest::newRow("refused") << "abc" << Cells{{0, 0}, {1, 0}} << "";
    QTest::newRow("blanks do not separate cells") << "5 6" << Cells{{0, 0}} << "";
    QTest::newRow("nothing selected") << "77" << Cells{} << "";
    QTest::newRow("empty text, which stands for no value") << "" << Cells{{0, 0}} << "0,0=-";
}

void TableViewTest::pastesAValue()
{
    QFETCH(QString, text);
    QFETCH(Cells, cells);
    Fixture f;
    f.select(cells);
    auto* data = new QMimeData;
    data->setText(text);
    data->setData("text/plain", text.toUtf8()); // also an empty one counts as text
    QGuiApplication::clipboard()->setMimeData(data);
    f.press(QKeySequence::Paste);
    QTEST(f.writes(), "writes");
    QVERIFY(f.newRows.isEmpty());
}

void TableViewTest::pastesABlock_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<Cells>("cells");
    QTest::addColumn<QString>("writes");
    QTest::newRow("at one cell") << "1\t2\n3\t4\n" << Cells{{1, 1}} << "1,1=1 1,2=2 2,1=3 2,2=4";
    QTest::newRow("at the upper left corner of the selection")
        << "1\t2\n"
        << Cells{{2, 1}, {1, 2}} << "1,1=1 1,2=2";
    QTest::newRow("refused cells are left alone") << "1\tx\n\t4\n"
                                                  << Cells{{0, 0}} << "0,0=1 1,0=- 1,1=4";
    QTest::newRow("column without validator is skipped") << "1\t2\n" << Cells{{0, 2}} << "0,2=1";
    QTest::newRow("wider than the table") << "1\t2\t3\t4\n" << Cells{{0, 2}} << "0,2=1";
    QTest::newRow("rows of different width")
        << "1\n2\t3\t4\n5\t6\n"
        << Cells{{0, 0}} << "0,0=1 1,0=2 1,1=3 1,2=4 2,0=5 2,1=6";
    QTest::newRow("one row, no line feed") << "1\t2" << Cells{{3, 0}} << "3,0=1 3,1=2";
    QTest::newRow("not more than once in a larger selection")
        << "1\t2\n"
        << Cells{{0, 0}, {0, 1}, {1, 0}, {1, 1}} << "0,0=1 0,1=2";
    QTest::newRow("nothing selected") << "1\t2\n" << Cells{} << "";
}

void TableViewTest::pastesABlock()
{
    QFETCH(QString, text);
    QFETCH(Cells, cells);
    Fixture f;
    f.appendRows();
    f.select(cells);
    f.paste(text);
    QTEST(f.writes(), "writes");
    QVERIFY(f.newRows.isEmpty());
    QCOMPARE(f.model.rowCount(), 4);
}

void TableViewTest::splitsText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("rows"); // pasted below an empty table's only row
    QTest::newRow("line feed at the end") << "1\n2\n" << QStringList{"0: 1", "0: 2"};
    QTest::newRow("no line feed at the end") << "1\n2" << QStringList{"0: 1", "0: 2"};
    QTest::newRow("CR LF") << "1\t2\r\n3\t4\r\n" << QStringList{"0: 1 2", "0: 3 4"};
    QTest::newRow("CR LF, none at the end") << "1\t2\r\n3\t4" << QStringList{"0: 1 2", "0: 3 4"};
    QTest::newRow("both kinds") << "1\r\n2\n3\r\n" << QStringList{"0: 1", "0: 2", "0: 3"};
    QTest::newRow("only the last line end is no row") << "1\n\n" << QStringList{"0: 1", "0: -"};
    QTest::newRow("empty row inside") << "1\n\n2\n" << QStringList{"0: 1", "0: -", "0: 2"};
    QTest::newRow("line feed alone") << "\n" << QStringList{"0: -"};
    QTest::newRow("CR LF alone") << "\r\n" << QStringList{"0: -"};
    QTest::newRow("value with a line feed") << "5\n" << QStringList{"0: 5"};
    QTest::newRow("tab alone") << "\t" << QStringList{"0: - -"};
    QTest::newRow("tab at the end of a row") << "1\t\n" << QStringList{"0: 1 -"};
    QTest::newRow("blanks stay in the cell") << "2.5 kN/m2\t3\n" << QStringList{"0: none 3"};
    QTest::newRow("CR alone ends nothing") << "1\r2\n" << QStringList{"0: none"};
    QTest::newRow("quotation marks are text") << "\"1\"\t2\n" << QStringList{"0: none 2"};
}

void TableViewTest::splitsText()
{
    QFETCH(QString, text);
    QFETCH(QStringList, rows);
    Fixture f(1);
    f.appendRows();
    f.select({{0, 0}});
    f.paste("8\n" + text); // the first row goes into the row that there is
    QCOMPARE(f.newRows, rows);
    QCOMPARE(f.writes(), QString("0,0=8"));
}

void TableViewTest::pastesNothing_data()
{
    QTest::addColumn<QString>("what");
    QTest::newRow("cleared clipboard") << "cleared";
    QTest::newRow("picture") << "picture";
}

void TableViewTest::pastesNothing()
{
    QFETCH(QString, what);
    Fixture f;
    f.select({{0, 0}});
    if (what == "cleared") {
        QGuiApplication::clipboard()->clear();
    } else {
        auto* data = new QMimeData;
        data->setData("image/png", "1\t2\n");
        QGuiApplication::clipboard()->setMimeData(data);
    }
    f.press(QKeySequence::Paste);
    QVERIFY(f.model.writes.empty());
    QVERIFY(f.asked.isEmpty());
}

void TableViewTest::pasteAsksInTheCLocale()
{
    Fixture f;
    f.select({{0, 0}});
    f.paste("5");
    f.paste("6\t7\n");
    QCOMPARE(f.validator->calls, (QStringList{"validate 5 0", "validate 6 0", "validate 7 0"}));
}

void TableViewTest::pasteBeyondTheEnd_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("newRows");
    QTest::addColumn<QString>("table");
    QTest::newRow("on the last row")
        << 1 << 0 << "1\t2\n3\t4\n5\t6\n"
        << QStringList{"0: 3 4", "0: 5 6"} << "0 1 2 3|1 2 12 13|3 4 - -|5 6 - -";
    QTest::newRow("one row beyond") << 1 << 1 << "1\n2\n"
                                    << QStringList{"1: 2"} << "0 1 2 3|10 1 12 13|- 2 - -";
    QTest::newRow("refused cells") << 1 << 0 << "1\nx\t4\n"
                                   << QStringList{"0: none 4"} << "0 1 2 3|1 11 12 13|- 4 - -";
    QTest::newRow("no value") << 1 << 0 << "1\n\t4\n"
                              << QStringList{"0: - 4"} << "0 1 2 3|1 11 12 13|- 4 - -";
    QTest::newRow("wider than the table")
        << 1 << 2 << "1\n2\t3\t4\n"
        << QStringList{"2: 2 none 4"} << "0 1 2 3|10 11 1 13|- - 2 -";
    QTest::newRow("not beyond") << 0 << 0 << "1\n2\n" << QStringList{} << "1 1 2 3|2 11 12 13";
}

void TableViewTest::pasteBeyondTheEnd()
{
    QFETCH(int, row);
    QFETCH(int, column);
    QFETCH(QString, text);
    Fixture f(2);
    f.appendRows();
    f.select({{row, column}});
    f.paste(text);
    QTEST(f.newRows, "newRows");
    QTEST(f.table(), "table");
}

void TableViewTest::pasteWithoutHandler()
{
    Fixture f(2);
    f.select({{1, 0}});
    QGuiApplication::clipboard()->setText("1\n2\n");
    // Sent past the event loop, which does not let exceptions through.
    struct OpenView : CppDbTableViewBase
    {
        using CppDbTableViewBase::CppDbTableViewBase;
        using CppDbTableViewBase::keyPressEvent;
    };
    OpenView view(
        &f.model, [&](int column) { return f.validatorOf(column); }, nullptr);
    view.setCurrentIndex(f.model.index(1, 0));
    QKeyEvent paste(QEvent::KeyPress, Qt::Key_V, Qt::ControlModifier);
    QVERIFY_EXCEPTION_THROWN(view.keyPressEvent(&paste), boost::bad_function_call);
    QCOMPARE(f.writes(), QString("1,0=1")); // what stands before the end is written
}

void TableViewTest::handlerThatDeclines()
{
    Fixture f(2);
    f.view.setCreateNewRowHandler(
        [&](int left, const std::deque<boost::optional<boost::any>>& values) {
            f.note(left, values);
        });
    f.select({{1, 0}});
    f.paste("1\n2\n3\n4\n");
    QCOMPARE(f.newRows, QStringList{"0: 2"});
    QCOMPARE(f.table(), QString("0 1 2 3|1 11 12 13"));
}

void TableViewTest::handlerThatMakesRowsAhead()
{
    // Rows that are there by the time of their turn are written, not made once more.
    Fixture f(1);
    f.view.setCreateNewRowHandler(
        [&](int left, const std::deque<boost::optional<boost::any>>& values) {
            f.note(left, values);
            f.model.insertRows(f.model.rowCount(), 2);
        });
    f.select({{0, 0}});
    f.paste("1\n2\n3\n4\n");
    QCOMPARE(f.newRows, (QStringList{"0: 2", "0: 4"}));
    QCOMPARE(f.writes(), QString("0,0=1 2,0=3"));
    QCOMPARE(f.model.rowCount(), 5);
}

void TableViewTest::handlerIsReplaced()
{
    Fixture f(1);
    int first = 0;
    f.view.setCreateNewRowHandler(
        [&](int, const std::deque<boost::optional<boost::any>>&) { ++first; });
    f.appendRows();
    f.select({{0, 0}});
    f.paste("1\n2\n");
    QCOMPARE(first, 0);
    QCOMPARE(f.newRows, QStringList{"0: 2"});
}

void TableViewTest::handlerReplacesItself()
{
    // What the running handler holds lives until it returns.
    Fixture f(1);
    const QString note(100, 'x');
    QStringList notes;
    f.view.setCreateNewRowHandler(
        [&f, &notes, note](int, const std::deque<boost::optional<boost::any>>&) {
            f.appendRows();
            f.model.insertRows(f.model.rowCount(), 1);
            notes << note;
        });
    f.select({{0, 0}});
    f.paste("1\n2\n3\n");
    QCOMPARE(notes, QStringList{note});
    QCOMPARE(f.newRows, QStringList{"0: 3"});
    QCOMPARE(f.model.rowCount(), 3);
}

void TableViewTest::newRowsBehindRowsThatGoAway()
{
    // A paste ends where the row that it is at is not there after the handler's turn, and so where
    // earlier rows have gone: what follows would not stand where the user put it.
    Fixture f(2);
    f.appendRows();
    f.model.written = [&](const QModelIndex&, int) {
        if (f.model.rowCount() == 2) {
            f.model.removeRows(0, 1);
        }
    };
    f.select({{0, 0}});
    f.paste("1\n2\n3\n4\n5\n");
    QCOMPARE(f.newRows, QStringList{"0: 3"});
    QCOMPARE(f.table(), QString("2 11 12 13|3 - - -"));
}

void TableViewTest::blockRoundTrip()
{
    struct Plain : WholeNumberValidator
    {
        QString reformat(const boost::any& value, const std::bitset<32>& flags) override
        {
            return WholeNumberValidator::reformat(value, flags).remove('#');
        }
    };
    Fixture f(3);
    f.validator = boost::make_shared<Plain>();
    f.model.put(1, 1, boost::any());
    f.view.selectAll();
    f.press(QKeySequence::Copy);
    const QString before = f.table();
    QTest::keyClick(&f.view, Qt::Key_Delete);
    QVERIFY(f.table() != before);
    f.press(QKeySequence::Paste);
    QCOMPARE(f.table(),
             QString(before).replace(" 3|", " -|").replace(" 13|", " -|").replace(" 23", " -"));
}

void TableViewTest::rowsThatSortThemselves_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("gesture");
    QTest::addColumn<QString>("rows"); // as the sorted view has them afterwards
    QTest::newRow("block") << "90\t1\n80\t2\n70\t3\n"
                           << "paste"
                           << "30 31|70 3|80 2|90 1";
    QTest::newRow("value") << "25"
                           << "paste"
                           << "25 25|25 25|25 25|30 31";
    QTest::newRow("clear") << ""
                           << "delete"
                           << "- -|- -|- -|30 31";
}

void TableViewTest::rowsThatSortThemselves()
{
    // The first column is that of the order, so that each write moves its row at once.
    QFETCH(QString, text);
    QFETCH(QString, gesture);
    Fixture f;
    struct ByNumber : QSortFilterProxyModel
    {
        bool lessThan(const QModelIndex& a, const QModelIndex& b) const override
        {
            return number(a) < number(b);
        }
        static int number(const QModelIndex& index)
        {
            const auto value = index.data(EditRole).value<boost::any>();
            return value.empty() ? -1 : boost::any_cast<int>(value);
        }
    } sorted;
    sorted.setSourceModel(&f.model);
    sorted.setSortRole(EditRole);
    sorted.setDynamicSortFilter(true);
    sorted.sort(0);
    CppDbTableViewBase view(
        &sorted, [&](int column) { return f.validatorOf(column); }, nullptr);
    QItemSelection block(sorted.index(0, 0), sorted.index(2, 1));
    view.selectionModel()->select(block, QItemSelectionModel::Select);
    if (gesture == "delete") {
        QTest::keyClick(&view, Qt::Key_Delete);
    } else {
        QGuiApplication::clipboard()->setText(text);
        QTest::keySequence(&view, QKeySequence(QKeySequence::Paste));
    }
    QStringList rows;
    for (int row = 0; row < sorted.rowCount(); ++row) {
        rows << numberText(sorted.index(row, 0).data(EditRole).value<boost::any>()) + ' ' +
                    numberText(sorted.index(row, 1).data(EditRole).value<boost::any>());
    }
    QTEST(rows.join('|'), "rows");
}

void TableViewTest::rowsThatAreHidden_data()
{
    QTest::addColumn<QString>("gesture");
    QTest::addColumn<QString>("table");
    QTest::addColumn<int>("shown"); // rows afterwards
    QTest::newRow("clear") << "delete"
                           << "- - 2 3|- - 12 13|20 21 22 23|30 31 32 33" << 2;
    QTest::newRow("value") << "7"
                           << "7 7 2 3|7 7 12 13|20 21 22 23|30 31 32 33" << 2;
    QTest::newRow("block") << "7\t1\n8\t2\n"
                           << "7 1 2 3|8 2 12 13|20 21 22 23|30 31 32 33" << 2;
    QTest::newRow("block, the second row stays")
        << "7\t1\n50\t2\n"
        << "7 1 2 3|50 2 12 13|20 21 22 23|30 31 32 33" << 3;
}

void TableViewTest::rowsThatAreHidden()
{
    // A filter on the first column drops each row at once; the other values are for it as well.
    QFETCH(QString, gesture);
    QFETCH(int, shown);
    Fixture f;
    f.model.put(0, 0, 15);
    struct Large : QSortFilterProxyModel
    {
        bool filterAcceptsRow(int row, const QModelIndex& parent) const override
        {
            const QModelIndex index = sourceModel()->index(row, 0, parent);
            const auto value = index.data(EditRole).value<boost::any>();
            return !value.empty() && boost::any_cast<int>(value) >= 10;
        }
    } filtered;
    filtered.setSourceModel(&f.model);
    filtered.setDynamicSortFilter(true);
    QSortFilterProxyModel further; // a chain of two
    further.setSourceModel(&filtered);
    CppDbTableViewBase view(
        &further, [&](int column) { return f.validatorOf(column); }, nullptr);
    view.selectionModel()->select(QItemSelection(further.index(0, 0), further.index(1, 1)),
                                  QItemSelectionModel::Select);
    if (gesture == "delete") {
        QTest::keyClick(&view, Qt::Key_Delete);
    } else {
        QGuiApplication::clipboard()->setText(gesture);
        QTest::keySequence(&view, QKeySequence(QKeySequence::Paste));
    }
    QTEST(f.table(), "table");
    QCOMPARE(int(f.model.writes.size()), 4);
    QCOMPARE(further.rowCount(), shown);
}

void TableViewTest::refusedWrites()
{
    // A cell that the model does not take keeps its value, and the others come in.
    Fixture f;
    f.model.refuse = [&](int) { return f.model.writes.back().column == 1; };
    f.select({{0, 0}});
    f.paste("1\t2\t3\n4\t5\t6\n");
    QCOMPARE(f.table(), QString("1 1 3 3|4 11 6 13|20 21 22 23|30 31 32 33"));
    f.select({{2, 0}, {2, 1}, {2, 2}});
    f.paste("7");
    QCOMPARE(f.table(), QString("1 1 3 3|4 11 6 13|7 21 7 23|30 31 32 33"));
    f.select({{3, 0}, {3, 1}, {3, 2}});
    QTest::keyClick(&f.view, Qt::Key_Delete);
    QCOMPARE(f.table(), QString("1 1 3 3|4 11 6 13|7 21 7 23|- 31 - 33"));
}

void TableViewTest::hiddenRowsAndColumns()
{
    // What is hidden keeps its place: it is selected, copied and pasted to like the others.
    Fixture f;
    f.view.setColumnHidden(1, true);
    f.view.setRowHidden(1, true);
    f.view.selectAll();
    f.press(QKeySequence::Copy);
    QCOMPARE(f.clipboard(), QString("#0\t#1\t#2\t\n#10\t#11\t#12\t\n#20\t#21\t#22\t\n"
                                    "#30\t#31\t#32\t\n"));
    f.select({{0, 0}});
    f.paste("1\t2\t3\n4\t5\t6\n");
    QCOMPARE(f.table(), QString("1 2 3 3|4 5 6 13|20 21 22 23|30 31 32 33"));
}

void TableViewTest::rowsThatGoAway_data()
{
    QTest::addColumn<QString>("gesture");
    QTest::addColumn<QString>("table");
    QTest::newRow("clear") << "delete"
                           << "- - 22 23|30 31 32 33";
    QTest::newRow("value") << "7"
                           << "7 7 22 23|30 31 32 33";
    QTest::newRow("block") << "1\t2\n3\t4\n5\t6\n"
                           << "5 6 22 23|30 31 32 33";
}

void TableViewTest::rowsThatGoAway()
{
    // The model drops its first two rows at the first value that is written to it.
    QFETCH(QString, gesture);
    Fixture f;
    f.model.written = [&](const QModelIndex&, int) {
        if (f.model.rowCount() == 4) {
            f.model.removeRows(0, 2);
        }
    };
    f.select({{0, 0}, {0, 1}, {1, 0}, {1, 1}, {2, 0}, {2, 1}});
    if (gesture == "delete") {
        QTest::keyClick(&f.view, Qt::Key_Delete);
    } else {
        f.paste(gesture);
    }
    QTEST(f.table(), "table");
    QCOMPARE(int(f.model.writes.size()), 3);
}

void TableViewTest::modelThatResets_data()
{
    QTest::addColumn<QString>("gesture");
    QTest::addColumn<QString>("table");
    QTest::newRow("clear") << "delete"
                           << "- - 2 3|- - 12 13|20 21 22 23";
    QTest::newRow("value") << "7"
                           << "7 7 2 3|7 7 12 13|20 21 22 23";
    QTest::newRow("block") << "1\t2\n3\t4\n"
                           << "1 2 2 3|3 4 12 13|20 21 22 23";
}

void TableViewTest::modelThatResets()
{
    // The model reads itself anew after each value; it keeps three of its rows.
    QFETCH(QString, gesture);
    Fixture f;
    f.model.written = [&](const QModelIndex&, int) { f.model.reset(3); };
    f.select({{0, 0}, {0, 1}, {1, 0}, {1, 1}, {3, 0}});
    if (gesture == "delete") {
        QTest::keyClick(&f.view, Qt::Key_Delete);
    } else {
        f.paste(gesture);
    }
    QTEST(f.table(), "table");
}

void TableViewTest::otherKeys()
{
    Fixture f;
    QVERIFY(showActive(f.view));
    f.view.setCurrentIndex(f.model.index(1, 1));
    QTest::keyClick(&f.view, Qt::Key_Down);
    QCOMPARE(f.view.currentIndex(), f.model.index(2, 1));
    QTest::keySequence(&f.view, QKeySequence(QKeySequence::SelectAll));
    QCOMPARE(f.view.selectionModel()->selectedIndexes().size(), 16);
    QCOMPARE(f.clipboard(), QString("nothing copied"));
    QVERIFY(f.model.writes.empty());
}

void TableViewTest::keysInTheEditorStayThere_data()
{
    QTest::addColumn<bool>("combo");
    QTest::newRow("line edit") << false;
    QTest::newRow("combo box, which leaves them to its parents") << true;
}

void TableViewTest::keysInTheEditorStayThere()
{
    QFETCH(bool, combo);
    Fixture f;
    ComboItemDelegate delegate(
        nullptr,
        [](MultiEditEnumBox& box, const QModelIndex&) {
            box.setValues({{"eleven", 11}, {"twelve", 12}});
        },
        [](const boost::any& a, const boost::any& b) {
            return boost::any_cast<int>(a) == boost::any_cast<int>(b);
        },
        nullptr);
    if (combo) {
        f.view.setItemDelegate(&delegate);
    }
    QVERIFY(showActive(f.view));
    f.view.selectAll();
    f.view.selectionModel()->setCurrentIndex(f.model.index(1, 1), QItemSelectionModel::NoUpdate);
    f.view.edit(f.model.index(1, 1));
    QPointer<QWidget> editor = QApplication::focusWidget();
    QVERIFY(editor != nullptr && editor != &f.view);
    QGuiApplication::clipboard()->setText(QStringLiteral("5"));
    QTest::keyClick(editor, Qt::Key_Backspace);
    QTest::keyClick(editor, Qt::Key_Delete);
    QTest::keySequence(editor, QKeySequence(QKeySequence::Cut));
    QTest::keySequence(editor, QKeySequence(QKeySequence::Paste));
    QCOMPARE(f.writes(), QString());
    QTest::keyClick(editor, Qt::Key_Escape);
    QTRY_VERIFY(editor == nullptr);

    // Back in the table they are the table's again.
    QVERIFY(f.view.hasFocus());
    f.select({{1, 1}});
    f.press(QKeySequence::Delete);
    QCOMPARE(f.writes(), QString("1,1=-"));
    f.view.setItemDelegate(nullptr);
}

void TableViewTest::viewGoesDuringAPaste_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("written");
    QTest::newRow("one value") << "5"
                               << "0,0=5 0,1=5 1,0=5 1,1=5";
    QTest::newRow("block within the rows") << "5\t6\n7\t8\n"
                                           << "0,0=5 0,1=6 1,0=7 1,1=8";
    QTest::newRow("block beyond them") << "5\t6\n7\t8\n9\t9\n"
                                       << "0,0=5 0,1=6 1,0=7 1,1=8";
}

void TableViewTest::viewGoesDuringAPaste()
{
    QFETCH(QString, text);
    struct View : CppDbTableViewBase
    {
        using CppDbTableViewBase::CppDbTableViewBase;
        using CppDbTableViewBase::keyPressEvent;
    };
    Fixture f(2);
    const QPointer<View> view = new View(
        &f.model, [&f](int column) { return f.validatorOf(column); }, nullptr);
    const QItemSelection block(f.model.index(0, 0), f.model.index(1, 1));
    view->selectionModel()->select(block, QItemSelectionModel::Select);
    QObject::connect(&f.model, &QAbstractItemModel::dataChanged, view, [view] { delete view; });
    QGuiApplication::clipboard()->setText(text);
    QKeyEvent key(QEvent::KeyPress, Qt::Key_V, Qt::ControlModifier);
    view->keyPressEvent(&key);
    QVERIFY(view == nullptr);
    // What was in hand is written; no new row is asked for.
    QTEST(f.writes(), "written");
}

void TableViewTest::handlerThatClosesTheWindow()
{
    struct View : CppDbTableViewBase
    {
        using CppDbTableViewBase::CppDbTableViewBase;
        using CppDbTableViewBase::keyPressEvent;
    };
    Fixture f(1);
    const QPointer<View> view = new View(
        &f.model, [&f](int column) { return f.validatorOf(column); }, nullptr);
    int calls = 0;
    view->setCreateNewRowHandler([&](int, const std::deque<boost::optional<boost::any>>&) {
        ++calls;
        f.model.insertRows(f.model.rowCount(), 1);
        delete view;
    });
    view->selectionModel()->select(f.model.index(0, 0), QItemSelectionModel::Select);
    QGuiApplication::clipboard()->setText(QStringLiteral("5\n6\n7\n"));
    QKeyEvent key(QEvent::KeyPress, Qt::Key_V, Qt::ControlModifier);
    view->keyPressEvent(&key);
    QVERIFY(view == nullptr);
    QCOMPARE(calls, 1);
    QCOMPARE(f.model.rowCount(), 2);
}

void TableViewTest::modelGone()
{
    auto model = std::make_unique<TypedTableModel>(2, 2);
    CppDbTableViewBase view(
        model.get(), [](int) { return boost::make_shared<WholeNumberValidator>(); }, nullptr);
    view.selectAll();
    model.reset();
    QGuiApplication::clipboard()->setText("1\t2\n3\t4\n5\n");
    for (const auto key : {QKeySequence::Copy, QKeySequence::Cut, QKeySequence::Paste}) {
        QTest::keySequence(&view, QKeySequence(key));
    }
    QTest::keyClick(&view, Qt::Key_Delete);
    QCOMPARE(QGuiApplication::clipboard()->text(), QString("1\t2\n3\t4\n5\n"));
}

QTEST_MAIN(TableViewTest)
#include "tst_table_view.moc"
