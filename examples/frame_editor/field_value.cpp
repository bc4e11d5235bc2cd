#include "examples/frame_editor/field_value.h"

#include "examples/frame_editor/unit_settings.h"

#include "units/inc/units.h"

#include <QObject>

#include <string>

namespace frame_editor {

using zel::units::v1::IConverter;

boost::any toEditorValue(const MemberProperty& property, const PropertyValue& value)
{
    switch (property.kind) {
    case PropertyKind::Quantity:
        return IConverter::quantity{zel::units::UnitId(property.unitSet), std::get<double>(value)};
    case PropertyKind::Flag:
        return std::get<bool>(value);
    case PropertyKind::Count:
        return std::get<int>(value);
    case PropertyKind::Text:
    case PropertyKind::Name:
    case PropertyKind::Choice:
    case PropertyKind::Section:
    case PropertyKind::Material:
        break;
    }
    return std::get<QString>(value).toStdString();
}

std::optional<PropertyValue> fromEditorValue(const MemberProperty& property,
                                             const boost::any& value)
{
    if (property.kind == PropertyKind::Quantity) {
        const auto* quantity = boost::any_cast<IConverter::quantity>(&value);
        return quantity ? std::optional<PropertyValue>(quantity->value) : std::nullopt;
    }
    if (property.kind == PropertyKind::Flag) {
        const bool* flag = boost::any_cast<bool>(&value);
        return flag ? std::optional<PropertyValue>(*flag) : std::nullopt;
    }
    if (property.kind == PropertyKind::Count) {
        const int* count = boost::any_cast<int>(&value);
        return count ? std::optional<PropertyValue>(*count) : std::nullopt;
    }
    if (const auto* narrow = boost::any_cast<std::string>(&value)) {
        return PropertyValue(QString::fromStdString(*narrow));
    }
    if (const auto* wide = boost::any_cast<std::wstring>(&value)) {
        return PropertyValue(QString::fromStdWString(*wide));
    }
    return std::nullopt;
}

QString displayText(const MemberProperty& property, const PropertyValue& value)
{
    switch (property.kind) {
    case PropertyKind::Quantity:
        return formatQuantity(zel::units::v1::get_active_input_context(), property.unitSet,
                              std::get<double>(value));
    case PropertyKind::Flag:
        return std::get<bool>(value) ? QObject::tr("yes") : QObject::tr("no");
    case PropertyKind::Choice:
        return property.choiceLabel(std::get<QString>(value));
    case PropertyKind::Count:
        return QString::number(std::get<int>(value));
    case PropertyKind::Text:
    case PropertyKind::Name:
    case PropertyKind::Section:
    case PropertyKind::Material:
        break;
    }
    return std::get<QString>(value);
}

} // namespace frame_editor
