#pragma once

class QString;
class QWidget;

namespace zel::qt::detail {

/// Sets what assistive tools say of a control beside its name and its value, and tells them so if
/// it is new.
void describe(QWidget& control, const QString& text);

/// Describes a control whose values differ or, with false, drops that description.
void describeVarying(QWidget& control, bool varies);

/// Describes an edit by the hint for its text, behind a remark on a text that is not valid.
void describeText(QWidget& edit, bool valid, const QString& hint);

} // namespace zel::qt::detail
