#pragma once

#include "platform/export.h"
#include "units/inc/unit_id.h"

#include <cstdint>
#include <string>
#include <vector>

namespace zel::units::v1 {

/// Tells what is known of a unit by its number: size, dimension, labels. Every operation from
/// get_dimension() on throws std::invalid_argument with the text "unit_id" for an id it does not
/// know. References stay good as long as the provider and its settings do.
class ZEL_UNITS_EXPORT IUnitProvider
{
public:
    virtual ~IUnitProvider();

    /// Whether `id` is a plain unit or a unit set; never throws.
    virtual bool has_unit(UnitId id) const = 0;
    /// The plain ids, then the ids of the unit sets. Of two units with one label the one that
    /// stands first here is meant by a typed label.
    virtual std::vector<UnitId> get_unit_ids() const = 0;
    /// A word to be compared for equality alone: units of equal words convert. For a unit set, the
    /// word of the first of its units.
    virtual std::uint32_t get_dimension(UnitId id) const = 0;
    /// The size in base units (metre, second, tonne, kelvin, radian, kilonewton); 1.0 for a unit
    /// set, whose values are held in base units.
    virtual double get_factor(UnitId id) const = 0;
    /// The label as UTF-8; empty for a unit set.
    virtual const std::string& get_label(UnitId id) const = 0;
    /// Further labels that may be typed, as UTF-8. A unit set is an unknown id here.
    virtual const std::vector<std::string>& get_aliases(UnitId id) const = 0;
    /// The units in which a quantity of the unit set may be typed; empty for a plain unit.
    virtual const std::vector<UnitId>& get_set_units(UnitId id) const = 0;
};

/// The units that this library knows: 399 plain units and 136 unit sets. It has no data of its
/// own, all instances share the tables, which are built on first use.
class ZEL_UNITS_EXPORT ZelUnitProvider : public IUnitProvider
{
public:
    bool has_unit(UnitId id) const override;
    std::vector<UnitId> get_unit_ids() const override;
    std::uint32_t get_dimension(UnitId id) const override;
    double get_factor(UnitId id) const override;
    const std::string& get_label(UnitId id) const override;
    const std::vector<std::string>& get_aliases(UnitId id) const override;
    const std::vector<UnitId>& get_set_units(UnitId id) const override;
};

} // namespace zel::units::v1
