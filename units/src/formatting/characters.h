#pragma once

#include <locale>
#include <string_view>

namespace zel::units::v1::detail {

inline bool isDigit(wchar_t c)
{
    return c >= L'0' && c <= L'9';
}

/// Whether the classic locale counts `c` as a blank.
inline bool isClassicBlank(wchar_t c)
{
    return c == L' ' || (c >= L'\t' && c <= L'\r');
}

/// Whether the program's global locale counts `c` as a blank. All agree about ASCII; some
/// know further ones, which it takes a call to find out.
inline bool isBlank(wchar_t c)
{
    if (c >= 0 && c < 0x80) {
        return isClassicBlank(c);
    }
    const std::locale global;
    return std::use_facet<std::ctype<wchar_t>>(global).is(std::ctype_base::space, c);
}

inline bool isLineTerminator(wchar_t c)
{
    return c == L'\n' || c == L'\r' || c == L'\u2028' || c == L'\u2029';
}

/// The position of the first character at or behind `i` that is no blank.
inline std::size_t skipBlanks(std::wstring_view text, std::size_t i)
{
    while (i < text.size() && isBlank(text[i])) {
        ++i;
    }
    return i;
}

/// The position of the first character at or behind `i` that is no digit.
inline std::size_t skipDigits(std::wstring_view text, std::size_t i)
{
    while (i < text.size() && isDigit(text[i])) {
        ++i;
    }
    return i;
}

inline std::wstring_view trimBlanks(std::wstring_view text)
{
    text.remove_prefix(skipBlanks(text, 0));
    while (!text.empty() && isBlank(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

} // namespace zel::units::v1::detail
