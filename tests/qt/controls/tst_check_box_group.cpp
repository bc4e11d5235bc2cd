#include "base/key_value_storage.h"
#include "qt/inc/controls.h"
#include "tests/helpers/checked_test.h"

#include <QCheckBox>
#include <QSignalSpy>
#include <QVBoxLayout>

#include <memory>
#include <rapidcheck.h>
#include <stdexcept>

using namespace zel::qt;

namespace {

/// A group in a window, its boxes and "All".
struct Group
{
    explicit Group(const std::deque<QString>& labels = {"x", "y", "z"},
                   const std::deque<QString>& tooltips = {})
    {
        layouter.onCreate(&window);
        group = std::make_unique<MultiEditCheckBoxGroup>(&window, layouter, labels, tooltips);
        layouter.onFinish();
        changed = std::make_unique<QSignalSpy>(group.get(), &MultiEditCheckBoxGroup::valueChanged);
        const auto all = window.findChildren<MultiEditCheckBox*>();
        for (MultiEditCheckBox* box : all) {
            boxes.push_back(box);
        }
        toggleAll = boxes.back();
        boxes.pop_back();
        window.show();
    }

    void read(const std::vector<std::vector<bool>>& objects)
    {
        group->reset();
        for (const auto& object : objects) {
            for (std::size_t i = 0; i < object.size(); ++i) {
                group->readValue(i, object[i]);
            }
        }
        group->onEndRead();
    }

    static QCheckBox& inner(const MultiEditCheckBox* box)
    {
        return *box->findChild<QCheckBox*>();
    }

    static void click(const MultiEditCheckBox* box)
    {
        QCheckBox& check = inner(box);
        QTest::mouseClick(&check, Qt::LeftButton, {}, QPoint(5, check.height() / 2));
    }

    Qt::CheckState allState() const
    {
        return inner(toggleAll).checkState();
    }

    QWidget window;
    VBoxLayouter layouter;
    std::unique_ptr<MultiEditCheckBoxGroup> group;
    std::unique_ptr<QSignalSpy> changed;
    std::vector<MultiEditCheckBox*> boxes;
    MultiEditCheckBox* toggleAll = nullptr;
};

} // namespace

class CheckBoxGroupTest : public zel::test::CheckedTest
{
    Q_OBJECT
private Q_SLOTS:
    void placesBoxesPlaceholdersAndAll();
    void isOwnedByTheCaller();
    void missingParentReports();
    void onlyPlaceholders();
    void allFollowsTheBoxes_data();
    void allFollowsTheBoxes();
    void allFollowsTheBoxesAtRandom();
    void updatingAllIsSilent();
    void readingDoesNotUpdateAll();
    void disabledBoxesDoNotCount();
    void allStaysUncheckedWithoutEnabledBoxes();
    void clickOnABoxEmitsOnce();
    void clickOnAllSetsEveryEnabledBox();
    void clickOnPartialAllChecks();
    void clickOnAllDecidesVaryingBoxes();
    void setValueSpeaksForTheBox();
    void resetLeavesAllAlone();
    void setEnabledLeavesAllAlone();
    void indexOutOfRangeReportsAndThrows();
    void savesEachBoxUnderItsKey();
    void saveOfAVaryingBoxWritesNothing();
    void saveReplacesAnEntry();
    void loadIsSilentUntilTheLastBox();
    void loadCountsMissingEntries();
    void loadIgnoresOtherTypes();
    void saveAndLoadRoundTrip();
    void loadAfterTheGroupIsGone();
};

void CheckBoxGroupTest::placesBoxesPlaceholdersAndAll()
{
    const Group group({"x", "", "z"}, {"tip x", "tip of nothing", "tip z", "too many"});
    QCOMPARE(group.group->size(), std::size_t(2));
    QVBoxLayout* layout = group.layouter.layout();
    QCOMPARE(layout->count(), 5);
    QCOMPARE(layout->itemAt(0)->widget(), static_cast<QWidget*>(group.boxes[0]));
    QVERIFY(qobject_cast<MultiEditCheckBox*>(layout->itemAt(1)->widget()) == nullptr);
    QCOMPARE(layout->itemAt(1)->widget()->parentWidget(), &group.window);
    QCOMPARE(layout->itemAt(2)->widget(), static_cast<QWidget*>(group.boxes[1]));
    QCOMPARE(layout->itemAt(3)->widget(), static_cast<QWidget*>(group.toggleAll));
    QCOMPARE(Group::inner(group.boxes[1]).text(), QStringLiteral("z"));
    QCOMPARE(Group::inner(group.toggleAll).text(), QStringLiteral("All"));
    QCOMPARE(group.boxes[0]->toolTip(), QStringLiteral("tip x"));
    QCOMPARE(group.boxes[1]->toolTip(), QStringLiteral("tip z"));
    QCOMPARE(group.toggleAll->toolTip(), QString());
    const Group few({"x", "y"}, {"tip x"});
    QCOMPARE(few.boxes[1]->toolTip(), QString());
}

void CheckBoxGroupTest::isOwnedByTheCaller()
{
    Group group;
    QVERIFY(group.group->parent() == nullptr);
    group.group.reset();
    QVERIFY(group.window.findChildren<MultiEditCheckBox*>().size() == 4);
    Group::click(group.toggleAll);
    QVERIFY(!group.boxes[0]->isChecked());
}

void CheckBoxGroupTest::missingParentReports()
{
    QWidget window;
    VBoxLayouter layouter;
    layouter.onCreate(&window);
    const MultiEditCheckBoxGroup group(nullptr, layouter, {"x"}, {});
    QCOMPARE(takeExpressions(), (QStringList{"parent", "parent"}));
}

void CheckBoxGroupTest::onlyPlaceholders()
{
    Group group({"", ""});
    QCOMPARE(group.group->size(), std::size_t(0));
    QCOMPARE(group.layouter.layout()->count(), 4);
    group.group->onEndRead();
    QCOMPARE(group.allState(), Qt::Unchecked);
    Group::click(group.toggleAll);
    QCOMPARE(group.changed->count(), 1);
}

void CheckBoxGroupTest::allFollowsTheBoxes_data()
{
    using Objects = std::vector<std::vector<bool>>;
    QTest::addColumn<Objects>("objects");
    QTest::addColumn<int>("state");
    QTest::newRow("all unchecked") << Objects{{false, false, false}} << 0;
    QTest::newRow("all checked") << Objects{{true, true, true}} << 2;
    QTest::newRow("first checked") << Objects{{true, false, false}} << 1;
    QTest::newRow("last checked") << Objects{{false, false, true}} << 1;
    // With nothing read before it, the first box that varies is taken for a checked one.
    QTest::newRow("first varies") << Objects{{true, true, true}, {false, true, true}} << 2;
    QTest::newRow("first varies, rest unchecked")
        << Objects{{true, false, false}, {false, false, false}} << 2;
    QTest::newRow("second varies, rest checked")
        << Objects{{true, true, true}, {true, false, true}} << 1;
    QTest::newRow("second varies, rest unchecked")
        << Objects{{false, true, false}, {false, false, false}} << 1;
    QTest::newRow("all vary") << Objects{{true, true, true}, {false, false, false}} << 2;
}

void CheckBoxGroupTest::allFollowsTheBoxes()
{
    QFETCH(std::vector<std::vector<bool>>, objects);
    QFETCH(int, state);
    Group group;
    group.read(objects);
    QCOMPARE(static_cast<int>(group.allState()), state);
}

void CheckBoxGroupTest::allFollowsTheBoxesAtRandom()
{
    const bool holds = rc::check("All shows what the enabled boxes have in common", [] {
        const auto states = *rc::gen::container<std::vector<std::pair<bool, bool>>>(
            rc::gen::pair(rc::gen::arbitrary<bool>(), rc::gen::arbitrary<bool>()));
        Group group(std::deque<QString>(states.size(), QStringLiteral("x")));
        bool checked = false;
        bool unchecked = false;
        for (std::size_t i = 0; i < states.size(); ++i) {
            const auto [value, enabled] = states[i];
            group.group->setEnabled(i, enabled);
            group.group->readValue(i, value);
            checked = checked || (enabled && value);
            unchecked = unchecked || (enabled && !value);
        }
        group.group->onEndRead();
        const Qt::CheckState expected = checked && unchecked ? Qt::PartiallyChecked
                                        : checked            ? Qt::Checked
                                                             : Qt::Unchecked;
        RC_ASSERT(group.allState() == expected);
    });
    QVERIFY(holds);
}

void CheckBoxGroupTest::updatingAllIsSilent()
{
    Group group;
    const QSignalSpy all(group.toggleAll, &MultiEditCheckBox::valueChanged);
    group.read({{true, true, true}});
    group.changed->clear();
    group.group->onEndRead();
    group.group->setEnabled(0, false);
    group.group->onEndRead();
    QCOMPARE(all.count(), 0);
    QCOMPARE(group.changed->count(), 0);
    QVERIFY(group.boxes[1]->isChecked());
}

void CheckBoxGroupTest::readingDoesNotUpdateAll()
{
    Group group;
    group.read({{false, false, false}});
    group.group->reset();
    // A box that does not change stays silent, and then nothing brings "All" up to date.
    group.group->setEnabled(0, false);
    group.group->readValue(1, false);
    QCOMPARE(group.allState(), Qt::Unchecked);
    QCOMPARE(group.changed->count(), 0);
    // A box that changes tells so by itself, as check boxes do, and the group hears it.
    group.group->readValue(2, true);
    QCOMPARE(group.changed->count(), 1);
    QCOMPARE(group.allState(), Qt::PartiallyChecked);
}

void CheckBoxGroupTest::disabledBoxesDoNotCount()
{
    Group group({"x", "y"});
    group.read({{true, false}});
    QCOMPARE(group.allState(), Qt::PartiallyChecked);
    group.group->setEnabled(1, false);
    QCOMPARE(group.allState(), Qt::PartiallyChecked);
    group.group->onEndRead();
    QCOMPARE(group.allState(), Qt::Checked);
}

void CheckBoxGroupTest::allStaysUncheckedWithoutEnabledBoxes()
{
    Group group;
    group.group->setEnabled(false);
    group.read({{true, true, true}});
    QCOMPARE(group.allState(), Qt::Unchecked);
}

void CheckBoxGroupTest::clickOnABoxEmitsOnce()
{
    Group group({"x", "y"});
    group.read({{false, false}});
    group.changed->clear();
    Group::click(group.boxes[0]);
    QCOMPARE(group.changed->count(), 1);
    QCOMPARE(group.allState(), Qt::PartiallyChecked);
    QTest::keyClick(&Group::inner(group.boxes[1]), Qt::Key_Space);
    QCOMPARE(group.changed->count(), 2);
    QCOMPARE(group.allState(), Qt::Checked);
}

void CheckBoxGroupTest::clickOnAllSetsEveryEnabledBox()
{
    Group group;
    group.group->setEnabled(1, false);
    group.read({{false, false, false}});
    group.changed->clear();
    Group::click(group.toggleAll);
    QCOMPARE(group.changed->count(), 1);
    QVERIFY(group.group->getValue(0));
    QVERIFY(!group.group->getValue(1));
    QVERIFY(group.group->getValue(2));
    Group::click(group.toggleAll);
    QCOMPARE(group.changed->count(), 2);
    QVERIFY(!group.group->getValue(0));
    QVERIFY(!group.group->getValue(2));
    // The boxes speak again afterwards.
    Group::click(group.boxes[0]);
    QCOMPARE(group.changed->count(), 3);
}

void CheckBoxGroupTest::clickOnPartialAllChecks()
{
    Group group({"x", "y"});
    group.read({{true, false}});
    group.changed->clear();
    Group::click(group.toggleAll);
    QCOMPARE(group.changed->count(), 1);
    QCOMPARE(group.allState(), Qt::Checked);
    QVERIFY(group.group->getValue(0));
    QVERIFY(group.group->getValue(1));
}

void CheckBoxGroupTest::clickOnAllDecidesVaryingBoxes()
{
    Group group({"x", "y"});
    group.read({{true, true}, {true, false}});
    QVERIFY(group.group->dataVaries(1));
    Group::click(group.toggleAll);
    QVERIFY(!group.group->dataVaries(1));
    QVERIFY(group.group->getValue(1));
    QCOMPARE(Group::inner(group.boxes[1]).checkState(), Qt::Checked);
}

void CheckBoxGroupTest::setValueSpeaksForTheBox()
{
    Group group({"x", "y"});
    group.group->setValue(0, true);
    // As often as the box does: through its change of state and at its end.
    QCOMPARE(group.changed->count(), 2);
    QVERIFY(group.group->getValue(0));
    QCOMPARE(group.allState(), Qt::PartiallyChecked);
}

void CheckBoxGroupTest::resetLeavesAllAlone()
{
    Group group({"x", "y"});
    group.read({{false, false}});
    Group::click(group.toggleAll);
    QCOMPARE(group.allState(), Qt::Checked);
    // Boxes that are silent leave "All" to the group, which does nothing of its own.
    for (MultiEditCheckBox* box : group.boxes) {
        box->suspendValueChangedSignal();
    }
    group.group->reset();
    QVERIFY(!group.group->getValue(0));
    QCOMPARE(group.allState(), Qt::Checked);
    group.group->onEndRead();
    QCOMPARE(group.allState(), Qt::Unchecked);
}

void CheckBoxGroupTest::setEnabledLeavesAllAlone()
{
    Group group;
    group.group->setEnabled(false);
    for (const MultiEditCheckBox* box : group.boxes) {
        QVERIFY(!box->isEnabled());
    }
    QVERIFY(group.toggleAll->isEnabled());
    group.group->setEnabled(2, true);
    QVERIFY(!group.boxes[1]->isEnabled());
    QVERIFY(group.boxes[2]->isEnabled());
    QCOMPARE(group.changed->count(), 0);
}

void CheckBoxGroupTest::indexOutOfRangeReportsAndThrows()
{
    Group group;
    QVERIFY_EXCEPTION_THROWN(group.group->readValue(3, true), std::out_of_range);
    const auto reports = takeReports();
    QCOMPARE(reports.size(), std::size_t(1));
    QCOMPARE(reports[0].expression, std::string("idx < m_checks.size()"));
    QCOMPARE(reports[0].message, std::string("index out of bounds"));
    QCOMPARE(reports[0].file, std::string("qt/src/controls/check_box_group.cpp"));
    const std::vector<std::pair<std::string, std::wstring>> values = {{"idx", L"3"},
                                                                      {"m_checks.size()", L"3"}};
    QVERIFY(reports[0].values == values);
    QVERIFY_EXCEPTION_THROWN(group.group->setValue(3, true), std::out_of_range);
    QVERIFY_EXCEPTION_THROWN(group.group->getValue(4), std::out_of_range);
    QVERIFY_EXCEPTION_THROWN(group.group->dataVaries(std::size_t(-1)), std::out_of_range);
    QCOMPARE(takeExpressions().size(), 3);
    // Checked by the container alone.
    QVERIFY_EXCEPTION_THROWN(group.group->setEnabled(3, true), std::out_of_range);
    QCOMPARE(takeExpressions(), QStringList());
}

void CheckBoxGroupTest::savesEachBoxUnderItsKey()
{
    Group group;
    QVERIFY(!group.boxes[0]->canBeSaved());
    group.group->setCanBeSaved("dialog/sides");
    group.read({{true, false, true}});
    zel::KeyValueStorage storage;
    for (std::size_t i = 0; i < 3; ++i) {
        QVERIFY(group.boxes[i]->canBeSaved());
        QCOMPARE(group.boxes[i]->getStorageId(), "dialog/sides/" + std::to_string(i));
        QVERIFY(group.boxes[i]->save(storage));
    }
    QVERIFY(!group.toggleAll->canBeSaved());
    QCOMPARE(storage.values->size(), std::size_t(3));
    QCOMPARE(boost::any_cast<bool>(storage.values->at("dialog/sides/0")), true);
    QCOMPARE(boost::any_cast<bool>(storage.values->at("dialog/sides/1")), false);
    QCOMPARE(boost::any_cast<bool>(storage.values->at("dialog/sides/2")), true);
}

void CheckBoxGroupTest::saveOfAVaryingBoxWritesNothing()
{
    Group group({"x"});
    group.group->setCanBeSaved("k");
    group.read({{true}, {false}});
    zel::KeyValueStorage storage;
    QVERIFY(group.boxes[0]->save(storage));
    QVERIFY(storage.values->empty());
}

void CheckBoxGroupTest::saveReplacesAnEntry()
{
    Group group({"x"});
    group.group->setCanBeSaved("k");
    zel::KeyValueStorage storage;
    (*storage.values)["k/0"] = std::string("old");
    QVERIFY(group.boxes[0]->save(storage));
    QCOMPARE(boost::any_cast<bool>(storage.values->at("k/0")), false);
}

void CheckBoxGroupTest::loadIsSilentUntilTheLastBox()
{
    Group group;
    group.group->setCanBeSaved("k");
    zel::KeyValueStorage storage;
    (*storage.values)["k/0"] = true;
    (*storage.values)["k/1"] = true;
    (*storage.values)["k/2"] = true;
    std::vector<std::unique_ptr<QSignalSpy>> spies;
    for (MultiEditCheckBox* box : group.boxes) {
        spies.push_back(std::make_unique<QSignalSpy>(box, &MultiEditCheckBox::valueChanged));
    }
    group.boxes[2]->load(storage);
    group.boxes[0]->load(storage);
    QCOMPARE(group.changed->count(), 0);
    QCOMPARE(group.allState(), Qt::Unchecked);
    QVERIFY(group.boxes[0]->isChecked());
    group.boxes[1]->load(storage);
    QCOMPARE(spies[0]->count(), 1);
    // The last to load, whichever that is, is blocked to the end.
    QCOMPARE(spies[1]->count(), 0);
    QCOMPARE(spies[2]->count(), 1);
    QCOMPARE(group.changed->count(), 2);
    QCOMPARE(group.allState(), Qt::Checked);
    QVERIFY(!group.boxes[1]->signalsBlocked());
    // The next load counts anew.
    group.boxes[0]->load(storage);
    QCOMPARE(group.changed->count(), 2);
}

void CheckBoxGroupTest::loadCountsMissingEntries()
{
    Group group({"x", "y"});
    group.group->setCanBeSaved("k");
    zel::KeyValueStorage storage;
    (*storage.values)["k/0"] = true;
    group.boxes[0]->load(storage);
    group.boxes[1]->load(storage);
    QVERIFY(group.boxes[0]->isChecked());
    QVERIFY(!group.boxes[1]->isChecked());
    QCOMPARE(group.changed->count(), 1);
    QCOMPARE(group.allState(), Qt::PartiallyChecked);
}

void CheckBoxGroupTest::loadIgnoresOtherTypes()
{
    Group group({"x"});
    group.group->setCanBeSaved("k");
    zel::KeyValueStorage storage;
    (*storage.values)["k/0"] = 1;
    group.boxes[0]->load(storage);
    QVERIFY(!group.boxes[0]->isChecked());
    QCOMPARE(group.changed->count(), 0);
}

void CheckBoxGroupTest::saveAndLoadRoundTrip()
{
    const bool holds = rc::check("a loaded group shows what was saved", [] {
        const auto values = *rc::gen::container<std::vector<bool>>(rc::gen::arbitrary<bool>());
        const std::deque<QString> labels(values.size(), QStringLiteral("x"));
        zel::KeyValueStorage storage;
        Group saved(labels);
        saved.group->setCanBeSaved("k");
        saved.read({values});
        Group loaded(labels);
        loaded.group->setCanBeSaved("k");
        for (std::size_t i = 0; i < values.size(); ++i) {
            RC_ASSERT(saved.boxes[i]->save(storage));
        }
        for (MultiEditCheckBox* box : loaded.boxes) {
            box->load(storage);
        }
        for (std::size_t i = 0; i < values.size(); ++i) {
            RC_ASSERT(loaded.group->getValue(i) == values[i]);
        }
        // A single box is the last to load and so silent: nothing brings "All" up to date.
        RC_ASSERT(values.size() == 1 || loaded.allState() == saved.allState());
    });
    QVERIFY(holds);
}

void CheckBoxGroupTest::loadAfterTheGroupIsGone()
{
    Group group({"x"});
    group.group->setCanBeSaved("k");
    zel::KeyValueStorage storage;
    (*storage.values)["k/0"] = true;
    group.group.reset();
    group.boxes[0]->load(storage);
    QVERIFY(!group.boxes[0]->isChecked());
}

QTEST_MAIN(CheckBoxGroupTest)
#include "tst_check_box_group.moc"
