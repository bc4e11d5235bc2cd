#include "examples/frame_editor/property_field.h"

#include "examples/frame_editor/count_validator.h"
#include "examples/frame_editor/document.h"
#include "examples/frame_editor/field_value.h"
#include "examples/frame_editor/quantity_edit.h"
#include "examples/frame_editor/unit_settings.h"

#include "qt/inc/controls.h"

#include <QComboBox>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QScopedValueRollback>
#include <QScreen>

#include <set>

namespace frame_editor {

namespace {

const QString historyName = QStringLiteral("frame_editor/");

/// A popup begins where its edit does, and so may end beyond the screen: the form stands at its
/// edge.
void keepOnScreen(QWidget& popup)
{
    const QRect area = popup.parentWidget()->screen()->availableGeometry();
    const int x = qMax(area.left(), qMin(popup.x(), area.right() + 1 - popup.width()));
    if (x != popup.x()) {
        popup.move(x, popup.y());
    }
}

bool endsInUnit(const QString& text)
{
    const QString trimmed = text.trimmed();
    return !trimmed.isEmpty() && !trimmed.back().isDigit() && trimmed.back() != QLatin1Char('.');
}

} // namespace

PropertyField::PropertyField(Document& document, const MemberProperty& property,
                             const zel::qt::HintTree& hints, QWidget* parent)
    : QObject(parent)
    , m_document(document)
    , m_property(property)
    , m_display(property)
    , m_editor(zel::qt::createEditorFromHints(parent, hints))
{
    m_display.unitSet =
        zel::qt::readHintOr(hints, "validator.unit_id", zel::units::UnitId(property.unitSet));
    if (m_editor.editor) {
        m_control = dynamic_cast<zel::qt::MultiEditControlBase*>(m_editor.editor);
        m_lineEdit = dynamic_cast<zel::qt::MultiEditLineEdit*>(m_editor.editor);
        m_quantity = dynamic_cast<QuantityEdit*>(m_editor.editor);
        if (dynamic_cast<zel::qt::MultiEditFilePicker*>(m_editor.editor)) {
            m_lineEdit = m_editor.editor->findChild<zel::qt::MultiEditLineEdit*>();
        }
        m_editor.editor->setObjectName(property.id);
        watchEditor();
    }
}

PropertyField::~PropertyField() = default;

const MemberProperty& PropertyField::property() const
{
    return m_property;
}

QWidget* PropertyField::editor() const
{
    return m_editor.editor;
}

zel::qt::MultiEditLineEdit* PropertyField::lineEdit() const
{
    return m_lineEdit;
}

bool PropertyField::isPending() const
{
    return m_typed && *m_typed != m_shown;
}

const FieldOutcome& PropertyField::lastOutcome() const
{
    return m_outcome;
}

QString PropertyField::limitsText() const
{
    return m_quantity ? m_quantity->quantityValidator().limitsText() : QString();
}

void PropertyField::watchEditor()
{
    m_hook = std::make_unique<zel::qt::OnValueChangedHook>(m_editor.editor,
                                                           [this] { onValueChanged(); });
    const QList<QComboBox*> combos = m_editor.editor->findChildren<QComboBox*>();
    for (QComboBox* combo : combos) {
        combo->setFocusPolicy(Qt::StrongFocus);
        combo->installEventFilter(this);
        m_typedInto = combo->lineEdit();
    }
    if (m_lineEdit) {
        m_typedInto = &m_lineEdit->edit();
    }
    if (m_typedInto) {
        connect(m_typedInto, &QLineEdit::textEdited, this,
                [this](const QString& text) { m_typed = text; });
    }
    if (!m_lineEdit) {
        return;
    }
    // The borderless look of a table cell does not fit a form.
    m_lineEdit->setStyleSheet(QString());
    QLineEdit& edit = m_lineEdit->edit();
    edit.setStyleSheet(QString());
    edit.installEventFilter(this);
    const QList<QWidget*> children =
        edit.findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
    for (QWidget* popup : children) {
        if (popup->isWindow()) {
            popup->installEventFilter(this);
        }
    }
    const QString key = historyName + m_property.id;
    m_lineEdit->setValueHistory(
        zel::ValueHistory::create(historyName.toStdWString(), key.toStdWString()));
}

void PropertyField::setCaption(QWidget* caption)
{
    m_caption = caption;
}

bool PropertyField::applies() const
{
    return !m_members.isEmpty();
}

QVector<int> PropertyField::having(const QVector<int>& members) const
{
    QVector<int> result;
    for (const int index : members) {
        if (appliesTo(m_property, m_document.model().members.at(static_cast<std::size_t>(index)))) {
            result << index;
        }
    }
    return result;
}

void PropertyField::load(const QVector<int>& members)
{
    const QScopedValueRollback<bool> loading(m_loading, true);
    m_selected = members;
    m_members = having(members);
    m_typed.reset();
    if (!m_editor.editor) {
        return;
    }
    if (!applies() && !isSwitchedByGroup()) {
        // The focus goes first: on its way it would fill the field again.
        m_editor.editor->setEnabled(m_selected.isEmpty());
    }
    showNothingTyped();
    std::set<QString> texts;
    for (const int index : qAsConst(m_members)) {
        const PropertyValue value =
            m_property.get(m_document.model().members.at(static_cast<std::size_t>(index)));
        texts.insert(displayText(m_display, value));
    }
    // What the user reads is what differs or not: two numbers behind one text are one to him.
    if (texts.size() > 1) {
        m_editor.forceVaries();
    } else if (!m_members.isEmpty()) {
        const auto first = static_cast<std::size_t>(m_members.first());
        m_editor.setValue(
            toEditorValue(m_display, m_property.get(m_document.model().members.at(first))));
    } else {
        showNoValue();
    }
    showWhetherItApplies();
    if (m_lineEdit && !m_lineEdit->edit().hasFocus()) {
        m_lineEdit->edit().setCursorPosition(0); // a long text is read from its beginning
    }
    m_shown = m_typedInto ? m_typedInto->text() : QString();
}

void PropertyField::showNothingTyped()
{
    if (m_quantity) {
        m_quantity->quantityValidator().forgetText();
    }
    if (m_lineEdit) {
        // Neither setValue() nor forceVaries() takes the colour and the hint of the last editing
        // off; a text that is good and has no hint does, as a rule the empty one.
        const QString good = m_property.kind == PropertyKind::Count
                                 ? QString::number(m_property.minimum)
                                 : QString();
        m_lineEdit->edit().setText(good);
        m_lineEdit->onTextEdited(good);
    } else if (m_control) {
        // A group box that varied is enabled again by this alone.
        m_control->reset();
        const QList<QLineEdit*> edits = m_editor.editor->findChildren<QLineEdit*>();
        for (QLineEdit* edit : edits) {
            edit->setStyleSheet(QString());
        }
    }
}

/// After showNothingTyped(): a check box and a group are off by now.
void PropertyField::showNoValue()
{
    if (m_lineEdit) {
        m_lineEdit->edit().clear();
    } else if (dynamic_cast<zel::qt::MultiEditRadioButtonGroup*>(m_editor.editor)) {
        m_editor.forceVaries(); // no button is chosen
    }
    const QList<QComboBox*> combos = m_editor.editor->findChildren<QComboBox*>();
    for (QComboBox* combo : combos) {
        combo->setCurrentIndex(-1);
    }
}

void PropertyField::showWhetherItApplies()
{
    const bool isHere = m_selected.isEmpty() || applies();
    if (!isSwitchedByGroup()) {
        // A group that varies is disabled until it is decided.
        const bool isSwitch = dynamic_cast<zel::qt::MultiEditGroupBox*>(m_editor.editor) != nullptr;
        m_editor.editor->setEnabled(isHere && !(isSwitch && varies()));
        if (m_caption) {
            m_caption->setEnabled(isHere);
        }
    }
    QWidget* focus =
        m_editor.editor->focusProxy() ? m_editor.editor->focusProxy() : m_editor.editor;
    const QString reason = tr("A rigid link has no such value");
    focus->setToolTip(isHere ? limitsText() : reason);
    if (!isHere) {
        focus->setAccessibleDescription(reason);
    }
}

/// Such a field is enabled and disabled by its group, which is itself disabled where it does not
/// apply.
bool PropertyField::isSwitchedByGroup() const
{
    const auto* group = qobject_cast<QGroupBox*>(m_editor.editor->parentWidget());
    return group && group->isCheckable();
}

void PropertyField::choose(const PropertyValue& value)
{
    {
        const QScopedValueRollback<bool> loading(m_loading, true);
        showNothingTyped();
        m_editor.setValue(toEditorValue(m_display, value));
    }
    onValueChanged();
}

bool PropertyField::varies() const
{
    return m_control && m_control->dataVaries();
}

void PropertyField::commitPending()
{
    if (!isPending()) {
        return;
    }
    if (m_lineEdit) {
        m_lineEdit->onEditingFinished();
    } else {
        onValueChanged();
    }
}

void PropertyField::onValueChanged()
{
    if (m_loading || m_members.isEmpty()) {
        return;
    }
    m_outcome = m_lineEdit ? commitText() : commitChoice();
    Q_EMIT committed();
}

FieldOutcome PropertyField::commitText()
{
    const QString text = m_lineEdit->edit().text();
    // Entries of the history come without typing.
    if (text == m_shown && !isPending()) {
        m_typed.reset();
        return {};
    }
    const QString typed = m_typed.value_or(text);
    if (!m_lineEdit->isValueValid()) {
        m_typed = typed;
        return refuse(refusalOfText(text));
    }
    const std::optional<double> moved =
        m_quantity ? m_quantity->quantityValidator().takeMoved() : std::nullopt;
    boost::any value;
    const bool decided = m_editor.getValue(value);
    const std::optional<PropertyValue> converted = fromEditorValue(m_display, value);
    if (!decided || !converted) {
        return {};
    }
    FieldOutcome outcome = write(*converted);
    if (outcome.kind == FieldOutcome::Refused) {
        m_typed = typed;
        return outcome;
    }
    m_typed.reset();
    m_shown = text;
    rememberText(typed);
    if (moved) {
        outcome.message = tr("%1: limited to %2, \"%3\" was typed")
                              .arg(m_property.label, displayText(m_display, *converted), typed);
    }
    return outcome;
}

QString PropertyField::refusalOfText(const QString& text) const
{
    if (m_quantity) {
        return m_quantity->quantityValidator().refusal(text);
    }
    return m_property.kind == PropertyKind::Count
               ? CountValidator::refusal(text, m_property.minimum, m_property.maximum)
               : tr("\"%1\" cannot stand here").arg(text);
}

FieldOutcome PropertyField::commitChoice()
{
    boost::any value;
    if (!m_editor.getValue(value)) {
        m_typed.reset();
        return {};
    }
    const std::optional<PropertyValue> converted = fromEditorValue(m_display, value);
    if (!converted) {
        const auto* combo = m_editor.editor->findChild<QComboBox*>();
        const QString text = combo ? combo->currentText() : QString();
        // The item that says that the members differ leaves them so.
        return text == zel::qt::getVariesString()
                   ? FieldOutcome()
                   : refuse(tr("\"%1\" is not in the list").arg(text));
    }
    return write(*converted);
}

FieldOutcome PropertyField::write(const PropertyValue& value)
{
    // A text can outlive a change of the members that it was typed for.
    const QVector<int> members = having(m_selected);
    if (members.isEmpty()) {
        return refuse(noSuchValue());
    }
    std::vector<MemberChange> changes;
    for (const int member : members) {
        changes.push_back({member, value});
    }
    bool differs = false;
    for (const int member : members) {
        const auto index = static_cast<std::size_t>(member);
        differs = differs || m_property.get(m_document.model().members.at(index)) != value;
    }
    // The document tells all views of its change, this field among them; from here on the text
    // counts as taken.
    const std::optional<QString> typed = m_typed;
    m_typed.reset();
    const QString reason = m_document.setMemberValues(m_property, changes);
    if (!reason.isEmpty()) {
        m_typed = typed;
        return refuse(reason);
    }
    FieldOutcome outcome;
    outcome.kind = differs ? FieldOutcome::Written : FieldOutcome::Unchanged;
    return outcome;
}

FieldOutcome PropertyField::refuse(const QString& reason)
{
    if (m_lineEdit) {
        // The colour of a bad text, also where it is the model that refuses.
        m_lineEdit->edit().setStyleSheet(QStringLiteral("QLineEdit { color: #e61414; }"));
    }
    FieldOutcome outcome;
    outcome.kind = FieldOutcome::Refused;
    outcome.message = tr("%1: %2; nothing is written").arg(m_property.label, reason);
    return outcome;
}

void PropertyField::rememberText(const QString& typed)
{
    // An entry is to mean the same value whenever and under whichever units it is chosen again.
    // The text in the field does, unless it is rounded; what was typed does, if it has a unit.
    if (!m_quantity || typed == m_lineEdit->edit().text()) {
        m_lineEdit->addCurrentValueToValueHistory();
        return;
    }
    const QString shown = m_lineEdit->edit().text();
    const zel::units::v1::Context& context = zel::units::v1::get_active_input_context();
    const auto read = [this, &context](const QString& text) {
        return context.parse(text.toStdWString(), zel::units::UnitId(m_display.unitSet),
                             std::locale::classic());
    };
    const auto first = static_cast<std::size_t>(m_members.first());
    const double value = std::get<double>(m_property.get(m_document.model().members.at(first)));
    const auto shownValue = read(shown);
    if (shownValue && shownValue->value == value) {
        m_lineEdit->addCurrentValueToValueHistory();
    } else {
        const QString entry = endsInUnit(typed) ? typed.trimmed()
                                                : typed.trimmed() + QLatin1Char(' ') +
                                                      shownUnit(context, m_display.unitSet);
        m_lineEdit->valueHistory()->add(entry.toStdWString());
    }
}

bool PropertyField::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Move || event->type() == QEvent::Resize) {
        auto* popup = qobject_cast<QWidget*>(watched);
        if (popup && popup->isWindow()) {
            keepOnScreen(*popup);
        }
        return false;
    }
    if (event->type() == QEvent::Wheel) {
        // Scrolling the form must not change the choice that happens to pass below the mouse.
        event->ignore();
        return true;
    }
    if (event->type() == QEvent::ShortcutOverride && !isPending()) {
        // The edit would keep the keys for undoing its own typing, of which there is none.
        auto* key = static_cast<QKeyEvent*>(event);
        if (key->matches(QKeySequence::Undo) || key->matches(QKeySequence::Redo)) {
            event->ignore();
            return true;
        }
    }
    if (event->type() == QEvent::KeyPress && isPending() &&
        static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
        load(m_selected);
        return true;
    }
    return QObject::eventFilter(watched, event);
}

} // namespace frame_editor
