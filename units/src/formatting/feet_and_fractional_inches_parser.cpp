#include "units/inc/feet_and_fractional_inches_parser.h"

#include "platform/smart_assert.h"
#include "units/inc/number_text.h"
#include "units/src/formatting/characters.h"
#include "units/src/formatting/number_reader.h"
#include "units/src/formatting/number_writer.h"

#include <algorithm>
#include <cmath>
#include <string_view>

namespace zel::units::v1 {
namespace {

using quantity = IConverter::quantity;

constexpr double foot = 0.3048;
constexpr double inch = 0.0254;

struct FeetAndInches
{
    std::wstring_view feet;
    std::wstring_view inches;
};

/// Splits "FEET mark INCHES endMark", which has no blanks around it. The feet end at the last mark
/// that leaves room for the end mark; neither part goes over a line end.
boost::optional<FeetAndInches> split(std::wstring_view text, std::wstring_view mark,
                                     std::wstring_view endMark)
{
    if (text.size() < mark.size() + endMark.size() ||
        text.substr(text.size() - endMark.size()) != endMark) {
        return boost::none;
    }
    const std::wstring_view parts = text.substr(0, text.size() - endMark.size());
    const std::size_t at = parts.rfind(mark);
    if (at == std::wstring_view::npos ||
        std::any_of(parts.begin(), parts.end(), detail::isLineTerminator)) {
        return boost::none;
    }
    return FeetAndInches{detail::trimBlanks(parts.substr(0, at)),
                         detail::trimBlanks(parts.substr(at + mark.size()))};
}

} // namespace

FeetAndFractionalInchesParser::FeetAndFractionalInchesParser(const IUnitProvider* units,
                                                             const IFormatProvider* format,
                                                             const IConverter* converter)
    : m_units(units)
    , m_format(format)
    , m_converter(converter)
{}

boost::optional<quantity> FeetAndFractionalInchesParser::parse(const std::wstring& text,
                                                               const std::locale& locale) const
{
    const std::wstring_view trimmed = detail::trimBlanks(text);
    boost::optional<FeetAndInches> parts = split(trimmed, L"'", L"''");
    if (!parts) {
        parts = split(trimmed, L"ft", L"in");
    }
    if (!parts) {
        return boost::none;
    }
    const boost::optional<double> feet = detail::readNumberOrFraction(parts->feet, locale);
    const boost::optional<double> inches = detail::readNumberOrFraction(parts->inches, locale);
    if (!feet || !inches || *inches < 0.0) {
        return boost::none;
    }
    // The sign of the feet deliberately does not reach the inches; format() writes it so, too.
    return quantity{UnitId::FOOT, *inches * inch / foot + *feet};
}

std::wstring FeetAndFractionalInchesParser::format(const quantity& q,
                                                   const std::locale& locale) const
{
    const bool isLength = m_converter->can_convert(q.unit_id, UnitId::FOOT);
    ZEL_SMART_ASSERT(isLength, "m_converter->can_convert(q.unit_id, UnitId::FOOT)");
    if (!isLength) {
        return {};
    }
    const double feet = m_converter->convert(q, UnitId::FOOT).value;
    int precision = m_format->get_decimals(q.unit_id);
    ZEL_SMART_ASSERT(precision >= 0, "precision >= 0");
    if (precision < 0) {
        precision = 4;
    }
    // 1/512: a value just below a whole number counts as that number.
    const double whole = std::trunc(feet + 0.001953125);
    const double inches = (feet - whole) * foot / inch;
    std::wstring text;
    // Deliberately in the program's locale: that of the call reaches the inches alone.
    detail::appendWhole(text, whole, std::locale());
    text += L"' ";
    text += formatFraction(inches, precision, L"''", locale);
    return text;
}

} // namespace zel::units::v1
