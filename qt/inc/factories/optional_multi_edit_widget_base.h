#pragma once

#include "platform/export.h"

#include <QWidget>

namespace zel::qt {

/// The base of widgets that edit an optional value and are made from a template: a signal cannot
/// stand in a template, so it stands here.
class ZEL_QT_EXPORT OptionalMultiEditWidgetBase : public QWidget
{
    Q_OBJECT
public:
    explicit OptionalMultiEditWidgetBase(QWidget* parent);
    ~OptionalMultiEditWidgetBase() override;

Q_SIGNALS:
    /// For the derived widget to emit when editing ended.
    void valueChanged();
};

} // namespace zel::qt
