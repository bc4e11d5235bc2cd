#pragma once

#include "qt/inc/factories.h"

#include <QString>

#include <vector>

namespace frame_editor {

struct MemberProperty;

/// One row of a form: the property that it edits and the hints of its editor.
struct FormField
{
    const MemberProperty* property = nullptr;
    zel::qt::HintTree hints;
};

/// Fields under one title. A group with a property is switched by it: that property is a flag, and
/// the fields count only while it is on.
struct FormGroup
{
    QString title;
    const MemberProperty* property = nullptr; ///< null for a plain group
    std::vector<FormField> fields;
};

struct Form
{
    std::vector<FormGroup> groups;
};

} // namespace frame_editor
