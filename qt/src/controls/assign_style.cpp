#include "qt/inc/controls/assign_style.h"

#include <QString>
#include <QWidget>

#include <filesystem>
#include <fstream>
#include <iterator>

namespace zel::qt {

void assign_style(QWidget* widget, const std::string& file)
{
    if (widget == nullptr) {
        return;
    }
    std::ifstream stream(std::filesystem::u8path(file));
    const std::string sheet((std::istreambuf_iterator<char>(stream)),
                            std::istreambuf_iterator<char>());
    widget->setStyleSheet(QString::fromStdString(sheet));
}

} // namespace zel::qt
