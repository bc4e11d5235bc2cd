#include "platform/widgets.h"
#include "tests/helpers/checked_test.h"

#include <QSignalSpy>

class PlatformWidgetsTest : public zel::test::CheckedTest
{
    Q_OBJECT
private Q_SLOTS:
    void labelKeepsItsFormat_data();
    void labelKeepsItsFormat();
    void labelTakesParentNameAndFlags();
    void pushButtons();
    void layoutsServeTheirParent();
    void connectsByStrings();
    void connectTellsOfFailure();
    void connectHonoursTheType();
    void blockerRestoresWhatItFound_data();
    void blockerRestoresWhatItFound();
    void blockersNest();
    void blockerOfNothing();
    void blockerOutlivesItsObject();
    void lateRegistrationOfTranslations();
};

void PlatformWidgetsTest::labelKeepsItsFormat_data()
{
    QTest::addColumn<int>("format");
    QTest::newRow("plain") << int(Qt::PlainText);
    QTest::newRow("rich") << int(Qt::RichText);
    QTest::newRow("auto") << int(Qt::AutoText);
}

void PlatformWidgetsTest::labelKeepsItsFormat()
{
    QFETCH(int, format);
    const ZEL_QT_Label label(static_cast<Qt::TextFormat>(format), QStringLiteral("a <b> c"));
    QCOMPARE(int(label.textFormat()), format);
    QCOMPARE(label.text(), QStringLiteral("a <b> c"));
    QVERIFY(label.parent() == nullptr);
    QCOMPARE(label.objectName(), QString());
    QVERIFY(label.isWindow());
}

void PlatformWidgetsTest::labelTakesParentNameAndFlags()
{
    QWidget parent;
    const ZEL_QT_Label label(Qt::PlainText, QStringLiteral("x"), &parent, "caption", Qt::Tool);
    QCOMPARE(label.parentWidget(), &parent);
    QCOMPARE(label.objectName(), QStringLiteral("caption"));
    QCOMPARE(int(label.windowType()), int(Qt::Tool));
}

void PlatformWidgetsTest::pushButtons()
{
    QWidget parent;
    QPixmap red(4, 4);
    red.fill(Qt::red);
    const ZEL_QT_PushButton plain(&parent, "plain");
    const ZEL_QT_PushButton texted(QStringLiteral("..."), &parent, "texted");
    const ZEL_QT_PushButton pictured(QIcon(red), QStringLiteral("Go"), &parent);
    QCOMPARE(plain.text(), QString());
    QCOMPARE(plain.objectName(), QStringLiteral("plain"));
    QCOMPARE(texted.text(), QStringLiteral("..."));
    QCOMPARE(texted.objectName(), QStringLiteral("texted"));
    QVERIFY(texted.icon().isNull());
    QCOMPARE(pictured.text(), QStringLiteral("Go"));
    QVERIFY(!pictured.icon().isNull());
    QCOMPARE(pictured.objectName(), QString());
    QCOMPARE(pictured.parentWidget(), &parent);
}

void PlatformWidgetsTest::layoutsServeTheirParent()
{
    QWidget row;
    QWidget column;
    const auto* horizontal = new ZEL_QT_HBoxLayout(&row);
    const auto* vertical = new ZEL_QT_VBoxLayout(&column);
    QCOMPARE(row.layout(), horizontal);
    QCOMPARE(int(horizontal->direction()), int(QBoxLayout::LeftToRight));
    QCOMPARE(column.layout(), vertical);
    QCOMPARE(int(vertical->direction()), int(QBoxLayout::TopToBottom));
    const ZEL_QT_HBoxLayout loose;
    QVERIFY(loose.parentWidget() == nullptr);
}

void PlatformWidgetsTest::connectsByStrings()
{
    ZEL_QT_PushButton button;
    QWidget window;
    QVERIFY(zel_connect(&button, "2clicked()", &window, "1hide()"));
    window.show();
    button.click();
    QVERIFY(window.isHidden());
}

void PlatformWidgetsTest::connectTellsOfFailure()
{
    const QObject sender;
    const QObject receiver;
    QVERIFY(!zel_connect(&sender, "2valueChanged()", &receiver, "1deleteLater()"));
    QCOMPARE(takeWarnings().size(), 1);
}

void PlatformWidgetsTest::connectHonoursTheType()
{
    ZEL_QT_PushButton button;
    QWidget window;
    QVERIFY(zel_connect(&button, "2clicked()", &window, "1close()", Qt::QueuedConnection));
    window.show();
    button.click();
    QVERIFY(!window.isHidden());
    QTRY_VERIFY(window.isHidden());
}

void PlatformWidgetsTest::blockerRestoresWhatItFound_data()
{
    QTest::addColumn<bool>("blockedBefore");
    QTest::newRow("open before") << false;
    QTest::newRow("blocked before") << true;
}

void PlatformWidgetsTest::blockerRestoresWhatItFound()
{
    QFETCH(bool, blockedBefore);
    QObject object;
    const QSignalSpy spy(&object, &QObject::objectNameChanged);
    object.blockSignals(blockedBefore);
    {
        const ZEL_QT_SignalBlocker blocker(&object);
        QVERIFY(object.signalsBlocked());
        object.setObjectName(QStringLiteral("while blocked"));
    }
    QCOMPARE(object.signalsBlocked(), blockedBefore);
    QCOMPARE(spy.count(), 0);
    object.setObjectName(QStringLiteral("afterwards"));
    QCOMPARE(spy.count(), blockedBefore ? 0 : 1);
}

void PlatformWidgetsTest::blockersNest()
{
    QObject object;
    {
        const ZEL_QT_SignalBlocker outer(&object);
        {
            const ZEL_QT_SignalBlocker inner(&object);
        }
        QVERIFY(object.signalsBlocked());
    }
    QVERIFY(!object.signalsBlocked());
}

void PlatformWidgetsTest::blockerOfNothing()
{
    const ZEL_QT_SignalBlocker blocker(nullptr);
    Q_UNUSED(blocker)
}

void PlatformWidgetsTest::blockerOutlivesItsObject()
{
    auto object = std::make_unique<QObject>();
    const ZEL_QT_SignalBlocker blocker(object.get());
    object.reset();
}

void PlatformWidgetsTest::lateRegistrationOfTranslations()
{
    // There are no translations under this name; asking for them is no error.
    const ZEL_QT_InitTranslator translator("no_such_library");
    Q_UNUSED(translator)
    QCOMPARE(QObject::tr("*VARIES*"), QStringLiteral("*VARIES*"));
}

QTEST_MAIN(PlatformWidgetsTest)
#include "tst_platform_widgets.moc"
