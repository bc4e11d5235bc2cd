#include "platform/widgets.h"

namespace {

// Registers the library's translations when the library is loaded.
const ZEL_QT_InitTranslator translator("zel_qt2_dll");

} // namespace
