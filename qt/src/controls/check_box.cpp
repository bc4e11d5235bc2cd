#include "qt/inc/controls/check_box.h"

#include "platform/smart_assert.h"
#include "qt/inc/controls/signal_blocker.h"
#include "qt/src/controls/accessible_description.h"

#include <QCheckBox>
#include <QHBoxLayout>

#include <memory>

namespace zel::qt {

SimpleCheckBox* SimpleCheckBox::create(const QString& label, QWidget* parent)
{
    ZEL_SMART_ASSERT(parent != nullptr, "parent");
    return new SimpleCheckBox(label, parent);
}

SimpleCheckBox::SimpleCheckBox(const QString& label, QWidget* parent)
    : QWidget(parent)
    , m_checkBox(nullptr)
{
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    m_checkBox = new QCheckBox(label, this);
    m_checkBox->setCheckable(true);
    layout->addWidget(m_checkBox);
    setFocusProxy(m_checkBox);
}

SimpleCheckBox::~SimpleCheckBox() = default;

bool SimpleCheckBox::isChecked() const
{
    return m_checkBox->isChecked();
}

void SimpleCheckBox::setChecked(bool checked)
{
    m_checkBox->setChecked(checked);
}

MultiEditCheckBox* MultiEditCheckBox::create(const QString& label, QWidget* parent)
{
    ZEL_SMART_ASSERT(parent != nullptr, "parent");
    return new MultiEditCheckBox(label, parent);
}

MultiEditCheckBox::MultiEditCheckBox(const QString& label, QWidget* parent)
    : SimpleCheckBox(label, parent)
{
    connect(m_checkBox, SIGNAL(stateChanged(int)), this, SLOT(onClicked(int)));
    m_checkBox->setTristate(false);
    m_checkBox->setChecked(false);
    setVarying(false);
    m_firstRead = true;
}

MultiEditCheckBox::~MultiEditCheckBox() = default;

bool MultiEditCheckBox::getValue() const
{
    return isChecked();
}

void MultiEditCheckBox::setChecked(bool checked)
{
    setVarying(false);
    m_checkBox->setTristate(false);
    // A change of state comes back here through onClicked(), which makes the second signal.
    m_checkBox->setChecked(checked);
    // From partially checked to checked Qt does not repaint by itself.
    m_checkBox->update();
    if (m_emitValueChanged) {
        Q_EMIT valueChanged();
    }
}

void MultiEditCheckBox::reset()
{
    m_checkBox->setTristate(false);
    m_checkBox->setChecked(false);
    setVarying(false);
    m_firstRead = true;
}

void MultiEditCheckBox::readValue(const boost::any& value)
{
    const auto blocker = isLoading() ? std::make_shared<SignalBlocker>(this) : nullptr;
    const bool checked = boost::any_cast<bool>(value);
    if (m_firstRead) {
        m_checkBox->setChecked(checked);
        m_firstRead = false;
    } else if (!m_dataVaries && m_checkBox->isChecked() != checked) {
        forceVaries();
    }
}

bool MultiEditCheckBox::dataVaries() const
{
    return m_dataVaries;
}

boost::any MultiEditCheckBox::getCurrentValue() const
{
    return dataVaries() ? boost::any() : boost::any(getValue());
}

void MultiEditCheckBox::setValue(const boost::any& value)
{
    const bool* v = boost::any_cast<bool>(&value);
    ZEL_SMART_ASSERT(v != nullptr, "v");
    if (v == nullptr) {
        return;
    }
    const auto blocker = isLoading() ? std::make_shared<SignalBlocker>(this) : nullptr;
    setVarying(false);
    setChecked(*v);
}

void MultiEditCheckBox::forceVaries()
{
    setVarying(true);
    m_firstRead = false;
    m_checkBox->setTristate(true);
    // Keeps the new state from onClicked(), which would leave the varying state at once.
    const SignalBlocker blocker(m_checkBox);
    m_checkBox->setCheckState(Qt::PartiallyChecked);
}

void MultiEditCheckBox::suspendValueChangedSignal()
{
    m_emitValueChanged = false;
}

void MultiEditCheckBox::resumeValueChangedSignal()
{
    m_emitValueChanged = true;
}

void MultiEditCheckBox::onClicked(int state)
{
    setVarying(false);
    setChecked(state == Qt::Checked);
}

void MultiEditCheckBox::setVarying(bool varies)
{
    m_dataVaries = varies;
    detail::describeVarying(*m_checkBox, varies);
}

} // namespace zel::qt
