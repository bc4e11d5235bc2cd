#pragma once

#include <boost/any.hpp>

namespace frame_editor {

/// Registers the kinds of editors that the forms of this program name beside the built-in ones:
///
/// | "editor"   | is                                       | hints                            |
/// |------------|------------------------------------------|----------------------------------|
/// | "quantity" | QuantityEdit                             | "validator.unit_id", and         |
/// |            |                                          | "validator.minimum", "...maximum" |
/// | "picture"  | box with pictures beside the entries     | "values", "pixmaps"              |
/// | "search"   | box to type in, for known names only     | "values"                         |
/// | "radio"    | radio buttons                            | "values"                         |
/// | "check"    | check box                                | "label"                          |
/// | "group"    | frame with a check box                   | "label"                          |
/// | "file"     | path with a button for the file dialog   |                                  |
///
/// Values of choices are texts in UTF-8. May be called again.
void registerFormEditors();

/// Equality and order of values that are texts in UTF-8; two empty values are equal.
bool equalTexts(const boost::any& left, const boost::any& right);
bool lessText(const boost::any& left, const boost::any& right);

} // namespace frame_editor
