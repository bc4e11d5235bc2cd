#include "examples/frame_editor/translations.h"

#include "platform/widgets.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QTranslator>

#include <memory>

/// The resources of a static library are nobody's until someone asks for them; the macro wants a
/// function of the global namespace.
static void initFrameEditorTranslations()
{
    Q_INIT_RESOURCE(zel_frame_editor_translations);
}

namespace frame_editor {

void registerTranslations()
{
    initFrameEditorTranslations(); // Q_INIT_RESOURCE: the files stand in a static library
    static const ZEL_QT_InitTranslator translator("zel_frame_editor");
}

void loadQtTranslations()
{
    // Not the locale is asked but the texts: where there are none for the user's language, Qt's
    // would make a window of two languages.
    const QString language = QObject::tr("en", "the code of the language of these texts");
    auto translator = std::make_unique<QTranslator>(QCoreApplication::instance());
    if (language != QLatin1String("en") &&
        translator->load(QStringLiteral("qtbase_") + language,
                         QLibraryInfo::location(QLibraryInfo::TranslationsPath))) {
        QCoreApplication::installTranslator(translator.release());
    }
}

} // namespace frame_editor
