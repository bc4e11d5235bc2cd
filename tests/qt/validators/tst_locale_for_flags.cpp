#include "qt/inc/validators.h"
#include "tests/helpers/checked_test.h"

#include <cstdlib>

using namespace zel::qt;

namespace {

const std::bitset<32> localeFlag(1);
const std::bitset<32> noFlags;

} // namespace

class LocaleForFlagsTest : public zel::test::CheckedTest
{
    Q_OBJECT
private Q_SLOTS:
    void initTestCase();

    void bitZeroChoosesTheQtLocale();
    void laterDefaultDoesNotReachIt();
    void bitZeroChoosesTheStandardLocale();
    void otherBitsHaveNoMeaning();
};

void LocaleForFlagsTest::initTestCase()
{
    // Before the first use of the library: it keeps both locales from then on.
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    setenv("LC_ALL", "zz_ZZ.no-such-locale", 1);
}

void LocaleForFlagsTest::bitZeroChoosesTheQtLocale()
{
    QCOMPARE(localeForFlags(localeFlag), QLocale(QLocale::German, QLocale::Germany));
    QCOMPARE(localeForFlags(noFlags), QLocale(QLocale::C, QLocale::AnyCountry));
    QCOMPARE(localeForFlags(localeFlag).decimalPoint(), QChar(','));
    QCOMPARE(localeForFlags(noFlags).decimalPoint(), QChar('.'));
}

void LocaleForFlagsTest::laterDefaultDoesNotReachIt()
{
    const QLocale* const before = &localeForFlags(localeFlag);
    const QLocale outer;
    QLocale::setDefault(QLocale(QLocale::French, QLocale::France));
    QCOMPARE(localeForFlags(localeFlag), QLocale(QLocale::German, QLocale::Germany));
    QVERIFY(&localeForFlags(localeFlag) == before);
    QLocale::setDefault(outer);
}

void LocaleForFlagsTest::bitZeroChoosesTheStandardLocale()
{
    QVERIFY(stdLocaleForFlags(noFlags) == std::locale::classic());
    // A locale that is not installed: the copy of a table still works.
    QVERIFY(stdLocaleForFlags(localeFlag) == std::locale::classic());
    QVERIFY(&stdLocaleForFlags(localeFlag) != &stdLocaleForFlags(noFlags));
}

void LocaleForFlagsTest::otherBitsHaveNoMeaning()
{
    for (std::size_t bit = 1; bit < 32; ++bit) {
        std::bitset<32> flags;
        flags.set(bit);
        QVERIFY(&localeForFlags(flags) == &localeForFlags(noFlags));
        QVERIFY(&stdLocaleForFlags(flags) == &stdLocaleForFlags(noFlags));
        flags.set(0);
        QVERIFY(&localeForFlags(flags) == &localeForFlags(localeFlag));
        QVERIFY(&stdLocaleForFlags(flags) == &stdLocaleForFlags(localeFlag));
    }
}

QTEST_GUILESS_MAIN(LocaleForFlagsTest)
#include "tst_locale_for_flags.moc"
