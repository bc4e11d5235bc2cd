#include "units/src/formatting/number_writer.h"

#include "platform/smart_assert.h"
#include "units/inc/number_text.h"

#include <charconv>
#include <cmath>
#include <numeric>
#include <sstream>
#include <system_error>

namespace zel::units::v1 {
namespace detail {
namespace {

/// Up to here the digits in front of the point, and with them the buffer below, stay small.
constexpr double largestWithoutStream = 1e24;
constexpr int mostDecimalsWithoutStream = 32;

/// Beyond this, doubles are no longer 64-bit integers.
constexpr double largestInteger = 9223372036854774784.0;

void widen(std::wstring& out, const char* begin, const char* end)
{
    out.append(begin, end);
}

} // namespace

void appendFixed(std::wstring& out, double value, int decimals, const std::locale& locale)
{
    if (std::fabs(value) <= largestWithoutStream && decimals >= 0 &&
        decimals <= mostDecimalsWithoutStream && locale == std::locale::classic()) {
        char buffer[64];
        const std::to_chars_result result = std::to_chars(buffer, buffer + sizeof buffer, value,
                                                          std::chars_format::fixed, decimals);
        if (result.ec == std::errc()) {
            widen(out, buffer, result.ptr);
            return;
        }
    }
    std::wostringstream stream;
    stream.imbue(locale);
    stream.precision(decimals);
    stream << std::fixed << value;
    out += stream.str();
}

void appendInteger(std::wstring& out, std::int64_t value, const std::locale& locale)
{
    if (locale == std::locale::classic()) {
        char buffer[24];
        widen(out, buffer, std::to_chars(buffer, buffer + sizeof buffer, value).ptr);
        return;
    }
    std::wostringstream stream;
    stream.imbue(locale);
    stream << value;
    out += stream.str();
}

void appendWhole(std::wstring& out, double value, const std::locale& locale)
{
    if (std::fabs(value) <= largestInteger) {
        appendInteger(out, static_cast<std::int64_t>(value), locale);
    } else {
        appendFixed(out, value, 0, locale);
    }
}

void appendLabel(std::wstring& out, const std::wstring& label)
{
    if (!label.empty()) {
        out += L' ';
        out += label;
    }
}

} // namespace detail

std::wstring formatFraction(double value, int denominator, const std::wstring& label,
                            const std::locale& locale)
{
    ZEL_SMART_ASSERT(denominator != 0, "denominator != 0");
    std::wstring text;
    if (!(std::fabs(value) <= detail::largestInteger)) {
        detail::appendWhole(text, value, locale);
        detail::appendLabel(text, label);
        return text;
    }
    // 1/512: a value just below a whole number counts as that number.
    auto whole = static_cast<std::int64_t>(std::trunc(value + 0.001953125));
    const double fraction = std::fabs(value - static_cast<double>(whole));
    std::int64_t lower = denominator != 0 ? denominator : 1;
    std::int64_t upper = std::llround(static_cast<double>(lower) * fraction);
    const std::int64_t divisor = std::gcd(upper, lower);
    upper /= divisor;
    lower /= divisor;
    if (lower == 1) {
        whole += whole >= 0 ? upper : -upper;
        upper = 0;
    }
    if (whole != 0) {
        detail::appendInteger(text, whole, locale);
    }
    if (upper != 0) {
        if (whole != 0) {
            text += L' ';
        }
        detail::appendInteger(text, upper, locale);
        text += L'/';
        detail::appendInteger(text, lower, locale);
    }
    if (text.empty()) {
        text += L'0';
    }
    detail::appendLabel(text, label);
    return text;
}

} // namespace zel::units::v1
