#pragma once

#include "qt/inc/validators/i_validator.h"

#include <QStringList>

namespace zel::test {

/// Whole numbers as int, written "12" and shown with the sign "#" before them where the locale of
/// the application is asked for. An empty text is no value. It writes down how it is asked.
struct WholeNumberValidator : zel::qt::IValidator
{
    bool validate(const QString& text, boost::any& value, const std::bitset<32>& flags) override
    {
        calls << QStringLiteral("validate %1 %2").arg(text).arg(flags.to_ulong());
        value = -1; // what a refusal leaves behind is nobody's to use
        if (text.isEmpty()) {
            value = boost::any();
            return true;
        }
        bool ok = false;
        const int number = text.toInt(&ok);
        if (ok) {
            value = number;
        }
        return ok;
    }

    bool validateWhenFinished(const QString& text, boost::any& value,
                              const std::bitset<32>& flags) override
    {
        calls << QStringLiteral("validateWhenFinished");
        return validate(text, value, flags);
    }

    QString reformat(const boost::any& value, const std::bitset<32>& flags) override
    {
        calls << QStringLiteral("reformat %1").arg(flags.to_ulong());
        if (value.empty()) {
            return {};
        }
        return (flags.test(0) ? QStringLiteral("#%1") : QStringLiteral("%1"))
            .arg(boost::any_cast<int>(value));
    }

    QStringList calls;
};

} // namespace zel::test
