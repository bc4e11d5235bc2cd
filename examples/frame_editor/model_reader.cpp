#include "examples/frame_editor/json_reading.h"
#include "examples/frame_editor/member_property.h"
#include "examples/frame_editor/model_file.h"

#include <QSet>

#include <cmath>
#include <limits>

namespace frame_editor {

namespace {

/// Gives out each name once.
class NameList
{
public:
    QString take(const JsonReading& reading)
    {
        QString name = reading.text();
        if (name.trimmed().isEmpty()) {
            reading.fail(QObject::tr("a name must not be empty"));
        }
        if (m_names.contains(name)) {
            reading.fail(QObject::tr("the name \"%1\" is taken already").arg(name));
        }
        m_names.insert(name);
        return name;
    }

private:
    QSet<QString> m_names;
};

template <class Item>
struct NumberKey
{
    const char* key;
    double Item::*field;
};

constexpr NumberKey<Material> materialKeys[] = {{"elastic_modulus", &Material::elasticModulus},
                                                {"shear_modulus", &Material::shearModulus},
                                                {"yield_strength", &Material::yieldStrength},
                                                {"density", &Material::density},
                                                {"thermal_expansion", &Material::thermalExpansion}};
constexpr NumberKey<Section> sectionKeys[] = {{"depth", &Section::depth},
                                              {"width", &Section::width},
                                              {"web_thickness", &Section::webThickness},
                                              {"flange_thickness", &Section::flangeThickness},
                                              {"root_radius", &Section::rootRadius},
                                              {"area", &Section::area},
                                              {"inertia_y", &Section::inertiaY},
                                              {"inertia_z", &Section::inertiaZ}};
constexpr NumberKey<Node> nodeKeys[] = {{"x", &Node::x}, {"y", &Node::y}};

/// Reads a list of objects that are a name and numbers.
template <class Item, std::size_t count>
std::vector<Item> readItems(const JsonReading& list, const NumberKey<Item> (&keys)[count])
{
    QStringList allowed{QStringLiteral("name")};
    for (const NumberKey<Item>& key : keys) {
        allowed << QLatin1String(key.key);
    }
    std::vector<Item> items;
    NameList names;
    for (int i = 0; i < list.size(); ++i) {
        const JsonReading reading = list.item(i);
        reading.allowOnly(allowed);
        Item item;
        item.name = names.take(reading.member("name"));
        for (const NumberKey<Item>& key : keys) {
            item.*key.field = reading.member(key.key).number();
        }
        items.push_back(item);
    }
    return items;
}

/// A number that is no whole one, or beyond all integers, becomes one that no property takes.
int readCount(const JsonReading& reading)
{
    const double number = reading.number();
    constexpr int none = std::numeric_limits<int>::min();
    const bool isCount =
        number > none && number <= std::numeric_limits<int>::max() && number == std::floor(number);
    return isCount ? static_cast<int>(number) : none;
}

PropertyValue readProperty(const MemberProperty& property, const JsonReading& reading)
{
    switch (property.kind) {
    case PropertyKind::Count:
        return readCount(reading);
    case PropertyKind::Quantity:
        return reading.number();
    case PropertyKind::Flag:
        return reading.flag();
    case PropertyKind::Text:
    case PropertyKind::Name:
    case PropertyKind::Choice:
    case PropertyKind::Section:
    case PropertyKind::Material:
        break;
    }
    return reading.text();
}

int readNode(const JsonReading& reading, const FrameModel& model)
{
    const QString name = reading.text();
    const int index = model.findNode(name);
    if (index < 0) {
        reading.fail(QObject::tr("the model has no node \"%1\"").arg(name));
    }
    return index;
}

void readMembers(const JsonReading& list, FrameModel& model)
{
    QStringList allowed{QStringLiteral("start"), QStringLiteral("end")};
    for (const MemberProperty& property : memberProperties()) {
        allowed << property.id;
    }
    for (int i = 0; i < list.size(); ++i) {
        const JsonReading reading = list.item(i);
        reading.allowOnly(allowed);
        Member member;
        for (const MemberProperty& property : memberProperties()) {
            if (property.isOptional && !reading.has(property.id.toUtf8().constData())) {
                continue;
            }
            const JsonReading value = reading.member(property.id);
            const PropertyValue read = readProperty(property, value);
            const QString refusal = refusalOf(property, read, model, i);
            if (!refusal.isEmpty()) {
                value.fail(refusal);
            }
            property.set(member, read);
        }
        member.start = readNode(reading.member("start"), model);
        member.end = readNode(reading.member("end"), model);
        if (member.start == member.end) {
            reading.member("end").fail(QObject::tr("a member needs two different nodes"));
        }
        model.members.push_back(member);
    }
}

} // namespace

FrameModel readModel(const QByteArray& text, const QString& fileName)
{
    const JsonDocument document(text, fileName);
    const JsonReading root = document.root("frame_model");
    root.allowOnly({QStringLiteral("format"), QStringLiteral("version"), QStringLiteral("title"),
                    QStringLiteral("materials"), QStringLiteral("sections"),
                    QStringLiteral("nodes"), QStringLiteral("members")});
    FrameModel model;
    model.title = root.member("title").text();
    model.materials = readItems(root.member("materials"), materialKeys);
    model.sections = readItems(root.member("sections"), sectionKeys);
    model.nodes = readItems(root.member("nodes"), nodeKeys);
    readMembers(root.member("members"), model);
    return model;
}

FrameModel loadModel(const QString& fileName)
{
    return readModel(readWholeFile(fileName), fileName);
}

} // namespace frame_editor
