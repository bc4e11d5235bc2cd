#pragma once

#include "qt/inc/validators/i_validator.h"

#include <QLocale>
#include <QStringList>

#include <optional>

namespace zel::test {

/// A validator of numbers with three decimals, in the C locale, that notes down what it is asked.
class NumberValidator : public qt::IValidator
{
public:
    enum EmptyText
    {
        EmptyRefused,
        EmptyAllowed, ///< stands for no value
        EmptyAsZero
    };

    explicit NumberValidator(EmptyText emptyText = EmptyRefused)
        : m_emptyText(emptyText)
    {}
    ~NumberValidator() override
    {
        if (destroyed != nullptr) {
            *destroyed = true;
        }
    }

    bool validate(const QString& text, boost::any& value, const std::bitset<32>& flags) override
    {
        note(QStringLiteral("validate ") + text, flags);
        unusedValueGiven = unusedValueGiven && value.empty();
        return parse(text, value);
    }

    bool validateWhenFinished(const QString& text, boost::any& value,
                              const std::bitset<32>& flags) override
    {
        note(QStringLiteral("finish ") + text, flags);
        unusedValueGiven = unusedValueGiven && value.empty();
        if (!parse(text, value)) {
            return false;
        }
        if (maximum && !value.empty() && boost::any_cast<double>(value) > *maximum) {
            value = *maximum;
        }
        return true;
    }

    QString reformat(const boost::any& value, const std::bitset<32>& flags) override
    {
        const QString text =
            value.empty() ? QString() : QString::number(boost::any_cast<double>(value), 'f', 3);
        note(QStringLiteral("reformat ") + text, flags);
        return text;
    }

    /// The calls since the last one, in order.
    QStringList takeCalls()
    {
        QStringList taken;
        taken.swap(m_calls);
        return taken;
    }

    std::optional<double> maximum; ///< enforced at the end of editing only
    bool anyFlagSet = false;       ///< a call had a flag set
    bool unusedValueGiven = true;  ///< each call got an empty value to write to
    bool* destroyed = nullptr;     ///< set by the destructor

private:
    void note(const QString& call, const std::bitset<32>& flags)
    {
        m_calls.append(call);
        anyFlagSet = anyFlagSet || flags.any();
    }

    bool parse(const QString& text, boost::any& value) const
    {
        if (text.isEmpty()) {
            if (m_emptyText == EmptyAsZero) {
                value = 0.0;
            }
            return m_emptyText != EmptyRefused;
        }
        bool ok = false;
        value = QLocale::c().toDouble(text, &ok);
        return ok;
    }

    EmptyText m_emptyText;
    QStringList m_calls;
};

} // namespace zel::test
