// docs/hints.md is held against the code: its keys are those that the factories read, with the
// types that they read, and what it shows in files becomes hints and editors.

#include "qt/inc/controls/multi_edit_value.h"
#include "qt/inc/factories.h"
#include "qt/inc/hint_json.h"
#include "qt/inc/validators.h"
#include "tests/helpers/any_compare.h"
#include "tests/helpers/checked_test.h"
#include "units/inc/units.h"

#include <QFile>
#include <QJsonDocument>
#include <QMap>
#include <QPointer>
#include <QRegularExpression>
#include <QSet>
#include <QWidget>

#include <memory>
#include <vector>

using namespace zel::qt;
using zel::test::equalInts;
using Quantity = zel::units::v1::IConverter::quantity;

namespace {

enum Table
{
    EditorFromHints,
    EditorFactoryTable,
    ValidatorFactoryTable
};

/// A row of one of the three tables of keys.
struct Row
{
    Table table;
    QString key;
    QString type;
    QString defaultValue;
    QString json;
};

/// A complete description, and the kind of the editor factory that it is for, if any.
struct Example
{
    QString kind;
    QString json;
};

bool equalBools(const boost::any& a, const boost::any& b)
{
    const bool* x = boost::any_cast<bool>(&a);
    const bool* y = boost::any_cast<bool>(&b);
    return x != nullptr && y != nullptr && *x == *y;
}

QString textOf(const QString& path)
{
    QFile file(QStringLiteral(ZEL_SOURCE_DIR "/") + path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

QString withoutTicks(QString cell)
{
    return cell.remove('`').trimmed();
}

std::vector<Row> documentedRows()
{
    const QMap<QString, Table> headings = {
        {"## Hints of createEditorFromHints", EditorFromHints},
        {"## Hints of DefaultEditorFactory", EditorFactoryTable},
        {"## Hints of DefaultValidatorFactory", ValidatorFactoryTable},
    };
    std::vector<Row> rows;
    Table table = EditorFromHints;
    for (const QString& line : textOf("docs/hints.md").split('\n')) {
        table = headings.value(line, table);
        if (line.startsWith("| `")) {
            const QStringList cells = line.split('|');
            rows.push_back({table, withoutTicks(cells.value(1)), withoutTicks(cells.value(2)),
                            withoutTicks(cells.value(3)), withoutTicks(cells.value(5))});
        }
    }
    return rows;
}

QSet<QString> documentedKeys(Table table)
{
    QSet<QString> keys;
    for (const Row& row : documentedRows()) {
        if (row.table == table) {
            keys.insert(row.key);
        }
    }
    return keys;
}

std::vector<Example> documentedExamples()
{
    static const QRegularExpression kindHeading(QStringLiteral("^### `(\\w+)`$"));
    std::vector<Example> examples;
    QString kind;
    bool inside = false;
    for (const QString& line : textOf("docs/hints.md").split('\n')) {
        if (line.startsWith('#')) {
            kind = kindHeading.match(line).captured(1);
        } else if (line == "```json") {
            inside = true;
            examples.push_back({kind, QString()});
        } else if (line == "```") {
            inside = false;
        } else if (inside) {
            examples.back().json += line + '\n';
        }
    }
    return examples;
}

/// The constants of one namespace of the header of keys: name and path.
QMap<QString, QString> constants(const QString& space)
{
    const QString header = textOf("qt/inc/factories/hint_keys.h");
    const int begin = header.indexOf("namespace zel::qt::" + space + " {");
    const int end = header.indexOf("} // namespace", begin);
    static const QRegularExpression constant(
        QStringLiteral("constexpr char (\\w+)\\[\\] = \"([\\w.]+)\";"));
    QMap<QString, QString> found;
    auto match = constant.globalMatch(header.mid(begin, end - begin));
    while (match.hasNext()) {
        const auto next = match.next();
        found.insert(next.captured(1), next.captured(2));
    }
    return found;
}

/// The paths of the constants of a namespace that a source uses, under the name that it has there.
QSet<QString> usedKeys(const QString& source, const QString& space, const QString& alias)
{
    const QMap<QString, QString> known = constants(space);
    const QRegularExpression use("\\b" + alias + "::(\\w+)");
    QSet<QString> used;
    auto match = use.globalMatch(textOf(source));
    while (match.hasNext()) {
        const QString name = match.next().captured(1);
        used.insert(known.value(name, "no constant: " + name));
    }
    return used;
}

HintRegistry registry()
{
    HintRegistry names;
    names.addType("quantity", typeid(Quantity));
    names.addComparison("equal int", &equalInts);
    names.addComparison("equal bool", &equalBools);
    names.addValues("steel grades", NamedValueList{{"S235", 235}, {"S355", 355}});
    names.addPixmaps("steel colours", PixmapPtrList{nullptr, nullptr});
    names.addDefaultFunction("standard width", [](const QString&) { return QString("3.6"); });
    names.addResetFunction("reset width", [](int, boost::any& shown, boost::any& value) {
        value = 3.6;
        shown = value;
    });
    names.addCallback("pick a section", [](QWidget*, boost::any&) { return false; });
    return names;
}

HintTree hints(const QString& json)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(json.toUtf8(), &error);
    if (error.error != QJsonParseError::NoError || !document.isObject()) {
        throw std::runtime_error((error.errorString() + " in " + json).toStdString());
    }
    return hintsFromJson(document.object(), registry());
}

template <class T>
QString nameOf()
{
    return QString::fromLatin1(typeid(T).name());
}

/// The type that a cell of the column "Type" means, by its name of the compiler.
QString typeName(const QString& documented)
{
    static const QMap<QString, QString> names = {
        {"std::string", nameOf<std::string>()},
        {"bool", nameOf<bool>()},
        {"int", nameOf<int>()},
        {"UnitId", nameOf<zel::units::UnitId>()},
        {"boost::function<QString(const QString&)>",
         nameOf<boost::function<QString(const QString&)>>()},
        {"bool (*)(const boost::any&, const boost::any&)",
         nameOf<bool (*)(const boost::any&, const boost::any&)>()},
        {"NamedValueList", nameOf<std::deque<std::pair<QString, boost::any>>>()},
        {"ValidatorKey", nameOf<std::pair<std::type_index, std::string>>()},
        {"PixmapPtrList", nameOf<std::deque<boost::shared_ptr<QPixmap>>>()},
        {"std::function<void(int, boost::any&, boost::any&)>",
         nameOf<std::function<void(int, boost::any&, boost::any&)>>()},
        {"std::function<bool(QWidget*, boost::any&)>",
         nameOf<std::function<bool(QWidget*, boost::any&)>>()},
        {"std::vector<ValidatorKey>", nameOf<std::vector<ValidatorKey>>()},
        {"a subtree", nameOf<void>()},
    };
    return names.value(documented, "unknown type: " + documented);
}

/// Lets every entry of a table read a tree: what is thrown tells which hint was of another type.
bool someReaderRefuses(Table table, const HintTree& tree)
{
    bool refused = false;
    const auto attempt = [&](const auto& read) {
        try {
            read();
        } catch (const boost::bad_any_cast&) {
            refused = true;
        }
    };
    if (table == EditorFromHints) {
        HintTree copy = tree;
        std::vector<std::pair<const char*, const char*>> kinds = {{"lineedit", ""},
                                                                  {"lineedit", "unit"},
                                                                  {"lineedit", "string"},
                                                                  {"lineedit", "double"},
                                                                  {"enumbox", ""}};
        for (const auto& [editor, type] : kinds) {
            if (tree.get_child("editor").data().type() == typeid(std::string)) {
                copy.put("editor", boost::any(std::string(editor)));
            }
            if (tree.get_child("validator.type").data().type() == typeid(std::string)) {
                copy.put("validator.type", boost::any(std::string(type)));
            }
            QWidget parent;
            attempt([&, &copy = copy] { createEditorFromHints(&parent, copy); });
        }
    } else if (table == EditorFactoryTable) {
        const DefaultEditorFactory factory(std::make_shared<DefaultValidatorFactory>());
        for (const char* kind :
             {"lineedit", "unit", "named_value_list", "multi_edit_line_edit_with_reset_button"}) {
            attempt([&] { delete factory.create(kind, tree)->widget; });
        }
        // Built only to be refused: a "callback" that works would have to be waited for.
        HintTree withoutComparison = tree;
        withoutComparison.put("is_equal", boost::any(5L));
        if (tree.get_child("callback").data().type() != typeid(HintRegistry::Callback)) {
            attempt([&] { factory.create("callback", withoutComparison); });
        }
    } else {
        const DefaultValidatorFactory factory;
        const ValidatorKey keys[] = {{typeid(std::string), ""},
                                     {typeid(int), ""},
                                     {typeid(double), ""},
                                     {typeid(NamedValueList), ""},
                                     {typeid(ChainedValidator), ""}};
        for (const ValidatorKey& key : keys) {
            HintTree copy = tree;
            for (const char* bound : {"minimum", "maximum"}) {
                if (tree.get_child(bound).data().type() != typeid(long) &&
                    key.first == typeid(double)) {
                    copy.put(bound, boost::any(1.0));
                }
            }
            attempt([&] { factory.create(key, copy); });
        }
    }
    return refused;
}

/// A tree that every reader of a table accepts.
HintTree acceptedTree(Table table)
{
    HintTree tree;
    switch (table) {
    case EditorFromHints:
        tree = hints(R"({"editor": "lineedit", "optional": false, "default_fn": "standard width",
            "equal_value_fn": "equal int", "values": "steel grades",
            "validator": {"type": "", "unit_id": 1001, "max_length": 30}})");
        break;
    case EditorFactoryTable:
        tree = hints(R"({"entries": "steel grades", "is_equal": "equal int", "editable": true,
            "pixmaps": "steel colours", "reset_callback": "reset width",
            "callback": "pick a section",
            "validator": {"kind": {"type": "double"}, "optional": false}})");
        break;
    case ValidatorFactoryTable:
        tree = hints(R"({"validator": {"kind": {"type": "int"}, "max_length": 30, "optional": true,
            "minimum": 1, "maximum": 10, "precision": 2, "entries": "steel grades",
            "is_equal": "equal int", "chained_validators": [{"type": "int"}]}})")
                   .get_child("validator");
        break;
    }
    return tree;
}

} // namespace

class HintDocsTest : public zel::test::CheckedTest
{
    Q_OBJECT
private Q_SLOTS:
    void keysAreThoseThatTheSourcesUse_data();
    void keysAreThoseThatTheSourcesUse();
    void everyConstantIsDocumented();
    void sourcesReadNoOtherKeys_data();
    void sourcesReadNoOtherKeys();
    void hintOfAnotherTypeIsRefused_data();
    void hintOfAnotherTypeIsRefused();
    void hintInAFileHasItsType_data();
    void hintInAFileHasItsType();
    void keysInFilesAreThoseOfTheTables();
    void examplesBuildEditors_data();
    void examplesBuildEditors();
};

void HintDocsTest::keysAreThoseThatTheSourcesUse_data()
{
    QTest::addColumn<int>("table");
    QTest::addColumn<QString>("source");
    QTest::addColumn<QString>("space");
    QTest::addColumn<QString>("alias");
    QTest::newRow("createEditorFromHints") << int(EditorFromHints) << "qt/src/editor_from_hints.cpp"
                                           << "hint_keys"
                                           << "hint_keys";
    QTest::newRow("editor factory")
        << int(EditorFactoryTable) << "qt/src/default_editor_factory.cpp"
        << "hint_keys"
        << "hint_keys";
    QTest::newRow("validator factory")
        << int(ValidatorFactoryTable) << "qt/src/default_validator_factory.cpp"
        << "validator_hint_keys"
        << "keys";
}

void HintDocsTest::keysAreThoseThatTheSourcesUse()
{
    QFETCH(int, table);
    QFETCH(QString, source);
    QFETCH(QString, space);
    QFETCH(QString, alias);
    QVERIFY(!documentedKeys(Table(table)).isEmpty());
    QCOMPARE(documentedKeys(Table(table)), usedKeys(source, space, alias));
}

void HintDocsTest::everyConstantIsDocumented()
{
    const auto paths = [](const QString& space) {
        const QStringList values = constants(space).values();
        return QSet<QString>(values.begin(), values.end());
    };
    QCOMPARE(documentedKeys(EditorFromHints) + documentedKeys(EditorFactoryTable),
             paths("hint_keys"));
    QCOMPARE(documentedKeys(ValidatorFactoryTable), paths("validator_hint_keys"));
}

void HintDocsTest::sourcesReadNoOtherKeys_data()
{
    QTest::addColumn<QString>("source");
    QTest::newRow("createEditorFromHints") << "qt/src/editor_from_hints.cpp";
    QTest::newRow("editor factory") << "qt/src/default_editor_factory.cpp";
    QTest::newRow("validator factory") << "qt/src/default_validator_factory.cpp";
}

void HintDocsTest::sourcesReadNoOtherKeys()
{
    QFETCH(QString, source);
    const QString text = textOf(source);
    static const QRegularExpression reading(
        QStringLiteral("(readHint|readHintOr|readNeededHint)<[^;]*?>\\(\\s*\\w+,\\s*([^,)]+)|"
                       "get_child\\w*\\(([^)]+)"));
    auto match = reading.globalMatch(text);
    int count = 0;
    while (match.hasNext()) {
        const auto next = match.next();
        const QString key = next.captured(2) + next.captured(3);
        QVERIFY2(key.contains("keys::"), qPrintable(key));
        ++count;
    }
    QVERIFY(count >= 8);
}

void HintDocsTest::hintOfAnotherTypeIsRefused_data()
{
    QTest::addColumn<int>("table");
    QTest::addColumn<QString>("key");
    for (const Row& row : documentedRows()) {
        if (row.type != "a subtree") {
            QTest::addRow("%d %s", int(row.table), qPrintable(row.key))
                << int(row.table) << row.key;
        }
    }
}

void HintDocsTest::hintOfAnotherTypeIsRefused()
{
    QFETCH(int, table);
    QFETCH(QString, key);
    HintTree tree = acceptedTree(Table(table));
    QVERIFY(!someReaderRefuses(Table(table), tree));
    QVERIFY(tree.get_child_optional(key.toStdString()).has_value());
    tree.put(key.toStdString(), boost::any(5L));
    QVERIFY(someReaderRefuses(Table(table), tree));
}

void HintDocsTest::hintInAFileHasItsType_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("json");
    for (const Row& row : documentedRows()) {
        const bool below = row.table == ValidatorFactoryTable;
        QTest::addRow("%d %s", int(row.table), qPrintable(row.key))
            << (below ? "validator." + row.key : row.key) << row.type
            << (below ? "{\"validator\": {" + row.json + "}}" : "{" + row.json + "}");
    }
}

void HintDocsTest::hintInAFileHasItsType()
{
    QFETCH(QString, key);
    QFETCH(QString, type);
    QFETCH(QString, json);
    const HintTree tree = hints(json);
    const auto node = tree.get_child_optional(key.toStdString());
    QVERIFY(node.has_value());
    if (type == "that of the value") {
        const auto kind = readNeededHint<ValidatorKey>(tree, "validator.kind");
        QVERIFY(std::type_index(node->data().type()) == kind.first);
    } else {
        QCOMPARE(QString::fromLatin1(node->data().type().name()), typeName(type));
    }
}

void HintDocsTest::keysInFilesAreThoseOfTheTables()
{
    // The refusal of an unknown key lists all that are known.
    const auto listed = [](const QString& json) {
        QSet<QString> keys;
        try {
            hints(json);
        } catch (const HintJsonError& e) {
            const QString text = QString::fromUtf8(e.what());
            const QStringList names = text.section("expected one of ", 1).split(", ");
            keys = QSet<QString>(names.begin(), names.end());
        }
        return keys;
    };
    QSet<QString> top;
    QSet<QString> below = documentedKeys(ValidatorFactoryTable);
    for (const QString& key :
         documentedKeys(EditorFromHints) + documentedKeys(EditorFactoryTable)) {
        (key.contains('.') ? below : top).insert(key.section('.', -1));
    }
    QCOMPARE(listed(R"({"no key": 1})"), top);
    QCOMPARE(listed(R"({"validator": {"no key": 1}})"), below);
}

void HintDocsTest::examplesBuildEditors_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("json");
    int number = 0;
    for (const Example& example : documentedExamples()) {
        QTest::addRow("%d %s", ++number, qPrintable(example.kind)) << example.kind << example.json;
    }
}

void HintDocsTest::examplesBuildEditors()
{
    QFETCH(QString, kind);
    QFETCH(QString, json);
    const HintTree tree = hints(json);
    if (kind.isEmpty()) {
        QWidget parent;
        QVERIFY(createEditorFromHints(&parent, tree).editor != nullptr);
        return;
    }
    auto validators = std::make_shared<DefaultValidatorFactory>();
    validators->add({typeid(Quantity), "length"}, [](const HintTree&) {
        return std::make_unique<UnitValidator>(zel::units::v1::get_active_input_context(),
                                               zel::units::UnitId(1001));
    });
    const DefaultEditorFactory factory(validators);
    const std::unique_ptr<Editor> editor = factory.create(kind.toStdString(), tree);
    QVERIFY(editor != nullptr);
    QVERIFY(editor->widget != nullptr);
    QVERIFY(editor->control != nullptr);
    if (kind == "callback") {
        const std::unique_ptr<MultiEditValue> control(
            dynamic_cast<MultiEditValue*>(editor->control));
        const QPointer<QWidget> widget(editor->widget);
        QTRY_VERIFY(widget.isNull());
    } else {
        delete editor->widget;
    }
}

QTEST_MAIN(HintDocsTest)
#include "tst_hint_docs.moc"
