#include "qt/inc/controls.h"
#include "qt/inc/validators.h"
#include "tests/helpers/checked_test.h"

#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QToolButton>

#include <boost/make_shared.hpp>

#include <memory>

#include <private/qguiapplication_p.h>
#include <qpa/qplatformaccessibility.h>
#include <qpa/qplatformintegration.h>

using namespace zel::qt;

namespace {

struct Announcement
{
    QObject* object;
    QAccessible::Event type;
};

QVector<Announcement> announcements;

void catchAnnouncement(QAccessibleEvent* event)
{
    announcements.append({event->object(), event->type()});
}

bool equalInts(const boost::any& a, const boost::any& b)
{
    return boost::any_cast<int>(a) == boost::any_cast<int>(b);
}

bool lessInts(const boost::any& a, const boost::any& b)
{
    return boost::any_cast<int>(a) < boost::any_cast<int>(b);
}

const NamedValueList materials{{QStringLiteral("Steel"), 1}, {QStringLiteral("Timber"), 2}};

QString nameOf(QWidget& widget)
{
    return QAccessible::queryAccessibleInterface(&widget)->text(QAccessible::Name);
}

QString descriptionOf(QWidget& widget)
{
    return QAccessible::queryAccessibleInterface(&widget)->text(QAccessible::Description);
}

const QString differ = QStringLiteral("The values differ.");
const QString invalid = QStringLiteral("The text is not valid.");

} // namespace

/// What assistive tools are told of the controls.
class AccessibilityTest : public zel::test::CheckedTest
{
    Q_OBJECT
private Q_SLOTS:
    void init();
    void cleanup();

    void aLabelNamesItsControl_data();
    void aLabelNamesItsControl();
    void aFormNamesItsControls();
    void buttonsWithoutTextHaveNames();
    void varyingValuesAreDescribed_data();
    void varyingValuesAreDescribed();
    void aBadTextIsDescribed();
    void theHintIsTheDescription();
    void aNewValueDropsTheDescription();
    void aDescriptionThatStaysIsNotAnnouncedAgain();

private:
    /// Whether a change of this kind was announced since the last call.
    bool takeAnnouncement(QAccessible::Event type, QObject& object);

    std::unique_ptr<QWidget> m_window;
    QAccessible::UpdateHandler m_previous = nullptr;
};

void AccessibilityTest::init()
{
    CheckedTest::init();
    // Off screen no assistive tool is there to ask for announcements.
    QGuiApplicationPrivate::platformIntegration()->accessibility()->setActive(true);
    m_previous = QAccessible::installUpdateHandler(catchAnnouncement);
    m_window = std::make_unique<QWidget>();
    announcements.clear();
}

void AccessibilityTest::cleanup()
{
    m_window.reset();
    QAccessible::installUpdateHandler(m_previous);
    CheckedTest::cleanup();
}

bool AccessibilityTest::takeAnnouncement(QAccessible::Event type, QObject& object)
{
    bool found = false;
    for (const Announcement& announcement : qAsConst(announcements)) {
        found = found || (announcement.type == type && announcement.object == &object);
    }
    announcements.clear();
    return found;
}

void AccessibilityTest::aLabelNamesItsControl_data()
{
    QTest::addColumn<QString>("control");
    for (const QString& control : QStringList{"line edit", "enum box", "editable enum box",
                                              "check box", "radio button group", "group box"}) {
        QTest::newRow(qPrintable(control)) << control;
    }
}

void AccessibilityTest::aLabelNamesItsControl()
{
    QFETCH(QString, control);
    const QString label = QStringLiteral("Material");
    QWidget* named = nullptr;
    if (control == "line edit") {
        named = &MultiEditLineEdit::create(m_window.get(), label, new DoubleEditValidator, 0,
                                           ExpandRight)
                     ->edit();
    } else if (control.endsWith("enum box")) {
        auto* box = MultiEditEnumBox::create(m_window.get(), label, equalInts);
        named = box->findChild<QComboBox*>();
        if (control.startsWith("editable")) {
            box->setEditable(true, boost::make_shared<IntegerValidator<int>>(0, 9, false));
            named = box->findChild<QLineEdit*>();
        }
    } else if (control == "check box") {
        named = MultiEditCheckBox::create(label, m_window.get())->findChild<QCheckBox*>();
    } else if (control == "group box") {
        named = MultiEditGroupBox::create(label, m_window.get());
    } else {
        named = MultiEditRadioButtonGroup::create(label, materials, equalInts, lessInts,
                                                  m_window.get());
    }
    QVERIFY(named != nullptr);
    QCOMPARE(nameOf(*named), label);
}

void AccessibilityTest::aFormNamesItsControls()
{
    PropertyGridLayouter form;
    form.onCreate(m_window.get());
    auto* edit = MultiEditLineEdit::create(m_window.get(), QString(), new DoubleEditValidator, 0,
                                           ExpandRight);
    auto* picker = new MultiEditFilePicker(m_window.get(), PathFile);
    form.onAdd(edit, QStringLiteral("Angle"));
    form.onAdd(picker, QStringLiteral("Drawing"));
    form.onFinish();
    QCOMPARE(nameOf(edit->edit()), QStringLiteral("Angle"));
    QCOMPARE(nameOf(*picker->findChild<QLineEdit*>()), QStringLiteral("Drawing"));
}

void AccessibilityTest::buttonsWithoutTextHaveNames()
{
    Toolbar toolbar(m_window.get());
    const QPushButton* button =
        toolbar.addButton("fit", QIcon(), QStringLiteral("Fit to window"), {}, 0);
    QCOMPARE(nameOf(const_cast<QPushButton&>(*button)), QStringLiteral("Fit to window"));
    MultiEditLineEditWithResetButton optional(new DoubleEditValidator, 0,
                                              [](int, boost::any&, boost::any&) {});
    QCOMPARE(nameOf(*optional.findChild<QAbstractButton*>()), QStringLiteral("Reset to default."));
    const MultiEditFilePicker picker(m_window.get(), PathFolder);
    QCOMPARE(nameOf(*picker.findChild<QToolButton*>()), QStringLiteral("Open Folder"));
}

void AccessibilityTest::varyingValuesAreDescribed_data()
{
    QTest::addColumn<QString>("control");
    for (const QString& control :
         QStringList{"line edit", "enum box", "check box", "radio button group", "group box"}) {
        QTest::newRow(qPrintable(control)) << control;
    }
}

void AccessibilityTest::varyingValuesAreDescribed()
{
    QFETCH(QString, control);
    MultiEditControlBase* varying = nullptr;
    QWidget* described = nullptr;
    boost::any one = 1;
    boost::any other = 2;
    if (control == "line edit") {
        auto* edit = MultiEditLineEdit::create(
            m_window.get(), QString(), new IntegerValidator<int>(0, 9, false), 0, ExpandRight);
        varying = edit;
        described = &edit->edit();
    } else if (control == "enum box") {
        auto* box = MultiEditEnumBox::create(m_window.get(), QString(), equalInts);
        box->setValues(materials);
        varying = box;
        described = box->findChild<QComboBox*>();
    } else if (control == "radio button group") {
        auto* group = MultiEditRadioButtonGroup::create(QString(), materials, equalInts, lessInts,
                                                        m_window.get());
        varying = group;
        described = group;
    } else {
        one = true;
        other = false;
        if (control == "check box") {
            auto* check = MultiEditCheckBox::create(QString(), m_window.get());
            varying = check;
            described = check->findChild<QCheckBox*>();
        } else {
            auto* box = MultiEditGroupBox::create(QString(), m_window.get());
            varying = box;
            described = box;
        }
    }
    varying->reset();
    varying->readValue(one);
    QCOMPARE(descriptionOf(*described), QString());
    announcements.clear();

    varying->readValue(other);
    QVERIFY(varying->dataVaries());
    QCOMPARE(descriptionOf(*described), differ);
    QVERIFY(takeAnnouncement(QAccessible::DescriptionChanged, *described));

    varying->setValue(other);
    QCOMPARE(descriptionOf(*described), QString());
    QVERIFY(takeAnnouncement(QAccessible::DescriptionChanged, *described));
}

void AccessibilityTest::aBadTextIsDescribed()
{
    auto* field = MultiEditLineEdit::create(m_window.get(), QString(),
                                            new IntegerValidator<int>(0, 9, false), 0, ExpandRight);
    field->setValue(1);
    announcements.clear();
    QTest::keyClick(&field->edit(), Qt::Key_X);
    QCOMPARE(descriptionOf(field->edit()), invalid);
    QVERIFY(takeAnnouncement(QAccessible::DescriptionChanged, field->edit()));
    QTest::keyClick(&field->edit(), Qt::Key_Backspace);
    QCOMPARE(descriptionOf(field->edit()), QString());
    QVERIFY(takeAnnouncement(QAccessible::DescriptionChanged, field->edit()));
}

void AccessibilityTest::theHintIsTheDescription()
{
    auto* validator = new IntegerValidator<int>(0, 9, false);
    validator->setEditHintFunction([](const QString&) { return QStringLiteral("0 to 9"); });
    auto* field = MultiEditLineEdit::create(m_window.get(), QString(), validator, 0, ExpandRight);
    QTest::keyClick(&field->edit(), Qt::Key_5);
    QCOMPARE(descriptionOf(field->edit()), QStringLiteral("0 to 9"));
    QTest::keyClick(&field->edit(), Qt::Key_X);
    QCOMPARE(descriptionOf(field->edit()), invalid + QStringLiteral(" 0 to 9"));
}

void AccessibilityTest::aNewValueDropsTheDescription()
{
    auto* field = MultiEditLineEdit::create(m_window.get(), QString(),
                                            new IntegerValidator<int>(0, 9, false), 0, ExpandRight);
    QTest::keyClick(&field->edit(), Qt::Key_X);
    field->setValue(4);
    QCOMPARE(descriptionOf(field->edit()), QString());
    field->forceVaries();
    auto* copy = MultiEditLineEdit::create(m_window.get(), QString(),
                                           new IntegerValidator<int>(0, 9, false), 0, ExpandRight);
    copy->copyStateFrom(*field);
    QCOMPARE(descriptionOf(copy->edit()), differ);
}

void AccessibilityTest::aDescriptionThatStaysIsNotAnnouncedAgain()
{
    auto* field = MultiEditLineEdit::create(m_window.get(), QString(),
                                            new IntegerValidator<int>(0, 9, false), 0, ExpandRight);
    QTest::keyClick(&field->edit(), Qt::Key_X);
    announcements.clear();
    QTest::keyClick(&field->edit(), Qt::Key_Y);
    QVERIFY(!takeAnnouncement(QAccessible::DescriptionChanged, field->edit()));
}

QTEST_MAIN(AccessibilityTest)
#include "tst_accessibility.moc"
