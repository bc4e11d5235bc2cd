#pragma once

// Validators and editors that are built from a tree of hints.
#include "qt/inc/factories/editor_from_hints.h"
#include "qt/inc/factories/hint_tree.h"
#include "qt/inc/factories/optional_multi_edit_widget_base.h"
