#pragma once

#include "qt/inc/controls/named_value_list.h"

namespace zel::qt::detail {

/// The names of true and false in the application's language, in this order.
NamedValueList makeYesNoList();

/// Compares two values that hold bool, or no value. Values of different types differ.
bool equalYesNo(const boost::any& a, const boost::any& b);

} // namespace zel::qt::detail
