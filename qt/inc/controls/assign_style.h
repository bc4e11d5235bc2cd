#pragma once

#include "platform/export.h"

#include <string>

class QWidget;

namespace zel::qt {

/// Gives the widget the style sheet in a file. File name and content are UTF-8; a file that cannot
/// be read counts as empty. A null widget is ignored.
ZEL_QT_EXPORT void assign_style(QWidget* widget, const std::string& file);

} // namespace zel::qt
