#include "units/src/formatting/quantity_scanner.h"

#include "units/src/formatting/characters.h"

#include <algorithm>

namespace zel::units::v1::detail {
namespace {

bool isAt(std::wstring_view text, std::size_t i, wchar_t c)
{
    return i < text.size() && text[i] == c;
}

bool isPointOrComma(std::wstring_view text, std::size_t i)
{
    return isAt(text, i, L'.') || isAt(text, i, L',');
}

/// The position behind a minus that may stand first.
std::size_t skipMinus(std::wstring_view text)
{
    return isAt(text, 0, L'-') ? 1 : 0;
}

/// A number that ends with the digits at `i`, or no value if there are none.
boost::optional<ScannedNumber> endingWithDigits(std::wstring_view text, std::size_t i)
{
    const std::size_t end = skipDigits(text, i);
    if (end == i) {
        return boost::none;
    }
    return ScannedNumber{end, end, end - i > 1};
}

/// The end of the number with the exponent at `i`, or no value if none stands there.
boost::optional<ScannedNumber> withExponent(std::wstring_view text, std::size_t i)
{
    if (!isAt(text, i, L'e') && !isAt(text, i, L'E')) {
        return boost::none;
    }
    ++i;
    if (isAt(text, i, L'+') || isAt(text, i, L'-')) {
        ++i;
    }
    return endingWithDigits(text, i);
}

/// "-1.5e-3"
boost::optional<ScannedNumber> exponential(std::wstring_view text)
{
    const std::size_t digits = skipMinus(text);
    std::size_t i = skipDigits(text, digits);
    if (i == digits) {
        return boost::none;
    }
    if (isPointOrComma(text, i)) {
        const std::size_t fraction = i + 1;
        i = skipDigits(text, fraction);
        if (i == fraction) {
            return boost::none;
        }
    }
    return withExponent(text, i);
}

/// "-.5e-3"
boost::optional<ScannedNumber> pointExponential(std::wstring_view text)
{
    const std::size_t digits = skipMinus(text);
    if (!isPointOrComma(text, digits)) {
        return boost::none;
    }
    const std::size_t fraction = digits + 1;
    const std::size_t fractionEnd = skipDigits(text, fraction);
    if (fractionEnd == fraction) {
        return boost::none;
    }
    boost::optional<ScannedNumber> number = withExponent(text, fractionEnd);
    if (number) {
        number->readEnd = fractionEnd;
    }
    return number;
}

/// "-2.5", and any other run of digits, points and commas
boost::optional<ScannedNumber> run(std::wstring_view text)
{
    const std::size_t digits = skipMinus(text);
    std::size_t end = digits;
    while (end < text.size() && (isDigit(text[end]) || isPointOrComma(text, end))) {
        ++end;
    }
    if (end == digits) {
        return boost::none;
    }
    return ScannedNumber{end, end, end - digits > 1};
}

/// "-3/4"
boost::optional<ScannedNumber> fraction(std::wstring_view text)
{
    const std::size_t digits = skipMinus(text);
    const std::size_t slash = skipDigits(text, digits);
    if (!isAt(text, slash, L'/')) {
        return boost::none;
    }
    return endingWithDigits(text, slash + 1);
}

/// "-1 3/4"; without blanks it is a fraction, which has been tried before
boost::optional<ScannedNumber> mixedFraction(std::wstring_view text)
{
    const std::size_t digits = skipMinus(text);
    const std::size_t wholeEnd = skipDigits(text, digits);
    const std::size_t slash = skipDigits(text, skipBlanks(text, wholeEnd));
    if (wholeEnd == digits || slash == wholeEnd || !isAt(text, slash, L'/')) {
        return boost::none;
    }
    return endingWithDigits(text, slash + 1);
}

std::size_t skipLabel(std::wstring_view text, std::size_t i)
{
    Blanks blanks;
    while (i < text.size() && text[i] != L'/' && !isPointOrComma(text, i) &&
           !blanks.contains(text[i])) {
        ++i;
    }
    return i;
}

/// Whether `text` from `i` on is blanks and then one or two parts, each behind a slash.
bool endsWithParts(std::wstring_view text, std::size_t i, bool minusMayLead)
{
    i = skipBlanks(text, i);
    int parts = 0;
    while (parts < 2 && isAt(text, i, L'/')) {
        const std::size_t first = i + 1;
        i = skipLabel(text, first);
        if (i == first || isDigit(text[first]) || (text[first] == L'-' && !minusMayLead)) {
            return false;
        }
        ++parts;
    }
    return parts > 0 && i == text.size();
}

/// Whether all of `text` is "1/m" or its like.
bool isReciprocal(std::wstring_view text)
{
    return isAt(text, 0, L'1') && endsWithParts(text, 1, false);
}

/// Whether all of `text` is a unit behind a number.
bool isUnit(std::wstring_view text, bool exponential)
{
    if (text.empty()) {
        return false;
    }
    const wchar_t first = text.front();
    if (first == L'-') {
        return text.size() == 1;
    }
    if (isDigit(first)) {
        return isReciprocal(text);
    }
    const std::size_t labelEnd = skipLabel(text, 0);
    if (labelEnd == text.size()) {
        return !exponential || first != L'e';
    }
    return labelEnd > 0 && endsWithParts(text, labelEnd, true);
}

} // namespace

const std::array<NumberForms, 2> numberForms = {
    NumberForms{true, {exponential, pointExponential, nullptr}},
    NumberForms{false, {run, fraction, mixedFraction}},
};

boost::optional<NumberAndUnit> splitNumberAndUnit(std::wstring_view text,
                                                  const ScannedNumber& number, bool exponential)
{
    const std::wstring_view unit = text.substr(skipBlanks(text, number.end));
    if (isUnit(unit, exponential)) {
        return NumberAndUnit{text.substr(0, number.readEnd), unit};
    }
    const std::size_t last = number.end - 1;
    if (number.spareDigit && isReciprocal(text.substr(last))) {
        const std::size_t readEnd = std::min(number.readEnd, last);
        return NumberAndUnit{text.substr(0, readEnd), text.substr(last)};
    }
    return boost::none;
}

} // namespace zel::units::v1::detail
