#pragma once

#include "examples/frame_editor/form.h"

namespace frame_editor {

/// The form of a member.
Form standardForm();

} // namespace frame_editor
