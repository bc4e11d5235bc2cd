#include "qt/inc/controls/multi_edit_control_base.h"

#include <utility>

namespace zel::qt {

MultiEditControlBase::MultiEditControlBase() = default;
MultiEditControlBase::~MultiEditControlBase() = default;

void MultiEditControlBase::setCanBeSaved(const std::string& id,
                                         boost::function<bool(KeyValueStorage&)> save,
                                         boost::function<void(const KeyValueStorage&)> load)
{
    m_canBeSaved = true;
    m_storageId = id;
    m_saveFn = std::move(save);
    m_loadFn = std::move(load);
}

bool MultiEditControlBase::canBeSaved() const
{
    return m_canBeSaved;
}

const std::string& MultiEditControlBase::getStorageId() const
{
    return m_storageId;
}

void MultiEditControlBase::setLoadOrder(LoadOrder order)
{
    m_loadOrder = order;
}

MultiEditControlBase::LoadOrder MultiEditControlBase::getLoadOrder() const
{
    return m_loadOrder;
}

void MultiEditControlBase::setLoading(bool loading)
{
    m_isLoading = loading;
}

bool MultiEditControlBase::isLoading() const
{
    return m_isLoading;
}

bool MultiEditControlBase::save(KeyValueStorage& storage) const
{
    return m_saveFn && m_saveFn(storage);
}

void MultiEditControlBase::load(const KeyValueStorage& storage)
{
    if (m_loadFn) {
        m_loadFn(storage);
    }
}

} // namespace zel::qt
