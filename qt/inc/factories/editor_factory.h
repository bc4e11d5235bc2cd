#pragma once

#include "platform/export.h"
#include "qt/inc/factories/builder_table.h"
#include "qt/inc/factories/hint_tree.h"

#include <functional>
#include <memory>
#include <string>

class QWidget;

namespace zel::qt {

class MultiEditControlBase;

/// An editor that was built from hints. It frees neither of its pointers: the caller gives the
/// widget a parent or deletes it.
struct Editor
{
    QWidget* widget = nullptr;               ///< what is shown; has no parent at first
    MultiEditControlBase* control = nullptr; ///< what values pass through
};

/// Makes an editor out of a tree of hints.
using EditorBuilder = std::function<std::unique_ptr<Editor>(const HintTree&)>;

extern template class ZEL_QT_EXPORT BuilderTable<std::string, Editor, HintTree>;

/// Makes editors by kind out of trees of hints.
class ZEL_QT_EXPORT EditorFactory : public BuilderTable<std::string, Editor, HintTree>
{
public:
    EditorFactory();
    EditorFactory(const EditorFactory&);
    EditorFactory& operator=(const EditorFactory&);
    ~EditorFactory();
};

} // namespace zel::qt
