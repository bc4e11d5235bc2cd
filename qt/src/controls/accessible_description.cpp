#include "qt/src/controls/accessible_description.h"

#include <QObject>
#include <QString>
#include <QWidget>

namespace zel::qt::detail {

void describe(QWidget& control, const QString& text)
{
    if (control.accessibleDescription() != text) {
        control.setAccessibleDescription(text);
    }
}

void describeVarying(QWidget& control, bool varies)
{
    describe(control,
             varies ? QObject::tr("The values differ.", "accessible description") : QString());
}

void describeText(QWidget& edit, bool valid, const QString& hint)
{
    if (valid) {
        describe(edit, hint);
        return;
    }
    const QString remark = QObject::tr("The text is not valid.", "accessible description");
    describe(edit, hint.isEmpty() ? remark : remark + QLatin1Char(' ') + hint);
}

} // namespace zel::qt::detail
