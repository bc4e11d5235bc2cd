#include "examples/frame_editor/json_value.h"

#include "examples/frame_editor/file_error.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QObject>
#include <QSet>
#include <QTextCodec>

#include <charconv>
#include <system_error>

namespace frame_editor {

namespace {

constexpr int maximumDepth = 64;

bool isDigit(QChar c)
{
    return c >= QLatin1Char('0') && c <= QLatin1Char('9');
}

bool isHexDigit(QChar c)
{
    return isDigit(c) || (c >= QLatin1Char('a') && c <= QLatin1Char('f')) ||
           (c >= QLatin1Char('A') && c <= QLatin1Char('F'));
}

class Parser
{
public:
    explicit Parser(const QString& text)
        : m_text(text)
    {}

    JsonValue parse()
    {
        skipBlanks();
        JsonValue value = parseValue(0);
        skipBlanks();
        if (m_pos < m_text.size()) {
            fail(QObject::tr("text behind the end of the JSON value"));
        }
        return value;
    }

private:
    [[noreturn]] void fail(const QString& message) const
    {
        throw JsonError(m_place, message);
    }

    bool atEnd() const
    {
        return m_pos >= m_text.size();
    }
    QChar peek() const
    {
        return atEnd() ? QChar() : m_text.at(m_pos);
    }

    /// The character here, whole if it takes two.
    QString character() const
    {
        return m_text.mid(m_pos, peek().isHighSurrogate() ? 2 : 1);
    }

    void advance()
    {
        const QChar c = m_text.at(m_pos++);
        if (c == QLatin1Char('\n')) {
            ++m_place.line;
            m_place.column = 1;
        } else if (!c.isLowSurrogate()) {
            ++m_place.column;
        }
    }

    void skipBlanks()
    {
        while (!atEnd() && QStringLiteral(" \t\r\n").contains(peek())) {
            advance();
        }
    }

    void expect(char c)
    {
        if (atEnd()) {
            fail(QObject::tr("the text ends where \"%1\" is needed").arg(QLatin1Char(c)));
        }
        if (peek() != QLatin1Char(c)) {
            fail(QObject::tr("\"%1\" is needed here").arg(QLatin1Char(c)));
        }
        advance();
    }

    JsonValue parseValue(int depth)
    {
        if (atEnd()) {
            fail(QObject::tr("the text ends where a value is needed"));
        }
        if (depth > maximumDepth) {
            fail(QObject::tr("nested too deeply"));
        }
        JsonValue value;
        value.place = m_place;
        const QChar c = peek();
        if (c == QLatin1Char('{')) {
            parseObject(value, depth);
        } else if (c == QLatin1Char('[')) {
            parseArray(value, depth);
        } else if (c == QLatin1Char('"')) {
            value.type = JsonValue::Type::String;
            value.string = parseString();
        } else if (c == QLatin1Char('-') || isDigit(c)) {
            value.type = JsonValue::Type::Number;
            value.number = parseNumber();
        } else {
            parseWord(value);
        }
        return value;
    }

    void parseObject(JsonValue& value, int depth)
    {
        value.type = JsonValue::Type::Object;
        expect('{');
        skipBlanks();
        if (peek() == QLatin1Char('}')) {
            advance();
            return;
        }
        QSet<QString> names;
        for (;;) {
            skipBlanks();
            const JsonPlace start = m_place;
            if (peek() != QLatin1Char('"')) {
                fail(QObject::tr("a name in quotes is needed here"));
            }
            const QString name = parseString();
            if (names.contains(name)) {
                throw JsonError(
                    start, QObject::tr("the name \"%1\" stands twice in one object").arg(name));
            }
            names.insert(name);
            skipBlanks();
            expect(':');
            skipBlanks();
            value.members.emplace_back(name, parseValue(depth + 1));
            skipBlanks();
            if (peek() != QLatin1Char(',')) {
                break;
            }
            advance();
        }
        expect('}');
    }

    void parseArray(JsonValue& value, int depth)
    {
        value.type = JsonValue::Type::Array;
        expect('[');
        skipBlanks();
        if (peek() == QLatin1Char(']')) {
            advance();
            return;
        }
        for (;;) {
            skipBlanks();
            value.items.push_back(parseValue(depth + 1));
            skipBlanks();
            if (peek() != QLatin1Char(',')) {
                break;
            }
            advance();
        }
        expect(']');
    }

    void parseWord(JsonValue& value)
    {
        const JsonPlace start = m_place;
        QString word;
        while (!atEnd() && peek().isLetterOrNumber()) {
            word += peek();
            advance();
        }
        if (word == QLatin1String("true") || word == QLatin1String("false")) {
            value.type = JsonValue::Type::Bool;
            value.boolean = word == QLatin1String("true");
        } else if (word != QLatin1String("null")) {
            throw JsonError(start, word.isEmpty()
                                       ? QObject::tr("no value begins with \"%1\"").arg(character())
                                       : QObject::tr("\"%1\" is no JSON value").arg(word));
        }
    }

    double parseNumber()
    {
        const JsonPlace start = m_place;
        const int begin = m_pos;
        if (peek() == QLatin1Char('-')) {
            advance();
        }
        const bool leadingZero = peek() == QLatin1Char('0');
        const int whole = skipDigits();
        bool good = whole > 0 && (whole == 1 || !leadingZero);
        if (peek() == QLatin1Char('.')) {
            advance();
            good = skipDigits() > 0 && good;
        }
        if (peek() == QLatin1Char('e') || peek() == QLatin1Char('E')) {
            advance();
            if (peek() == QLatin1Char('+') || peek() == QLatin1Char('-')) {
                advance();
            }
            good = skipDigits() > 0 && good;
        }
        const QString text = m_text.mid(begin, m_pos - begin);
        if (!good) {
            throw JsonError(start, QObject::tr("\"%1\" is no JSON number").arg(text));
        }
        const QByteArray latin = text.toLatin1();
        double number = 0.0;
        const auto result = std::from_chars(latin.cbegin(), latin.cend(), number);
        if (result.ec != std::errc() || result.ptr != latin.cend()) {
            throw JsonError(start,
                            QObject::tr("the number %1 is out of the range of a double").arg(text));
        }
        return number;
    }

    int skipDigits()
    {
        int count = 0;
        for (; isDigit(peek()); ++count) {
            advance();
        }
        return count;
    }

    QString parseString()
    {
        const JsonPlace start = m_place;
        expect('"');
        QString text;
        while (peek() != QLatin1Char('"')) {
            if (atEnd()) {
                throw JsonError(start, QObject::tr("the closing quotes of this text are missing"));
            }
            if (peek().unicode() < 0x20) {
                fail(QObject::tr("a control character inside a text"));
            }
            if (peek() == QLatin1Char('\\')) {
                text += parseEscape();
            } else {
                text += peek();
                advance();
            }
        }
        advance();
        if (!text.isValidUtf16()) {
            throw JsonError(start, QObject::tr("half a surrogate pair inside a text"));
        }
        return text;
    }

    QChar parseEscape()
    {
        static const QString names = QStringLiteral("\"\\/bfnrt");
        static const QString meanings = QStringLiteral("\"\\/\b\f\n\r\t");
        const JsonPlace start = m_place;
        advance();
        const QChar c = peek();
        if (!atEnd() && names.contains(c)) {
            advance();
            return meanings.at(names.indexOf(c));
        }
        if (c == QLatin1Char('u')) {
            advance();
            bool ok = m_pos + 4 <= m_text.size();
            const QString digits = m_text.mid(m_pos, 4);
            for (const QChar digit : digits) {
                ok = ok && isHexDigit(digit);
            }
            if (ok) {
                const ushort code = digits.toUShort(nullptr, 16);
                for (int i = 0; i < 4; ++i) {
                    advance();
                }
                return QChar(code);
            }
        }
        throw JsonError(start, QObject::tr("an unknown escape inside a text"));
    }

    const QString& m_text;
    int m_pos = 0;
    JsonPlace m_place;
};

/// The line and column of the first byte that is not UTF-8.
JsonPlace placeOfBadByte(const QByteArray& bytes, QTextCodec& codec)
{
    int good = 0;
    int bad = bytes.size();
    while (bad - good > 1) {
        const int middle = good + (bad - good) / 2;
        QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
        codec.toUnicode(bytes.constData(), middle, &state);
        (state.invalidChars == 0 ? good : bad) = middle;
    }
    const QByteArray before = bytes.left(good);
    JsonPlace place;
    place.line += before.count('\n');
    place.column += QString::fromUtf8(before.mid(before.lastIndexOf('\n') + 1)).toUcs4().size();
    return place;
}

} // namespace

JsonError::JsonError(JsonPlace place, const QString& message)
    : std::runtime_error(onOneLine(message).toStdString())
    , m_place(place)
{}

JsonPlace JsonError::place() const
{
    return m_place;
}

const JsonValue* JsonValue::find(const QString& name) const
{
    for (const Member& member : members) {
        if (member.first == name) {
            return &member.second;
        }
    }
    return nullptr;
}

QString jsonTypeName(JsonValue::Type type)
{
    switch (type) {
    case JsonValue::Type::Null:
        return QObject::tr("null");
    case JsonValue::Type::Bool:
        return QObject::tr("true or false");
    case JsonValue::Type::Number:
        return QObject::tr("a number");
    case JsonValue::Type::String:
        return QObject::tr("a text");
    case JsonValue::Type::Array:
        return QObject::tr("a list");
    case JsonValue::Type::Object:
        return QObject::tr("an object");
    }
    return QString();
}

QJsonValue toQt(const JsonValue& value)
{
    switch (value.type) {
    case JsonValue::Type::Null:
        break;
    case JsonValue::Type::Bool:
        return value.boolean;
    case JsonValue::Type::Number:
        return value.number;
    case JsonValue::Type::String:
        return value.string;
    case JsonValue::Type::Array: {
        QJsonArray array;
        for (const JsonValue& item : value.items) {
            array.append(toQt(item));
        }
        return array;
    }
    case JsonValue::Type::Object: {
        QJsonObject object;
        for (const JsonValue::Member& member : value.members) {
            object.insert(member.first, toQt(member.second));
        }
        return object;
    }
    }
    return QJsonValue(QJsonValue::Null);
}

JsonValue parseJson(const QByteArray& text)
{
    QByteArray bytes = text;
    if (bytes.startsWith("\xef\xbb\xbf")) {
        bytes.remove(0, 3);
    }
    QTextCodec* codec = QTextCodec::codecForName("UTF-8");
    QTextCodec::ConverterState state(QTextCodec::IgnoreHeader);
    const QString decoded = codec->toUnicode(bytes.constData(), bytes.size(), &state);
    if (state.invalidChars > 0 || state.remainingChars > 0) {
        throw JsonError(placeOfBadByte(bytes, *codec), QObject::tr("bytes that are not UTF-8"));
    }
    return Parser(decoded).parse();
}

} // namespace frame_editor
