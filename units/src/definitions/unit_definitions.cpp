#include "units/src/definitions/unit_definitions.h"

#include "units/src/definitions/unit_table.h"
#include "units/src/unitset/unit_set_table.h"

#include <cstddef>

namespace zel::units::v1::detail {
namespace {

std::vector<std::string> aliasesOf(std::int32_t id)
{
    switch (id) {
    case 213:
        return {"'"};
    case 214:
    case 216:
        return {"''"};
    default:
        return {};
    }
}

std::vector<UnitDefinition> buildUnitDefinitions()
{
    std::vector<UnitDefinition> units;
    units.reserve(unitTableSize);
    for (const UnitDefinitionRow& row : unitTable) {
        units.push_back({UnitId(row.id), (row.dimension & baseUnitBit) != 0 ? 1 : 0,
                         row.dimension & ~baseUnitBit, row.format, row.factor, row.label,
                         aliasesOf(row.id)});
    }
    return units;
}

std::vector<UnitSet> buildUnitSets()
{
    std::vector<UnitSet> sets;
    sets.reserve(unitSetTableSize);
    for (const UnitSetRow& row : unitSetTable) {
        UnitSet set{&row, {}};
        for (const std::int32_t unit : row.allowed) {
            if (unit == 0) {
                break;
            }
            set.allowed.push_back(UnitId(unit));
        }
        sets.push_back(std::move(set));
    }
    return sets;
}

/// The ids are small and dense enough for a plain array from id to the first row of that id.
class RowIndex
{
public:
    template <class Row, std::size_t N>
    explicit RowIndex(const Row (&rows)[N])
    {
        for (std::size_t i = 0; i < N; ++i) {
            const auto id = static_cast<std::size_t>(rows[i].id);
            if (id >= m_rows.size()) {
                m_rows.resize(id + 1, none);
            }
            if (m_rows[id] == none) {
                m_rows[id] = i;
            }
        }
    }

    template <class Record>
    const Record* find(const std::vector<Record>& records, UnitId id) const
    {
        const auto i = static_cast<std::size_t>(static_cast<std::uint32_t>(id));
        return i < m_rows.size() && m_rows[i] != none ? &records[m_rows[i]] : nullptr;
    }

private:
    static constexpr std::size_t none = static_cast<std::size_t>(-1);

    std::vector<std::size_t> m_rows;
};

} // namespace

const std::vector<UnitDefinition>& unitDefinitions()
{
    static const std::vector<UnitDefinition> units = buildUnitDefinitions();
    return units;
}

const std::vector<UnitSet>& unitSets()
{
    static const std::vector<UnitSet> sets = buildUnitSets();
    return sets;
}

const UnitDefinition* findUnit(UnitId id)
{
    static const RowIndex index(unitTable);
    return index.find(unitDefinitions(), id);
}

const UnitSet* findUnitSet(UnitId id)
{
    static const RowIndex index(unitSetTable);
    return index.find(unitSets(), id);
}

} // namespace zel::units::v1::detail
