#include "qt/inc/controls.h"
#include "tests/helpers/active_window.h"
#include "tests/helpers/checked_test.h"

#include <QApplication>
#include <QFocusEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMetaMethod>
#include <QScrollBar>
#include <QSignalSpy>
#include <QVBoxLayout>
#include <QWindow>

#include <boost/make_shared.hpp>

using namespace zel::qt::detail;
using zel::ValueHistory;
using zel::ValueHistoryMemoryStorage;

/// Two edits in an active window; the popups belong to the first.
class PopupsTest : public zel::test::CheckedTest
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void popupIsASmallToolWindow();
    void listHasNoScrollBars();
    void metaObjectOfTheHistoryPopup();
    void showsWithTheFocus();
    void focusLossHides_data();
    void focusLossHides();
    void focusInThePopupKeepsItOpen();
    void focusLossLeavesTheFocusWhereItWent();
    void doesNotTakeTheActivation();
    void deactivationHides();
    void goesWithTheEdit();
    void eventsGoOnToTheEdit();
    void opacityFollowsTheMouse();
    void hintTakesTheSizeOfItsLabel();
    void sameHintTakesItsSizeAnew();
    void historyWithoutEntriesIsEmpty_data();
    void historyWithoutEntriesIsEmpty();
    void historyIsAsHighAsItsRows();
    void listFillsThePopup_data();
    void listFillsThePopup();
    void historyIsReadAtEachShow();
    void clickGivesTheEntryBack();
    void groupStacksThePopups();
    void groupFollowsTheEdit_data();
    void groupFollowsTheEdit();
    void groupPlacesAPopupThatGrewAfterItsShow();
    void groupIgnoresOtherObjects();
    void groupSkipsADeadPopup();
    void deferredPlacingOutlivesTheGroup();

private:
    void focusEdit();
    QPoint belowEdit() const;

    QWidget* m_window = nullptr;
    QLineEdit* m_edit = nullptr;
    QLineEdit* m_other = nullptr;
};

namespace {

boost::shared_ptr<ValueHistory> historyOf(const QStringList& oldestFirst)
{
    auto history =
        boost::make_shared<ValueHistory>(L"key", boost::make_shared<ValueHistoryMemoryStorage>());
    for (const QString& value : oldestFirst) {
        history->add(value.toStdWString());
    }
    return history;
}

QStringList textsOf(const QListWidget& list)
{
    QStringList texts;
    for (int row = 0; row < list.count(); ++row) {
        texts.append(list.item(row)->text());
    }
    return texts;
}

void clickEntry(QListWidget& list, int row)
{
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {},
                      list.visualItemRect(list.item(row)).center());
}

} // namespace

void PopupsTest::init()
{
    CheckedTest::init();
    m_window = new QWidget;
    auto* layout = new QVBoxLayout(m_window);
    m_edit = new QLineEdit(m_window);
    m_other = new QLineEdit(m_window);
    layout->addWidget(m_edit);
    layout->addWidget(m_other);
    m_window->move(100, 100);
    QVERIFY(zel::test::showActive(*m_window));
    m_other->setFocus();
    QVERIFY(m_other->hasFocus());
}

void PopupsTest::cleanup()
{
    delete m_window;
    CheckedTest::cleanup();
}

void PopupsTest::focusEdit()
{
    QTest::mouseClick(m_edit, Qt::LeftButton);
    zel::test::runDeferred();
}

QPoint PopupsTest::belowEdit() const
{
    return m_edit->mapToGlobal(QPoint(0, m_edit->height()));
}

void PopupsTest::popupIsASmallToolWindow()
{
    const PopupBase popup(m_edit);
    QCOMPARE(popup.parentWidget(), m_edit);
    QCOMPARE(int(popup.windowFlags()), int(Qt::Tool | Qt::FramelessWindowHint));
    QCOMPARE(popup.styleSheet(),
             QStringLiteral("* {  border: 1px solid gray; background-color:white;}"));
    QCOMPARE(popup.contentsMargins(), QMargins());
    QVERIFY(qAbs(popup.windowOpacity() - 0.7) < 0.005);
    QVERIFY(popup.testAttribute(Qt::WA_MouseTracking));
    QCOMPARE(popup.sizePolicy(), QSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed));
    QVERIFY(popup.isHidden());
}

void PopupsTest::listHasNoScrollBars()
{
    const HistoryPopup popup(m_edit);
    const auto* list = popup.findChild<QListWidget*>();
    QCOMPARE(int(list->verticalScrollBarPolicy()), int(Qt::ScrollBarAlwaysOff));
    QCOMPARE(int(list->horizontalScrollBarPolicy()), int(Qt::ScrollBarAlwaysOff));
    QCOMPARE(list->sizePolicy(), QSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed));
    QCOMPARE(popup.layout()->contentsMargins(), QMargins());
    QCOMPARE(int(popup.layout()->sizeConstraint()), int(QLayout::SetNoConstraint));
    const EditHintPopup hint(m_edit);
    QCOMPARE(hint.findChild<QLabel*>()->sizePolicy(),
             QSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed));
    QCOMPARE(hint.layout()->contentsMargins(), QMargins());
    QCOMPARE(int(hint.layout()->sizeConstraint()), int(QLayout::SetNoConstraint));
}

void PopupsTest::metaObjectOfTheHistoryPopup()
{
    const QMetaObject& meta = HistoryPopup::staticMetaObject;
    QCOMPARE(meta.className(), "zel::qt::detail::HistoryPopup");
    QCOMPARE(meta.methodCount() - meta.methodOffset(), 1);
    const QMetaMethod signal = meta.method(meta.methodOffset());
    QCOMPARE(signal.methodSignature(), QByteArray("history_selected(QString)"));
    QCOMPARE(int(signal.methodType()), int(QMetaMethod::Signal));
}

void PopupsTest::showsWithTheFocus()
{
    const EditHintPopup hint(m_edit);
    const HistoryPopup history(m_edit);
    focusEdit();
    QVERIFY(!hint.isHidden());
    QVERIFY(!history.isHidden());
    QCOMPARE(hint.size(), QSize(0, 0));
    QCOMPARE(history.size(), QSize(0, 0));
}

void PopupsTest::focusLossHides_data()
{
    QTest::addColumn<int>("reason");
    QTest::addColumn<bool>("staysOpen");
    QTest::newRow("mouse") << int(Qt::MouseFocusReason) << false;
    QTest::newRow("tab") << int(Qt::TabFocusReason) << false;
    QTest::newRow("backtab") << int(Qt::BacktabFocusReason) << false;
    QTest::newRow("another window") << int(Qt::ActiveWindowFocusReason) << true;
    QTest::newRow("popup") << int(Qt::PopupFocusReason) << false;
    QTest::newRow("shortcut") << int(Qt::ShortcutFocusReason) << false;
    QTest::newRow("menu bar") << int(Qt::MenuBarFocusReason) << false;
    QTest::newRow("other") << int(Qt::OtherFocusReason) << false;
}

void PopupsTest::focusLossHides()
{
    QFETCH(int, reason);
    const HistoryPopup popup(m_edit);
    focusEdit();
    QVERIFY(!popup.isHidden());
    QFocusEvent out(QEvent::FocusOut, static_cast<Qt::FocusReason>(reason));
    QApplication::sendEvent(m_edit, &out);
    QTEST(!popup.isHidden(), "staysOpen");
}

void PopupsTest::focusInThePopupKeepsItOpen()
{
    PopupBase popup(m_edit);
    PopupBase other(m_edit);
    popup.setFocusPolicy(Qt::StrongFocus);
    focusEdit();
    // As where the system gives the focus to a window that does not want it.
    popup.windowHandle()->setFlag(Qt::WindowDoesNotAcceptFocus, false);
    QApplication::setActiveWindow(&popup);
    popup.setFocus();
    QCOMPARE(QApplication::focusWidget(), &popup);
    QFocusEvent out(QEvent::FocusOut, Qt::MouseFocusReason);
    QApplication::sendEvent(m_edit, &out);
    QVERIFY(!popup.isHidden());
    QVERIFY(other.isHidden());
}

void PopupsTest::focusLossLeavesTheFocusWhereItWent()
{
    const HistoryPopup popup(m_edit);
    focusEdit();
    QTest::keyClick(m_edit, Qt::Key_Tab);
    zel::test::runDeferred();
    QVERIFY(popup.isHidden());
    QCOMPARE(QApplication::focusWidget(), m_other);
    focusEdit();
    QTest::mouseClick(m_other, Qt::LeftButton);
    zel::test::runDeferred();
    QVERIFY(popup.isHidden());
    QCOMPARE(QApplication::focusWidget(), m_other);
    focusEdit();
    m_edit->clearFocus();
    QVERIFY(popup.isHidden());
    QVERIFY(QApplication::focusWidget() == nullptr);
}

void PopupsTest::doesNotTakeTheActivation()
{
    HistoryPopup popup(m_edit);
    popup.setValueHistory(historyOf({"1", "2"}));
    focusEdit();
    QVERIFY(popup.height() > 0);
    QTest::qWait(0);
    QVERIFY(m_window->isActiveWindow());
    QVERIFY(m_edit->hasFocus());
    clickEntry(*popup.findChild<QListWidget*>(), 0);
    QTest::qWait(0);
    QVERIFY(m_window->isActiveWindow());
    QVERIFY(m_edit->hasFocus());
    QVERIFY(!popup.isHidden());
}

void PopupsTest::deactivationHides()
{
    HistoryPopup popup(m_edit);
    focusEdit();
    QEvent deactivate(QEvent::WindowDeactivate);
    QApplication::sendEvent(&popup, &deactivate);
    QVERIFY(popup.isHidden());
}

void PopupsTest::goesWithTheEdit()
{
    const HistoryPopup popup(m_edit);
    focusEdit();
    QVERIFY(!popup.isHidden());
    m_window->hide();
    QVERIFY(popup.isHidden());
}

void PopupsTest::eventsGoOnToTheEdit()
{
    HistoryPopup popup(m_edit);
    PopupGroup group(m_edit);
    group.addPopup(&popup);
    focusEdit();
    QTest::keyClicks(m_edit, QStringLiteral("abc"));
    QCOMPARE(m_edit->text(), QStringLiteral("abc"));
    QSignalSpy finished(m_edit, &QLineEdit::editingFinished);
    m_other->setFocus();
    QCOMPARE(finished.count(), 1);
}

void PopupsTest::opacityFollowsTheMouse()
{
    PopupBase popup(m_edit);
    QEvent enter(QEvent::Enter);
    QApplication::sendEvent(&popup, &enter);
    QVERIFY(qAbs(popup.windowOpacity() - 0.9) < 0.005);
    QEvent leave(QEvent::Leave);
    QApplication::sendEvent(&popup, &leave);
    QVERIFY(qAbs(popup.windowOpacity() - 0.7) < 0.005);
}

void PopupsTest::hintTakesTheSizeOfItsLabel()
{
    EditHintPopup popup(m_edit);
    const auto* label = popup.findChild<QLabel*>();
    QCOMPARE(popup.sizeHint(), QSize(0, 0));
    popup.setHint(QStringLiteral("= 1000 mm"));
    QCOMPARE(label->text(), QStringLiteral("= 1000 mm"));
    QVERIFY(!label->sizeHint().isEmpty());
    QCOMPARE(popup.sizeHint(), label->sizeHint());
    QCOMPARE(popup.size(), label->sizeHint());
    QVERIFY(popup.isHidden());
    const int width = popup.width();
    popup.setHint(QStringLiteral("a hint that is longer than before"));
    QVERIFY(popup.width() > width);
    popup.setHint(QString());
    QCOMPARE(popup.sizeHint(), QSize(0, 0));
    QCOMPARE(popup.size(), QSize(0, 0));
}

void PopupsTest::sameHintTakesItsSizeAnew()
{
    EditHintPopup popup(m_edit);
    auto* label = popup.findChild<QLabel*>();
    popup.setHint(QStringLiteral("0 to 9"));
    const QSize size = popup.size();
    popup.setFixedSize(1, 1);
    popup.setHint(QStringLiteral("0 to 9"));
    QCOMPARE(popup.size(), size);
    QFont font = label->font();
    font.setPointSize(2 * font.pointSize());
    label->setFont(font);
    popup.setHint(QStringLiteral("0 to 9"));
    QVERIFY(popup.height() > size.height());
    QCOMPARE(popup.size(), label->sizeHint());
}

void PopupsTest::historyWithoutEntriesIsEmpty_data()
{
    QTest::addColumn<bool>("hasHistory");
    QTest::newRow("no history") << false;
    QTest::newRow("no entries") << true;
}

void PopupsTest::historyWithoutEntriesIsEmpty()
{
    QFETCH(bool, hasHistory);
    HistoryPopup popup(m_edit);
    if (hasHistory) {
        popup.setValueHistory(historyOf({}));
    }
    focusEdit();
    QCOMPARE(popup.sizeHint(), QSize(0, 0));
    QCOMPARE(popup.minimumSize(), QSize(0, 0));
    QCOMPARE(popup.maximumSize(), QSize(0, 0));
}

void PopupsTest::historyIsAsHighAsItsRows()
{
    HistoryPopup popup(m_edit);
    popup.setValueHistory(historyOf({"1", "a wider entry", "2", "3", "4"}));
    focusEdit();
    const auto* list = popup.findChild<QListWidget*>();
    QCOMPARE(list->count(), 5);
    const int frames = 2 * list->frameWidth();
    QCOMPARE(popup.height(), 5 * list->sizeHintForRow(0) + frames);
    QCOMPARE(popup.width(), list->sizeHintForColumn(0) + frames + 20);
    QVERIFY(list->sizeHintForColumn(0) >=
            list->fontMetrics().horizontalAdvance(QStringLiteral("a wider entry")));
    QCOMPARE(popup.minimumSize(), popup.size());
    QCOMPARE(popup.maximumSize(), popup.size());
    QCOMPARE(list->size(), popup.size());
    for (int row = 0; row < 5; ++row) {
        QVERIFY(list->viewport()->rect().contains(list->visualItemRect(list->item(row))));
    }
    m_window->resize(m_window->width() * 2, m_window->height());
    QVERIFY(popup.width() != m_edit->width());
}

void PopupsTest::listFillsThePopup_data()
{
    QTest::addColumn<QString>("widest");
    QTest::addColumn<int>("pixelSize");
    QTest::newRow("long entry") << QString(60, QLatin1Char('m')) << 12;
    QTest::newRow("large font") << "1" << 60;
    QTest::newRow("small font") << "1" << 8;
}

void PopupsTest::listFillsThePopup()
{
    QFETCH(QString, widest);
    QFETCH(int, pixelSize);
    HistoryPopup popup(m_edit);
    auto* list = popup.findChild<QListWidget*>();
    QFont font = list->font();
    font.setPixelSize(pixelSize);
    list->setFont(font);
    focusEdit();
    QCOMPARE(popup.size(), QSize(0, 0));

    popup.setValueHistory(historyOf({"1", "2", widest, "3", "4", "5"}));
    m_other->setFocus();
    focusEdit();
    QCOMPARE(popup.size(), popup.sizeHint());
    QCOMPARE(list->geometry(), popup.rect());
    for (int row = 0; row < list->count(); ++row) {
        QVERIFY(list->viewport()->rect().contains(list->visualItemRect(list->item(row))));
    }
    QVERIFY(list->viewport()->width() >= list->sizeHintForColumn(0));
    QCOMPARE(list->verticalScrollBar()->maximum(), 0);
    QCOMPARE(list->horizontalScrollBar()->maximum(), 0);
}

void PopupsTest::historyIsReadAtEachShow()
{
    HistoryPopup popup(m_edit);
    const auto history = historyOf({"1", "2"});
    popup.setValueHistory(history);
    const auto* list = popup.findChild<QListWidget*>();
    QCOMPARE(list->count(), 0);
    focusEdit();
    QCOMPARE(textsOf(*list), (QStringList{"2", "1"}));
    history->add(L"\u00bd \U0001F4CF");
    QCOMPARE(textsOf(*list), (QStringList{"2", "1"}));
    m_other->setFocus();
    QCOMPARE(textsOf(*list), (QStringList{"2", "1"}));
    focusEdit();
    QCOMPARE(textsOf(*list), (QStringList{QString::fromUtf8("\u00bd \U0001F4CF"), "2", "1"}));
    popup.setValueHistory(nullptr);
    m_other->setFocus();
    focusEdit();
    QCOMPARE(textsOf(*list), QStringList());
}

void PopupsTest::clickGivesTheEntryBack()
{
    HistoryPopup popup(m_edit);
    popup.setValueHistory(historyOf({"1", "2", "3"}));
    const QSignalSpy selected(&popup, &HistoryPopup::history_selected);
    focusEdit();
    auto* list = popup.findChild<QListWidget*>();
    clickEntry(*list, 1);
    QCOMPARE(selected.count(), 1);
    QCOMPARE(selected[0][0].toString(), QStringLiteral("2"));
    clickEntry(*list, 1);
    QCOMPARE(selected.count(), 2);
    clickEntry(*list, 2);
    QCOMPARE(selected.count(), 3);
    QCOMPARE(selected[2][0].toString(), QStringLiteral("1"));
    QVERIFY(!popup.isHidden());
    QCOMPARE(m_edit->text(), QString());
}

void PopupsTest::groupStacksThePopups()
{
    HistoryPopup history(m_edit);
    EditHintPopup hint(m_edit);
    PopupGroup group(m_edit);
    group.addPopup(&hint);
    group.addPopup(&history);
    QCOMPARE(group.parent(), m_edit);
    history.setValueHistory(historyOf({"1"}));
    focusEdit();
    QCOMPARE(hint.pos(), belowEdit());
    QCOMPARE(history.pos(), belowEdit() + QPoint(0, 5));

    hint.hide();
    hint.setHint(QStringLiteral("hint"));
    hint.show();
    QCOMPARE(history.pos(), belowEdit() + QPoint(0, 5)); // not before the timer has run
    zel::test::runDeferred();
    QCOMPARE(hint.pos(), belowEdit());
    QCOMPARE(history.pos(), belowEdit() + QPoint(0, hint.height() + 5));

    const int height = hint.height();
    hint.setHint(QString());
    hint.hide();
    zel::test::runDeferred();
    QCOMPARE(history.pos(), belowEdit() + QPoint(0, height + 5)); // until the next positioning
    m_edit->resize(m_edit->width() - 1, m_edit->height());
    QCOMPARE(history.pos(), belowEdit() + QPoint(0, 5));
}

void PopupsTest::groupFollowsTheEdit_data()
{
    QTest::addColumn<QString>("what");
    QTest::addColumn<bool>("follows");
    QTest::newRow("edit moved") << "move" << true;
    QTest::newRow("edit resized") << "resize" << true;
    QTest::newRow("focus") << "focus" << true;
    QTest::newRow("window moved") << "window" << false;
}

void PopupsTest::groupFollowsTheEdit()
{
    QFETCH(QString, what);
    QFETCH(bool, follows);
    EditHintPopup hint(m_edit);
    PopupGroup group(m_edit);
    group.addPopup(&hint);
    focusEdit();
    const QPoint before = belowEdit();
    QCOMPARE(hint.pos(), before);
    if (what == QLatin1String("move")) {
        m_edit->move(m_edit->pos() + QPoint(7, 3));
    } else if (what == QLatin1String("resize")) {
        m_edit->resize(m_edit->width(), m_edit->height() + 6);
    } else if (what == QLatin1String("window")) {
        m_window->move(m_window->pos() + QPoint(20, 30));
    } else {
        hint.move(1, 1);
        QFocusEvent in(QEvent::FocusIn);
        QApplication::sendEvent(m_edit, &in);
    }
    QCOMPARE(hint.pos(), follows ? belowEdit() : before);
}

void PopupsTest::groupPlacesAPopupThatGrewAfterItsShow()
{
    QWidget first;
    QWidget second;
    PopupGroup group(m_edit);
    group.addPopup(&first);
    group.addPopup(&second);
    first.show();
    first.resize(50, 41);
    zel::test::runDeferred();
    QCOMPARE(first.pos(), belowEdit());
    QCOMPARE(second.pos(), belowEdit() + QPoint(0, 41 + 5));
}

void PopupsTest::groupIgnoresOtherObjects()
{
    QWidget popup;
    QWidget stranger;
    PopupGroup group(m_edit);
    group.addPopup(&popup);
    stranger.installEventFilter(&group);
    popup.move(3, 4);
    stranger.show();
    stranger.resize(77, 66);
    popup.resize(55, 44);
    zel::test::runDeferred();
    QCOMPARE(popup.pos(), QPoint(3, 4));
}

void PopupsTest::groupSkipsADeadPopup()
{
    auto first = std::make_unique<EditHintPopup>(m_edit);
    EditHintPopup second(m_edit);
    PopupGroup group(m_edit);
    group.addPopup(first.get());
    group.addPopup(&second);
    first->setHint(QStringLiteral("hint"));
    first.reset();
    focusEdit();
    QCOMPARE(second.pos(), belowEdit());
}

void PopupsTest::deferredPlacingOutlivesTheGroup()
{
    QWidget popup;
    auto group = std::make_unique<PopupGroup>(m_edit);
    group->addPopup(&popup);
    popup.show();
    group.reset();
    popup.move(3, 4);
    zel::test::runDeferred();
    QCOMPARE(popup.pos(), QPoint(3, 4));

    popup.hide();
    QVERIFY(zel::test::showActive(*m_window));
    auto* edit = new LineEditImpl(m_window, 0);
    edit->show();
    edit->setFocus();
    QVERIFY(edit->hasFocus());
    delete edit;
    zel::test::runDeferred();
}

QTEST_MAIN(PopupsTest)
#include "tst_popups.moc"
