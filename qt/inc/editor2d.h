#pragma once

// The items of 2D editors.
#include "qt/inc/editor2d/editor_item.h"
#include "qt/inc/editor2d/grip_item.h"
