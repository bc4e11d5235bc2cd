#pragma once

#include "qt/inc/integer_validator.h"

namespace frame_editor {

/// The validator of a whole number. One beyond the limits, or beyond all integers, is refused: the
/// library's validator would cut 4294967297 to 1, and a limit would make 1000 of 5000.
class CountValidator : public zel::qt::IntegerValidator<int>
{
public:
    CountValidator(int minimum, int maximum);

    bool validate(const QString& text, boost::any& value, const std::bitset<32>& flags) override;
    bool validateWhenFinished(const QString& text, boost::any& value,
                              const std::bitset<32>& flags) override;

    /// Why a text is refused, one line for the user.
    static QString refusal(const QString& text, int minimum, int maximum);
};

} // namespace frame_editor
