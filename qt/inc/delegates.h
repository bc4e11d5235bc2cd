#pragma once

// Delegates that put the library's editors into item views, the roles of the models that they
// work on, and boost::any as a meta type.
#include "qt/inc/delegates/button_item_delegate.h"
#include "qt/inc/delegates/checkbox_item_delegate.h"
#include "qt/inc/delegates/combo_item_delegate.h"
#include "qt/inc/delegates/forward_delegate.h"
#include "qt/inc/delegates/line_edit_item_delegate.h"
#include "qt/inc/delegates/roles.h"
