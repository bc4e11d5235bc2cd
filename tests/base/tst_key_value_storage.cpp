#include "base/key_value_storage.h"
#include "tests/helpers/checked_test.h"

class KeyValueStorageTest : public zel::test::CheckedTest
{
    Q_OBJECT
private Q_SLOTS:
    void startsWithAnEmptyMap();
    void twoStoragesHaveTheirOwnMaps();
    void copySharesTheMap();
};

void KeyValueStorageTest::startsWithAnEmptyMap()
{
    const zel::KeyValueStorage storage;
    QVERIFY(storage.values);
    QVERIFY(storage.values->empty());
}

void KeyValueStorageTest::twoStoragesHaveTheirOwnMaps()
{
    const zel::KeyValueStorage a;
    const zel::KeyValueStorage b;
    (*a.values)["key"] = 1;
    QVERIFY(b.values->empty());
}

void KeyValueStorageTest::copySharesTheMap()
{
    const zel::KeyValueStorage original;
    const zel::KeyValueStorage copy = original;
    (*copy.values)["key"] = 7;
    QCOMPARE(boost::any_cast<int>(original.values->at("key")), 7);
}

QTEST_GUILESS_MAIN(KeyValueStorageTest)
#include "tst_key_value_storage.moc"
