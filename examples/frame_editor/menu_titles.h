#pragma once

#include <QSet>
#include <QString>

namespace frame_editor {

/// The texts of the window that can be reached with Alt and a letter from everywhere in it.
struct MenuTitles
{
    MenuTitles();

    QString file;
    QString edit;
    QString view;
    QString units; ///< the label of the unit chooser

    /// Their letters, in lower case: no caption in the window has one of them.
    QSet<QChar> letters() const;
};

/// A text with its ampersands, which menus, captions and titles else take for the mark of a letter.
QString withoutMnemonic(const QString& text);

} // namespace frame_editor
