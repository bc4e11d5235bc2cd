#include "qt/inc/controls/multi_edit_value.h"

#include "platform/smart_assert.h"

#include <stdexcept>

namespace zel::qt {

MultiEditValue::MultiEditValue(bool (*equalFn)(const boost::any&, const boost::any&))
    : m_equalFn(equalFn)
{
    ZEL_SMART_ASSERT(m_equalFn != nullptr, "fn");
    if (m_equalFn == nullptr) {
        throw std::invalid_argument("fn");
    }
}

MultiEditValue::~MultiEditValue() = default;

void MultiEditValue::reset()
{
    m_first = true;
    m_varies = false;
    m_value = boost::any();
}

void MultiEditValue::readValue(const boost::any& value)
{
    if (m_first) {
        m_first = false;
        m_varies = false;
        setValue(value);
    } else if (!m_varies) {
        // Not negated: the comparison answers whether the values differ.
        m_varies = m_equalFn(value, m_value);
    }
}

bool MultiEditValue::dataVaries() const
{
    return m_varies;
}

boost::any MultiEditValue::getCurrentValue() const
{
    return dataVaries() ? boost::any() : m_value;
}

void MultiEditValue::setValue(const boost::any& value)
{
    m_varies = false;
    m_value = value;
}

void MultiEditValue::forceVaries()
{
    m_varies = true;
}

} // namespace zel::qt
