#include "qt/inc/validators/locale_for_flags.h"

#include <stdexcept>

namespace zel::qt {
namespace {

std::locale environmentLocale()
{
    // A user whose LANG names a locale that was never generated still gets to copy a table.
    try {
        return std::locale("");
    } catch (const std::runtime_error&) {
        return std::locale::classic();
    }
}

} // namespace

const QLocale& localeForFlags(const std::bitset<32>& flags)
{
    if (flags.test(0)) {
        static const QLocale applicationLocale;
        return applicationLocale;
    }
    static const QLocale cLocale(QLocale::C, QLocale::AnyCountry);
    return cLocale;
}

const std::locale& stdLocaleForFlags(const std::bitset<32>& flags)
{
    if (flags.test(0)) {
        static const std::locale userLocale = environmentLocale();
        return userLocale;
    }
    static const std::locale cLocale("C");
    return cLocale;
}

} // namespace zel::qt
