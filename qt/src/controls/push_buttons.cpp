#include "qt/inc/controls/push_buttons.h"

#include "platform/widgets.h"

#include <QIcon>
#include <QPixmap>

namespace zel::qt {

QPushButton* createPushButtonWithIcon(QWidget* parent, const QIcon& icon, const char* name)
{
    auto* button = new ZEL_QT_PushButton(parent, name);
    const int side = button->sizeHint().height();
    button->setFixedHeight(side);
    button->setFixedWidth(side);
    button->setIcon(icon);
    button->setAutoDefault(false);
    return button;
}

QPushButton* createPushButtonWithIcon(QWidget* parent, const QPixmap& pixmap, const char* name)
{
    return createPushButtonWithIcon(parent, QIcon(pixmap), name);
}

QPushButton* createPushButtonWithIconAndText(QWidget* parent, const QIcon& icon,
                                             const QString& text, const char* name)
{
    if (text.isEmpty()) {
        return createPushButtonWithIcon(parent, icon, name);
    }
    auto* button = new ZEL_QT_PushButton(icon, text, parent, name);
    button->setAutoDefault(false);
    return button;
}

QPushButton* createPushButtonWithIconAndText(QWidget* parent, const QPixmap& pixmap,
                                             const QString& text, const char* name)
{
    return createPushButtonWithIconAndText(parent, QIcon(pixmap), text, name);
}

} // namespace zel::qt
