#pragma once

// The table view with the keys of a spreadsheet.
#include "qt/inc/detail/cppdb_table_view_base.h"
