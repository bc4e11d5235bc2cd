#pragma once

#include <QProcess>
#include <QString>

namespace zel::test {

/// Builds the C library's locale "de_DE.UTF-8" in the folder, which LOCPATH then has to name. Few
/// machines have the locale, all of them its source.
/// @return what went wrong; empty if nothing did
inline QString makeGermanLocale(const QString& folder)
{
    QProcess process;
    process.start(QStringLiteral("localedef"),
                  {QStringLiteral("--no-archive"), QStringLiteral("-i"), QStringLiteral("de_DE"),
                   QStringLiteral("-f"), QStringLiteral("UTF-8"),
                   folder + QStringLiteral("/de_DE.UTF-8")});
    if (!process.waitForFinished(120000)) {
        return process.errorString();
    }
    return process.exitCode() == 0 ? QString()
                                   : QString::fromLocal8Bit(process.readAllStandardError());
}

} // namespace zel::test
