#include "units/src/formatting/shown_label.h"

#include <algorithm>
#include <vector>

namespace zel::units::v1::detail {

std::string shownLabel(const IUnitProvider& units, const IFormatProvider& format, UnitId id,
                       UnitId shown)
{
    const boost::optional<std::string> label = format.get_label_override(id);
    if (!label) {
        return units.get_label(shown);
    }
    if (label->empty()) {
        return *label;
    }
    const std::vector<std::string>& aliases = units.get_aliases(shown);
    const bool isAlias = std::find(aliases.begin(), aliases.end(), *label) != aliases.end();
    return isAlias ? *label : units.get_label(shown);
}

} // namespace zel::units::v1::detail
