#pragma once

#include "platform/export.h"

#include <QString>

namespace zel::qt {

/// The text of a field whose values differ, "*VARIES*" in the application's language.
ZEL_QT_EXPORT QString getVariesString();

} // namespace zel::qt
