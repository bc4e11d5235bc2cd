#pragma once

#include <QModelIndex>
#include <QString>

#include <stdexcept>

class QWidget;

namespace frame_editor {

class MemberTable;
class PropertyField;

/// A text that no user could enter into an editor: there is no such choice, or no key types it.
class NoSuchChoice : public std::runtime_error
{
public:
    explicit NoSuchChoice(const QString& message);
};

/// Enters a text into the editor of a field by the keys that a user would press: types it into a
/// line edit, picks it from a list, checks or unchecks a box. Choices go by what the user reads or
/// by their key in files; boxes take "yes" and "no", "true" and "false". The end of editing
/// follows, so the field has an outcome afterwards, unless nothing was to be done.
///
/// The window of the field has to be the active one.
/// @throws NoSuchChoice before the end of editing, so nothing is written
void enterText(PropertyField& field, const QString& text);

/// Enters a text into a cell of the table of members in the same way.
/// @throws NoSuchChoice before the cell has another value
void enterText(MemberTable& table, const QModelIndex& cell, const QString& text);

/// Pastes a text with the cell as its upper left corner. What is on the clipboard is replaced.
void pasteText(MemberTable& table, const QModelIndex& cell, const QString& text);

} // namespace frame_editor
