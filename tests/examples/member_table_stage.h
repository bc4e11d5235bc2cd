#pragma once

#include "examples/frame_editor/member_table.h"
#include "examples/frame_editor/member_table_columns.h"
#include "examples/frame_editor/member_table_model.h"
#include "examples/frame_editor/model_file.h"
#include "tests/examples/editor_stage.h"

#include <QClipboard>
#include <QGuiApplication>

namespace zel::test {

/// The table of members in its window, with the hands of a user.
struct MemberTableStage : EditorStage
{
    explicit MemberTableStage(const char* model = "portal_frame.json")
        : EditorStage(model)
    {
        QGuiApplication::clipboard()->setText(QStringLiteral("nothing copied"));
        table().setFocus();
    }

    frame_editor::MemberTable& table() const
    {
        return window.table();
    }
    frame_editor::MemberTableModel& cells() const
    {
        return window.table().cells();
    }
    /// The row of a member; the blank row for an empty name.
    int row(const char* name) const
    {
        const int found = document.model().findMember(QLatin1String(name));
        return found < 0 ? cells().memberCount() : found;
    }
    QModelIndex cell(const char* member, const char* column) const
    {
        return cells().index(row(member), frame_editor::findMemberColumn(QLatin1String(column)));
    }
    QString shown(const char* member, const char* column) const
    {
        return cell(member, column).data().toString();
    }
    const frame_editor::Member& named(const char* name) const
    {
        return document.model().members.at(std::size_t(row(name)));
    }

    void selectCell(const QModelIndex& index)
    {
        // Not through the view: it would believe a key such as Ctrl, of the last copy, still held.
        table().selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect);
    }
    void selectBlock(const QModelIndex& topLeft, const QModelIndex& bottomRight)
    {
        table().selectionModel()->select(QItemSelection(topLeft, bottomRight),
                                         QItemSelectionModel::ClearAndSelect);
    }

    void press(int key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(&table(), Qt::Key(key), modifiers);
    }
    QString copied()
    {
        press(Qt::Key_C, Qt::ControlModifier);
        return QGuiApplication::clipboard()->text();
    }
    /// Pastes with a cell as the upper left corner.
    void paste(const QModelIndex& corner, const QString& text)
    {
        selectCell(corner);
        pasteOver(text);
    }
    void pasteOver(const QString& text)
    {
        QGuiApplication::clipboard()->setText(text);
        press(Qt::Key_V, Qt::ControlModifier);
    }

    /// The editor that is open; null for none.
    QWidget* editor() const
    {
        return table().indexWidget(table().currentIndex());
    }
    /// Opens the editor of a cell by the key for it.
    QWidget* open(const QModelIndex& index)
    {
        selectCell(index);
        press(Qt::Key_F2);
        return editor();
    }
    /// Types over the text of a cell and leaves the editor open.
    void typeInto(const QModelIndex& index, const QString& text)
    {
        auto* edit = qobject_cast<QLineEdit*>(open(index));
        QVERIFY(edit != nullptr);
        QTest::keyClicks(edit, text);
    }
    void enterInto(const QModelIndex& index, const QString& text)
    {
        typeInto(index, text);
        QTest::keyClick(editor(), Qt::Key_Return);
        QCoreApplication::processEvents();
        QVERIFY(editor() == nullptr);
    }

    /// Lets go of the editors that are closed.
    static void runDeferredDeletes()
    {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    QByteArray bytes() const
    {
        return frame_editor::writeModel(document.model());
    }
    void undo()
    {
        document.undoStack().undo();
    }
};

} // namespace zel::test
