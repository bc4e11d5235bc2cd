#pragma once

#include "platform/export.h"
#include "units/inc/converter.h"
#include "units/inc/format_provider.h"
#include "units/inc/unit_provider.h"

#include <boost/optional.hpp>

#include <locale>
#include <string>

namespace zel::units::v1 {

/// Turns text into a quantity and back.
class ZEL_UNITS_EXPORT IParser
{
public:
    virtual ~IParser();

    /// The quantity that `text` means, in the unit that was typed; unit 1 if none was. No value if
    /// the text is not understood.
    virtual boost::optional<IConverter::quantity> parse(const std::wstring& text,
                                                        const std::locale& locale) const = 0;
    /// The text of `q` in the unit that the format provider shows for it, label included.
    virtual std::wstring format(const IConverter::quantity& q, const std::locale& locale) const = 0;
};

/// The general translator: "2.5", "2.5 kN/m2", "3/4 in", "1 3/4", "1.2e-3 m".
///
/// Blanks may stand before the number, between number and unit and behind a number without a unit,
/// but not behind a unit. Numbers are read as a stream of the locale reads them: a separator of
/// another locale ends the number. The case of a label counts; of several units with one
/// label, the first of the provider is meant.
///
/// A parser lives for one call; it owns none of what it points to and keeps no state.
class ZEL_UNITS_EXPORT Parser : public IParser
{
public:
    /// None of the pointers is owned or may be null.
    Parser(const IUnitProvider* units, const IFormatProvider* format, const IConverter* converter);

    boost::optional<IConverter::quantity> parse(const std::wstring& text,
                                                const std::locale& locale) const override;
    /// Throws what convert() throws if the unit of `q` does not convert to the unit shown.
    std::wstring format(const IConverter::quantity& q, const std::locale& locale) const override;

private:
    const IUnitProvider* m_units;
    const IFormatProvider* m_format;
    const IConverter* m_converter;
};

} // namespace zel::units::v1
