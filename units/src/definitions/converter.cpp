#include "units/inc/converter.h"

#include "platform/smart_assert.h"

#include <algorithm>
#include <stdexcept>
#include <vector>

namespace zel::units::v1 {
namespace {

bool contains(const std::vector<UnitId>& units, UnitId unit)
{
    return std::find(units.begin(), units.end(), unit) != units.end();
}

} // namespace

IConverter::~IConverter() = default;

void Converter::set_unit_provider(IUnitProvider* provider)
{
    m_provider = provider;
}

const IUnitProvider& Converter::provider() const
{
    if (m_provider == nullptr) {
        throw std::logic_error("No unit provider set.");
    }
    return *m_provider;
}

bool Converter::can_convert(UnitId from, UnitId to) const
{
    const IUnitProvider& units = provider();
    if (from == to) {
        return true;
    }
    // Each list is done with before the next question: a provider may answer from one vector.
    const std::vector<UnitId>& fromUnits = units.get_set_units(from);
    const bool fromIsSet = !fromUnits.empty();
    const bool fromAllows = contains(fromUnits, to);
    const std::vector<UnitId>& toUnits = units.get_set_units(to);
    if (fromIsSet) {
        return fromAllows;
    }
    if (!toUnits.empty()) {
        return contains(toUnits, from);
    }
    return units.get_dimension(to) == units.get_dimension(from);
}

IConverter::quantity Converter::convert(const quantity& q, UnitId unit_id) const
{
    const IUnitProvider& units = provider();
    ZEL_SMART_ASSERT(can_convert(q.unit_id, unit_id), "can_convert(q.unit_id, unit_id)")
        .value("q.unit_id", q.unit_id)
        .value("unit_id", unit_id);
    if (!can_convert(q.unit_id, unit_id)) {
        throw std::invalid_argument("Incompatible units.");
    }
    // Deliberately no division by the target's factor: the last digits of stored values depend on
    // this order. from_base() does divide.
    return {unit_id, (units.get_factor(q.unit_id) * q.value) * (1.0 / units.get_factor(unit_id))};
}

double Converter::to_base(const quantity& q) const
{
    return provider().get_factor(q.unit_id) * q.value;
}

IConverter::quantity Converter::from_base(double value, UnitId unit_id) const
{
    return {unit_id, value / provider().get_factor(unit_id)};
}

} // namespace zel::units::v1
