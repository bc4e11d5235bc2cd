#pragma once

#include "platform/export.h"
#include "units/inc/unit_id.h"

#include <boost/optional.hpp>

#include <map>
#include <string>

namespace zel::units::v1 {

/// How a number is written. Any other value writes an empty text.
enum Notation : int
{
    Fixed = 0,      ///< "2.500"
    Scientific = 1, ///< "2.500e0"
    Fraction = 2,   ///< "2 1/2"; the decimals are the denominator
};

/// The unit and the number format in which a quantity is shown.
struct UnitFormat
{
    UnitId unit = UnitId(0);            ///< the plain unit shown
    int decimals = 0;                   ///< digits behind the point, or the denominator
    int notation = 0;                   ///< a Notation
    boost::optional<std::string> label; ///< UTF-8, instead of the unit's own label
};

/// Tells in what unit and format a quantity is shown. The getters throw std::invalid_argument with
/// the text "Invalid unit id." for an id that has no format; the setters never throw.
class ZEL_UNITS_EXPORT IFormatProvider
{
public:
    virtual ~IFormatProvider();

    /// Whether the other getters know `id`; of a plain id without a unit they may know a part.
    virtual bool has_format(UnitId id) const = 0;
    /// The plain unit in which a quantity held against `id` is shown.
    virtual UnitId get_unit(UnitId id) const = 0;
    virtual void set_unit(UnitId id, UnitId unit) = 0;
    /// Digits behind the point; for Notation::Fraction the denominator.
    virtual int get_decimals(UnitId id) const = 0;
    virtual void set_decimals(UnitId id, int decimals) = 0;
    /// A Notation, or another number that writes an empty text.
    virtual int get_notation(UnitId id) const = 0;
    virtual void set_notation(UnitId id, int notation) = 0;
    /// A label, as UTF-8, to be shown instead of the unit's own: empty for none, or one of the
    /// unit's aliases; any other text stands for the unit's own label. Absent by default.
    virtual boost::optional<std::string> get_label_override(UnitId id) const = 0;
    virtual void set_label_override(UnitId id, const boost::optional<std::string>& label) = 0;
};

/// The formats of the library's unit sets and units, with overrides set at run time. One column
/// selects the defaults of all unit sets at once: 0 to 5 hold metric units, 6 and 7 favour
/// millimetres, 8 and 9 hold imperial units.
///
/// An override starts as a copy of what is shown so far, or as unit 0 with 0 decimals where the
/// tables of the unit sets have nothing. Plain units have no entry there, so whoever overrides one
/// property of a plain unit sets its unit too.
class ZEL_UNITS_EXPORT UnitsetFormatProvider : public IFormatProvider
{
public:
    /// `column` is 0 to 9. With another one, asking for a unit set that has no override reports the
    /// assertion "index < defaults_of_one_unit->size()" and finds no format.
    explicit UnitsetFormatProvider(int column);

    bool has_format(UnitId id) const override;
    UnitId get_unit(UnitId id) const override;
    void set_unit(UnitId id, UnitId unit) override;
    int get_decimals(UnitId id) const override;
    void set_decimals(UnitId id, int decimals) override;
    int get_notation(UnitId id) const override;
    void set_notation(UnitId id, int notation) override;
    boost::optional<std::string> get_label_override(UnitId id) const override;
    void set_label_override(UnitId id, const boost::optional<std::string>& label) override;

private:
    const UnitFormat* format_for(UnitId id) const;
    UnitFormat& override_for(UnitId id);

    int m_column;
    std::map<int, UnitFormat> m_overrides;
};

} // namespace zel::units::v1
