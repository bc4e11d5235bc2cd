#include "tests/helpers/checked_test.h"
#include "tests/helpers/data_file.h"
#include "tests/helpers/scoped_global_locale.h"
#include "units/inc/units.h"

#include <limits>
#include <map>
#include <stdexcept>

using namespace zel::units::v1;
using zel::test::CommaNumbers;
using zel::test::numberText;

static_assert(std::is_base_of_v<IParser, Parser>);

namespace {

/// Units of a host's own, which may change between two calls.
class HostUnits : public IUnitProvider
{
public:
    struct Unit
    {
        std::string label;
        std::vector<std::string> aliases;
    };

    bool has_unit(UnitId id) const override
    {
        return units.count(id) != 0;
    }
    std::vector<UnitId> get_unit_ids() const override
    {
        return ids;
    }
    std::uint32_t get_dimension(UnitId) const override
    {
        return 1;
    }
    double get_factor(UnitId) const override
    {
        return 1.0;
    }
    const std::string& get_label(UnitId id) const override
    {
        if (units.count(id) == 0) {
            throw std::invalid_argument("unit_id");
        }
        return units.at(id).label;
    }
    const std::vector<std::string>& get_aliases(UnitId id) const override
    {
        return units.at(id).aliases;
    }
    const std::vector<UnitId>& get_set_units(UnitId) const override
    {
        static const std::vector<UnitId> none;
        return none;
    }

    std::vector<UnitId> ids;
    std::map<int, Unit> units;
};

QString quantityText(const boost::optional<IConverter::quantity>& q)
{
    return q ? QStringLiteral("%1 of %2").arg(numberText(q->value)).arg(int(q->unit_id))
             : QStringLiteral("none");
}

} // namespace

/// What the data files do not ask: other locales, other providers, other overrides.
class ParserTest : public zel::test::CheckedTest
{
    Q_OBJECT
private Q_SLOTS:
    void followsTheLocale_data();
    void followsTheLocale();
    void everyLabelMeansTheFirstUnitThatHasIt();
    void labelsOfAHostAreNeverStale();
    void labelsOfAHostKeepTheirOrder();
    void labelsOfAHostAreUtf8_data();
    void labelsOfAHostAreUtf8();
    void derivedProvidersAreAsked();
    void exceptionsOfAProviderPass();
    void formats_data();
    void formats();
    void formatsInAnotherLocale();
    void formatsNumbersOfAllSizes_data();
    void formatsNumbersOfAllSizes();
    void formatOfAnIncompatibleUnitThrows();

private:
    Context m_context{0};
    const std::locale& m_locale = std::locale::classic();
    const Parser m_parser{&m_context.unit_provider(), &m_context.format_provider(),
                          &m_context.converter()};
};

void ParserTest::followsTheLocale_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("classic");
    QTest::addColumn<QString>("comma");
    const auto row = [](const char* text, const char* classic, const char* comma) {
        QTest::newRow(text) << text << classic << comma;
    };
    row("2,5", "2 of 1", "2.5 of 1");
    row("2,5 m", "2 of 13", "2.5 of 13");
    row("1,5e3 m", "1 of 13", "1500 of 13");
    row("1.234,5 m", "1.234 of 13", "1234.5 of 13");
    row(",5 m", "0 of 13", "0.5 of 13");
    row("1 3/4 in", "1.75 of 214", "1.75 of 214");
}

void ParserTest::followsTheLocale()
{
    QFETCH(QString, text);
    QFETCH(QString, classic);
    QFETCH(QString, comma);
    QCOMPARE(quantityText(m_parser.parse(text.toStdWString(), m_locale)), classic);
    QCOMPARE(quantityText(m_parser.parse(text.toStdWString(), CommaNumbers::locale())), comma);
}

void ParserTest::everyLabelMeansTheFirstUnitThatHasIt()
{
    const ZelUnitProvider units;
    std::map<QString, UnitId> first;
    int typed = 0;
    for (const UnitId id : units.get_unit_ids()) {
        if (id >= 1000) {
            continue;
        }
        const QString label = QString::fromStdString(units.get_label(id));
        first.emplace(label, id);
        const auto q = m_parser.parse((QStringLiteral("3 ") + label).toStdWString(), m_locale);
        if (label.trimmed().isEmpty() || label.contains(QLatin1Char('#')) ||
            label.contains(QLatin1Char('.'))) {
            continue; // cannot be typed as they stand
        }
        const UnitId meant = label == QStringLiteral("-") ? UnitId(1) : first.at(label);
        QCOMPARE(quantityText(q), QStringLiteral("3 of %1").arg(int(meant)));
        ++typed;
    }
    QVERIFY(typed > 390);
}

void ParserTest::labelsOfAHostAreNeverStale()
{
    HostUnits units;
    units.ids = {UnitId(7)};
    units.units[7] = {"ell", {"elle"}};
    const Parser parser(&units, &m_context.format_provider(), &m_context.converter());
    QCOMPARE(quantityText(parser.parse(L"2 ell", m_locale)), QStringLiteral("2 of 7"));
    QCOMPARE(quantityText(parser.parse(L"2 elle", m_locale)), QStringLiteral("2 of 7"));
    QCOMPARE(quantityText(parser.parse(L"2 m", m_locale)), QStringLiteral("none"));
    const auto written = [&] { return parser.format({UnitId(7), 2.0}, m_locale).substr(6); };
    QCOMPARE(written(), std::wstring(L"ell"));
    units.units[7] = {"span", {}};
    QCOMPARE(written(), std::wstring(L"span"));
    QCOMPARE(quantityText(parser.parse(L"2 ell", m_locale)), QStringLiteral("none"));
    QCOMPARE(quantityText(parser.parse(L"2 span", m_locale)), QStringLiteral("2 of 7"));
    units.ids.clear();
    QCOMPARE(quantityText(parser.parse(L"2 span", m_locale)), QStringLiteral("none"));
    QCOMPARE(quantityText(parser.parse(L"2", m_locale)), QStringLiteral("2 of 1"));
}

void ParserTest::labelsOfAHostKeepTheirOrder()
{
    HostUnits units;
    units.ids = {UnitId(9), UnitId(8), UnitId(3), UnitId(4)};
    units.units[9] = {"a", {"x"}};
    units.units[8] = {"o/oo", {"%", "x"}};
    units.units[3] = {"x", {"y"}};
    units.units[4] = {"", {"z"}}; // without a label there are no aliases either
    const Parser parser(&units, &m_context.format_provider(), &m_context.converter());
    const auto meant = [&](const wchar_t* text) {
        return quantityText(parser.parse(text, m_locale));
    };
    QCOMPARE(meant(L"1 x"), QStringLiteral("1 of 9"));
    QCOMPARE(meant(L"1 o/oo"), QStringLiteral("1 of 9"));
    QCOMPARE(meant(L"1 O/OO"), QStringLiteral("1 of 9"));
    QCOMPARE(meant(L"1 %"), QStringLiteral("1 of 8"));
    QCOMPARE(meant(L"1 O/O"), QStringLiteral("1 of 8"));
    QCOMPARE(meant(L"1 o/o"), QStringLiteral("1 of 8"));
    QCOMPARE(meant(L"1 y"), QStringLiteral("1 of 3"));
    QCOMPARE(meant(L"1 z"), QStringLiteral("none"));
}

void ParserTest::labelsOfAHostAreUtf8_data()
{
    QTest::addColumn<QByteArray>("label");
    QTest::addColumn<QString>("typed");
    const auto row = [](const char* tag, const char* label, const QString& typed) {
        QTest::newRow(tag) << QByteArray(label) << typed;
    };
    const QString one(QChar::ReplacementCharacter);
    row("two bytes", "\xce\xa9", QString(QChar(0x3a9)));
    row("three bytes", "\xe2\x84\x83", QString(QChar(0x2103)));
    row("four bytes", "k\xf0\x9d\x9b\xbcm", QString::fromUcs4(U"k\U0001d6fcm", 3));
    // What is no UTF-8 becomes one replacement character for each byte that starts nothing valid.
    row("Latin-1", "\xb0m", one + "m");
    row("cut off", "m\xe2\x84", "m" + one + one);
    row("cut off before a letter", "\xc3m", one + "m");
    row("too long for its number", "\xc1\xad", one + one);
    row("three bytes for two", "\xe0\x82\xb0", one + one + one);
    row("half of a pair", "\xed\xa0\xb5", one + one + one);
    row("beyond the last character", "\xf4\x90\x80\x80", one + one + one + one);
    row("no first byte", "\xf8m\xff", one + "m" + one);
}

void ParserTest::labelsOfAHostAreUtf8()
{
    QFETCH(QByteArray, label);
    QFETCH(QString, typed);
    HostUnits units;
    units.ids = {UnitId(7)};
    units.units[7] = {label.toStdString(), {}};
    const Parser parser(&units, &m_context.format_provider(), &m_context.converter());
    QCOMPARE(quantityText(parser.parse((QStringLiteral("2 ") + typed).toStdWString(), m_locale)),
             QStringLiteral("2 of 7"));
    QCOMPARE(QString::fromStdWString(parser.format({UnitId(7), 2.0}, m_locale)),
             QStringLiteral("2.000 ") + typed);
}

/// The library's units with one label that it does not have.
class ExtendedUnits : public ZelUnitProvider
{
public:
    const std::string& get_label(UnitId id) const override
    {
        static const std::string metre = "metre";
        return id == 13 ? metre : ZelUnitProvider::get_label(id);
    }
};

void ParserTest::derivedProvidersAreAsked()
{
    const ExtendedUnits units;
    const Parser parser(&units, &m_context.format_provider(), &m_context.converter());
    QCOMPARE(quantityText(parser.parse(L"2 metre", m_locale)), QStringLiteral("2 of 13"));
    QCOMPARE(quantityText(parser.parse(L"2 m", m_locale)), QStringLiteral("none"));
    QCOMPARE(quantityText(parser.parse(L"2 cm", m_locale)), QStringLiteral("2 of 15"));
}

void ParserTest::exceptionsOfAProviderPass()
{
    HostUnits units;
    units.ids = {UnitId(7)};
    const Parser parser(&units, &m_context.format_provider(), &m_context.converter());
    QVERIFY_EXCEPTION_THROWN(parser.parse(L"2", m_locale), std::invalid_argument);
}

void ParserTest::formats_data()
{
    QTest::addColumn<int>("unit");
    QTest::addColumn<int>("decimals");
    QTest::addColumn<int>("notation");
    QTest::addColumn<QString>("label");
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("text");
    const QString own = QStringLiteral("own");
    const auto row = [](const char* text, int unit, int decimals, int notation,
                        const QString& label, double value) {
        QTest::newRow(qPrintable(QStringLiteral("%1 in %2.%3.%4 %5")
                                     .arg(value)
                                     .arg(unit)
                                     .arg(decimals)
                                     .arg(notation)
                                     .arg(label)))
            << unit << decimals << notation << label << value << QString::fromUtf8(text);
    };
    row("2.500 m", 13, 3, Notation::Fixed, own, 2.5);
    row("2 m", 13, 0, Notation::Fixed, own, 2.5); // half to even
    row("4 m", 13, 0, Notation::Fixed, own, 3.5);
    row("2.500 m", 13, -1, Notation::Fixed, own, 2.5);
    row("-0.000 m", 13, 3, Notation::Fixed, own, -0.0001);
    row("2500 mm", 16, 0, Notation::Fixed, own, 2.5);
    row("2.500", 13, 3, Notation::Fixed, "", 2.5);
    row("2.500 m", 13, 3, Notation::Fixed, "metres", 2.5);
    row("1.00 '", 213, 2, Notation::Fixed, "'", 0.3048);
    row("1.00 ft", 213, 2, Notation::Fixed, "''", 0.3048);
    row("12.00 ''", 214, 2, Notation::Fixed, "''", 0.3048);
    row("2.500e0 m", 13, 3, Notation::Scientific, own, 2.5);
    row("1.235e3 m", 13, 3, Notation::Scientific, own, 1234.5678);
    row("0.123e-2 m", 13, 3, Notation::Scientific, own, 0.00123);
    row("0.123e-2", 13, 3, Notation::Scientific, "", 0.00123);
    row("-1.000e1 m", 13, 3, Notation::Scientific, own, -10.0);
    row("0.000e0 m", 13, 3, Notation::Scientific, own, 0.0);
    row("0.000e0 m", 13, 3, Notation::Scientific, own, -0.0);
    row("1.000e0 m", 13, -5, Notation::Scientific, own, 1.0);
    row("2 1/2 m", 13, 8, Notation::Fraction, own, 2.5);
    row("2 1/3 m", 13, -8, Notation::Fraction, own, 2.4);
    row("0 m", 13, 8, Notation::Fraction, own, 0.0);
    row("2 1/2", 13, 8, Notation::Fraction, "", 2.5);
    row("", 13, 3, 3, own, 2.5);
    row("", 13, 3, -1, own, 2.5);
}

void ParserTest::formats()
{
    QFETCH(int, unit);
    QFETCH(int, decimals);
    QFETCH(int, notation);
    QFETCH(QString, label);
    QFETCH(double, value);
    QFETCH(QString, text);
    Context context(0);
    const UnitId length = UnitId(1001);
    context.format_provider().set_unit(length, UnitId(unit));
    context.format_provider().set_decimals(length, decimals);
    context.format_provider().set_notation(length, notation);
    if (label != QStringLiteral("own")) {
        context.format_provider().set_label_override(length, label.toStdString());
    }
    const Parser parser(&context.unit_provider(), &context.format_provider(), &context.converter());
    QCOMPARE(QString::fromStdWString(parser.format({length, value}, m_locale)), text);
}

void ParserTest::formatsInAnotherLocale()
{
    const auto format = [this](int id, double value) {
        return m_parser.format({UnitId(id), value}, CommaNumbers::locale());
    };
    QCOMPARE(format(1001, 1234567.5), std::wstring(L"1.234.567,500 m"));
    QCOMPARE(format(1015, 1234.5), std::wstring(L"1,234e3 m5"));
    QCOMPARE(format(5, 2.5), std::wstring(L"2,50 \u00b0"));
}

void ParserTest::formatsNumbersOfAllSizes_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("fixed");
    QTest::addColumn<QString>("scientific");
    const double infinity = std::numeric_limits<double>::infinity();
    const double nan = std::numeric_limits<double>::quiet_NaN();
    QTest::newRow("infinity") << infinity << "inf m"
                              << "infe0 m5";
    QTest::newRow("negative infinity") << -infinity << "-inf m"
                                       << "-infe0 m5";
    QTest::newRow("not a number") << nan << "nan m"
                                  << "nane0 m5";
    QTest::newRow("1e22") << 1e22 << "10000000000000000000000.000 m"
                          << "1.000e22 m5";
    QTest::newRow("1e30") << 1e30 << "1000000000000000019884624838656.000 m"
                          << "1.000e30 m5";
    QTest::newRow("smallest") << 4.9e-324 << "0.000 m"
                              << "0.500e-323 m5";
    QTest::newRow("1e-5") << 1e-5 << "0.000 m"
                          << "1.000e-5 m5";
    QTest::newRow("half") << 0.0005 << "0.001 m"
                          << "0.500e-3 m5";
}

void ParserTest::formatsNumbersOfAllSizes()
{
    QFETCH(double, value);
    QFETCH(QString, fixed);
    QFETCH(QString, scientific);
    QCOMPARE(QString::fromStdWString(m_parser.format({UnitId(1001), value}, m_locale)), fixed);
    QCOMPARE(QString::fromStdWString(m_parser.format({UnitId(1015), value}, m_locale)), scientific);
}

void ParserTest::formatOfAnIncompatibleUnitThrows()
{
    Context context(7);
    const Parser parser(&context.unit_provider(), &context.format_provider(), &context.converter());
    QVERIFY_EXCEPTION_THROWN(parser.format({UnitId(1100), 1.0}, m_locale), std::invalid_argument);
    QCOMPARE(takeExpressions(), QStringList{QStringLiteral("can_convert(q.unit_id, unit_id)")});
    QVERIFY_EXCEPTION_THROWN(parser.format({UnitId(7777), 1.0}, m_locale), std::invalid_argument);
}

QTEST_GUILESS_MAIN(ParserTest)
#include "tst_parser.moc"
