#include "examples/frame_editor/window_picture.h"

#include <QApplication>
#include <QPainter>
#include <QWidget>

namespace frame_editor {

QImage windowPicture(QWidget& window)
{
    QImage picture = window.grab().toImage();
    QPainter painter(&picture);
    const QWidgetList windows = QApplication::topLevelWidgets();
    for (QWidget* popup : windows) {
        const QWidget* owner = popup->parentWidget();
        if (popup != &window && popup->isVisible() && !popup->size().isEmpty() && owner &&
            owner->window() == &window) {
            painter.drawPixmap(popup->pos() - window.pos(), popup->grab());
        }
    }
    return picture;
}

} // namespace frame_editor
