#include "tests/helpers/data_file.h"

#include <QFile>

#include <cmath>
#include <cstdio>

namespace zel::test {

QStringList dataLines(const QString& fileName)
{
    QFile file(QStringLiteral(ZEL_TEST_DATA "/") + fileName);
    if (!file.open(QIODevice::ReadOnly)) {
        qWarning("cannot open %s", qPrintable(file.fileName()));
        return {};
    }
    QStringList lines = QString::fromUtf8(file.readAll()).split(QLatin1Char('\n'));
    if (!lines.isEmpty() && lines.last().isEmpty()) {
        lines.removeLast();
    }
    return lines;
}

std::wstring unescaped(const QString& text)
{
    const std::wstring in = text.toStdWString();
    std::wstring out;
    for (std::size_t i = 0; i < in.size(); ++i) {
        if (in[i] != L'\\' || i + 1 == in.size()) {
            out.push_back(in[i]);
            continue;
        }
        switch (in[++i]) {
        case L't':
            out.push_back(L'\t');
            break;
        case L'n':
            out.push_back(L'\n');
            break;
        case L'x': {
            const std::size_t end = in.find(L';', i);
            out.push_back(static_cast<wchar_t>(std::stoul(in.substr(i + 1, end - i), nullptr, 16)));
            i = end;
            break;
        }
        default:
            out.push_back(in[i]);
        }
    }
    return out;
}

QString escaped(const std::wstring& text)
{
    QString out;
    for (const wchar_t c : text) {
        if (c == L'\\') {
            out += QStringLiteral("\\\\");
        } else if (c >= L' ' && c < 0x7f) {
            out += QLatin1Char(static_cast<char>(c));
        } else {
            out += QStringLiteral("\\x%1;").arg(static_cast<quint32>(c), 0, 16);
        }
    }
    return out;
}

QString numberText(double number)
{
    if (std::isnan(number)) {
        return QStringLiteral("nan");
    }
    char buffer[40];
    std::snprintf(buffer, sizeof buffer, "%.17g", number);
    return QString::fromLatin1(buffer);
}

} // namespace zel::test
