#pragma once

#include <QPixmap>

namespace zel::qt::detail {

/// The icon of an inner button that was given none: a yellow folder, 16 by 16 pixels.
QPixmap folderIcon();

} // namespace zel::qt::detail
