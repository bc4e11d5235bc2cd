#include "platform/environment.h"

#include <QDir>
#include <QFileInfo>

namespace zel::app {
namespace {

/// The full name of the file below the folder, or an empty text if there is none.
QString fileBelow(const QString& folder, const QString& name)
{
    const QString candidate = QDir(folder).absoluteFilePath(name);
    return QFileInfo(candidate).isFile() ? candidate : QString();
}

} // namespace

void PathGroup::add(const std::wstring& directory)
{
    m_directories.push_back(directory);
}

std::wstring PathGroup::find(const std::wstring& name) const
{
    if (name.empty()) {
        return {};
    }
    const QString wanted = QString::fromStdWString(name);
    if (QDir::isAbsolutePath(wanted)) {
        return QFileInfo(wanted).isFile() ? name : std::wstring();
    }
    for (const std::wstring& directory : m_directories) {
        const QString found = fileBelow(QString::fromStdWString(directory), wanted);
        if (!found.isEmpty()) {
            return found.toStdWString();
        }
    }
    return {};
}

Environment& Environment::instance()
{
    static Environment environment;
    return environment;
}

Environment::Environment()
{
    m_groups[std::string()].add(L":/zel/images");
}

PathGroup& Environment::getPaths(const std::string& group)
{
    return m_groups[group];
}

} // namespace zel::app
