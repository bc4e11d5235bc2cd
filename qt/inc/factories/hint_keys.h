#pragma once

/// The paths of all hints that the factories read. docs/hints.md tells their types.
///
/// There are two entries, createEditorFromHints() and DefaultEditorFactory, each with words of its
/// own for the same ideas. They are kept apart deliberately: a tree for one is no tree for the
/// other.
namespace zel::qt::hint_keys {

// Read by createEditorFromHints().
inline constexpr char editor[] = "editor";
inline constexpr char optional[] = "optional";
inline constexpr char validatorType[] = "validator.type";
inline constexpr char validatorUnitId[] = "validator.unit_id";
inline constexpr char validatorMaxLength[] = "validator.max_length";
inline constexpr char defaultFn[] = "default_fn";
inline constexpr char equalValueFn[] = "equal_value_fn";
inline constexpr char values[] = "values";

// Read by the builders of DefaultEditorFactory.
inline constexpr char validator[] = "validator";
inline constexpr char validatorKind[] = "validator.kind";
inline constexpr char validatorOptional[] = "validator.optional";
inline constexpr char entries[] = "entries";
inline constexpr char isEqual[] = "is_equal";
inline constexpr char editable[] = "editable";
inline constexpr char pixmaps[] = "pixmaps";
inline constexpr char resetCallback[] = "reset_callback";
inline constexpr char callback[] = "callback";

} // namespace zel::qt::hint_keys

/// The hints that the builders of DefaultValidatorFactory read in the tree that they are given,
/// which is the subtree "validator" of an editor's tree.
namespace zel::qt::validator_hint_keys {

inline constexpr char maxLength[] = "max_length";
inline constexpr char optional[] = "optional";
inline constexpr char minimum[] = "minimum";
inline constexpr char maximum[] = "maximum";
inline constexpr char precision[] = "precision";
inline constexpr char entries[] = "entries";
inline constexpr char isEqual[] = "is_equal";
inline constexpr char chainedValidators[] = "chained_validators";

} // namespace zel::qt::validator_hint_keys
