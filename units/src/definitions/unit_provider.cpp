#include "units/inc/unit_provider.h"

#include "units/src/definitions/unit_definitions.h"

#include <stdexcept>

namespace zel::units::v1 {
namespace {

using detail::findUnit;
using detail::findUnitSet;
using detail::UnitDefinition;
using detail::UnitSet;

[[noreturn]] void throwUnknown()
{
    throw std::invalid_argument("unit_id");
}

const UnitDefinition& unitOrThrow(UnitId id)
{
    const UnitDefinition* unit = findUnit(id);
    if (unit == nullptr) {
        throwUnknown();
    }
    return *unit;
}

const UnitSet& setOrThrow(UnitId id)
{
    const UnitSet* set = findUnitSet(id);
    if (set == nullptr) {
        throwUnknown();
    }
    return *set;
}

std::vector<UnitId> collectIds()
{
    std::vector<UnitId> ids;
    ids.reserve(detail::unitDefinitions().size() + detail::unitSets().size());
    for (const UnitDefinition& unit : detail::unitDefinitions()) {
        ids.push_back(unit.id);
    }
    for (const UnitSet& set : detail::unitSets()) {
        ids.push_back(set.id);
    }
    return ids;
}

} // namespace

IUnitProvider::~IUnitProvider() = default;

bool ZelUnitProvider::has_unit(UnitId id) const
{
    return findUnit(id) != nullptr || findUnitSet(id) != nullptr;
}

std::vector<UnitId> ZelUnitProvider::get_unit_ids() const
{
    static const std::vector<UnitId> ids = collectIds();
    return ids;
}

std::uint32_t ZelUnitProvider::get_dimension(UnitId id) const
{
    if (const UnitDefinition* unit = findUnit(id)) {
        return unit->dimension;
    }
    // The only set that allows nothing shares its id with a plain unit, which was found above.
    return unitOrThrow(setOrThrow(id).allowed.front()).dimension;
}

double ZelUnitProvider::get_factor(UnitId id) const
{
    if (const UnitDefinition* unit = findUnit(id)) {
        return unit->factor;
    }
    setOrThrow(id);
    return 1.0;
}

const std::string& ZelUnitProvider::get_label(UnitId id) const
{
    static const std::string none;
    if (const UnitDefinition* unit = findUnit(id)) {
        return unit->label;
    }
    setOrThrow(id);
    return none;
}

const std::vector<std::string>& ZelUnitProvider::get_aliases(UnitId id) const
{
    return unitOrThrow(id).aliases;
}

const std::vector<UnitId>& ZelUnitProvider::get_set_units(UnitId id) const
{
    static const std::vector<UnitId> none;
    if (findUnit(id) != nullptr) {
        return none;
    }
    return setOrThrow(id).allowed;
}

} // namespace zel::units::v1
