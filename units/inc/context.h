#pragma once

#include "platform/export.h"
#include "units/inc/converter.h"
#include "units/inc/format_provider.h"
#include "units/inc/unit_provider.h"

#include <boost/optional.hpp>

#include <cstdint>
#include <locale>
#include <string>

namespace zel::units::v1 {

/// The unit services in one value: what units there are, how they are shown and how they convert.
/// Editors hold a copy, so a later change of the host's settings does not reach them.
class ZEL_UNITS_EXPORT Context
{
public:
    /// A context that shows all quantities in the units of a settings column, 0 to 9.
    explicit Context(int column = 0);
    Context(const Context& other);
    Context(Context&& other) noexcept;
    Context& operator=(const Context& other);
    Context& operator=(Context&& other) noexcept;
    ~Context();

    const ZelUnitProvider& unit_provider() const;
    const UnitsetFormatProvider& format_provider() const;
    /// To override the formats of single ids.
    UnitsetFormatProvider& format_provider();
    const Converter& converter() const;

    /// The quantity that `text` means, held against `id`. A number without a unit is meant in the
    /// unit shown for `id`. Lengths may also be typed in feet and inches, whatever unit is shown.
    /// No value if the text is not understood or its unit does not convert to `id`. Throws
    /// std::invalid_argument with the text "Invalid unit id." if `id` is not known.
    boost::optional<IConverter::quantity> parse(const std::wstring& text, UnitId id,
                                                const std::locale& locale) const;
    /// The text of `q` in the unit and format shown for its id, label included. Throws
    /// std::invalid_argument if the id is not known or does not convert to the unit shown.
    std::wstring format(const IConverter::quantity& q, const std::locale& locale) const;

private:
    std::uint32_t dimension_of(UnitId id) const;

    ZelUnitProvider m_units;
    UnitsetFormatProvider m_format;
    Converter m_converter;
};

} // namespace zel::units::v1
