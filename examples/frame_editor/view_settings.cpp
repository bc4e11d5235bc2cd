#include "examples/frame_editor/view_settings.h"

#include <QSettings>

namespace frame_editor {

zel::KeyValueStorage loadFlags(const QString& fileName)
{
    zel::KeyValueStorage storage;
    const QSettings settings(fileName, QSettings::IniFormat);
    const QStringList keys = settings.allKeys();
    for (const QString& key : keys) {
        (*storage.values)[key.toStdString()] = settings.value(key).toBool();
    }
    return storage;
}

void saveFlags(const zel::KeyValueStorage& storage, const QString& fileName)
{
    QSettings settings(fileName, QSettings::IniFormat);
    for (const auto& entry : *storage.values) {
        if (const bool* flag = boost::any_cast<bool>(&entry.second)) {
            settings.setValue(QString::fromStdString(entry.first), *flag);
        }
    }
}

} // namespace frame_editor
