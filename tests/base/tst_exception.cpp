#include "base/exception.h"
#include "tests/helpers/checked_test.h"

class ExceptionTest : public zel::test::CheckedTest
{
    Q_OBJECT
private Q_SLOTS:
    void tellsItsText_data();
    void tellsItsText();
    void isCaughtAsStandardException();
    void copyKeepsTheText();
};

void ExceptionTest::tellsItsText_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("empty") << "";
    QTest::newRow("words") << "unknown unit: ells";
    QTest::newRow("UTF-8") << QString::fromUtf8("m\xc2\xb2");
}

void ExceptionTest::tellsItsText()
{
    QFETCH(QString, text);
    const zel::Exception exception(text.toStdString());
    QCOMPARE(QString::fromUtf8(exception.what()), text);
}

void ExceptionTest::isCaughtAsStandardException()
{
    try {
        throw zel::Exception("text");
    } catch (const std::exception& e) {
        QCOMPARE(QString::fromUtf8(e.what()), QStringLiteral("text"));
        return;
    }
    QFAIL("nothing was caught");
}

void ExceptionTest::copyKeepsTheText()
{
    const auto copy = [] {
        const zel::Exception original("short-lived");
        return zel::Exception(original);
    }();
    QCOMPARE(QString::fromUtf8(copy.what()), QStringLiteral("short-lived"));
}

QTEST_GUILESS_MAIN(ExceptionTest)
#include "tst_exception.moc"
