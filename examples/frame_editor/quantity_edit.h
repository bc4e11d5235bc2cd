#pragma once

#include "examples/frame_editor/quantity_validator.h"

#include "qt/inc/controls.h"

namespace frame_editor {

/// The library's line edit over a QuantityValidator, which a host cannot reach otherwise.
class QuantityEdit : public zel::qt::MultiEditLineEdit
{
    Q_OBJECT
public:
    QuantityEdit(QWidget* parent, const boost::shared_ptr<QuantityValidator>& validator);

    QuantityValidator& quantityValidator() const;

private:
    boost::shared_ptr<QuantityValidator> m_quantityValidator;
};

} // namespace frame_editor
