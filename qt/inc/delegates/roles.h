#pragma once

#include <QMetaType>

#include <boost/any.hpp>

/// The typed value of a cell travels in a QVariant as a boost::any. This is the one place that
/// makes it a meta type.
Q_DECLARE_METATYPE(boost::any)

namespace zel::qt {

/// The roles under which a model keeps a cell for the delegates and the table view.
/// @{

/// The text shown in the cell.
constexpr int DisplayRole = 0; // Qt::DisplayRole
/// The same text as tool tip.
constexpr int ToolTipRole = 3; // Qt::ToolTipRole
/// The typed value: a QVariant holding a boost::any, which is empty where the cell has a place for
/// a value and none in it. A cell whose data does not convert to boost::any has no editable value.
/// This is not Qt::EditRole.
constexpr int EditRole = 257; // Qt::UserRole + 1

/// @}

} // namespace zel::qt
