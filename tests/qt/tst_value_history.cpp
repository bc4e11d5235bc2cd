#include "qt/inc/value_history.h"
#include "tests/helpers/checked_test.h"

#include <boost/make_shared.hpp>

#include <type_traits>

using namespace zel;

class ValueHistoryTest : public zel::test::CheckedTest
{
    Q_OBJECT
private Q_SLOTS:
    void entriesAfterAdding_data();
    void entriesAfterAdding();
    void keysAreApart();
    void unknownKeyEmptiesTheResult();
    void emptyKeyLeavesTheResult();
    void emptyKeyIsNotRecorded();
    void emptyValueMakesNoKey();
    void limitIsFive();
    void lowerLimitDropsTheOldest();
    void nullStorage();
    void storeIsOneForAllNames();
    void createUsesTheStore();
    void storageOfTheHost();
    void handleKeepsTheStorageAlive();
    void storageIsNotCopyable();
};

namespace {

std::deque<std::wstring> entries(const ValueHistory& history)
{
    std::deque<std::wstring> values{L"left over"};
    const std::size_t count = history.get(values);
    return count == values.size() ? values : std::deque<std::wstring>{L"wrong count"};
}

QString shown(const ValueHistory& history)
{
    QStringList texts;
    for (const std::wstring& entry : entries(history)) {
        texts.append(QString::fromStdWString(entry));
    }
    return texts.join(QLatin1Char('|'));
}

ValueHistory fresh(const std::wstring& key)
{
    return {key, boost::make_shared<ValueHistoryMemoryStorage>()};
}

} // namespace

void ValueHistoryTest::entriesAfterAdding_data()
{
    QTest::addColumn<QString>("added");
    QTest::addColumn<QString>("expected");
    QTest::newRow("nothing") << ""
                             << "";
    QTest::newRow("newest first") << "a|b|c"
                                  << "c|b|a";
    QTest::newRow("repeated value keeps its place") << "a|b|a"
                                                    << "b|a";
    QTest::newRow("newest repeated") << "a|b|b"
                                     << "b|a";
    QTest::newRow("five") << "1|2|3|4|5"
                          << "5|4|3|2|1";
    QTest::newRow("sixth drops the oldest") << "1|2|3|4|5|6"
                                            << "6|5|4|3|2";
    QTest::newRow("repeated value of a full list drops nothing") << "1|2|3|4|5|1"
                                                                 << "5|4|3|2|1";
    QTest::newRow("dropped value returns as new") << "1|2|3|4|5|6|1"
                                                  << "1|6|5|4|3";
    QTest::newRow("compared as text") << "1.0|1.00"
                                      << "1.00|1.0";
    QTest::newRow("compared by case") << "abc|ABC"
                                      << "ABC|abc";
    QTest::newRow("compared with blanks") << "a|a "
                                          << "a |a";
    QTest::newRow("empty value in between") << "a||b"
                                            << "b|a";
}

void ValueHistoryTest::entriesAfterAdding()
{
    QFETCH(QString, added);
    ValueHistory history = fresh(L"key");
    const QStringList values = added.split(QLatin1Char('|'));
    for (const QString& value : values) {
        history.add(value.toStdWString());
    }
    QTEST(shown(history), "expected");
}

void ValueHistoryTest::keysAreApart()
{
    const auto storage = boost::make_shared<ValueHistoryMemoryStorage>();
    ValueHistory a(L"a", storage);
    ValueHistory b(L"b", storage);
    ValueHistory again(L"a", storage);
    a.add(L"1");
    b.add(L"2");
    QCOMPARE(shown(a), QStringLiteral("1"));
    QCOMPARE(shown(b), QStringLiteral("2"));
    QCOMPARE(shown(again), QStringLiteral("1"));
}

void ValueHistoryTest::unknownKeyEmptiesTheResult()
{
    std::deque<std::wstring> values{L"left over"};
    QCOMPARE(fresh(L"unknown").get(values), std::size_t(0));
    QVERIFY(values.empty());
}

void ValueHistoryTest::emptyKeyLeavesTheResult()
{
    std::deque<std::wstring> values{L"left over"};
    QCOMPARE(fresh(L"").get(values), std::size_t(0));
    QCOMPARE(values, std::deque<std::wstring>{L"left over"});
}

void ValueHistoryTest::emptyKeyIsNotRecorded()
{
    const auto storage = boost::make_shared<ValueHistoryMemoryStorage>();
    ValueHistory(L"", storage).add(L"value");
    QVERIFY(storage->m_values.empty());
}

void ValueHistoryTest::emptyValueMakesNoKey()
{
    const auto storage = boost::make_shared<ValueHistoryMemoryStorage>();
    ValueHistory(L"key", storage).add(L"");
    QVERIFY(storage->m_values.empty());
}

void ValueHistoryTest::limitIsFive()
{
    QCOMPARE(ValueHistoryMemoryStorage().m_limit, std::size_t(5));
}

void ValueHistoryTest::lowerLimitDropsTheOldest()
{
    const auto storage = boost::make_shared<ValueHistoryMemoryStorage>();
    ValueHistory history(L"key", storage);
    for (const wchar_t* const value : {L"1", L"2", L"3", L"4"}) {
        history.add(value);
    }
    storage->m_limit = 2;
    QCOMPARE(shown(history), QString("4|3|2|1"));
    history.add(L"4"); // nothing new, but the limit holds
    QCOMPARE(shown(history), QString("4|3"));
    storage->m_limit = 0;
    history.add(L"5");
    QCOMPARE(shown(history), QString());
}

void ValueHistoryTest::nullStorage()
{
    ValueHistory history(L"key", nullptr);
    history.add(L"value");
    std::deque<std::wstring> values{L"left over"};
    QCOMPARE(history.get(values), std::size_t(0));
    QCOMPARE(values, std::deque<std::wstring>{L"left over"});
}

void ValueHistoryTest::storeIsOneForAllNames()
{
    const auto store = IValueHistoryStorage::getOrCreate(L"one name");
    QVERIFY(store);
    QCOMPARE(IValueHistoryStorage::getOrCreate(L"another"), store);
    QCOMPARE(IValueHistoryStorage::getOrCreate(L""), store);
}

void ValueHistoryTest::createUsesTheStore()
{
    const auto a = ValueHistory::create(L"one name", L"key of createUsesTheStore");
    const auto b = ValueHistory::create(L"another", L"key of createUsesTheStore");
    QCOMPARE(a->m_key, std::wstring(L"key of createUsesTheStore"));
    QCOMPARE(a->m_storage, IValueHistoryStorage::getOrCreate(L""));
    QVERIFY(a != b);
    a->add(L"1");
    b->add(L"2");
    QCOMPARE(shown(*a), QStringLiteral("2|1"));
    QCOMPARE(shown(*b), QStringLiteral("2|1"));
}

void ValueHistoryTest::storageOfTheHost()
{
    struct Echo : IValueHistoryStorage
    {
        std::size_t get(const ValueHistory& history, std::deque<std::wstring>& values) override
        {
            values.push_back(history.m_key);
            return 17;
        }
        void add(ValueHistory& history, const std::wstring& value) override
        {
            history.m_key += value;
        }
    };
    ValueHistory history(L"", boost::make_shared<Echo>());
    history.add(L"k");
    std::deque<std::wstring> values;
    QCOMPARE(history.get(values), std::size_t(17));
    QCOMPARE(values, std::deque<std::wstring>{L"k"});
}

void ValueHistoryTest::handleKeepsTheStorageAlive()
{
    auto storage = boost::make_shared<ValueHistoryMemoryStorage>();
    {
        ValueHistory history(L"key", storage);
        QCOMPARE(storage.use_count(), 2L);
        const ValueHistory copy = history;
        QCOMPARE(storage.use_count(), 3L);
    }
    QCOMPARE(storage.use_count(), 1L);
}

void ValueHistoryTest::storageIsNotCopyable()
{
    QVERIFY(!std::is_copy_constructible_v<ValueHistoryMemoryStorage>);
    QVERIFY(!std::is_copy_assignable_v<ValueHistoryMemoryStorage>);
    QVERIFY(!std::has_virtual_destructor_v<IValueHistoryStorage>);
}

QTEST_GUILESS_MAIN(ValueHistoryTest)
#include "tst_value_history.moc"
