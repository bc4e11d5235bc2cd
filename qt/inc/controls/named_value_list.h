#pragma once

#include <QPixmap>
#include <QString>

#include <boost/any.hpp>
#include <boost/shared_ptr.hpp>

#include <deque>
#include <utility>

namespace zel::qt {

/// Display names with their values, in display order.
using NamedValueList = std::deque<std::pair<QString, boost::any>>;

/// Pictures that go with the entries of a NamedValueList, by index; null for none.
using PixmapPtrList = std::deque<boost::shared_ptr<QPixmap>>;

} // namespace zel::qt
