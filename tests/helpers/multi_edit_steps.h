#pragma once

#include "qt/inc/controls/multi_edit_control_base.h"

#include <QLineEdit>
#include <QString>
#include <QTest>

namespace zel::test {

/// Varying state and value of a control of numbers, as a host sees them: "varies -", "one 2.5".
inline QString answer(const qt::MultiEditControlBase& control)
{
    const boost::any value = control.getCurrentValue();
    return (control.dataVaries() ? QStringLiteral("varies ") : QStringLiteral("one ")) +
           (value.empty() ? QStringLiteral("-") : QString::number(boost::any_cast<double>(value)));
}

/// What a host does to a control of numbers. r: reset, 1 to 9: read that value, s: set 5, f: force
inline void apply(qt::MultiEditControlBase& control, const QString& steps)
{
    for (const QChar step : steps) {
        if (step == QLatin1Char('r')) {
            control.reset();
        } else if (step == QLatin1Char('s')) {
            control.setValue(5.0);
        } else if (step == QLatin1Char('f')) {
            control.forceVaries();
        } else {
            control.readValue(double(step.digitValue()));
        }
    }
}

/// Replaces the text of an edit as a user does who clears it first.
inline void typeOver(QLineEdit& edit, const QString& text)
{
    edit.selectAll();
    QTest::keyClick(&edit, Qt::Key_Backspace);
    QTest::keyClicks(&edit, text);
}

} // namespace zel::test
