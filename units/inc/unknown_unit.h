#pragma once

#include "base/exception.h"
#include "platform/export.h"

namespace zel::units {

/// Thrown for a unit that was not understood; its text is that of the unit.
class ZEL_UNITS_EXPORT UnknownUnit : public Exception
{
public:
    using Exception::Exception;
    ~UnknownUnit() override;
};

} // namespace zel::units
