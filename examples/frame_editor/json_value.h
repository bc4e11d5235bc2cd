#pragma once

#include <QByteArray>
#include <QJsonValue>
#include <QString>

#include <stdexcept>
#include <utility>
#include <vector>

namespace frame_editor {

/// A place in a text; line and column count from 1, columns in characters.
struct JsonPlace
{
    int line = 1;
    int column = 1;
};

/// A text that is no JSON, with the place where reading stopped. The message is one line.
class JsonError : public std::runtime_error
{
public:
    JsonError(JsonPlace place, const QString& message);

    JsonPlace place() const;

private:
    JsonPlace m_place;
};

/// A value of a JSON text that remembers where it stood, so that a message about its meaning can
/// name the line. Members keep the order of the text.
struct JsonValue
{
    enum class Type
    {
        Null,
        Bool,
        Number,
        String,
        Array,
        Object
    };
    using Member = std::pair<QString, JsonValue>;

    Type type = Type::Null;
    JsonPlace place;
    bool boolean = false;
    double number = 0.0;
    QString string;
    std::vector<JsonValue> items;
    std::vector<Member> members;

    /// The member of that name, or null.
    const JsonValue* find(const QString& name) const;
};

/// "a number", "an object" ...: for messages.
QString jsonTypeName(JsonValue::Type type);

/// The same value as Qt has it, without places.
QJsonValue toQt(const JsonValue& value);

/// Reads one JSON value that fills the whole text, a byte order mark apart.
///
/// Stricter than the grammar in what would lose something silently: a name twice in one object, a
/// number too large for a double, bytes that are not UTF-8 and half a surrogate pair are refused.
/// @throws JsonError
JsonValue parseJson(const QByteArray& text);

} // namespace frame_editor
