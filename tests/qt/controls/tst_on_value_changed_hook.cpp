#include "qt/inc/controls.h"
#include "tests/helpers/checked_test.h"

#include <QMetaMethod>

using namespace zel::qt;

class Control : public QObject
{
    Q_OBJECT
Q_SIGNALS:
    void valueChanged();
};

class OnValueChangedHookTest : public zel::test::CheckedTest
{
    Q_OBJECT
private Q_SLOTS:
    void callsOncePerSignal();
    void movesTheFunctionIn();
    void hasNoParentAndNoSignals();
    void endsWithTheHook();
    void emptyFunctionThrows();
    void objectWithoutTheSignalIsWarnedOf();
};

void OnValueChangedHookTest::callsOncePerSignal()
{
    Control control;
    int calls = 0;
    const OnValueChangedHook hook(&control, [&calls] { ++calls; });
    QCOMPARE(calls, 0);
    Q_EMIT control.valueChanged();
    QCOMPARE(calls, 1);
    Q_EMIT control.valueChanged();
    QCOMPARE(calls, 2);
}

void OnValueChangedHookTest::movesTheFunctionIn()
{
    Control control;
    int calls = 0;
    boost::function<void()> fn = [&calls] { ++calls; };
    const OnValueChangedHook hook(&control, std::move(fn));
    Q_EMIT control.valueChanged();
    QCOMPARE(calls, 1);
    QVERIFY(fn.empty()); // NOLINT(bugprone-use-after-move): the move is what is tested
}

void OnValueChangedHookTest::hasNoParentAndNoSignals()
{
    Control control;
    const OnValueChangedHook hook(&control, [] {});
    QVERIFY(hook.parent() == nullptr);
    const QMetaObject& meta = OnValueChangedHook::staticMetaObject;
    QCOMPARE(meta.methodCount() - meta.methodOffset(), 1);
    const QMetaMethod slot = meta.method(meta.methodOffset());
    QCOMPARE(slot.methodSignature(), QByteArray("onValueChanged()"));
    QCOMPARE(int(slot.methodType()), int(QMetaMethod::Slot));
    QCOMPARE(int(slot.access()), int(QMetaMethod::Public));
}

void OnValueChangedHookTest::endsWithTheHook()
{
    Control control;
    int calls = 0;
    {
        const OnValueChangedHook hook(&control, [&calls] { ++calls; });
    }
    Q_EMIT control.valueChanged();
    QCOMPARE(calls, 0);
}

void OnValueChangedHookTest::emptyFunctionThrows()
{
    Control control;
    OnValueChangedHook hook(&control, boost::function<void()>());
    QVERIFY_EXCEPTION_THROWN(hook.onValueChanged(), boost::bad_function_call);
}

void OnValueChangedHookTest::objectWithoutTheSignalIsWarnedOf()
{
    QObject object;
    const OnValueChangedHook hook(&object, [] {});
    QCOMPARE(takeWarnings().size(), 1);
}

QTEST_GUILESS_MAIN(OnValueChangedHookTest)
#include "tst_on_value_changed_hook.moc"
