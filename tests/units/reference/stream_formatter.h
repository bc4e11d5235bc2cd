#pragma once

#include "units/inc/units.h"

#include <locale>
#include <string>

// How quantities are to be written, defined by wide string streams alone.

namespace zel::test::reference {

/// What a stream of the locale writes in the fixed format.
std::wstring fixedText(double value, int decimals, const std::locale& locale);

/// formatFraction() for a value that is not beyond a 64-bit integer.
std::wstring fractionText(double value, int denominator, const std::wstring& label,
                          const std::locale& locale);

/// Context::format() for a quantity that converts to the unit shown; beyond the range of the
/// integers in it for the notations Fixed and Scientific alone.
std::wstring quantityText(const units::v1::Context& context,
                          const units::v1::IConverter::quantity& q, const std::locale& locale);

} // namespace zel::test::reference
