#pragma once

#include "units/inc/units.h"

#include <boost/optional.hpp>

#include <locale>
#include <map>
#include <regex>
#include <string>
#include <unordered_map>
#include <vector>

// What the parsers of quantities are to understand, defined by regular expressions and streams
// alone. Slow, and recursive in the length of the text: for short texts in tests.

namespace zel::test::reference {

using units::v1::Context;
using units::v1::IConverter;
using units::v1::IUnitProvider;
using units::v1::UnitId;

using LabelMap = std::unordered_map<std::wstring, UnitId>;

/// From what may be typed for a unit to the unit.
LabelMap labelsOf(const IUnitProvider& units);

/// The definition of the parsers.
class ExpressionParser
{
public:
    enum class Compile
    {
        PerAttempt, ///< an expression is compiled whenever it is tried
        Once,       ///< each expression is compiled once for this object
    };

    explicit ExpressionParser(Compile compile);

    /// Parser::parse()
    boost::optional<IConverter::quantity> parse(const LabelMap& labels, const std::wstring& text,
                                                const std::locale& locale);
    /// FeetAndFractionalInchesParser::parse()
    boost::optional<IConverter::quantity> parseFeet(const std::wstring& text,
                                                    const std::locale& locale) const;
    /// FractionalInchesParser::parse()
    boost::optional<IConverter::quantity> parseInches(const std::wstring& text,
                                                      const std::locale& locale) const;
    /// parseNumber()
    boost::optional<double> parseNumber(const std::wstring& text, const std::locale& locale) const;

    /// Context::parse() for a context whose format provider knows `id`; `labels` are those of its
    /// unit provider.
    boost::optional<IConverter::quantity> parse(const Context& context, const LabelMap& labels,
                                                const std::wstring& text, UnitId id,
                                                const std::locale& locale);

private:
    using Expressions = std::vector<std::wstring>;

    const std::wregex& compiled(const std::wstring& expression);
    boost::optional<IConverter::quantity> parse(const Expressions& numbers,
                                                const Expressions& units, const LabelMap& labels,
                                                const std::wstring& text,
                                                const std::locale& locale);
    boost::optional<IConverter::quantity>
    parseWhole(const Expressions& numbers, const Expressions& units, const LabelMap& labels,
               const std::wstring& text, const std::locale& locale);
    bool reachesEnd(const std::wstring& unit, const std::wstring& text);

    Compile m_compile;
    std::map<std::wstring, std::wregex> m_compiled;
    std::wregex m_lastCompiled;
    std::wregex m_mixedFraction;
    std::wregex m_feetSigns;
    std::wregex m_feetWords;
    std::wregex m_inchSigns;
    std::wregex m_inchWords;
};

} // namespace zel::test::reference
