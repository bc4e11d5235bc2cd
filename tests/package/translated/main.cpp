// my_host LANGUAGE BEAM VARIES: what the program calls a beam in a language, and what the library
// says of values that differ.
#include "platform/widgets.h"
#include "qt/inc/controls.h"

#include <QApplication>
#include <QLocale>

#include <cstdio>

//! [register]
static const ZEL_QT_InitTranslator translator("my_host");
//! [register]

int main(int argc, char** argv)
{
    if (argc < 4) {
        return 2;
    }
    QLocale::setDefault(QLocale(QString::fromUtf8(argv[1])));
    const QString beam = QString::fromUtf8(argv[2]);
    const QString varies = QString::fromUtf8(argv[3]);
    QApplication application(argc, argv);
    const QString shown = QObject::tr("Beam") + QLatin1Char(' ') + zel::qt::getVariesString();
    std::printf("%s\n", qPrintable(shown));
    return shown == beam + QLatin1Char(' ') + varies ? 0 : 1;
}
