#pragma once

#include <QStringRef>
#include <QVector>

namespace zel::qt::detail {

/// Whether a text to be pasted is a block of cells and not the text of a single value.
bool isClipboardBlock(const QString& text);

/// The rows of a block, without their line ends (LF or CR LF). A line end at the very end makes no
/// further row; an empty text has one empty row. The rows refer to `text`.
QVector<QStringRef> clipboardRows(const QString& text);

/// The cells of a row, at least one. They refer to the text that the row refers to.
QVector<QStringRef> clipboardCells(const QStringRef& row);

} // namespace zel::qt::detail
