#include "examples/frame_editor/json_value.h"
#include "tests/helpers/checked_test.h"

#include <cmath>

using namespace frame_editor;

class TestJsonValue : public zel::test::CheckedTest
{
    Q_OBJECT

private Q_SLOTS:
    void numbers_data();
    void numbers();
    void texts_data();
    void texts();
    void structure();
    void places();
    void manyNames();
    void refused_data();
    void refused();
};

void TestJsonValue::numbers_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<double>("number");
    QTest::newRow("zero") << QByteArray("0") << 0.0;
    QTest::newRow("negative zero") << QByteArray("-0") << -0.0;
    QTest::newRow("fraction") << QByteArray("0.1") << 0.1;
    QTest::newRow("17 digits") << QByteArray("0.30000000000000004") << 0.1 + 0.2;
    QTest::newRow("exponent") << QByteArray("2.1e+08") << 2.1e8;
    QTest::newRow("capital exponent") << QByteArray("-5E-3") << -0.005;
    QTest::newRow("largest") << QByteArray("1.7976931348623157e308")
                             << std::numeric_limits<double>::max();
    QTest::newRow("smallest") << QByteArray("5e-324") << std::numeric_limits<double>::denorm_min();
}

void TestJsonValue::numbers()
{
    QFETCH(QByteArray, text);
    QFETCH(double, number);
    const JsonValue value = parseJson(text);
    QVERIFY(value.type == JsonValue::Type::Number);
    // Bit by bit: neither a rounding nor the sign of zero may get lost.
    QVERIFY(value.number == number);
    QCOMPARE(std::signbit(value.number), std::signbit(number));
}

void TestJsonValue::texts_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("string");
    QTest::newRow("empty") << QByteArray("\"\"") << QString();
    QTest::newRow("escapes") << QByteArray(R"("\"\\\/\b\f\n\r\t")")
                             << QStringLiteral("\"\\/\b\f\n\r\t");
    QTest::newRow("code point") << QByteArray(R"("\u00e9")") << QStringLiteral("\u00e9");
    QTest::newRow("surrogates") << QByteArray(R"("\ud83c\udfd7")") << QStringLiteral("\U0001F3D7");
    QTest::newRow("utf-8") << QByteArray("\"\xc3\xa4\xf0\x9f\x8f\x97\"")
                           << QStringLiteral("\u00e4\U0001F3D7");
    QTest::newRow("byte order mark") << QByteArray("\xef\xbb\xbf\"a\"") << QStringLiteral("a");
}

void TestJsonValue::texts()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, string);
    const JsonValue value = parseJson(text);
    QVERIFY(value.type == JsonValue::Type::String);
    QCOMPARE(value.string, string);
}

void TestJsonValue::structure()
{
    const JsonValue value = parseJson(R"( {"b": [true, false, null], "a": {}, "c": []} )");
    QVERIFY(value.type == JsonValue::Type::Object);
    QCOMPARE(value.members.size(), std::size_t(3));
    QCOMPARE(value.members.at(0).first, QStringLiteral("b"));
    QCOMPARE(value.members.at(1).first, QStringLiteral("a"));
    const JsonValue* list = value.find(QStringLiteral("b"));
    QVERIFY(list);
    QCOMPARE(list->items.size(), std::size_t(3));
    QVERIFY(list->items.at(0).boolean);
    QVERIFY(!list->items.at(1).boolean);
    QVERIFY(list->items.at(1).type == JsonValue::Type::Bool);
    QVERIFY(list->items.at(2).type == JsonValue::Type::Null);
    QVERIFY(!value.find(QStringLiteral("d")));
}

void TestJsonValue::places()
{
    const JsonValue value = parseJson("{\n  \"\xc3\xa4\": 1,\r\n \"b\": [2,\n3]}");
    QCOMPARE(value.find(QStringLiteral("\u00e4"))->place.line, 2);
    QCOMPARE(value.find(QStringLiteral("\u00e4"))->place.column, 8);
    QCOMPARE(value.find(QStringLiteral("b"))->place.line, 3);
    QCOMPARE(value.find(QStringLiteral("b"))->items.at(1).place.line, 4);
    QCOMPARE(value.find(QStringLiteral("b"))->items.at(1).place.column, 1);
}

void TestJsonValue::manyNames()
{
    // Each is looked for among those before it: in a time that grew with the square of their number
    // this would not end.
    constexpr int count = 700'000;
    QByteArray text = "{";
    for (int i = 0; i < count; ++i) {
        text += "\"" + QByteArray::number(i) + "\":0,";
    }
    text.chop(1);
    QCOMPARE(parseJson(text + "}").members.size(), std::size_t(count));
    try {
        parseJson(text + ",\"7\":0}");
        QFAIL("a name stands twice");
    } catch (const JsonError& error) {
        QCOMPARE(QString::fromUtf8(error.what()),
                 QStringLiteral("the name \"7\" stands twice in one object"));
    }
}

void TestJsonValue::refused_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<int>("line");
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("message");
    const auto row = [](const char* tag, const QByteArray& text, int line, int column,
                        const char* message) {
        QTest::newRow(tag) << text << line << column << QString::fromUtf8(message);
    };
    row("empty", "", 1, 1, "the text ends where a value is needed");
    row("blank", " \n ", 2, 2, "the text ends where a value is needed");
    row("word", "yes", 1, 1, "\"yes\" is no JSON value");
    row("NaN", "[1, NaN]", 1, 5, "\"NaN\" is no JSON value");
    row("infinity", "[Infinity]", 1, 2, "\"Infinity\" is no JSON value");
    row("negative infinity", "[-Infinity]", 1, 2, "\"-\" is no JSON number");
    row("too large", "[1e999]", 1, 2, "the number 1e999 is out of the range of a double");
    row("too small", "[1e-999]", 1, 2, "the number 1e-999 is out of the range of a double");
    row("leading zero", "01", 1, 1, "\"01\" is no JSON number");
    row("plus", "+1", 1, 1, "no value begins with \"+\"");
    row("bare point", "1.", 1, 1, "\"1.\" is no JSON number");
    row("comma", "1,5", 1, 2, "text behind the end of the JSON value");
    row("open list", "[1, 2", 1, 6, "the text ends where \"]\" is needed");
    row("open object", "{\"a\": 1", 1, 8, "the text ends where \"}\" is needed");
    row("no colon", "{\"a\" 1}", 1, 6, "\":\" is needed here");
    row("bare name", "{a: 1}", 1, 2, "a name in quotes is needed here");
    row("comma at the end", "{\"a\": 1,}", 1, 9, "a name in quotes is needed here");
    row("name twice", "{\"a\": 1,\n \"a\": 2}", 2, 2, "the name \"a\" stands twice in one object");
    row("open text", "\n\"abc", 2, 1, "the closing quotes of this text are missing");
    row("line break in a text", "\"a\nb\"", 1, 3, "a control character inside a text");
    row("unknown escape", R"("\x41")", 1, 2, "an unknown escape inside a text");
    row("short escape", R"("\u12")", 1, 2, "an unknown escape inside a text");
    row("signed escape", R"("\u+123")", 1, 2, "an unknown escape inside a text");
    row("prefixed escape", R"("\u0x41")", 1, 2, "an unknown escape inside a text");
    row("escape of other letters", R"("\u00g1")", 1, 2, "an unknown escape inside a text");
    row("half a pair", R"("\ud83c")", 1, 1, "half a surrogate pair inside a text");
    row("character outside the basic plane", "[\xf0\x9f\x8f\x97]", 1, 2,
        "no value begins with \"\U0001F3D7\"");
    row("zero character", QByteArray("[\0]", 3), 1, 2, "no value begins with \"\ufffd\"");
    row("name with a line end twice", R"({"a\n\u0000b": 1, "a\n\u0000b": 2})", 1, 19,
        "the name \"a\ufffd\ufffdb\" stands twice in one object");
    row("two values", "{} {}", 1, 4, "text behind the end of the JSON value");
    row("not UTF-8", "{\n\"a\": \"\xff\"}", 2, 7, "bytes that are not UTF-8");
    row("not UTF-8 behind a wide character", "\"\xf0\x9f\x8f\x97\xff\"", 1, 3,
        "bytes that are not UTF-8");
    row("cut UTF-8", "\"a\xc3", 1, 3, "bytes that are not UTF-8");
    row("deep", QByteArray(100, '['), 1, 66, "nested too deeply");
}

void TestJsonValue::refused()
{
    QFETCH(QByteArray, text);
    QFETCH(int, line);
    QFETCH(int, column);
    QFETCH(QString, message);
    try {
        parseJson(text);
        QFAIL("the text was accepted");
    } catch (const JsonError& error) {
        QCOMPARE(QString::fromUtf8(error.what()), message);
        QCOMPARE(error.place().line, line);
        QCOMPARE(error.place().column, column);
    }
}

QTEST_GUILESS_MAIN(TestJsonValue)
#include "tst_json_value.moc"
