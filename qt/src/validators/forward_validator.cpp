#include "qt/inc/validators/forward_validator.h"

#include <utility>

namespace zel::qt {

ForwardValidator::ForwardValidator() = default;

ForwardValidator::ForwardValidator(boost::shared_ptr<IValidator> validator)
    : m_validator(std::move(validator))
{}

ForwardValidator::~ForwardValidator() = default;

IValidator* ForwardValidator::getValidator() const
{
    return m_validator.get();
}

void ForwardValidator::setValidator(boost::shared_ptr<IValidator> validator)
{
    m_validator = std::move(validator);
}

bool ForwardValidator::validate(const QString& text, boost::any& value,
                                const std::bitset<32>& flags)
{
    return m_validator && m_validator->validate(text, value, flags);
}

bool ForwardValidator::validateWhenFinished(const QString& text, boost::any& value,
                                            const std::bitset<32>& flags)
{
    return m_validator && m_validator->validateWhenFinished(text, value, flags);
}

QString ForwardValidator::reformat(const boost::any& value, const std::bitset<32>& flags)
{
    return m_validator ? m_validator->reformat(value, flags) : QString();
}

QString ForwardValidator::reformatForDisplay(const boost::any& value, const std::bitset<32>& flags)
{
    return m_validator ? m_validator->reformatForDisplay(value, flags) : QString();
}

ConversionValidator::ConversionValidator() = default;

ConversionValidator::ConversionValidator(boost::shared_ptr<IValidator> validator)
    : ForwardValidator(std::move(validator))
{}

ConversionValidator::~ConversionValidator() = default;

void ConversionValidator::setConversionFn(std::function<void(boost::any&)> toInner,
                                          std::function<void(boost::any&)> fromInner)
{
    m_toInner = std::move(toInner);
    m_fromInner = std::move(fromInner);
}

bool ConversionValidator::validate(const QString& text, boost::any& value,
                                   const std::bitset<32>& flags)
{
    return converted(ForwardValidator::validate(text, value, flags), value);
}

bool ConversionValidator::validateWhenFinished(const QString& text, boost::any& value,
                                               const std::bitset<32>& flags)
{
    return converted(ForwardValidator::validateWhenFinished(text, value, flags), value);
}

QString ConversionValidator::reformat(const boost::any& value, const std::bitset<32>& flags)
{
    if (!m_toInner) {
        return ForwardValidator::reformat(value, flags);
    }
    boost::any inner = value;
    m_toInner(inner);
    return ForwardValidator::reformat(inner, flags);
}

QString ConversionValidator::reformatForDisplay(const boost::any& value,
                                                const std::bitset<32>& flags)
{
    if (!m_toInner) {
        return ForwardValidator::reformatForDisplay(value, flags);
    }
    boost::any inner = value;
    m_toInner(inner);
    return ForwardValidator::reformatForDisplay(inner, flags);
}

bool ConversionValidator::converted(bool accepted, boost::any& value) const
{
    if (accepted && m_fromInner) {
        m_fromInner(value);
    }
    return accepted;
}

} // namespace zel::qt
