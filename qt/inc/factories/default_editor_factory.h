#pragma once

#include "qt/inc/factories/default_validator_factory.h"
#include "qt/inc/factories/editor_factory.h"

namespace zel::qt {

/// The factory of the six editors that the library builds from hints. A host may add more.
///
/// | Kind               | Makes                                                              |
/// |--------------------|--------------------------------------------------------------------|
/// | "lineedit"         | MultiEditLineEdit                                                  |
/// | "unit"             | the same; a validator that is no UnitValidator is dropped          |
/// | "named_value_list" | MultiEditEnumBox with the entries given                            |
/// | "yes_no"           | MultiEditEnumBox with the entries yes and no                       |
/// | "multi_edit_line_edit_with_reset_button" | MultiEditLineEditWithResetButton             |
/// | "callback"         | a plain QWidget that shows nothing, with a MultiEditValue          |
///
/// | Kind               | Hints                                                              |
/// |--------------------|--------------------------------------------------------------------|
/// | "lineedit", "unit" | "validator", "validator.kind", "validator.optional"                |
/// | "named_value_list" | "entries", "is_equal", "editable", "pixmaps", "validator"          |
/// | "yes_no"           | none                                                               |
/// | "multi_edit_line_edit_with_reset_button" | "validator", "validator.kind", "reset_callback" |
/// | "callback"         | "callback", "is_equal"                                             |
///
/// "validator.kind" is a ValidatorKey, looked up in the validator factory, whose builder gets the
/// subtree "validator". Without a validator factory, "validator" or "validator.kind" the editor
/// has no validator. With "validator.optional" (a bool) a line edit has a button that clears it.
///
/// "entries" is a NamedValueList, "is_equal" a bool (*)(const boost::any&, const boost::any&),
/// "editable" a bool, "pixmaps" a PixmapPtrList. A missing "entries" or "is_equal" reports the
/// assertion "nvl && equal_fn" and the result is null.
///
/// "reset_callback" is a std::function<void(int, boost::any&, boost::any&)>; a tree without it
/// throws boost::property_tree::ptree_bad_path.
///
/// A "callback" editor (std::function<bool(QWidget*, boost::any&)>) has no editing of its own. On
/// the next turn of the event loop, when the caller has passed the initial value, it calls the
/// function with the widget and the value; if the function answers true, `control` reads the value
/// back. A missing "callback" or "is_equal" reports the assertion "callback && equal_fn" and the
/// result is null. The caller keeps the Editor and its control alive until then: the timer holds
/// them by plain pointer. A widget that is gone by then calls the function off. The widget is on
/// its way out by itself while the function runs. `control` is a MultiEditValue of its own, which
/// the caller deletes as such when it has asked it for the value.
///
/// A hint of another type throws boost::bad_any_cast, an unknown kind or validator key
/// std::out_of_range. Nothing is left behind then.
///
/// A copied or moved factory goes on asking the factory that was constructed first for its
/// validators. The caller keeps that one alive as long as any copy builds editors. A move
/// copies, deliberately, so that a factory that was moved from stays as it was.
class ZEL_QT_EXPORT DefaultEditorFactory : public EditorFactory
{
public:
    /// @param validators makes the validators; null makes editors without one
    explicit DefaultEditorFactory(std::shared_ptr<DefaultValidatorFactory> validators);
    DefaultEditorFactory(const DefaultEditorFactory&);
    DefaultEditorFactory& operator=(const DefaultEditorFactory&);
    ~DefaultEditorFactory();

private:
    std::unique_ptr<IValidator> findValidator(const HintTree& hints) const;
    std::unique_ptr<Editor> buildLineEdit(const HintTree& hints) const;
    std::unique_ptr<Editor> buildUnitEdit(const HintTree& hints) const;
    std::unique_ptr<Editor> buildNamedValues(const HintTree& hints) const;
    std::unique_ptr<Editor> buildLineEditWithResetButton(const HintTree& hints) const;

    std::shared_ptr<DefaultValidatorFactory> m_validators;
};

} // namespace zel::qt
