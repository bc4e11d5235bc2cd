#include "qt/inc/hint_json.h"

#include "qt/inc/factories/hint_keys.h"
#include "qt/inc/validators/chained_validator.h"
#include "units/inc/unit_id.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QLocale>
#include <QStringList>

#include <cmath>
#include <limits>
#include <string_view>
#include <vector>

namespace zel::qt {
namespace {

/// A value together with its place in the description.
struct Node
{
    QJsonValue value;
    QString path;
};

QString quoted(const QString& text)
{
    const QByteArray array = QJsonDocument(QJsonArray{text}).toJson(QJsonDocument::Compact);
    return QString::fromUtf8(array.mid(1, array.size() - 2));
}

bool isPlainKey(const QString& key)
{
    for (const QChar c : key) {
        const bool letter = (c >= QLatin1Char('a') && c <= QLatin1Char('z')) ||
                            (c >= QLatin1Char('A') && c <= QLatin1Char('Z'));
        const bool digit = c >= QLatin1Char('0') && c <= QLatin1Char('9');
        if (!letter && !digit && c != QLatin1Char('_')) {
            return false;
        }
    }
    return !key.isEmpty();
}

QString pathOf(const Node& object, const QString& key)
{
    return object.path + (isPlainKey(key) ? QLatin1Char('.') + key
                                          : QLatin1Char('[') + quoted(key) + QLatin1Char(']'));
}

Node member(const Node& object, const QString& key)
{
    return {object.value.toObject().value(key), pathOf(object, key)};
}

Node element(const Node& array, int index)
{
    return {array.value.toArray().at(index),
            array.path + QLatin1Char('[') + QString::number(index) + QLatin1Char(']')};
}

QString describe(const QJsonValue& value)
{
    constexpr int longest = 60;
    switch (value.type()) {
    case QJsonValue::Null:
        return QStringLiteral("null");
    case QJsonValue::Bool:
        return value.toBool() ? QStringLiteral("true") : QStringLiteral("false");
    case QJsonValue::Double:
        return QString::number(value.toDouble(), 'g', QLocale::FloatingPointShortest);
    case QJsonValue::String:
        return value.toString().size() <= longest ? quoted(value.toString())
                                                  : QStringLiteral("a long text");
    case QJsonValue::Array:
        return QStringLiteral("an array of %1").arg(value.toArray().size());
    case QJsonValue::Object:
        return QStringLiteral("an object");
    case QJsonValue::Undefined:
        break;
    }
    return QStringLiteral("nothing");
}

[[noreturn]] void refuse(const Node& node, const QString& expected)
{
    throw HintJsonError(
        node.path, QStringLiteral("expected %1, found %2").arg(expected, describe(node.value)));
}

[[noreturn]] void refuseKey(const Node& object, const QString& key, QStringList known)
{
    known.sort();
    throw HintJsonError(
        pathOf(object, key),
        QStringLiteral("unknown key; expected one of %1").arg(known.join(QStringLiteral(", "))));
}

/// Refuses the keys of an object that are not among the known.
void allowKeys(const Node& object, const QStringList& known)
{
    const QStringList keys = object.value.toObject().keys();
    for (const QString& key : keys) {
        if (!known.contains(key)) {
            refuseKey(object, key, known);
        }
    }
}

QString text(const Node& node)
{
    if (!node.value.isString()) {
        refuse(node, QStringLiteral("a text"));
    }
    // Half a surrogate pair has no form in UTF-8, so another text would take its place.
    if (!node.value.toString().isValidUtf16()) {
        refuse(node, QStringLiteral("a text without half a surrogate pair"));
    }
    return node.value.toString();
}

bool flag(const Node& node)
{
    if (!node.value.isBool()) {
        refuse(node, QStringLiteral("true or false"));
    }
    return node.value.toBool();
}

double number(const Node& node)
{
    if (!node.value.isDouble() || !std::isfinite(node.value.toDouble())) {
        refuse(node, QStringLiteral("a number"));
    }
    return node.value.toDouble();
}

template <class T>
T integer(const Node& node, T lowest)
{
    // All of them are exact as a double.
    constexpr T highest = std::numeric_limits<T>::max();
    const double given = node.value.toDouble(std::numeric_limits<double>::quiet_NaN());
    if (!(given >= static_cast<double>(lowest) && given <= static_cast<double>(highest)) ||
        std::trunc(given) != given) {
        refuse(node, QStringLiteral("an integer from %1 to %2").arg(lowest).arg(highest));
    }
    return static_cast<T>(given);
}

/// A thing of the registry, by name.
template <class T>
const T& named(const Node& node, const HintRegistry& registry,
               const T* (HintRegistry::*find)(const QString&) const, const char* sort)
{
    const T* thing = node.value.isString() ? (registry.*find)(node.value.toString()) : nullptr;
    if (thing == nullptr) {
        refuse(node, QStringLiteral("the name of %1").arg(QLatin1String(sort)));
    }
    return *thing;
}

// Each of these makes the value of one sort of hint.

boost::any readText(const Node& node, const HintRegistry& /*registry*/)
{
    return text(node).toStdString();
}

boost::any readWideText(const Node& node, const HintRegistry& /*registry*/)
{
    return text(node).toStdWString();
}

boost::any readFlag(const Node& node, const HintRegistry& /*registry*/)
{
    return flag(node);
}

boost::any readNumber(const Node& node, const HintRegistry& /*registry*/)
{
    return number(node);
}

template <class T, T lowest = std::numeric_limits<T>::min()>
boost::any readInteger(const Node& node, const HintRegistry& /*registry*/)
{
    return integer<T>(node, lowest);
}

boost::any readUnitId(const Node& node, const HintRegistry& /*registry*/)
{
    return units::UnitId(integer<int>(node, std::numeric_limits<int>::min()));
}

boost::any readValidatorType(const Node& node, const HintRegistry& /*registry*/)
{
    const QString type = text(node);
    for (const char* known : {"", "unit", "string", "double", "int", "distance"}) {
        if (type == QLatin1String(known)) {
            return type.toStdString();
        }
    }
    refuse(node, QStringLiteral("\"\", \"unit\", \"string\", \"double\", \"int\" or \"distance\""));
}

boost::any readComparison(const Node& node, const HintRegistry& registry)
{
    return named(node, registry, &HintRegistry::findComparison, "a comparison");
}

boost::any readPixmaps(const Node& node, const HintRegistry& registry)
{
    return named(node, registry, &HintRegistry::findPixmaps, "a list of pixmaps");
}

boost::any readDefaultFunction(const Node& node, const HintRegistry& registry)
{
    return named(node, registry, &HintRegistry::findDefaultFunction, "a default function");
}

boost::any readResetFunction(const Node& node, const HintRegistry& registry)
{
    return named(node, registry, &HintRegistry::findResetFunction, "a reset function");
}

boost::any readCallback(const Node& node, const HintRegistry& registry)
{
    return named(node, registry, &HintRegistry::findCallback, "a callback");
}

using Reader = boost::any (*)(const Node&, const HintRegistry&);

/// How the values of a type are written in a list.
Reader valueReader(const Node& typeNode)
{
    static const std::map<QString, Reader> readers = {
        {QStringLiteral("bool"), readFlag},
        {QStringLiteral("int"), readInteger<int>},
        {QStringLiteral("unsigned int"), readInteger<unsigned int>},
        {QStringLiteral("unsigned short"), readInteger<unsigned short>},
        {QStringLiteral("double"), readNumber},
        {QStringLiteral("string"), readText},
        {QStringLiteral("wide string"), readWideText},
    };
    const auto found = readers.find(typeNode.value.toString());
    if (!typeNode.value.isString() || found == readers.end()) {
        QStringList names;
        for (const auto& [name, reader] : readers) {
            names.append(quoted(name));
        }
        refuse(typeNode, QStringLiteral("one of ") + names.join(QStringLiteral(", ")));
    }
    return found->second;
}

boost::any readUntyped(const Node& node, const HintRegistry& registry)
{
    if (!node.value.isBool()) {
        refuse(node, QStringLiteral("true, false or null (other values need a list with a type)"));
    }
    return readFlag(node, registry);
}

NamedValueList readPairs(const Node& node, const HintRegistry& registry, Reader valueOf)
{
    if (!node.value.isArray()) {
        refuse(node, QStringLiteral("an array of names with their values"));
    }
    NamedValueList list;
    for (int i = 0; i < node.value.toArray().size(); ++i) {
        const Node pair = element(node, i);
        if (!pair.value.isArray() || pair.value.toArray().size() != 2) {
            refuse(pair, QStringLiteral("an array of a name and a value"));
        }
        const QString name = text(element(pair, 0));
        const Node value = element(pair, 1);
        list.emplace_back(name, value.value.isNull() ? boost::any() : valueOf(value, registry));
    }
    return list;
}

boost::any readValues(const Node& node, const HintRegistry& registry)
{
    if (node.value.isArray()) {
        return readPairs(node, registry, readUntyped);
    }
    if (!node.value.isObject()) {
        return named(node, registry, &HintRegistry::findValues, "a list of values");
    }
    allowKeys(node, {QStringLiteral("type"), QStringLiteral("entries")});
    const Reader valueOf = valueReader(member(node, QStringLiteral("type")));
    return readPairs(member(node, QStringLiteral("entries")), registry, valueOf);
}

ValidatorKey validatorKey(const Node& node, const HintRegistry& registry)
{
    if (!node.value.isObject()) {
        refuse(node, QStringLiteral("an object such as {\"type\": \"double\", \"kind\": \"\"}"));
    }
    allowKeys(node, {QStringLiteral("type"), QStringLiteral("kind")});
    const auto& type =
        named(member(node, QStringLiteral("type")), registry, &HintRegistry::findType, "a type");
    const Node kind = member(node, QStringLiteral("kind"));
    return {type, kind.value.isUndefined() ? std::string() : text(kind).toStdString()};
}

boost::any readValidatorKey(const Node& node, const HintRegistry& registry)
{
    return validatorKey(node, registry);
}

boost::any readChain(const Node& node, const HintRegistry& registry)
{
    if (!node.value.isArray()) {
        refuse(node, QStringLiteral("an array of validator kinds"));
    }
    std::vector<ValidatorKey> keys;
    for (int i = 0; i < node.value.toArray().size(); ++i) {
        const Node memberNode = element(node, i);
        keys.push_back(validatorKey(memberNode, registry));
        // All members read one set of hints, so a chain in it would be its own member.
        if (keys.back().first == typeid(ChainedValidator)) {
            refuse(memberNode, QStringLiteral("a validator that is no chain"));
        }
    }
    return keys;
}

using ReaderTable = std::map<QString, Reader>;

const ReaderTable& editorReaders()
{
    static const ReaderTable readers = {
        {QLatin1String(hint_keys::editor), readText},
        {QLatin1String(hint_keys::optional), readFlag},
        {QLatin1String(hint_keys::defaultFn), readDefaultFunction},
        {QLatin1String(hint_keys::equalValueFn), readComparison},
        {QLatin1String(hint_keys::values), readValues},
        {QLatin1String(hint_keys::entries), readValues},
        {QLatin1String(hint_keys::isEqual), readComparison},
        {QLatin1String(hint_keys::editable), readFlag},
        {QLatin1String(hint_keys::pixmaps), readPixmaps},
        {QLatin1String(hint_keys::resetCallback), readResetFunction},
        {QLatin1String(hint_keys::callback), readCallback},
    };
    return readers;
}

/// The last part of a path below "validator".
QString belowValidator(const char* path)
{
    return QLatin1String(path + std::string_view(hint_keys::validator).size() + 1);
}

/// Without the bounds, whose type depends on the validator.
const ReaderTable& validatorReaders()
{
    static const ReaderTable readers = {
        {belowValidator(hint_keys::validatorType), readValidatorType},
        {belowValidator(hint_keys::validatorUnitId), readUnitId},
        {belowValidator(hint_keys::validatorKind), readValidatorKey},
        // A text that has to be shorter than one character could not stand in the field.
        {QLatin1String(validator_hint_keys::maxLength), readInteger<int, 1>},
        {QLatin1String(validator_hint_keys::optional), readFlag},
        {QLatin1String(validator_hint_keys::precision), readInteger<int>},
        {QLatin1String(validator_hint_keys::entries), readValues},
        {QLatin1String(validator_hint_keys::isEqual), readComparison},
        {QLatin1String(validator_hint_keys::chainedValidators), readChain},
    };
    return readers;
}

/// How the bounds of values of a type are written; null for a type without bounds.
Reader boundReader(std::type_index type)
{
    static const std::map<std::type_index, Reader> readers = {
        {typeid(int), readInteger<int>},
        {typeid(unsigned int), readInteger<unsigned int>},
        {typeid(unsigned short), readInteger<unsigned short>},
        {typeid(double), readNumber},
    };
    const auto found = readers.find(type);
    return found == readers.end() ? nullptr : found->second;
}

/// How the bounds of the validator that `hints` describes are written. Null if it has none, or if
/// the members of a chain do not agree.
Reader boundReader(const HintTree& hints)
{
    const auto kind =
        readHint<ValidatorKey>(hints, belowValidator(hint_keys::validatorKind).toStdString());
    if (!kind) {
        return nullptr;
    }
    if (kind->first != typeid(ChainedValidator)) {
        return boundReader(kind->first);
    }
    Reader common = nullptr;
    for (const ValidatorKey& key :
         readHintOr<std::vector<ValidatorKey>>(hints, validator_hint_keys::chainedValidators, {})) {
        const Reader reader = boundReader(key.first);
        if (reader != nullptr && common != nullptr && reader != common) {
            return nullptr;
        }
        common = reader != nullptr ? reader : common;
    }
    return common;
}

void append(HintTree& tree, const QString& key, const boost::any& value)
{
    // Not by path: keys come from the table and have no dot, and the tree has none of them yet.
    tree.push_back({key.toStdString(), HintTree(value)});
}

bool isBound(const QString& key)
{
    return key == QLatin1String(validator_hint_keys::minimum) ||
           key == QLatin1String(validator_hint_keys::maximum);
}

/// Refuses bounds in the wrong order: one of them would replace every number that the user types.
void checkOrderOfBounds(const Node& validator)
{
    const Node minimum = member(validator, QLatin1String(validator_hint_keys::minimum));
    const Node maximum = member(validator, QLatin1String(validator_hint_keys::maximum));
    const double highest = maximum.value.toDouble(std::numeric_limits<double>::max());
    if (minimum.value.toDouble(highest) > highest) {
        refuse(minimum,
               QStringLiteral("a number up to the maximum, %1").arg(describe(maximum.value)));
    }
}

HintTree readValidator(const Node& node, const HintRegistry& registry)
{
    if (!node.value.isObject()) {
        refuse(node, QStringLiteral("an object"));
    }
    const ReaderTable& readers = validatorReaders();
    const QStringList keys = node.value.toObject().keys();
    HintTree hints;
    for (const QString& key : keys) {
        const auto reader = readers.find(key);
        if (reader != readers.end()) {
            append(hints, key, reader->second(member(node, key), registry));
        } else if (!isBound(key)) {
            QStringList known = {QLatin1String(validator_hint_keys::minimum),
                                 QLatin1String(validator_hint_keys::maximum)};
            for (const auto& row : readers) {
                known.append(row.first);
            }
            refuseKey(node, key, known);
        }
    }
    for (const QString& key : keys) {
        if (isBound(key)) {
            const Reader reader = boundReader(hints);
            if (reader == nullptr) {
                throw HintJsonError(
                    pathOf(node, key),
                    QStringLiteral(
                        "a bound needs a \"kind\" beside it that names one type of numbers"));
            }
            append(hints, key, reader(member(node, key), registry));
        }
    }
    checkOrderOfBounds(node);
    return hints;
}

} // namespace

HintTree hintsFromJson(const QJsonObject& description, const HintRegistry& registry)
{
    const ReaderTable& readers = editorReaders();
    const Node root = {description, QStringLiteral("$")};
    HintTree hints;
    const QStringList keys = description.keys();
    for (const QString& key : keys) {
        const auto reader = readers.find(key);
        if (reader != readers.end()) {
            append(hints, key, reader->second(member(root, key), registry));
        } else if (key == QLatin1String(hint_keys::validator)) {
            hints.push_back({hint_keys::validator, readValidator(member(root, key), registry)});
        } else {
            QStringList known = {QLatin1String(hint_keys::validator)};
            for (const auto& row : readers) {
                known.append(row.first);
            }
            refuseKey(root, key, known);
        }
    }
    return hints;
}

} // namespace zel::qt
