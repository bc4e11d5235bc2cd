#pragma once

#include "platform/export.h"

#include <QLocale>

#include <bitset>
#include <locale>

namespace zel::qt {

/// The locale that a validator reads and writes numbers in: with flag bit 0 set the application's
/// default QLocale, as it was at the first such call; with bit 0 clear the C locale. A later
/// QLocale::setDefault() does not reach it. The object lives until the process ends.
ZEL_QT_EXPORT const QLocale& localeForFlags(const std::bitset<32>& flags);

/// The same choice for the standard library: with flag bit 0 set the locale of the user's
/// environment, as it was at the first such call; with bit 0 clear the C locale. An environment
/// that names a locale which is not installed counts as one that names none.
ZEL_QT_EXPORT const std::locale& stdLocaleForFlags(const std::bitset<32>& flags);

} // namespace zel::qt
