#pragma once

#include "platform/export.h"

#include <QIcon>

#include <boost/any.hpp>

#include <functional>

class QWidget;

namespace zel::qt {

/// Describes a button beside a field: its icon and what a click does with the field's value.
class ZEL_QT_EXPORT ButtonConfiguration
{
public:
    ButtonConfiguration();

    /// Gets a widget, which may be null, and the value, which it may change; empty by default.
    const std::function<bool(QWidget*, boost::any&)>& getBtnHandler() const;
    void setBtnHandler(std::function<bool(QWidget*, boost::any&)> handler);
    /// The same for a handler that has no use for the widget.
    void setBtnHandler(std::function<bool(boost::any&)> handler);

    const QIcon& getIcon() const;
    void setIcon(QIcon icon);

private:
    std::function<bool(QWidget*, boost::any&)> m_btnHandler;
    QIcon m_icon;
};

} // namespace zel::qt
