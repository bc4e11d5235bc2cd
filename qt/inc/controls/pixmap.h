#pragma once

#include "platform/export.h"

#include <QPixmap>

#include <boost/shared_ptr.hpp>

#include <string>

namespace zel::qt {

/// Finds images by name in the unnamed path group of zel::app::Environment.
class ZEL_QT_EXPORT Pixmap
{
public:
    Pixmap() = delete;

    /// The image, or null if there is none that can be read.
    static boost::shared_ptr<QPixmap> create(const std::wstring& name);
    /// The image, or a white square of 16 by 16 pixels.
    static QPixmap createOrDefault(const std::wstring& name);
};

} // namespace zel::qt
