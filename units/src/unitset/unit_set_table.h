#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace zel::units::v1::detail {

constexpr std::size_t columnCount = 10;

/// What one column shows for a unit set.
struct UnitSetDefault
{
    std::int32_t unit;
    std::int32_t format; ///< 100 * notation + decimals
};

/// One kind of quantity, as data.
struct UnitSetRow
{
    std::int32_t id;
    const char* name;
    const char* symbol; ///< "^a" and its like stand for Greek letters
    std::array<UnitSetDefault, columnCount> defaults;
    std::array<std::int32_t, 15> allowed; ///< ended by the first 0
};

constexpr std::size_t unitSetTableSize = 136;

extern const UnitSetRow unitSetTable[unitSetTableSize];

} // namespace zel::units::v1::detail
