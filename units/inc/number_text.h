#pragma once

#include "platform/export.h"

#include <boost/optional.hpp>

#include <locale>
#include <string>

namespace zel::units::v1 {

/// Reads a number, a fraction "3/4" or a mixed fraction "1 3/4", each with an optional minus; two
/// minus signs of a mixed fraction do not cancel. Numbers are read as a stream of the locale reads
/// them: reading ends at the first character that does not fit, text that is no number gives 0.0,
/// and too large a number the largest finite one. A zero denominator gives an infinity or a NaN.
/// No value only if reading throws.
ZEL_UNITS_EXPORT boost::optional<double> parseNumber(const std::wstring& text,
                                                     const std::locale& locale);

/// Writes a number as a whole part and a reduced fraction, "2 1/2", followed by a blank and the
/// label if there is one. The sign of a value between -1 and 0 is lost. Up to 1/512 below a whole
/// number counts as that number. The denominator must not be 0: reports the assertion
/// "denominator != 0" and writes whole numbers.
ZEL_UNITS_EXPORT std::wstring formatFraction(double value, int denominator,
                                             const std::wstring& label, const std::locale& locale);

} // namespace zel::units::v1
