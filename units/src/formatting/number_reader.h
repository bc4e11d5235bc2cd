#pragma once

#include <boost/optional.hpp>

#include <locale>
#include <string_view>

namespace zel::units::v1::detail {

/// What a stream of the locale reads from `text` into a double that was 0.0, whatever state the
/// stream is in afterwards. No value only if reading throws.
boost::optional<double> readNumber(std::wstring_view text, const std::locale& locale);

/// parseNumber() for a part of a text.
boost::optional<double> readNumberOrFraction(std::wstring_view text, const std::locale& locale);

} // namespace zel::units::v1::detail
