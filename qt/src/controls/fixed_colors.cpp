#include "qt/src/controls/fixed_colors.h"

#include <QPalette>
#include <QWidget>

namespace zel::qt::detail {
namespace {

bool isDark(const QColor& color)
{
    // As the eye weighs it: a full yellow is light, a full blue dark.
    return qGray(color.rgb()) < 128;
}

} // namespace

void writeInBlack(QWidget& widget)
{
    if (isDark(widget.palette().color(QPalette::Text))) {
        return; // as the palette of the user has it
    }
    QPalette palette = widget.palette();
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(role, Qt::black);
    }
    // For a host that takes the sheet off again: black stays on white.
    palette.setColor(QPalette::Base, Qt::white);
    widget.setPalette(palette);
}

void writeOnWhite(QWidget& edit)
{
    if (!isDark(edit.palette().color(QPalette::Base))) {
        return;
    }
    QPalette palette = edit.palette();
    palette.setColor(QPalette::Base, Qt::white);
    edit.setPalette(palette);
}

QColor textColorOn(const QColor& background)
{
    return isDark(background) ? Qt::white : Qt::black;
}

} // namespace zel::qt::detail
