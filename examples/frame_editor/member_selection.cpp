#include "examples/frame_editor/member_selection.h"

#include <algorithm>

namespace frame_editor {

MemberSelection::MemberSelection(QObject* parent)
    : QObject(parent)
{}

const QVector<int>& MemberSelection::members() const
{
    return m_members;
}

bool MemberSelection::contains(int member) const
{
    return std::binary_search(m_members.begin(), m_members.end(), member);
}

bool MemberSelection::isEmpty() const
{
    return m_members.isEmpty();
}

void MemberSelection::set(const QVector<int>& members)
{
    QVector<int> sorted = members;
    std::sort(sorted.begin(), sorted.end());
    sorted.erase(std::unique(sorted.begin(), sorted.end()), sorted.end());
    if (sorted != m_members) {
        m_members = sorted;
        Q_EMIT changed();
    }
}

void MemberSelection::clear()
{
    set({});
}

} // namespace frame_editor
