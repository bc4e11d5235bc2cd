#include "examples/frame_editor/frame_model.h"

#include <algorithm>
#include <cmath>

namespace frame_editor {

namespace {

template <class Item>
int indexOf(const std::vector<Item>& items, const QString& name)
{
    const auto found = std::find_if(items.begin(), items.end(),
                                    [&name](const Item& item) { return item.name == name; });
    return found == items.end() ? -1 : static_cast<int>(found - items.begin());
}

} // namespace

int FrameModel::findMaterial(const QString& name) const
{
    return indexOf(materials, name);
}

int FrameModel::findSection(const QString& name) const
{
    return indexOf(sections, name);
}

int FrameModel::findNode(const QString& name) const
{
    return indexOf(nodes, name);
}

int FrameModel::findMember(const QString& name) const
{
    return indexOf(members, name);
}

double FrameModel::memberLength(const Member& member) const
{
    const Node& from = nodes.at(static_cast<std::size_t>(member.start));
    const Node& to = nodes.at(static_cast<std::size_t>(member.end));
    return std::hypot(to.x - from.x, to.y - from.y) + member.lengthOffset;
}

} // namespace frame_editor
