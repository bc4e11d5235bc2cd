#pragma once

namespace zel::qt::detail {

/// The nearest number within the bounds. A NaN passes. With bounds in the wrong order every number
/// below `minimum` becomes `minimum` and every other one `maximum`, which std::clamp does not
/// promise.
inline double clamped(double number, double minimum, double maximum)
{
    if (minimum > number) {
        return minimum;
    }
    return maximum < number ? maximum : number;
}

} // namespace zel::qt::detail
