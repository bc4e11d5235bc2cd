#pragma once

#include <QStringList>

namespace frame_editor {

/// The names in a row, "C1, C2"; of many the first ones and the number of the others.
QString nameList(const QStringList& names);

} // namespace frame_editor
