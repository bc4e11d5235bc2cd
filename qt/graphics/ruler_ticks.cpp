#include "qt/inc/graphics/ruler_ticks.h"

#include <array>
#include <cmath>

namespace zel::qt::graphics {
namespace {

constexpr int minorPerMajor = 5;

/// Both ends of each interval are drawn as minor marks too.
constexpr int minorMarksPerInterval = minorPerMajor + 1;

/// The multiple of `step` next to `value` on the side of zero; never a negative zero, which a
/// label would show.
double cutToMultiple(double value, double step)
{
    return std::trunc(value / step) * step + 0.0;
}

double marksFor(double majorCount)
{
    return majorCount + minorMarksPerInterval * (majorCount - 1);
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
    RulerTicks ticks;
    double majorStep = rulerStep(pixel) * minorPerMajor;
    double first = cutToMultiple(low, majorStep);
    double last = cutToMultiple(high, majorStep);
    double count = (last - first) / majorStep + 1;
    if (maxMarks < 1 || !(last >= first) || !std::isfinite(count)) {
        return ticks;
    }
    if (marksFor(count) > maxMarks) {
        majorStep *= thinningFactor(count, maxMarks);
        first = std::ceil(first / majorStep) * majorStep + 0.0;
        last = std::floor(last / majorStep) * majorStep + 0.0;
        count = (last - first) / majorStep + 1;
        if (!(last >= first)) {
            return ticks;
        }
    }
    ticks.major = addUp(first, last, majorStep, std::lround(count));
    for (std::size_t i = 1; i < ticks.major.size(); ++i) {
        const double a = ticks.major[i - 1];
        const double b = ticks.major[i];
        const std::vector<double> minor =
            addUp(a, b, (b - a) / minorPerMajor, minorMarksPerInterval);
        ticks.minor.insert(ticks.minor.end(), minor.begin(), minor.end());
    }
    return ticks;
}

} // namespace zel::qt::graphics
