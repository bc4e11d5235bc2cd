#pragma once

#include "platform/export.h"

#include <QString>

class QIcon;
class QPixmap;
class QPushButton;
class QWidget;

namespace zel::qt {

/// A square push button with an icon and no text, as high as the style makes a button without
/// text. It does not become the default button of a dialog by itself. The parent owns it.
/// @param name object name, null for none
ZEL_QT_EXPORT QPushButton* createPushButtonWithIcon(QWidget* parent, const QIcon& icon,
                                                    const char* name);
ZEL_QT_EXPORT QPushButton* createPushButtonWithIcon(QWidget* parent, const QPixmap& pixmap,
                                                    const char* name);

/// A push button with an icon and a text; with an empty text the button of
/// createPushButtonWithIcon(). The parent owns it.
ZEL_QT_EXPORT QPushButton* createPushButtonWithIconAndText(QWidget* parent, const QIcon& icon,
                                                           const QString& text, const char* name);
ZEL_QT_EXPORT QPushButton* createPushButtonWithIconAndText(QWidget* parent, const QPixmap& pixmap,
                                                           const QString& text, const char* name);

} // namespace zel::qt
