#include "qt/src/optional_line_edit.h"

#include "qt/inc/controls/pixmap.h"

#include <QToolButton>

namespace zel::qt {

MultiEditLineEdit*
makeLineEditWithOptionalValue(QWidget* parent, IValidator* validator, bool optional,
                              const boost::function<QString(const QString&)>& defaultFn)
{
    MultiEditLineEdit* const edit =
        MultiEditLineEdit::create(parent, QString(), validator, 1, ExpandRight);
    if (!optional) {
        return edit;
    }
    QToolButton* const button =
        edit->addButton(defaultFn, Pixmap::createOrDefault(L"control_repeat_blue.png"));
    if (button != nullptr) {
        button->setToolTip(QObject::tr("Reset to default.", "makeLineEditWithOptionalValue"));
        button->setAccessibleName(button->toolTip());
    }
    return edit;
}

} // namespace zel::qt
