#pragma once

#include "qt/inc/hint_json.h"

#include <QByteArray>
#include <QJsonObject>
#include <QString>

#include <vector>

namespace frame_editor {

struct FrameModel;
struct MemberProperty;

/// One row of a form: the property that it edits, and the description of its editor.
struct FormField
{
    const MemberProperty* property = nullptr;
    QString caption;         ///< the property's own if the file gives none
    QJsonObject description; ///< for zel::qt::hintsFromJson()
};

/// Fields under one title. A group with a property is switched by it: that property is a flag, and
/// the fields count only while it is on.
struct FormGroup
{
    QString title;
    const MemberProperty* property = nullptr; ///< null for a plain group
    std::vector<FormField> fields;
};

/// Which properties of members are edited, in which order and with what editors. Read from a file,
/// so that a user arranges his own; docs/frame_model.md tells the format.
struct Form
{
    QString title;
    std::vector<FormGroup> groups;
};

/// Reads a form from the text of a file. `fileName` only goes into messages. Each editor is built
/// once for a try, so a form that was read can be shown.
/// @throws FileError
Form readForm(const QByteArray& text, const QString& fileName);

/// Reads a form file.
/// @throws FileError
Form loadForm(const QString& fileName);

/// The forms that come with the program, as files that the user may change: the folder "forms"
/// beside the program or that of its installation. Empty if there is none.
QStringList formFiles();

/// The form to begin with: "member.json" of formFiles(), or builtInForm().
/// @throws FileError
Form standardForm();

/// The form "member" as it was when the program was built, for want of a file.
Form builtInForm();

/// What a form can name: the comparison "same_text", and the lists of entries "kind", "support",
/// "load_direction", "section" (with pictures of that name) and "material".
zel::qt::HintRegistry formRegistry(const FrameModel& model);

/// The hints of a field, for zel::qt::createEditorFromHints().
/// @throws zel::qt::HintJsonError
zel::qt::HintTree hintsOf(const FormField& field, const zel::qt::HintRegistry& registry);

/// Why an editor that was built from hints cannot edit the property; empty if it can. The editor
/// may be null.
QString misfitOf(const MemberProperty& property, const zel::qt::HintTree& hints, QWidget* editor);

} // namespace frame_editor
