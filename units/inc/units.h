#pragma once

#include "units/inc/context.h"
#include "units/inc/converter.h"
#include "units/inc/feet_and_fractional_inches_parser.h"
#include "units/inc/format_provider.h"
#include "units/inc/fractional_inches_parser.h"
#include "units/inc/number_text.h"
#include "units/inc/parser.h"
#include "units/inc/unit_id.h"
#include "units/inc/unit_library.h"
#include "units/inc/unit_provider.h"
#include "units/inc/unknown_unit.h"
