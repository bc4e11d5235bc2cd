#include "examples/frame_editor/json_value.h"
#include "examples/frame_editor/member_property.h"
#include "examples/frame_editor/model_file.h"

#include <QFile>
#include <QSet>

namespace frame_editor {

namespace {

/// A value on its way into the model: with the file and the path that a message names.
class Reading
{
public:
    Reading(const JsonValue& value, const QString& path, const QString& fileName)
        : m_value(value)
        , m_path(path)
        , m_fileName(fileName)
    {}

    [[noreturn]] void fail(const QString& message) const
    {
        throw ModelFileError(QStringLiteral("%1:%2:%3: %4: %5")
                                 .arg(m_fileName)
                                 .arg(m_value.place.line)
                                 .arg(m_value.place.column)
                                 .arg(m_path, message));
    }

    void need(JsonValue::Type type) const
    {
        if (m_value.type != type) {
            fail(QObject::tr("%1 is needed here, not %2")
                     .arg(jsonTypeName(type), jsonTypeName(m_value.type)));
        }
    }

    double number() const
    {
        need(JsonValue::Type::Number);
        return m_value.number;
    }

    QString text() const
    {
        need(JsonValue::Type::String);
        return m_value.string;
    }

    bool flag() const
    {
        need(JsonValue::Type::Bool);
        return m_value.boolean;
    }

    int size() const
    {
        need(JsonValue::Type::Array);
        return static_cast<int>(m_value.items.size());
    }

    Reading item(int index) const
    {
        return Reading(m_value.items.at(static_cast<std::size_t>(index)),
                       m_path + QStringLiteral("[%1]").arg(index), m_fileName);
    }

    /// Refuses every key that is not in the list.
    void allowOnly(const QStringList& keys) const
    {
        need(JsonValue::Type::Object);
        for (const JsonValue::Member& member : m_value.members) {
            if (!keys.contains(member.first)) {
                Reading(member.second, m_path + QLatin1Char('.') + member.first, m_fileName)
                    .fail(QObject::tr("the format has no key \"%1\" here").arg(member.first));
            }
        }
    }

    Reading member(const QString& key) const
    {
        need(JsonValue::Type::Object);
        const JsonValue* found = m_value.find(key);
        if (!found) {
            fail(QObject::tr("the key \"%1\" is missing").arg(key));
        }
        return Reading(*found, m_path + QLatin1Char('.') + key, m_fileName);
    }
    Reading member(const char* key) const
    {
        return member(QString(QLatin1String(key)));
    }

private:
    const JsonValue& m_value;
    QString m_path;
    QString m_fileName;
};

/// Gives out each name once.
class NameList
{
public:
    QString take(const Reading& reading)
    {
        const QString name = reading.text();
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
std::vector<Item> readItems(const Reading& list, const NumberKey<Item> (&keys)[count])
{
    QStringList allowed{QStringLiteral("name")};
    for (const NumberKey<Item>& key : keys) {
        allowed << QLatin1String(key.key);
    }
    std::vector<Item> items;
    NameList names;
    for (int i = 0; i < list.size(); ++i) {
        const Reading reading = list.item(i);
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

PropertyValue readProperty(const MemberProperty& property, const Reading& reading)
{
    switch (property.kind) {
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

int readNode(const Reading& reading, const FrameModel& model)
{
    const QString name = reading.text();
    const int index = model.findNode(name);
    if (index < 0) {
        reading.fail(QObject::tr("the model has no node \"%1\"").arg(name));
    }
    return index;
}

void readMembers(const Reading& list, FrameModel& model)
{
    QStringList allowed{QStringLiteral("start"), QStringLiteral("end")};
    for (const MemberProperty& property : memberProperties()) {
        allowed << property.id;
    }
    for (int i = 0; i < list.size(); ++i) {
        const Reading reading = list.item(i);
        reading.allowOnly(allowed);
        Member member;
        for (const MemberProperty& property : memberProperties()) {
            const Reading value = reading.member(property.id);
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

ModelFileError::ModelFileError(const QString& message)
    : std::runtime_error(message.toStdString())
{}

QString ModelFileError::message() const
{
    return QString::fromUtf8(what());
}

FrameModel readModel(const QByteArray& text, const QString& fileName)
{
    JsonValue value;
    try {
        value = parseJson(text);
    } catch (const JsonError& error) {
        throw ModelFileError(QStringLiteral("%1:%2:%3: %4")
                                 .arg(fileName)
                                 .arg(error.place().line)
                                 .arg(error.place().column)
                                 .arg(QString::fromUtf8(error.what())));
    }
    const Reading root(value, QStringLiteral("$"), fileName);
    // The version comes first: of another version no key can be judged.
    if (root.member("format").text() != QLatin1String("frame_model")) {
        root.member("format").fail(QObject::tr("\"frame_model\" is needed here"));
    }
    const Reading version = root.member("version");
    if (version.number() != 1.0) {
        version.fail(QObject::tr("this program reads version 1, not %1").arg(version.number()));
    }
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
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly)) {
        throw ModelFileError(QStringLiteral("%1: %2").arg(fileName, file.errorString()));
    }
    const QByteArray text = file.readAll();
    if (file.error() != QFileDevice::NoError) {
        throw ModelFileError(QStringLiteral("%1: %2").arg(fileName, file.errorString()));
    }
    return readModel(text, fileName);
}

} // namespace frame_editor
