#pragma once

#include "units/inc/units.h"

#include <QObject>
#include <QString>

namespace frame_editor {

/// The units that the user reads and types in: one of the ten columns of the unit settings, for
/// the whole program. Editors copy the settings when they are made, so views build theirs anew
/// after changed().
class UnitSettings : public QObject
{
    Q_OBJECT
public:
    static constexpr int columnCount = 10;

    explicit UnitSettings(QObject* parent = nullptr);

    int column() const;
    const zel::units::v1::Context& context() const;
    /// Makes a column from 0 to 9 the active one.
    void setColumn(int column);

Q_SIGNALS:
    void aboutToChange();
    void changed();

private:
    int m_column = 0;
};

/// What a user can tell a column by: "2: m, mm, kN/m, N/mm2".
QString columnName(int column);

/// The label of the unit in which a unit set is shown, "kN/m".
QString shownUnit(const zel::units::v1::Context& context, int unitSet);

/// Whether two unit sets hold the same sort of quantity: they have a unit in common.
bool isSameQuantity(int unitSet, int otherUnitSet);

/// A number of base units as text, "2.50 kN/m".
QString formatQuantity(const zel::units::v1::Context& context, int unitSet, double value);

} // namespace frame_editor
