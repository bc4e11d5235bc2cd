#include "qt/inc/value_history.h"

#include <boost/make_shared.hpp>

#include <algorithm>
#include <utility>

namespace zel {
namespace {

/// The storage of the process. Final, since its bases have no virtual destructor.
struct ProcessStorage final : ValueHistoryMemoryStorage
{};

} // namespace

ValueHistory::ValueHistory(const std::wstring& key, boost::shared_ptr<IValueHistoryStorage> storage)
    : m_key(key)
    , m_storage(std::move(storage))
{}

ValueHistory::~ValueHistory() = default;

boost::shared_ptr<ValueHistory> ValueHistory::create(const std::wstring& storageName,
                                                     const std::wstring& key)
{
    return boost::make_shared<ValueHistory>(key, IValueHistoryStorage::getOrCreate(storageName));
}

void ValueHistory::add(const std::wstring& value)
{
    if (m_storage) {
        m_storage->add(*this, value);
    }
}

std::size_t ValueHistory::get(std::deque<std::wstring>& values) const
{
    return m_storage ? m_storage->get(*this, values) : 0;
}

IValueHistoryStorage::IValueHistoryStorage() = default;

boost::shared_ptr<IValueHistoryStorage> IValueHistoryStorage::getOrCreate(const std::wstring&)
{
    static const boost::shared_ptr<IValueHistoryStorage> storage =
        boost::make_shared<ProcessStorage>();
    return storage;
}

ValueHistoryMemoryStorage::ValueHistoryMemoryStorage() = default;
ValueHistoryMemoryStorage::~ValueHistoryMemoryStorage() = default;

std::size_t ValueHistoryMemoryStorage::get(const ValueHistory& history,
                                           std::deque<std::wstring>& values)
{
    if (history.m_key.empty()) {
        return 0;
    }
    const auto found = m_values.find(history.m_key);
    if (found == m_values.end()) {
        values.clear();
        return 0;
    }
    values = found->second;
    return values.size();
}

void ValueHistoryMemoryStorage::add(ValueHistory& history, const std::wstring& value)
{
    if (history.m_key.empty() || value.empty()) {
        return;
    }
    std::deque<std::wstring>& entries = m_values[history.m_key];
    if (std::find(entries.begin(), entries.end(), value) == entries.end()) {
        entries.push_front(value);
    }
    while (entries.size() > m_limit) {
        entries.pop_back();
    }
}

} // namespace zel
