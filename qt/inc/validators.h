#pragma once

// The validator protocol and every validator.
#include "qt/inc/integer_validator.h"
#include "qt/inc/validators/chained_validator.h"
#include "qt/inc/validators/distance_edit_validator.h"
#include "qt/inc/validators/double_edit_validator.h"
#include "qt/inc/validators/forward_validator.h"
#include "qt/inc/validators/i_validator.h"
#include "qt/inc/validators/locale_for_flags.h"
#include "qt/inc/validators/named_value_list_validator.h"
#include "qt/inc/validators/string_edit_validator.h"
#include "qt/inc/validators/unit_validator.h"
