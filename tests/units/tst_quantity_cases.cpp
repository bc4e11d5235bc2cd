#include "tests/helpers/checked_test.h"
#include "tests/helpers/data_file.h"
#include "tests/units/reference/expression_parser.h"
#include "tests/units/reference/stream_formatter.h"
#include "units/inc/units.h"

#include <functional>
#include <map>
#include <stdexcept>
#include <typeinfo>

using namespace zel::units::v1;
using zel::test::numberText;
using zel::test::unescaped;
namespace reference = zel::test::reference;

/// The questions and answers of the data files, put to the library and, where it has an answer, to
/// the definition of the parsers and of the formatting.
class QuantityCasesTest : public zel::test::CheckedTest
{
    Q_OBJECT
private Q_SLOTS:
    void library_data();
    void library();
    void definition_data();
    void definition();

private:
    using Fields = QStringList;
    using Quantity = boost::optional<IConverter::quantity>;

    static QString caught(const std::function<QString()>& answer, const QString& separator);
    static QString quantityText(const Quantity& q);
    static Context overridden(const Fields& question);

    static QString libraryAnswer(const Fields& question);
    static QString unitAnswer(UnitId id);
    static QString formatAnswer(const Context& context, UnitId id);
    QString definitionAnswer(const Fields& question);
    void addRows(bool onlyDefined);

    reference::ExpressionParser m_expressions{reference::ExpressionParser::Compile::PerAttempt};
    reference::LabelMap m_labels = reference::labelsOf(ZelUnitProvider());
};

namespace {

const std::locale& locale = std::locale::classic();

UnitId idOf(const QString& field)
{
    return UnitId(field.toInt());
}

QString text(const std::wstring& wide)
{
    return QString::fromStdWString(wide);
}

QString typeName(const std::exception& e)
{
    if (typeid(e) == typeid(std::invalid_argument)) {
        return QStringLiteral("std::invalid_argument");
    }
    return typeid(e) == typeid(std::logic_error) ? QStringLiteral("std::logic_error")
                                                 : QString::fromLatin1(typeid(e).name());
}

} // namespace

QString QuantityCasesTest::caught(const std::function<QString()>& answer, const QString& separator)
{
    try {
        return answer();
    } catch (const std::exception& e) {
        return QStringList{QStringLiteral("throw"), typeName(e), QString::fromUtf8(e.what())}.join(
            separator);
    }
}

QString QuantityCasesTest::quantityText(const Quantity& q)
{
    return q ? QStringLiteral("q\t%1\t%2").arg(int(q->unit_id)).arg(numberText(q->value))
             : QStringLiteral("none");
}

/// The context of a question "fmtset" or "format".
Context QuantityCasesTest::overridden(const Fields& question)
{
    Context context(question[1].toInt());
    if (question[0] != QStringLiteral("fmtset")) {
        return context;
    }
    const UnitId id = idOf(question[2]);
    UnitsetFormatProvider& format = context.format_provider();
    const auto isGiven = [&question](int field) { return question[field] != QStringLiteral("-"); };
    if (isGiven(3)) {
        format.set_unit(id, idOf(question[3]));
    }
    if (isGiven(4)) {
        format.set_decimals(id, question[4].toInt());
    }
    if (isGiven(5)) {
        format.set_notation(id, question[5].toInt());
    }
    if (isGiven(6)) {
        format.set_label_override(id, text(unescaped(question[6])).toStdString());
    }
    return context;
}

QString QuantityCasesTest::unitAnswer(UnitId id)
{
    const ZelUnitProvider units;
    const std::vector<std::function<QString()>> fields = {
        [&] { return units.has_unit(id) ? QStringLiteral("true") : QStringLiteral("false"); },
        [&] { return QStringLiteral("0x%1").arg(units.get_dimension(id), 0, 16); },
        [&] { return numberText(units.get_factor(id)); },
        [&] { return QString::fromStdString(units.get_label(id)); },
        [&] {
            QStringList aliases;
            for (const std::string& alias : units.get_aliases(id)) {
                aliases.append(QString::fromStdString(alias));
            }
            return aliases.join(QLatin1Char('|'));
        },
        [&] {
            QStringList ids;
            for (const UnitId unit : units.get_set_units(id)) {
                ids.append(QString::number(unit));
            }
            return ids.join(QLatin1Char(' '));
        },
    };
    QStringList answers;
    for (const auto& field : fields) {
        answers.append(caught(field, QStringLiteral(":")));
    }
    return answers.join(QLatin1Char('\t'));
}

QString QuantityCasesTest::formatAnswer(const Context& context, UnitId id)
{
    const UnitsetFormatProvider& format = context.format_provider();
    const std::vector<std::function<QString()>> fields = {
        [&] { return format.has_format(id) ? QStringLiteral("true") : QStringLiteral("false"); },
        [&] { return QString::number(format.get_unit(id)); },
        [&] { return QString::number(format.get_decimals(id)); },
        [&] { return QString::number(format.get_notation(id)); },
    };
    QStringList answers;
    for (const auto& field : fields) {
        answers.append(caught(field, QStringLiteral(":")));
    }
    return answers.join(QLatin1Char('\t'));
}

QString QuantityCasesTest::libraryAnswer(const Fields& question)
{
    const QString& kind = question[0];
    const Context context(0);
    const Converter& converter = context.converter();
    const auto parsed = [&](const IParser& parser) {
        return quantityText(parser.parse(unescaped(question[1]), locale));
    };
    const auto services = [&](auto make) {
        return make(&context.unit_provider(), &context.format_provider(), &converter);
    };
    const std::map<QString, std::function<QString()>> answers = {
        {"parse",
         [&] {
             return quantityText(Context(question[1].toInt())
                                     .parse(unescaped(question[3]), idOf(question[2]), locale));
         }},
        {"rawparse", [&] { return parsed(services([](auto... p) { return Parser(p...); })); }},
        {"feetparse",
         [&] {
             return parsed(services([](auto... p) { return FeetAndFractionalInchesParser(p...); }));
         }},
        {"inchparse",
         [&] { return parsed(services([](auto... p) { return FractionalInchesParser(p...); })); }},
        {"format",
         [&] {
             return text(
                 overridden(question).format({idOf(question[2]), question[3].toDouble()}, locale));
         }},
        {"fmtset",
         [&] {
             return text(
                 overridden(question).format({idOf(question[2]), question[7].toDouble()}, locale));
         }},
        {"convert",
         [&] {
             return quantityText(
                 converter.convert({idOf(question[1]), question[2].toDouble()}, idOf(question[3])));
         }},
        {"canconvert",
         [&] {
             return converter.can_convert(idOf(question[1]), idOf(question[2]))
                        ? QStringLiteral("true")
                        : QStringLiteral("false");
         }},
        {"tobase",
         [&] {
             return numberText(converter.to_base({idOf(question[1]), question[2].toDouble()}));
         }},
        {"frombase",
         [&] {
             return quantityText(converter.from_base(question[1].toDouble(), idOf(question[2])));
         }},
        {"unit", [&] { return unitAnswer(idOf(question[1])); }},
        {"fmt", [&] { return formatAnswer(Context(question[1].toInt()), idOf(question[2])); }},
    };
    return caught(answers.at(kind), QStringLiteral("\t"));
}

QString QuantityCasesTest::definitionAnswer(const Fields& question)
{
    const QString& kind = question[0];
    if (kind == QStringLiteral("parse")) {
        return quantityText(m_expressions.parse(Context(question[1].toInt()), m_labels,
                                                unescaped(question[3]), idOf(question[2]), locale));
    }
    if (kind == QStringLiteral("rawparse")) {
        return quantityText(m_expressions.parse(m_labels, unescaped(question[1]), locale));
    }
    if (kind == QStringLiteral("feetparse")) {
        return quantityText(m_expressions.parseFeet(unescaped(question[1]), locale));
    }
    if (kind == QStringLiteral("inchparse")) {
        return quantityText(m_expressions.parseInches(unescaped(question[1]), locale));
    }
    return text(reference::quantityText(overridden(question),
                                        {idOf(question[2]), question.last().toDouble()}, locale));
}

void QuantityCasesTest::addRows(bool onlyDefined)
{
    QTest::addColumn<QStringList>("question");
    QTest::addColumn<QString>("answer");
    const QStringList questions = zel::test::dataLines(QStringLiteral("quantity_cases.tsv"));
    const QStringList answers = zel::test::dataLines(QStringLiteral("quantity_expected.tsv"));
    QCOMPARE(questions.size(), 581);
    QCOMPARE(answers.size(), 581);
    for (int i = 0; i < questions.size(); ++i) {
        const QStringList question = questions[i].split(QLatin1Char('\t'));
        // The definitions tell of texts, not of exceptions and reports.
        if (onlyDefined && (!(question[0].endsWith(QStringLiteral("parse")) ||
                              question[0] == QStringLiteral("format") ||
                              question[0] == QStringLiteral("fmtset")) ||
                            answers[i].startsWith(QStringLiteral("throw")) ||
                            answers[i].contains(QStringLiteral("\tassert:")))) {
            continue;
        }
        QTest::newRow(qPrintable(QStringLiteral("line %1: %2").arg(i + 1).arg(questions[i])))
            << question << answers[i];
    }
}

void QuantityCasesTest::library_data()
{
    addRows(false);
}

void QuantityCasesTest::library()
{
    QFETCH(QStringList, question);
    QFETCH(QString, answer);
    QString actual = libraryAnswer(question);
    for (const QString& expression : takeExpressions()) {
        actual += QStringLiteral("\tassert:") + expression;
    }
    QCOMPARE(actual, answer);
}

void QuantityCasesTest::definition_data()
{
    addRows(true);
}

void QuantityCasesTest::definition()
{
    QFETCH(QStringList, question);
    QFETCH(QString, answer);
    QCOMPARE(definitionAnswer(question), answer);
}

QTEST_GUILESS_MAIN(QuantityCasesTest)
#include "tst_quantity_cases.moc"
