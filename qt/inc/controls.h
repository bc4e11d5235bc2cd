#pragma once

// The varying-value protocol, line edits, choice controls, layouters and helpers.
#include "qt/inc/controls/button_configuration.h"
#include "qt/inc/controls/expand_direction.h"
#include "qt/inc/controls/multi_edit_control_base.h"
#include "qt/inc/controls/multi_edit_line_edit.h"
#include "qt/inc/controls/multi_edit_line_edit_with_button.h"
#include "qt/inc/controls/multi_edit_value.h"
#include "qt/inc/controls/named_value_list.h"
#include "qt/inc/controls/on_value_changed_hook.h"
#include "qt/inc/controls/pixmap.h"
#include "qt/inc/controls/signal_blocker.h"
#include "qt/inc/controls/simple_line_edit.h"
#include "qt/inc/controls/varies_string.h"
#include "qt/inc/detail/line_edit_impl.h"
#include "qt/inc/detail/popups.h"
