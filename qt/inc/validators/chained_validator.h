#pragma once

#include "qt/inc/validators/i_validator.h"

#include <deque>
#include <memory>

namespace zel::qt {

/// Asks several validators in turn: the first that accepts a text gives the value, and the first
/// that gives a non-empty text formats it. An empty chain refuses every text and formats every
/// value as an empty text.
///
/// At the end of editing the members' validate() is asked, not their validateWhenFinished(): a
/// range that a member enforces only there is not enforced inside a chain. The postfix and the
/// edit hint are those of the chain.
class ZEL_QT_EXPORT ChainedValidator : public IValidator
{
public:
    ChainedValidator();
    /// Takes the members over, in the order in which they are asked. None may be null.
    explicit ChainedValidator(std::deque<std::unique_ptr<IValidator>> validators);
    ~ChainedValidator() override;

    bool validate(const QString& text, boost::any& value, const std::bitset<32>& flags) override;
    QString reformat(const boost::any& value, const std::bitset<32>& flags) override;

private:
    std::deque<std::unique_ptr<IValidator>> m_validators;
};

} // namespace zel::qt
