#pragma once

#include "platform/export.h"

#include <vector>

namespace zel::qt::graphics {

/// The marks of a ruler, as plain numbers in the unit of the ruler (scene units for an EditorView).
struct RulerTicks
{
    std::vector<double> major; ///< the long, labelled marks, ascending
    /// The short marks: for each two neighbours in `major` both of them and the fifths between
    /// them, so a neighbour of two intervals stands here twice.
    std::vector<double> minor;
};

/// The distance of two minor marks when one pixel of the screen is `pixel` units wide: the first of
/// 0.1, 0.2, 0.5, 1, 2, 5, 10, 20, 50, 100 that is greater than ten pixels, or ten pixels beyond
/// the list. A `pixel` of zero or less gives 0.1.
[[nodiscard]] ZEL_QT_EXPORT double rulerStep(double pixel);

/// The marks of a ruler that shows the range from `low` to `high`, `pixel` as for rulerStep().
///
/// Major marks lie five steps apart, on multiples of that distance; both ends of the range are cut
/// towards zero, so a mark may lie up to one interval outside the range on the side of zero. Both
/// kinds of marks are added up in double. A range that holds no major mark or runs backwards
/// across one gives no marks, and so do infinities and NaN.
///
/// At most `maxMarks` marks are given, for which a ruler passes its length in pixels. Where there
/// would be more (the ruler is not drawn in the scale that `pixel` tells), the marks are thinned
/// out until the major ones lie some fifty pixels apart; those that stay are marks of the full set.
[[nodiscard]] ZEL_QT_EXPORT RulerTicks rulerTicks(double low, double high, double pixel,
                                                  int maxMarks);

} // namespace zel::qt::graphics
