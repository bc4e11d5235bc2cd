#pragma once

// Validators and editors that are built from a tree of hints.
#include "qt/inc/factories/builder_table.h"
#include "qt/inc/factories/default_editor_factory.h"
#include "qt/inc/factories/default_validator_factory.h"
#include "qt/inc/factories/editor_factory.h"
#include "qt/inc/factories/editor_from_hints.h"
#include "qt/inc/factories/hint_keys.h"
#include "qt/inc/factories/hint_tree.h"
#include "qt/inc/factories/optional_multi_edit_widget_base.h"
#include "qt/inc/factories/validator_factory.h"
