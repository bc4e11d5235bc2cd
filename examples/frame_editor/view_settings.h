#pragma once

#include "base/key_value_storage.h"

#include <QString>

namespace frame_editor {

/// The flags of a store in a file of settings; an empty store for a missing file.
zel::KeyValueStorage loadFlags(const QString& fileName);
void saveFlags(const zel::KeyValueStorage& storage, const QString& fileName);

} // namespace frame_editor
