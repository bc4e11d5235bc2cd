#include "units/inc/parser.h"

#include "units/inc/number_text.h"
#include "units/src/formatting/characters.h"
#include "units/src/formatting/label_table.h"
#include "units/src/formatting/number_reader.h"
#include "units/src/formatting/number_writer.h"
#include "units/src/formatting/quantity_scanner.h"
#include "units/src/formatting/shown_label.h"
#include "units/src/formatting/utf8.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <typeinfo>

namespace zel::units::v1 {
namespace {

using quantity = IConverter::quantity;

boost::optional<quantity> parseWithLabels(std::wstring_view text, const detail::LabelTable& labels,
                                          const std::locale& locale)
{
    // Blanks may stand behind a number, but not behind a unit.
    const std::wstring_view trimmed = detail::trimBlanks(text);
    const bool mayHaveUnit = trimmed.end() == text.end();
    for (const detail::NumberForms& kind : detail::numberForms) {
        std::array<boost::optional<detail::ScannedNumber>, 3> numbers;
        for (std::size_t i = 0; i < numbers.size() && kind.forms[i] != nullptr; ++i) {
            numbers[i] = kind.forms[i](trimmed);
            const auto parts =
                numbers[i] && mayHaveUnit
                    ? detail::splitNumberAndUnit(trimmed, *numbers[i], kind.exponential)
                    : boost::none;
            const boost::optional<UnitId> unit = parts ? labels.find(parts->unit) : boost::none;
            const boost::optional<double> value =
                unit ? detail::readNumberOrFraction(parts->number, locale) : boost::none;
            if (value) {
                return quantity{*unit, *value};
            }
        }
        for (const auto& number : numbers) {
            if (!number || number->end != trimmed.size()) {
                continue;
            }
            const std::wstring_view read = trimmed.substr(0, number->readEnd);
            if (const boost::optional<double> value = detail::readNumberOrFraction(read, locale)) {
                return quantity{UnitId(1), *value};
            }
        }
    }
    return boost::none;
}

/// A mantissa and a power of ten. The exponent is cut toward zero, not rounded down, so a value
/// below 1 has a mantissa below 1.
void appendScientific(std::wstring& out, double value, int decimals, const std::locale& locale)
{
    int exponent = 0;
    double mantissa = value;
    if (value == 0.0) {
        mantissa = 0.0;
    } else if (std::isfinite(value)) {
        exponent = static_cast<int>(std::log10(std::fabs(value)));
        mantissa = value / std::pow(10.0, exponent);
    }
    detail::appendFixed(out, mantissa, decimals, locale);
    out += L'e';
    detail::appendInteger(out, exponent, locale);
}

} // namespace

IParser::~IParser() = default;

Parser::Parser(const IUnitProvider* units, const IFormatProvider* format,
               const IConverter* converter)
    : m_units(units)
    , m_format(format)
    , m_converter(converter)
{}

boost::optional<quantity> Parser::parse(const std::wstring& text, const std::locale& locale) const
{
    // The labels of another provider may differ from call to call.
    if (typeid(*m_units) == typeid(ZelUnitProvider)) {
        return parseWithLabels(text, detail::LabelTable::ofZelUnits(), locale);
    }
    return parseWithLabels(text, detail::LabelTable(*m_units), locale);
}

std::wstring Parser::format(const quantity& q, const std::locale& locale) const
{
    const UnitId shown = m_format->get_unit(q.unit_id);
    const double value = m_converter->convert(q, shown).value;
    const std::wstring label =
        detail::fromUtf8(detail::shownLabel(*m_units, *m_format, q.unit_id, shown));
    int decimals = m_format->get_decimals(q.unit_id);
    if (decimals < 0) {
        decimals = 3;
    }
    std::wstring text;
    switch (m_format->get_notation(q.unit_id)) {
    case Notation::Fixed:
        detail::appendFixed(text, value, decimals, locale);
        break;
    case Notation::Scientific:
        appendScientific(text, value, decimals, locale);
        break;
    case Notation::Fraction:
        return formatFraction(value, decimals, label, locale);
    default:
        return text;
    }
    detail::appendLabel(text, label);
    return text;
}

} // namespace zel::units::v1
