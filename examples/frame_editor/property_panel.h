#pragma once

#include "examples/frame_editor/form.h"
#include "examples/frame_editor/property_field.h"

#include <QPointer>
#include <QScrollArea>
#include <QSet>
#include <QString>

#include <vector>

class QBoxLayout;
class QLabel;

namespace zel::qt {
class PropertyGridLayouter;
}

namespace frame_editor {

class UnitSettings;

/// The properties of the selected members in editors that are built from a form alone.
class PropertyPanel : public QScrollArea
{
    Q_OBJECT
public:
    PropertyPanel(Document& document, UnitSettings& units, const Form& form, QWidget* parent);
    ~PropertyPanel() override;

    /// Shows another form.
    void setForm(const Form& form);
    const Form& form() const;

    /// The field of a property, or null if the form has none.
    PropertyField* field(const QString& property) const;
    /// All fields, in the order in which the Tab key goes through them.
    const std::vector<PropertyField*>& fields() const;

    /// Ends the editing of a text that was typed and not taken yet: to be called before the model
    /// changes by other means than this panel.
    /// @return why a text is refused that goes on standing in its field; empty if all were taken
    QString commitPending();

    QSize sizeHint() const override;

Q_SIGNALS:
    /// One line on what came of an edit.
    void told(const QString& text);

private:
    /// The two buttons that decide a group whose members differ, which its own box cannot.
    struct Switch
    {
        PropertyField* field = nullptr;
        QWidget* buttons = nullptr;
    };

    void rebuild();
    void addGroup(const FormGroup& group, const zel::qt::HintRegistry& registry,
                  QBoxLayout* layout);
    void addSwitch(PropertyField* field, QBoxLayout* layout);
    void addField(const FormField& formField, QWidget* box, int row,
                  const zel::qt::HintRegistry& registry, zel::qt::PropertyGridLayouter& layouter);
    PropertyField* adopt(PropertyField* field);
    void alignColumns();
    QString withMnemonic(const QString& caption);
    void load();
    void refresh();
    void showWhetherSelected();
    void showState();
    void tell(const PropertyField& field);

    Document& m_document;
    UnitSettings& m_units;
    Form m_form;
    QPointer<QWidget> m_content;
    QLabel* m_heading = nullptr;
    std::vector<PropertyField*> m_fields;
    std::vector<Switch> m_switches;
    QSet<QChar> m_mnemonics;
};

} // namespace frame_editor
