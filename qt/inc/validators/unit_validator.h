#pragma once

#include "qt/inc/validators/i_validator.h"
#include "units/inc/context.h"

#include <limits>

namespace zel::qt {

/// A physical quantity: a number with or without a unit, in any form that Context::parse() knows,
/// held against the validator's own id and shown in the unit and format that its context gives to
/// that id, label included.
///
/// Its value is a boost::any that holds an IConverter::quantity, or an empty one where that is
/// allowed. The range refuses nothing: the end of editing and reformat() move a quantity to the
/// nearest bound.
class ZEL_QT_EXPORT UnitValidator : public IValidator
{
public:
    /// Leaves the id open: set_unit_id() has to follow before anything else.
    /// The context is a snapshot; a later change of the host's settings does not reach it.
    explicit UnitValidator(units::v1::Context context);
    UnitValidator(units::v1::Context context, units::UnitId unit_id);
    ~UnitValidator() override;

    /// The unit or unit set that values are held against; against a unit set, in base units.
    void set_unit_id(units::UnitId unit_id);
    units::UnitId get_unit_id() const;

    /// Stores the lower bound unchecked, as a number of the validator's id.
    void set_minimum(const double& minimum);
    /// Stores the upper bound unchecked, as a number of the validator's id.
    void set_maximum(const double& maximum);

    /// Whether an empty text means no value, an empty boost::any. Otherwise, as after
    /// construction, it means a quantity of zero.
    void setEmptyValueAllowed(bool b);

    /// On a refusal, also of a unit that the id does not allow, `value` is a quantity of zero.
    /// Throws std::invalid_argument, "Invalid unit id.", if the context does not know the id.
    bool validate(const QString& text, boost::any& value, const std::bitset<32>& flags) override;
    /// As validate(), and a number outside the range becomes the nearest bound.
    bool validateWhenFinished(const QString& text, boost::any& value,
                              const std::bitset<32>& flags) override;
    /// The quantity within the range. The bounds are compared with its number as it stands, so it
    /// should be held against the validator's id. A value that holds no quantity, an empty one
    /// included unless it is allowed, asserts
    /// "value.type() == typeid(units::IConverter::quantity)" and gives an empty text.
    QString reformat(const boost::any& value, const std::bitset<32>& flags) override;

private:
    units::v1::Context m_context;
    units::UnitId m_unit_id = units::UnitId(0);
    bool m_emptyAsZero = true;
    bool m_emptyValueAllowed = false;
    double m_min = std::numeric_limits<double>::lowest();
    double m_max = std::numeric_limits<double>::max();
};

} // namespace zel::qt
