#include "examples/frame_editor/document_commands.h"

#include "examples/frame_editor/member_selection.h"

#include <algorithm>
#include <utility>

namespace frame_editor {

MemberCommand::MemberCommand(Document& document, const MemberProperty& property,
                             const std::vector<MemberChange>& changes)
    : m_document(document)
    , m_property(property)
    , m_after(changes)
{
    for (const MemberChange& change : changes) {
        const auto index = static_cast<std::size_t>(change.member);
        m_before.push_back({change.member, property.get(document.m_model.members.at(index))});
    }
    const QString label = property.label;
    setText(changes.size() == 1
                ? QObject::tr("%1 of %2")
                      .arg(label, document.m_model.members
                                      .at(static_cast<std::size_t>(changes.front().member))
                                      .name)
                : QObject::tr("%1 of %n members", nullptr, static_cast<int>(changes.size()))
                      .arg(label));
}

void MemberCommand::undo()
{
    write(m_before);
}

void MemberCommand::redo()
{
    write(m_after);
}

void MemberCommand::write(const std::vector<MemberChange>& changes)
{
    for (const MemberChange& change : changes) {
        m_property.set(m_document.m_model.members.at(static_cast<std::size_t>(change.member)),
                       change.value);
    }
    Q_EMIT m_document.changed();
}

MembersCommand::MembersCommand(Document& document, const std::vector<Member>& members,
                               const QString& text)
    : QUndoCommand(text)
    , m_document(document)
    , m_before(document.m_model.members)
    , m_after(members)
{}

void MembersCommand::undo()
{
    write(m_before);
}

void MembersCommand::redo()
{
    write(m_after);
}

void MembersCommand::write(const std::vector<Member>& members)
{
    // Views ask the model for the selected members whenever they please.
    QVector<int> selected;
    for (const int member : m_document.selection().members()) {
        if (static_cast<std::size_t>(member) < members.size()) {
            selected << member;
        }
    }
    m_document.selection().set(selected);
    m_document.m_model.members = members;
    Q_EMIT m_document.changed();
}

RemovalCommand::RemovalCommand(Document& document, const QVector<int>& members)
    : m_document(document)
    , m_places(members)
{
    for (const int member : members) {
        m_members.push_back(document.m_model.members.at(static_cast<std::size_t>(member)));
    }
    setText(members.size() == 1 ? QObject::tr("Deletion of %1").arg(m_members.front().name)
                                : QObject::tr("Deletion of %n members", nullptr, members.size()));
}

void RemovalCommand::undo()
{
    // While members come and go none is selected, since views ask the model for those that are.
    m_document.selection().clear();
    std::vector<Member> members;
    auto stayed = m_document.m_model.members.cbegin();
    auto back = m_members.cbegin();
    for (const int place : qAsConst(m_places)) {
        while (static_cast<int>(members.size()) < place) {
            members.push_back(*stayed++);
        }
        members.push_back(*back++);
    }
    members.insert(members.end(), stayed, m_document.m_model.members.cend());
    m_document.m_model.members = std::move(members);
    Q_EMIT m_document.membersInserted(m_places);
    Q_EMIT m_document.changed();
    m_document.selection().set(m_selected);
}

void RemovalCommand::redo()
{
    m_selected = m_document.selection().members();
    QVector<int> stillSelected;
    for (const int member : qAsConst(m_selected)) {
        const auto place = std::lower_bound(m_places.cbegin(), m_places.cend(), member);
        if (place == m_places.cend() || *place != member) {
            stillSelected << member - static_cast<int>(place - m_places.cbegin());
        }
    }
    m_document.selection().clear();
    std::vector<Member> members;
    auto gone = m_places.cbegin();
    for (std::size_t i = 0; i < m_document.m_model.members.size(); ++i) {
        if (gone != m_places.cend() && *gone == static_cast<int>(i)) {
            ++gone;
        } else {
            members.push_back(m_document.m_model.members[i]);
        }
    }
    m_document.m_model.members = std::move(members);
    Q_EMIT m_document.membersRemoved(m_places);
    Q_EMIT m_document.changed();
    m_document.selection().set(stillSelected);
}

NodeCommand::NodeCommand(Document& document, const std::vector<NodeMove>& moves)
    : m_document(document)
    , m_after(moves)
{
    for (const NodeMove& move : moves) {
        const Node& node = document.m_model.nodes.at(static_cast<std::size_t>(move.node));
        m_before.push_back({move.node, node.x, node.y});
    }
    setText(
        moves.size() == 1
            ? QObject::tr("Move of %1")
                  .arg(document.m_model.nodes.at(static_cast<std::size_t>(moves.front().node)).name)
            : QObject::tr("Move of %n nodes", nullptr, static_cast<int>(moves.size())));
}

void NodeCommand::undo()
{
    write(m_before);
}

void NodeCommand::redo()
{
    write(m_after);
}

void NodeCommand::write(const std::vector<NodeMove>& moves)
{
    for (const NodeMove& move : moves) {
        Node& node = m_document.m_model.nodes.at(static_cast<std::size_t>(move.node));
        node.x = move.x;
        node.y = move.y;
    }
    Q_EMIT m_document.changed();
}

} // namespace frame_editor
