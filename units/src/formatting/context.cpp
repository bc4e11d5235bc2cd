#include "units/inc/context.h"

#include "units/inc/feet_and_fractional_inches_parser.h"
#include "units/inc/fractional_inches_parser.h"
#include "units/inc/parser.h"
#include "units/src/definitions/unit_definitions.h"

#include <stdexcept>
#include <unordered_map>
#include <utility>
#include <vector>

namespace zel::units::v1 {
namespace {

using quantity = IConverter::quantity;

constexpr UnitId feetAndFractionalInches = UnitId(215);
constexpr UnitId fractionalInches = UnitId(216);

std::unordered_map<std::int32_t, std::vector<UnitId>> buildSameLabelUnits()
{
    std::unordered_map<std::string, std::vector<UnitId>> byLabel;
    for (const detail::UnitDefinition& unit : detail::unitDefinitions()) {
        byLabel[unit.label].push_back(unit.id);
    }
    std::unordered_map<std::int32_t, std::vector<UnitId>> others;
    for (const auto& [label, ids] : byLabel) {
        for (const UnitId id : ids) {
            for (const UnitId other : ids) {
                if (other != id) {
                    others[id].push_back(other);
                }
            }
        }
    }
    return others;
}

/// The other plain units of the same label, in table order.
const std::vector<UnitId>& sameLabelUnits(UnitId id)
{
    static const std::unordered_map<std::int32_t, std::vector<UnitId>> others =
        buildSameLabelUnits();
    static const std::vector<UnitId> none;
    const auto found = others.find(id);
    return found != others.end() ? found->second : none;
}

} // namespace

Context::Context(int column)
    : m_format(column)
{
    m_converter.set_unit_provider(&m_units);
}

// A converter points to the provider of its own context, so it is set anew wherever one is made.
Context::Context(const Context& other)
    : m_units(other.m_units)
    , m_format(other.m_format)
{
    m_converter.set_unit_provider(&m_units);
}

Context::Context(Context&& other) noexcept
    : m_units(std::move(other.m_units))
    , m_format(std::move(other.m_format))
{
    m_converter.set_unit_provider(&m_units);
}

Context& Context::operator=(const Context& other)
{
    m_units = other.m_units;
    m_format = other.m_format;
    return *this;
}

Context& Context::operator=(Context&& other) noexcept
{
    m_units = std::move(other.m_units);
    m_format = std::move(other.m_format);
    return *this;
}

Context::~Context() = default;

const ZelUnitProvider& Context::unit_provider() const
{
    return m_units;
}

const UnitsetFormatProvider& Context::format_provider() const
{
    return m_format;
}

UnitsetFormatProvider& Context::format_provider()
{
    return m_format;
}

const Converter& Context::converter() const
{
    return m_converter;
}

std::uint32_t Context::dimension_of(UnitId id) const
{
    if (!m_format.has_format(id)) {
        throw std::invalid_argument("Invalid unit id.");
    }
    const UnitId unit = m_format.get_unit(id);
    if (!m_units.has_unit(unit)) {
        throw std::invalid_argument("Invalid unit id.");
    }
    return m_units.get_dimension(unit);
}

boost::optional<quantity> Context::parse(const std::wstring& text, UnitId id,
                                         const std::locale& locale) const
{
    const std::uint32_t dimension = dimension_of(id);
    boost::optional<quantity> q;
    if (dimension == dimension_of(feetAndFractionalInches)) {
        q = FeetAndFractionalInchesParser(&m_units, &m_format, &m_converter).parse(text, locale);
    }
    if (!q && dimension == dimension_of(fractionalInches)) {
        q = FractionalInchesParser(&m_units, &m_format, &m_converter).parse(text, locale);
    }
    if (!q) {
        q = Parser(&m_units, &m_format, &m_converter).parse(text, locale);
    }
    if (!q) {
        return boost::none;
    }
    if (q->unit_id == 1) {
        q->unit_id = m_format.get_unit(id);
    }
    if (m_converter.can_convert(q->unit_id, id)) {
        return m_converter.convert(*q, id);
    }
    for (const UnitId alternative : sameLabelUnits(q->unit_id)) {
        if (m_converter.can_convert(alternative, id)) {
            return m_converter.convert({alternative, q->value}, id);
        }
    }
    return boost::none;
}

std::wstring Context::format(const quantity& q, const std::locale& locale) const
{
    const UnitId shown = m_format.get_unit(q.unit_id);
    if (shown == feetAndFractionalInches) {
        return FeetAndFractionalInchesParser(&m_units, &m_format, &m_converter).format(q, locale);
    }
    if (shown == fractionalInches) {
        return FractionalInchesParser(&m_units, &m_format, &m_converter).format(q, locale);
    }
    return Parser(&m_units, &m_format, &m_converter).format(q, locale);
}

} // namespace zel::units::v1
