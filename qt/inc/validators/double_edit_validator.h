#pragma once

#include "qt/inc/validators/i_validator.h"

#include <limits>

namespace zel::qt {

/// A plain number: no unit, a range with both bounds included, a fixed number of digits behind the
/// point. Its value is a boost::any that holds a `double`, or an empty one where that is allowed.
///
/// The range refuses nothing: validate() lets a number outside it pass, and the end of editing and
/// reformat() move it to the nearest bound.
class ZEL_QT_EXPORT DoubleEditValidator : public IValidator
{
public:
    /// Every finite number, 3 digits, an empty text is 0.0.
    DoubleEditValidator();
    /// The same with bounds, which are not checked.
    DoubleEditValidator(double min, double max);
    /// @param precision   digits behind the point, from 0; asserts "m_precision >= 0"
    /// @param min         lower bound; asserts "m_min < m_max"
    /// @param max         upper bound
    /// @param emptyAsZero whether an empty text is 0.0; otherwise it is refused
    DoubleEditValidator(int precision, double min, double max, bool emptyAsZero);
    ~DoubleEditValidator() override;

    /// Asserts "min < max" and stores both bounds, in the wrong order too.
    void setRange(double min, double max);
    /// Stores the bound unchecked. It may lie above the upper bound: then every number below it
    /// becomes the lower bound, and every other one the upper.
    void setMinimum(double min);
    /// Stores the bound unchecked.
    void setMaximum(double max);
    /// Stores the digits behind the point unchecked.
    void setPrecision(int precision);
    /// Whether an empty text means no value, an empty boost::any. False makes an empty text 0.0,
    /// also if the constructor was told to refuse it.
    void setEmptyValueAllowed(bool b);

    /// As validate(), and a number outside the range becomes the nearest bound.
    bool validateWhenFinished(const QString& text, boost::any& value,
                              const std::bitset<32>& flags) override;

protected:
    /// Accepts what QLocale::toDouble() accepts, exponents and groups included, in or out of range:
    /// in the C locale "2,5" is refused and "2,500" is 2500.
    /// On a refusal `value` is 0.0.
    bool validate(const QString& text, boost::any& value, const std::bitset<32>& flags) override;
    /// The number within the range. A value that holds no `double`, an empty one included unless
    /// it is allowed, asserts "value.type() == typeid(double)" and gives an empty text.
    QString reformat(const boost::any& value, const std::bitset<32>& flags) override;

private:
    int m_precision = 3;
    double m_min = std::numeric_limits<double>::lowest();
    double m_max = std::numeric_limits<double>::max();
    bool m_emptyAsZero = true;
    bool m_emptyValueAllowed = false;
};

} // namespace zel::qt
