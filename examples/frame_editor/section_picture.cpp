#include "examples/frame_editor/section_picture.h"

#include <QPainter>

#include <algorithm>

namespace frame_editor {

QPixmap sectionPicture(const Section& section, int size, double extent)
{
    QPixmap picture(size, size);
    picture.fill(Qt::transparent);
    if (extent <= 0.0) {
        return picture;
    }
    const double scale = (size - 2) / extent;
    const double depth = section.depth * scale;
    const double width = section.width * scale;
    // Thinner than a pixel a flange would fade away.
    const double flange = std::max(1.5, section.flangeThickness * scale);
    const double web = std::max(1.5, section.webThickness * scale);
    const QPointF middle(size / 2.0, size / 2.0);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(70, 90, 120));
    painter.drawRect(QRectF(middle.x() - width / 2, middle.y() - depth / 2, width, flange));
    painter.drawRect(
        QRectF(middle.x() - width / 2, middle.y() + depth / 2 - flange, width, flange));
    painter.drawRect(QRectF(middle.x() - web / 2, middle.y() - depth / 2, web, depth));
    return picture;
}

} // namespace frame_editor
