#pragma once

#include <cstddef>
#include <cstdint>

namespace zel::units::v1::detail {

/// In the dimension word: this is the base unit of its dimension.
constexpr std::uint32_t baseUnitBit = 1u << 30;

/// One plain unit, as data.
struct UnitDefinitionRow
{
    std::int32_t id;
    /// Exponents, after baseUnitBit: length in the low byte, time in the second, mass and
    /// temperature in the low and high half of the third. A negative one is cut to 5 bits in the
    /// bytes (0x1f is -1) and to 3 in the halves (7 is -1). Angles have none.
    std::uint32_t dimension;
    std::int32_t format; ///< 100 * notation + decimals
    double factor;       ///< base value = number * factor
    const char* label;   ///< UTF-8
};

constexpr std::size_t unitTableSize = 399;

/// The plain units. Of two units with one label the first is meant by a typed label.
extern const UnitDefinitionRow unitTable[unitTableSize];

} // namespace zel::units::v1::detail
