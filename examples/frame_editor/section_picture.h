#pragma once

#include "examples/frame_editor/frame_model.h"

#include <QPixmap>

namespace frame_editor {

/// The outline of a section in its true proportions. All pictures have one scale, `size` pixels
/// for `extent` metres, so that a list of sections shows which is the larger.
QPixmap sectionPicture(const Section& section, int size, double extent);

} // namespace frame_editor
