#pragma once

#include "platform/export.h"
#include "qt/inc/factories/hint_tree.h"

#include <boost/any.hpp>
#include <boost/function.hpp>

#include <string>

class QWidget;

namespace zel::qt {

/// An editor that was built from hints, with the operations that a host needs to pass values.
///
/// In an empty result the pointer is null and the functions are empty. Those of the built-in kinds
/// hold the control by plain pointer: they must not be called once the widget is gone.
struct EditorMetaData
{
    QWidget* editor = nullptr;                         ///< the widget; not owned by this structure
    boost::function<void(const boost::any&)> setValue; ///< shows one value
    boost::function<void()> forceVaries;               ///< marks the values as differing
    /// Reads the value. False, and nothing written, while the values differ. An empty value beside
    /// true means that there is none, or that the text is not valid.
    boost::function<bool(boost::any&)> getValue;
};

/// Builds the editor that the hint "editor" names: one that was registered, or else "lineedit" or
/// "enumbox". Each hint holds exactly the type given here.
///
/// | Hint                   | Type                                  | If missing    | Read for   |
/// |------------------------|---------------------------------------|---------------|------------|
/// | "editor"               | std::string                           | empty result  | always     |
/// | "optional"             | bool                                  | false         | built-in   |
/// | "validator.type"       | std::string                           | a text of 256 | "lineedit" |
/// | "validator.unit_id"    | UnitId                                | UnitId(1)     | "unit"     |
/// | "validator.max_length" | int                                   | 256           | "string"   |
/// | "default_fn"           | boost::function<QString(const QString&)> | empty      | "double"   |
/// | "equal_value_fn"       | bool (*)(const boost::any&, const boost::any&) | throws | "enumbox" |
/// | "values"               | NamedValueList                        | throws        | "enumbox"  |
///
/// The types of validators are "unit", "string", "double", "int" and "distance". With "optional"
/// an empty text means that there is no value (a "string" has no use for it), and the line edit
/// gets a button that asks "default_fn" for a text. Only "double" hands that function on: every
/// other type reports the assertion "fn" instead and gets no button.
///
/// An unknown "editor" or "validator.type" gives an empty result. A hint of another type throws
/// boost::bad_any_cast, a missing one that is needed boost::property_tree::ptree_bad_path.
///
/// @param parent gets the widget; may be null, the caller then owns it
ZEL_QT_EXPORT EditorMetaData createEditorFromHints(QWidget* parent, const HintTree& hints);

/// Enters an editor under a name, before the built-in kinds; replaces one that is there. Its
/// creator gets the parent and the whole tree, of which only "editor" has been read. An empty
/// creator makes createEditorFromHints() throw boost::bad_function_call.
ZEL_QT_EXPORT void
registerEditor(const std::string& name,
               boost::function<EditorMetaData(QWidget*, const HintTree&)> creator);

/// Takes an editor out again; nothing for an unknown name.
ZEL_QT_EXPORT void unregisterEditor(const std::string& name);

} // namespace zel::qt
