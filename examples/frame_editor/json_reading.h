#pragma once

#include "examples/frame_editor/json_value.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace frame_editor {

/// A value of a JSON file on its way to its meaning: with the file and the path that a message
/// names. It refers to the JsonDocument that it comes from. Everything that does not fit throws
/// FileError.
class JsonReading
{
public:
    JsonReading(const JsonValue& value, const QString& path, const QString& fileName);

    const JsonValue& value() const;

    /// Refuses this value: "model.json:12:20: $.members[0].line_load: MESSAGE".
    [[noreturn]] void fail(const QString& message) const;
    /// The same for a value inside this one, at a path such as ".validator.minimum".
    [[noreturn]] void failInside(const QString& path, const QString& message) const;

    double number() const;
    QString text() const;
    bool flag() const;

    /// The length of a list.
    int size() const;
    JsonReading item(int index) const;

    /// Refuses every key of an object that is not in the list.
    void allowOnly(const QStringList& keys) const;
    bool has(const char* key) const;
    JsonReading member(const QString& key) const;
    JsonReading member(const char* key) const;

private:
    void need(JsonValue::Type type) const;

    const JsonValue& m_value;
    QString m_path;
    QString m_fileName;
};

/// A parsed file, which the readings of its values refer to.
class JsonDocument
{
public:
    /// @throws FileError if the text is no JSON
    JsonDocument(const QByteArray& text, const QString& fileName);

    JsonReading root() const;
    /// Checks "format" and "version" and gives the root. They come first: of another format no key
    /// can be judged.
    JsonReading root(const char* format) const;

private:
    JsonValue m_value;
    QString m_fileName;
};

/// @throws FileError
QByteArray readWholeFile(const QString& fileName);

} // namespace frame_editor
