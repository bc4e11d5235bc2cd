#pragma once

#include "platform/export.h"
#include "units/inc/unit_id.h"
#include "units/inc/unit_provider.h"

namespace zel::units::v1 {

/// Turns quantities into other units. No conversion adds an offset, so a temperature converts like
/// a difference of temperatures.
class ZEL_UNITS_EXPORT IConverter
{
public:
    /// A number and the unit that it is held against; the value in a boost::any for whatever has a
    /// unit. Against a unit set the number is in base units.
    struct quantity
    {
        UnitId unit_id;
        double value;
    };

    virtual ~IConverter();

    /// Whether a quantity of `from` can be expressed in `to`. A unit set converts to and from its
    /// own units alone, plain units convert by dimension, and every id, known or not, to itself.
    virtual bool can_convert(UnitId from, UnitId to) const = 0;
    /// The same amount in another unit.
    virtual quantity convert(const quantity& q, UnitId unit_id) const = 0;
    /// The amount in base units.
    virtual double to_base(const quantity& q) const = 0;
    /// A number of base units as a quantity of `unit_id`.
    virtual quantity from_base(double value, UnitId unit_id) const = 0;
};

/// The converter over the sizes and dimensions of a unit provider. Every operation throws
/// std::logic_error with the text "No unit provider set." until it has a provider, and
/// std::invalid_argument with the text "unit_id" for an id that the provider does not know.
class ZEL_UNITS_EXPORT Converter : public IConverter
{
public:
    /// Sets the provider, which is not owned and may be null.
    void set_unit_provider(IUnitProvider* provider);

    bool can_convert(UnitId from, UnitId to) const override;
    /// Between units that do not convert, reports the assertion "can_convert(q.unit_id, unit_id)"
    /// and throws std::invalid_argument with the text "Incompatible units."
    quantity convert(const quantity& q, UnitId unit_id) const override;
    double to_base(const quantity& q) const override;
    quantity from_base(double value, UnitId unit_id) const override;

private:
    const IUnitProvider& provider() const;

    IUnitProvider* m_provider = nullptr;
};

} // namespace zel::units::v1
