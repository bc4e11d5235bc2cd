#pragma once

#include "qt/inc/validators.h"
#include "units/inc/units.h"

#include <QString>

#include <optional>

namespace frame_editor {

/// The validator of a number with a unit, as this program wants it. It belongs to one field, since
/// it remembers what it wrote there:
///
/// - The text that it wrote last stands for exactly the value that it was written for. So a value
///   that shows rounded is not rounded by looking at it, what the user typed is kept to the last
///   digit, and a value of the model that lies beyond the limits is shown as it is.
/// - A text that would only be read in part is refused: "2,5" would be 2, "1.2.3" would be 1.2.
/// - A number that a limit has moved can be asked for, so that the user is told.
class QuantityValidator : public zel::qt::UnitValidator
{
public:
    QuantityValidator(const zel::units::v1::Context& context, int unitSet);

    /// In base units; what the user types beyond them is moved to them.
    void setLimits(double minimum, double maximum);

    bool validate(const QString& text, boost::any& value, const std::bitset<32>& flags) override;
    bool validateWhenFinished(const QString& text, boost::any& value,
                              const std::bitset<32>& flags) override;
    QString reformat(const boost::any& value, const std::bitset<32>& flags) override;

    /// Forgets the text that was written last, for a field that is about to show something else.
    void forgetText();

    /// The number, in base units, that a limit has moved since the last call.
    std::optional<double> takeMoved();

    /// What was understood of a text, for the popup below the field: a length in metres and in feet
    /// and inches, anything else in the unit shown and in metric units. Says also if a limit will
    /// move the number. Empty for an empty text; why it is refused for a bad one.
    QString hint(const QString& text) const;

    /// Why a text is refused, one line for the user.
    QString refusal(const QString& text) const;

    /// "from 0.0 mm to 500.0 mm"; empty without limits.
    QString limitsText() const;

private:
    std::optional<double> read(const QString& text) const;
    QString format(double value) const;

    zel::units::v1::Context m_shown;
    int m_unitSet;
    double m_minimum;
    double m_maximum;
    QString m_writtenText; ///< null for none
    double m_writtenValue = 0.0;
    std::optional<double> m_moved;
};

} // namespace frame_editor
