#include "examples/frame_editor/key_driver.h"

#include "examples/frame_editor/member_table.h"
#include "examples/frame_editor/member_table_columns.h"
#include "examples/frame_editor/member_table_model.h"
#include "examples/frame_editor/property_field.h"

#include "qt/inc/controls.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QGroupBox>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

namespace frame_editor {

namespace {

void press(QWidget* widget, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier,
           const QString& text = QString())
{
    QKeyEvent down(QEvent::KeyPress, key, modifiers, text);
    QApplication::sendEvent(widget, &down);
    QKeyEvent up(QEvent::KeyRelease, key, modifiers, text);
    QApplication::sendEvent(widget, &up);
}

void pressReturn(QWidget* widget)
{
    press(widget, Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"));
}

void focus(QWidget* widget)
{
    widget->setFocus(Qt::TabFocusReason);
    QApplication::processEvents();
}

void typeInto(QLineEdit& edit, const QString& label, const QString& text)
{
    focus(&edit);
    press(&edit, Qt::Key_A, Qt::ControlModifier);
    press(&edit, Qt::Key_Delete);
    const QVector<uint> characters = text.toUcs4();
    for (const uint character : characters) {
        press(&edit, 0, Qt::NoModifier, QString::fromUcs4(&character, 1));
    }
    if (edit.text() != text && edit.text().startsWith(text) && edit.hasSelectedText()) {
        press(&edit, Qt::Key_Delete); // a completion that nobody asked for
    }
    if (edit.text() != text) {
        // Line breaks and the like have no key, and the rest alone is another text.
        throw NoSuchChoice(
            QObject::tr("%1: the text has characters that cannot be typed").arg(label));
    }
    pressReturn(&edit);
    QApplication::processEvents();
}

/// Whether the text of an entry is meant by what the user of the command line wrote. What he can
/// write is the same in whatever language the entries are shown.
bool means(const MemberProperty* property, const QString& text, const QString& entry)
{
    return property && property->kind == PropertyKind::Choice
               ? property->choiceLabel(property->choiceKey(text)) == entry
               : text == entry;
}

/// @param property null for a node
void pickFrom(QComboBox& combo, const QString& label, const MemberProperty* property,
              const QString& text)
{
    int row = -1;
    for (int i = 0; i < combo.count() && row < 0 && text != zel::qt::getVariesString(); ++i) {
        row = means(property, text, combo.itemText(i)) ? i : -1;
    }
    if (row < 0) {
        throw NoSuchChoice(QObject::tr("%1: \"%2\" is not in the list").arg(label, text));
    }
    focus(&combo);
    press(&combo, Qt::Key_Down, Qt::AltModifier);
    QApplication::processEvents();
    QAbstractItemView* list = combo.view();
    press(list, Qt::Key_Home);
    for (int i = 0; i < row; ++i) {
        press(list, Qt::Key_Down);
    }
    pressReturn(list);
    QApplication::processEvents();
}

void pickButton(QWidget& group, const PropertyField& field, const QString& text)
{
    const QList<QRadioButton*> buttons = group.findChildren<QRadioButton*>();
    for (QRadioButton* button : buttons) {
        if (means(&field.property(), text, button->text())) {
            focus(button);
            if (!button->isChecked()) {
                press(button, Qt::Key_Space, Qt::NoModifier, QStringLiteral(" "));
            }
            return;
        }
    }
    throw NoSuchChoice(
        QObject::tr("%1: there is no choice \"%2\"").arg(field.property().label, text));
}

bool readFlag(const QString& label, const QString& text)
{
    const QString lower = text.toLower();
    if (lower == QLatin1String("yes") || lower == QLatin1String("true")) {
        return true;
    }
    if (lower == QLatin1String("no") || lower == QLatin1String("false")) {
        return false;
    }
    throw NoSuchChoice(QObject::tr("%1: \"%2\" is neither yes nor no").arg(label, text));
}

void pressSpace(QWidget* widget)
{
    focus(widget);
    press(widget, Qt::Key_Space, Qt::NoModifier, QStringLiteral(" "));
}

void setGroupBox(QGroupBox& box, const PropertyField& field, bool value)
{
    if (field.varies()) {
        const QString name =
            field.property().id + (value ? QStringLiteral("All") : QStringLiteral("None"));
        if (auto* button = box.window()->findChild<QPushButton*>(name)) {
            pressSpace(button);
        }
    } else if (box.isChecked() != value) {
        pressSpace(&box);
    }
}

} // namespace

NoSuchChoice::NoSuchChoice(const QString& message)
    : std::runtime_error(message.toStdString())
{}

void enterText(PropertyField& field, const QString& text)
{
    QWidget* editor = field.editor();
    const QString& label = field.property().label;
    if (zel::qt::MultiEditLineEdit* line = field.lineEdit()) {
        typeInto(line->edit(), label, text);
    } else if (auto* group = qobject_cast<QGroupBox*>(editor)) {
        setGroupBox(*group, field, readFlag(label, text));
    } else if (auto* combo = editor->findChild<QComboBox*>()) {
        if (combo->isEditable()) {
            typeInto(*combo->lineEdit(), label, text);
        } else {
            pickFrom(*combo, label, &field.property(), text);
        }
    } else if (auto* check = editor->findChild<QCheckBox*>()) {
        const Qt::CheckState wanted = readFlag(label, text) ? Qt::Checked : Qt::Unchecked;
        // From the state of members that differ the way to "no" leads over "yes".
        for (int i = 0; i < 2 && check->checkState() != wanted; ++i) {
            pressSpace(check);
        }
    } else {
        pickButton(*editor, field, text);
    }
}

void enterText(MemberTable& table, const QModelIndex& cell, const QString& text)
{
    const MemberColumn& column = memberColumn(cell.column());
    if (!table.cells().hasCell(cell.row(), cell.column()) ||
        column.cell == MemberColumn::Cell::Button) {
        throw NoSuchChoice(QObject::tr("%1: this member has no such cell").arg(column.label));
    }
    focus(&table);
    table.selectionModel()->setCurrentIndex(cell, QItemSelectionModel::ClearAndSelect);
    if (column.cell == MemberColumn::Cell::Flag) {
        const bool isOn = cell.data(Qt::CheckStateRole).toInt() == Qt::Checked;
        if (readFlag(column.label, text) != isOn) {
            pressSpace(&table);
        }
        return;
    }
    press(&table, Qt::Key_F2);
    QWidget* editor = table.indexWidget(cell);
    if (auto* line = qobject_cast<QLineEdit*>(editor)) {
        typeInto(*line, column.label, text);
    } else if (auto* combo = editor ? editor->findChild<QComboBox*>() : nullptr) {
        pickFrom(*combo, column.label, column.property, text);
        pressReturn(combo);
        QApplication::processEvents();
    }
}

void pasteText(MemberTable& table, const QModelIndex& cell, const QString& text)
{
    QGuiApplication::clipboard()->setText(text);
    focus(&table);
    table.selectionModel()->setCurrentIndex(cell, QItemSelectionModel::ClearAndSelect);
    press(&table, Qt::Key_V, Qt::ControlModifier);
    QApplication::processEvents();
}

} // namespace frame_editor
