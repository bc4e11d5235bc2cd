#include "qt/inc/factories.h"
#include "qt/inc/hint_json.h"
#include "qt/inc/validators.h"
#include "tests/helpers/checked_test.h"
#include "tests/helpers/validation.h"
#include "units/inc/units.h"

#include <QJsonDocument>

#include <limits>
#include <stdexcept>
#include <vector>

using namespace zel::qt;
using zel::test::told;

namespace {

bool equalInts(const boost::any&, const boost::any&)
{
    return true;
}

HintRegistry someRegistry()
{
    HintRegistry registry;
    registry.addType("quantity", typeid(zel::units::v1::IConverter::quantity));
    registry.addComparison("equal int", &equalInts);
    registry.addValues("grades", NamedValueList{{"S235", 235}, {"S355", 355}});
    registry.addPixmaps("colours", PixmapPtrList{nullptr, nullptr, nullptr});
    registry.addDefaultFunction("standard", [](const QString& text) { return text + "!"; });
    registry.addResetFunction("reset", [](int, boost::any& shown, boost::any&) { shown = 4; });
    registry.addCallback("pick", [](QWidget*, boost::any& value) {
        value = 5;
        return true;
    });
    return registry;
}

QJsonObject parsed(const QString& json)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(json.toUtf8(), &error);
    if (!document.isObject()) {
        throw std::runtime_error(("no JSON object: " + json).toStdString());
    }
    return document.object();
}

HintTree hints(const QString& json)
{
    return hintsFromJson(parsed(json), someRegistry());
}

/// The text of the refusal; empty if there was none.
QString refusal(const QJsonObject& description)
{
    try {
        hintsFromJson(description, someRegistry());
    } catch (const HintJsonError& e) {
        const QString what = QString::fromUtf8(e.what());
        return what.startsWith(e.path() + ": ") ? what : "path and text differ: " + what;
    }
    return {};
}

QString toldList(const NamedValueList& list)
{
    QStringList pairs;
    for (const auto& [name, value] : list) {
        pairs.append(name + "=" + told(value));
    }
    return pairs.join("; ");
}

} // namespace

class HintJsonTest : public zel::test::CheckedTest
{
    Q_OBJECT
private Q_SLOTS:
    void emptyObjectIsAnEmptyTree();
    void textsAndFlags();
    void validatorOfAnEditor();
    void boundsHaveTheTypeOfTheKind_data();
    void boundsHaveTheTypeOfTheKind();
    void extremesOfTheBounds();
    void validatorKeys_data();
    void validatorKeys();
    void chains();
    void namesAreLookedUp();
    void valueLists_data();
    void valueLists();
    void treesBuildEditorsAndValidators();

    void refusals_data();
    void refusals();
    void refusesKeysThatArePaths();
    void refusesNumbersThatAreNone();
    void longTextsAreNotRepeated();
    void errorIsAnException();

    void registryRefusesDuplicates();
    void registryRefusesEmptyFunctions();
    void registryFindsNothingUnknown();
};

void HintJsonTest::emptyObjectIsAnEmptyTree()
{
    QVERIFY(hints("{}").empty());
    const HintTree tree = hints(R"({"validator": {}})");
    QCOMPARE(tree.size(), std::size_t(1));
    QVERIFY(tree.get_child("validator").empty());
    QVERIFY(tree.get_child("validator").data().empty());
}

void HintJsonTest::textsAndFlags()
{
    const HintTree tree = hints(R"({"editor": "lineedit", "optional": true, "editable": false})");
    QCOMPARE(tree.size(), std::size_t(3));
    QCOMPARE(readNeededHint<std::string>(tree, "editor"), std::string("lineedit"));
    QCOMPARE(readNeededHint<bool>(tree, "optional"), true);
    QCOMPARE(readNeededHint<bool>(tree, "editable"), false);
    // Any name of an editor may be registered.
    QCOMPARE(readNeededHint<std::string>(hints(R"({"editor": "Träger"})"), "editor"),
             std::string("Träger"));
}

void HintJsonTest::validatorOfAnEditor()
{
    const HintTree tree = hints(R"({"validator":
        {"type": "unit", "unit_id": 1001, "max_length": 30, "optional": true, "precision": -1}})");
    QCOMPARE(tree.get_child("validator").size(), std::size_t(5));
    QCOMPARE(readNeededHint<std::string>(tree, "validator.type"), std::string("unit"));
    QCOMPARE(int(readNeededHint<zel::units::UnitId>(tree, "validator.unit_id")), 1001);
    QCOMPARE(readNeededHint<int>(tree, "validator.max_length"), 30);
    QCOMPARE(readNeededHint<bool>(tree, "validator.optional"), true);
    QCOMPARE(readNeededHint<int>(tree, "validator.precision"), -1);
    for (const char* type : {"", "unit", "string", "double", "int", "distance"}) {
        const HintTree typed = hints(QString(R"({"validator": {"type": "%1"}})").arg(type));
        QCOMPARE(readNeededHint<std::string>(typed, "validator.type"), std::string(type));
    }
}

void HintJsonTest::boundsHaveTheTypeOfTheKind_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("minimum");
    QTest::newRow("double") << R"({"type": "double"})"
                            << "double 3";
    QTest::newRow("int") << R"({"type": "int"})"
                         << "int 3";
    QTest::newRow("unsigned int") << R"({"type": "unsigned int"})"
                                  << "unsigned int 3";
    QTest::newRow("unsigned short") << R"({"type": "unsigned short"})"
                                    << "unsigned short 3";
    QTest::newRow("of a host's kind") << R"({"type": "int", "kind": "even"})"
                                      << "int 3";
}

void HintJsonTest::boundsHaveTheTypeOfTheKind()
{
    QFETCH(QString, kind);
    // Whatever the order of the keys.
    const HintTree tree =
        hints(R"({"validator": {"maximum": 7, "minimum": 3, "kind": )" + kind + "}}");
    QTEST(told(tree.get_child("validator.minimum").data()), "minimum");
    QVERIFY(tree.get_child("validator.maximum").data().type() ==
            tree.get_child("validator.minimum").data().type());
}

void HintJsonTest::extremesOfTheBounds()
{
    const auto bounds = [](const char* type, const char* minimum, const char* maximum) {
        const HintTree tree = hints(
            QString(R"({"validator": {"kind": {"type": "%1"}, "minimum": %2, "maximum": %3}})")
                .arg(type, minimum, maximum));
        return told(tree.get_child("validator.minimum").data()) + " " +
               told(tree.get_child("validator.maximum").data());
    };
    QCOMPARE(bounds("int", "-2147483648", "2147483647"), QString("int -2147483648 int 2147483647"));
    QCOMPARE(bounds("unsigned int", "0", "4294967295"),
             QString("unsigned int 0 unsigned int 4294967295"));
    QCOMPARE(bounds("unsigned short", "-0", "65535"),
             QString("unsigned short 0 unsigned short 65535"));
    QCOMPARE(bounds("int", "7", "7"), QString("int 7 int 7"));
    QCOMPARE(bounds("double", "-1.5", "1.7976931348623157e308"),
             QString("double -1.5 double 1.7976931348623157e+308"));
}

void HintJsonTest::validatorKeys_data()
{
    using Quantity = zel::units::v1::IConverter::quantity;
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("name");
    const auto row = [](const char* tag, const char* kind, const std::type_info& type,
                        const char* name) { QTest::newRow(tag) << kind << type.name() << name; };
    row("string", R"({"type": "string", "kind": "color"})", typeid(std::string), "color");
    row("int", R"({"type": "int", "kind": ""})", typeid(int), "");
    row("unsigned int", R"({"type": "unsigned int"})", typeid(unsigned int), "");
    row("unsigned short", R"({"type": "unsigned short"})", typeid(unsigned short), "");
    row("double", R"({"type": "double"})", typeid(double), "");
    row("bool", R"({"type": "bool"})", typeid(bool), "");
    row("named values", R"({"type": "named_value_list"})", typeid(NamedValueList), "");
    row("chain", R"({"type": "chained"})", typeid(ChainedValidator), "");
    row("host", R"({"type": "quantity", "kind": "length"})", typeid(Quantity), "length");
}

void HintJsonTest::validatorKeys()
{
    QFETCH(QString, kind);
    const HintTree tree = hints(R"({"validator": {"kind": )" + kind + "}}");
    const auto key = readNeededHint<ValidatorKey>(tree, "validator.kind");
    QTEST(QString(key.first.name()), "type");
    QTEST(QString::fromStdString(key.second), "name");
}

void HintJsonTest::chains()
{
    const HintTree tree = hints(R"({"validator": {
        "kind": {"type": "chained"}, "minimum": 3, "maximum": 4,
        "chained_validators": [{"type": "string"}, {"type": "int"}, {"type": "int", "kind": "x"}]
        }})");
    const auto members =
        readNeededHint<std::vector<ValidatorKey>>(tree, "validator.chained_validators");
    const std::vector<ValidatorKey> expected = {
        {typeid(std::string), ""}, {typeid(int), ""}, {typeid(int), "x"}};
    QVERIFY(members == expected);
    QCOMPARE(readNeededHint<int>(tree, "validator.minimum"), 3);
    QVERIFY(
        readNeededHint<std::vector<ValidatorKey>>(
            hints(R"({"validator": {"chained_validators": []}})"), "validator.chained_validators")
            .empty());
}

void HintJsonTest::namesAreLookedUp()
{
    const HintTree tree = hints(R"({
        "equal_value_fn": "equal int", "is_equal": "equal int", "values": "grades",
        "entries": "grades", "pixmaps": "colours", "default_fn": "standard",
        "reset_callback": "reset", "callback": "pick",
        "validator": {"entries": "grades", "is_equal": "equal int"}})");
    QVERIFY(readNeededHint<HintRegistry::Comparison>(tree, "equal_value_fn") == &equalInts);
    QVERIFY(readNeededHint<HintRegistry::Comparison>(tree, "is_equal") == &equalInts);
    QVERIFY(readNeededHint<HintRegistry::Comparison>(tree, "validator.is_equal") == &equalInts);
    for (const char* path : {"values", "entries", "validator.entries"}) {
        QCOMPARE(toldList(readNeededHint<NamedValueList>(tree, path)),
                 QString("S235=int 235; S355=int 355"));
    }
    QCOMPARE(readNeededHint<PixmapPtrList>(tree, "pixmaps").size(), std::size_t(3));
    QCOMPARE(readNeededHint<HintRegistry::DefaultFunction>(tree, "default_fn")("a"), QString("a!"));
    boost::any value;
    boost::any unused;
    readNeededHint<HintRegistry::ResetFunction>(tree, "reset_callback")(0, value, unused);
    QCOMPARE(told(value), QString("int 4"));
    QVERIFY(readNeededHint<HintRegistry::Callback>(tree, "callback")(nullptr, value));
    QCOMPARE(told(value), QString("int 5"));
}

void HintJsonTest::valueLists_data()
{
    QTest::addColumn<QString>("json");
    QTest::addColumn<QString>("list");
    QTest::newRow("empty") << "[]"
                           << "";
    QTest::newRow("bool and null") << R"([["Yes", true], ["No", false], ["-", null]])"
                                   << "Yes=bool true; No=bool false; -=empty";
    QTest::newRow("names twice and empty") << R"([["", true], ["", false]])"
                                           << "=bool true; =bool false";
    const auto typed = [](const char* tag, const char* type, const char* value, const char* list) {
        QTest::newRow(tag)
            << QString(R"({"type": "%1", "entries": [["a", %2], ["b", null]]})").arg(type, value)
            << list;
    };
    typed("typed bool", "bool", "true", "a=bool true; b=empty");
    typed("int", "int", "-3", "a=int -3; b=empty");
    typed("unsigned int", "unsigned int", "4294967295", "a=unsigned int 4294967295; b=empty");
    typed("unsigned short", "unsigned short", "3", "a=unsigned short 3; b=empty");
    typed("double", "double", "3", "a=double 3; b=empty");
    typed("string", "string", R"("ä")", "a=string 'ä'; b=empty");
    typed("wide string", "wide string", R"("ä")", "a=wstring 'ä'; b=empty");
    typed("surrogate pair", "string", R"("\ud83c\udfd7")", "a=string '\U0001F3D7'; b=empty");
}

void HintJsonTest::valueLists()
{
    QFETCH(QString, json);
    for (const char* key : {"values", "entries"}) {
        const HintTree tree = hints(QString(R"({"%1": )").arg(key) + json + "}");
        QTEST(toldList(readNeededHint<NamedValueList>(tree, key)), "list");
    }
}

void HintJsonTest::treesBuildEditorsAndValidators()
{
    const HintTree tree = hints(R"({"validator":
        {"kind": {"type": "unsigned short"}, "minimum": 5, "maximum": 9, "optional": true}})");
    const DefaultValidatorFactory factory;
    const auto validator = factory.create(readNeededHint<ValidatorKey>(tree, "validator.kind"),
                                          tree.get_child("validator"));
    QCOMPARE(zel::test::finished(*validator, "3").told(), QString("true unsigned short 5"));
    QCOMPARE(zel::test::finished(*validator, "").told(), QString("true empty"));
}

void HintJsonTest::refusals_data()
{
    QTest::addColumn<QString>("json");
    QTest::addColumn<QString>("text");
    const auto row = [](const char* tag, const char* json, const char* text) {
        QTest::newRow(tag) << json << text;
    };
    row("unknown key", R"({"editr": "lineedit"})",
        "$.editr: unknown key; expected one of callback, default_fn, editable, editor, entries, "
        "equal_value_fn, is_equal, optional, pixmaps, reset_callback, validator, values");
    row("key of the validator at the top", R"({"minimum": 3})",
        "$.minimum: unknown key; expected one of callback, default_fn, editable, editor, entries, "
        "equal_value_fn, is_equal, optional, pixmaps, reset_callback, validator, values");
    row("unknown key of the validator", R"({"validator": {"minimun": 3}})",
        "$.validator.minimun: unknown key; expected one of chained_validators, entries, is_equal, "
        "kind, max_length, maximum, minimum, optional, precision, type, unit_id");
    row("editor", R"({"editor": 5})", "$.editor: expected a text, found 5");
    row("null", R"({"editor": null})", "$.editor: expected a text, found null");
    row("flag", R"({"optional": "yes"})", "$.optional: expected true or false, found \"yes\"");
    row("flag as a number", R"({"editable": 1})", "$.editable: expected true or false, found 1");
    row("validator", R"({"validator": "double"})",
        "$.validator: expected an object, found \"double\"");
    row("validator as an array", R"({"validator": [1, 2]})",
        "$.validator: expected an object, found an array of 2");
    row("type", R"({"validator": {"type": "dobule"}})",
        "$.validator.type: expected \"\", \"unit\", \"string\", \"double\", \"int\" or "
        "\"distance\", found \"dobule\"");
    row("unit id with a fraction", R"({"validator": {"unit_id": 13.5}})",
        "$.validator.unit_id: expected an integer from -2147483648 to 2147483647, found 13.5");
    row("length out of range", R"({"validator": {"max_length": 2147483648}})",
        "$.validator.max_length: expected an integer from 1 to 2147483647, found 2147483648");
    row("length without room", R"({"validator": {"max_length": 0}})",
        "$.validator.max_length: expected an integer from 1 to 2147483647, found 0");
    row("length below zero", R"({"validator": {"max_length": -1}})",
        "$.validator.max_length: expected an integer from 1 to 2147483647, found -1");
    row("length as a text", R"({"validator": {"max_length": "3"}})",
        "$.validator.max_length: expected an integer from 1 to 2147483647, found \"3\"");
    row("precision", R"({"validator": {"precision": true}})",
        "$.validator.precision: expected an integer from -2147483648 to 2147483647, found true");
    row("validator's flag", R"({"validator": {"optional": {}}})",
        "$.validator.optional: expected true or false, found an object");
    row("bound without a kind", R"({"validator": {"type": "double", "minimum": 3}})",
        "$.validator.minimum: a bound needs a \"kind\" beside it that names one type of numbers");
    row("bound of a text", R"({"validator": {"kind": {"type": "string"}, "maximum": 3}})",
        "$.validator.maximum: a bound needs a \"kind\" beside it that names one type of numbers");
    row("bound of a mixed chain",
        R"({"validator": {"kind": {"type": "chained"}, "maximum": 3,
            "chained_validators": [{"type": "int"}, {"type": "double"}]}})",
        "$.validator.maximum: a bound needs a \"kind\" beside it that names one type of numbers");
    row("bound as a text", R"({"validator": {"kind": {"type": "double"}, "minimum": "low"}})",
        "$.validator.minimum: expected a number, found \"low\"");
    row("bounds in the wrong order",
        R"({"validator": {"kind": {"type": "double"}, "minimum": 0.1, "maximum": -0.3}})",
        "$.validator.minimum: expected a number up to the maximum, -0.3, found 0.1");
    row("integer bounds in the wrong order",
        R"({"validator": {"kind": {"type": "chained"}, "maximum": 3, "minimum": 4,
            "chained_validators": [{"type": "unsigned short"}]}})",
        "$.validator.minimum: expected a number up to the maximum, 3, found 4");
    row("half a surrogate pair", R"({"editor": "a\ud83c"})",
        R"($.editor: expected a text without half a surrogate pair, found "a\ud83c")");
    row("half a pair as a value", R"({"values": {"type": "string", "entries": [["a", "\udfd7"]]}})",
        R"($.values.entries[0][1]: expected a text without half a surrogate pair, found "\udfd7")");
    row("half a pair as a name", R"({"values": [["\ud83cx", true]]})",
        R"($.values[0][0]: expected a text without half a surrogate pair, found "\ud83cx")");
    row("fraction as it is written", R"({"optional": 0.1})",
        "$.optional: expected true or false, found 0.1");
    row("fraction to its last digit", R"({"optional": 0.30000000000000004})",
        "$.optional: expected true or false, found 0.30000000000000004");
    row("bound below zero", R"({"validator": {"kind": {"type": "unsigned short"}, "minimum": -1}})",
        "$.validator.minimum: expected an integer from 0 to 65535, found -1");
    row("bound with a fraction", R"({"validator": {"kind": {"type": "int"}, "minimum": 1.5}})",
        "$.validator.minimum: expected an integer from -2147483648 to 2147483647, found 1.5");
    row("bound too high",
        R"({"validator": {"kind": {"type": "unsigned int"}, "maximum": 4294967296}})",
        "$.validator.maximum: expected an integer from 0 to 4294967295, found 4294967296");
    row("kind", R"({"validator": {"kind": "double"}})",
        "$.validator.kind: expected an object such as {\"type\": \"double\", \"kind\": \"\"}, "
        "found \"double\"");
    row("kind without a type", R"({"validator": {"kind": {"kind": ""}}})",
        "$.validator.kind.type: expected the name of a type, found nothing");
    row("kind of an unknown type", R"({"validator": {"kind": {"type": "long"}}})",
        "$.validator.kind.type: expected the name of a type, found \"long\"");
    row("kind with a number", R"({"validator": {"kind": {"type": "int", "kind": 3}}})",
        "$.validator.kind.kind: expected a text, found 3");
    row("kind with another key", R"({"validator": {"kind": {"type": "int", "name": ""}}})",
        "$.validator.kind.name: unknown key; expected one of kind, type");
    row("chain", R"({"validator": {"chained_validators": {"type": "int"}}})",
        "$.validator.chained_validators: expected an array of validator kinds, found an object");
    row("member of a chain",
        R"({"validator": {"chained_validators": [{"type": "int"}, "string"]}})",
        "$.validator.chained_validators[1]: expected an object such as {\"type\": \"double\", "
        "\"kind\": \"\"}, found \"string\"");
    row("chain in a chain", R"({"validator": {"chained_validators": [{"type": "chained"}]}})",
        "$.validator.chained_validators[0]: expected a validator that is no chain, found an "
        "object");
    row("unknown comparison", R"({"equal_value_fn": "equal"})",
        "$.equal_value_fn: expected the name of a comparison, found \"equal\"");
    row("comparison as a number", R"({"is_equal": 3})",
        "$.is_equal: expected the name of a comparison, found 3");
    row("name of another sort", R"({"is_equal": "pick"})",
        "$.is_equal: expected the name of a comparison, found \"pick\"");
    row("unknown comparison of the validator", R"({"validator": {"is_equal": "equal"}})",
        "$.validator.is_equal: expected the name of a comparison, found \"equal\"");
    row("unknown values", R"({"values": "beams"})",
        "$.values: expected the name of a list of values, found \"beams\"");
    row("values as a flag", R"({"entries": false})",
        "$.entries: expected the name of a list of values, found false");
    row("unknown pixmaps", R"({"pixmaps": "beams"})",
        "$.pixmaps: expected the name of a list of pixmaps, found \"beams\"");
    row("unknown default function", R"({"default_fn": "x"})",
        "$.default_fn: expected the name of a default function, found \"x\"");
    row("unknown reset function", R"({"reset_callback": "x"})",
        "$.reset_callback: expected the name of a reset function, found \"x\"");
    row("unknown callback", R"({"callback": "x"})",
        "$.callback: expected the name of a callback, found \"x\"");
    row("other case", R"({"callback": "Pick"})",
        "$.callback: expected the name of a callback, found \"Pick\"");
    row("number without a type", R"({"values": [["Yes", true], ["one", 1]]})",
        "$.values[1][1]: expected true, false or null (other values need a list with a type), "
        "found 1");
    row("text without a type", R"({"values": [["one", "1"]]})",
        "$.values[0][1]: expected true, false or null (other values need a list with a type), "
        "found \"1\"");
    row("entry that is no pair", R"({"values": [["Yes", true], ["No"]]})",
        "$.values[1]: expected an array of a name and a value, found an array of 1");
    row("entry that is an object", R"({"values": [{"Yes": true}]})",
        "$.values[0]: expected an array of a name and a value, found an object");
    row("name that is no text", R"({"values": [[1, true]]})",
        "$.values[0][0]: expected a text, found 1");
    row("list without a type", R"({"values": {"entries": []}})",
        "$.values.type: expected one of \"bool\", \"double\", \"int\", \"string\", \"unsigned "
        "int\", "
        "\"unsigned short\", \"wide string\", found nothing");
    row("list of an unknown type", R"({"values": {"type": "QString", "entries": []}})",
        "$.values.type: expected one of \"bool\", \"double\", \"int\", \"string\", \"unsigned "
        "int\", "
        "\"unsigned short\", \"wide string\", found \"QString\"");
    row("list without entries", R"({"values": {"type": "int"}})",
        "$.values.entries: expected an array of names with their values, found nothing");
    row("list with another key", R"({"values": {"type": "int", "entries": [], "x": 1}})",
        "$.values.x: unknown key; expected one of entries, type");
    row("typed value of another type", R"({"values": {"type": "int", "entries": [["a", 1.5]]}})",
        "$.values.entries[0][1]: expected an integer from -2147483648 to 2147483647, found 1.5");
}

void HintJsonTest::refusals()
{
    QFETCH(QString, json);
    QTEST(refusal(parsed(json)), "text");
}

void HintJsonTest::refusesKeysThatArePaths()
{
    QJsonObject description;
    description.insert("validator.type", "double");
    QVERIFY(refusal(description).startsWith("$[\"validator.type\"]: unknown key"));
    description = QJsonObject();
    description.insert("", 1);
    QVERIFY(refusal(description).startsWith("$[\"\"]: unknown key"));
    description = QJsonObject();
    description.insert("a\"%1\n", 1);
    QVERIFY(refusal(description).startsWith(R"($["a\"%1\n"]: unknown key)"));
}

void HintJsonTest::refusesNumbersThatAreNone()
{
    // Not from a file, but a host may have made the object by code.
    for (const double bad : {std::numeric_limits<double>::infinity(), std::nan("")}) {
        QJsonObject validator;
        validator.insert("kind", QJsonObject{{"type", "double"}});
        validator.insert("minimum", bad);
        QJsonObject description;
        description.insert("validator", validator);
        QVERIFY(refusal(description).startsWith("$.validator.minimum: expected a number, found"));
        validator.insert("kind", QJsonObject{{"type", "int"}});
        description.insert("validator", validator);
        QVERIFY(refusal(description).startsWith("$.validator.minimum: expected an integer from"));
    }
}

void HintJsonTest::longTextsAreNotRepeated()
{
    QJsonObject description;
    description.insert("callback", QString(60, 'x'));
    QVERIFY(refusal(description).endsWith("found \"" + QString(60, 'x') + "\""));
    description.insert("callback", QString(61, 'x'));
    QCOMPARE(refusal(description),
             QString("$.callback: expected the name of a callback, found a long text"));
}

void HintJsonTest::errorIsAnException()
{
    QVERIFY_EXCEPTION_THROWN(hints(R"({"x": 1})"), zel::Exception);
    try {
        hints(R"({"values": [["a", 1]]})");
        QFAIL("nothing was thrown");
    } catch (const HintJsonError& e) {
        const HintJsonError copy(e);
        QCOMPARE(copy.path(), QString("$.values[0][1]"));
        QCOMPARE(copy.what(), e.what());
    }
}

void HintJsonTest::registryRefusesDuplicates()
{
    HintRegistry registry = someRegistry();
    const auto callback = [](QWidget*, boost::any&) { return false; };
    QVERIFY_EXCEPTION_THROWN(registry.addType("int", typeid(long)), std::logic_error);
    QVERIFY_EXCEPTION_THROWN(registry.addComparison("equal int", &equalInts), std::logic_error);
    QVERIFY_EXCEPTION_THROWN(registry.addValues("grades", {}), std::logic_error);
    QVERIFY_EXCEPTION_THROWN(registry.addPixmaps("colours", {}), std::logic_error);
    QVERIFY_EXCEPTION_THROWN(
        registry.addDefaultFunction("standard", [](const QString&) { return QString(); }),
        std::logic_error);
    QVERIFY_EXCEPTION_THROWN(
        registry.addResetFunction("reset", [](int, boost::any&, boost::any&) {}), std::logic_error);
    QVERIFY_EXCEPTION_THROWN(registry.addCallback("pick", callback), std::logic_error);
    QVERIFY(*registry.findType("int") == typeid(int));
    QCOMPARE(registry.findValues("grades")->size(), std::size_t(2));
    // Things of different sorts may share a name.
    registry.addCallback("grades", callback);
    QVERIFY(registry.findCallback("grades") != nullptr);
}

void HintJsonTest::registryRefusesEmptyFunctions()
{
    HintRegistry registry;
    QVERIFY_EXCEPTION_THROWN(registry.addComparison("a", nullptr), std::invalid_argument);
    QVERIFY_EXCEPTION_THROWN(registry.addDefaultFunction("a", {}), std::invalid_argument);
    QVERIFY_EXCEPTION_THROWN(registry.addResetFunction("a", {}), std::invalid_argument);
    QVERIFY_EXCEPTION_THROWN(registry.addCallback("a", {}), std::invalid_argument);
    QVERIFY(registry.findComparison("a") == nullptr);
}

void HintJsonTest::registryFindsNothingUnknown()
{
    const HintRegistry registry;
    QVERIFY(registry.findType("long") == nullptr);
    QVERIFY(registry.findComparison("a") == nullptr);
    QVERIFY(registry.findValues("a") == nullptr);
    QVERIFY(registry.findPixmaps("a") == nullptr);
    QVERIFY(registry.findDefaultFunction("a") == nullptr);
    QVERIFY(registry.findResetFunction("a") == nullptr);
    QVERIFY(registry.findCallback("a") == nullptr);
}

QTEST_GUILESS_MAIN(HintJsonTest)
#include "tst_hint_json.moc"
