#include "examples/frame_editor/name_list.h"

#include <QObject>

namespace frame_editor {

QString nameList(const QStringList& names)
{
    constexpr int longest = 8;
    QString list = QStringList(names.mid(0, longest)).join(QStringLiteral(", "));
    if (names.size() > longest) {
        list += QObject::tr(" and %n more", nullptr, names.size() - longest);
    }
    return list;
}

} // namespace frame_editor
