#include "qt/inc/controls/varies_string.h"

#include "platform/widgets.h"

namespace zel::qt {

QString getVariesString()
{
    // One text for all: that of the item which the combo box shows for differing values.
    return ZEL_QT4_ComboBox::getVariousText();
}

} // namespace zel::qt
