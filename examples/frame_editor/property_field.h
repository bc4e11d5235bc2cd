#pragma once

#include "examples/frame_editor/member_property.h"

#include "qt/inc/factories.h"

#include <QObject>
#include <QVector>

#include <memory>
#include <optional>

class QLineEdit;

namespace zel::qt {
class MultiEditControlBase;
class MultiEditLineEdit;
class OnValueChangedHook;
} // namespace zel::qt

namespace frame_editor {

class Document;
class QuantityEdit;

/// What came of the end of editing of a field.
struct FieldOutcome
{
    enum Kind
    {
        Untouched, ///< the user only passed through: nothing was decided, nothing is written
        Unchanged, ///< what the user decided is what the members have already
        Written,
        Refused ///< nothing is written
    };
    Kind kind = Untouched;
    QString message; ///< why it is refused, or that a limit has moved the number
};

/// One property of the selected members in its editor: reads the members into the editor, and
/// writes back what the user decided, as one undo step.
///
/// A decision is a text other than the one that the field had shown, or a choice. So a field that
/// the user tabs through writes nothing, also where it shows a rounded number; a field that shows
/// "*VARIES*" and is left so writes nothing; a typed text counts to its last digit for every
/// selected member.
class PropertyField : public QObject
{
    Q_OBJECT
public:
    /// Makes the editor from the hints; it belongs to `parent`. A tree that describes no editor
    /// gives a field without one.
    PropertyField(Document& document, const MemberProperty& property,
                  const zel::qt::HintTree& hints, QWidget* parent);
    ~PropertyField() override;

    const MemberProperty& property() const;
    QWidget* editor() const;
    /// The line edit of a field that is typed into, null for a choice.
    zel::qt::MultiEditLineEdit* lineEdit() const;

    /// Tells the field of the caption beside it, which is grey when the editor is.
    void setCaption(QWidget* caption);

    /// Shows the property of some members and forgets what was typed. Members that do not have the
    /// property do not count; if none of them has it, the field is empty and disabled.
    void load(const QVector<int>& members);
    /// Whether one of the members that are shown has the property.
    bool applies() const;

    /// Gives the members a value as if the user had chosen it, for a group box, which is disabled
    /// while its members differ.
    void choose(const PropertyValue& value);
    /// Whether the members differ in what the field shows.
    bool varies() const;

    /// Whether the user has typed something that no end of editing has taken yet.
    bool isPending() const;
    /// Ends the editing of a pending text, as leaving the field would.
    void commitPending();
    /// What came of the last end of editing.
    const FieldOutcome& lastOutcome() const;

    /// What the field may take, for its tool tip; may be empty.
    QString limitsText() const;

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    /// The end of editing, with lastOutcome().
    void committed();

private:
    void watchEditor();
    void showNothingTyped();
    void showNoValue();
    void showWhetherItApplies();
    bool isSwitchedByGroup() const;
    QVector<int> having(const QVector<int>& members) const;
    void onValueChanged();
    FieldOutcome commitText();
    QString refusalOfText(const QString& text) const;
    FieldOutcome commitChoice();
    FieldOutcome write(const PropertyValue& value);
    FieldOutcome refuse(const QString& reason);
    void rememberText(const QString& typed);

    Document& m_document;
    const MemberProperty& m_property;
    MemberProperty m_display; ///< the property in the unit set that the form chose
    zel::qt::EditorMetaData m_editor;
    zel::qt::MultiEditControlBase* m_control = nullptr;
    zel::qt::MultiEditLineEdit* m_lineEdit = nullptr; ///< null for a choice
    QLineEdit* m_typedInto = nullptr;   ///< of the line edit, or of a choice that can be typed
    QuantityEdit* m_quantity = nullptr; ///< null for what is no quantity
    std::unique_ptr<zel::qt::OnValueChangedHook> m_hook;
    QWidget* m_caption = nullptr; ///< null for an editor that bears its caption itself
    QVector<int> m_selected;
    QVector<int> m_members;         ///< of those that are selected, the ones with the property
    QString m_shown;                ///< the text that the field showed when it was loaded
    std::optional<QString> m_typed; ///< what the user made of it, if he typed
    FieldOutcome m_outcome;
    bool m_loading = false;
};

} // namespace frame_editor
