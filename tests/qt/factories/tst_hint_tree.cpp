#include "qt/inc/factories/hint_tree.h"
#include "tests/helpers/checked_test.h"

#include <boost/function.hpp>

#include <QString>

using namespace zel::qt;
using boost::property_tree::ptree_bad_path;

namespace {

using EqualFn = bool (*)(const boost::any&, const boost::any&);
using DefaultFn = boost::function<QString(const QString&)>;

bool neverEqual(const boost::any&, const boost::any&)
{
    return false;
}

HintTree someHints()
{
    HintTree hints;
    hints.put("max_length", boost::any(12));
    hints.put("validator.kind", boost::any(ValidatorKey(typeid(double), std::string())));
    hints.put("is_equal", boost::any(EqualFn(&neverEqual)));
    hints.put("default_fn", boost::any(DefaultFn([](const QString& text) { return text + "!"; })));
    hints.put("empty", boost::any());
    return hints;
}

} // namespace

class HintTreeTest : public zel::test::CheckedTest
{
    Q_OBJECT
private Q_SLOTS:
    void readsTheExactType();
    void separatorIsThePoint();
    void missingNodeGivesTheDefault();
    void otherTypeThrows();
    void emptyDataThrows();
    void missingNeededHintNamesItsPath();
    void translatorPutsAndGets();
};

void HintTreeTest::readsTheExactType()
{
    const HintTree hints = someHints();
    QCOMPARE(readHint<int>(hints, "max_length").get(), 12);
    QCOMPARE(readHintOr<int>(hints, "max_length", 3), 12);
    QCOMPARE(readNeededHint<int>(hints, "max_length"), 12);
    QVERIFY(readNeededHint<EqualFn>(hints, "is_equal") == &neverEqual);
    QCOMPARE(readHintOr<DefaultFn>(hints, "default_fn", {})("a"), QString("a!"));
}

void HintTreeTest::separatorIsThePoint()
{
    const HintTree hints = someHints();
    QVERIFY(readNeededHint<ValidatorKey>(hints.get_child("validator"), "kind") ==
            ValidatorKey(typeid(double), std::string()));
    QVERIFY(readHint<ValidatorKey>(hints, "validator.kind").has_value());
}

void HintTreeTest::missingNodeGivesTheDefault()
{
    const HintTree hints = someHints();
    QVERIFY(!readHint<int>(hints, "minimum"));
    QVERIFY(!readHint<int>(hints, "validator.minimum"));
    QVERIFY(!readHint<int>(hints, "none.minimum"));
    QCOMPARE(readHintOr<int>(hints, "minimum", 3), 3);
    QVERIFY(readHintOr<DefaultFn>(hints, "other_fn", {}).empty());
}

void HintTreeTest::otherTypeThrows()
{
    const HintTree hints = someHints();
    QVERIFY_EXCEPTION_THROWN(readHint<long>(hints, "max_length"), boost::bad_any_cast);
    QVERIFY_EXCEPTION_THROWN(readHintOr<unsigned>(hints, "max_length", 1u), boost::bad_any_cast);
    QVERIFY_EXCEPTION_THROWN(readNeededHint<double>(hints, "max_length"), boost::bad_any_cast);
}

void HintTreeTest::emptyDataThrows()
{
    const HintTree hints = someHints();
    QVERIFY_EXCEPTION_THROWN(readHint<int>(hints, "empty"), boost::bad_any_cast);
    QVERIFY_EXCEPTION_THROWN(readNeededHint<int>(hints, "validator"), boost::bad_any_cast);
}

void HintTreeTest::missingNeededHintNamesItsPath()
{
    const HintTree hints = someHints();
    QString what;
    try {
        readNeededHint<int>(hints, "validator.minimum");
    } catch (const ptree_bad_path& e) {
        what = QString::fromUtf8(e.what());
    }
    QCOMPARE(what, QString("No such node (validator.minimum)"));
}

void HintTreeTest::translatorPutsAndGets()
{
    using Translator = boost::property_tree::xlate_any_to_T<QString>;
    HintTree hints;
    hints.put("name", QString("beam"), Translator());
    QCOMPARE(hints.get<QString>("name", Translator()), QString("beam"));
    QVERIFY_EXCEPTION_THROWN(hints.get<int>("name", boost::property_tree::xlate_any_to_T<int>()),
                             boost::bad_any_cast);
}

QTEST_GUILESS_MAIN(HintTreeTest)
#include "tst_hint_tree.moc"
