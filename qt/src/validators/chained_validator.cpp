#include "qt/inc/validators/chained_validator.h"

#include <algorithm>
#include <utility>

namespace zel::qt {

ChainedValidator::ChainedValidator() = default;

ChainedValidator::ChainedValidator(std::deque<std::unique_ptr<IValidator>> validators)
    : m_validators(std::move(validators))
{}

ChainedValidator::~ChainedValidator() = default;

bool ChainedValidator::validate(const QString& text, boost::any& value,
                                const std::bitset<32>& flags)
{
    return std::any_of(m_validators.begin(), m_validators.end(), [&](const auto& validator) {
        return validator->validate(text, value, flags);
    });
}

QString ChainedValidator::reformat(const boost::any& value, const std::bitset<32>& flags)
{
    for (const auto& validator : m_validators) {
        QString text = validator->reformat(value, flags);
        if (!text.isEmpty()) {
            return text;
        }
    }
    return {};
}

} // namespace zel::qt
