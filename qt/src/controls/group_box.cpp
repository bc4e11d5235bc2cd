#include "qt/inc/controls/group_box.h"

#include "platform/smart_assert.h"
#include "qt/src/controls/accessible_description.h"

namespace zel::qt {

MultiEditGroupBox* MultiEditGroupBox::create(const QString& label, QWidget* parent)
{
    ZEL_SMART_ASSERT(parent != nullptr, "parent");
    return new MultiEditGroupBox(label, parent);
}

MultiEditGroupBox::MultiEditGroupBox(const QString& label, QWidget* parent)
    : QGroupBox(label, parent)
{
    setCheckable(true);
    connect(this, SIGNAL(clicked(bool)), this, SLOT(onClicked(bool)));
    setChecked(false);
    setEnabled(true);
    setVarying(false);
    m_firstRead = true;
}

MultiEditGroupBox::~MultiEditGroupBox() = default;

bool MultiEditGroupBox::getValue() const
{
    return isChecked();
}

void MultiEditGroupBox::reset()
{
    setChecked(false);
    setEnabled(true);
    setVarying(false);
    m_firstRead = true;
}

void MultiEditGroupBox::readValue(const boost::any& value)
{
    const bool checked = boost::any_cast<bool>(value);
    if (m_firstRead) {
        setChecked(checked);
        m_firstRead = false;
    } else if (!m_dataVaries && isChecked() != checked) {
        forceVaries();
    }
}

bool MultiEditGroupBox::dataVaries() const
{
    return m_dataVaries;
}

boost::any MultiEditGroupBox::getCurrentValue() const
{
    return dataVaries() ? boost::any() : boost::any(getValue());
}

void MultiEditGroupBox::setValue(const boost::any& value)
{
    const bool* checked = boost::any_cast<bool>(&value);
    ZEL_SMART_ASSERT(checked != nullptr, "checked");
    if (checked == nullptr) {
        return;
    }
    // Deliberately leaves a disabled group disabled: only a new reading, which begins with
    // reset(), opens it to the user again.
    setChecked(*checked);
    setVarying(false);
    if (m_emitValueChanged) {
        Q_EMIT valueChanged();
    }
}

void MultiEditGroupBox::forceVaries()
{
    setVarying(true);
    m_firstRead = false;
    setEnabled(false);
}

void MultiEditGroupBox::suspendValueChangedSignal()
{
    m_emitValueChanged = false;
}

void MultiEditGroupBox::resumeValueChangedSignal()
{
    m_emitValueChanged = true;
}

void MultiEditGroupBox::onClicked(bool)
{
    setVarying(false);
    if (m_emitValueChanged) {
        Q_EMIT valueChanged();
    }
}

void MultiEditGroupBox::setVarying(bool varies)
{
    m_dataVaries = varies;
    detail::describeVarying(*this, varies);
}

} // namespace zel::qt
