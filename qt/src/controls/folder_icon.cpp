#include "qt/src/controls/folder_icon.h"

namespace zel::qt::detail {
namespace {

// Seven colours: clear, outline, tab, front, light edge, shade, dark edge.
const char* const folder[] = {
    "16 16 7 1",        ". c None",         "o c #7a5a10",      "t c #e8c050",
    "f c #ffd860",      "l c #fff0b0",      "s c #d8a838",      "d c #b08828",
    "................", "................", "..ooooo.........", ".ottttto........",
    ".otttttooooooo..", ".ottttttttttto..", ".otttttttttttto.", ".ooooooooooooooo",
    ".olllllllllllldo", ".olfffffffffffdo", ".olffffffffffsdo", ".olfffffffffssdo",
    ".olffffffffsssdo", ".odddddddddddddo", "..oooooooooooooo", "................",
};

} // namespace

QPixmap folderIcon()
{
    return QPixmap(folder);
}

} // namespace zel::qt::detail
