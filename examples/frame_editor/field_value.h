#pragma once

#include "examples/frame_editor/member_property.h"

#include <boost/any.hpp>

#include <optional>

namespace frame_editor {

/// The value of a property as its editor takes it: a quantity against the unit set, a bool, an
/// int, or a text in UTF-8.
boost::any toEditorValue(const MemberProperty& property, const PropertyValue& value);

/// The way back; none for a value of another type and for no value at all.
std::optional<PropertyValue> fromEditorValue(const MemberProperty& property,
                                             const boost::any& value);

/// The value as the user reads it, numbers in the active units.
QString displayText(const MemberProperty& property, const PropertyValue& value);

} // namespace frame_editor
