#pragma once

// Validators and editors that are built from a tree of hints.
#include "qt/inc/factories/hint_tree.h"
