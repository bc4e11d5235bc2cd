#pragma once

#include <QString>
#include <QStringList>

#include <string>
#include <vector>

namespace zel::test {

/// The lines of a file in tests/data, decoded from UTF-8 and split at line feeds alone. Fails the
/// test with a warning that nobody took if there is no such file.
QStringList dataLines(const QString& fileName);

/// Replaces \t, \n, \\ and \xHEX; by what they stand for, and does the reverse: whatever is not
/// printable ASCII is written so.
std::wstring unescaped(const QString& text);
QString escaped(const std::wstring& text);

/// A number as the data files have it: "%.17g", or "inf", "-inf", "nan".
QString numberText(double number);

} // namespace zel::test
