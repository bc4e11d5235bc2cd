#pragma once

#include <QImage>

class QWidget;

namespace frame_editor {

/// A picture of a window together with the popups that stand over it.
QImage windowPicture(QWidget& window);

} // namespace frame_editor
