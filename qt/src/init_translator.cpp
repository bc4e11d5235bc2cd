#include "platform/widgets.h"

#include <QtGlobal>

// In no namespace, since the macro declares a function where it stands.
static ZEL_QT_InitTranslator registerTranslations()
{
    // A program that loads the library while it runs has its application object already: the
    // translations are then loaded at once and have to be there.
    Q_INIT_RESOURCE(zel_qt2_dll_translations);
    return ZEL_QT_InitTranslator("zel_qt2_dll");
}

namespace {

// Registers the library's translations when the library is loaded.
const ZEL_QT_InitTranslator translator = registerTranslations();

} // namespace
