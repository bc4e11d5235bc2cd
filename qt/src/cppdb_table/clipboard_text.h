#pragma once

#include <QStringRef>
#include <QVector>

namespace zel::qt::detail {

/// Whether a text to be pasted is a block of cells and not the text of a single value.
bool isClipboardBlock(const QString& text);

/// The rows of a block, without their line ends (LF or CR LF). A line end at the very end makes no
/// further row; an empty text has one empty row. The rows refer to `text`.
QVector<QStringRef> clipboardRows(const QString& text);

/// Calls `fn` with each cell of a row, at least one. They refer to the text that the row refers to.
template <class Fn>
void forEachClipboardCell(const QStringRef& row, Fn&& fn)
{
    int begin = 0;
    for (int end = row.indexOf(QLatin1Char('\t')); end >= 0;
         end = row.indexOf(QLatin1Char('\t'), begin)) {
        fn(row.mid(begin, end - begin));
        begin = end + 1;
    }
    fn(row.mid(begin));
}

} // namespace zel::qt::detail
