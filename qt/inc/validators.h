#pragma once

// The validator protocol and every validator.
#include "qt/inc/validators/chained_validator.h"
#include "qt/inc/validators/forward_validator.h"
#include "qt/inc/validators/i_validator.h"
