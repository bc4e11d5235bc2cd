#include "units/inc/format_provider.h"

#include "platform/smart_assert.h"
#include "units/src/definitions/unit_definitions.h"

#include <cstddef>
#include <stdexcept>

namespace zel::units::v1 {
namespace {

bool isPlainId(UnitId id)
{
    return id >= 0 && id <= 999;
}

[[noreturn]] void throwInvalid()
{
    throw std::invalid_argument("Invalid unit id.");
}

} // namespace

IFormatProvider::~IFormatProvider() = default;

UnitsetFormatProvider::UnitsetFormatProvider(int column)
    : m_column(column)
{}

const UnitFormat* UnitsetFormatProvider::format_for(UnitId id) const
{
    if (!m_overrides.empty()) {
        const auto found = m_overrides.find(id);
        if (found != m_overrides.end()) {
            return &found->second;
        }
    }
    // "dummy" is a unit set here, so the id 0 is shown in unit 1.
    const detail::UnitSet* set = detail::findUnitSet(id);
    if (set == nullptr) {
        return nullptr;
    }
    const auto index = static_cast<std::size_t>(m_column);
    const bool inside = index < set->defaults.size();
    ZEL_SMART_ASSERT(inside, "index < defaults_of_one_unit->size()");
    return inside ? &set->defaults[index] : nullptr;
}

UnitFormat& UnitsetFormatProvider::override_for(UnitId id)
{
    const UnitFormat* format = format_for(id);
    // try_emplace() leaves an override alone that is there already, which is then what `format`
    // points to.
    return m_overrides.try_emplace(id, format != nullptr ? *format : UnitFormat{}).first->second;
}

bool UnitsetFormatProvider::has_format(UnitId id) const
{
    return format_for(id) != nullptr || isPlainId(id);
}

UnitId UnitsetFormatProvider::get_unit(UnitId id) const
{
    if (const UnitFormat* format = format_for(id)) {
        return format->unit;
    }
    if (!isPlainId(id)) {
        throwInvalid();
    }
    return id;
}

void UnitsetFormatProvider::set_unit(UnitId id, UnitId unit)
{
    override_for(id).unit = unit;
}

int UnitsetFormatProvider::get_decimals(UnitId id) const
{
    if (const UnitFormat* format = format_for(id)) {
        return format->decimals;
    }
    const detail::UnitDefinition* unit = isPlainId(id) ? detail::findUnit(id) : nullptr;
    if (unit == nullptr) {
        throwInvalid();
    }
    return unit->format.decimals;
}

void UnitsetFormatProvider::set_decimals(UnitId id, int decimals)
{
    override_for(id).decimals = decimals;
}

int UnitsetFormatProvider::get_notation(UnitId id) const
{
    if (const UnitFormat* format = format_for(id)) {
        return format->notation;
    }
    if (!isPlainId(id)) {
        throwInvalid();
    }
    // Deliberately unlike get_decimals(): a plain id without a unit has a notation.
    const detail::UnitDefinition* unit = detail::findUnit(id);
    return unit != nullptr ? unit->format.notation : Notation::Fixed;
}

void UnitsetFormatProvider::set_notation(UnitId id, int notation)
{
    override_for(id).notation = notation;
}

boost::optional<std::string> UnitsetFormatProvider::get_label_override(UnitId id) const
{
    if (const UnitFormat* format = format_for(id)) {
        return format->label;
    }
    if (!isPlainId(id)) {
        throwInvalid();
    }
    return boost::none;
}

void UnitsetFormatProvider::set_label_override(UnitId id, const boost::optional<std::string>& label)
{
    override_for(id).label = label;
}

} // namespace zel::units::v1
