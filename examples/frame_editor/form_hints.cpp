#include "examples/frame_editor/form.h"
#include "examples/frame_editor/form_editors.h"
#include "examples/frame_editor/member_property.h"
#include "examples/frame_editor/quantity_edit.h"
#include "examples/frame_editor/section_picture.h"
#include "examples/frame_editor/unit_settings.h"

#include "qt/inc/controls.h"

#include <QObject>

#include <boost/make_shared.hpp>

#include <algorithm>

namespace frame_editor {

using zel::qt::HintTree;
using zel::qt::NamedValueList;

namespace {

constexpr int pictureSize = 24;

template <class Item>
NamedValueList namesOf(const std::vector<Item>& items)
{
    NamedValueList values;
    for (const Item& item : items) {
        values.emplace_back(item.name, item.name.toStdString());
    }
    return values;
}

zel::qt::PixmapPtrList picturesOf(const std::vector<Section>& sections)
{
    double extent = 0.0;
    for (const Section& section : sections) {
        extent = std::max({extent, section.depth, section.width});
    }
    zel::qt::PixmapPtrList pictures;
    for (const Section& section : sections) {
        pictures.push_back(
            boost::make_shared<QPixmap>(sectionPicture(section, pictureSize, extent)));
    }
    return pictures;
}

/// Whether the entries of a list are those of the property, and no others: a value without an
/// entry could not be shown.
bool hasOwnEntries(const FormField& field)
{
    const QJsonValue values = field.description.value(QStringLiteral("values"));
    return values.isUndefined() || values.toString() == field.property->id;
}

} // namespace

zel::qt::HintRegistry formRegistry(const FrameModel& model)
{
    zel::qt::HintRegistry registry;
    registry.addComparison(QStringLiteral("same_text"), &equalTexts);
    for (const MemberProperty& property : memberProperties()) {
        if (property.kind == PropertyKind::Choice) {
            NamedValueList values;
            for (const MemberProperty::Choice& choice : property.choices) {
                values.emplace_back(choice.second, choice.first.toStdString());
            }
            registry.addValues(property.id, values);
        }
    }
    registry.addValues(QStringLiteral("section"), namesOf(model.sections));
    registry.addValues(QStringLiteral("material"), namesOf(model.materials));
    registry.addPixmaps(QStringLiteral("section"), picturesOf(model.sections));
    return registry;
}

HintTree hintsOf(const FormField& field, const zel::qt::HintRegistry& registry)
{
    HintTree hints = zel::qt::hintsFromJson(field.description, registry);
    if (!hasOwnEntries(field)) {
        throw zel::qt::HintJsonError(
            QStringLiteral("$.values"),
            QObject::tr("the entries of this property are named \"%1\"").arg(field.property->id));
    }
    if (field.property->kind == PropertyKind::Quantity) {
        const auto kind = zel::qt::readHint<zel::qt::ValidatorKey>(hints, "validator.kind");
        if (kind && kind->first != typeid(double)) {
            throw zel::qt::HintJsonError(
                QStringLiteral("$.validator.kind"),
                QObject::tr("the limits of a quantity are of the type \"double\""));
        }
        if (!hints.get_child_optional("validator.unit_id")) {
            hints.put_child("validator.unit_id",
                            HintTree(boost::any(zel::units::UnitId(field.property->unitSet))));
        }
    }
    if (field.property->kind == PropertyKind::Count) {
        hints.put_child("count.minimum", HintTree(boost::any(field.property->minimum)));
        hints.put_child("count.maximum", HintTree(boost::any(field.property->maximum)));
    }
    hints.put_child("label", HintTree(boost::any(field.caption.toStdString())));
    return hints;
}

QString misfitOf(const MemberProperty& property, const HintTree& hints, QWidget* editor)
{
    const std::string kind = zel::qt::readHintOr<std::string>(hints, "editor", {});
    if (!editor) {
        return QObject::tr("this describes no editor");
    }
    bool fits = false;
    switch (property.kind) {
    case PropertyKind::Text:
    case PropertyKind::Name: {
        const std::string type = zel::qt::readHintOr<std::string>(hints, "validator.type", {});
        fits = kind == "file" || (kind == "lineedit" && (type.empty() || type == "string"));
        break;
    }
    case PropertyKind::Quantity: {
        const auto unit = zel::qt::readNeededHint<zel::units::UnitId>(hints, "validator.unit_id");
        if (kind == "quantity" && !isSameQuantity(unit, property.unitSet)) {
            return QObject::tr("%1 is no unit set for this property").arg(int(unit));
        }
        fits = kind == "quantity";
        break;
    }
    case PropertyKind::Count:
        fits = kind == "count";
        break;
    case PropertyKind::Flag:
        fits = kind == "check";
        break;
    case PropertyKind::Choice:
        fits = kind == "enumbox" || kind == "radio";
        break;
    case PropertyKind::Section:
    case PropertyKind::Material:
        fits = kind == "enumbox" || kind == "picture" || kind == "search";
        break;
    }
    return fits ? QString()
                : QObject::tr("an editor \"%1\" cannot edit this property")
                      .arg(QString::fromStdString(kind));
}

} // namespace frame_editor
