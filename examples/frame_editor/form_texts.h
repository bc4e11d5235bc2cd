#pragma once

#include <QString>

namespace frame_editor {

/// A title or caption of a form file in the user's language. Those of the forms that come with the
/// program are translated; any other text stays as its author wrote it.
QString translatedFormText(const QString& text);

} // namespace frame_editor
