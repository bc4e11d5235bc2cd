#include "base/any_predicates.h"
#include "tests/helpers/checked_test.h"

#include <map>

using zel::AnyPredicate;

class AnyPredicatesTest : public zel::test::CheckedTest
{
    Q_OBJECT
private Q_SLOTS:
    void answersAsItsFunction();
    void copiesTheFunction();
    void ordersAMapThatIsKeyedByAny();
    void emptyFunctionIsReportedAndKept();
};

namespace {

bool lessInt(const boost::any& a, const boost::any& b)
{
    return boost::any_cast<int>(a) < boost::any_cast<int>(b);
}

} // namespace

void AnyPredicatesTest::answersAsItsFunction()
{
    const AnyPredicate less(&lessInt);
    QVERIFY(less(1, 2));
    QVERIFY(!less(2, 1));
    QVERIFY(!less(1, 1));
}

void AnyPredicatesTest::copiesTheFunction()
{
    boost::function<bool(const boost::any&, const boost::any&)> fn = &lessInt;
    const AnyPredicate less(fn);
    fn.clear();
    const AnyPredicate copy = less;
    QVERIFY(less(1, 2));
    QVERIFY(copy(1, 2));
}

void AnyPredicatesTest::ordersAMapThatIsKeyedByAny()
{
    std::map<boost::any, QString, AnyPredicate> names{AnyPredicate(&lessInt)};
    names[3] = QStringLiteral("three");
    names[1] = QStringLiteral("one");
    names[3] = QStringLiteral("again");
    const auto copy = names;
    QCOMPARE(copy.size(), std::size_t(2));
    QCOMPARE(copy.begin()->second, QStringLiteral("one"));
    QCOMPARE(copy.at(3), QStringLiteral("again"));
}

void AnyPredicatesTest::emptyFunctionIsReportedAndKept()
{
    const AnyPredicate empty{boost::function<bool(const boost::any&, const boost::any&)>()};
    const auto reports = takeReports();
    QCOMPARE(reports.size(), std::size_t(1));
    QCOMPARE(reports[0].expression, std::string("m_fn"));
    QCOMPARE(reports[0].file, std::string("base/any_predicates.cpp"));
    QCOMPARE(reports[0].message, std::string());
    QVERIFY(reports[0].values.empty());
    QVERIFY_EXCEPTION_THROWN(empty(1, 2), boost::bad_function_call);
}

QTEST_GUILESS_MAIN(AnyPredicatesTest)
#include "tst_any_predicates.moc"
