// What a program with widgets does: it uses a control's classes, the meta-objects and the images
// that are compiled into the library.
#include "platform/environment.h"
#include "platform/widgets.h"
#include "qt/inc/controls.h"

#include <QApplication>

#include <cstdio>

int main(int argc, char** argv)
{
    QApplication application(argc, argv);
    const ZEL_QT_Label label(Qt::PlainText, QStringLiteral("a < b"));
    const bool image = !zel::app::Environment::instance()
                            .getPaths(std::string())
                            .find(L"control_repeat_blue.png")
                            .empty();
    const bool ok = label.metaObject()->className() == QByteArray("ZEL_QT_Label") && image &&
                    zel::qt::getVariesString() == QStringLiteral("*VARIES*");
    std::printf("%s\n", ok ? "ok" : "not ok");
    return ok ? 0 : 1;
}
