#include "examples/frame_editor/property_panel.h"

#include "examples/frame_editor/document.h"
#include "examples/frame_editor/field_value.h"
#include "examples/frame_editor/form_editors.h"
#include "examples/frame_editor/member_selection.h"
#include "examples/frame_editor/menu_titles.h"
#include "examples/frame_editor/name_list.h"
#include "examples/frame_editor/unit_settings.h"

#include "qt/inc/controls.h"

#include <QApplication>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QUndoStack>
#include <QVBoxLayout>

#include <algorithm>

namespace frame_editor {

using zel::qt::HintTree;

namespace {

constexpr int radioTop = 6; ///< brings the caption to the height of the first button

HintTree groupHints(const QString& caption)
{
    HintTree hints;
    hints.put_child("editor", HintTree(boost::any(std::string("group"))));
    hints.put_child("label", HintTree(boost::any(caption.toStdString())));
    return hints;
}

} // namespace

PropertyPanel::PropertyPanel(Document& document, UnitSettings& units, const Form& form,
                             QWidget* parent)
    : QScrollArea(parent)
    , m_document(document)
    , m_units(units)
    , m_form(form)
{
    registerFormEditors();
    setObjectName(QStringLiteral("properties"));
    setAccessibleName(tr("Properties"));
    setWidgetResizable(true);
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    connect(&document, &Document::modelReplaced, this, &PropertyPanel::rebuild);
    connect(&document, &Document::changed, this, &PropertyPanel::refresh);
    connect(&document, &Document::selectionChanged, this, [this] {
        // The fields still know the members that the text was meant for.
        commitPending();
        load();
    });
    connect(&units, &UnitSettings::aboutToChange, this, &PropertyPanel::commitPending);
    connect(&units, &UnitSettings::changed, this, &PropertyPanel::rebuild);
    rebuild();
}

PropertyPanel::~PropertyPanel() = default;

PropertyField* PropertyPanel::field(const QString& property) const
{
    const auto found =
        std::find_if(m_fields.begin(), m_fields.end(), [&property](const PropertyField* field) {
            return field->property().id == property;
        });
    return found == m_fields.end() ? nullptr : *found;
}

const std::vector<PropertyField*>& PropertyPanel::fields() const
{
    return m_fields;
}

void PropertyPanel::setForm(const Form& form)
{
    commitPending();
    m_form = form;
    rebuild();
}

const Form& PropertyPanel::form() const
{
    return m_form;
}

QString PropertyPanel::commitPending()
{
    // By a copy: a commit makes the document tell its views.
    const std::vector<PropertyField*> fields = m_fields;
    QString refusal;
    for (PropertyField* field : fields) {
        field->commitPending();
        if (field->isPending() && refusal.isEmpty()) {
            refusal = field->lastOutcome().message;
        }
    }
    return refusal;
}

QSize PropertyPanel::sizeHint() const
{
    const QSize content = m_content ? m_content->sizeHint() : QSize();
    return content + QSize(verticalScrollBar()->sizeHint().width(), 0);
}

void PropertyPanel::rebuild()
{
    QString focused;
    for (PropertyField* field : m_fields) {
        if (field->editor()->isAncestorOf(QApplication::focusWidget())) {
            focused = field->property().id;
        }
        field->disconnect(this);
    }
    m_fields.clear();
    m_switches.clear();
    m_mnemonics = MenuTitles().letters();

    auto* content = new QWidget;
    m_content = content;
    auto* layout = new QVBoxLayout(content);
    m_heading = new QLabel(content);
    m_heading->setObjectName(QStringLiteral("selectedMembers"));
    m_heading->setTextFormat(Qt::PlainText);
    m_heading->setWordWrap(true);
    layout->addWidget(m_heading);
    const zel::qt::HintRegistry registry = formRegistry(m_document.model());
    for (const FormGroup& group : m_form.groups) {
        addGroup(group, registry, layout);
    }
    layout->addStretch(1);
    alignColumns();
    setWidget(content);
    load();
    setMinimumWidth(content->minimumSizeHint().width() + verticalScrollBar()->sizeHint().width());
    if (const PropertyField* again = field(focused)) {
        again->editor()->setFocus(Qt::OtherFocusReason);
    }
}

void PropertyPanel::addGroup(const FormGroup& group, const zel::qt::HintRegistry& registry,
                             QBoxLayout* layout)
{
    QWidget* box = nullptr;
    if (group.property) {
        PropertyField* field = adopt(new PropertyField(
            m_document, *group.property, groupHints(withMnemonic(group.title)), m_content));
        box = field->editor();
        layout->addWidget(box);
        addSwitch(field, layout);
    } else {
        box = new QGroupBox(withoutMnemonic(group.title), m_content);
        layout->addWidget(box);
    }
    zel::qt::PropertyGridLayouter layouter;
    layouter.onCreate(box);
    int row = 0;
    for (const FormField& formField : group.fields) {
        addField(formField, box, row++, registry, layouter);
    }
    layouter.onFinish();
}

void PropertyPanel::addSwitch(PropertyField* field, QBoxLayout* layout)
{
    auto* buttons = new QWidget(m_content);
    auto* row = new QHBoxLayout(buttons);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(new QLabel(tr("The members differ:"), buttons));
    for (const bool value : {true, false}) {
        auto* button = new QPushButton(value ? tr("All") : tr("None"), buttons);
        button->setObjectName(field->property().id +
                              (value ? QStringLiteral("All") : QStringLiteral("None")));
        button->setAccessibleName(tr("%1: %2").arg(field->property().label, button->text()));
        connect(button, &QPushButton::clicked, field, [field, value] { field->choose(value); });
        row->addWidget(button);
    }
    row->addStretch(1);
    layout->addWidget(buttons);
    m_switches.push_back({field, buttons});
}

void PropertyPanel::addField(const FormField& formField, QWidget* box, int row,
                             const zel::qt::HintRegistry& registry,
                             zel::qt::PropertyGridLayouter& layouter)
{
    FormField shown = formField;
    shown.caption = withMnemonic(formField.caption);
    auto* field =
        adopt(new PropertyField(m_document, *formField.property, hintsOf(shown, registry), box));
    QWidget* editor = field->editor();
    if (dynamic_cast<zel::qt::MultiEditCheckBox*>(editor)) {
        layouter.onAdd(editor); // it bears its caption itself
        return;
    }
    layouter.onAdd(editor, shown.caption);
    if (auto* label = qobject_cast<QLabel*>(layouter.layout()->itemAtPosition(row, 0)->widget())) {
        label->setBuddy(editor);
        field->setCaption(label);
        if (dynamic_cast<zel::qt::MultiEditRadioButtonGroup*>(editor)) {
            layouter.layout()->setAlignment(label, Qt::AlignTop);
            label->setContentsMargins(0, radioTop, 0, 0);
        }
    }
}

PropertyField* PropertyPanel::adopt(PropertyField* field)
{
    QWidget* editor = field->editor();
    QWidget* focus = editor->focusProxy() ? editor->focusProxy() : editor;
    focus->setAccessibleName(field->property().label);
    connect(field, &PropertyField::committed, this, [this, field] { tell(*field); });
    m_fields.push_back(field);
    return field;
}

void PropertyPanel::alignColumns()
{
    // Captions end and units begin at one line each, through all groups.
    int captionWidth = 0;
    const QList<QGroupBox*> boxes =
        m_content->findChildren<QGroupBox*>(QString(), Qt::FindDirectChildrenOnly);
    for (QGroupBox* box : boxes) {
        const auto* grid = qobject_cast<QGridLayout*>(box->layout());
        for (int row = 0; grid && row < grid->rowCount(); ++row) {
            const QLayoutItem* item = grid->itemAtPosition(row, 0);
            captionWidth = item ? std::max(captionWidth, item->sizeHint().width()) : captionWidth;
        }
    }
    for (QGroupBox* box : boxes) {
        if (auto* grid = qobject_cast<QGridLayout*>(box->layout())) {
            grid->setColumnMinimumWidth(0, captionWidth);
        }
    }
    int unitWidth = 0;
    std::vector<QLabel*> units;
    for (const PropertyField* field : m_fields) {
        if (field->property().kind == PropertyKind::Quantity) {
            const QList<QLabel*> labels =
                field->editor()->findChildren<QLabel*>(QString(), Qt::FindDirectChildrenOnly);
            for (QLabel* unit : labels) {
                units.push_back(unit);
                unitWidth = std::max(unitWidth, unit->sizeHint().width());
            }
        }
    }
    for (QLabel* unit : units) {
        unit->setMinimumWidth(unitWidth);
    }
}

QString PropertyPanel::withMnemonic(const QString& caption)
{
    QString shown = withoutMnemonic(caption);
    for (int i = 0; i < shown.size(); ++i) {
        const QChar letter = shown.at(i).toLower();
        // Letters with an accent are on few keyboards.
        if (letter.isLetter() && letter.decomposition().isEmpty() &&
            !m_mnemonics.contains(letter)) {
            m_mnemonics.insert(letter);
            return QString(shown).insert(i, QLatin1Char('&'));
        }
    }
    return shown;
}

void PropertyPanel::load()
{
    showWhetherSelected();
    for (PropertyField* field : m_fields) {
        field->load(m_document.selection().members());
    }
    showState();
}

void PropertyPanel::refresh()
{
    showWhetherSelected();
    for (PropertyField* field : m_fields) {
        // What the user is typing goes on counting.
        if (!field->isPending()) {
            field->load(m_document.selection().members());
        }
    }
    showState();
}

/// Before the fields are filled: a field that loses the focus fills itself.
void PropertyPanel::showWhetherSelected()
{
    m_content->setEnabled(!m_document.selection().isEmpty());
}

void PropertyPanel::showState()
{
    const QVector<int>& members = m_document.selection().members();
    QStringList names;
    for (const int member : members) {
        names << m_document.model().members.at(static_cast<std::size_t>(member)).name;
    }
    const QString list = nameList(names);
    m_heading->setText(names.isEmpty()     ? tr("No member is selected")
                       : names.size() == 1 ? tr("Member %1").arg(list)
                                           : tr("%n members: %1", nullptr, names.size()).arg(list));
    for (const Switch& decision : m_switches) {
        decision.buttons->setVisible(decision.field->varies());
    }
}

void PropertyPanel::tell(const PropertyField& field)
{
    const FieldOutcome& outcome = field.lastOutcome();
    if (!outcome.message.isEmpty()) {
        Q_EMIT told(outcome.message);
    } else if (outcome.kind == FieldOutcome::Written) {
        Q_EMIT told(tr("%1: written").arg(m_document.undoStack().undoText()));
    }
}

} // namespace frame_editor
