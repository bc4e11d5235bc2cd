#include "examples/frame_editor/form_texts.h"

#include <QCoreApplication>

namespace frame_editor {

namespace {

/// All titles and captions of the files in the folder "forms", where the tools that collect texts
/// do not look. The captions of properties without one in the file come from the properties.
[[maybe_unused]] constexpr const char* formTexts[] = {
    QT_TRANSLATE_NOOP("frame_editor::Form", "All properties"),
    QT_TRANSLATE_NOOP("frame_editor::Form", "Bedded foundation"),
    QT_TRANSLATE_NOOP("frame_editor::Form", "Direction"),
    QT_TRANSLATE_NOOP("frame_editor::Form", "Ends"),
    QT_TRANSLATE_NOOP("frame_editor::Form", "Loads"),
    QT_TRANSLATE_NOOP("frame_editor::Form", "Loads alone"),
    QT_TRANSLATE_NOOP("frame_editor::Form", "Member"),
    QT_TRANSLATE_NOOP("frame_editor::Form", "Moment at the start"),
    QT_TRANSLATE_NOOP("frame_editor::Form", "Remarks"),
};

} // namespace

QString translatedFormText(const QString& text)
{
    return QCoreApplication::translate("frame_editor::Form", text.toUtf8().constData());
}

} // namespace frame_editor
