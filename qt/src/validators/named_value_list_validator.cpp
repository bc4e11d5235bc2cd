#include "qt/inc/validators/named_value_list_validator.h"

namespace zel::qt {

NamedValueListValidator::NamedValueListValidator(const NamedValueList& values)
    : m_values(values)
{}

// NOLINTNEXTLINE(cppcoreguidelines-rvalue-reference-param-not-moved): copied deliberately
NamedValueListValidator::NamedValueListValidator(NamedValueList&& values)
    : m_values(values)
{}

NamedValueListValidator::~NamedValueListValidator() = default;

void NamedValueListValidator::set_equal_to(bool (*equalTo)(const boost::any&, const boost::any&))
{
    m_equal_to = equalTo;
}

void NamedValueListValidator::enable_empty_value(const QString& name)
{
    m_emptyName = name;
}

bool NamedValueListValidator::validate(const QString& text, boost::any& value,
                                       const std::bitset<32>& /*flags*/)
{
    for (const auto& [name, entryValue] : m_values) {
        if (name == text) {
            value = entryValue;
            return true;
        }
    }
    if (m_emptyName && *m_emptyName == text) {
        value = boost::any();
        return true;
    }
    return false;
}

QString NamedValueListValidator::reformat(const boost::any& value, const std::bitset<32>& /*flags*/)
{
    for (const auto& [name, entryValue] : m_values) {
        if (m_equal_to(value, entryValue)) {
            return name;
        }
    }
    return m_emptyName && value.empty() ? *m_emptyName : QString();
}

} // namespace zel::qt
