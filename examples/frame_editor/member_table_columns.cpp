#include "examples/frame_editor/member_table_columns.h"

#include "examples/frame_editor/form.h"
#include "examples/frame_editor/unit_settings.h"

#include "qt/inc/factories.h"

#include <QObject>

#include <limits>

namespace frame_editor {

namespace {

MemberColumn::Cell cellOf(PropertyKind kind)
{
    switch (kind) {
    case PropertyKind::Quantity:
        return MemberColumn::Cell::Quantity;
    case PropertyKind::Count:
        return MemberColumn::Cell::Count;
    case PropertyKind::Flag:
        return MemberColumn::Cell::Flag;
    case PropertyKind::Choice:
    case PropertyKind::Section:
    case PropertyKind::Material:
        return MemberColumn::Cell::Choice;
    case PropertyKind::Text:
    case PropertyKind::Name:
        break;
    }
    return MemberColumn::Cell::Text;
}

MemberColumn plainColumn(const QString& id, const QString& label, MemberColumn::Cell cell)
{
    MemberColumn column;
    column.id = id;
    column.label = label;
    column.cell = cell;
    column.minimum = std::numeric_limits<double>::lowest();
    column.maximum = std::numeric_limits<double>::max();
    column.longest = std::numeric_limits<int>::max();
    return column;
}

MemberColumn nodeColumn(const char* id, const QString& label, int Member::*node)
{
    MemberColumn column = plainColumn(QLatin1String(id), label, MemberColumn::Cell::Choice);
    column.node = node;
    return column;
}

/// Takes the limits of a field over, so that they stand in one place.
void takeLimits(MemberColumn& column, const Form& form, const zel::qt::HintRegistry& registry)
{
    for (const FormGroup& group : form.groups) {
        for (const FormField& field : group.fields) {
            if (field.property != column.property) {
                continue;
            }
            const zel::qt::HintTree hints = hintsOf(field, registry);
            column.minimum = zel::qt::readHintOr(hints, "validator.minimum", column.minimum);
            column.maximum = zel::qt::readHintOr(hints, "validator.maximum", column.maximum);
            column.longest = zel::qt::readHintOr(hints, "validator.max_length", column.longest);
        }
    }
}

std::vector<MemberColumn> makeColumns()
{
    const Form form = builtInForm();
    const zel::qt::HintRegistry registry = formRegistry(FrameModel());
    std::vector<MemberColumn> columns{
        plainColumn(QStringLiteral("zoom"), QObject::tr("Zoom"), MemberColumn::Cell::Button)};
    for (const MemberProperty& property : memberProperties()) {
        MemberColumn column = plainColumn(property.id, property.label, cellOf(property.kind));
        column.property = &property;
        takeLimits(column, form, registry);
        columns.push_back(column);
        if (property.kind == PropertyKind::Name) {
            columns.push_back(nodeColumn("start", QObject::tr("Start node"), &Member::start));
            columns.push_back(nodeColumn("end", QObject::tr("End node"), &Member::end));
        }
    }
    return columns;
}

template <class Item>
MemberColumn::Choices namesOf(const std::vector<Item>& items)
{
    MemberColumn::Choices choices;
    for (const Item& item : items) {
        choices.emplace_back(item.name, item.name);
    }
    return choices;
}

QString refusalOfNumber(const MemberColumn& column, double number)
{
    const zel::units::v1::Context& units = zel::units::v1::get_active_input_context();
    const int unitSet = column.property->unitSet;
    if (number < column.minimum) {
        return QObject::tr("%1 is less than %2")
            .arg(formatQuantity(units, unitSet, number),
                 formatQuantity(units, unitSet, column.minimum));
    }
    return number > column.maximum ? QObject::tr("%1 is more than %2")
                                         .arg(formatQuantity(units, unitSet, number),
                                              formatQuantity(units, unitSet, column.maximum))
                                   : QString();
}

} // namespace

bool MemberColumn::appliesTo(const Member& member) const
{
    return !property || frame_editor::appliesTo(*property, member);
}

PropertyValue MemberColumn::value(const FrameModel& model, const Member& member) const
{
    if (property) {
        return property->get(member);
    }
    return node ? model.nodes.at(static_cast<std::size_t>(member.*node)).name : QString();
}

void MemberColumn::setValue(const FrameModel& model, Member& member,
                            const PropertyValue& value) const
{
    if (property) {
        property->set(member, value);
    } else if (node) {
        member.*node = model.findNode(std::get<QString>(value));
    }
}

QString MemberColumn::refusal(const FrameModel& model, const PropertyValue& value) const
{
    if (node) {
        const QString& name = std::get<QString>(value);
        return model.findNode(name) < 0 ? noSuchChoice(name) : QString();
    }
    static const FrameModel nobody;
    const FrameModel& owners = property->kind == PropertyKind::Name ? nobody : model;
    const QString reason = refusalOf(*property, value, owners, 0);
    return reason.isEmpty() && cell == Cell::Quantity
               ? refusalOfNumber(*this, std::get<double>(value))
               : reason;
}

MemberColumn::Choices MemberColumn::choices(const FrameModel& model) const
{
    if (node) {
        return namesOf(model.nodes);
    }
    if (property->kind == PropertyKind::Section) {
        return namesOf(model.sections);
    }
    return property->kind == PropertyKind::Material ? namesOf(model.materials) : property->choices;
}

QString MemberColumn::noSuchChoice(const QString& text) const
{
    if (node) {
        return QObject::tr("the model has no node \"%1\"").arg(text);
    }
    if (property->kind == PropertyKind::Section) {
        return QObject::tr("the model has no cross section \"%1\"").arg(text);
    }
    return property->kind == PropertyKind::Material
               ? QObject::tr("the model has no material \"%1\"").arg(text)
               : QObject::tr("\"%1\" is not in the list").arg(text);
}

const std::vector<MemberColumn>& memberColumns()
{
    static const std::vector<MemberColumn> columns = makeColumns();
    return columns;
}

const MemberColumn& memberColumn(int column)
{
    return memberColumns().at(static_cast<std::size_t>(column));
}

int findMemberColumn(const QString& id)
{
    const std::vector<MemberColumn>& columns = memberColumns();
    for (std::size_t i = 0; i < columns.size(); ++i) {
        if (columns[i].id == id) {
            return static_cast<int>(i);
        }
    }
    return -1;
}

} // namespace frame_editor
