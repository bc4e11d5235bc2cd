#include "qt/inc/controls.h"
#include "tests/helpers/checked_test.h"

#include <QMetaMethod>

#include <memory>

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
    void functionMayDeleteTheHook();
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

void OnValueChangedHookTest::functionMayDeleteTheHook()
{
    Control control;
    std::unique_ptr<OnValueChangedHook> hook;
    auto own = std::make_shared<int>();
    const std::weak_ptr<int> owned = own;
    int ownersLeft = 0;
    hook = std::make_unique<OnValueChangedHook>(&control, [&, own] {
        // What the function holds has to outlast the hook, for as long as it runs.
        const std::weak_ptr<int>& seen = owned;
        int& result = ownersLeft;
        hook.reset();
        result = int(seen.use_count());
    });
    own.reset();
    Q_EMIT control.valueChanged();
    QVERIFY(!hook);
    QCOMPARE(ownersLeft, 1);
    Q_EMIT control.valueChanged();
    QCOMPARE(ownersLeft, 1);
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
