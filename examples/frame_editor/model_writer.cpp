#include "examples/frame_editor/member_property.h"
#include "examples/frame_editor/model_file.h"

#include <QSaveFile>

#include <charconv>

namespace frame_editor {

namespace {

QByteArray number(double value)
{
    char buffer[32];
    const auto result = std::to_chars(buffer, buffer + sizeof buffer, value);
    return QByteArray(buffer, static_cast<int>(result.ptr - buffer));
}

QByteArray text(const QString& value)
{
    QByteArray result = "\"";
    const QByteArray bytes = value.toUtf8();
    for (const char c : bytes) {
        switch (c) {
        case '"':
            result += "\\\"";
            break;
        case '\\':
            result += "\\\\";
            break;
        case '\n':
            result += "\\n";
            break;
        case '\t':
            result += "\\t";
            break;
        case '\r':
            result += "\\r";
            break;
        default:
            if (static_cast<unsigned char>(c) < 0x20) {
                result += "\\u" + QByteArray::number(c, 16).rightJustified(4, '0');
            } else {
                result += c;
            }
        }
    }
    return result + '"';
}

QByteArray entry(const char* key, const QByteArray& value)
{
    return '"' + QByteArray(key) + "\": " + value;
}

/// An object that stands on one line.
QByteArray line(const QByteArrayList& entries)
{
    return '{' + entries.join(", ") + '}';
}

QByteArray list(const QByteArrayList& items)
{
    if (items.isEmpty()) {
        return "[]";
    }
    return "[\n    " + items.join(",\n    ") + "\n  ]";
}

QByteArray materialText(const Material& material)
{
    return line({entry("name", text(material.name)),
                 entry("elastic_modulus", number(material.elasticModulus)),
                 entry("shear_modulus", number(material.shearModulus)),
                 entry("yield_strength", number(material.yieldStrength)),
                 entry("density", number(material.density)),
                 entry("thermal_expansion", number(material.thermalExpansion))});
}

QByteArray sectionText(const Section& section)
{
    return line({entry("name", text(section.name)), entry("depth", number(section.depth)),
                 entry("width", number(section.width)),
                 entry("web_thickness", number(section.webThickness)),
                 entry("flange_thickness", number(section.flangeThickness)),
                 entry("root_radius", number(section.rootRadius)),
                 entry("area", number(section.area)), entry("inertia_y", number(section.inertiaY)),
                 entry("inertia_z", number(section.inertiaZ))});
}

QByteArray nodeText(const Node& node)
{
    return line(
        {entry("name", text(node.name)), entry("x", number(node.x)), entry("y", number(node.y))});
}

QByteArray valueText(const PropertyValue& value)
{
    if (const double* plain = std::get_if<double>(&value)) {
        return number(*plain);
    }
    if (const bool* flag = std::get_if<bool>(&value)) {
        return *flag ? "true" : "false";
    }
    if (const int* count = std::get_if<int>(&value)) {
        return QByteArray::number(*count);
    }
    return text(std::get<QString>(value));
}

QByteArray memberText(const Member& member, const FrameModel& model)
{
    QByteArrayList entries;
    for (const MemberProperty& property : memberProperties()) {
        // A file that is without such a key stays without it.
        if (property.isOptional && property.get(member) == property.get(Member())) {
            continue;
        }
        entries << entry(property.id.toUtf8().constData(), valueText(property.get(member)));
        if (property.kind == PropertyKind::Name) {
            const auto name = [&model](int node) {
                return text(model.nodes.at(static_cast<std::size_t>(node)).name);
            };
            entries << entry("start", name(member.start)) << entry("end", name(member.end));
        }
    }
    return "{\n      " + entries.join(",\n      ") + "\n    }";
}

template <class Item, class Write>
QByteArray listOf(const std::vector<Item>& items, const Write& write)
{
    QByteArrayList texts;
    for (const Item& item : items) {
        texts << write(item);
    }
    return list(texts);
}

} // namespace

QByteArray writeModel(const FrameModel& model)
{
    const QByteArrayList entries{
        entry("format", text(QStringLiteral("frame_model"))),
        entry("version", "1"),
        entry("title", text(model.title)),
        entry("materials", listOf(model.materials, materialText)),
        entry("sections", listOf(model.sections, sectionText)),
        entry("nodes", listOf(model.nodes, nodeText)),
        entry("members", listOf(model.members, [&model](const Member& member) {
                  return memberText(member, model);
              }))};
    return "{\n  " + entries.join(",\n  ") + "\n}\n";
}

void saveModel(const FrameModel& model, const QString& fileName)
{
    QSaveFile file(fileName);
    const QByteArray bytes = writeModel(model);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit()) {
        throw FileError(QObject::tr("%1: not saved: %2").arg(fileName, file.errorString()));
    }
}

} // namespace frame_editor
