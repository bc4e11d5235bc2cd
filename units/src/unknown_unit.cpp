#include "units/inc/unknown_unit.h"

namespace zel::units {

UnknownUnit::~UnknownUnit() = default;

} // namespace zel::units
