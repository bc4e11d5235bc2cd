#include "units/inc/fractional_inches_parser.h"

#include "platform/smart_assert.h"
#include "units/inc/number_text.h"

namespace zel::units::v1 {

using quantity = IConverter::quantity;

FractionalInchesParser::FractionalInchesParser(const IUnitProvider* units,
                                               const IFormatProvider* format,
                                               const IConverter* converter)
    : m_units(units)
    , m_format(format)
    , m_converter(converter)
{}

boost::optional<quantity> FractionalInchesParser::parse(const std::wstring&,
                                                        const std::locale&) const
{
    // Deliberately unlike the feet: inches are left to Parser, which knows their label and alias.
    return boost::none;
}

std::wstring FractionalInchesParser::format(const quantity& q, const std::locale& locale) const
{
    const bool isLength = m_converter->can_convert(q.unit_id, UnitId::INCH);
    ZEL_SMART_ASSERT(isLength, "m_converter->can_convert(q.unit_id, UnitId::INCH)");
    if (!isLength) {
        return {};
    }
    const double inches = m_converter->convert(q, UnitId::INCH).value;
    int precision = m_format->get_decimals(q.unit_id);
    ZEL_SMART_ASSERT(precision >= 0, "precision >= 0");
    if (precision < 0) {
        precision = 4;
    }
    return formatFraction(inches, precision, L"''", locale);
}

} // namespace zel::units::v1
