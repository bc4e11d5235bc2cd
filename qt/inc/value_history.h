#pragma once

#include "platform/export.h"

#include <boost/noncopyable.hpp>
#include <boost/shared_ptr.hpp>

#include <cstddef>
#include <deque>
#include <map>
#include <string>

// The remembered texts of line edits. Nothing here knows of Qt.

namespace zel {

struct IValueHistoryStorage;

/// The handle that a control holds on its remembered texts: a key and the storage behind it.
/// Histories with the same key and storage share their entries.
struct ZEL_QT_EXPORT ValueHistory
{
    /// @param storage shared; null is allowed, the history then stays empty
    ValueHistory(const std::wstring& key, boost::shared_ptr<IValueHistoryStorage> storage);
    ~ValueHistory();
    ValueHistory(const ValueHistory&) = default;
    ValueHistory& operator=(const ValueHistory&) = default;

    /// A history in the storage that IValueHistoryStorage::getOrCreate() gives for the name.
    static boost::shared_ptr<ValueHistory> create(const std::wstring& storageName,
                                                  const std::wstring& key);

    /// Records a value. Without a storage nothing happens.
    void add(const std::wstring& value);

    /// Asks the storage for the entries, newest first, and returns how many there are. Without a
    /// storage the result is 0 and `values` stays as it was.
    std::size_t get(std::deque<std::wstring>& values) const;

    std::wstring m_key;
    boost::shared_ptr<IValueHistoryStorage> m_storage;
};

/// Where histories keep their entries. A host may supply a storage of its own.
///
/// A storage is always held by a boost::shared_ptr that was made with its concrete type; it is
/// never deleted through this base.
struct ZEL_QT_EXPORT IValueHistoryStorage : private boost::noncopyable
{
    IValueHistoryStorage();

    /// The one storage of the process, in memory, made on the first call. The name is not looked
    /// at: histories are told apart by their keys alone.
    static boost::shared_ptr<IValueHistoryStorage> getOrCreate(const std::wstring& name);

    /// Fills `values` with the entries of the history and returns how many there are.
    virtual std::size_t get(const ValueHistory& history, std::deque<std::wstring>& values) = 0;
    /// Records a value.
    virtual void add(ValueHistory& history, const std::wstring& value) = 0;

protected:
    ~IValueHistoryStorage() = default;
};

/// Keeps the last few different texts of each key, for the life of the object.
struct ZEL_QT_EXPORT ValueHistoryMemoryStorage : IValueHistoryStorage
{
    ValueHistoryMemoryStorage();
    ~ValueHistoryMemoryStorage();

    /// Newest first. An empty key gives 0 and leaves `values` as it was; a key without entries
    /// gives 0 and empties it.
    std::size_t get(const ValueHistory& history, std::deque<std::wstring>& values) override;

    /// Puts the value in front and drops the oldest entry beyond the limit. A value that is there
    /// already keeps its place. An empty key or value is ignored. Values are compared exactly.
    void add(ValueHistory& history, const std::wstring& value) override;

    std::map<std::wstring, std::deque<std::wstring>> m_values; ///< by key, newest at the front
    std::size_t m_limit = 5;                                   ///< most entries of one key
};

} // namespace zel
