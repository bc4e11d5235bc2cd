#pragma once

#include "units/inc/unit_id.h"

#include <cstdint>
#include <string>
#include <vector>

namespace zel::units::v1::detail {

struct UnitSetRow;

/// A plain unit at run time.
struct UnitDefinition
{
    UnitId id;
    int is_base;
    std::uint32_t dimension; ///< without the bit of the base unit
    int format;              ///< 100 * notation + decimals
    double factor;
    std::string label;                ///< UTF-8
    std::vector<std::string> aliases; ///< UTF-8
};

/// A unit set at run time.
struct UnitSet
{
    const UnitSetRow* row;
    std::vector<UnitId> allowed;
};

/// The records in table order, built on first use.
const std::vector<UnitDefinition>& unitDefinitions();
const std::vector<UnitSet>& unitSets();

/// The first record of the id, or null.
const UnitDefinition* findUnit(UnitId id);
const UnitSet* findUnitSet(UnitId id);

} // namespace zel::units::v1::detail
