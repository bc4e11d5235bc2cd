#pragma once

#include "qt/inc/validators/i_validator.h"

#include <QString>

#include <string>

namespace zel::test {

/// What a validator answered, in a form that a comparison prints in full.
struct Validation
{
    bool accepted;
    boost::any value;

    /// "true 2.5", "false untouched"
    QString told() const;
};

/// A value that no validator writes, to see whether `value` was left alone.
struct Untouched
{};

/// A value as its type and its content: "double 2.5", "string 'ab'", "empty", "untouched".
inline QString told(const boost::any& value)
{
    if (value.empty()) {
        return QStringLiteral("empty");
    }
    if (boost::any_cast<Untouched>(&value) != nullptr) {
        return QStringLiteral("untouched");
    }
    if (const auto* number = boost::any_cast<double>(&value)) {
        return QStringLiteral("double ") + QString::number(*number, 'g', 17);
    }
    if (const auto* number = boost::any_cast<int>(&value)) {
        return QStringLiteral("int ") + QString::number(*number);
    }
    if (const auto* number = boost::any_cast<unsigned int>(&value)) {
        return QStringLiteral("unsigned int ") + QString::number(*number);
    }
    if (const auto* number = boost::any_cast<unsigned short>(&value)) {
        return QStringLiteral("unsigned short ") + QString::number(*number);
    }
    if (const auto* flag = boost::any_cast<bool>(&value)) {
        return *flag ? QStringLiteral("bool true") : QStringLiteral("bool false");
    }
    if (const auto* text = boost::any_cast<std::string>(&value)) {
        return QStringLiteral("string '%1'").arg(QString::fromStdString(*text));
    }
    if (const auto* text = boost::any_cast<std::wstring>(&value)) {
        return QStringLiteral("wstring '%1'").arg(QString::fromStdWString(*text));
    }
    return QString::fromLatin1(value.type().name());
}

inline QString Validation::told() const
{
    return (accepted ? QStringLiteral("true ") : QStringLiteral("false ")) + zel::test::told(value);
}

/// Asks validate() with a value that shows whether it was written.
inline Validation validated(qt::IValidator& validator, const QString& text,
                            const std::bitset<32>& flags = {})
{
    Validation answer{false, Untouched()};
    answer.accepted = validator.validate(text, answer.value, flags);
    return answer;
}

/// The same for validateWhenFinished().
inline Validation finished(qt::IValidator& validator, const QString& text,
                           const std::bitset<32>& flags = {})
{
    Validation answer{false, Untouched()};
    answer.accepted = validator.validateWhenFinished(text, answer.value, flags);
    return answer;
}

} // namespace zel::test
