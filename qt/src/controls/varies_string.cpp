#include "qt/inc/controls/varies_string.h"

#include <QObject>

namespace zel::qt {

QString getVariesString()
{
    return QObject::tr("*VARIES*");
}

} // namespace zel::qt
