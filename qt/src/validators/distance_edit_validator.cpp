#include "qt/inc/validators/distance_edit_validator.h"

#include "platform/smart_assert.h"
#include "qt/inc/validators/locale_for_flags.h"
#include "qt/src/validators/clamp.h"
#include "units/inc/units.h"

#include <algorithm>
#include <array>
#include <utility>

namespace zel::qt {
namespace {

constexpr int metres = 13;
constexpr int millimetres = 16;

// The modes of zel_get_unitd.
constexpr int metresPerShown = 0;
constexpr int storedPerShown = 1;

/// Where the number of a text ends and its suffix begins; -1 if the text is digits and punctuation
/// to its end. One punctuation mark at a time belongs to the number, so that a sign and a decimal
/// point stay in it.
int suffixStart(const QString& text)
{
    bool behindMark = false;
    for (int i = 0; i < text.size(); ++i) {
        const QChar c = text.at(i);
        if (c.isDigit()) {
            behindMark = false;
        } else if (!behindMark && c.isPunct()) {
            behindMark = true;
        } else {
            return i;
        }
    }
    return -1;
}

double metresPer(const QString& suffix)
{
    static const std::array<std::pair<QLatin1String, double>, 4> factors = {{
        {QLatin1String("m"), 1.0},
        {QLatin1String("dm"), 0.1},
        {QLatin1String("cm"), 0.01},
        {QLatin1String("mm"), 0.001},
    }};
    for (const auto& [name, factor] : factors) {
        if (name == suffix) {
            return factor;
        }
    }
    throw units::UnknownUnit(suffix.toStdString());
}

} // namespace

DistanceEditValidator::DistanceEditValidator(int unit, double min, double max, bool emptyAsZero)
    : m_decimals(zel_get_unit_decimals(unit, storedPerShown))
    , m_min(min)
    , m_max(max)
    , m_unit(unit)
    , m_emptyAsZero(emptyAsZero)
{
    ZEL_SMART_ASSERT(m_min < m_max, "m_min < m_max").value("m_min", m_min).value("m_max", m_max);
    if (m_decimals < 0) {
        m_decimals = unit == metres ? 3 : unit == millimetres ? 1 : 2;
    }
    ZEL_SMART_ASSERT(m_decimals >= 0, "m_decimals >= 0").value("m_decimals", m_decimals);
}

DistanceEditValidator::~DistanceEditValidator() = default;

void DistanceEditValidator::setEmptyValueAllowed(bool b)
{
    m_emptyValueAllowed = b;
    m_emptyAsZero = !b;
}

void DistanceEditValidator::showUnitPostfix(bool b)
{
    m_showUnitPostfix = b;
}

bool DistanceEditValidator::validateWhenFinished(const QString& text, boost::any& value,
                                                 const std::bitset<32>& flags)
{
    const bool accepted = DistanceEditValidator::validate(text, value, flags);
    if (accepted && !value.empty()) {
        auto& stored = boost::any_cast<double&>(value);
        stored = detail::clamped(stored, m_min, m_max);
    }
    return accepted;
}

bool DistanceEditValidator::validate(const QString& text, boost::any& value,
                                     const std::bitset<32>& flags)
{
    if (m_emptyValueAllowed && text.isEmpty()) {
        value = boost::any();
        return true;
    }
    if (m_emptyAsZero && text.isEmpty()) {
        value = 0.0;
        return true;
    }
    bool ok = false;
    double shown = localeForFlags(flags).toDouble(text, &ok);
    if (ok) {
        value = zel_get_unitd(m_unit, storedPerShown) * shown;
        return true;
    }
    value = 0.0;
    shown = 0.0;

    const QString trimmed = text.trimmed();
    const int end = suffixStart(trimmed);
    // Without a suffix the text counts as zero, deliberately, though it is no number.
    if (end >= 0) {
        // The decimal separator of a number with a suffix is the point in every locale.
        const double number = trimmed.leftRef(end).toDouble(&ok);
        if (!ok) {
            return false;
        }
        const double inMetres = number * metresPer(trimmed.mid(end).trimmed());
        shown = inMetres / zel_get_unitd(m_unit, metresPerShown);
    }
    value = zel_get_unitd(m_unit, storedPerShown) * shown;
    return true;
}

QString DistanceEditValidator::reformat(const boost::any& value, const std::bitset<32>& flags)
{
    if (m_emptyValueAllowed && value.empty()) {
        return {};
    }
    const auto* stored = boost::any_cast<double>(&value);
    ZEL_SMART_ASSERT(stored != nullptr, "value.type() == typeid(double)");
    if (stored == nullptr) {
        return {};
    }
    // Unlike at the end of editing the lower bound is applied last: with bounds in the wrong order
    // it wins.
    const double limited = std::max(std::min(*stored, m_max), m_min);
    const double shown = limited / zel_get_unitd(m_unit, storedPerShown);
    const QString number = localeForFlags(flags).toString(shown, 'f', m_decimals);
    return m_showUnitPostfix ? number + unitPostfix() : number;
}

QString DistanceEditValidator::unitPostfix() const
{
    std::array<char, 32> label = {};
    if (zel_get_unit_label(m_unit, storedPerShown, label.data(), int(label.size()) - 1) == 0 ||
        label.front() == '\0') {
        return {};
    }
    return QLatin1Char(' ') + QString::fromUtf8(label.data());
}

} // namespace zel::qt
