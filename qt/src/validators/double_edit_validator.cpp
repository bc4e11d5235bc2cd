#include "qt/inc/validators/double_edit_validator.h"

#include "platform/smart_assert.h"
#include "qt/inc/validators/locale_for_flags.h"
#include "qt/src/validators/clamp.h"

namespace zel::qt {

DoubleEditValidator::DoubleEditValidator() = default;

DoubleEditValidator::DoubleEditValidator(double min, double max)
    : m_min(min)
    , m_max(max)
{}

DoubleEditValidator::DoubleEditValidator(int precision, double min, double max, bool emptyAsZero)
    : m_precision(precision)
    , m_min(min)
    , m_max(max)
    , m_emptyAsZero(emptyAsZero)
{
    ZEL_SMART_ASSERT(m_min < m_max, "m_min < m_max").value("m_min", m_min).value("m_max", m_max);
    ZEL_SMART_ASSERT(m_precision >= 0, "m_precision >= 0").value("m_precision", m_precision);
}

DoubleEditValidator::~DoubleEditValidator() = default;

void DoubleEditValidator::setRange(double min, double max)
{
    ZEL_SMART_ASSERT(min < max, "min < max").value("min", min).value("max", max);
    m_min = min;
    m_max = max;
}

void DoubleEditValidator::setMinimum(double min)
{
    m_min = min;
}

void DoubleEditValidator::setMaximum(double max)
{
    m_max = max;
}

void DoubleEditValidator::setPrecision(int precision)
{
    m_precision = precision;
}

void DoubleEditValidator::setEmptyValueAllowed(bool b)
{
    m_emptyValueAllowed = b;
    m_emptyAsZero = !b;
}

bool DoubleEditValidator::validateWhenFinished(const QString& text, boost::any& value,
                                               const std::bitset<32>& flags)
{
    // Not through the virtual table: a subclass may turn the number into another type.
    const bool accepted = DoubleEditValidator::validate(text, value, flags);
    if (accepted && !value.empty()) {
        auto& number = boost::any_cast<double&>(value);
        number = detail::clamped(number, m_min, m_max);
    }
    return accepted;
}

bool DoubleEditValidator::validate(const QString& text, boost::any& value,
                                   const std::bitset<32>& flags)
{
    if (m_emptyValueAllowed && text.isEmpty()) {
        value = boost::any();
        return true;
    }
    if (m_emptyAsZero && text.isEmpty()) {
        value = 0.0;
        return true;
    }
    bool ok = false;
    const double number = localeForFlags(flags).toDouble(text, &ok);
    value = ok ? number : 0.0;
    return ok;
}

QString DoubleEditValidator::reformat(const boost::any& value, const std::bitset<32>& flags)
{
    if (m_emptyValueAllowed && value.empty()) {
        return {};
    }
    const auto* number = boost::any_cast<double>(&value);
    ZEL_SMART_ASSERT(number != nullptr, "value.type() == typeid(double)")
        .value("value.type().name()", value.type().name());
    if (number == nullptr) {
        return {};
    }
    return localeForFlags(flags).toString(detail::clamped(*number, m_min, m_max), 'f', m_precision);
}

} // namespace zel::qt
