#pragma once

#include "examples/frame_editor/frame_model.h"

#include <functional>
#include <vector>

namespace frame_editor {

/// A number that follows from the data of one member alone, without an analysis of the frame.
struct MemberResult
{
    QString id; ///< key in stored settings
    QString label;
    QString meaning; ///< one line, for the tool tip
    int unitSet = 0;
    bool isForLinks = false; ///< whether a rigid link has it
    /// In base units.
    std::function<double(const FrameModel&, const Member&)> value;
};

/// All of them, in the order in which they are shown.
const std::vector<MemberResult>& memberResults();

} // namespace frame_editor
