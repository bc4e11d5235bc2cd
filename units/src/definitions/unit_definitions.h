#pragma once

#include "units/inc/format_provider.h"
#include "units/inc/unit_id.h"
#include "units/src/unitset/unit_set_table.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace zel::units::v1::detail {

/// A plain unit at run time.
struct UnitDefinition
{
    UnitId id;
    int is_base;
    std::uint32_t dimension; ///< without the bit of the base unit
    UnitFormat format;       ///< the unit as it is shown where nothing else is set
    double factor;
    std::string label;                ///< UTF-8
    std::vector<std::string> aliases; ///< UTF-8
};

/// A unit set at run time.
struct UnitSet
{
    UnitId id;
    std::array<UnitFormat, columnCount> defaults; ///< what each column shows
    std::vector<UnitId> allowed;
};

/// The records in table order, built on first use.
const std::vector<UnitDefinition>& unitDefinitions();
const std::vector<UnitSet>& unitSets();

/// The first record of the id, or null.
const UnitDefinition* findUnit(UnitId id);
const UnitSet* findUnitSet(UnitId id);

} // namespace zel::units::v1::detail
