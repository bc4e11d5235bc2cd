#include "platform/widgets.h"
#include "qt/inc/controls/varies_string.h"
#include "tests/helpers/active_window.h"
#include "tests/helpers/checked_test.h"
#include "tests/helpers/word_translator.h"

#include <QLineEdit>
#include <QListView>
#include <QSignalSpy>
#include <QVBoxLayout>
#include <QWheelEvent>
#include <QWindow>

#include <memory>
#include <rapidcheck.h>

namespace {

struct Combo
{
    explicit Combo(const QStringList& entries = {"a", "b", "c"})
        : combo(&window)
    {
        auto* layout = new QVBoxLayout(&window);
        layout->addWidget(&combo);
        combo.addItems(entries);
    }

    QStringList texts() const
    {
        QStringList all;
        for (int i = 0; i < combo.count(); ++i) {
            all << combo.itemText(i);
        }
        return all;
    }

    bool onVarious() const
    {
        return combo.getCurrentId() == combo.getVariousId();
    }

    QWidget window;
    ZEL_QT4_ComboBox combo;
};

} // namespace

class ComboBoxTest : public zel::test::CheckedTest
{
    Q_OBJECT
private Q_SLOTS:
    void hasItsListViewFromTheStart();
    void takesAName();
    void variousTextHasOneHome();
    void idsAreIndexes();
    void variousIdIsNoEntry();
    void addVariousStandsBehindTheEntries();
    void addVariousWithoutSelectingKeepsTheCurrentItem_data();
    void addVariousWithoutSelectingKeepsTheCurrentItem();
    void addVariousTwiceAddsOneItem();
    void addVariousMovesBehindLaterItems();
    void removeVariousGoesBack();
    void removeVariousKeepsTheUsersChoice();
    void removeVariousWithoutOneDoesNothing();
    void clearTakesVariousOut();
    void insertedEntriesShiftVarious();
    void anEntryOfTheSameNameIsAnEntry();
    void theUserCanComeBackToVarious();
    void wheelReachesEveryItem();
    void editableGoesByTheText();
    void editableRemoveVariousKeepsTypedText();
    void editableAddVariousKeepsTypedText();
    void variousShowsItsTextAgainOverTypedText();
    void sortingKeepsVariousLast();
    void sortingInsertsTypedTexts();
    void widthFollowsTheTexts();
    void widthCountsVarious();
    void widthLeavesTheSizeAdjustPolicyAlone();
    void stepsKeepEntriesAndIndexes();
};

void ComboBoxTest::hasItsListViewFromTheStart()
{
    const ZEL_QT4_ComboBox combo;
    QVERIFY(combo.findChild<QListView*>() != nullptr);
}

void ComboBoxTest::takesAName()
{
    const ZEL_QT4_ComboBox combo(nullptr, "material");
    QCOMPARE(combo.objectName(), QStringLiteral("material"));
    QCOMPARE(ZEL_QT4_ComboBox().objectName(), QString());
}

void ComboBoxTest::variousTextHasOneHome()
{
    QCOMPARE(ZEL_QT4_ComboBox::getVariousText(), QStringLiteral("*VARIES*"));
    const zel::test::WordTranslator translator("QObject", "*VARIES*", nullptr, "*DIFFERS*");
    Combo box;
    box.combo.addVarious(true);
    QCOMPARE(box.combo.currentText(), QStringLiteral("*DIFFERS*"));
    QCOMPARE(zel::qt::getVariesString(), QStringLiteral("*DIFFERS*"));
}

void ComboBoxTest::idsAreIndexes()
{
    Combo box;
    for (int i = 0; i < 3; ++i) {
        box.combo.setCurrentIndex(i);
        QCOMPARE(box.combo.getCurrentId(), i);
    }
    box.combo.setCurrentIndex(-1);
    QCOMPARE(box.combo.getCurrentId(), -1);
}

void ComboBoxTest::variousIdIsNoEntry()
{
    const ZEL_QT4_ComboBox empty;
    QVERIFY(empty.getVariousId() < 0);
    // Nothing is current, and that is not the varies item either.
    QVERIFY(empty.getCurrentId() != empty.getVariousId());
    QVERIFY(!empty.isVarious(-1));
    QVERIFY(!empty.isVarious(0));
}

void ComboBoxTest::addVariousStandsBehindTheEntries()
{
    Combo box;
    box.combo.setCurrentIndex(1);
    const QSignalSpy current(&box.combo, SIGNAL(currentIndexChanged(int)));
    const QSignalSpy activated(&box.combo, SIGNAL(activated(int)));
    box.combo.addVarious(true);
    QCOMPARE(box.texts(), (QStringList{"a", "b", "c", "*VARIES*"}));
    QCOMPARE(box.combo.currentIndex(), 3);
    QVERIFY(box.onVarious());
    QVERIFY(box.combo.isVarious(3));
    QVERIFY(!box.combo.isVarious(2));
    QCOMPARE(box.combo.itemData(3), QVariant());
    QCOMPARE(current.count(), 1);
    QCOMPARE(activated.count(), 0);
}

void ComboBoxTest::addVariousWithoutSelectingKeepsTheCurrentItem_data()
{
    QTest::addColumn<QStringList>("entries");
    QTest::addColumn<int>("current");
    QTest::newRow("an entry") << QStringList{"a", "b"} << 1;
    QTest::newRow("nothing current") << QStringList{"a", "b"} << -1;
    QTest::newRow("no entries") << QStringList() << -1;
}

void ComboBoxTest::addVariousWithoutSelectingKeepsTheCurrentItem()
{
    QFETCH(QStringList, entries);
    QFETCH(int, current);
    Combo box(entries);
    box.combo.setCurrentIndex(current);
    const QSignalSpy changed(&box.combo, SIGNAL(currentIndexChanged(int)));
    box.combo.addVarious(false);
    QCOMPARE(box.combo.currentIndex(), current);
    QCOMPARE(box.texts(), entries + QStringList{"*VARIES*"});
    QVERIFY(!box.onVarious());
    QCOMPARE(changed.count(), 0);
    box.combo.removeVarious();
    QCOMPARE(box.combo.currentIndex(), current);
    QCOMPARE(box.texts(), entries);
    QCOMPARE(changed.count(), 0);
}

void ComboBoxTest::addVariousTwiceAddsOneItem()
{
    Combo box;
    box.combo.addVarious(false);
    box.combo.addVarious(true);
    box.combo.addVarious(true);
    QCOMPARE(box.texts(), (QStringList{"a", "b", "c", "*VARIES*"}));
    QVERIFY(box.onVarious());
}

void ComboBoxTest::addVariousMovesBehindLaterItems()
{
    Combo box;
    box.combo.addVarious(true);
    box.combo.addItem("d");
    QVERIFY(box.onVarious());
    const QSignalSpy changed(&box.combo, SIGNAL(currentTextChanged(QString)));
    box.combo.addVarious(false);
    QCOMPARE(box.texts(), (QStringList{"a", "b", "c", "d", "*VARIES*"}));
    QVERIFY(box.onVarious());
    QCOMPARE(box.combo.currentIndex(), 4);
    QCOMPARE(changed.count(), 0);
    box.combo.removeVarious();
    QCOMPARE(box.combo.currentText(), QStringLiteral("a"));
}

void ComboBoxTest::removeVariousGoesBack()
{
    Combo box;
    box.combo.setCurrentIndex(1);
    box.combo.addVarious(true);
    box.combo.removeVarious();
    QCOMPARE(box.combo.currentIndex(), 1);
    QCOMPARE(box.combo.count(), 3);
    QVERIFY(!box.onVarious());
}

void ComboBoxTest::removeVariousKeepsTheUsersChoice()
{
    Combo box;
    box.combo.setCurrentIndex(1);
    box.combo.addVarious(true);
    QTest::keyClick(&box.combo, Qt::Key_Up);
    QCOMPARE(box.combo.currentIndex(), 2);
    box.combo.removeVarious();
    QCOMPARE(box.combo.currentIndex(), 2);
}

void ComboBoxTest::removeVariousWithoutOneDoesNothing()
{
    Combo box;
    box.combo.setCurrentIndex(2);
    box.combo.removeVarious();
    QCOMPARE(box.texts(), (QStringList{"a", "b", "c"}));
    QCOMPARE(box.combo.currentIndex(), 2);
}

void ComboBoxTest::clearTakesVariousOut()
{
    Combo box;
    box.combo.addVarious(true);
    box.combo.clear();
    QCOMPARE(box.combo.count(), 0);
    QVERIFY(!box.onVarious());
    box.combo.addItems({"x", "y"});
    QVERIFY(!box.onVarious());
    box.combo.addVarious(true);
    QCOMPARE(box.texts(), (QStringList{"x", "y", "*VARIES*"}));
}

void ComboBoxTest::insertedEntriesShiftVarious()
{
    Combo box;
    box.combo.addVarious(true);
    box.combo.insertItem(0, "first");
    QCOMPARE(box.combo.currentIndex(), 4);
    QVERIFY(box.combo.isVarious(4));
    QVERIFY(!box.combo.isVarious(3));
    QVERIFY(box.onVarious());
}

void ComboBoxTest::anEntryOfTheSameNameIsAnEntry()
{
    Combo box({"*VARIES*", "b"});
    QCOMPARE(box.combo.getCurrentId(), 0);
    box.combo.addVarious(true);
    QVERIFY(box.onVarious());
    box.combo.setCurrentIndex(0);
    QCOMPARE(box.combo.getCurrentId(), 0);
}

void ComboBoxTest::theUserCanComeBackToVarious()
{
    Combo box;
    box.combo.addVarious(true);
    const QSignalSpy activated(&box.combo, SIGNAL(activated(int)));
    QTest::keyClick(&box.combo, Qt::Key_Home);
    QCOMPARE(box.combo.getCurrentId(), 0);
    QTest::keyClick(&box.combo, Qt::Key_End);
    QVERIFY(box.onVarious());
    QTest::keyClick(&box.combo, Qt::Key_Down);
    QVERIFY(box.onVarious());
    QCOMPARE(activated.count(), 2);
}

void ComboBoxTest::wheelReachesEveryItem()
{
    Combo box;
    QVERIFY(zel::test::showActive(box.window));
    box.combo.addVarious(true);
    const auto turn = [&box](int notches) {
        const QPointF centre = box.combo.rect().center();
        QWheelEvent wheel(centre, box.combo.mapToGlobal(centre.toPoint()), QPoint(),
                          QPoint(0, notches * 120), Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                          false);
        QApplication::sendEvent(&box.combo, &wheel);
    };
    turn(-1);
    QVERIFY(box.onVarious());
    turn(1);
    QCOMPARE(box.combo.getCurrentId(), 2);
    turn(-1);
    QVERIFY(box.onVarious());
}

void ComboBoxTest::editableGoesByTheText()
{
    Combo box;
    box.combo.setEditable(true);
    box.combo.addVarious(true);
    QCOMPARE(box.combo.lineEdit()->text(), QStringLiteral("*VARIES*"));
    QVERIFY(box.onVarious());
    box.combo.lineEdit()->setText("b");
    QCOMPARE(box.combo.currentIndex(), 3);
    QCOMPARE(box.combo.getCurrentId(), 1);
    box.combo.lineEdit()->setText("B");
    QCOMPARE(box.combo.getCurrentId(), -1);
    box.combo.lineEdit()->setText("*VARIES");
    QCOMPARE(box.combo.getCurrentId(), -1);
    box.combo.lineEdit()->setText("*VARIES*");
    QVERIFY(box.onVarious());
    box.combo.removeVarious();
    box.combo.lineEdit()->setText("*VARIES*");
    QCOMPARE(box.combo.getCurrentId(), -1);
}

void ComboBoxTest::editableRemoveVariousKeepsTypedText()
{
    Combo box;
    box.combo.setEditable(true);
    box.combo.addVarious(true);
    box.combo.lineEdit()->selectAll();
    QTest::keyClicks(box.combo.lineEdit(), "7.5");
    const QSignalSpy edited(&box.combo, SIGNAL(editTextChanged(QString)));
    box.combo.removeVarious();
    QCOMPARE(box.combo.currentText(), QStringLiteral("7.5"));
    QCOMPARE(edited.count(), 0);
    box.combo.addVarious(true);
    box.combo.removeVarious();
    QCOMPARE(box.combo.currentText(), QStringLiteral("a"));
}

void ComboBoxTest::editableAddVariousKeepsTypedText()
{
    Combo box;
    box.combo.setEditable(true);
    box.combo.lineEdit()->setText("7.5");
    const QSignalSpy edited(&box.combo, SIGNAL(editTextChanged(QString)));
    box.combo.addVarious(false);
    QCOMPARE(box.combo.currentText(), QStringLiteral("7.5"));
    QCOMPARE(edited.count(), 0);
}

void ComboBoxTest::variousShowsItsTextAgainOverTypedText()
{
    Combo box;
    box.combo.setEditable(true);
    box.combo.addVarious(true);
    box.combo.lineEdit()->setText("7.5");
    box.combo.addVarious(true);
    QCOMPARE(box.combo.currentText(), QStringLiteral("*VARIES*"));
    QVERIFY(box.onVarious());
}

void ComboBoxTest::sortingKeepsVariousLast()
{
    Combo box({"c", "a", "b"});
    box.combo.addVarious(true);
    box.combo.setSorting(true);
    QCOMPARE(box.texts(), (QStringList{"a", "b", "c", "*VARIES*"}));
    QVERIFY(box.onVarious());
    box.combo.setSorting(false);
    QCOMPARE(box.texts(), (QStringList{"a", "b", "c", "*VARIES*"}));
    box.combo.removeVarious();
    QCOMPARE(box.combo.currentText(), QStringLiteral("c"));
}

void ComboBoxTest::sortingInsertsTypedTexts()
{
    Combo box({"b", "d"});
    box.combo.setEditable(true);
    box.combo.setSorting(true);
    box.combo.lineEdit()->selectAll();
    QTest::keyClicks(box.combo.lineEdit(), "c");
    QTest::keyClick(box.combo.lineEdit(), Qt::Key_Return);
    QCOMPARE(box.texts(), (QStringList{"b", "c", "d"}));
    box.combo.setSorting(false);
    box.combo.lineEdit()->selectAll();
    QTest::keyClicks(box.combo.lineEdit(), "a");
    QTest::keyClick(box.combo.lineEdit(), Qt::Key_Return);
    QCOMPARE(box.texts(), (QStringList{"b", "c", "d", "a"}));
}

void ComboBoxTest::widthFollowsTheTexts()
{
    ZEL_QT4_ComboBox combo;
    combo.setWidthTextEnabled(true);
    combo.addItem("short");
    const int narrow = combo.sizeHint().width();
    combo.addItem("a text that is a good deal longer than that");
    const int wide = combo.sizeHint().width();
    QVERIFY(wide >= combo.fontMetrics().horizontalAdvance(combo.itemText(1)));
    QVERIFY(wide > narrow);
    combo.removeItem(1);
    QCOMPARE(combo.sizeHint().width(), narrow);
    QPixmap pixmap(40, 16);
    pixmap.fill(Qt::red);
    combo.setIconSize(pixmap.size());
    combo.setItemIcon(0, pixmap);
    QVERIFY(combo.sizeHint().width() >= narrow + 40);
}

void ComboBoxTest::widthCountsVarious()
{
    ZEL_QT4_ComboBox combo;
    combo.setWidthTextEnabled(true);
    combo.addItem("1");
    const int narrow = combo.sizeHint().width();
    combo.addVarious(true);
    QVERIFY(combo.sizeHint().width() > narrow);
    combo.removeVarious();
    QCOMPARE(combo.sizeHint().width(), narrow);
}

void ComboBoxTest::widthLeavesTheSizeAdjustPolicyAlone()
{
    ZEL_QT4_ComboBox combo;
    combo.setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    combo.setWidthTextEnabled(true);
    QCOMPARE(combo.sizeAdjustPolicy(), QComboBox::AdjustToMinimumContentsLengthWithIcon);
    combo.addItem("short");
    const int narrow = combo.sizeHint().width();
    combo.addItem("a text that is a good deal longer than that");
    QCOMPARE(combo.sizeHint().width(), narrow);
}

void ComboBoxTest::stepsKeepEntriesAndIndexes()
{
    const bool holds = rc::check("entries keep their places, whatever happens behind them", [] {
        const auto count = *rc::gen::inRange(0, 5);
        const bool editable = *rc::gen::arbitrary<bool>();
        const auto steps = *rc::gen::container<std::vector<int>>(rc::gen::inRange(0, 4));
        QStringList entries;
        for (int i = 0; i < count; ++i) {
            entries << QString::number(i);
        }
        Combo box(entries);
        box.combo.setEditable(editable);
        bool shown = false;
        for (const int step : steps) {
            const int before = box.combo.getCurrentId();
            if (step == 0) {
                box.combo.addVarious(true);
                shown = true;
                RC_ASSERT(box.onVarious());
            } else if (step == 1) {
                box.combo.addVarious(false);
                shown = true;
                RC_ASSERT(box.combo.getCurrentId() == before);
            } else if (step == 2) {
                box.combo.removeVarious();
                shown = false;
                RC_ASSERT(!box.onVarious());
                RC_ASSERT(before == box.combo.getVariousId() || box.combo.getCurrentId() == before);
            } else if (count > 0) {
                const int chosen = *rc::gen::inRange(0, count);
                box.combo.setCurrentIndex(chosen);
                RC_ASSERT(box.combo.getCurrentId() == chosen);
            }
            RC_ASSERT(box.texts() == (shown ? entries + QStringList{"*VARIES*"} : entries));
        }
    });
    QVERIFY(holds);
}

QTEST_MAIN(ComboBoxTest)
#include "tst_combo_box.moc"
