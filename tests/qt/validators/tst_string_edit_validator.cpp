#include "qt/inc/validators.h"
#include "tests/helpers/checked_test.h"
#include "tests/helpers/scoped_global_locale.h"
#include "tests/helpers/validation.h"

#include <boost/regex.hpp>

#include <limits>

using namespace zel::qt;
using zel::test::finished;
using zel::test::validated;

namespace {

const std::bitset<32> noFlags;
const wchar_t* const colour = L"#\\d\\d\\d\\d\\d\\d";

QString reformatted(IValidator& validator, const boost::any& value)
{
    return validator.reformat(value, noFlags);
}

/// One character outside the basic plane: one wide character, two units of a QString.
const QString beyond = QString::fromUcs4(U"\U0001D400", 1);

/// The capitals of Turkish, whatever locales the machine has: that of "i" has a dot, and there is
/// none among the single bytes.
template <class Char>
class TurkishCapitals : public std::ctype<Char>
{
public:
    explicit TurkishCapitals(Char dotted)
        : m_dotted(dotted)
    {}

protected:
    Char do_toupper(Char c) const override
    {
        return c == Char('i') ? m_dotted : std::ctype<Char>::do_toupper(c);
    }
    const Char* do_toupper(Char* first, const Char* last) const override
    {
        for (; first != last; ++first) {
            *first = do_toupper(*first);
        }
        return last;
    }

private:
    Char m_dotted;
};

} // namespace

class StringEditValidatorTest : public zel::test::CheckedTest
{
    Q_OBJECT
private Q_SLOTS:
    void limitsTheLength_data();
    void limitsTheLength();
    void lengthOfZeroIsReported();
    void hugeLengthsRefuse_data();
    void hugeLengthsRefuse();
    void lengthCountsTheUnitsOfTheText();
    void mapsToUpperCase();
    void capitalsAreThoseOfTheGlobalLocale();
    void testsTheExpression_data();
    void testsTheExpression();
    void expressionMatchesTheWholeText_data();
    void expressionMatchesTheWholeText();
    void expressionSeesTheMappedText();
    void emptyExpressionMatchesAll();
    void malformedExpressionThrows();
    void storesWhatItIsToldTo();
    void utf8EndsAtTheFirstZero();
    void unknownStorageTypeLeavesTheValue();
    void formatsEitherString_data();
    void formatsEitherString();
    void upperCaseOfUtf8TouchesAsciiOnly();
    void formatsWideTextsWhole();
    void reformatDoesNotCut();
    void otherTypesAreReported_data();
    void otherTypesAreReported();
    void finishesAsItValidates();
};

void StringEditValidatorTest::limitsTheLength_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("answer");
    QTest::newRow("empty") << ""
                           << "true wstring ''";
    QTest::newRow("shorter") << "ab"
                             << "true wstring 'ab'";
    QTest::newRow("exact") << "abc"
                           << "true wstring 'abc'";
    QTest::newRow("longer") << "abcd"
                            << "false wstring 'abc'";
    QTest::newRow("blanks stay") << " a "
                                 << "true wstring ' a '";
}

void StringEditValidatorTest::limitsTheLength()
{
    QFETCH(QString, text);
    StringEditValidator validator(3);
    QTEST(validated(validator, text).told(), "answer");
    QTEST(validated(validator, text, std::bitset<32>(1)).told(), "answer");
}

void StringEditValidatorTest::lengthOfZeroIsReported()
{
    StringEditValidator validator(0);
    const auto reports = takeReports();
    QCOMPARE(reports.size(), std::size_t(1));
    QCOMPARE(reports[0].expression, std::string("m_maxLen > 0"));
    QCOMPARE(reports[0].file, std::string("qt/src/validators/string_edit_validator.cpp"));
    const std::vector<std::pair<std::string, std::wstring>> values = {{"m_maxLen", L"0"}};
    QVERIFY(reports[0].values == values);
    QCOMPARE(validated(validator, "").told(), QString("true wstring ''"));
    QCOMPARE(validated(validator, "a").told(), QString("false wstring ''"));
}

void StringEditValidatorTest::hugeLengthsRefuse_data()
{
    QTest::addColumn<qulonglong>("length");
    QTest::addColumn<bool>("accepted");
    QTest::newRow("largest of 32 bits") << 0x7fffffffULL << true;
    QTest::newRow("sign bit of 32 bits") << 0x80000000ULL << false;
    QTest::newRow("minus one") << std::numeric_limits<qulonglong>::max() << false;
    QTest::newRow("two to the 32nd and five") << 0x100000005ULL << true;
}

void StringEditValidatorTest::hugeLengthsRefuse()
{
    QFETCH(qulonglong, length);
    QFETCH(bool, accepted);
    StringEditValidator validator{std::size_t(length)};
    QCOMPARE(validated(validator, "beam").told(),
             QString(accepted ? "true" : "false") + " wstring 'beam'");
}

void StringEditValidatorTest::lengthCountsTheUnitsOfTheText()
{
    StringEditValidator one(1);
    QCOMPARE(validated(one, beyond).told(), "false wstring '" + beyond + "'");
    StringEditValidator two(2);
    QCOMPARE(validated(two, beyond).told(), "true wstring '" + beyond + "'");
    QCOMPARE(boost::any_cast<std::wstring>(validated(two, beyond).value).size(), std::size_t(1));
}

void StringEditValidatorTest::mapsToUpperCase()
{
    StringEditValidator validator(5);
    validator.setUpperCase(true);
    QCOMPARE(validated(validator, "abc").told(), QString("true wstring 'ABC'"));
    QCOMPARE(validated(validator, "abcdefg").told(), QString("false wstring 'ABCDE'"));
    QCOMPARE(reformatted(validator, std::wstring(L"abc")), QString("ABC"));
    validator.setUpperCase(false);
    QCOMPARE(validated(validator, "abc").told(), QString("true wstring 'abc'"));
    QCOMPARE(reformatted(validator, std::wstring(L"abc")), QString("abc"));
}

void StringEditValidatorTest::capitalsAreThoseOfTheGlobalLocale()
{
    StringEditValidator validator(5);
    validator.setUpperCase(true);
    const std::locale turkishBytes(std::locale::classic(), new TurkishCapitals<char>('i'));
    const zel::test::ScopedGlobalLocale scoped(
        std::locale(turkishBytes, new TurkishCapitals<wchar_t>(L'\u0130')));
    const std::wstring capitals = L"T\u0130P";
    const boost::any value = validated(validator, "tip").value;
    QVERIFY(boost::any_cast<std::wstring>(value) == capitals);
    QCOMPARE(reformatted(validator, std::wstring(L"tip")), QString::fromStdWString(capitals));
    QCOMPARE(reformatted(validator, std::string("tip")), QString("TiP"));
}

void StringEditValidatorTest::testsTheExpression_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("answer");
    QTest::newRow("six digits") << "#123456"
                                << "true wstring '#123456'";
    QTest::newRow("five digits") << "#12345"
                                 << "false untouched";
    QTest::newRow("seven digits") << "#1234567"
                                  << "false wstring '#123456'";
    QTest::newRow("hexadecimal") << "#12345a"
                                 << "false untouched";
    QTest::newRow("text in front") << " #12345"
                                   << "false untouched";
    QTest::newRow("empty") << ""
                           << "false untouched";
}

void StringEditValidatorTest::testsTheExpression()
{
    QFETCH(QString, text);
    StringEditValidator validator(7);
    validator.setAllowedRegex(colour);
    QTEST(validated(validator, text).told(), "answer");
}

void StringEditValidatorTest::expressionMatchesTheWholeText_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("answer");
    QTest::newRow("all of it") << "12"
                               << "true wstring '12'";
    QTest::newRow("more behind") << "12a"
                                 << "false untouched";
    QTest::newRow("more in front") << "a12"
                                   << "false untouched";
    QTest::newRow("the longer alternative") << "ab"
                                            << "true wstring 'ab'";
    QTest::newRow("only the shorter alternative fits") << "ac"
                                                       << "false untouched";
}

void StringEditValidatorTest::expressionMatchesTheWholeText()
{
    QFETCH(QString, text);
    StringEditValidator validator(7);
    validator.setAllowedRegex(L"\\d+|a|ab");
    QTEST(validated(validator, text).told(), "answer");
}

void StringEditValidatorTest::expressionSeesTheMappedText()
{
    StringEditValidator validator(3);
    validator.setUpperCase(true);
    validator.setAllowedRegex(L"[A-Z]+");
    QCOMPARE(validated(validator, "abc").told(), QString("true wstring 'ABC'"));
    validator.setAllowedRegex(L"[a-z]+");
    QCOMPARE(validated(validator, "abc").told(), QString("false untouched"));
}

void StringEditValidatorTest::emptyExpressionMatchesAll()
{
    StringEditValidator validator(7);
    validator.setAllowedRegex(colour);
    validator.setAllowedRegex(L"");
    QCOMPARE(validated(validator, "beam").told(), QString("true wstring 'beam'"));
}

void StringEditValidatorTest::malformedExpressionThrows()
{
    StringEditValidator validator(7);
    validator.setAllowedRegex(L"(");
    QVERIFY_EXCEPTION_THROWN(validated(validator, "a"), boost::regex_error);
}

void StringEditValidatorTest::storesWhatItIsToldTo()
{
    StringEditValidator validator(5);
    const QString text = QString::fromUtf8("\u00e4");
    QCOMPARE(boost::any_cast<std::wstring>(validated(validator, text).value),
             std::wstring(L"\u00e4"));
    validator.setStorageType(StringEditValidator::Utf8);
    QCOMPARE(boost::any_cast<std::string>(validated(validator, text).value),
             std::string("\xc3\xa4"));
    QCOMPARE(boost::any_cast<std::string>(validated(validator, beyond).value),
             beyond.toStdString());
    validator.setStorageType(StringEditValidator::Wide);
    QCOMPARE(validated(validator, text).told(), "true wstring '" + text + "'");
    QCOMPARE(int(StringEditValidator::Utf8), 0);
    QCOMPARE(int(StringEditValidator::Wide), 1);
}

void StringEditValidatorTest::utf8EndsAtTheFirstZero()
{
    StringEditValidator validator(5);
    const QString text = QString("ab") + QChar(0) + QString("c");
    QCOMPARE(boost::any_cast<std::wstring>(validated(validator, text).value),
             std::wstring(L"ab\0c", 4));
    validator.setStorageType(StringEditValidator::Utf8);
    QCOMPARE(boost::any_cast<std::string>(validated(validator, text).value), std::string("ab"));
}

void StringEditValidatorTest::unknownStorageTypeLeavesTheValue()
{
    StringEditValidator validator(3);
    validator.setStorageType(StringEditValidator::StorageType(2));
    QCOMPARE(validated(validator, "abc").told(), QString("true untouched"));
    QCOMPARE(validated(validator, "abcd").told(), QString("false untouched"));
}

void StringEditValidatorTest::formatsEitherString_data()
{
    QTest::addColumn<int>("storageType");
    QTest::newRow("Utf8") << 0;
    QTest::newRow("Wide") << 1;
    QTest::newRow("unknown") << 7;
}

void StringEditValidatorTest::formatsEitherString()
{
    QFETCH(int, storageType);
    StringEditValidator validator(30);
    validator.setStorageType(StringEditValidator::StorageType(storageType));
    const QString text = QString::fromUtf8("Tr\u00e4ger");
    QCOMPARE(reformatted(validator, text.toStdString()), text);
    QCOMPARE(reformatted(validator, text.toStdWString()), text);
    QCOMPARE(reformatted(validator, std::string()), QString());
    QCOMPARE(reformatted(validator, std::wstring()), QString());
}

void StringEditValidatorTest::upperCaseOfUtf8TouchesAsciiOnly()
{
    StringEditValidator validator(30);
    validator.setUpperCase(true);
    QCOMPARE(reformatted(validator, std::string("\xc3\xa4"
                                                "b")),
             QString::fromUtf8("\u00e4B"));
}

void StringEditValidatorTest::formatsWideTextsWhole()
{
    StringEditValidator validator(30);
    QCOMPARE(reformatted(validator, (beyond + "a").toStdWString()), beyond + "a");
    const QString withZero = QString("ab") + QChar(0) + QString("c");
    QCOMPARE(reformatted(validator, withZero.toStdWString()), withZero);
    QCOMPARE(reformatted(validator, withZero.toStdString()), withZero);
}

void StringEditValidatorTest::reformatDoesNotCut()
{
    StringEditValidator validator(2);
    validator.setAllowedRegex(L"\\d");
    QCOMPARE(reformatted(validator, std::wstring(L"abcdef")), QString("abcdef"));
}

void StringEditValidatorTest::otherTypesAreReported_data()
{
    QTest::addColumn<int>("which");
    QTest::newRow("int") << 0;
    QTest::newRow("QString") << 1;
    QTest::newRow("empty") << 2;
}

void StringEditValidatorTest::otherTypesAreReported()
{
    QFETCH(int, which);
    const boost::any values[] = {boost::any(5), boost::any(QString("a")), boost::any()};
    const boost::any& value = values[which];
    StringEditValidator validator(3);
    QCOMPARE(reformatted(validator, value), QString());
    const auto reports = takeReports();
    QCOMPARE(reports.size(), std::size_t(1));
    QCOMPARE(reports[0].expression, std::string("value.type() == typeid(std::wstring) || "
                                                "value.type() == typeid(std::string)"));
    QCOMPARE(reports[0].file, std::string("qt/src/validators/string_edit_validator.cpp"));
    QCOMPARE(reports[0].values.size(), std::size_t(1));
    QCOMPARE(reports[0].values[0].first, std::string("value.type().name()"));
    QCOMPARE(QString::fromStdWString(reports[0].values[0].second),
             QString::fromLatin1(value.type().name()));
}

void StringEditValidatorTest::finishesAsItValidates()
{
    StringEditValidator validator(3);
    QCOMPARE(finished(validator, "abc").told(), QString("true wstring 'abc'"));
    QCOMPARE(finished(validator, "abcd").told(), QString("false wstring 'abc'"));
    validator.setPostfix("x");
    QCOMPARE(validator.reformatForDisplay(std::string("a"), noFlags), QString("a x"));
}

QTEST_GUILESS_MAIN(StringEditValidatorTest)
#include "tst_string_edit_validator.moc"
