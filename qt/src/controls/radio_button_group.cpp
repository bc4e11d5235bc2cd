#include "qt/inc/controls/radio_button_group.h"

#include "platform/smart_assert.h"
#include "qt/inc/controls/layouters.h"
#include "qt/src/controls/accessible_description.h"

#include <QButtonGroup>
#include <QGroupBox>
#include <QRadioButton>
#include <QVBoxLayout>

namespace zel::qt {

SimpleRadioButtonGroup* SimpleRadioButtonGroup::create(
    const QString& label, const NamedValueList& values,
    bool (*const& equalFn)(const boost::any&, const boost::any&),
    const boost::function<bool(const boost::any&, const boost::any&)>& lessFn, QWidget* parent,
    ILayouter* layouter, bool withGroupBox, bool withButtonGroup)
{
    ZEL_SMART_ASSERT(parent != nullptr, "parent");
    ZEL_SMART_ASSERT(!values.empty(), "!values.empty()");
    ZEL_SMART_ASSERT(equalFn != nullptr, "equalFn");
    ZEL_SMART_ASSERT(!lessFn.empty(), "lessFn");
    return new SimpleRadioButtonGroup(label, values, equalFn, lessFn, parent, layouter,
                                      withGroupBox, withButtonGroup);
}

SimpleRadioButtonGroup::SimpleRadioButtonGroup(
    const QString& label, const NamedValueList& values,
    bool (*const& equalFn)(const boost::any&, const boost::any&),
    const boost::function<bool(const boost::any&, const boost::any&)>& lessFn, QWidget* parent,
    ILayouter* layouter, bool withGroupBox, bool withButtonGroup)
    : QWidget(parent)
    , m_eq(equalFn)
    , m_less(lessFn)
    , m_values(values)
    , m_value2button(AnyPredicate(m_less))
{
    ZEL_SMART_ASSERT(!m_values.empty(), "!m_values.empty()");
    if (layouter == nullptr) {
        m_ownLayouter = std::make_unique<VBoxLayouter>();
        layouter = m_ownLayouter.get();
    }
    setAccessibleName(label);
    QWidget* container = this;
    QVBoxLayout* layout = nullptr;
    if (withGroupBox) {
        layout = new QVBoxLayout(this);
        layout->setContentsMargins(0, 0, 0, 0);
        container = new QGroupBox(label, this);
        layouter->onCreate(container);
    }
    QButtonGroup* group = withButtonGroup ? new QButtonGroup(this) : nullptr;
    for (const auto& [name, value] : m_values) {
        auto* button = new QRadioButton(name, container);
        layouter->onAdd(button);
        if (group != nullptr) {
            group->addButton(button, -1);
        }
        m_value2button[value] = button;
        m_button2value[button] = value;
    }
    if (withGroupBox) {
        layouter->onFinish();
        layout->addWidget(container, 0, {});
    }
}

SimpleRadioButtonGroup::~SimpleRadioButtonGroup() = default;

boost::any SimpleRadioButtonGroup::getSelectedValue() const
{
    for (const auto& [button, value] : m_button2value) {
        ZEL_SMART_ASSERT(button != nullptr, "it->first");
        if (button->isChecked()) {
            return value;
        }
    }
    ZEL_SMART_ASSERT(false, "false").message("no button checked - returning default value");
    return m_values.empty() ? boost::any() : m_values.front().second;
}

void SimpleRadioButtonGroup::setSelected(const boost::any& value)
{
    if (QRadioButton* button = findButton(value)) {
        button->setChecked(true);
    }
}

void SimpleRadioButtonGroup::setValueEnabled(const boost::any& value, bool enabled)
{
    if (QRadioButton* button = findButton(value)) {
        button->setEnabled(enabled);
    }
}

void SimpleRadioButtonGroup::setValuesEnabled(bool enabled)
{
    for (const auto& [value, button] : m_value2button) {
        ZEL_SMART_ASSERT(button != nullptr, "it->second");
        button->setEnabled(enabled);
    }
}

QRadioButton* SimpleRadioButtonGroup::findButton(const boost::any& value) const
{
    const auto it = m_value2button.find(value);
    ZEL_SMART_ASSERT(it != m_value2button.end(), "it != m_value2button.end()")
        .message("value key not found");
    if (it == m_value2button.end()) {
        return nullptr;
    }
    ZEL_SMART_ASSERT(it->second != nullptr, "it->second");
    return it->second;
}

MultiEditRadioButtonGroup* MultiEditRadioButtonGroup::create(
    const QString& label, const NamedValueList& values,
    bool (*const& equalFn)(const boost::any&, const boost::any&),
    const boost::function<bool(const boost::any&, const boost::any&)>& lessFn, QWidget* parent,
    ILayouter* layouter, bool withGroupBox, bool withButtonGroup)
{
    ZEL_SMART_ASSERT(!values.empty(), "!values.empty()");
    ZEL_SMART_ASSERT(!lessFn.empty(), "lessFn");
    ZEL_SMART_ASSERT(equalFn != nullptr, "equalFn");
    ZEL_SMART_ASSERT(parent != nullptr, "parent");
    return new MultiEditRadioButtonGroup(label, values, equalFn, lessFn, parent, layouter,
                                         withGroupBox, withButtonGroup);
}

MultiEditRadioButtonGroup::MultiEditRadioButtonGroup(
    const QString& label, const NamedValueList& values,
    bool (*const& equalFn)(const boost::any&, const boost::any&),
    const boost::function<bool(const boost::any&, const boost::any&)>& lessFn, QWidget* parent,
    ILayouter* layouter, bool withGroupBox, bool withButtonGroup)
    : SimpleRadioButtonGroup(label, values, equalFn, lessFn, parent, layouter, withGroupBox,
                             withButtonGroup)
{
    MultiEditRadioButtonGroup::reset();
    // Here rather than in create(), so that a group on the stack hears its buttons too.
    for (const auto& entry : m_button2value) {
        onButtonCreated(entry.first);
    }
}

MultiEditRadioButtonGroup::~MultiEditRadioButtonGroup() = default;

boost::any MultiEditRadioButtonGroup::getValue() const
{
    return getSelectedValue();
}

void MultiEditRadioButtonGroup::reset()
{
    setVarying(false);
    m_firstRead = true;
    if (!m_values.empty()) {
        setValue(m_values.front().second);
    }
    setEnabled(true);
    for (const auto& entry : m_button2value) {
        entry.first->setAutoExclusive(true);
    }
}

void MultiEditRadioButtonGroup::readValue(const boost::any& value)
{
    if (m_firstRead) {
        setValue(value);
        m_firstRead = false;
    } else if (!m_dataVaries && (m_eq == nullptr || !m_eq(value, getSelectedValue()))) {
        // Unlike the other controls, a group tells that a reading made it vary.
        forceVaries();
        Q_EMIT valueChanged();
    }
}

bool MultiEditRadioButtonGroup::dataVaries() const
{
    return m_dataVaries;
}

boost::any MultiEditRadioButtonGroup::getCurrentValue() const
{
    return dataVaries() ? boost::any() : getValue();
}

void MultiEditRadioButtonGroup::setValue(const boost::any& value)
{
    setVarying(false);
    for (const auto& entry : m_button2value) {
        entry.first->setAutoExclusive(true);
    }
    setSelected(value);
    // Also when the value was not found.
    Q_EMIT valueChanged();
}

void MultiEditRadioButtonGroup::forceVaries()
{
    setVarying(true);
    m_firstRead = false;
    for (const auto& entry : m_button2value) {
        QRadioButton* button = entry.first;
        button->blockSignals(true);
        // An exclusive button cannot be unchecked, so exclusivity pauses.
        const bool autoExclusive = button->autoExclusive();
        button->setAutoExclusive(false);
        QButtonGroup* group = button->group();
        const bool exclusive = group != nullptr && group->exclusive();
        if (group != nullptr) {
            group->setExclusive(false);
        }
        button->setChecked(false);
        button->setAutoExclusive(autoExclusive);
        if (group != nullptr) {
            group->setExclusive(exclusive);
        }
        // Deliberately not the state from before: afterwards every button speaks.
        button->blockSignals(false);
    }
}

void MultiEditRadioButtonGroup::onClicked(bool)
{
    setVarying(false);
    Q_EMIT valueChanged();
}

void MultiEditRadioButtonGroup::onButtonCreated(QRadioButton* button)
{
    connect(button, SIGNAL(clicked(bool)), this, SLOT(onClicked(bool)));
}

void MultiEditRadioButtonGroup::setVarying(bool varies)
{
    m_dataVaries = varies;
    detail::describeVarying(*this, varies);
}

} // namespace zel::qt
