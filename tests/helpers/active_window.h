#pragma once

#include <QCoreApplication>
#include <QTest>
#include <QWidget>

namespace zel::test {

/// Shows a window and makes it the active one, which the widgets in it need for the focus.
inline bool showActive(QWidget& window)
{
    window.show();
    window.activateWindow();
    return QTest::qWaitForWindowActive(&window);
}

/// Lets everything run that was put off by a timer of 0 milliseconds.
inline void runDeferred()
{
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();
}

} // namespace zel::test
