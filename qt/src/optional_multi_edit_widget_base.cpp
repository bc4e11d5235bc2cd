#include "qt/inc/factories/optional_multi_edit_widget_base.h"

namespace zel::qt {

OptionalMultiEditWidgetBase::OptionalMultiEditWidgetBase(QWidget* parent)
    : QWidget(parent)
{}

OptionalMultiEditWidgetBase::~OptionalMultiEditWidgetBase() = default;

} // namespace zel::qt
