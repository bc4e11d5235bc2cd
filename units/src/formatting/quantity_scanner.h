#pragma once

#include <boost/optional.hpp>

#include <array>
#include <cstddef>
#include <string_view>

// How a text is split into a number and a unit:
//
//     text        = blanks number [blanks unit]  |  blanks number blanks
//     number      = exponential | plain
//     exponential = [-] digits [(.|,) digits] (e|E) [+|-] digits
//                 | [-] (.|,) digits (e|E) [+|-] digits
//     plain       = [-] (digit | . | ,)...
//                 | [-] [digits] / digits
//                 | [-] digits blanks [digits] / digits
//     unit        = label | label blanks / part [/ part] | 1 blanks / part [/ part] | -
//     label       = a character other than a digit, a blank or one of . , / -
//                   and then characters other than a blank or one of . , /
//     part        = like a label, but behind a label it may begin with a minus
//
// Blanks may be none, digits may not. Behind an exponential number a label that has no parts does
// not begin with "e". The exponent of the second form is recognised, but deliberately no part of
// what is read as the number. All of it takes time linear in the length of the text and no memory.

namespace zel::units::v1::detail {

/// A number at the start of a text, as positions.
struct ScannedNumber
{
    std::size_t readEnd; ///< the end of what is read as the number
    std::size_t end;     ///< the end of all of it
    bool spareDigit;     ///< whether it is a number without its last digit as well
};

/// Finds one form of a number at the start of a text that has no blanks at its ends.
using NumberForm = boost::optional<ScannedNumber> (*)(std::wstring_view text);

/// The forms of one kind, in the order in which they are to be tried.
struct NumberForms
{
    bool exponential;
    std::array<NumberForm, 3> forms; ///< ended by null
};

/// First the exponential kind, then the plain one: all forms of the first, with and without a unit,
/// come before those of the second.
extern const std::array<NumberForms, 2> numberForms;

/// The parts of a text with a unit; they point into the text.
struct NumberAndUnit
{
    std::wstring_view number;
    std::wstring_view unit;
};

/// Splits a text that ends with a unit behind the number. A unit "1/..." needs no blank before it:
/// the last digit of the number is its "1" then.
boost::optional<NumberAndUnit> splitNumberAndUnit(std::wstring_view text,
                                                  const ScannedNumber& number, bool exponential);

} // namespace zel::units::v1::detail
