#pragma once

#include "units/inc/unit_provider.h"

#include <boost/optional.hpp>

#include <cstddef>
#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>

namespace zel::units::v1::detail {

/// From what may be typed for a unit to the unit. Labels are compared exactly; of several units
/// with one label the first of the provider is meant.
class LabelTable
{
public:
    explicit LabelTable(const IUnitProvider& units);
    LabelTable(const LabelTable&) = delete;
    LabelTable& operator=(const LabelTable&) = delete;

    boost::optional<UnitId> find(std::wstring_view label) const;

    /// The table of the library's own units, which never change: built once.
    static const LabelTable& ofZelUnits();

private:
    /// FNV-1a, a character at a time.
    struct Hash
    {
        std::size_t operator()(std::wstring_view text) const;
    };

    void add(std::wstring label, UnitId id);

    std::deque<std::wstring> m_labels; ///< what the keys point to
    std::unordered_map<std::wstring_view, UnitId, Hash> m_ids;
};

} // namespace zel::units::v1::detail
