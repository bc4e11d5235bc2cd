#include "qt/inc/controls/button_configuration.h"

#include <utility>

namespace zel::qt {

ButtonConfiguration::ButtonConfiguration() = default;

const std::function<bool(QWidget*, boost::any&)>& ButtonConfiguration::getBtnHandler() const
{
    return m_btnHandler;
}

void ButtonConfiguration::setBtnHandler(std::function<bool(QWidget*, boost::any&)> handler)
{
    m_btnHandler = std::move(handler);
}

void ButtonConfiguration::setBtnHandler(std::function<bool(boost::any&)> handler)
{
    m_btnHandler = [handler = std::move(handler)](QWidget*, boost::any& value) {
        return handler(value);
    };
}

const QIcon& ButtonConfiguration::getIcon() const
{
    return m_icon;
}

void ButtonConfiguration::setIcon(QIcon icon)
{
    m_icon = std::move(icon);
}

} // namespace zel::qt
