#include "qt/inc/factories/editor_from_hints.h"

#include "qt/inc/controls/enum_box.h"
#include "qt/inc/controls/multi_edit_line_edit.h"
#include "qt/inc/factories/hint_keys.h"
#include "qt/inc/integer_validator.h"
#include "qt/inc/validators/distance_edit_validator.h"
#include "qt/inc/validators/double_edit_validator.h"
#include "qt/inc/validators/string_edit_validator.h"
#include "qt/inc/validators/unit_validator.h"
#include "qt/src/optional_line_edit.h"
#include "units/inc/units.h"

#include <QLayout>

#include <limits>
#include <map>
#include <memory>
#include <utility>

namespace zel::qt {
namespace {

using EditorCreator = boost::function<EditorMetaData(QWidget*, const HintTree&)>;
using DefaultFn = boost::function<QString(const QString&)>;

constexpr int defaultMaxLength = 256;

std::map<std::string, EditorCreator>& registry()
{
    static std::map<std::string, EditorCreator> editors;
    return editors;
}

/// The editor together with the operations of its control, which live in the same object.
template <class Editor>
EditorMetaData metaDataOf(Editor* editor)
{
    MultiEditControlBase* const control = editor;
    EditorMetaData result;
    result.editor = editor;
    result.setValue = [control](const boost::any& value) { control->setValue(value); };
    result.forceVaries = [control] { control->forceVaries(); };
    result.getValue = [control](boost::any& value) {
        if (control->dataVaries()) {
            return false;
        }
        value = control->getCurrentValue();
        return true;
    };
    return result;
}

template <class Validator>
std::unique_ptr<IValidator> withEmptyValue(std::unique_ptr<Validator> validator, bool allowed)
{
    validator->setEmptyValueAllowed(allowed);
    return validator;
}

std::unique_ptr<IValidator> makeStringValidator(const HintTree& hints)
{
    const int maxLength = readHintOr<int>(hints, hint_keys::validatorMaxLength, defaultMaxLength);
    auto validator = std::make_unique<StringEditValidator>(static_cast<std::size_t>(maxLength));
    validator->setStorageType(StringEditValidator::Utf8);
    return validator;
}

std::unique_ptr<IValidator> makeIntValidator(bool optional)
{
    auto validator = std::make_unique<IntegerValidator<int>>(std::numeric_limits<int>::min(),
                                                             std::numeric_limits<int>::max(), true);
    validator->m_emptyValueAllowed = optional;
    validator->m_emptyAsZero = !optional;
    return validator;
}

/// The validator of a type of "lineedit"; null for an unknown type.
std::unique_ptr<IValidator> makeValidator(const std::string& type, bool optional,
                                          const HintTree& hints)
{
    if (type.empty()) {
        return std::make_unique<StringEditValidator>(defaultMaxLength);
    }
    if (type == "unit") {
        const auto unit =
            readHintOr<units::UnitId>(hints, hint_keys::validatorUnitId, units::UnitId(1));
        return withEmptyValue(
            std::make_unique<UnitValidator>(units::v1::get_active_input_context(), unit), optional);
    }
    if (type == "string") {
        return makeStringValidator(hints);
    }
    if (type == "double") {
        return withEmptyValue(std::make_unique<DoubleEditValidator>(), optional);
    }
    if (type == "int") {
        return makeIntValidator(optional);
    }
    if (type == "distance") {
        return withEmptyValue(std::make_unique<DistanceEditValidator>(), optional);
    }
    return nullptr;
}

EditorMetaData createLineEdit(QWidget* parent, bool optional, const HintTree& hints)
{
    const auto type = readHintOr<std::string>(hints, hint_keys::validatorType, {});
    std::unique_ptr<IValidator> validator = makeValidator(type, optional, hints);
    if (!validator) {
        return {};
    }
    // Deliberately only here: the other types have no default, and complain if they are optional.
    const DefaultFn defaultFn =
        type == "double" ? readHintOr<DefaultFn>(hints, hint_keys::defaultFn, {}) : DefaultFn();
    return metaDataOf(
        makeLineEditWithOptionalValue(parent, validator.release(), optional, defaultFn));
}

EditorMetaData createEnumBox(QWidget* parent, const HintTree& hints)
{
    using EqualFn = bool (*)(const boost::any&, const boost::any&);
    const auto equal = readNeededHint<EqualFn>(hints, hint_keys::equalValueFn);
    const auto values = readNeededHint<NamedValueList>(hints, hint_keys::values);
    MultiEditEnumBox* const box = MultiEditEnumBox::create(parent, QString(), equal);
    box->setValues(values, PixmapPtrList(), {});
    box->layout()->setContentsMargins(0, 0, 0, 0);
    return metaDataOf(box);
}

} // namespace

EditorMetaData createEditorFromHints(QWidget* parent, const HintTree& hints)
{
    const auto name = readHintOr<std::string>(hints, hint_keys::editor, {});
    if (name.empty()) {
        return {};
    }
    const auto registered = registry().find(name);
    if (registered != registry().end()) {
        // A copy, so that a creator may change the registry.
        const EditorCreator creator = registered->second;
        return creator(parent, hints);
    }
    const bool optional = readHintOr<bool>(hints, hint_keys::optional, false);
    if (name == "lineedit") {
        return createLineEdit(parent, optional, hints);
    }
    if (name == "enumbox") {
        return createEnumBox(parent, hints);
    }
    return {};
}

void registerEditor(const std::string& name, EditorCreator creator)
{
    registry()[name] = std::move(creator);
}

void unregisterEditor(const std::string& name)
{
    registry().erase(name);
}

} // namespace zel::qt
