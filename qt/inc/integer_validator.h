#pragma once

#include "platform/smart_assert.h"
#include "qt/inc/validators/i_validator.h"

#include <type_traits>

namespace zel::qt {

/// An integer of the type T in base 10, without a locale. Its value is a boost::any that holds a
/// T, or an empty one where an empty text is accepted.
///
/// validate() tests no range and cuts a number to the width of T: "65536" is 0 and "-1" is 65535
/// for an `unsigned short`. The end of editing and reformat() move a number to the nearest bound.
///
/// Instantiated for `unsigned short`, `int` and `unsigned int`.
template <class T>
struct ZEL_QT_EXPORT IntegerValidator : public IValidator
{
    using value_type = T;

    /// Asserts "minimum <= maximum", as "min <= max"; bounds in the wrong order stay as given.
    IntegerValidator(T minimum, T maximum, bool emptyAsZero)
        : min(minimum)
        , max(maximum)
        , m_emptyAsZero(emptyAsZero)
        , m_emptyValueAllowed(false)
    {
        ZEL_SMART_ASSERT_AT(min <= max, "min <= max", "qt/inc/integer_validator.h");
    }

    /// On a refusal `value` is 0. An empty text that is accepted makes it empty, never 0.
    bool validate(const QString& text, boost::any& value, const std::bitset<32>& /*flags*/) override
    {
        if (text.isEmpty() && (m_emptyValueAllowed || m_emptyAsZero)) {
            value = boost::any();
            return true;
        }
        bool ok = false;
        const qlonglong number = text.toLongLong(&ok, 10);
        value = ok ? static_cast<T>(number) : T(0);
        return ok;
    }

    /// As validate(), and a number outside the range becomes the nearest bound.
    bool validateWhenFinished(const QString& text, boost::any& value,
                              const std::bitset<32>& flags) override
    {
        const bool accepted = IntegerValidator::validate(text, value, flags);
        if (accepted && !value.empty()) {
            auto& number = boost::any_cast<T&>(value);
            if (number < min) {
                number = min;
            } else if (number > max) {
                number = max;
            }
        }
        return accepted;
    }

    /// The number within the range; an empty value is an empty text or "0", by the two flags.
    /// A value that holds no T asserts "value.type() == typeid(value_type)" and gives an empty
    /// text.
    // Not inlined: with a value of another type in plain sight GCC 12 takes the null pointer that
    // is tested below for an array of no elements, and warns in the host's code.
    Q_NEVER_INLINE QString reformat(const boost::any& value,
                                    const std::bitset<32>& /*flags*/) override
    {
        if (m_emptyValueAllowed && value.empty()) {
            return {};
        }
        if (m_emptyAsZero && value.empty()) {
            return toText(T(0));
        }
        const T* number = boost::any_cast<T>(&value);
        ZEL_SMART_ASSERT_AT(number != nullptr, "value.type() == typeid(value_type)",
                            "qt/inc/integer_validator.h");
        if (number == nullptr) {
            return {};
        }
        // Unlike at the end of editing the lower bound is applied last.
        const T limited = *number > max ? max : *number;
        return toText(limited < min ? min : limited);
    }

    T min;                    ///< lower bound, included
    T max;                    ///< upper bound, included
    bool m_emptyAsZero;       ///< an empty text is accepted; no value is shown as "0"
    bool m_emptyValueAllowed; ///< an empty text is accepted; no value is shown as an empty text

private:
    static QString toText(T number)
    {
        using Widened = std::conditional_t<sizeof(T) < sizeof(int), int, T>;
        return QString::number(Widened(number), 10);
    }
};

extern template struct IntegerValidator<unsigned short>;
extern template struct IntegerValidator<int>;
extern template struct IntegerValidator<unsigned int>;

} // namespace zel::qt
