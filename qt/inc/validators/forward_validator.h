#pragma once

#include "qt/inc/validators/i_validator.h"

namespace zel::qt {

/// Hands every question on to another validator, which can be exchanged at any time. Without one
/// it refuses every text, leaves the value alone and formats every value as an empty text.
///
/// Its own postfix is not used: reformatForDisplay() is that of the inner validator. Its edit hint
/// is its own, not that of the inner validator.
class ZEL_QT_EXPORT ForwardValidator : public IValidator
{
public:
    ForwardValidator();
    explicit ForwardValidator(boost::shared_ptr<IValidator> validator);
    ~ForwardValidator() override;

    /// The inner validator or null; still owned by this object.
    IValidator* getValidator() const;
    /// Replaces the inner validator; null is allowed.
    void setValidator(boost::shared_ptr<IValidator> validator);

    bool validate(const QString& text, boost::any& value, const std::bitset<32>& flags) override;
    bool validateWhenFinished(const QString& text, boost::any& value,
                              const std::bitset<32>& flags) override;
    QString reformat(const boost::any& value, const std::bitset<32>& flags) override;
    QString reformatForDisplay(const boost::any& value, const std::bitset<32>& flags) override;

private:
    boost::shared_ptr<IValidator> m_validator;
};

/// A ForwardValidator that changes the value on its way in and out, for example between the unit
/// that is stored and the one that is shown.
class ZEL_QT_EXPORT ConversionValidator : public ForwardValidator
{
public:
    ConversionValidator();
    explicit ConversionValidator(boost::shared_ptr<IValidator> validator);
    ~ConversionValidator() override;

    /// Replaces both functions; an empty one switches its direction off.
    /// @param toInner   applied to a copy of the value before the inner validator formats it
    /// @param fromInner applied to the value after the inner validator accepted a text, never
    ///                  after a refusal
    void setConversionFn(std::function<void(boost::any&)> toInner,
                         std::function<void(boost::any&)> fromInner);

    bool validate(const QString& text, boost::any& value, const std::bitset<32>& flags) override;
    bool validateWhenFinished(const QString& text, boost::any& value,
                              const std::bitset<32>& flags) override;
    QString reformat(const boost::any& value, const std::bitset<32>& flags) override;
    QString reformatForDisplay(const boost::any& value, const std::bitset<32>& flags) override;

private:
    bool converted(bool accepted, boost::any& value) const;

    std::function<void(boost::any&)> m_toInner;
    std::function<void(boost::any&)> m_fromInner;
};

} // namespace zel::qt
