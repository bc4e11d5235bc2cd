#include "examples/frame_editor/form_editors.h"

#include "examples/frame_editor/count_validator.h"
#include "examples/frame_editor/quantity_edit.h"
#include "examples/frame_editor/unit_settings.h"

#include "qt/inc/controls.h"
#include "qt/inc/factories.h"

#include <QComboBox>

#include <boost/make_shared.hpp>

#include <limits>
#include <string>
#include <utility>

namespace frame_editor {

using zel::qt::EditorMetaData;
using zel::qt::HintTree;
using zel::qt::MultiEditControlBase;
using zel::qt::NamedValueList;

namespace {

/// The record of an editor; `control` is the editor itself, seen as the protocol of its values.
EditorMetaData metaDataOf(QWidget* editor, MultiEditControlBase* control)
{
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

template <class Control>
EditorMetaData metaDataOf(Control* control)
{
    return metaDataOf(control, control);
}

EditorMetaData makeQuantity(QWidget* parent, const HintTree& hints)
{
    const auto unitSet = zel::qt::readNeededHint<zel::units::UnitId>(hints, "validator.unit_id");
    auto validator =
        boost::make_shared<QuantityValidator>(zel::units::v1::get_active_input_context(), unitSet);
    validator->setLimits(
        zel::qt::readHintOr(hints, "validator.minimum", std::numeric_limits<double>::lowest()),
        zel::qt::readHintOr(hints, "validator.maximum", std::numeric_limits<double>::max()));
    auto* edit = new QuantityEdit(parent, validator);
    edit->setUnitString(shownUnit(zel::units::v1::get_active_input_context(), unitSet));
    return metaDataOf(edit);
}

EditorMetaData makeCount(QWidget* parent, const HintTree& hints)
{
    return metaDataOf(zel::qt::MultiEditLineEdit::create(
        parent, QString(),
        new CountValidator(zel::qt::readNeededHint<int>(hints, "count.minimum"),
                           zel::qt::readNeededHint<int>(hints, "count.maximum")),
        0, zel::qt::ExpandRight));
}

EditorMetaData makePicture(QWidget* parent, const HintTree& hints)
{
    auto* box = zel::qt::MultiEditEnumBox::create(parent, QString(), &equalTexts);
    box->setValues(zel::qt::readNeededHint<NamedValueList>(hints, "values"),
                   zel::qt::readNeededHint<zel::qt::PixmapPtrList>(hints, "pixmaps"));
    return metaDataOf(box);
}

EditorMetaData makeSearch(QWidget* parent, const HintTree& hints)
{
    const auto values = zel::qt::readNeededHint<NamedValueList>(hints, "values");
    auto validator = boost::make_shared<zel::qt::NamedValueListValidator>(values);
    validator->set_equal_to(&equalTexts);
    auto* box = zel::qt::MultiEditEnumBox::create(parent, QString(), &equalTexts);
    box->setEditable(true, validator);
    box->setValues(values);
    // Return would else add a text that is refused to the list.
    box->findChild<QComboBox*>()->setInsertPolicy(QComboBox::NoInsert);
    return metaDataOf(box);
}

EditorMetaData makeRadio(QWidget* parent, const HintTree& hints)
{
    // The caption stands beside the buttons, so their frame would be empty.
    auto* group = zel::qt::MultiEditRadioButtonGroup::create(
        QString(), zel::qt::readNeededHint<NamedValueList>(hints, "values"), &equalTexts, &lessText,
        parent);
    group->setStyleSheet(QStringLiteral("QGroupBox { border: 0; margin: 0; padding: 0; }"));
    return metaDataOf(group);
}

EditorMetaData makeCheck(QWidget* parent, const HintTree& hints)
{
    return metaDataOf(zel::qt::MultiEditCheckBox::create(
        QString::fromStdString(zel::qt::readHintOr<std::string>(hints, "label", {})), parent));
}

EditorMetaData makeGroup(QWidget* parent, const HintTree& hints)
{
    return metaDataOf(zel::qt::MultiEditGroupBox::create(
        QString::fromStdString(zel::qt::readHintOr<std::string>(hints, "label", {})), parent));
}

EditorMetaData makeFile(QWidget* parent, const HintTree&)
{
    return metaDataOf(new zel::qt::MultiEditFilePicker(parent, zel::qt::PathFile));
}

} // namespace

bool equalTexts(const boost::any& left, const boost::any& right)
{
    const auto* l = boost::any_cast<std::string>(&left);
    const auto* r = boost::any_cast<std::string>(&right);
    return l && r ? *l == *r : left.empty() && right.empty();
}

bool lessText(const boost::any& left, const boost::any& right)
{
    const auto* l = boost::any_cast<std::string>(&left);
    const auto* r = boost::any_cast<std::string>(&right);
    return l && r ? *l < *r : !l && r;
}

void registerFormEditors()
{
    zel::qt::registerEditor("quantity", makeQuantity);
    zel::qt::registerEditor("count", makeCount);
    zel::qt::registerEditor("picture", makePicture);
    zel::qt::registerEditor("search", makeSearch);
    zel::qt::registerEditor("radio", makeRadio);
    zel::qt::registerEditor("check", makeCheck);
    zel::qt::registerEditor("group", makeGroup);
    zel::qt::registerEditor("file", makeFile);
}

} // namespace frame_editor
