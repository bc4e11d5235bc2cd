#include "units/src/definitions/unit_definitions.h"

#include "units/src/definitions/unit_table.h"

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

UnitFormat unpack(std::int32_t unit, std::int32_t format)
{
    return {UnitId(unit), format % 100, format / 100, boost::none};
}

UnitDefinition recordOf(const UnitDefinitionRow& row)
{
    return {UnitId(row.id),
            (row.dimension & baseUnitBit) != 0 ? 1 : 0,
            row.dimension & ~baseUnitBit,
            unpack(row.id, row.format),
            row.factor,
            row.label,
            aliasesOf(row.id)};
}

UnitSet recordOf(const UnitSetRow& row)
{
    UnitSet set{UnitId(row.id), {}, {}};
    for (std::size_t i = 0; i < columnCount; ++i) {
        set.defaults[i] = unpack(row.defaults[i].unit, row.defaults[i].format);
    }
    for (const std::int32_t unit : row.allowed) {
        if (unit == 0) {
            break;
        }
        set.allowed.push_back(UnitId(unit));
    }
    return set;
}

/// The records of one table. The ids are small and dense enough for an array from id to record.
template <class Record>
class Records
{
public:
    template <class Row, std::size_t N>
    explicit Records(const Row (&rows)[N])
    {
        m_records.reserve(N);
        for (const Row& row : rows) {
            const Record& record = m_records.emplace_back(recordOf(row));
            const auto id = static_cast<std::size_t>(row.id);
            if (id >= m_byId.size()) {
                m_byId.resize(id + 1, nullptr);
            }
            if (m_byId[id] == nullptr) {
                m_byId[id] = &record;
            }
        }
    }

    const std::vector<Record>& all() const
    {
        return m_records;
    }

    /// The first record of the id, or null.
    const Record* find(UnitId id) const
    {
        const auto i = static_cast<std::size_t>(static_cast<std::uint32_t>(id));
        return i < m_byId.size() ? m_byId[i] : nullptr;
    }

private:
    std::vector<Record> m_records;
    std::vector<const Record*> m_byId;
};

const Records<UnitDefinition>& unitRecords()
{
    static const Records<UnitDefinition> records(unitTable);
    return records;
}

const Records<UnitSet>& setRecords()
{
    static const Records<UnitSet> records(unitSetTable);
    return records;
}

} // namespace

const std::vector<UnitDefinition>& unitDefinitions()
{
    return unitRecords().all();
}

const std::vector<UnitSet>& unitSets()
{
    return setRecords().all();
}

const UnitDefinition* findUnit(UnitId id)
{
    return unitRecords().find(id);
}

const UnitSet* findUnitSet(UnitId id)
{
    return setRecords().find(id);
}

} // namespace zel::units::v1::detail
