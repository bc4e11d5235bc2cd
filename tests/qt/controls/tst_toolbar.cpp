#include "qt/inc/controls.h"
#include "tests/helpers/active_window.h"
#include "tests/helpers/checked_test.h"

#include <QBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QMessageBox>
#include <QPixmap>
#include <QPointer>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>
#include <QWindow>

#include <fstream>
#include <memory>
#include <stdexcept>

using namespace zel::qt;

namespace {

QPixmap redPixmap()
{
    QPixmap pixmap(16, 16);
    pixmap.fill(Qt::red);
    return pixmap;
}

/// What a warning box showed before it was closed.
struct Warning
{
    QString title;
    QString text;
    QWidget* parent = nullptr;
    QMessageBox::StandardButtons buttons;
    QMessageBox::Icon icon = QMessageBox::NoIcon;
};

/// Closes the next modal box with a key as soon as it is there.
std::shared_ptr<Warning> closeNextWarning()
{
    auto seen = std::make_shared<Warning>();
    auto* timer = new QTimer(qApp);
    QObject::connect(timer, &QTimer::timeout, timer, [timer, seen] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (box == nullptr) {
            return;
        }
        *seen = {box->windowTitle(), box->text(), box->parentWidget(), box->standardButtons(),
                 box->icon()};
        timer->deleteLater();
        QTest::keyClick(box, Qt::Key_Return);
    });
    timer->start(0);
    return seen;
}

/// A toolbar in a window that counts what its buttons do.
struct Bar
{
    explicit Bar(ExpandDirection direction = ExpandRight)
        : toolbar(&window, direction)
    {
        toolbar.resize(400, 100);
        window.resize(400, 100);
        window.show();
    }

    QPushButton* add(const QString& text, unsigned int mask)
    {
        return toolbar.addButtonWithText(
            text.toStdString(), text, QString(), [this] { ++runs; }, mask);
    }

    QBoxLayout* layout() const
    {
        return qobject_cast<QBoxLayout*>(toolbar.layout());
    }

    QWidget window;
    Toolbar toolbar;
    int runs = 0;
};

} // namespace

class ToolbarTest : public zel::test::CheckedTest
{
    Q_OBJECT
private Q_SLOTS:
    void iconButtonsAreSquare();
    void iconAndTextButtons();
    void layoutsByDirection_data();
    void layoutsByDirection();
    void iconButtonForms();
    void iconAndTextForms();
    void textButtons();
    void clickRunsTheFunction();
    void spaceKeyRunsTheFunction();
    void emptyFunctionDoesNothing();
    void exceptionIsShown();
    void exceptionTextIsUtf8();
    void otherThrowsPassThrough();
    void masksSelectButtons_data();
    void masksSelectButtons();
    void labelsAndWidgetsAreNoButtons();
    void spacingAndStretch_data();
    void spacingAndStretch();
    void clearDeletesButtonsOnly();
    void hostMayDeleteAButton();
    void actionMayClearTheToolbar();
    void actionMayDeleteTheToolbar();
    void strangersAreIgnored();
    void namesAreNoKeys();
    void assignStyle();
};

void ToolbarTest::iconButtonsAreSquare()
{
    QWidget window;
    const QPushButton plain;
    const int side = plain.sizeHint().height();
    QPushButton* byIcon = createPushButtonWithIcon(&window, QIcon(redPixmap()), "icon");
    QPushButton* byPixmap = createPushButtonWithIcon(&window, redPixmap(), nullptr);
    for (const QPushButton* button : {byIcon, byPixmap}) {
        QCOMPARE(button->minimumSize(), QSize(side, side));
        QCOMPARE(button->maximumSize(), QSize(side, side));
        QVERIFY(!button->icon().isNull());
        QCOMPARE(button->text(), QString());
        QVERIFY(!button->autoDefault());
        QCOMPARE(button->parentWidget(), &window);
        QVERIFY(qobject_cast<const ZEL_QT_PushButton*>(button) != nullptr);
    }
    QCOMPARE(byIcon->objectName(), QStringLiteral("icon"));
    QCOMPARE(byPixmap->objectName(), QString());
}

void ToolbarTest::iconAndTextButtons()
{
    QWidget window;
    QPushButton* byIcon =
        createPushButtonWithIconAndText(&window, QIcon(redPixmap()), QStringLiteral("Run"), "icon");
    QPushButton* byPixmap =
        createPushButtonWithIconAndText(&window, redPixmap(), QStringLiteral("Run"), "pixmap");
    for (const QPushButton* button : {byIcon, byPixmap}) {
        QCOMPARE(button->text(), QStringLiteral("Run"));
        QVERIFY(!button->icon().isNull());
        QVERIFY(!button->autoDefault());
        QVERIFY(button->maximumWidth() > button->sizeHint().width());
        QCOMPARE(button->parentWidget(), &window);
    }
    QCOMPARE(byIcon->objectName(), QStringLiteral("icon"));
    QCOMPARE(byPixmap->objectName(), QStringLiteral("pixmap"));
    const QPushButton* square =
        createPushButtonWithIconAndText(&window, redPixmap(), QString(), "square");
    QCOMPARE(square->maximumWidth(), square->maximumHeight());
    QCOMPARE(square->objectName(), QStringLiteral("square"));
    QVERIFY(!square->icon().isNull());
}

void ToolbarTest::layoutsByDirection_data()
{
    QTest::addColumn<bool>("right");
    QTest::newRow("to the right") << true;
    QTest::newRow("downwards") << false;
}

void ToolbarTest::layoutsByDirection()
{
    QFETCH(bool, right);
    Bar bar(right ? ExpandRight : ExpandDown);
    QCOMPARE(qobject_cast<ZEL_QT_HBoxLayout*>(bar.toolbar.layout()) != nullptr, right);
    QCOMPARE(qobject_cast<ZEL_QT_VBoxLayout*>(bar.toolbar.layout()) != nullptr, !right);
    QCOMPARE(bar.layout()->contentsMargins(), QMargins());
    QCOMPARE(bar.layout()->spacing(), 0);
    QCOMPARE(int(bar.layout()->alignment()), 33);
    const QPushButton* first = bar.add("x", 1);
    const QPushButton* second = bar.add("y", 1);
    QCoreApplication::processEvents();
    if (right) {
        QCOMPARE(second->x(), first->x() + first->width());
    } else {
        QCOMPARE(second->y(), first->y() + first->height());
    }
}

void ToolbarTest::iconButtonForms()
{
    Bar bar;
    const boost::function<void()> run = [&bar] { ++bar.runs; };
    const QIcon icon(redPixmap());
    const std::vector<QPushButton*> buttons = {
        bar.toolbar.addButton("n0", icon, QStringLiteral("tip 0"), run, 1),
        bar.toolbar.addButton("n1", redPixmap(), QStringLiteral("tip 1"), run, 1),
        bar.toolbar.addButtonWithIcon("n2", icon, QStringLiteral("tip 2"), run, 1),
        bar.toolbar.addButtonWithIcon("n3", redPixmap(), QStringLiteral("tip 3"), run, 1),
    };
    for (int i = 0; i < 4; ++i) {
        QPushButton* button = buttons[std::size_t(i)];
        QCOMPARE(button->objectName(), QStringLiteral("n%1").arg(i));
        QCOMPARE(button->toolTip(), QStringLiteral("tip %1").arg(i));
        // A picture alone says nothing to assistive tools.
        QCOMPARE(button->accessibleName(), QStringLiteral("tip %1").arg(i));
        QCOMPARE(button->minimumWidth(), button->maximumHeight());
        QVERIFY(!button->icon().isNull());
        QCOMPARE(bar.layout()->itemAt(i)->widget(), static_cast<QWidget*>(button));
        button->click();
        QCOMPARE(bar.runs, i + 1);
    }
}

void ToolbarTest::iconAndTextForms()
{
    Bar bar;
    const boost::function<void()> run = [&bar] { ++bar.runs; };
    QPushButton* byIcon = bar.toolbar.addButtonWithIconAndText(
        "n0", QIcon(redPixmap()), QStringLiteral("Run"), QStringLiteral("tip"), run, 1);
    QPushButton* byPixmap = bar.toolbar.addButtonWithIconAndText(
        "n1", redPixmap(), QStringLiteral("Run"), QStringLiteral("tip"), run, 1);
    for (QPushButton* button : {byIcon, byPixmap}) {
        QCOMPARE(button->text(), QStringLiteral("Run"));
        QCOMPARE(button->toolTip(), QStringLiteral("tip"));
        QCOMPARE(button->accessibleName(), QString());
        button->click();
    }
    QCOMPARE(bar.runs, 2);
    const QPushButton* square = bar.toolbar.addButtonWithIconAndText("n2", redPixmap(), QString(),
                                                                     QStringLiteral("tip"), run, 1);
    QCOMPARE(square->minimumWidth(), square->maximumWidth());
}

void ToolbarTest::textButtons()
{
    Bar bar;
    const QPushButton* one = bar.add(QStringLiteral("+"), 1);
    QCOMPARE(one->minimumSize(), one->maximumSize());
    QCOMPARE(one->minimumWidth(), one->minimumHeight());
    QVERIFY(!one->autoDefault());
    QCOMPARE(one->objectName(), QStringLiteral("+"));
    const QPushButton* two = bar.add(QStringLiteral("++"), 1);
    QCOMPARE(two->minimumHeight(), two->maximumHeight());
    QCOMPARE(two->minimumHeight(), two->sizeHint().height());
    QVERIFY(two->minimumWidth() < two->maximumWidth());
    const QPushButton* none = bar.add(QString(), 1);
    QVERIFY(none->minimumWidth() < none->maximumWidth());
    // One character outside the basic plane.
    const QPushButton* beyond = bar.add(QString::fromUtf8("\xf0\x9d\x84\x9e"), 1);
    QCOMPARE(beyond->minimumWidth(), beyond->maximumHeight());
}

void ToolbarTest::clickRunsTheFunction()
{
    Bar bar;
    QPushButton* button = bar.add(QStringLiteral("Run"), 1);
    QCoreApplication::processEvents();
    QTest::mouseClick(button, Qt::LeftButton);
    QCOMPARE(bar.runs, 1);
    button->setEnabled(false);
    QTest::mouseClick(button, Qt::LeftButton);
    QCOMPARE(bar.runs, 1);
}

void ToolbarTest::spaceKeyRunsTheFunction()
{
    Bar bar;
    QPushButton* button = bar.add(QStringLiteral("Run"), 1);
    QVERIFY(zel::test::showActive(bar.window));
    button->setFocus();
    QTest::keyClick(bar.window.windowHandle(), Qt::Key_Space);
    QCOMPARE(bar.runs, 1);
}

void ToolbarTest::emptyFunctionDoesNothing()
{
    Bar bar;
    QPushButton* button =
        bar.toolbar.addButtonWithText("n", QStringLiteral("Run"), QString(), {}, 1);
    button->click();
    QCOMPARE(bar.runs, 0);
}

void ToolbarTest::exceptionIsShown()
{
    Bar bar;
    QPushButton* failing = bar.toolbar.addButtonWithText(
        "n", QStringLiteral("Fail"), QString(), [] { throw std::runtime_error("x"); }, 1);
    const auto seen = closeNextWarning();
    failing->click();
    QCOMPARE(seen->title, QStringLiteral("Zel: Exception"));
    QCOMPARE(seen->text, QStringLiteral("An exception occurred:\nx"));
    QCOMPARE(seen->parent, static_cast<QWidget*>(&bar.toolbar));
    QCOMPARE(int(seen->buttons), 0x400);
    QCOMPARE(seen->icon, QMessageBox::Warning);
    QVERIFY(QApplication::activeModalWidget() == nullptr);
    // The toolbar goes on working, the failing button included.
    bar.add(QStringLiteral("Run"), 1)->click();
    QCOMPARE(bar.runs, 1);
    const auto again = closeNextWarning();
    failing->click();
    QCOMPARE(again->text, QStringLiteral("An exception occurred:\nx"));
}

void ToolbarTest::exceptionTextIsUtf8()
{
    Bar bar;
    QPushButton* failing = bar.toolbar.addButtonWithText(
        "n", QStringLiteral("Fail"), QString(),
        [] { throw std::runtime_error("St\xc3\xbctze %1"); }, 1);
    const auto seen = closeNextWarning();
    failing->click();
    QCOMPARE(seen->text, QString::fromUtf8("An exception occurred:\nSt\xc3\xbctze %1"));
}

void ToolbarTest::otherThrowsPassThrough()
{
    Bar bar;
    QPushButton* failing = bar.toolbar.addButtonWithText(
        "n", QStringLiteral("Fail"), QString(), [] { throw 7; }, 1);
    // The signal alone: Qt's handling of a click is not made for exceptions.
    QVERIFY_EXCEPTION_THROWN(Q_EMIT failing->clicked(), int);
    QVERIFY(QApplication::activeModalWidget() == nullptr);
}

void ToolbarTest::masksSelectButtons_data()
{
    QTest::addColumn<unsigned int>("mask");
    QTest::addColumn<QString>("disabled");
    QTest::newRow("2") << 2U << "23";
    QTest::newRow("1") << 1U << "13";
    QTest::newRow("3") << 3U << "123";
    QTest::newRow("4") << 4U << "";
    QTest::newRow("0") << 0U << "";
    QTest::newRow("all ones") << ~0U << "123h";
    QTest::newRow("highest bit") << 0x80000000U << "h";
}

void ToolbarTest::masksSelectButtons()
{
    QFETCH(unsigned int, mask);
    QFETCH(QString, disabled);
    Bar bar;
    const std::vector<QPushButton*> buttons = {bar.add("0", 0), bar.add("1", 1), bar.add("2", 2),
                                               bar.add("3", 3), bar.add("h", 0x80000000U)};
    bar.toolbar.setButtonsEnabled(false, mask);
    QString shown;
    for (const QPushButton* button : buttons) {
        shown += button->isEnabled() ? QString() : button->text();
    }
    QCOMPARE(shown, disabled);
    bar.toolbar.setButtonsEnabled(true, mask);
    for (const QPushButton* button : buttons) {
        QVERIFY(button->isEnabled());
    }
}

void ToolbarTest::labelsAndWidgetsAreNoButtons()
{
    Bar bar;
    bar.toolbar.addLabel(QStringLiteral("Loads"), QStringLiteral("tip"));
    auto* label = bar.toolbar.findChild<QLabel*>();
    QCOMPARE(label->text(), QStringLiteral("Loads"));
    QCOMPARE(label->toolTip(), QStringLiteral("tip"));
    auto* widget = new QPushButton(QStringLiteral("own"));
    bar.toolbar.addWidget(widget);
    QCOMPARE(bar.layout()->itemAt(0)->widget(), static_cast<QWidget*>(label));
    QCOMPARE(bar.layout()->itemAt(1)->widget(), static_cast<QWidget*>(widget));
    bar.toolbar.setButtonsEnabled(false, ~0U);
    QVERIFY(label->isEnabled());
    QVERIFY(widget->isEnabled());
}

void ToolbarTest::spacingAndStretch_data()
{
    layoutsByDirection_data();
}

void ToolbarTest::spacingAndStretch()
{
    QFETCH(bool, right);
    Bar bar(right ? ExpandRight : ExpandDown);
    bar.toolbar.addSpacing(11);
    bar.toolbar.addStretch(3);
    QCOMPARE(bar.layout()->count(), 2);
    const QSize spacing = bar.layout()->itemAt(0)->spacerItem()->sizeHint();
    QCOMPARE(right ? spacing.width() : spacing.height(), 11);
    QVERIFY(bar.layout()->itemAt(1)->spacerItem() != nullptr);
    QCOMPARE(bar.layout()->stretch(1), 3);
}

void ToolbarTest::clearDeletesButtonsOnly()
{
    Bar bar;
    const QPointer<QPushButton> first = bar.add("x", 1);
    const QPointer<QPushButton> second = bar.add("y", 0);
    bar.toolbar.addLabel(QStringLiteral("Loads"), QString());
    bar.toolbar.addWidget(new QPushButton);
    bar.toolbar.addSpacing(4);
    bar.toolbar.addStretch(1);
    bar.toolbar.clear();
    QVERIFY(first.isNull());
    QVERIFY(second.isNull());
    QCOMPARE(bar.layout()->count(), 4);
    QVERIFY(bar.toolbar.findChild<QLabel*>() != nullptr);
    bar.toolbar.setButtonsEnabled(false, ~0U);
    bar.toolbar.clear();
    bar.add("z", 1)->click();
    QCOMPARE(bar.runs, 1);
}

void ToolbarTest::hostMayDeleteAButton()
{
    Bar bar;
    const QPointer<QPushButton> other = bar.add("y", 1);
    delete bar.add("x", 1);
    // As a rule it gets the memory of the deleted button.
    const QPointer<QPushButton> stranger = new QPushButton(&bar.toolbar);
    bar.toolbar.setButtonsEnabled(false, 1);
    QVERIFY(!other->isEnabled());
    QVERIFY(stranger->isEnabled());
    bar.toolbar.clear();
    QVERIFY(other.isNull());
    QVERIFY(!stranger.isNull());
}

void ToolbarTest::actionMayClearTheToolbar()
{
    Bar bar;
    const auto data = std::make_shared<int>(0);
    QPushButton* button = bar.toolbar.addButtonWithText(
        "n", QStringLiteral("Clear"), QString(),
        [&bar, data] {
            bar.toolbar.clear();
            // What the action holds has to outlive its button.
            ++*data;
        },
        1);
    QCoreApplication::processEvents();
    QTest::mouseClick(button, Qt::LeftButton);
    QCOMPARE(*data, 1);
    QCOMPARE(bar.layout()->count(), 0);
}

void ToolbarTest::actionMayDeleteTheToolbar()
{
    QWidget window;
    QPointer<Toolbar> toolbar = new Toolbar(&window, ExpandRight);
    QPushButton* button = toolbar->addButtonWithText(
        "n", QStringLiteral("Close"), QString(),
        [&toolbar] {
            delete toolbar;
            throw std::runtime_error("gone");
        },
        1);
    const auto seen = closeNextWarning();
    button->click();
    QVERIFY(toolbar.isNull());
    QCOMPARE(seen->text, QStringLiteral("An exception occurred:\ngone"));
    QVERIFY(seen->parent == nullptr);
}

void ToolbarTest::strangersAreIgnored()
{
    Bar bar;
    QPushButton stranger;
    QVERIFY(connect(&stranger, SIGNAL(clicked()), &bar.toolbar, SLOT(onClicked())));
    stranger.click();
    QVERIFY(QMetaObject::invokeMethod(&bar.toolbar, "onClicked"));
    QCOMPARE(bar.runs, 0);
}

void ToolbarTest::namesAreNoKeys()
{
    Bar bar;
    QPushButton* first = bar.add("same", 1);
    QPushButton* second = bar.add("same", 1);
    first->click();
    second->click();
    QCOMPARE(bar.runs, 2);
}

void ToolbarTest::assignStyle()
{
    const QTemporaryDir folder;
    const std::string file = folder.filePath(QString::fromUtf8("gr\xc3\xbcn.qss")).toStdString();
    const QString sheet = QString::fromUtf8("QLabel {\n  color: green; /* gr\xc3\xbcn */\n}\n");
    std::ofstream(file) << sheet.toStdString();
    QWidget widget;
    assign_style(&widget, file);
    QCOMPARE(widget.styleSheet(), sheet);
    assign_style(nullptr, file);
    assign_style(&widget, file + ".missing");
    QCOMPARE(widget.styleSheet(), QString());
}

QTEST_MAIN(ToolbarTest)
#include "tst_toolbar.moc"
