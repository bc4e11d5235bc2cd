#include "qt/src/yes_no.h"

#include <QObject>

namespace zel::qt::detail {

NamedValueList makeYesNoList()
{
    return {{QObject::tr("Yes", "property_yes_no"), true},
            {QObject::tr("No", "property_yes_no"), false}};
}

bool equalYesNo(const boost::any& a, const boost::any& b)
{
    if (a.empty() && b.empty()) {
        return true;
    }
    const bool* first = boost::any_cast<bool>(&a);
    const bool* second = boost::any_cast<bool>(&b);
    return first != nullptr && second != nullptr && *first == *second;
}

} // namespace zel::qt::detail
