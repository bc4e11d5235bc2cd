#include "qt/inc/factories.h"
#include "qt/inc/validators.h"
#include "tests/helpers/checked_test.h"
#include "tests/helpers/validation.h"

#include <stdexcept>
#include <vector>

using namespace zel::qt;
using zel::test::finished;
using zel::test::validated;

namespace {

using EqualFn = bool (*)(const boost::any&, const boost::any&);
using UShort = unsigned short;

const std::bitset<32> noFlags;

const ValidatorKey stringKey(typeid(std::string), "");
const ValidatorKey colorKey(typeid(std::string), "color");
const ValidatorKey intKey(typeid(int), "");
const ValidatorKey uintKey(typeid(unsigned int), "");
const ValidatorKey ushortKey(typeid(UShort), "");
const ValidatorKey doubleKey(typeid(double), "");
const ValidatorKey namedKey(typeid(NamedValueList), "");
const ValidatorKey boolKey(typeid(bool), "");
const ValidatorKey chainKey(typeid(ChainedValidator), "");

bool equalInts(const boost::any& a, const boost::any& b)
{
    const int* first = boost::any_cast<int>(&a);
    const int* second = boost::any_cast<int>(&b);
    return first != nullptr && second != nullptr && *first == *second;
}

/// Counts its instances, to see that nothing is left behind.
class Counted : public IValidator
{
public:
    Counted()
    {
        ++alive;
    }
    ~Counted() override
    {
        --alive;
    }
    bool validate(const QString& text, boost::any& value, const std::bitset<32>&) override
    {
        value = QString("counted");
        return text == "counted";
    }
    QString reformat(const boost::any&, const std::bitset<32>&) override
    {
        return {};
    }
    static int alive;
};

int Counted::alive = 0;

std::unique_ptr<IValidator> buildCounted(const HintTree&)
{
    return std::make_unique<Counted>();
}

HintTree tree(const std::vector<std::pair<const char*, boost::any>>& hints)
{
    HintTree result;
    for (const auto& [key, value] : hints) {
        result.put(key, value);
    }
    return result;
}

std::unique_ptr<IValidator> built(const ValidatorKey& key, const HintTree& hints = {})
{
    return DefaultValidatorFactory().create(key, hints);
}

template <class Validator>
Validator& as(const std::unique_ptr<IValidator>& validator)
{
    return dynamic_cast<Validator&>(*validator);
}

} // namespace

class ValidatorFactoryTest : public zel::test::CheckedTest
{
    Q_OBJECT
private Q_SLOTS:
    void knowsItsNineKeys_data();
    void knowsItsNineKeys();
    void addRefusesADuplicate();
    void addWithAKindIsForStrings();
    void createHandsTheTreeOn();
    void unknownKeyThrows();
    void emptyBuilderThrows();

    void plainString();
    void plainStringOfLengthZero();
    void plainStringOfNegativeLength();
    void integersWithoutHints();
    void integersWithHints();
    void integerOptional_data();
    void integerOptional();
    void integerBoundsInTheWrongOrder();
    void doubleWithoutHints();
    void doubleWithHints();
    void color();
    void namedValues();
    void namedValuesNeedBothHints_data();
    void namedValuesNeedBothHints();
    void yesNo();
    void yesNoIsSharedByCopies();
    void chainWithoutMembers();
    void chainMembersShareOneTree();
    void chainIsInOrder();
    void chainWithAnUnknownMember();
    void chainDoesWithoutAFailedMember();

    void otherTypesThrow_data();
    void otherTypesThrow();

    void copyKeepsAskingTheFirst();
    void movedFromFactoryStaysUsable();
    void assignedFactories();
};

void ValidatorFactoryTest::knowsItsNineKeys_data()
{
    QTest::addColumn<int>("which");
    QTest::addColumn<bool>("exists");
    QTest::newRow("std::string") << 0 << true;
    QTest::newRow("int") << 1 << true;
    QTest::newRow("unsigned int") << 2 << true;
    QTest::newRow("unsigned short") << 3 << true;
    QTest::newRow("double") << 4 << true;
    QTest::newRow("color") << 5 << true;
    QTest::newRow("NamedValueList") << 6 << true;
    QTest::newRow("bool") << 7 << true;
    QTest::newRow("ChainedValidator") << 8 << true;
    QTest::newRow("long") << 9 << false;
    QTest::newRow("int of another kind") << 10 << false;
    QTest::newRow("color of another type") << 11 << false;
}

void ValidatorFactoryTest::knowsItsNineKeys()
{
    QFETCH(int, which);
    const ValidatorKey keys[] = {stringKey,
                                 intKey,
                                 uintKey,
                                 ushortKey,
                                 doubleKey,
                                 colorKey,
                                 namedKey,
                                 boolKey,
                                 chainKey,
                                 {typeid(long), ""},
                                 {typeid(int), "x"},
                                 {typeid(int), "color"}};
    const DefaultValidatorFactory factory;
    QTEST(factory.exists(keys[which]), "exists");
}

void ValidatorFactoryTest::addRefusesADuplicate()
{
    DefaultValidatorFactory factory;
    QString what;
    try {
        factory.add(intKey, buildCounted);
    } catch (const std::logic_error& e) {
        what = e.what();
    }
    QCOMPARE(what, QString("duplicate key"));
    const auto validator = factory.create(intKey, HintTree());
    QVERIFY(dynamic_cast<IntegerValidator<int>*>(validator.get()) != nullptr);
}

void ValidatorFactoryTest::addWithAKindIsForStrings()
{
    DefaultValidatorFactory factory;
    factory.add("mine", buildCounted);
    QVERIFY(factory.exists({typeid(std::string), "mine"}));
    QVERIFY(dynamic_cast<Counted*>(
                factory.create({typeid(std::string), "mine"}, HintTree()).get()) != nullptr);
    QVERIFY_EXCEPTION_THROWN(factory.add("color", buildCounted), std::logic_error);
}

void ValidatorFactoryTest::createHandsTheTreeOn()
{
    ValidatorFactory<ValidatorKey, HintTree> factory;
    const HintTree* seen = nullptr;
    factory.add({typeid(long), ""}, [&](const HintTree& hints) {
        seen = &hints;
        return buildCounted(hints);
    });
    const HintTree hints;
    const auto validator = factory.create({typeid(long), ""}, hints);
    QVERIFY(seen == &hints);
    QCOMPARE(Counted::alive, 1);
    QVERIFY(!factory.exists(intKey));
}

void ValidatorFactoryTest::unknownKeyThrows()
{
    QVERIFY_EXCEPTION_THROWN(built({typeid(long), ""}), std::out_of_range);
    QVERIFY_EXCEPTION_THROWN(built({typeid(int), "color"}), std::out_of_range);
}

void ValidatorFactoryTest::emptyBuilderThrows()
{
    DefaultValidatorFactory factory;
    factory.add({typeid(long), ""}, ValidatorBuilder());
    QVERIFY(factory.exists({typeid(long), ""}));
    QVERIFY_EXCEPTION_THROWN(factory.create({typeid(long), ""}, HintTree()),
                             std::bad_function_call);
}

void ValidatorFactoryTest::plainString()
{
    const auto validator = built(stringKey);
    QVERIFY(dynamic_cast<StringEditValidator*>(validator.get()) != nullptr);
    const QString longText(100000, 'x');
    QCOMPARE(validated(*validator, longText).told(), "true string '" + longText + "'");

    const auto limited = built(stringKey, tree({{"max_length", 3}}));
    QCOMPARE(validated(*limited, "abc").told(), QString("true string 'abc'"));
    QCOMPARE(validated(*limited, "abcd").told(), QString("false string 'abc'"));
}

void ValidatorFactoryTest::plainStringOfLengthZero()
{
    const auto validator = built(stringKey, tree({{"max_length", 0}}));
    QCOMPARE(takeExpressions(), QStringList{"m_maxLen > 0"});
    QCOMPARE(validated(*validator, "a").told(), QString("false string ''"));
}

void ValidatorFactoryTest::plainStringOfNegativeLength()
{
    const auto validator = built(stringKey, tree({{"max_length", -1}}));
    QCOMPARE(validated(*validator, "a").told(), QString("false string 'a'"));
    QCOMPARE(validated(*validator, "").told(), QString("false string ''"));
}

void ValidatorFactoryTest::integersWithoutHints()
{
    const auto i = built(intKey);
    QCOMPARE(as<IntegerValidator<int>>(i).min, std::numeric_limits<int>::min());
    QCOMPARE(as<IntegerValidator<int>>(i).max, std::numeric_limits<int>::max());
    QVERIFY(as<IntegerValidator<int>>(i).m_emptyAsZero);
    QVERIFY(!as<IntegerValidator<int>>(i).m_emptyValueAllowed);
    const auto u = built(uintKey);
    QCOMPARE(as<IntegerValidator<unsigned int>>(u).min, 0U);
    QCOMPARE(as<IntegerValidator<unsigned int>>(u).max, 4294967295U);
    QVERIFY(as<IntegerValidator<unsigned int>>(u).m_emptyAsZero);
    QVERIFY(!as<IntegerValidator<unsigned int>>(u).m_emptyValueAllowed);
    const auto s = built(ushortKey);
    QCOMPARE(as<IntegerValidator<UShort>>(s).min, UShort(0));
    QCOMPARE(as<IntegerValidator<UShort>>(s).max, UShort(65535));
    QVERIFY(as<IntegerValidator<UShort>>(s).m_emptyAsZero);
    QVERIFY(!as<IntegerValidator<UShort>>(s).m_emptyValueAllowed);
}

void ValidatorFactoryTest::integersWithHints()
{
    const auto i = built(intKey, tree({{"minimum", -5}, {"maximum", 7}}));
    QCOMPARE(finished(*i, "-9").told(), QString("true int -5"));
    QCOMPARE(finished(*i, "9").told(), QString("true int 7"));
    const auto u = built(uintKey, tree({{"minimum", 5U}, {"maximum", 7U}}));
    QCOMPARE(finished(*u, "1").told(), QString("true unsigned int 5"));
    QCOMPARE(finished(*u, "9").told(), QString("true unsigned int 7"));
    const auto s = built(ushortKey, tree({{"minimum", UShort(5)}, {"maximum", UShort(7)}}));
    QCOMPARE(finished(*s, "1").told(), QString("true unsigned short 5"));
    QCOMPARE(finished(*s, "9").told(), QString("true unsigned short 7"));
}

void ValidatorFactoryTest::integerOptional_data()
{
    QTest::addColumn<bool>("optional");
    QTest::addColumn<bool>("emptyAsZero");
    QTest::addColumn<bool>("emptyValueAllowed");
    QTest::newRow("true") << true << false << true;
    QTest::newRow("false") << false << true << false;
}

void ValidatorFactoryTest::integerOptional()
{
    QFETCH(bool, optional);
    const HintTree hints = tree({{"optional", optional}});
    const auto i = built(intKey, hints);
    QTEST(as<IntegerValidator<int>>(i).m_emptyAsZero, "emptyAsZero");
    QTEST(as<IntegerValidator<int>>(i).m_emptyValueAllowed, "emptyValueAllowed");
    const auto u = built(uintKey, hints);
    QTEST(as<IntegerValidator<unsigned int>>(u).m_emptyAsZero, "emptyAsZero");
    QTEST(as<IntegerValidator<unsigned int>>(u).m_emptyValueAllowed, "emptyValueAllowed");
    const auto s = built(ushortKey, hints);
    QTEST(as<IntegerValidator<UShort>>(s).m_emptyAsZero, "emptyAsZero");
    QTEST(as<IntegerValidator<UShort>>(s).m_emptyValueAllowed, "emptyValueAllowed");
    const auto d = built(doubleKey, hints);
    QCOMPARE(validated(*d, "").told(), QString(optional ? "true empty" : "true double 0"));
}

void ValidatorFactoryTest::integerBoundsInTheWrongOrder()
{
    const auto validator = built(intKey, tree({{"minimum", 10}, {"maximum", 0}}));
    QCOMPARE(as<IntegerValidator<int>>(validator).min, 10);
    QCOMPARE(as<IntegerValidator<int>>(validator).max, 0);
}

void ValidatorFactoryTest::doubleWithoutHints()
{
    const auto validator = built(doubleKey);
    QVERIFY(dynamic_cast<DoubleEditValidator*>(validator.get()) != nullptr);
    QCOMPARE(validated(*validator, "").told(), QString("true double 0"));
    QCOMPARE(finished(*validator, "1e300").told(), QString("true double 1.0000000000000001e+300"));
    QCOMPARE(validator->reformat(2.5, noFlags), QString("2.500"));
}

void ValidatorFactoryTest::doubleWithHints()
{
    const auto validator =
        built(doubleKey, tree({{"precision", 1}, {"minimum", -1.0}, {"maximum", 2.0}}));
    QCOMPARE(validator->reformat(1.25, noFlags).size(), 3);
    QCOMPARE(finished(*validator, "-9").told(), QString("true double -1"));
    QCOMPARE(finished(*validator, "9").told(), QString("true double 2"));
}

void ValidatorFactoryTest::color()
{
    const auto validator = built(colorKey, tree({{"max_length", 3}}));
    QCOMPARE(validated(*validator, "#123456").told(), QString("true wstring '#123456'"));
    QCOMPARE(validated(*validator, "#12345a").told(), QString("false untouched"));
    QCOMPARE(validated(*validator, "#12345").told(), QString("false untouched"));
    QCOMPARE(validated(*validator, "123456").told(), QString("false untouched"));
    QCOMPARE(validated(*validator, "#1234567").told(), QString("false wstring '#123456'"));
}

void ValidatorFactoryTest::namedValues()
{
    const NamedValueList entries = {{"a", 1}, {"b", 2}};
    const auto validator =
        built(namedKey, tree({{"entries", entries}, {"is_equal", EqualFn(&equalInts)}}));
    QCOMPARE(validated(*validator, "b").told(), QString("true int 2"));
    QCOMPARE(validated(*validator, "c").told(), QString("false untouched"));
    QCOMPARE(validator->reformat(1, noFlags), QString("a"));
}

void ValidatorFactoryTest::namedValuesNeedBothHints_data()
{
    QTest::addColumn<bool>("entries");
    QTest::addColumn<int>("isEqual");
    QTest::newRow("neither") << false << 0;
    QTest::newRow("no comparison") << true << 0;
    QTest::newRow("null comparison") << true << 1;
    QTest::newRow("no entries") << false << 2;
}

void ValidatorFactoryTest::namedValuesNeedBothHints()
{
    QFETCH(bool, entries);
    QFETCH(int, isEqual);
    HintTree hints;
    if (entries) {
        hints.put("entries", boost::any(NamedValueList()));
    }
    if (isEqual > 0) {
        hints.put("is_equal", boost::any(isEqual == 2 ? EqualFn(&equalInts) : EqualFn(nullptr)));
    }
    QVERIFY(built(namedKey, hints) == nullptr);
    const auto reports = takeReports();
    QCOMPARE(reports.size(), std::size_t(1));
    QCOMPARE(reports[0].expression, std::string("nvl && equal_fn"));
    QCOMPARE(reports[0].file, std::string("qt/src/default_validator_factory.cpp"));
}

void ValidatorFactoryTest::yesNo()
{
    const auto validator = built(boolKey, tree({{"optional", 7}}));
    QVERIFY(dynamic_cast<NamedValueListValidator*>(validator.get()) != nullptr);
    QCOMPARE(validated(*validator, "Yes").told(), QString("true bool true"));
    QCOMPARE(validated(*validator, "No").told(), QString("true bool false"));
    QCOMPARE(validated(*validator, "yes").told(), QString("false untouched"));
    QCOMPARE(validated(*validator, "").told(), QString("false untouched"));
    QCOMPARE(validator->reformat(true, noFlags), QString("Yes"));
    QCOMPARE(validator->reformat(false, noFlags), QString("No"));
    QCOMPARE(validator->reformat(1, noFlags), QString());
    QCOMPARE(validator->reformat(boost::any(), noFlags), QString());
}

void ValidatorFactoryTest::yesNoIsSharedByCopies()
{
    const DefaultValidatorFactory first;
    const DefaultValidatorFactory second(first);
    const QString text = first.create(boolKey, HintTree())->reformat(true, noFlags);
    const QString other = second.create(boolKey, HintTree())->reformat(true, noFlags);
    QCOMPARE(text, other);
    QVERIFY(text.constData() == other.constData());
}

void ValidatorFactoryTest::chainWithoutMembers()
{
    const auto validator = built(chainKey);
    QVERIFY(dynamic_cast<ChainedValidator*>(validator.get()) != nullptr);
    QCOMPARE(validated(*validator, "a").told(), QString("false untouched"));
    QCOMPARE(validator->reformat(1, noFlags), QString());
}

void ValidatorFactoryTest::chainMembersShareOneTree()
{
    const DefaultValidatorFactory factory;
    const std::vector<ValidatorKey> members = {intKey, doubleKey};
    HintTree hints = tree({{"chained_validators", members}});
    const auto plain = factory.create(chainKey, hints);
    QCOMPARE(validated(*plain, "3").told(), QString("true int 3"));
    QCOMPARE(validated(*plain, "3.5").told(), QString("true double 3.5"));
    QCOMPARE(plain->reformat(3, noFlags), QString("3"));
    // One flag reaches both: an empty value is formatted as nothing by either.
    hints.put("optional", boost::any(true));
    const auto optional = factory.create(chainKey, hints);
    QCOMPARE(validated(*optional, "").told(), QString("true empty"));
    QCOMPARE(optional->reformat(boost::any(), noFlags), QString());
}

void ValidatorFactoryTest::chainIsInOrder()
{
    const DefaultValidatorFactory factory;
    const std::vector<ValidatorKey> oneWay = {intKey, stringKey};
    const std::vector<ValidatorKey> otherWay = {stringKey, intKey};
    const auto first = factory.create(chainKey, tree({{"chained_validators", oneWay}}));
    const auto second = factory.create(chainKey, tree({{"chained_validators", otherWay}}));
    QCOMPARE(validated(*first, "3").told(), QString("true int 3"));
    QCOMPARE(validated(*first, "x").told(), QString("true string 'x'"));
    QCOMPARE(validated(*second, "3").told(), QString("true string '3'"));
}

void ValidatorFactoryTest::chainWithAnUnknownMember()
{
    DefaultValidatorFactory factory;
    const ValidatorKey counted(typeid(Counted), "");
    factory.add(counted, buildCounted);
    const std::vector<ValidatorKey> members = {counted, counted, {typeid(long), ""}};
    QCOMPARE(Counted::alive, 0);
    QVERIFY_EXCEPTION_THROWN(factory.create(chainKey, tree({{"chained_validators", members}})),
                             std::out_of_range);
    QCOMPARE(Counted::alive, 0);
}

void ValidatorFactoryTest::chainDoesWithoutAFailedMember()
{
    const std::vector<ValidatorKey> members = {namedKey, intKey};
    const auto validator = built(chainKey, tree({{"chained_validators", members}}));
    QCOMPARE(takeExpressions(), QStringList{"nvl && equal_fn"});
    QCOMPARE(validated(*validator, "3").told(), QString("true int 3"));
}

void ValidatorFactoryTest::otherTypesThrow_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<QString>("hint");
    QTest::newRow("max_length") << 0 << "max_length";
    QTest::newRow("int, optional") << 1 << "optional";
    QTest::newRow("int, minimum") << 1 << "minimum";
    QTest::newRow("int, maximum") << 1 << "maximum";
    QTest::newRow("unsigned int, optional") << 2 << "optional";
    QTest::newRow("unsigned int, minimum") << 2 << "minimum";
    QTest::newRow("unsigned int, maximum") << 2 << "maximum";
    QTest::newRow("unsigned short, optional") << 3 << "optional";
    QTest::newRow("unsigned short, minimum") << 3 << "minimum";
    QTest::newRow("unsigned short, maximum") << 3 << "maximum";
    QTest::newRow("double, precision") << 4 << "precision";
    QTest::newRow("double, optional") << 4 << "optional";
    QTest::newRow("double, minimum") << 4 << "minimum";
    QTest::newRow("double, maximum") << 4 << "maximum";
    QTest::newRow("entries") << 5 << "entries";
    QTest::newRow("is_equal") << 5 << "is_equal";
    QTest::newRow("chained_validators") << 6 << "chained_validators";
}

void ValidatorFactoryTest::otherTypesThrow()
{
    QFETCH(int, key);
    QFETCH(QString, hint);
    const ValidatorKey keys[] = {stringKey, intKey,   uintKey, ushortKey,
                                 doubleKey, namedKey, chainKey};
    HintTree hints;
    hints.put(hint.toStdString(), boost::any(5L));
    QVERIFY_EXCEPTION_THROWN(built(keys[key], hints), boost::bad_any_cast);
    // An int is no unsigned short, and none of the other types either.
    if (keys[key] == ushortKey) {
        hints.put(hint.toStdString(), boost::any(5));
        QVERIFY_EXCEPTION_THROWN(built(keys[key], hints), boost::bad_any_cast);
    }
}

void ValidatorFactoryTest::copyKeepsAskingTheFirst()
{
    DefaultValidatorFactory first;
    DefaultValidatorFactory copy(first);
    const ValidatorKey counted(typeid(Counted), "");
    const HintTree hints = tree({{"chained_validators", std::vector<ValidatorKey>{counted}}});

    copy.add(counted, buildCounted);
    QVERIFY(!first.exists(counted));
    QVERIFY_EXCEPTION_THROWN(copy.create(chainKey, hints), std::out_of_range);

    first.add(counted, buildCounted);
    QCOMPARE(validated(*copy.create(chainKey, hints), "counted").accepted, true);
    QCOMPARE(Counted::alive, 0);
}

void ValidatorFactoryTest::movedFromFactoryStaysUsable()
{
    DefaultValidatorFactory first;
    const DefaultValidatorFactory moved(std::move(first));
    const HintTree hints = tree({{"chained_validators", std::vector<ValidatorKey>{intKey}}});
    QCOMPARE(validated(*moved.create(chainKey, hints), "3").told(), QString("true int 3"));
    // NOLINTNEXTLINE(bugprone-use-after-move): a move leaves the table as it is
    QVERIFY(first.exists(intKey));
    QCOMPARE(validated(*first.create(chainKey, hints), "3").told(), QString("true int 3"));
    first.add({typeid(long), ""}, buildCounted);
    QVERIFY(!moved.exists({typeid(long), ""}));
}

void ValidatorFactoryTest::assignedFactories()
{
    const HintTree hints = tree({{"chained_validators", std::vector<ValidatorKey>{intKey}}});
    DefaultValidatorFactory first;
    first.add("mine", buildCounted);
    DefaultValidatorFactory copied;
    copied = first;
    QVERIFY(copied.exists({typeid(std::string), "mine"}));
    DefaultValidatorFactory moved;
    moved = std::move(first);
    QVERIFY(moved.exists({typeid(std::string), "mine"}));
    // NOLINTNEXTLINE(bugprone-use-after-move): a move leaves the table as it is
    QVERIFY(first.exists({typeid(std::string), "mine"}));
    QCOMPARE(validated(*moved.create(chainKey, hints), "3").told(), QString("true int 3"));
    QCOMPARE(validated(*copied.create(chainKey, hints), "3").told(), QString("true int 3"));
}

QTEST_GUILESS_MAIN(ValidatorFactoryTest)
#include "tst_validator_factory.moc"
