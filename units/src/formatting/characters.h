#pragma once

#include <locale>
#include <optional>
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

/// Tells what the program's global locale counts as a blank. All locales agree about ASCII; some
/// know further blanks. Made for one walk over a text: it looks the locale up at the first
/// character that is not ASCII, and not again, since that takes longer than the walk.
class Blanks
{
public:
    bool contains(wchar_t c)
    {
        return c >= 0 && c < 0x80 ? isClassicBlank(c) : containsFurther(c);
    }

private:
    bool containsFurther(wchar_t c)
    {
        if (m_ctype == nullptr) {
            m_ctype = &std::use_facet<std::ctype<wchar_t>>(m_global.emplace());
        }
        return m_ctype->is(std::ctype_base::space, c);
    }

    std::optional<std::locale> m_global; ///< keeps the facet
    const std::ctype<wchar_t>* m_ctype = nullptr;
};

inline bool isLineTerminator(wchar_t c)
{
    return c == L'\n' || c == L'\r' || c == L'\u2028' || c == L'\u2029';
}

/// The position of the first character at or behind `i` that is no blank.
inline std::size_t skipBlanks(std::wstring_view text, std::size_t i)
{
    Blanks blanks;
    while (i < text.size() && blanks.contains(text[i])) {
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
    Blanks blanks;
    while (!text.empty() && blanks.contains(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

} // namespace zel::units::v1::detail
