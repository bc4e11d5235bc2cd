#include "examples/frame_editor/quantity_edit.h"

namespace frame_editor {

QuantityEdit::QuantityEdit(QWidget* parent, const boost::shared_ptr<QuantityValidator>& validator)
    : MultiEditLineEdit(parent, QString(), validator, {}, 0, zel::qt::ExpandRight)
    , m_quantityValidator(validator)
{}

QuantityValidator& QuantityEdit::quantityValidator() const
{
    return *m_quantityValidator;
}

} // namespace frame_editor
