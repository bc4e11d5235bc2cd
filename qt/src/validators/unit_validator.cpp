#include "qt/inc/validators/unit_validator.h"

#include "platform/smart_assert.h"
#include "qt/inc/validators/locale_for_flags.h"
#include "qt/src/validators/clamp.h"

#include <utility>

namespace zel::qt {

using Quantity = units::v1::IConverter::quantity;

UnitValidator::UnitValidator(units::v1::Context context)
    : m_context(std::move(context))
{}

UnitValidator::UnitValidator(units::v1::Context context, units::UnitId unit_id)
    : m_context(std::move(context))
    , m_unit_id(unit_id)
{}

UnitValidator::~UnitValidator() = default;

void UnitValidator::set_unit_id(units::UnitId unit_id)
{
    m_unit_id = unit_id;
}

units::UnitId UnitValidator::get_unit_id() const
{
    return m_unit_id;
}

void UnitValidator::set_minimum(const double& minimum)
{
    m_min = minimum;
}

void UnitValidator::set_maximum(const double& maximum)
{
    m_max = maximum;
}

void UnitValidator::setEmptyValueAllowed(bool b)
{
    m_emptyValueAllowed = b;
    m_emptyAsZero = !b;
}

bool UnitValidator::validate(const QString& text, boost::any& value, const std::bitset<32>& flags)
{
    if (m_emptyValueAllowed && text.isEmpty()) {
        value = boost::any();
        return true;
    }
    if (m_emptyAsZero && text.isEmpty()) {
        value = Quantity{m_unit_id, 0.0};
        return true;
    }
    const boost::optional<Quantity> quantity =
        m_context.parse(text.toStdWString(), m_unit_id, stdLocaleForFlags(flags));
    value = quantity.value_or(Quantity{m_unit_id, 0.0});
    return quantity.has_value();
}

bool UnitValidator::validateWhenFinished(const QString& text, boost::any& value,
                                         const std::bitset<32>& flags)
{
    // Not through the virtual table: a subclass may turn the quantity into another type.
    const bool accepted = UnitValidator::validate(text, value, flags);
    if (accepted && !value.empty()) {
        auto& quantity = boost::any_cast<Quantity&>(value);
        quantity.value = detail::clamped(quantity.value, m_min, m_max);
    }
    return accepted;
}

QString UnitValidator::reformat(const boost::any& value, const std::bitset<32>& flags)
{
    if (m_emptyValueAllowed && value.empty()) {
        return {};
    }
    const auto* quantity = boost::any_cast<Quantity>(&value);
    ZEL_SMART_ASSERT(quantity != nullptr, "value.type() == typeid(units::IConverter::quantity)");
    if (quantity == nullptr) {
        return {};
    }
    Quantity limited = *quantity;
    limited.value = detail::clamped(limited.value, m_min, m_max);
    return QString::fromStdWString(m_context.format(limited, stdLocaleForFlags(flags)));
}

} // namespace zel::qt
