#pragma once

#include "qt/inc/controls/multi_edit_line_edit.h"

#include <boost/function.hpp>

namespace zel::qt {

/// A borderless line edit; with `optional` it has an inner button that asks `defaultFn` for the
/// text of the default. An empty `defaultFn` then reports the assertion "fn", and there is no
/// button. The validator is owned by the line edit.
MultiEditLineEdit*
makeLineEditWithOptionalValue(QWidget* parent, IValidator* validator, bool optional,
                              const boost::function<QString(const QString&)>& defaultFn);

} // namespace zel::qt
