#include "units/inc/unit_library.h"

#include "units/src/formatting/shown_label.h"

#include <cstring>
#include <stdexcept>
#include <utility>

namespace zel::units::v1 {
namespace {

Context& activeContext()
{
    static Context context;
    return context;
}

UnitLibrary& replacement()
{
    static UnitLibrary library;
    return library;
}

/// What `answer` tells of the shown unit of `unit` in the active context, or `unknown` if the
/// context does not know it.
template <class Result, class Answer>
Result askActiveContext(int unit, Result unknown, Answer answer)
{
    const Context& context = activeContext();
    try {
        const UnitId id = UnitId(unit);
        return answer(context, id, context.format_provider().get_unit(id));
    } catch (const std::invalid_argument&) {
        return unknown;
    }
}

double defaultUnitd(int unit)
{
    return askActiveContext(unit, 1.0, [](const Context& context, UnitId, UnitId shown) {
        return context.unit_provider().get_factor(shown);
    });
}

int defaultDecimals(int unit)
{
    return askActiveContext(unit, -1, [](const Context& context, UnitId id, UnitId) {
        return context.format_provider().get_decimals(id);
    });
}

int defaultLabel(int unit, char* buffer, int size)
{
    return askActiveContext(unit, 0, [&](const Context& context, UnitId id, UnitId shown) {
        const std::string label =
            detail::shownLabel(context.unit_provider(), context.format_provider(), id, shown);
        if (size < 1 || label.size() + 1 > static_cast<std::size_t>(size)) {
            return 0;
        }
        std::memcpy(buffer, label.c_str(), label.size() + 1);
        return 1;
    });
}

} // namespace

const Context& get_active_input_context()
{
    return activeContext();
}

void set_active_input_context(Context context)
{
    activeContext() = std::move(context);
}

UnitLibrary set_unit_library(UnitLibrary library)
{
    return std::exchange(replacement(), std::move(library));
}

} // namespace zel::units::v1

// Each calls a copy, so that a host's function may replace the library while it runs.

double zel_get_unitd(int unit, int mode)
{
    const auto unitd = zel::units::v1::replacement().unitd;
    return unitd ? unitd(unit, mode) : zel::units::v1::defaultUnitd(unit);
}

int zel_get_unit_decimals(int unit, int mode)
{
    const auto decimals = zel::units::v1::replacement().decimals;
    return decimals ? decimals(unit, mode) : zel::units::v1::defaultDecimals(unit);
}

int zel_get_unit_label(int unit, int mode, char* buffer, int size)
{
    const auto label = zel::units::v1::replacement().label;
    return label ? label(unit, mode, buffer, size)
                 : zel::units::v1::defaultLabel(unit, buffer, size);
}
