#include "base/key_value_storage.h"
#include "qt/inc/controls.h"
#include "tests/helpers/checked_test.h"
#include "tests/helpers/word_translator.h"

#include <type_traits>

using namespace zel::qt;
using zel::KeyValueStorage;

class MultiEditControlBaseTest : public zel::test::CheckedTest
{
    Q_OBJECT
private Q_SLOTS:
    void isNotCopyableAndHasNoVirtualDestructor();
    void startsUnsavable();
    void savesAndLoadsByItsFunctions();
    void refusalOfTheSaveFunctionIsHandedOn();
    void emptyFunctionsStillMakeItSavable();
    void lastFunctionsCount();
    void loadDoesNotTouchTheLoadingState();
    void keepsTheLoadOrder_data();
    void keepsTheLoadOrder();
    void variesStringIsTranslated();
    void blockerRestoresWhatItFound();
};

namespace {

bool differs(const boost::any& a, const boost::any& b)
{
    return boost::any_cast<int>(a) != boost::any_cast<int>(b);
}

} // namespace

void MultiEditControlBaseTest::isNotCopyableAndHasNoVirtualDestructor()
{
    QVERIFY(!std::is_copy_constructible_v<MultiEditValue>);
    QVERIFY(!std::is_copy_assignable_v<MultiEditValue>);
    QVERIFY(!std::is_constructible_v<MultiEditControlBase>);
    QVERIFY(!std::has_virtual_destructor_v<MultiEditControlBase>);
    QVERIFY(std::is_destructible_v<MultiEditControlBase>);
    QCOMPARE(sizeof(MultiEditControlBase::LoadOrder), std::size_t(4));
}

void MultiEditControlBaseTest::startsUnsavable()
{
    MultiEditValue control(&differs);
    KeyValueStorage storage;
    QVERIFY(!control.canBeSaved());
    QCOMPARE(control.getStorageId(), std::string());
    QVERIFY(!control.save(storage));
    control.load(storage);
    QVERIFY(storage.values->empty());
    QVERIFY(!control.isLoading());
    QCOMPARE(int(control.getLoadOrder()), 0);
}

void MultiEditControlBaseTest::savesAndLoadsByItsFunctions()
{
    MultiEditValue control(&differs);
    control.setCanBeSaved(
        "width",
        [&control](KeyValueStorage& s) {
            (*s.values)[control.getStorageId()] = control.getCurrentValue();
            return true;
        },
        [&control](const KeyValueStorage& s) {
            control.setValue(s.values->at(control.getStorageId()));
        });
    QVERIFY(control.canBeSaved());
    QCOMPARE(control.getStorageId(), std::string("width"));
    KeyValueStorage storage;
    control.setValue(12);
    QVERIFY(control.save(storage));
    QCOMPARE(boost::any_cast<int>(storage.values->at("width")), 12);
    control.setValue(13);
    control.load(storage);
    QCOMPARE(boost::any_cast<int>(control.getCurrentValue()), 12);
}

void MultiEditControlBaseTest::refusalOfTheSaveFunctionIsHandedOn()
{
    MultiEditValue control(&differs);
    control.setCanBeSaved("id", [](KeyValueStorage&) { return false; }, {});
    KeyValueStorage storage;
    QVERIFY(!control.save(storage));
}

void MultiEditControlBaseTest::emptyFunctionsStillMakeItSavable()
{
    MultiEditValue control(&differs);
    control.setCanBeSaved("id", {}, {});
    KeyValueStorage storage;
    QVERIFY(control.canBeSaved());
    QVERIFY(!control.save(storage));
    control.load(storage);
    QVERIFY(storage.values->empty());
}

void MultiEditControlBaseTest::lastFunctionsCount()
{
    MultiEditValue control(&differs);
    int loaded = 0;
    control.setCanBeSaved(
        "first", [](KeyValueStorage&) { return true; },
        [&](const KeyValueStorage&) { loaded = 1; });
    control.setCanBeSaved(
        "second", [](KeyValueStorage&) { return false; },
        [&](const KeyValueStorage&) { loaded = 2; });
    KeyValueStorage storage;
    QCOMPARE(control.getStorageId(), std::string("second"));
    QVERIFY(!control.save(storage));
    control.load(storage);
    QCOMPARE(loaded, 2);
    control.setCanBeSaved("third", {}, {});
    loaded = 0;
    control.load(storage);
    QCOMPARE(loaded, 0);
}

void MultiEditControlBaseTest::loadDoesNotTouchTheLoadingState()
{
    MultiEditValue control(&differs);
    QList<bool> seen;
    control.setCanBeSaved("id", {}, [&](const KeyValueStorage&) { seen << control.isLoading(); });
    const KeyValueStorage storage;
    control.load(storage);
    QVERIFY(!control.isLoading());
    control.setLoading(true);
    control.load(storage);
    QVERIFY(control.isLoading());
    control.setLoading(false);
    QVERIFY(!control.isLoading());
    QCOMPARE(seen, (QList<bool>{false, true}));
}

void MultiEditControlBaseTest::keepsTheLoadOrder_data()
{
    QTest::addColumn<int>("order");
    QTest::newRow("early") << int(MultiEditControlBase::LoadEarly);
    QTest::newRow("default") << int(MultiEditControlBase::LoadDefault);
    QTest::newRow("late") << int(MultiEditControlBase::LoadLate);
    QTest::newRow("any other") << 77;
}

void MultiEditControlBaseTest::keepsTheLoadOrder()
{
    QFETCH(int, order);
    MultiEditValue control(&differs);
    control.setLoadOrder(static_cast<MultiEditControlBase::LoadOrder>(order));
    QCOMPARE(int(control.getLoadOrder()), order);
    QVERIFY(!control.canBeSaved());
}

void MultiEditControlBaseTest::variesStringIsTranslated()
{
    QCOMPARE(getVariesString(), QStringLiteral("*VARIES*"));
    {
        const zel::test::WordTranslator translator("QObject", "*VARIES*", nullptr,
                                                   QStringLiteral("*VERSCHIEDEN*"));
        QCOMPARE(getVariesString(), QStringLiteral("*VERSCHIEDEN*"));
    }
    QCOMPARE(getVariesString(), QStringLiteral("*VARIES*"));
}

void MultiEditControlBaseTest::blockerRestoresWhatItFound()
{
    QObject object;
    {
        const SignalBlocker outer(&object);
        QVERIFY(object.signalsBlocked());
        {
            const SignalBlocker inner(&object);
        }
        QVERIFY(object.signalsBlocked());
    }
    QVERIFY(!object.signalsBlocked());
    const SignalBlocker none(nullptr);
    Q_UNUSED(none)
}

QTEST_GUILESS_MAIN(MultiEditControlBaseTest)
#include "tst_multi_edit_control_base.moc"
