#pragma once

#include "units/inc/parser.h"

namespace zel::units::v1 {

/// Lengths in fractional inches: writes "6 1/2 ''". It understands no text, inches are read by
/// Parser through the label and the alias of the inch.
class ZEL_UNITS_EXPORT FractionalInchesParser : public IParser
{
public:
    /// None of the pointers is owned or may be null.
    FractionalInchesParser(const IUnitProvider* units, const IFormatProvider* format,
                           const IConverter* converter);

    /// No value for any text.
    boost::optional<IConverter::quantity> parse(const std::wstring& text,
                                                const std::locale& locale) const override;
    /// The decimals of the format are the denominator, and must not be 0. Reports the assertion
    /// "m_converter->can_convert(q.unit_id, UnitId::INCH)" and writes an empty text if `q` is no
    /// length; negative decimals report "precision >= 0" and count as 4.
    std::wstring format(const IConverter::quantity& q, const std::locale& locale) const override;

private:
    [[maybe_unused]] const IUnitProvider* m_units;
    const IFormatProvider* m_format;
    const IConverter* m_converter;
};

} // namespace zel::units::v1
