#include "qt/inc/controls/pixmap.h"

#include "platform/environment.h"

#include <boost/make_shared.hpp>

namespace zel::qt {
namespace {

QPixmap whiteSquare()
{
    QPixmap pixmap(16, 16);
    pixmap.fill(Qt::white);
    return pixmap;
}

} // namespace

boost::shared_ptr<QPixmap> Pixmap::create(const std::wstring& name)
{
    const std::wstring file = app::Environment::instance().getPaths("").find(name);
    const auto pixmap = boost::make_shared<QPixmap>(QString::fromStdWString(file));
    return pixmap->size().isEmpty() ? nullptr : pixmap;
}

QPixmap Pixmap::createOrDefault(const std::wstring& name)
{
    if (const boost::shared_ptr<QPixmap> pixmap = create(name)) {
        return *pixmap;
    }
    static const QPixmap fallback = whiteSquare();
    return fallback;
}

} // namespace zel::qt
