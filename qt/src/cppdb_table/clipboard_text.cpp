#include "qt/src/cppdb_table/clipboard_text.h"

namespace zel::qt::detail {

bool isClipboardBlock(const QString& text)
{
    return text.contains(QLatin1Char('\t')) || text.contains(QLatin1Char('\n'));
}

QVector<QStringRef> clipboardRows(const QString& text)
{
    QVector<QStringRef> rows = text.splitRef(QLatin1Char('\n'));
    for (int i = 0; i < rows.size() - 1; ++i) { // behind the last one there was no line feed
        if (rows[i].endsWith(QLatin1Char('\r'))) {
            rows[i].chop(1);
        }
    }
    if (rows.size() > 1 && rows.last().isEmpty()) {
        rows.removeLast();
    }
    return rows;
}

} // namespace zel::qt::detail
