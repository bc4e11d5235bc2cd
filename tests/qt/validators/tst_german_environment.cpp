// What flag bit 0 does in a process whose environment and application are German. The library keeps
// both locales from their first use on, so this takes a process of its own.

#include "qt/inc/validators.h"
#include "tests/helpers/checked_test.h"
#include "tests/helpers/german_locale.h"
#include "tests/helpers/validation.h"
#include "units/inc/units.h"

#include <QTemporaryDir>

using namespace zel::qt;
using Quantity = zel::units::v1::IConverter::quantity;

namespace {

const std::bitset<32> localeFlag(1);
const std::bitset<32> noFlags;
const zel::units::UnitId geoLength = zel::units::UnitId(1001);

} // namespace

class GermanEnvironmentTest : public zel::test::CheckedTest
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();

    void bothLocalesAreGerman();
    void quantitiesAreReadInTheLocale_data();
    void quantitiesAreReadInTheLocale();
    void quantitiesAreWrittenInTheLocale();
    void copiedCellDoesNotPasteBack();
    void integersAndTextsKnowNoLocale();

private:
    QTemporaryDir m_locales;
};

void GermanEnvironmentTest::initTestCase()
{
    const QString problem = zel::test::makeGermanLocale(m_locales.path());
    QVERIFY2(problem.isEmpty(), qPrintable(problem));
    qputenv("LOCPATH", m_locales.path().toUtf8());
    qputenv("LC_ALL", "de_DE.UTF-8");
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
}

void GermanEnvironmentTest::bothLocalesAreGerman()
{
    QCOMPARE(QString::fromStdString(stdLocaleForFlags(localeFlag).name()), QString("de_DE.UTF-8"));
    QCOMPARE(localeForFlags(localeFlag), QLocale(QLocale::German, QLocale::Germany));
    QVERIFY(stdLocaleForFlags(noFlags) == std::locale::classic());
}

void GermanEnvironmentTest::quantitiesAreReadInTheLocale_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("inLocale");
    QTest::addColumn<double>("inC");
    QTest::newRow("comma") << "2,5 m" << 2.5 << 2.0;
    QTest::newRow("point") << "2.5 m" << 25.0 << 2.5;
    QTest::newRow("centimetres") << "250,5 cm" << 2.505 << 2.5;
}

void GermanEnvironmentTest::quantitiesAreReadInTheLocale()
{
    QFETCH(QString, text);
    UnitValidator validator(zel::units::v1::Context(0), geoLength);
    const auto answer = zel::test::validated(validator, text, localeFlag);
    QVERIFY(answer.accepted);
    QTEST(boost::any_cast<Quantity>(answer.value).value, "inLocale");
    const auto plain = zel::test::finished(validator, text, noFlags);
    QVERIFY(plain.accepted);
    QTEST(boost::any_cast<Quantity>(plain.value).value, "inC");
}

void GermanEnvironmentTest::quantitiesAreWrittenInTheLocale()
{
    UnitValidator validator(zel::units::v1::Context(0), geoLength);
    const boost::any length = Quantity{geoLength, 1234.5};
    QCOMPARE(validator.reformat(length, localeFlag), QString("1.234,500 m"));
    QCOMPARE(validator.reformatForDisplay(length, localeFlag), QString("1.234,500 m"));
    QCOMPARE(validator.reformat(length, noFlags), QString("1234.500 m"));
}

void GermanEnvironmentTest::copiedCellDoesNotPasteBack()
{
    // Copying sets bit 0 and pasting does not: settled, and the reason why nothing else sets it.
    DoubleEditValidator numbers;
    IValidator& validator = numbers;
    const QString copied = validator.reformat(2.5, localeFlag);
    QCOMPARE(copied, QString("2,500"));
    const auto pasted = zel::test::validated(validator, copied, noFlags);
    QVERIFY(!pasted.accepted || boost::any_cast<double>(pasted.value) != 2.5);
}

void GermanEnvironmentTest::integersAndTextsKnowNoLocale()
{
    IntegerValidator<int> integers(0, 100000, true);
    QCOMPARE(integers.reformat(12345, localeFlag), QString("12345"));
    QCOMPARE(zel::test::validated(integers, "1.234", localeFlag).told(), QString("false int 0"));
    StringEditValidator texts(10);
    QCOMPARE(zel::test::validated(texts, "2,5", localeFlag).told(), QString("true wstring '2,5'"));
}

QTEST_GUILESS_MAIN(GermanEnvironmentTest)
#include "tst_german_environment.moc"
