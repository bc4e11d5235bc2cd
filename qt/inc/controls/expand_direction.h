#pragma once

namespace zel::qt {

/// Which way the parts of a control follow one another.
enum ExpandDirection
{
    ExpandDown = 0, ///< grows downwards
    ExpandRight = 1 ///< grows to the right
};

} // namespace zel::qt
