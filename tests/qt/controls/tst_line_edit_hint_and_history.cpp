#include "qt/inc/controls.h"
#include "tests/helpers/checked_test.h"
#include "tests/helpers/line_edit_form.h"
#include "tests/helpers/word_translator.h"

#include <QLabel>
#include <QListWidget>

#include <boost/make_shared.hpp>

#include <deque>
#include <memory>
#include <string>

using namespace zel::qt;
using zel::test::NumberValidator;

class LineEditHintAndHistoryTest : public zel::test::CheckedTest, private zel::test::LineEditForm
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void hintFollowsTheText();
    void hintWithoutFocusStaysHidden();
    void historyIsSharedWithThePopup();
    void historyEntryIsACommit_data();
    void historyEntryIsACommit();
    void historyEntryReplacesWhatIsBeingTyped();
    void currentValueGoesToTheHistory_data();
    void currentValueGoesToTheHistory();
    void historyWithoutValidatorIsReported();
};

void LineEditHintAndHistoryTest::init()
{
    CheckedTest::init();
    QVERIFY(open());
}

void LineEditHintAndHistoryTest::cleanup()
{
    close();
    CheckedTest::cleanup();
}

void LineEditHintAndHistoryTest::hintFollowsTheText()
{
    m_validator->setEditHintFunction([](const QString& text) {
        return text.contains(QLatin1Char('9')) ? QString() : QStringLiteral("hint of ") + text;
    });
    auto* const popup = m_field->findChild<detail::EditHintPopup*>();
    auto* const history = m_field->findChild<detail::HistoryPopup*>();
    const auto* const label = popup->findChild<QLabel*>();
    popup->hide();
    QTest::keyClicks(m_edit, QStringLiteral("12"));
    QVERIFY(!popup->isHidden());
    QCOMPARE(label->text(), QStringLiteral("hint of 12"));
    QCOMPARE(popup->size(), label->sizeHint());
    QCOMPARE(popup->minimumSize(), popup->maximumSize());
    zel::test::runDeferred();
    const QPoint below = m_edit->mapToGlobal(QPoint(0, m_edit->height()));
    QCOMPARE(popup->pos(), below);
    QCOMPARE(history->pos(), below + QPoint(0, popup->height() + 5));
    const int height = popup->height();
    // A bad text has a hint all the same.
    QTest::keyClicks(m_edit, QStringLiteral("x"));
    QCOMPARE(label->text(), QStringLiteral("hint of 12x"));
    QVERIFY(!popup->isHidden());
    QTest::keyClicks(m_edit, QStringLiteral("9"));
    QVERIFY(popup->isHidden());
    QCOMPARE(label->text(), QString());
    QCOMPARE(popup->size(), QSize(0, 0));
    zel::test::runDeferred();
    QCOMPARE(history->pos(), below + QPoint(0, height + 5));
    QVERIFY(m_edit->hasFocus());
    QCOMPARE(changes(), 0);
}

void LineEditHintAndHistoryTest::hintWithoutFocusStaysHidden()
{
    m_validator->setEditHintFunction([](const QString&) { return QStringLiteral("hint"); });
    m_other->edit().setFocus();
    auto* const popup = m_field->findChild<detail::EditHintPopup*>();
    QVERIFY(popup->isHidden());
    QTest::keyClicks(m_edit, QStringLiteral("1"));
    QVERIFY(popup->isHidden());
    QCOMPARE(popup->findChild<QLabel*>()->text(), QStringLiteral("hint"));
    popup->show();
    m_changed->clear();
    QTest::keyClicks(m_edit, QStringLiteral("2"));
    QVERIFY(!popup->isHidden());
    QCOMPARE(changes(), 0);
}

void LineEditHintAndHistoryTest::historyIsSharedWithThePopup()
{
    const auto history = boost::make_shared<zel::ValueHistory>(
        L"key", boost::make_shared<zel::ValueHistoryMemoryStorage>());
    history->add(L"1");
    m_field->setValueHistory(history);
    QCOMPARE(m_field->valueHistory(), history);
    m_other->edit().setFocus();
    m_edit->setFocus();
    const auto* list = m_field->findChild<QListWidget*>();
    QCOMPARE(list->count(), 1);
    m_field->setValueHistory(nullptr);
    QVERIFY(!m_field->valueHistory());
    QCOMPARE(history.use_count(), 1L);
}

void LineEditHintAndHistoryTest::historyEntryIsACommit_data()
{
    QTest::addColumn<bool>("readOnly");
    QTest::newRow("field to type in") << false;
    QTest::newRow("field that is closed to typing only") << true;
}

void LineEditHintAndHistoryTest::historyEntryIsACommit()
{
    QFETCH(bool, readOnly);
    m_field->setReadOnly(readOnly);
    const auto history = boost::make_shared<zel::ValueHistory>(
        L"key", boost::make_shared<zel::ValueHistoryMemoryStorage>());
    history->add(L"1.5");
    history->add(L"2.5");
    m_field->setValueHistory(history);
    QTest::mouseClick(&m_other->edit(), Qt::LeftButton);
    QTest::mouseClick(m_edit, Qt::LeftButton);
    zel::test::runDeferred();
    m_changed->clear();
    auto* list = m_field->findChild<QListWidget*>();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                      list->visualItemRect(list->item(1)).center());
    QCOMPARE(m_edit->text(), QStringLiteral("1.500"));
    QVERIFY(m_field->isValueValid());
    QCOMPARE(changes(), 1);
    QVERIFY(m_edit->hasFocus());
    QVERIFY(!m_field->findChild<detail::HistoryPopup*>()->isHidden());
}

void LineEditHintAndHistoryTest::historyEntryReplacesWhatIsBeingTyped()
{
    const auto history = boost::make_shared<zel::ValueHistory>(
        L"key", boost::make_shared<zel::ValueHistoryMemoryStorage>());
    history->add(L"2.5");
    m_field->setValueHistory(history);
    QTest::mouseClick(&m_other->edit(), Qt::LeftButton);
    QTest::mouseClick(m_edit, Qt::LeftButton);
    zel::test::runDeferred();
    m_changed->clear();
    QTest::keyClicks(m_edit, QStringLiteral("x"));
    QCOMPARE(changes(), 0);
    auto* list = m_field->findChild<QListWidget*>();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                      list->visualItemRect(list->item(0)).center());
    QCOMPARE(changes(), 1);
    QCOMPARE(m_edit->text(), QStringLiteral("2.500"));
    QVERIFY(m_field->isValueValid());
    QCOMPARE(m_edit->styleSheet(), QStringLiteral("QLineEdit { color: #000; }"));
    QTest::keyClick(m_edit, Qt::Key_Tab);
    QCOMPARE(changes(), 2); // leaving the field is an end of editing of its own
    QCOMPARE(m_edit->text(), QStringLiteral("2.500"));
}

void LineEditHintAndHistoryTest::currentValueGoesToTheHistory_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("translation");
    QTest::addColumn<bool>("recorded");
    QTest::newRow("number") << "1.5"
                            << "*VARIES*" << true;
    QTest::newRow("bad text") << "abc"
                              << "*VARIES*" << true;
    QTest::newRow("blank") << " "
                           << "*VARIES*" << true;
    QTest::newRow("outside the basic plane")
        << QString::fromUtf8("\U0001F4CF") << "*VARIES*" << true;
    QTest::newRow("empty") << ""
                           << "*VARIES*" << false;
    QTest::newRow("marker") << "*VARIES*"
                            << "*VARIES*" << false;
    QTest::newRow("marker of another language") << "*VARIES*"
                                                << "*DIVERS*" << true;
    QTest::newRow("marker in its language") << "*DIVERS*"
                                            << "*DIVERS*" << false;
}

void LineEditHintAndHistoryTest::currentValueGoesToTheHistory()
{
    QFETCH(QString, text);
    QFETCH(QString, translation);
    QFETCH(bool, recorded);
    const zel::test::WordTranslator translator("QObject", "*VARIES*", nullptr, translation);
    m_edit->setText(text);
    m_field->addCurrentValueToValueHistory(); // no history: nothing
    const auto history = boost::make_shared<zel::ValueHistory>(
        L"key", boost::make_shared<zel::ValueHistoryMemoryStorage>());
    m_field->setValueHistory(history);
    m_validator->takeCalls();
    m_field->addCurrentValueToValueHistory();
    std::deque<std::wstring> values;
    history->get(values);
    QCOMPARE(values,
             recorded ? std::deque<std::wstring>{text.toStdWString()} : std::deque<std::wstring>());
    QCOMPARE(m_validator->takeCalls(), QStringList());
    QCOMPARE(changes(), 0);
}

void LineEditHintAndHistoryTest::historyWithoutValidatorIsReported()
{
    const std::unique_ptr<SimpleLineEdit> field(SimpleLineEdit::create(
        nullptr, QString(), boost::shared_ptr<IValidator>(), 0, ExpandRight));
    const auto history = boost::make_shared<zel::ValueHistory>(
        L"key", boost::make_shared<zel::ValueHistoryMemoryStorage>());
    field->setValueHistory(history);
    field->edit().setText(QStringLiteral("1"));
    field->addCurrentValueToValueHistory();
    const auto reports = takeReports();
    QCOMPARE(reports.size(), std::size_t(1));
    QCOMPARE(reports[0].expression, std::string("m_validator"));
    QVERIFY(reports[0].file.rfind("qt/src/controls", 0) == 0);
    std::deque<std::wstring> values;
    QCOMPARE(history->get(values), std::size_t(1));
}

QTEST_MAIN(LineEditHintAndHistoryTest)
#include "tst_line_edit_hint_and_history.moc"
