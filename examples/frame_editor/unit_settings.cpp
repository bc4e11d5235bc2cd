#include "examples/frame_editor/unit_settings.h"

#include <algorithm>
#include <locale>

namespace frame_editor {

UnitSettings::UnitSettings(QObject* parent)
    : QObject(parent)
{
    zel::units::v1::set_active_input_context(zel::units::v1::Context(m_column));
}

int UnitSettings::column() const
{
    return m_column;
}

const zel::units::v1::Context& UnitSettings::context() const
{
    return zel::units::v1::get_active_input_context();
}

void UnitSettings::setColumn(int column)
{
    if (column != m_column && column >= 0 && column < columnCount) {
        Q_EMIT aboutToChange();
        m_column = column;
        zel::units::v1::set_active_input_context(zel::units::v1::Context(column));
        Q_EMIT changed();
    }
}

QString columnName(int column)
{
    // The quantities whose units tell the columns apart: length, thickness, load and modulus.
    const zel::units::v1::Context context(column);
    return QStringLiteral("%1: %2, %3, %4, %5")
        .arg(column)
        .arg(shownUnit(context, 1001), shownUnit(context, 1010), shownUnit(context, 1191),
             shownUnit(context, 1090));
}

QString shownUnit(const zel::units::v1::Context& context, int unitSet)
{
    const zel::units::UnitId unit = context.format_provider().get_unit(zel::units::UnitId(unitSet));
    return QString::fromStdString(context.unit_provider().get_label(unit));
}

bool isSameQuantity(int unitSet, int otherUnitSet)
{
    const zel::units::v1::Context context(0);
    const auto units = context.unit_provider().get_set_units(zel::units::UnitId(unitSet));
    const auto others = context.unit_provider().get_set_units(zel::units::UnitId(otherUnitSet));
    return std::find_first_of(units.begin(), units.end(), others.begin(), others.end()) !=
           units.end();
}

QString formatQuantity(const zel::units::v1::Context& context, int unitSet, double value)
{
    return QString::fromStdWString(
        context.format({zel::units::UnitId(unitSet), value}, std::locale::classic()));
}

} // namespace frame_editor
