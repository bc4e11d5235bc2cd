#include "examples/frame_editor/count_validator.h"

#include <QObject>

namespace frame_editor {

CountValidator::CountValidator(int minimum, int maximum)
    : IntegerValidator<int>(minimum, maximum, false)
{}

bool CountValidator::validate(const QString& text, boost::any& value, const std::bitset<32>& flags)
{
    bool ok = false;
    const qlonglong number = text.toLongLong(&ok);
    return ok && number >= min && number <= max &&
           IntegerValidator<int>::validate(text, value, flags);
}

bool CountValidator::validateWhenFinished(const QString& text, boost::any& value,
                                          const std::bitset<32>& flags)
{
    return validate(text, value, flags);
}

QString CountValidator::refusal(const QString& text, int minimum, int maximum)
{
    return QObject::tr("\"%1\" is no whole number from %2 to %3")
        .arg(text)
        .arg(minimum)
        .arg(maximum);
}

} // namespace frame_editor
