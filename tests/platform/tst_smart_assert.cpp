#include "platform/smart_assert.h"
#include "tests/helpers/checked_test.h"
#include "tests/helpers/scoped_global_locale.h"

#include <cstdio>
#include <stdexcept>
#include <unistd.h>

using namespace zel::smartassert;

class SmartAssertTest : public zel::test::CheckedTest
{
    Q_OBJECT
private Q_SLOTS:
    void reportsExpressionPlaceValuesAndMessage();
    void holdsItsTongueWhenTheConditionHolds();
    void evaluatesValuesOnlyOnFailure();
    void handlerIsReturnedAndRestored();
    void handlerMayThrow();
    void handlerMayReplaceItself();
    void isOneStatementInAnIfWithoutBraces();
    void defaultHandlerWritesOneLine();
};

void SmartAssertTest::reportsExpressionPlaceValuesAndMessage()
{
    // Values are told alike whatever the program's locale.
    const zel::test::ScopedGlobalLocale global(zel::test::CommaNumbers::locale());
    const double low = 2.5;
    const int expectedLine = __LINE__ + 1;
    ZEL_SMART_ASSERT(low < 0.0, "m_min < m_max").value("m_min", low).value("n", 12345).message("m");
    const std::vector<Report> reports = takeReports();
    QCOMPARE(reports.size(), std::size_t(1));
    QCOMPARE(reports[0].expression, std::string("m_min < m_max"));
    QCOMPARE(reports[0].file, std::string("tests/platform/tst_smart_assert.cpp"));
    QCOMPARE(reports[0].line, expectedLine);
    const std::vector<std::pair<std::string, std::wstring>> values = {{"m_min", L"2.5"},
                                                                      {"n", L"12345"}};
    QVERIFY(reports[0].values == values);
    QCOMPARE(reports[0].message, std::string("m"));
}

void SmartAssertTest::holdsItsTongueWhenTheConditionHolds()
{
    ZEL_SMART_ASSERT(true, "true");
    QVERIFY(takeReports().empty());
}

void SmartAssertTest::evaluatesValuesOnlyOnFailure()
{
    int evaluated = 0;
    const auto count = [&evaluated] { return ++evaluated; };
    ZEL_SMART_ASSERT(true, "true").value("v", count());
    QCOMPARE(evaluated, 0);
    ZEL_SMART_ASSERT(false, "false").value("v", count());
    QCOMPARE(evaluated, 1);
    QCOMPARE(takeExpressions(), QStringList{"false"});
}

void SmartAssertTest::handlerIsReturnedAndRestored()
{
    int mine = 0;
    ReportHandler caught = setReportHandler([&mine](const Report&) { ++mine; });
    QVERIFY(caught);
    ZEL_SMART_ASSERT(false, "to mine");
    QVERIFY(setReportHandler(std::move(caught)));
    QCOMPARE(mine, 1);
    ZEL_SMART_ASSERT(false, "to the catcher");
    QCOMPARE(takeExpressions(), QStringList{"to the catcher"});
}

void SmartAssertTest::handlerMayThrow()
{
    ReportHandler caught = setReportHandler([](const Report&) { throw std::runtime_error("x"); });
    QVERIFY_EXCEPTION_THROWN(ZEL_SMART_ASSERT(false, "false"), std::runtime_error);
    setReportHandler(std::move(caught));
}

void SmartAssertTest::handlerMayReplaceItself()
{
    QStringList told;
    const QString name = QStringLiteral("first");
    ReportHandler caught = setReportHandler([&told, name](const Report&) {
        setReportHandler([&told](const Report&) { told.append(QStringLiteral("second")); });
        told.append(name);
    });
    ZEL_SMART_ASSERT(false, "to the first");
    ZEL_SMART_ASSERT(false, "to the second");
    setReportHandler(std::move(caught));
    QCOMPARE(told, (QStringList{QStringLiteral("first"), QStringLiteral("second")}));
}

void SmartAssertTest::isOneStatementInAnIfWithoutBraces()
{
    bool elseRan = false;
    if (elseRan)
        ZEL_SMART_ASSERT(false, "never");
    else
        elseRan = true;
    QVERIFY(elseRan);
}

void SmartAssertTest::defaultHandlerWritesOneLine()
{
    ReportHandler caught = setReportHandler({});
    std::fflush(stderr);
    const int savedError = dup(STDERR_FILENO);
    std::FILE* file = std::tmpfile();
    QVERIFY(file != nullptr);
    dup2(fileno(file), STDERR_FILENO);
    const int line = __LINE__ + 1;
    ZEL_SMART_ASSERT(false, "a < b")
        .value("a", L"\u00e4\u0436\u2103\U0001d6fc\n")
        .message("two\r\nlines");
    std::fflush(stderr);
    dup2(savedError, STDERR_FILENO);
    close(savedError);
    QVERIFY(!setReportHandler(std::move(caught)));
    std::rewind(file);
    char buffer[400] = {};
    const std::size_t size = std::fread(buffer, 1, sizeof buffer - 1, file);
    std::fclose(file);
    QCOMPARE(QString::fromUtf8(buffer, int(size)),
             QStringLiteral("tests/platform/tst_smart_assert.cpp:%1: assertion failed: a < b; "
                            "a = \u00e4\u0436\u2103\U0001d6fc\\n; two\\r\\nlines\n")
                 .arg(line));
}

QTEST_GUILESS_MAIN(SmartAssertTest)
#include "tst_smart_assert.moc"
