#include "units/src/formatting/label_table.h"

#include "units/src/formatting/utf8.h"

#include <cstdint>
#include <utility>

namespace zel::units::v1::detail {

LabelTable::LabelTable(const IUnitProvider& units)
{
    for (const UnitId id : units.get_unit_ids()) {
        const std::string& label = units.get_label(id);
        if (label.empty()) {
            continue;
        }
        add(fromUtf8(label), id);
        for (const std::string& alias : units.get_aliases(id)) {
            add(fromUtf8(alias), id);
        }
        if (id == 8) {
            add(L"%", id);
            add(L"o/o", id);
            add(L"O/O", id);
            add(L"0/0", id);
        } else if (id == 9) {
            add(L"o/oo", id);
            add(L"O/OO", id);
            add(L"0/00", id);
        }
    }
}

boost::optional<UnitId> LabelTable::find(std::wstring_view label) const
{
    const auto found = m_ids.find(label);
    if (found == m_ids.end()) {
        return boost::none;
    }
    return found->second;
}

const LabelTable& LabelTable::ofZelUnits()
{
    static const LabelTable table{ZelUnitProvider()};
    return table;
}

std::size_t LabelTable::Hash::operator()(std::wstring_view text) const
{
    std::uint64_t hash = 0xcbf29ce484222325u;
    for (const wchar_t c : text) {
        hash = (hash ^ static_cast<std::uint32_t>(c)) * 0x100000001b3u;
    }
    return static_cast<std::size_t>(hash);
}

void LabelTable::add(std::wstring label, UnitId id)
{
    if (m_ids.find(label) == m_ids.end()) {
        m_labels.push_back(std::move(label));
        m_ids.emplace(m_labels.back(), id);
    }
}

} // namespace zel::units::v1::detail
