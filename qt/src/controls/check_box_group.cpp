#include "qt/inc/controls/check_box_group.h"

#include "base/key_value_storage.h"
#include "platform/smart_assert.h"
#include "platform/widgets.h"
#include "qt/inc/controls/check_box.h"
#include "qt/inc/controls/layouters.h"

#include <QPointer>
#include <QWidget>

#include <stdexcept>

namespace zel::qt {
namespace {

bool saveBox(MultiEditControlBase& box, KeyValueStorage& storage)
{
    if (box.dataVaries()) {
        return true;
    }
    const boost::any value = box.getCurrentValue();
    const bool* checked = boost::any_cast<bool>(&value);
    if (checked == nullptr) {
        return false;
    }
    (*storage.values)[box.getStorageId()] = *checked;
    return true;
}

} // namespace

MultiEditCheckBoxGroup::MultiEditCheckBoxGroup(QWidget* parent, ILayouter& layouter,
                                               const std::deque<QString>& labels,
                                               const std::deque<QString>& tooltips)
    : m_toggleAll(nullptr)
{
    for (std::size_t i = 0; i < labels.size(); ++i) {
        if (labels[i].isEmpty()) {
            layouter.onAdd(new QWidget(parent));
            continue;
        }
        MultiEditCheckBox* box = MultiEditCheckBox::create(labels[i], parent);
        layouter.onAdd(box);
        connect(box, SIGNAL(valueChanged()), this, SLOT(onClickedAny()));
        m_checks.push_back(box);
        if (i < tooltips.size()) {
            box->setToolTip(tooltips[i]);
        }
    }
    m_toggleAll = MultiEditCheckBox::create(tr("All"), parent);
    layouter.onAdd(m_toggleAll);
    connect(m_toggleAll, SIGNAL(valueChanged()), this, SLOT(onClickedToggleAll()));
}

MultiEditCheckBoxGroup::~MultiEditCheckBoxGroup() = default;

std::size_t MultiEditCheckBoxGroup::size() const
{
    return m_checks.size();
}

void MultiEditCheckBoxGroup::readValue(std::size_t idx, bool value)
{
    check(idx).readValue(boost::any(value));
}

void MultiEditCheckBoxGroup::setValue(std::size_t idx, bool value)
{
    check(idx).setChecked(value);
}

bool MultiEditCheckBoxGroup::getValue(std::size_t idx) const
{
    return check(idx).isChecked();
}

bool MultiEditCheckBoxGroup::dataVaries(std::size_t idx) const
{
    return check(idx).dataVaries();
}

void MultiEditCheckBoxGroup::reset()
{
    for (MultiEditCheckBox* box : m_checks) {
        box->reset();
    }
}

void MultiEditCheckBoxGroup::onEndRead()
{
    _updateCheckAllBox();
}

void MultiEditCheckBoxGroup::setEnabled(std::size_t idx, bool enabled)
{
    m_checks.at(idx)->setEnabled(enabled);
}

void MultiEditCheckBoxGroup::setEnabled(bool enabled)
{
    for (MultiEditCheckBox* box : m_checks) {
        box->setEnabled(enabled);
    }
}

void MultiEditCheckBoxGroup::setCanBeSaved(const std::string& key)
{
    // The boxes belong to their parent and may outlive the group.
    const QPointer<MultiEditCheckBoxGroup> group(this);
    for (std::size_t i = 0; i < m_checks.size(); ++i) {
        MultiEditCheckBox& box = *m_checks[i];
        box.MultiEditControlBase::setCanBeSaved(
            key + "/" + std::to_string(i),
            [&box](KeyValueStorage& storage) { return saveBox(box, storage); },
            [group, i](const KeyValueStorage& storage) {
                if (group) {
                    group->load(i, storage);
                }
            });
    }
}

void MultiEditCheckBoxGroup::onClickedAny()
{
    _updateCheckAllBox();
    Q_EMIT valueChanged();
}

void MultiEditCheckBoxGroup::onClickedToggleAll()
{
    const bool checked = m_toggleAll->isChecked();
    for (MultiEditCheckBox* box : m_checks) {
        if (box->isEnabled()) {
            box->suspendValueChangedSignal();
            box->setChecked(checked);
            box->resumeValueChangedSignal();
        }
    }
    Q_EMIT valueChanged();
}

std::size_t MultiEditCheckBoxGroup::lastIndex() const
{
    ZEL_SMART_ASSERT(!m_checks.empty(), "!m_checks.empty()");
    return size() - 1;
}

MultiEditCheckBox& MultiEditCheckBoxGroup::check(std::size_t idx) const
{
    ZEL_SMART_ASSERT(idx < m_checks.size(), "idx < m_checks.size()")
        .value("idx", idx)
        .value("m_checks.size()", m_checks.size())
        .message("index out of bounds");
    return *m_checks.at(idx);
}

void MultiEditCheckBoxGroup::_updateCheckAllBox()
{
    m_toggleAll->suspendValueChangedSignal();
    m_toggleAll->reset();
    for (const MultiEditCheckBox* box : m_checks) {
        if (!box->isEnabled()) {
            continue;
        }
        if (box->dataVaries()) {
            // Differs from what was read so far and so makes "All" vary. As the first reading it
            // has nothing to differ from and checks "All" instead, which is deliberate.
            m_toggleAll->readValue(boost::any(!m_toggleAll->isChecked()));
            break;
        }
        m_toggleAll->readValue(boost::any(box->isChecked()));
        if (m_toggleAll->dataVaries()) {
            break;
        }
    }
    m_toggleAll->resumeValueChangedSignal();
}

void MultiEditCheckBoxGroup::load(std::size_t idx, const KeyValueStorage& storage)
{
    MultiEditCheckBox& box = *m_checks.at(idx);
    // Holds to the end: the box that loads last stays silent among those that speak for all.
    const ZEL_QT_SignalBlocker blocker(&box);
    const auto entry = storage.values->find(box.getStorageId());
    if (entry != storage.values->end() && boost::any_cast<bool>(&entry->second) != nullptr) {
        box.setValue(entry->second);
    }
    ++m_loadedCount;
    if (m_loadedCount == m_checks.size()) {
        m_loadedCount = 0;
        for (MultiEditCheckBox* each : m_checks) {
            Q_EMIT each->valueChanged();
        }
    }
}

} // namespace zel::qt
