#include "examples/frame_editor/menu_titles.h"

#include <QObject>

namespace frame_editor {

MenuTitles::MenuTitles()
    : file(QObject::tr("&File"))
    , edit(QObject::tr("&Edit"))
    , view(QObject::tr("&View"))
    , units(QObject::tr("U&nits "))
{}

QSet<QChar> MenuTitles::letters() const
{
    QSet<QChar> letters;
    for (const QString& title : {file, edit, view, units}) {
        letters.insert(title.at(title.indexOf(QLatin1Char('&')) + 1).toLower());
    }
    return letters;
}

QString withoutMnemonic(const QString& text)
{
    return QString(text).replace(QLatin1Char('&'), QStringLiteral("&&"));
}

} // namespace frame_editor
