#pragma once

#include "platform/export.h"

#include <boost/any.hpp>
#include <boost/function.hpp>
#include <boost/noncopyable.hpp>

#include <cstdint>
#include <string>

namespace zel {
struct KeyValueStorage;
}

namespace zel::qt {

/// The protocol of a control that edits one property of several objects at once, and the hook for
/// saving and loading its state.
///
/// For a selection the host calls reset(), then readValue() once for each object, or forceVaries()
/// for a value that it knows to be undetermined. After the user's edit it asks dataVaries() and
/// getCurrentValue(): while the values vary there is nothing to write back.
///
/// The destructor is not virtual: a control is never deleted through this base.
class ZEL_QT_EXPORT MultiEditControlBase : private boost::noncopyable
{
public:
    /// The rank of a control among those of a form when the form is loaded. The library stores it
    /// and gives it no meaning.
    enum LoadOrder : std::int32_t
    {
        LoadEarly = -1,
        LoadDefault = 0,
        LoadLate = 1
    };

    ~MultiEditControlBase();

    /// Forgets what was read: the next readValue() counts as the first.
    virtual void reset() = 0;
    /// Takes the value of one more object. A value that differs from the first makes the control
    /// vary.
    virtual void readValue(const boost::any& value) = 0;
    /// Whether the objects differ and the user has not decided yet.
    virtual bool dataVaries() const = 0;
    /// The single value to write back; empty while the values vary.
    virtual boost::any getCurrentValue() const = 0;
    /// Gives the control a single value.
    virtual void setValue(const boost::any& value) = 0;
    /// Marks the value as differing.
    virtual void forceVaries() = 0;

    /// Makes the control one that can be saved, under `id`, by the two functions. Empty functions
    /// are allowed: canBeSaved() is true all the same. There is no way back.
    void setCanBeSaved(const std::string& id, boost::function<bool(KeyValueStorage&)> save,
                       boost::function<void(const KeyValueStorage&)> load);
    bool canBeSaved() const;
    /// The key of the control in a store; empty until setCanBeSaved().
    const std::string& getStorageId() const;

    void setLoadOrder(LoadOrder order);
    LoadOrder getLoadOrder() const;

    /// While a control is loading, its setValue() blocks its own signals. The host sets this around
    /// a load; load() does not.
    void setLoading(bool loading);
    bool isLoading() const;

    /// The result of the save function; false without one.
    bool save(KeyValueStorage& storage) const;
    /// Calls the load function; nothing without one.
    void load(const KeyValueStorage& storage);

protected:
    MultiEditControlBase();

private:
    bool m_canBeSaved = false;
    std::string m_storageId;
    boost::function<bool(KeyValueStorage&)> m_saveFn;
    boost::function<void(const KeyValueStorage&)> m_loadFn;
    LoadOrder m_loadOrder = LoadDefault;
    bool m_isLoading = false;
};

} // namespace zel::qt
