#pragma once

#include <cstdint>
#include <locale>
#include <string>

namespace zel::units::v1::detail {

/// Appends `value` as a stream of the locale writes it in the fixed format.
void appendFixed(std::wstring& out, double value, int decimals, const std::locale& locale);

/// Appends `value` as a stream of the locale writes it.
void appendInteger(std::wstring& out, std::int64_t value, const std::locale& locale);

/// Appends a number that has no fraction. One that is too large for an integer is written with all
/// its digits, like any other, rather than wrapped.
void appendWhole(std::wstring& out, double value, const std::locale& locale);

/// Appends a blank and the label, or nothing if the label is empty.
void appendLabel(std::wstring& out, const std::wstring& label);

} // namespace zel::units::v1::detail
