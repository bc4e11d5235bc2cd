#include "qt/inc/validators/i_validator.h"

#include <utility>

namespace zel::qt {

IValidator::IValidator() = default;
IValidator::~IValidator() = default;

bool IValidator::validateWhenFinished(const QString& text, boost::any& value,
                                      const std::bitset<32>& flags)
{
    return validate(text, value, flags);
}

QString IValidator::reformatForDisplay(const boost::any& value, const std::bitset<32>& flags)
{
    const QString text = reformat(value, flags);
    return m_postfix.isEmpty() ? text : text + QLatin1Char(' ') + m_postfix;
}

QString IValidator::getEditHint(const QString& text) const
{
    return m_editHintFn ? m_editHintFn(text) : QString();
}

void IValidator::setEditHintFunction(std::function<QString(const QString&)> fn)
{
    m_editHintFn = std::move(fn);
}

void IValidator::setPostfix(const QString& postfix)
{
    m_postfix = postfix;
}

} // namespace zel::qt
