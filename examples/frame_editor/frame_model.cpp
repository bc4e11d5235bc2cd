#include "examples/frame_editor/frame_model.h"

#include <algorithm>
#include <cmath>
#include <tuple>

namespace frame_editor {

namespace {

template <class Item>
int indexOf(const std::vector<Item>& items, const QString& name)
{
    const auto found = std::find_if(items.begin(), items.end(),
                                    [&name](const Item& item) { return item.name == name; });
    return found == items.end() ? -1 : static_cast<int>(found - items.begin());
}

/// All that makes up a member.
auto partsOf(const Member& m)
{
    return std::tie(m.name, m.kind, m.start, m.end, m.section, m.material, m.lengthOffset,
                    m.divisions, m.lineLoad, m.loadDirection, m.moment, m.temperatureDifference,
                    m.rotation, m.thickness, m.elasticModulus, m.support, m.hingeStart, m.hingeEnd,
                    m.bedded, m.beddingModulus, m.note, m.drawing);
}

} // namespace

bool operator==(const Member& left, const Member& right)
{
    return partsOf(left) == partsOf(right);
}

bool operator!=(const Member& left, const Member& right)
{
    return !(left == right);
}

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
    const double offset = member.kind == MemberKind::Link ? 0.0 : member.lengthOffset;
    return std::hypot(to.x - from.x, to.y - from.y) + offset;
}

QStringList FrameModel::nodesOnlyOf(const QVector<int>& some) const
{
    std::vector<bool> isSome(members.size());
    for (const int member : some) {
        isSome.at(static_cast<std::size_t>(member)) = true;
    }
    std::vector<bool> ofSome(nodes.size());
    std::vector<bool> ofOthers(nodes.size());
    for (std::size_t i = 0; i < members.size(); ++i) {
        std::vector<bool>& used = isSome[i] ? ofSome : ofOthers;
        used.at(static_cast<std::size_t>(members[i].start)) = true;
        used.at(static_cast<std::size_t>(members[i].end)) = true;
    }
    QStringList names;
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        if (ofSome[i] && !ofOthers[i]) {
            names << nodes[i].name;
        }
    }
    return names;
}

} // namespace frame_editor
