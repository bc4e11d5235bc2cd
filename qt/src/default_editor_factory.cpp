#include "qt/inc/factories/default_editor_factory.h"

#include "platform/smart_assert.h"
#include "qt/inc/controls/enum_box.h"
#include "qt/inc/controls/multi_edit_line_edit.h"
#include "qt/inc/controls/multi_edit_line_edit_with_button.h"
#include "qt/inc/controls/multi_edit_value.h"
#include "qt/inc/factories/hint_keys.h"
#include "qt/inc/validators/unit_validator.h"
#include "qt/src/yes_no.h"

#include <QPointer>
#include <QTimer>

namespace zel::qt {

template class BuilderTable<std::string, Editor, HintTree>;

namespace {

using EqualFn = bool (*)(const boost::any&, const boost::any&);
using ResetFn = std::function<void(int, boost::any&, boost::any&)>;
using CallbackFn = std::function<bool(QWidget*, boost::any&)>;

// By number, since Qt has deprecated the name; it goes on honouring the policy.
constexpr auto adjustToMinimumContentsLength = static_cast<QComboBox::SizeAdjustPolicy>(2);

/// The widget and its control are one object.
template <class Widget>
std::unique_ptr<Editor> editorOf(Widget* widget)
{
    return std::make_unique<Editor>(Editor{widget, widget});
}

void clearValues(int /*id*/, boost::any& shown, boost::any& value)
{
    value = boost::any();
    shown = value;
}

std::unique_ptr<Editor> lineEditOf(std::unique_ptr<IValidator> validator, const HintTree& hints)
{
    if (readHintOr<bool>(hints, hint_keys::validatorOptional, false)) {
        return editorOf(new MultiEditLineEditWithResetButton(validator.release(), 0, clearValues));
    }
    return editorOf(
        MultiEditLineEdit::create(nullptr, QString(), validator.release(), 0, ExpandRight));
}

std::unique_ptr<Editor> buildYesNo(const HintTree& /*hints*/)
{
    static const NamedValueList yesNo = detail::makeYesNoList();
    auto* const box = MultiEditEnumBox::create(nullptr, QString(), &detail::equalYesNo);
    box->setValues(yesNo, PixmapPtrList(), {});
    return editorOf(box);
}

std::unique_ptr<Editor> buildCallback(const HintTree& hints)
{
    const auto callback = readHintOr<CallbackFn>(hints, hint_keys::callback, {});
    const auto isEqual = readHintOr<EqualFn>(hints, hint_keys::isEqual, nullptr);
    ZEL_SMART_ASSERT(callback && isEqual != nullptr, "callback && equal_fn");
    if (!callback || isEqual == nullptr) {
        return nullptr;
    }
    auto widget = std::make_unique<QWidget>();
    // A view must not take the loss of focus to whatever the host's function opens for a commit.
    widget->setProperty("zel_property_delegate_filter_focus_out", true);
    auto editor = std::make_unique<Editor>();
    editor->control = new MultiEditValue(isEqual);
    editor->widget = widget.release();
    // A view may have taken its widget away again by then: the cell is gone, and its value with it.
    const QPointer<QWidget> alive = editor->widget;
    QTimer::singleShot(0, [editor = editor.get(), alive, callback] {
        if (!alive) {
            return;
        }
        boost::any value = editor->control->getCurrentValue();
        editor->widget->deleteLater();
        if (callback(editor->widget, value)) {
            editor->control->readValue(value);
        }
    });
    return editor;
}

} // namespace

EditorFactory::EditorFactory() = default;
EditorFactory::EditorFactory(const EditorFactory&) = default;
EditorFactory& EditorFactory::operator=(const EditorFactory&) = default;
EditorFactory::~EditorFactory() = default;

DefaultEditorFactory::DefaultEditorFactory(std::shared_ptr<DefaultValidatorFactory> validators)
    : m_validators(std::move(validators))
{
    // The pointer is not adjusted on a copy: builders look validators up here.
    add("lineedit", [this](const HintTree& hints) { return buildLineEdit(hints); });
    add("unit", [this](const HintTree& hints) { return buildUnitEdit(hints); });
    add("named_value_list", [this](const HintTree& hints) { return buildNamedValues(hints); });
    add("yes_no", buildYesNo);
    add("multi_edit_line_edit_with_reset_button",
        [this](const HintTree& hints) { return buildLineEditWithResetButton(hints); });
    add("callback", buildCallback);
}

DefaultEditorFactory::DefaultEditorFactory(const DefaultEditorFactory&) = default;
DefaultEditorFactory& DefaultEditorFactory::operator=(const DefaultEditorFactory&) = default;
DefaultEditorFactory::~DefaultEditorFactory() = default;

std::unique_ptr<IValidator> DefaultEditorFactory::findValidator(const HintTree& hints) const
{
    if (!m_validators) {
        return nullptr;
    }
    const auto kind = readHint<ValidatorKey>(hints, hint_keys::validatorKind);
    return kind ? m_validators->create(*kind, hints.get_child(hint_keys::validator)) : nullptr;
}

std::unique_ptr<Editor> DefaultEditorFactory::buildLineEdit(const HintTree& hints) const
{
    return lineEditOf(findValidator(hints), hints);
}

std::unique_ptr<Editor> DefaultEditorFactory::buildUnitEdit(const HintTree& hints) const
{
    std::unique_ptr<IValidator> validator = findValidator(hints);
    if (dynamic_cast<UnitValidator*>(validator.get()) == nullptr) {
        validator.reset();
    }
    return lineEditOf(std::move(validator), hints);
}

std::unique_ptr<Editor> DefaultEditorFactory::buildNamedValues(const HintTree& hints) const
{
    const auto entries = readHint<NamedValueList>(hints, hint_keys::entries);
    const auto isEqual = readHintOr<EqualFn>(hints, hint_keys::isEqual, nullptr);
    ZEL_SMART_ASSERT(entries && isEqual != nullptr, "nvl && equal_fn");
    if (!entries || isEqual == nullptr) {
        return nullptr;
    }
    // Owned until it is handed out, since the hints that follow may be of another type.
    std::unique_ptr<MultiEditEnumBox> box(MultiEditEnumBox::create(nullptr, QString(), isEqual));
    box->setSizeAdjustPolicy(adjustToMinimumContentsLength);
    if (readHintOr<bool>(hints, hint_keys::editable, false)) {
        box->setEditable(true, boost::shared_ptr<IValidator>(findValidator(hints)));
    }
    box->setValues(*entries, readHintOr<PixmapPtrList>(hints, hint_keys::pixmaps, {}), {});
    return editorOf(box.release());
}

std::unique_ptr<Editor>
DefaultEditorFactory::buildLineEditWithResetButton(const HintTree& hints) const
{
    std::unique_ptr<IValidator> validator = findValidator(hints);
    const auto resetFn = readNeededHint<ResetFn>(hints, hint_keys::resetCallback);
    return editorOf(new MultiEditLineEditWithResetButton(validator.release(), 0, resetFn));
}

} // namespace zel::qt
