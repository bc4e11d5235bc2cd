#include "qt/inc/graphics/ruler_ticks.h"

#include <array>
#include <cmath>

namespace zel::qt::graphics {
namespace {

constexpr int minorPerMajor = 5;

/// Both ends of each interval are drawn as minor marks too, the second one where the sum of the
/// steps does not miss it by its rounding.
constexpr int minorMarksPerInterval = minorPerMajor + 1;

/// The multiple of `step` next to `value` on the side of zero; never a negative zero, which a
/// label would show.
double cutToMultiple(double value, double step)
{
    return std::trunc(value / step) * step + 0.0;
}

double fewestMarksFor(double majorCount)
{
    return majorCount + minorPerMajor * (majorCount - 1);
}

/// How many intervals between major marks become one, so that `majorCount` of them on `pixels`
/// pixels come to lie fifty pixels apart. One of 5, 10, 20, 50, 100 ...: a multiple of five makes
/// the fifths of the new intervals marks of the old ones.
double thinningFactor(double majorCount, int pixels)
{
    const double wanted = 50.0 * majorCount / pixels;
    for (double decade = 5;; decade *= 10) {
        for (const double factor : {1.0, 2.0, 4.0}) {
            if (decade * factor >= wanted) {
                return decade * factor;
            }
        }
    }
}

/// Stops where adding a step is lost in the rounding of large numbers.
std::vector<double> addUp(double first, double last, double step, long maxCount)
{
    std::vector<double> sums;
    double t = first;
    for (long i = 0; i < maxCount && t <= last; ++i) {
        sums.push_back(t);
        const double next = t + step;
        if (!(next > t)) {
            break;
        }
        t = next;
    }
    return sums;
}

double countOf(double first, double last, double step)
{
    return (last - first) / step + 1;
}

RulerTicks ticksBetween(double first, double last, double majorStep)
{
    RulerTicks ticks;
    ticks.major = addUp(first, last, majorStep, std::lround(countOf(first, last, majorStep)));
    for (std::size_t i = 1; i < ticks.major.size(); ++i) {
        const double a = ticks.major[i - 1];
        const double b = ticks.major[i];
        const std::vector<double> minor =
            addUp(a, b, (b - a) / minorPerMajor, minorMarksPerInterval);
        ticks.minor.insert(ticks.minor.end(), minor.begin(), minor.end());
    }
    return ticks;
}

} // namespace

double rulerStep(double pixel)
{
    static constexpr std::array<double, 10> steps = {0.1, 0.2, 0.5, 1, 2, 5, 10, 20, 50, 100};
    const double wanted = pixel * 10;
    for (const double step : steps) {
        if (step > wanted) {
            return step;
        }
    }
    return wanted;
}

RulerTicks rulerTicks(double low, double high, double pixel, int maxMarks)
{
    double majorStep = rulerStep(pixel) * minorPerMajor;
    double first = cutToMultiple(low, majorStep);
    double last = cutToMultiple(high, majorStep);
    const double count = countOf(first, last, majorStep);
    if (maxMarks < 1 || !(last >= first) || !std::isfinite(count)) {
        return {};
    }
    if (fewestMarksFor(count) <= maxMarks) {
        RulerTicks ticks = ticksBetween(first, last, majorStep);
        if (ticks.major.size() + ticks.minor.size() <= static_cast<std::size_t>(maxMarks)) {
            return ticks;
        }
    }
    majorStep *= thinningFactor(count, maxMarks);
    first = std::ceil(first / majorStep) * majorStep + 0.0;
    last = std::floor(last / majorStep) * majorStep + 0.0;
    return last >= first ? ticksBetween(first, last, majorStep) : RulerTicks();
}

} // namespace zel::qt::graphics
