#include "qt/inc/validators.h"
#include "tests/helpers/checked_test.h"
#include "tests/helpers/validation.h"

#include <boost/make_shared.hpp>

#include <stdexcept>

using namespace zel::qt;
using zel::test::finished;
using zel::test::told;
using zel::test::validated;

namespace {

const std::bitset<32> localeFlag(1);
const std::bitset<32> noFlags;

/// Accepts one text; says in its answers and in a log what it was asked.
class Probe : public IValidator
{
public:
    explicit Probe(QString accepted, QStringList* log = nullptr)
        : m_accepted(std::move(accepted))
        , m_log(log)
    {}

    bool validate(const QString& text, boost::any& value, const std::bitset<32>& flags) override
    {
        note("validate", flags);
        value = text == m_accepted ? 1 : -1;
        return text == m_accepted;
    }
    bool validateWhenFinished(const QString& text, boost::any& value,
                              const std::bitset<32>& flags) override
    {
        note("finish", flags);
        value = text == m_accepted ? 2 : -2;
        return text == m_accepted;
    }
    QString reformat(const boost::any& value, const std::bitset<32>& flags) override
    {
        note("reformat", flags);
        const auto* number = boost::any_cast<int>(&value);
        return number != nullptr ? m_accepted + QString::number(*number) : QString();
    }
    QString reformatForDisplay(const boost::any& value, const std::bitset<32>& flags) override
    {
        note("display", flags);
        return IValidator::reformatForDisplay(value, flags);
    }

private:
    void note(const char* operation, const std::bitset<32>& flags)
    {
        if (m_log != nullptr) {
            m_log->append(QString("%1 %2 %3").arg(m_accepted, operation).arg(flags.to_ulong()));
        }
    }

    QString m_accepted;
    QStringList* m_log;
};

/// Has the two pure operations only, so that the base's others can be seen.
class Plain : public IValidator
{
public:
    bool validate(const QString& text, boost::any& value, const std::bitset<32>& flags) override
    {
        m_lastFlags = flags;
        value = text.size();
        return text.size() < 3;
    }
    QString reformat(const boost::any& value, const std::bitset<32>& flags) override
    {
        m_lastFlags = flags;
        return value.empty() ? QString() : QString::number(boost::any_cast<int>(value));
    }
    std::bitset<32> m_lastFlags;
};

class Throwing : public IValidator
{
public:
    bool validate(const QString&, boost::any&, const std::bitset<32>&) override
    {
        throw std::runtime_error("validate");
    }
    QString reformat(const boost::any&, const std::bitset<32>&) override
    {
        throw std::runtime_error("reformat");
    }
};

std::unique_ptr<ChainedValidator> chainOf(const QStringList& accepted, QStringList* log = nullptr)
{
    std::deque<std::unique_ptr<IValidator>> members;
    for (const QString& text : accepted) {
        members.push_back(std::make_unique<Probe>(text, log));
    }
    return std::make_unique<ChainedValidator>(std::move(members));
}

void addHundred(boost::any& value)
{
    value = boost::any_cast<int>(value) + 100;
}

} // namespace

class ValidatorCompositionTest : public zel::test::CheckedTest
{
    Q_OBJECT
private Q_SLOTS:
    void baseFinishesAsItValidates();
    void displayAddsBlankAndPostfix_data();
    void displayAddsBlankAndPostfix();
    void hintComesFromItsFunction();

    void forwardWithoutInnerRefuses();
    void forwardCallsTheSameOperation();
    void forwardExchangesItsInner();
    void forwardDisplaysWithTheInnerPostfix();
    void forwardHasItsOwnHintOnly();

    void conversionWithoutFunctionsIsItsInner();
    void conversionWithoutInnerRefuses();
    void conversionConvertsWhatWasAccepted();
    void conversionSeesThatThereIsNoValue();
    void conversionNeverSeesAPlaceholder();
    void conversionFormatsACopy();
    void conversionFunctionsAreCleared();

    void emptyChainRefuses();
    void firstMemberThatAcceptsWins();
    void laterMemberOverwritesAPlaceholder();
    void firstNonEmptyTextWins();
    void chainFinishesWithValidate();
    void chainDoesNotEnforceARange();
    void chainDisplaysWithItsOwnPostfix();
    void chainOwnsItsMembers();

    void exceptionsPassThrough();
};

void ValidatorCompositionTest::baseFinishesAsItValidates()
{
    Plain plain;
    boost::any value;
    QVERIFY(plain.validateWhenFinished("ab", value, localeFlag));
    QCOMPARE(told(value), QString("int 2"));
    QVERIFY(plain.m_lastFlags == localeFlag);
    QVERIFY(!plain.validateWhenFinished("abc", value, noFlags));
    QVERIFY(plain.m_lastFlags == noFlags);
}

void ValidatorCompositionTest::displayAddsBlankAndPostfix_data()
{
    QTest::addColumn<QString>("postfix");
    QTest::addColumn<bool>("hasValue");
    QTest::addColumn<QString>("text");
    QTest::newRow("no postfix") << "" << true << "7";
    QTest::newRow("no postfix, no value") << "" << false << "";
    QTest::newRow("postfix") << "kN" << true << "7 kN";
    QTest::newRow("postfix behind an empty text") << "kN" << false << " kN";
}

void ValidatorCompositionTest::displayAddsBlankAndPostfix()
{
    QFETCH(QString, postfix);
    QFETCH(bool, hasValue);
    Plain plain;
    plain.setPostfix(postfix);
    const boost::any value = hasValue ? boost::any(7) : boost::any();
    QTEST(plain.reformatForDisplay(value, localeFlag), "text");
    QVERIFY(plain.m_lastFlags == localeFlag);
    QCOMPARE(plain.reformat(value, noFlags), QString(hasValue ? "7" : ""));
}

void ValidatorCompositionTest::hintComesFromItsFunction()
{
    Plain plain;
    QCOMPARE(plain.getEditHint("a"), QString());
    plain.setEditHintFunction([](const QString& text) { return "hint " + text; });
    QCOMPARE(plain.getEditHint("a"), QString("hint a"));
    plain.setEditHintFunction({});
    QCOMPARE(plain.getEditHint("a"), QString());
}

void ValidatorCompositionTest::forwardWithoutInnerRefuses()
{
    ForwardValidator forward;
    forward.setPostfix("kN");
    QVERIFY(forward.getValidator() == nullptr);
    QCOMPARE(validated(forward, "a").told(), QString("false untouched"));
    QCOMPARE(finished(forward, "a").told(), QString("false untouched"));
    QCOMPARE(forward.reformat(7, noFlags), QString());
    QCOMPARE(forward.reformatForDisplay(7, noFlags), QString());
}

void ValidatorCompositionTest::forwardCallsTheSameOperation()
{
    QStringList log;
    const auto probe = boost::make_shared<Probe>("a", &log);
    ForwardValidator forward(probe);
    QVERIFY(forward.getValidator() == probe.get());
    QCOMPARE(validated(forward, "a", localeFlag).told(), QString("true int 1"));
    QCOMPARE(validated(forward, "b").told(), QString("false int -1"));
    QCOMPARE(finished(forward, "a", std::bitset<32>(6)).told(), QString("true int 2"));
    QCOMPARE(finished(forward, "b").told(), QString("false int -2"));
    QCOMPARE(forward.reformat(7, localeFlag), QString("a7"));
    QCOMPARE(forward.reformatForDisplay(7, localeFlag), QString("a7"));
    QCOMPARE(log, QStringList({"a validate 1", "a validate 0", "a finish 6", "a finish 0",
                               "a reformat 1", "a display 1", "a reformat 1"}));
}

void ValidatorCompositionTest::forwardExchangesItsInner()
{
    const auto first = boost::make_shared<Probe>("a");
    const auto second = boost::make_shared<Probe>("b");
    ForwardValidator forward(first);
    forward.setValidator(second);
    QVERIFY(forward.getValidator() == second.get());
    QCOMPARE(first.use_count(), 1L);
    QCOMPARE(second.use_count(), 2L);
    QVERIFY(validated(forward, "b").accepted);
    forward.setValidator(nullptr);
    QVERIFY(forward.getValidator() == nullptr);
    QCOMPARE(validated(forward, "b").told(), QString("false untouched"));
    QCOMPARE(second.use_count(), 1L);
}

void ValidatorCompositionTest::forwardDisplaysWithTheInnerPostfix()
{
    const auto probe = boost::make_shared<Probe>("a");
    ForwardValidator forward(probe);
    forward.setPostfix("outer");
    QCOMPARE(forward.reformatForDisplay(7, noFlags), QString("a7"));
    probe->setPostfix("inner");
    QCOMPARE(forward.reformatForDisplay(7, noFlags), QString("a7 inner"));
    QCOMPARE(forward.reformatForDisplay(boost::any(), noFlags), QString(" inner"));
}

void ValidatorCompositionTest::forwardHasItsOwnHintOnly()
{
    const auto probe = boost::make_shared<Probe>("a");
    probe->setEditHintFunction([](const QString&) { return QString("inner"); });
    ForwardValidator forward(probe);
    QCOMPARE(forward.getEditHint("a"), QString());
    forward.setEditHintFunction([](const QString&) { return QString("outer"); });
    QCOMPARE(forward.getEditHint("a"), QString("outer"));
}

void ValidatorCompositionTest::conversionWithoutFunctionsIsItsInner()
{
    QStringList log;
    const auto probe = boost::make_shared<Probe>("a", &log);
    probe->setPostfix("kN");
    ConversionValidator conversion(probe);
    QCOMPARE(validated(conversion, "a", localeFlag).told(), QString("true int 1"));
    QCOMPARE(validated(conversion, "b").told(), QString("false int -1"));
    QCOMPARE(finished(conversion, "a").told(), QString("true int 2"));
    QCOMPARE(finished(conversion, "b").told(), QString("false int -2"));
    QCOMPARE(conversion.reformat(7, localeFlag), QString("a7"));
    QCOMPARE(conversion.reformatForDisplay(7, localeFlag), QString("a7 kN"));
    QCOMPARE(log, QStringList({"a validate 1", "a validate 0", "a finish 0", "a finish 0",
                               "a reformat 1", "a display 1", "a reformat 1"}));
}

void ValidatorCompositionTest::conversionWithoutInnerRefuses()
{
    int toInner = 0;
    int fromInner = 0;
    ConversionValidator conversion;
    conversion.setConversionFn([&](boost::any&) { ++toInner; }, [&](boost::any&) { ++fromInner; });
    QVERIFY(conversion.getValidator() == nullptr);
    QCOMPARE(validated(conversion, "a").told(), QString("false untouched"));
    QCOMPARE(finished(conversion, "a").told(), QString("false untouched"));
    QCOMPARE(fromInner, 0);
    QCOMPARE(conversion.reformat(7, noFlags), QString());
    QCOMPARE(conversion.reformatForDisplay(7, noFlags), QString());
    QCOMPARE(toInner, 2);
}

void ValidatorCompositionTest::conversionConvertsWhatWasAccepted()
{
    ConversionValidator conversion(boost::make_shared<Probe>("a"));
    conversion.setConversionFn({}, addHundred);
    QCOMPARE(validated(conversion, "a").told(), QString("true int 101"));
    QCOMPARE(finished(conversion, "a").told(), QString("true int 102"));
    QCOMPARE(conversion.reformat(7, noFlags), QString("a7"));
}

void ValidatorCompositionTest::conversionSeesThatThereIsNoValue()
{
    // An empty text that is allowed is accepted too, and the host may store a number for it.
    const auto inner = boost::make_shared<DoubleEditValidator>();
    inner->setEmptyValueAllowed(true);
    ConversionValidator conversion(inner);
    conversion.setConversionFn({}, [](boost::any& value) {
        if (value.empty()) {
            value = -1;
        }
    });
    QCOMPARE(validated(conversion, "").told(), QString("true int -1"));
    QCOMPARE(finished(conversion, "").told(), QString("true int -1"));
}

void ValidatorCompositionTest::conversionNeverSeesAPlaceholder()
{
    int calls = 0;
    ConversionValidator conversion(boost::make_shared<Probe>("a"));
    conversion.setConversionFn({}, [&](boost::any&) { ++calls; });
    QCOMPARE(validated(conversion, "b").told(), QString("false int -1"));
    QCOMPARE(finished(conversion, "b").told(), QString("false int -2"));
    QCOMPARE(calls, 0);
}

void ValidatorCompositionTest::conversionFormatsACopy()
{
    const auto probe = boost::make_shared<Probe>("a");
    probe->setPostfix("kN");
    ConversionValidator conversion(probe);
    conversion.setConversionFn(addHundred, {});
    const boost::any value = 7;
    QCOMPARE(conversion.reformat(value, noFlags), QString("a107"));
    QCOMPARE(told(value), QString("int 7"));
    QCOMPARE(conversion.reformatForDisplay(value, noFlags), QString("a107 kN"));
    QCOMPARE(told(value), QString("int 7"));
    QCOMPARE(validated(conversion, "a").told(), QString("true int 1"));
}

void ValidatorCompositionTest::conversionFunctionsAreCleared()
{
    ConversionValidator conversion(boost::make_shared<Probe>("a"));
    conversion.setConversionFn(addHundred, addHundred);
    QCOMPARE(validated(conversion, "a").told(), QString("true int 101"));
    QCOMPARE(conversion.reformat(7, noFlags), QString("a107"));
    conversion.setConversionFn(addHundred, {});
    QCOMPARE(validated(conversion, "a").told(), QString("true int 1"));
    QCOMPARE(conversion.reformat(7, noFlags), QString("a107"));
    conversion.setConversionFn({}, {});
    QCOMPARE(conversion.reformat(7, noFlags), QString("a7"));
}

void ValidatorCompositionTest::emptyChainRefuses()
{
    ChainedValidator chain;
    QCOMPARE(validated(chain, "").told(), QString("false untouched"));
    QCOMPARE(validated(chain, "a").told(), QString("false untouched"));
    QCOMPARE(finished(chain, "a").told(), QString("false untouched"));
    QCOMPARE(chain.reformat(7, noFlags), QString());
    QCOMPARE(chain.reformat(boost::any(), noFlags), QString());
    QCOMPARE(chain.reformatForDisplay(7, noFlags), QString());
}

void ValidatorCompositionTest::firstMemberThatAcceptsWins()
{
    QStringList log;
    const auto chain = chainOf({"a", "b", "b", "c"}, &log);
    QCOMPARE(validated(*chain, "b", localeFlag).told(), QString("true int 1"));
    QCOMPARE(log, QStringList({"a validate 1", "b validate 1"}));
    log.clear();
    QCOMPARE(validated(*chain, "d").told(), QString("false int -1"));
    QCOMPARE(log, QStringList({"a validate 0", "b validate 0", "b validate 0", "c validate 0"}));
}

void ValidatorCompositionTest::laterMemberOverwritesAPlaceholder()
{
    std::deque<std::unique_ptr<IValidator>> members;
    members.push_back(std::make_unique<Probe>("never"));
    members.push_back(std::make_unique<Plain>());
    ChainedValidator chain(std::move(members));
    QCOMPARE(validated(chain, "ab").told(), QString("true int 2"));
}

void ValidatorCompositionTest::firstNonEmptyTextWins()
{
    QStringList log;
    std::deque<std::unique_ptr<IValidator>> members;
    members.push_back(std::make_unique<Plain>());
    members.push_back(std::make_unique<Probe>("a", &log));
    members.push_back(std::make_unique<Probe>("b", &log));
    ChainedValidator chain(std::move(members));
    QCOMPARE(chain.reformat(7, localeFlag), QString("7"));
    QCOMPARE(log, QStringList());
    QCOMPARE(chain.reformat(boost::any(), localeFlag), QString());
    QCOMPARE(log, QStringList({"a reformat 1", "b reformat 1"}));
    log.clear();
    QCOMPARE(chainOf({"a", "b"}, &log)->reformat(7, noFlags), QString("a7"));
    QCOMPARE(log, QStringList({"a reformat 0"}));
    // A blank is a text.
    std::deque<std::unique_ptr<IValidator>> texts;
    texts.push_back(std::make_unique<StringEditValidator>(5));
    texts.push_back(std::make_unique<Probe>("a", &log));
    ChainedValidator ofTexts(std::move(texts));
    QCOMPARE(ofTexts.reformat(std::wstring(L" "), noFlags), QString(" "));
}

void ValidatorCompositionTest::chainFinishesWithValidate()
{
    QStringList log;
    const auto chain = chainOf({"a", "b"}, &log);
    QCOMPARE(finished(*chain, "b", localeFlag).told(), QString("true int 1"));
    QCOMPARE(log, QStringList({"a validate 1", "b validate 1"}));
}

void ValidatorCompositionTest::chainDoesNotEnforceARange()
{
    std::deque<std::unique_ptr<IValidator>> members;
    members.push_back(std::make_unique<DoubleEditValidator>(0.0, 10.0));
    members.push_back(std::make_unique<StringEditValidator>(5));
    ChainedValidator chain(std::move(members));
    QCOMPARE(finished(chain, "25").told(), QString("true double 25"));
    QCOMPARE(finished(chain, "beam").told(), QString("true wstring 'beam'"));
    QCOMPARE(chain.reformat(25.0, noFlags), QString("10.000"));
}

void ValidatorCompositionTest::chainDisplaysWithItsOwnPostfix()
{
    auto probe = std::make_unique<Probe>("a");
    probe->setPostfix("inner");
    std::deque<std::unique_ptr<IValidator>> members;
    members.push_back(std::move(probe));
    ChainedValidator chain(std::move(members));
    QCOMPARE(chain.reformatForDisplay(7, noFlags), QString("a7"));
    chain.setPostfix("outer");
    QCOMPARE(chain.reformatForDisplay(7, noFlags), QString("a7 outer"));
}

void ValidatorCompositionTest::chainOwnsItsMembers()
{
    struct Counted : Plain
    {
        explicit Counted(int& alive)
            : m_alive(alive)
        {
            ++m_alive;
        }
        ~Counted() override
        {
            --m_alive;
        }
        int& m_alive;
    };
    int alive = 0;
    std::deque<std::unique_ptr<IValidator>> members;
    members.push_back(std::make_unique<Counted>(alive));
    members.push_back(std::make_unique<Counted>(alive));
    {
        ChainedValidator chain(std::move(members));
        QCOMPARE(alive, 2);
    }
    QCOMPARE(alive, 0);
}

void ValidatorCompositionTest::exceptionsPassThrough()
{
    ConversionValidator conversion(boost::make_shared<Throwing>());
    ForwardValidator forward(boost::make_shared<Throwing>());
    std::deque<std::unique_ptr<IValidator>> members;
    members.push_back(std::make_unique<Throwing>());
    ChainedValidator chain(std::move(members));
    IValidator* const all[] = {&conversion, &forward, &chain};
    for (IValidator* validator : all) {
        boost::any value;
        QVERIFY_EXCEPTION_THROWN(validator->validate("a", value, noFlags), std::runtime_error);
        QVERIFY_EXCEPTION_THROWN(validator->validateWhenFinished("a", value, noFlags),
                                 std::runtime_error);
        QVERIFY_EXCEPTION_THROWN(validator->reformat(value, noFlags), std::runtime_error);
        QVERIFY_EXCEPTION_THROWN(validator->reformatForDisplay(value, noFlags), std::runtime_error);
    }
}

QTEST_GUILESS_MAIN(ValidatorCompositionTest)
#include "tst_validator_composition.moc"
