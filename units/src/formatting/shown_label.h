#pragma once

#include "units/inc/format_provider.h"
#include "units/inc/unit_provider.h"

#include <string>

namespace zel::units::v1::detail {

/// The label, as UTF-8, of a quantity held against `id` and shown in the unit `shown`: its
/// override if that is empty or an alias of the unit, otherwise the unit's own.
std::string shownLabel(const IUnitProvider& units, const IFormatProvider& format, UnitId id,
                       UnitId shown);

} // namespace zel::units::v1::detail
