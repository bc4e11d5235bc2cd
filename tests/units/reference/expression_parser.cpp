#include "tests/units/reference/expression_parser.h"

#include <algorithm>
#include <cstddef>
#include <sstream>

namespace zel::test::reference {
namespace {

using quantity = IConverter::quantity;
using Iterator = std::wsregex_iterator;

const std::vector<std::wstring>& plainNumbers()
{
    static const std::vector<std::wstring> expressions = {
        LR"(\s*(-?[\.,\d]+)\s*)",
        LR"(\s*(-?\d*/\d+)\s*)",
        LR"(\s*(-?\d+\s*\d*/\d+)\s*)",
    };
    return expressions;
}

const std::vector<std::wstring>& plainUnits()
{
    static const std::vector<std::wstring> expressions = {
        LR"(\s*([^\d\s\.,/\-][^\s\.,/]*)\s*)",
        LR"(\s*([^\d\s\.,/\-][^\s\.,/]*\s*(?:/[^\d\s\.,/][^\s\.,/]*){1,2})\s*)",
        LR"(\s*(1\s*(?:/[^\d\s\.,/-][^\s\.,/]*){1,2})\s*)",
        LR"(\s*(-)\s*$)",
    };
    return expressions;
}

const std::vector<std::wstring>& exponentNumbers()
{
    static const std::vector<std::wstring> expressions = {
        LR"(^\s*(-?\d+(?:[\.,]\d+)?[eE][\+-]?\d+)\s*)",
        LR"(^\s*(-?[\.,]\d+)[eE][\+-]?\d+\s*)",
    };
    return expressions;
}

/// The same as plainUnits(), but a label alone does not begin with "e".
const std::vector<std::wstring>& exponentUnits()
{
    static const std::vector<std::wstring> expressions = [] {
        std::vector<std::wstring> units = plainUnits();
        units.front() = LR"(\s*([^\d\s\.,/\-e][^\s\.,/]*)\s*)";
        return units;
    }();
    return expressions;
}

std::wstring decoded(const std::string& utf8)
{
    std::wstring text;
    for (std::size_t i = 0; i < utf8.size(); ++i) {
        const auto byte = static_cast<unsigned char>(utf8[i]);
        if (byte < 0x80) {
            text.push_back(wchar_t(byte));
        } else if (byte >= 0xc0 && byte < 0xe0 && i + 1 < utf8.size()) {
            text.push_back(wchar_t((byte & 0x1f) << 6 | (utf8[++i] & 0x3f)));
        } else {
            text.push_back(L'\ufffd');
        }
    }
    return text;
}

double streamNumber(const std::wstring& text, const std::locale& locale)
{
    std::wistringstream stream(text);
    stream.imbue(locale);
    double number = 0.0;
    stream >> number;
    return number;
}

/// Without the blanks of the program's locale at both ends.
std::wstring trimmed(const std::wstring& text)
{
    const std::locale locale;
    const auto isText = [&locale](wchar_t c) { return !std::isspace(c, locale); };
    const auto begin = std::find_if(text.begin(), text.end(), isText);
    const auto end = std::find_if(text.rbegin(), text.rend(), isText).base();
    return begin < end ? std::wstring(begin, end) : std::wstring();
}

/// The other plain units of the same label, in the order of the provider.
std::vector<UnitId> sameLabelUnits(const IUnitProvider& units, UnitId id)
{
    std::vector<UnitId> same;
    if (id >= 1000) {
        return same;
    }
    for (const UnitId other : units.get_unit_ids()) {
        if (other < 1000 && other != id && units.get_label(other) == units.get_label(id)) {
            same.push_back(other);
        }
    }
    return same;
}

} // namespace

LabelMap labelsOf(const IUnitProvider& units)
{
    LabelMap labels;
    for (const UnitId id : units.get_unit_ids()) {
        const std::string label = units.get_label(id);
        if (label.empty()) {
            continue;
        }
        labels.emplace(decoded(label), id);
        for (const std::string& alias : units.get_aliases(id)) {
            labels.emplace(decoded(alias), id);
        }
        if (id == 8) {
            for (const wchar_t* further : {L"%", L"o/o", L"O/O", L"0/0"}) {
                labels.emplace(further, id);
            }
        } else if (id == 9) {
            for (const wchar_t* further : {L"o/oo", L"O/OO", L"0/00"}) {
                labels.emplace(further, id);
            }
        }
    }
    return labels;
}

ExpressionParser::ExpressionParser(Compile compile)
    : m_compile(compile)
    , m_mixedFraction(LR"((-?)(\d+\s+)?(-?)(\d+)/(\d+))")
    , m_feetSigns(LR"(\s*(.*)'(.*)''\s*)")
    , m_feetWords(LR"(\s*(.*)ft(.*)in\s*)")
    , m_inchSigns(LR"(\s*(.*)''\s*)")
    , m_inchWords(LR"(\s*(.*)in\s*)")
{}

const std::wregex& ExpressionParser::compiled(const std::wstring& expression)
{
    if (m_compile == Compile::PerAttempt) {
        m_lastCompiled = std::wregex(expression);
        return m_lastCompiled;
    }
    const auto found = m_compiled.find(expression);
    return found != m_compiled.end()
               ? found->second
               : m_compiled.emplace(expression, std::wregex(expression)).first->second;
}

boost::optional<quantity> ExpressionParser::parse(const LabelMap& labels, const std::wstring& text,
                                                  const std::locale& locale)
{
    const auto q = parse(exponentNumbers(), exponentUnits(), labels, text, locale);
    return q ? q : parse(plainNumbers(), plainUnits(), labels, text, locale);
}

boost::optional<quantity> ExpressionParser::parse(const Expressions& numbers,
                                                  const Expressions& units, const LabelMap& labels,
                                                  const std::wstring& text,
                                                  const std::locale& locale)
{
    for (const std::wstring& unit : units) {
        if (!reachesEnd(unit, text)) {
            continue;
        }
        if (const auto q = parseWhole(numbers, units, labels, text, locale)) {
            return q;
        }
        // parseWhole() does not depend on `unit`, so a further run of it would find nothing new.
        if (m_compile == Compile::Once) {
            break;
        }
    }
    for (const std::wstring& number : numbers) {
        std::wsmatch match;
        if (!std::regex_match(text, match, compiled(number)) || match.size() != 2) {
            continue;
        }
        if (const boost::optional<double> n = parseNumber(match[1].str(), locale)) {
            return quantity{UnitId(1), *n};
        }
    }
    return boost::none;
}

/// Whether some match of the unit expression reaches the last character of the text. Not just the
/// first one: in "1.5E-3 kN" that is "E-3".
bool ExpressionParser::reachesEnd(const std::wstring& unit, const std::wstring& text)
{
    const std::wregex& expression = compiled(unit);
    return std::any_of(Iterator(text.begin(), text.end(), expression), Iterator(),
                       [&text](const std::wsmatch& match) {
                           return match.position(1) + match.length(1) >=
                                  static_cast<std::ptrdiff_t>(text.size());
                       });
}

boost::optional<quantity> ExpressionParser::parseWhole(const Expressions& numbers,
                                                       const Expressions& units,
                                                       const LabelMap& labels,
                                                       const std::wstring& text,
                                                       const std::locale& locale)
{
    for (const std::wstring& unit : units) {
        for (const std::wstring& number : numbers) {
            std::wsmatch match;
            if (!std::regex_match(text, match, compiled(number + unit)) || match.size() != 3) {
                continue;
            }
            const boost::optional<double> n = parseNumber(match[1].str(), locale);
            const auto label = labels.find(match[2].str());
            if (n && label != labels.end()) {
                return quantity{label->second, *n};
            }
        }
    }
    return boost::none;
}

boost::optional<quantity> ExpressionParser::parseFeet(const std::wstring& text,
                                                      const std::locale& locale) const
{
    std::wsmatch match;
    std::regex_match(text, match, m_feetSigns);
    if (match.size() != 3) {
        std::regex_match(text, match, m_feetWords);
    }
    if (match.size() != 3) {
        return boost::none;
    }
    const boost::optional<double> feet = parseNumber(trimmed(match[1].str()), locale);
    const boost::optional<double> inches = parseNumber(trimmed(match[2].str()), locale);
    if (!feet || !inches || *inches < 0.0) {
        return boost::none;
    }
    return quantity{UnitId::FOOT, *inches * 0.0254 / 0.3048 + *feet};
}

boost::optional<quantity> ExpressionParser::parseInches(const std::wstring& text,
                                                        const std::locale& locale) const
{
    std::wsmatch match;
    std::regex_match(text, match, m_inchSigns);
    if (match.size() != 2) {
        std::regex_match(text, match, m_inchWords);
    }
    // Neither expression has two groups of its own, so this is where it always ends.
    if (match.size() != 3) {
        return boost::none;
    }
    const boost::optional<double> inches = parseNumber(trimmed(match[1].str()), locale);
    return inches ? boost::make_optional(quantity{UnitId::INCH, *inches}) : boost::none;
}

boost::optional<double> ExpressionParser::parseNumber(const std::wstring& text,
                                                      const std::locale& locale) const
{
    std::wsmatch match;
    if (!std::regex_match(text, match, m_mixedFraction) || match.size() != 6) {
        return streamNumber(text, locale);
    }
    const double sign = match[1].length() > 0 || match[3].length() > 0 ? -1.0 : 1.0;
    const double whole = match[2].length() > 0 ? streamNumber(match[2].str(), locale) : 0.0;
    const double numerator = streamNumber(match[4].str(), locale);
    const double denominator = streamNumber(match[5].str(), locale);
    return (numerator / denominator + whole) * sign;
}

boost::optional<quantity> ExpressionParser::parse(const Context& context, const LabelMap& labels,
                                                  const std::wstring& text, UnitId id,
                                                  const std::locale& locale)
{
    const auto dimensionOf = [&context](UnitId unit) {
        return context.unit_provider().get_dimension(context.format_provider().get_unit(unit));
    };
    boost::optional<quantity> q;
    if (dimensionOf(id) == dimensionOf(UnitId(215))) {
        q = parseFeet(text, locale);
    }
    if (!q && dimensionOf(id) == dimensionOf(UnitId(216))) {
        q = parseInches(text, locale);
    }
    if (!q) {
        q = parse(labels, text, locale);
    }
    if (!q) {
        return boost::none;
    }
    if (q->unit_id == 1) {
        q->unit_id = context.format_provider().get_unit(id);
    }
    if (context.converter().can_convert(q->unit_id, id)) {
        return context.converter().convert(*q, id);
    }
    for (const UnitId alternative : sameLabelUnits(context.unit_provider(), q->unit_id)) {
        if (context.converter().can_convert(alternative, id)) {
            return context.converter().convert({alternative, q->value}, id);
        }
    }
    return boost::none;
}

} // namespace zel::test::reference
