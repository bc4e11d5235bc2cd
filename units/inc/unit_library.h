#pragma once

#include "platform/export.h"
#include "units/inc/context.h"

#include <functional>

namespace zel::units::v1 {

/// The context of the host's current settings. Editors copy it. Column 0 until the host sets one.
ZEL_UNITS_EXPORT const Context& get_active_input_context();

/// Makes `context` the active one; existing copies of the old one stay as they are.
ZEL_UNITS_EXPORT void set_active_input_context(Context context);

/// What a host with a unit library of its own puts in place of zel_get_unitd(),
/// zel_get_unit_decimals() and zel_get_unit_label(). An empty function stands for the default.
struct UnitLibrary
{
    std::function<double(int, int)> unitd;
    std::function<int(int, int)> decimals;
    std::function<int(int, int, char*, int)> label;
};

/// Replaces the three functions and returns the previous ones, which are empty where the default
/// was in force. One of the three may call this while it runs.
ZEL_UNITS_EXPORT UnitLibrary set_unit_library(UnitLibrary library);

} // namespace zel::units::v1

// By default these three answer from the active input context: what is shown is the unit that its
// format provider gives for `unit`, and values are stored in base units.

/// The size of the shown unit: in stored units with mode 1, in metres with mode 0. 1.0 for a unit
/// that is not known.
ZEL_UNITS_EXPORT double zel_get_unitd(int unit, int mode);

/// The decimals with which `unit` is shown; negative for a unit that is not known.
ZEL_UNITS_EXPORT int zel_get_unit_decimals(int unit, int mode);

/// Writes the label of the shown unit as UTF-8 with a terminating zero into `buffer`, which has
/// `size` bytes, and returns a non-zero value. A label that does not fit, or that of a unit that
/// is not known, is not written and gives 0.
ZEL_UNITS_EXPORT int zel_get_unit_label(int unit, int mode, char* buffer, int size);
