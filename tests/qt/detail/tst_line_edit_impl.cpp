#include "qt/inc/controls.h"
#include "tests/helpers/active_window.h"
#include "tests/helpers/checked_test.h"

#include <QMetaMethod>
#include <QPointer>
#include <QSignalSpy>
#include <QStyle>
#include <QToolButton>

#include <memory>

using zel::qt::detail::EditHintPopup;
using zel::qt::detail::HistoryPopup;
using zel::qt::detail::LineEditImpl;
using zel::qt::detail::PopupGroup;

class LineEditImplTest : public zel::test::CheckedTest
{
    Q_OBJECT
private Q_SLOTS:
    void metaObject();
    void ownsItsPopups();
    void popupsAreStackedHintFirst();
    void historyEntryIsCommitted();
    void emptyHistoryEntryDoesNothing();
    void buttonNeedsAFunction();
    void thereIsOneButton();
    void iconOfTheButton_data();
    void iconOfTheButton();
    void lookOfTheButton();
    void roomForTheButton_data();
    void roomForTheButton();
    void buttonStandsAtTheRight_data();
    void buttonStandsAtTheRight();
    void clickReplacesTheText();
    void clickWithTheSameTextLeavesTheSelection();
    void clickMayDeleteTheEdit();
    void slotWithoutAButtonDoesNothing();
    void lastFilterRunsLast();
};

namespace {

QString appendOne(const QString& text)
{
    return text + QLatin1Char('1');
}

} // namespace

void LineEditImplTest::metaObject()
{
    const QMetaObject& meta = LineEditImpl::staticMetaObject;
    QCOMPARE(meta.className(), "zel::qt::detail::LineEditImpl");
    QCOMPARE(meta.superClass(), &QLineEdit::staticMetaObject);
    QCOMPARE(meta.methodCount() - meta.methodOffset(), 2);
    const QMetaMethod first = meta.method(meta.methodOffset());
    const QMetaMethod second = meta.method(meta.methodOffset() + 1);
    QCOMPARE(first.methodSignature(), QByteArray("onHistoryItemSelectionChanged(QString)"));
    QCOMPARE(int(first.methodType()), int(QMetaMethod::Slot));
    QCOMPARE(second.methodSignature(), QByteArray("onClicked1()"));
    QCOMPARE(int(second.methodType()), int(QMetaMethod::Slot));
}

void LineEditImplTest::ownsItsPopups()
{
    const LineEditImpl edit(nullptr, 0);
    QCOMPARE(edit.findChildren<HistoryPopup*>(), QList<HistoryPopup*>{&edit.historyPopup()});
    QCOMPARE(edit.findChildren<EditHintPopup*>(), QList<EditHintPopup*>{&edit.editHintPopup()});
    QCOMPARE(edit.findChildren<PopupGroup*>().size(), 1);
    QCOMPARE(edit.historyPopup().parentWidget(), &edit);
    QCOMPARE(edit.editHintPopup().parentWidget(), &edit);
}

void LineEditImplTest::popupsAreStackedHintFirst()
{
    LineEditImpl edit(nullptr, 0);
    edit.editHintPopup().setHint(QStringLiteral("hint"));
    QVERIFY(zel::test::showActive(edit));
    QTRY_VERIFY(edit.hasFocus());
    zel::test::runDeferred();
    const QPoint below = edit.mapToGlobal(QPoint(0, edit.height()));
    QCOMPARE(edit.editHintPopup().pos(), below);
    QCOMPARE(edit.historyPopup().pos(), below + QPoint(0, edit.editHintPopup().height() + 5));
}

void LineEditImplTest::historyEntryIsCommitted()
{
    LineEditImpl edit(nullptr, 0);
    edit.setText(QStringLiteral("old"));
    const QSignalSpy finished(&edit, &QLineEdit::editingFinished);
    const QSignalSpy edited(&edit, &QLineEdit::textEdited);
    Q_EMIT edit.historyPopup().history_selected(QStringLiteral("new"));
    QCOMPARE(edit.text(), QStringLiteral("new"));
    QCOMPARE(finished.count(), 1);
    QCOMPARE(edited.count(), 0);
}

void LineEditImplTest::emptyHistoryEntryDoesNothing()
{
    LineEditImpl edit(nullptr, 0);
    edit.setText(QStringLiteral("old"));
    const QSignalSpy finished(&edit, &QLineEdit::editingFinished);
    edit.onHistoryItemSelectionChanged(QString());
    QCOMPARE(edit.text(), QStringLiteral("old"));
    QCOMPARE(finished.count(), 0);
}

void LineEditImplTest::buttonNeedsAFunction()
{
    LineEditImpl edit(nullptr, 0);
    QVERIFY(edit.addButton({}, QPixmap()) == nullptr);
    const auto reports = takeReports();
    QCOMPARE(reports.size(), std::size_t(1));
    QCOMPARE(reports[0].expression, std::string("fn"));
    QCOMPARE(reports[0].message, std::string());
    QVERIFY(reports[0].file.rfind("qt/src/controls", 0) == 0);
    QVERIFY(edit.findChildren<QToolButton*>().isEmpty());
    QVERIFY(edit.styleSheet().isEmpty());
    QVERIFY(edit.addButton(&appendOne, QPixmap()) != nullptr);
}

void LineEditImplTest::thereIsOneButton()
{
    LineEditImpl edit(nullptr, 0);
    QToolButton* const button = edit.addButton(&appendOne, QPixmap());
    const QString sheet = edit.styleSheet();
    QVERIFY(edit.addButton([](const QString&) { return QStringLiteral("second"); }, QPixmap()) ==
            nullptr);
    const auto reports = takeReports();
    QCOMPARE(reports.size(), std::size_t(1));
    QCOMPARE(reports[0].expression, std::string("!m_btn1"));
    QCOMPARE(reports[0].message, std::string("only 1 button allowed, at the moment."));
    QCOMPARE(edit.findChildren<QToolButton*>(), QList<QToolButton*>{button});
    QCOMPARE(edit.styleSheet(), sheet);
    button->click();
    QCOMPARE(edit.text(), QStringLiteral("1"));
    // Without a function the other complaint does not come up.
    QVERIFY(edit.addButton({}, QPixmap()) == nullptr);
    QCOMPARE(takeExpressions(), QStringList{"fn"});
}

void LineEditImplTest::iconOfTheButton_data()
{
    QTest::addColumn<QSize>("pixmap");
    QTest::addColumn<QSize>("iconSize");
    QTest::newRow("built-in folder") << QSize() << QSize(16, 16);
    QTest::newRow("small") << QSize(4, 4) << QSize(12, 12);
    QTest::newRow("as it is") << QSize(12, 12) << QSize(12, 12);
    QTest::newRow("large") << QSize(64, 32) << QSize(12, 12);
}

void LineEditImplTest::iconOfTheButton()
{
    QFETCH(QSize, pixmap);
    QPixmap picture;
    if (pixmap.isValid()) {
        picture = QPixmap(pixmap);
        picture.fill(Qt::red);
    }
    LineEditImpl edit(nullptr, 0);
    const QToolButton* const button = edit.addButton(&appendOne, picture);
    QTEST(button->iconSize(), "iconSize");
    const QImage shown = button->icon().pixmap(64, 64).toImage();
    QSet<QRgb> colours;
    for (int y = 0; y < shown.height(); ++y) {
        for (int x = 0; x < shown.width(); ++x) {
            colours.insert(shown.pixel(x, y));
        }
    }
    QCOMPARE(colours.size(), pixmap.isValid() ? 1 : 7);
    QCOMPARE(shown.size(), pixmap.isValid() ? pixmap : QSize(16, 16));
}

void LineEditImplTest::lookOfTheButton()
{
    LineEditImpl edit(nullptr, 0);
    edit.show();
    const QToolButton* const button = edit.addButton(&appendOne, QPixmap());
    QCOMPARE(button->parentWidget(), &edit);
    QCOMPARE(button->cursor().shape(), Qt::ArrowCursor);
    QCOMPARE(button->styleSheet(),
             QStringLiteral("QToolButton { border: none; padding: 0; margin: 0; }"));
    QVERIFY(button->isVisible());
}

void LineEditImplTest::roomForTheButton_data()
{
    QTest::addColumn<unsigned int>("flags");
    QTest::addColumn<bool>("borderless");
    QTest::newRow("framed") << 0U << false;
    QTest::newRow("borderless") << 1U << true;
    QTest::newRow("bit without a meaning") << 2U << false;
    QTest::newRow("all bits") << ~0U << true;
}

void LineEditImplTest::roomForTheButton()
{
    QFETCH(unsigned int, flags);
    QFETCH(bool, borderless);
    LineEditImpl edit(nullptr, flags);
    const int frame =
        borderless ? 0 : edit.style()->pixelMetric(QStyle::PM_DefaultFrameWidth, nullptr, &edit);
    const QToolButton* const button = edit.addButton(&appendOne, QPixmap());
    const QSize hint = button->sizeHint();
    QCOMPARE(edit.styleSheet(), QStringLiteral("QLineEdit { padding-right: %1px; padding-top:-1; "
                                               "margin-top:-1; padding-bottom:0;  }")
                                    .arg(hint.width() + 1 + frame));
    const QSize least = edit.minimumSizeHint();
    QCOMPARE(edit.minimumHeight(),
             borderless ? 16 : qMax(least.height(), hint.height() + 2 * frame));
    QCOMPARE(edit.minimumWidth(), qMax(least.width(), hint.height() + 2 + 2 * frame));
}

void LineEditImplTest::buttonStandsAtTheRight_data()
{
    QTest::addColumn<unsigned int>("flags");
    QTest::addColumn<QSize>("size");
    QTest::newRow("framed") << 0U << QSize(120, 24);
    QTest::newRow("odd height") << 0U << QSize(121, 31);
    QTest::newRow("borderless: the frame counts all the same") << 1U << QSize(120, 24);
}

void LineEditImplTest::buttonStandsAtTheRight()
{
    QFETCH(unsigned int, flags);
    QFETCH(QSize, size);
    QWidget window;
    LineEditImpl edit(&window, flags);
    const QToolButton* const button = edit.addButton(&appendOne, QPixmap());
    window.show();
    edit.resize(size);
    const QSize hint = button->sizeHint();
    const int frame = edit.style()->pixelMetric(QStyle::PM_DefaultFrameWidth);
    QCOMPARE(button->pos(),
             QPoint(edit.width() - 1 - frame - hint.width(), (edit.height() - hint.height()) / 2));
}

void LineEditImplTest::clickReplacesTheText()
{
    LineEditImpl edit(nullptr, 0);
    QString given;
    QToolButton* const button = edit.addButton(
        [&given](const QString& text) {
            given = text;
            return appendOne(text);
        },
        QPixmap());
    QVERIFY(zel::test::showActive(edit));
    edit.setFocus();
    QTest::keyClicks(&edit, QStringLiteral("12"));
    const QSignalSpy edited(&edit, &QLineEdit::textEdited);
    const QSignalSpy finished(&edit, &QLineEdit::editingFinished);
    QTest::mouseClick(button, Qt::LeftButton);
    QCOMPARE(given, QStringLiteral("12"));
    QCOMPARE(edit.text(), QStringLiteral("121"));
    QCOMPARE(edit.selectedText(), QStringLiteral("121"));
    QVERIFY(edit.hasFocus());
    QCOMPARE(edited.count(), 0);
    QCOMPARE(finished.count(), 0);
}

void LineEditImplTest::clickWithTheSameTextLeavesTheSelection()
{
    LineEditImpl edit(nullptr, 0);
    QToolButton* const button = edit.addButton([](const QString& text) { return text; }, QPixmap());
    edit.setText(QStringLiteral("12"));
    const QSignalSpy changed(&edit, &QLineEdit::textChanged);
    button->click();
    QCOMPARE(edit.text(), QStringLiteral("12"));
    QVERIFY(!edit.hasSelectedText());
    QCOMPARE(changed.count(), 0);
}

void LineEditImplTest::clickMayDeleteTheEdit()
{
    QPointer<LineEditImpl> edit = new LineEditImpl(nullptr, 0);
    auto own = std::make_shared<int>();
    const std::weak_ptr<int> owned = own;
    long ownersLeft = 0;
    QToolButton* const button = edit->addButton(
        [&, own](const QString&) {
            // What the function holds has to outlast the edit, for as long as it runs.
            const std::weak_ptr<int>& seen = owned;
            long& result = ownersLeft;
            delete edit;
            result = seen.use_count();
            return QStringLiteral("12");
        },
        QPixmap());
    own.reset();
    QTest::mouseClick(button, Qt::LeftButton);
    QVERIFY(!edit);
    QCOMPARE(ownersLeft, 1L);
}

void LineEditImplTest::slotWithoutAButtonDoesNothing()
{
    LineEditImpl edit(nullptr, 0);
    edit.setText(QStringLiteral("12"));
    edit.onClicked1();
    QCOMPARE(edit.text(), QStringLiteral("12"));
    QVERIFY(!edit.hasSelectedText());
}

void LineEditImplTest::lastFilterRunsLast()
{
    struct Witness : QObject
    {
        explicit Witness(const LineEditImpl& e)
            : edit(e)
        {}
        bool eventFilter(QObject*, QEvent* e) override
        {
            if (e->type() == QEvent::FocusIn) {
                popupsWereShown = !edit.historyPopup().isHidden();
            }
            return false;
        }
        const LineEditImpl& edit;
        bool popupsWereShown = false;
    };
    LineEditImpl edit(nullptr, 0);
    Witness last(edit);
    Witness ordinary(edit);
    edit.installLastEventFilter(&last);
    edit.installEventFilter(&ordinary);
    QVERIFY(zel::test::showActive(edit));
    QTRY_VERIFY(edit.hasFocus());
    QVERIFY(last.popupsWereShown);
    QVERIFY(!ordinary.popupsWereShown);
}

QTEST_MAIN(LineEditImplTest)
#include "tst_line_edit_impl.moc"
