#include "examples/frame_editor/quantity_validator.h"

#include "examples/frame_editor/unit_settings.h"

#include <QObject>
#include <QRegularExpression>

#include <algorithm>
#include <cmath>
#include <limits>
#include <locale>

namespace frame_editor {

using zel::units::UnitId;
using zel::units::v1::Context;
using zel::units::v1::IConverter;

namespace {

constexpr int lengthSet = 1001;
constexpr int feetAndInches = 215;

/// Whether every digit of the text counts: a number in one of the forms that are read whole, and
/// behind it a unit or nothing. Which unit, the units library knows.
bool isReadWhole(const QString& text)
{
    static const QString number =
        QStringLiteral("(?:-?\\d+\\s+\\d+/\\d+|-?\\d+/\\d+|-?\\d+(?:\\.\\d*)?|-?\\.\\d+)");
    // A letter e with digits behind it is an exponent and never the beginning of a unit.
    static const QRegularExpression plain(
        QStringLiteral("^\\s*(?:%1|-?\\d+(?:\\.\\d+)?[eE][+-]?\\d+)"
                       "\\s*(?:(?![eE][+-]?\\d)[^\\d\\s.,/].*|1\\s*/.*)?$")
            .arg(number));
    static const QRegularExpression feet(
        QStringLiteral("^\\s*%1\\s*'\\s*%1\\s*''\\s*$|^\\s*%1\\s*ft\\s*%1\\s*in\\s*$").arg(number));
    return plain.match(text).hasMatch() || feet.match(text).hasMatch();
}

/// A length with feet and inches as one reads it. The minus of a text such as "-5' 6''" would not
/// reach the inches, so it stands in front as a word.
QString feetText(double value)
{
    Context context(0);
    context.format_provider().set_unit(UnitId(lengthSet), UnitId(feetAndInches));
    context.format_provider().set_decimals(UnitId(lengthSet), 16);
    const QString text = formatQuantity(context, lengthSet, std::abs(value));
    return value < 0.0 ? QObject::tr("minus %1").arg(text) : text;
}

bool isLengthSet(int unitSet)
{
    const Context context(0);
    return context.converter().can_convert(UnitId(unitSet), UnitId(feetAndInches));
}

} // namespace

QuantityValidator::QuantityValidator(const Context& context, int unitSet)
    : UnitValidator(context, UnitId(unitSet))
    , m_shown(context)
    , m_unitSet(unitSet)
    , m_minimum(std::numeric_limits<double>::lowest())
    , m_maximum(std::numeric_limits<double>::max())
{
    setEditHintFunction([this](const QString& text) { return hint(text); });
}

void QuantityValidator::setLimits(double minimum, double maximum)
{
    m_minimum = minimum;
    m_maximum = maximum;
    set_minimum(minimum);
    set_maximum(maximum);
}

bool QuantityValidator::validate(const QString& text, boost::any& value, const std::bitset<32>&)
{
    // An empty text is good, as zero.
    const std::optional<double> number = text.isEmpty() ? 0.0 : read(text);
    value = IConverter::quantity{UnitId(m_unitSet), number.value_or(0.0)};
    return number.has_value();
}

bool QuantityValidator::validateWhenFinished(const QString& text, boost::any& value,
                                             const std::bitset<32>& flags)
{
    if (!validate(text, value, flags)) {
        return false;
    }
    auto& quantity = boost::any_cast<IConverter::quantity&>(value);
    const double limited = std::min(m_maximum, std::max(m_minimum, quantity.value));
    // Only what the user typed is held to the limits.
    if (limited != quantity.value && text != m_writtenText) {
        m_moved = quantity.value;
        quantity.value = limited;
    }
    return true;
}

QString QuantityValidator::reformat(const boost::any& value, const std::bitset<32>&)
{
    m_writtenValue = boost::any_cast<IConverter::quantity>(value).value;
    m_writtenText = format(m_writtenValue);
    return m_writtenText;
}

void QuantityValidator::forgetText()
{
    m_writtenText = QString();
    m_moved.reset();
}

std::optional<double> QuantityValidator::takeMoved()
{
    const std::optional<double> moved = m_moved;
    m_moved.reset();
    return moved;
}

QString QuantityValidator::hint(const QString& text) const
{
    if (text.isEmpty()) {
        return QString();
    }
    const std::optional<double> number = read(text);
    if (!number) {
        return refusal(text);
    }
    QString result;
    const QString shown = format(*number);
    const QString metric = formatQuantity(Context(0), m_unitSet, *number);
    if (isLengthSet(m_unitSet)) {
        result = QStringLiteral("= %1 = %2").arg(metric, feetText(*number));
    } else if (shown == metric) {
        result = QStringLiteral("= %1").arg(shown);
    } else {
        result = QStringLiteral("= %1 = %2").arg(shown, metric);
    }
    if (text != m_writtenText && (*number < m_minimum || *number > m_maximum)) {
        result +=
            QObject::tr(", limited to %1").arg(format(*number < m_minimum ? m_minimum : m_maximum));
    }
    return result;
}

QString QuantityValidator::refusal(const QString& text) const
{
    const QString unit = shownUnit(m_shown, m_unitSet);
    boost::optional<IConverter::quantity> quantity =
        m_shown.parse(text.toStdWString(), UnitId(m_unitSet), std::locale::classic());
    if (quantity && !std::isfinite(quantity->value)) {
        return QObject::tr("\"%1\" is no finite number").arg(text);
    }
    if (quantity && text.contains(QLatin1Char(','))) {
        return QObject::tr("\"%1\": decimals stand behind a point").arg(text);
    }
    return QObject::tr("\"%1\" is not understood as a number with a unit such as %2")
        .arg(text, unit);
}

QString QuantityValidator::limitsText() const
{
    const bool below = m_minimum > std::numeric_limits<double>::lowest();
    const bool above = m_maximum < std::numeric_limits<double>::max();
    if (below && above) {
        return QObject::tr("from %1 to %2").arg(format(m_minimum), format(m_maximum));
    }
    if (below) {
        return QObject::tr("at least %1").arg(format(m_minimum));
    }
    return above ? QObject::tr("at most %1").arg(format(m_maximum)) : QString();
}

std::optional<double> QuantityValidator::read(const QString& text) const
{
    if (!m_writtenText.isNull() && text == m_writtenText) {
        return m_writtenValue;
    }
    if (!isReadWhole(text)) {
        return std::nullopt;
    }
    const boost::optional<IConverter::quantity> quantity =
        m_shown.parse(text.toStdWString(), UnitId(m_unitSet), std::locale::classic());
    if (!quantity || !std::isfinite(quantity->value)) {
        return std::nullopt;
    }
    return quantity->value;
}

QString QuantityValidator::format(double value) const
{
    return formatQuantity(m_shown, m_unitSet, value);
}

} // namespace frame_editor
