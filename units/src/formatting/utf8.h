#pragma once

#include <string>

namespace zel::units::v1::detail {

/// Appends UTF-8 as wide text; what is no UTF-8 becomes U+FFFD, one for each byte that starts
/// nothing valid.
void appendUtf8(std::wstring& out, const std::string& utf8);

std::wstring fromUtf8(const std::string& utf8);

} // namespace zel::units::v1::detail
