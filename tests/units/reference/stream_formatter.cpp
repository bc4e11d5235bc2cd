#include "tests/units/reference/stream_formatter.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <sstream>
#include <vector>

namespace zel::test::reference {
namespace {

using units::v1::Context;
using units::v1::IConverter;
using units::v1::UnitId;

/// Labels hold characters of Latin-1 at most.
std::wstring decoded(const std::string& utf8)
{
    std::wstring text;
    for (std::size_t i = 0; i < utf8.size(); ++i) {
        const auto byte = static_cast<unsigned char>(utf8[i]);
        text.push_back(byte < 0x80 ? wchar_t(byte)
                                   : wchar_t((byte & 0x1f) << 6 | (utf8[++i] & 0x3f)));
    }
    return text;
}

std::wstring shownLabel(const Context& context, UnitId id, UnitId shown)
{
    const auto label = context.format_provider().get_label_override(id);
    if (label && label->empty()) {
        return {};
    }
    const std::vector<std::string>& aliases = context.unit_provider().get_aliases(shown);
    if (label && std::find(aliases.begin(), aliases.end(), *label) != aliases.end()) {
        return decoded(*label);
    }
    return decoded(context.unit_provider().get_label(shown));
}

int divisorOf(int a, int b)
{
    a = std::abs(a);
    b = std::abs(b);
    while (b != 0) {
        const int rest = a % b;
        a = b;
        b = rest;
    }
    return a;
}

std::wstring feetText(const Context& context, const IConverter::quantity& q,
                      const std::locale& locale)
{
    const double feet = context.converter().convert(q, UnitId::FOOT).value;
    const int whole = static_cast<int>(std::trunc(feet + 0.001953125));
    const double inches = (feet - whole) * 0.3048 / 0.0254;
    std::wostringstream stream;
    stream << whole << L"'" << L" "
           << fractionText(inches, context.format_provider().get_decimals(q.unit_id), L"''",
                           locale);
    return stream.str();
}

} // namespace

std::wstring fixedText(double value, int decimals, const std::locale& locale)
{
    std::wostringstream stream;
    stream.imbue(locale);
    stream.precision(decimals);
    stream << std::fixed << value;
    return stream.str();
}

std::wstring fractionText(double value, int denominator, const std::wstring& label,
                          const std::locale& locale)
{
    auto whole = static_cast<std::int64_t>(std::trunc(value + 0.001953125));
    const double fraction = std::fabs(value - static_cast<double>(whole));
    int numerator = static_cast<int>(std::round(denominator * fraction));
    const int divisor = divisorOf(numerator, denominator);
    numerator /= divisor;
    denominator /= divisor;
    if (denominator == 1) {
        whole = whole >= 0 ? whole + numerator : whole - numerator;
        numerator = 0;
    }
    std::wostringstream stream;
    stream.imbue(locale);
    if (whole != 0) {
        stream << whole;
    }
    if (whole != 0 && numerator != 0) {
        stream << L" ";
    }
    if (numerator != 0) {
        stream << numerator << L"/" << denominator;
    }
    if (stream.str().empty()) {
        stream << L"0";
    }
    if (!label.empty()) {
        stream << L" " << label;
    }
    return stream.str();
}

std::wstring quantityText(const Context& context, const IConverter::quantity& q,
                          const std::locale& locale)
{
    const UnitId shown = context.format_provider().get_unit(q.unit_id);
    int decimals = context.format_provider().get_decimals(q.unit_id);
    if (shown == 215) {
        return feetText(context, q, locale);
    }
    const double value = context.converter().convert(q, shown).value;
    if (shown == 216) {
        return fractionText(value, decimals, L"''", locale);
    }
    const std::wstring label = shownLabel(context, q.unit_id, shown);
    if (decimals < 0) {
        decimals = 3;
    }
    std::wostringstream stream;
    stream.imbue(locale);
    stream.precision(decimals);
    stream << std::fixed;
    switch (context.format_provider().get_notation(q.unit_id)) {
    case 0:
        stream << value;
        break;
    case 1: {
        const int e = value == 0.0 ? 0 : static_cast<int>(std::log10(std::fabs(value)));
        const double mantissa = value == 0.0 ? 0.0 : value / std::pow(10.0, e);
        stream << mantissa << L"e" << e;
        break;
    }
    case 2:
        return fractionText(value, decimals, label, locale);
    default:
        return {};
    }
    if (!label.empty()) {
        stream << L" " << label;
    }
    return stream.str();
}

} // namespace zel::test::reference
