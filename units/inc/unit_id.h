#pragma once

#include <cstdint>

namespace zel::units {

namespace _bond_enumerators {
namespace UnitId {

/// The number of a unit, shared with stored data, so it never changes its meaning. 0 to 999 are
/// plain units such as 13, the metre; 1000 and above are unit sets such as 1001, a length shown in
/// whatever unit the settings choose. 1 is the dimensionless unit and also says that no unit was
/// typed. A number without an enumerator is written UnitId(1001).
enum UnitId : std::int32_t
{
    FOOT = 213,
    INCH = 214,
};

} // namespace UnitId
} // namespace _bond_enumerators

using _bond_enumerators::UnitId::UnitId;

namespace v1 {
using _bond_enumerators::UnitId::UnitId;
} // namespace v1

} // namespace zel::units
