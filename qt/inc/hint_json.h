#pragma once

#include "base/exception.h"
#include "platform/export.h"
#include "qt/inc/controls/named_value_list.h"
#include "qt/inc/factories/hint_tree.h"

#include <QJsonObject>
#include <QString>

#include <boost/any.hpp>
#include <boost/function.hpp>

#include <functional>
#include <map>
#include <typeindex>

class QWidget;

namespace zel::qt {

/// What a form in a file can only name: functions, comparisons, lists of values and types of the
/// host. One registry serves many forms. Names are compared exactly; things of different sorts may
/// share a name.
///
/// Adding a name for a second time throws std::logic_error, "duplicate key", and keeps the first.
/// Adding an empty function or a null comparison throws std::invalid_argument.
class ZEL_QT_EXPORT HintRegistry
{
public:
    using Comparison = bool (*)(const boost::any&, const boost::any&);
    using DefaultFunction = boost::function<QString(const QString&)>;
    using ResetFunction = std::function<void(int, boost::any&, boost::any&)>;
    using Callback = std::function<bool(QWidget*, boost::any&)>;

    /// Knows the types "string", "int", "unsigned int", "unsigned short", "double", "bool",
    /// "named_value_list" and "chained" (of a ChainedValidator), and nothing else.
    HintRegistry();

    /// A type of values that the host added a validator builder for.
    void addType(const QString& name, std::type_index type);
    /// For "equal_value_fn" and "is_equal".
    void addComparison(const QString& name, Comparison comparison);
    /// For "values" and "entries".
    void addValues(const QString& name, const NamedValueList& values);
    /// For "pixmaps".
    void addPixmaps(const QString& name, const PixmapPtrList& pixmaps);
    /// For "default_fn".
    void addDefaultFunction(const QString& name, const DefaultFunction& function);
    /// For "reset_callback".
    void addResetFunction(const QString& name, const ResetFunction& function);
    /// For "callback".
    void addCallback(const QString& name, const Callback& callback);

    // What was added under a name; null if there is none. The pointer is valid until the registry
    // goes.
    const std::type_index* findType(const QString& name) const;
    const Comparison* findComparison(const QString& name) const;
    const NamedValueList* findValues(const QString& name) const;
    const PixmapPtrList* findPixmaps(const QString& name) const;
    const DefaultFunction* findDefaultFunction(const QString& name) const;
    const ResetFunction* findResetFunction(const QString& name) const;
    const Callback* findCallback(const QString& name) const;

private:
    std::map<QString, std::type_index> m_types;
    std::map<QString, Comparison> m_comparisons;
    std::map<QString, NamedValueList> m_values;
    std::map<QString, PixmapPtrList> m_pixmaps;
    std::map<QString, DefaultFunction> m_defaultFunctions;
    std::map<QString, ResetFunction> m_resetFunctions;
    std::map<QString, Callback> m_callbacks;
};

/// A description that cannot become hints. Its text names the place, what was expected there and
/// what was found: "$.validator.minimum: expected a number, found \"low\"".
class ZEL_QT_EXPORT HintJsonError : public Exception
{
public:
    HintJsonError(const QString& path, const QString& problem);
    ~HintJsonError() override;

    /// The place as a JSON path, such as $.validator.minimum or $.values[2][1].
    const QString& path() const;

private:
    QString m_path;
};

/// The tree of hints that a JSON object describes, for createEditorFromHints() and, its subtree
/// "validator" included, for the factories. docs/hints.md lists the keys.
///
/// A dot in a hint's path is a nested object. Each value becomes the type that the reader of its
/// key expects:
/// - texts and flags are what they are; numbers become `int`, UnitId or `double` by their key.
/// - "minimum" and "maximum" become the type that "validator.kind" names: `double`, `int`,
///   `unsigned int` or `unsigned short`. In a chain, all members with bounds have to have one
///   type.
/// - "validator.kind" is {"type": "double", "kind": ""}, where "kind" may be left out, and
///   "chained_validators" an array of such. The types are those of the registry. A chain has no
///   chain as a member.
/// - "validator.type" is one of the types that createEditorFromHints() knows.
/// - functions, comparisons and pixmaps are names in the registry.
/// - "values" and "entries" are a name in the registry, or written out: [["Yes", true],
///   ["No", false]] for bool, {"type": "int", "entries": [["one", 1], ["two", 2]]} for the types
///   "bool", "int", "unsigned int", "unsigned short", "double", "string" (a std::string in UTF-8)
///   and "wide string" (a std::wstring). null is an empty value in both.
///
/// An unknown key, a value of another type, a number out of range (bounds in the wrong order and a
/// "max_length" below 1 included), half a surrogate pair or an unknown name throws HintJsonError,
/// and there is no tree. Keys that an editor ignores are allowed, and what it needs is not checked
/// here. Nor is the text that the object came from: QJsonDocument makes an empty object of a bad
/// one, and of a key that stands twice it keeps the last value.
ZEL_QT_EXPORT HintTree hintsFromJson(const QJsonObject& description, const HintRegistry& registry);

} // namespace zel::qt
