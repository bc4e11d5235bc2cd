#pragma once

#include "qt/inc/validators/i_validator.h"

#include <limits>

namespace zel::qt {

/// A length that is shown in the unit which the host's unit library gives for a unit number, and
/// held in the host's stored unit. The user may type "m", "dm", "cm" or "mm" behind the number.
/// For quantities with the full system of units there is UnitValidator.
///
/// Its value is a boost::any that holds a `double` in stored units, or an empty one where that is
/// allowed. The range refuses nothing: the end of editing and reformat() move a length to the
/// nearest bound.
class ZEL_QT_EXPORT DistanceEditValidator : public IValidator
{
public:
    /// Asks the unit library for the decimals of `unit`, once and for all: a later change of its
    /// settings does not reach them. Where it knows none, they are 3 for unit 13 (metres), 1 for
    /// unit 16 (millimetres) and 2 for any other.
    /// @param unit        number of the unit shown, by default that of geometric lengths
    /// @param min         lower bound in stored units; asserts "m_min < m_max"
    /// @param max         upper bound in stored units
    /// @param emptyAsZero whether an empty text is 0.0
    explicit DistanceEditValidator(int unit = 1001,
                                   double min = std::numeric_limits<double>::lowest(),
                                   double max = std::numeric_limits<double>::max(),
                                   bool emptyAsZero = true);
    ~DistanceEditValidator() override;

    /// Whether an empty text means no value, an empty boost::any. False makes an empty text 0.0,
    /// also if the constructor was told otherwise.
    void setEmptyValueAllowed(bool b);
    /// Whether reformat() appends the label of the unit, if there is one. False by default.
    void showUnitPostfix(bool b);

    /// As validate(), and a length outside the range becomes the nearest bound.
    bool validateWhenFinished(const QString& text, boost::any& value,
                              const std::bitset<32>& flags) override;

private:
    /// Accepts a number in the unit shown, in the locale of the flags; a number with the decimal
    /// point and one of the four suffixes, in this case; and, deliberately, any text of digits and
    /// punctuation only, which is 0.0. On a refusal `value` is 0.0.
    /// Throws zel::units::UnknownUnit with the suffix if it is another one.
    bool validate(const QString& text, boost::any& value, const std::bitset<32>& flags) override;
    /// The length within the range, in the unit shown. A value that holds no `double`, an empty
    /// one included unless it is allowed, asserts "value.type() == typeid(double)" and gives an
    /// empty text.
    QString reformat(const boost::any& value, const std::bitset<32>& flags) override;

    QString unitPostfix() const;

    int m_decimals;
    double m_min;
    double m_max;
    int m_unit;
    bool m_emptyAsZero;
    bool m_emptyValueAllowed = false;
    bool m_showUnitPostfix = false;
};

} // namespace zel::qt
