#include "units/src/formatting/number_reader.h"

#include "units/inc/number_text.h"
#include "units/src/formatting/characters.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <sstream>
#include <string>
#include <system_error>

namespace zel::units::v1 {
namespace detail {
namespace {

boost::optional<double> readFromStream(std::wstring_view text, const std::locale& locale)
{
    double number = 0.0;
    try {
        std::wistringstream stream{std::wstring(text)};
        stream.imbue(locale);
        stream >> number;
    } catch (...) {
        return boost::none;
    }
    return number;
}

/// Collects the characters that a stream of the classic locale takes for a number, in a buffer
/// that holds any number that a person would type.
class ClassicNumber
{
public:
    explicit ClassicNumber(std::wstring_view text)
    {
        std::size_t i = 0;
        while (i < text.size() && isClassicBlank(text[i])) {
            ++i;
        }
        if (i < text.size() && (text[i] == L'-' || text[i] == L'+')) {
            m_negative = text[i++] == L'-';
        }
        for (; i < text.size(); ++i) {
            const wchar_t c = text[i];
            if (isDigit(c)) {
                (m_exponent ? m_exponentDigits : m_mantissaDigits) = true;
            } else if (c == L'.' && !m_point && !m_exponent) {
                m_point = true;
            } else if ((c == L'e' || c == L'E') && !m_exponent && m_mantissaDigits) {
                m_exponent = true;
                add('e');
                if (i + 1 < text.size() && (text[i + 1] == L'-' || text[i + 1] == L'+')) {
                    add(text[++i] == L'-' ? '-' : '+');
                }
                continue;
            } else {
                break;
            }
            add(static_cast<char>(c));
        }
    }

    /// No value where it takes a stream to tell: too long, too large, too small.
    boost::optional<double> value() const
    {
        if (!m_mantissaDigits || (m_exponent && !m_exponentDigits)) {
            return 0.0;
        }
        if (m_size > m_buffer.size()) {
            return boost::none;
        }
        double number = 0.0;
        const char* end = m_buffer.data() + m_size;
        const std::from_chars_result result = std::from_chars(m_buffer.data(), end, number);
        if (result.ec != std::errc() || result.ptr != end || !std::isfinite(number)) {
            return boost::none;
        }
        return m_negative ? -number : number;
    }

private:
    void add(char c)
    {
        if (m_size < m_buffer.size()) {
            m_buffer[m_size] = c;
        }
        ++m_size;
    }

    std::array<char, 128> m_buffer;
    std::size_t m_size = 0;
    bool m_negative = false;
    bool m_mantissaDigits = false;
    bool m_point = false;
    bool m_exponent = false;
    bool m_exponentDigits = false;
};

/// The parts of "-1 3/4".
struct MixedFraction
{
    bool negative;
    std::wstring_view whole; ///< with the blanks behind it; empty if there is none
    std::wstring_view numerator;
    std::wstring_view denominator;
};

boost::optional<MixedFraction> splitMixedFraction(std::wstring_view text)
{
    std::size_t i = 0;
    const auto takeMinus = [&text, &i] {
        const bool minus = i < text.size() && text[i] == L'-';
        i += minus ? 1 : 0;
        return minus;
    };
    MixedFraction parts{takeMinus(), {}, {}, {}};
    std::size_t start = i;
    i = skipDigits(text, i);
    const std::size_t afterBlanks = skipBlanks(text, i);
    if (i > start && afterBlanks > i) {
        // A blank may be what the locale writes between thousands, so the stream is to see them.
        parts.whole = text.substr(start, afterBlanks - start);
        i = afterBlanks;
    } else if (i > start) {
        i = start;
    }
    parts.negative = takeMinus() || parts.negative;
    start = i;
    i = skipDigits(text, i);
    parts.numerator = text.substr(start, i - start);
    if (parts.numerator.empty() || i == text.size() || text[i] != L'/') {
        return boost::none;
    }
    parts.denominator = text.substr(i + 1);
    if (parts.denominator.empty() || skipDigits(text, i + 1) != text.size()) {
        return boost::none;
    }
    return parts;
}

} // namespace

boost::optional<double> readNumber(std::wstring_view text, const std::locale& locale)
{
    if (locale == std::locale::classic()) {
        if (const boost::optional<double> number = ClassicNumber(text).value()) {
            return number;
        }
    }
    return readFromStream(text, locale);
}

boost::optional<double> readNumberOrFraction(std::wstring_view text, const std::locale& locale)
{
    const boost::optional<MixedFraction> parts = splitMixedFraction(text);
    if (!parts) {
        return readNumber(text, locale);
    }
    const boost::optional<double> whole =
        parts->whole.empty() ? 0.0 : readNumber(parts->whole, locale);
    const boost::optional<double> numerator = readNumber(parts->numerator, locale);
    const boost::optional<double> denominator = readNumber(parts->denominator, locale);
    if (!whole || !numerator || !denominator) {
        return boost::none;
    }
    return (*numerator / *denominator + *whole) * (parts->negative ? -1.0 : 1.0);
}

} // namespace detail

boost::optional<double> parseNumber(const std::wstring& text, const std::locale& locale)
{
    return detail::readNumberOrFraction(text, locale);
}

} // namespace zel::units::v1
