#include "examples/frame_editor/json_reading.h"

#include "examples/frame_editor/file_error.h"

#include <QFile>
#include <QObject>

namespace frame_editor {

namespace {

/// "model.json:12:20: "
QString at(const QString& fileName, const JsonPlace& place)
{
    return fileName + QStringLiteral(":%1:%2: ").arg(place.line).arg(place.column);
}

JsonValue parsed(const QByteArray& text, const QString& fileName)
{
    try {
        return parseJson(text);
    } catch (const JsonError& error) {
        throw FileError(at(fileName, error.place()) + QString::fromUtf8(error.what()));
    }
}

} // namespace

JsonReading::JsonReading(const JsonValue& value, const QString& path, const QString& fileName)
    : m_value(value)
    , m_path(path)
    , m_fileName(fileName)
{}

const JsonValue& JsonReading::value() const
{
    return m_value;
}

void JsonReading::fail(const QString& message) const
{
    failInside(QString(), message);
}

void JsonReading::failInside(const QString& path, const QString& message) const
{
    throw FileError(at(m_fileName, m_value.place) + m_path + path + QStringLiteral(": ") + message);
}

void JsonReading::need(JsonValue::Type type) const
{
    if (m_value.type != type) {
        fail(QObject::tr("%1 is needed here, not %2")
                 .arg(jsonTypeName(type), jsonTypeName(m_value.type)));
    }
}

double JsonReading::number() const
{
    need(JsonValue::Type::Number);
    return m_value.number;
}

QString JsonReading::text() const
{
    need(JsonValue::Type::String);
    return m_value.string;
}

bool JsonReading::flag() const
{
    need(JsonValue::Type::Bool);
    return m_value.boolean;
}

int JsonReading::size() const
{
    need(JsonValue::Type::Array);
    return static_cast<int>(m_value.items.size());
}

JsonReading JsonReading::item(int index) const
{
    return JsonReading(m_value.items.at(static_cast<std::size_t>(index)),
                       m_path + QStringLiteral("[%1]").arg(index), m_fileName);
}

void JsonReading::allowOnly(const QStringList& keys) const
{
    need(JsonValue::Type::Object);
    for (const JsonValue::Member& member : m_value.members) {
        if (!keys.contains(member.first)) {
            JsonReading(member.second, m_path + QLatin1Char('.') + member.first, m_fileName)
                .fail(QObject::tr("the format has no key \"%1\" here").arg(member.first));
        }
    }
}

bool JsonReading::has(const char* key) const
{
    need(JsonValue::Type::Object);
    return m_value.find(QLatin1String(key)) != nullptr;
}

JsonReading JsonReading::member(const QString& key) const
{
    need(JsonValue::Type::Object);
    const JsonValue* found = m_value.find(key);
    if (!found) {
        fail(QObject::tr("the key \"%1\" is missing").arg(key));
    }
    return JsonReading(*found, m_path + QLatin1Char('.') + key, m_fileName);
}

JsonReading JsonReading::member(const char* key) const
{
    return member(QString(QLatin1String(key)));
}

JsonDocument::JsonDocument(const QByteArray& text, const QString& fileName)
    : m_value(parsed(text, fileName))
    , m_fileName(fileName)
{}

JsonReading JsonDocument::root() const
{
    return JsonReading(m_value, QStringLiteral("$"), m_fileName);
}

JsonReading JsonDocument::root(const char* format) const
{
    JsonReading root = this->root();
    if (root.member("format").text() != QLatin1String(format)) {
        root.member("format").fail(QObject::tr("\"%1\" is needed here").arg(QLatin1String(format)));
    }
    const JsonReading version = root.member("version");
    if (version.number() != 1.0) {
        version.fail(QObject::tr("this program reads version 1, not %1").arg(version.number()));
    }
    return root;
}

QByteArray readWholeFile(const QString& fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly)) {
        throw FileError(QStringLiteral("%1: %2").arg(fileName, file.errorString()));
    }
    QByteArray text = file.readAll();
    if (file.error() != QFileDevice::NoError) {
        throw FileError(QStringLiteral("%1: %2").arg(fileName, file.errorString()));
    }
    return text;
}

} // namespace frame_editor
