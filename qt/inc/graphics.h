#pragma once

// The canvas of 2D editors.
#include "qt/inc/graphics/editor_view.h"
#include "qt/inc/graphics/ruler_ticks.h"
