#pragma once

#include "units/inc/parser.h"

namespace zel::units::v1 {

/// Lengths in feet and fractional inches: "5' 6 1/2''", "5 ft 6 in".
///
/// The sign of the feet does not reach the inches: "-2' 6''" is -1.5 feet. Negative inches are
/// refused. A part that is no number counts as 0.
class ZEL_UNITS_EXPORT FeetAndFractionalInchesParser : public IParser
{
public:
    /// None of the pointers is owned or may be null.
    FeetAndFractionalInchesParser(const IUnitProvider* units, const IFormatProvider* format,
                                  const IConverter* converter);

    /// A quantity in feet, or no value.
    boost::optional<IConverter::quantity> parse(const std::wstring& text,
                                                const std::locale& locale) const override;
    /// "5' 6 1/2 ''"; the decimals of the format are the denominator, and must not be 0. Reports
    /// the assertion "m_converter->can_convert(q.unit_id, UnitId::FOOT)" and writes an empty text
    /// if `q` is no length; negative decimals report "precision >= 0" and count as 4.
    std::wstring format(const IConverter::quantity& q, const std::locale& locale) const override;

private:
    [[maybe_unused]] const IUnitProvider* m_units;
    const IFormatProvider* m_format;
    const IConverter* m_converter;
};

} // namespace zel::units::v1
