#include "examples/frame_editor/document.h"

#include "examples/frame_editor/document_commands.h"
#include "examples/frame_editor/member_selection.h"
#include "examples/frame_editor/model_file.h"

#include <QSet>
#include <QUndoStack>

#include <algorithm>
#include <cmath>

namespace frame_editor {

Document::Document(QObject* parent)
    : QObject(parent)
    , m_selection(new MemberSelection(this))
    , m_undoStack(new QUndoStack(this))
{
    connect(m_selection, &MemberSelection::changed, this, &Document::selectionChanged);
    connect(m_undoStack, &QUndoStack::cleanChanged, this, &Document::fileChanged);
}

Document::~Document()
{
    // The stack tells of its end, when there is nobody left to listen.
    m_undoStack->disconnect(this);
}

const FrameModel& Document::model() const
{
    return m_model;
}

MemberSelection& Document::selection() const
{
    return *m_selection;
}

QUndoStack& Document::undoStack() const
{
    return *m_undoStack;
}

const QString& Document::fileName() const
{
    return m_fileName;
}

bool Document::isModified() const
{
    return !m_undoStack->isClean();
}

void Document::open(const QString& fileName)
{
    setModel(loadModel(fileName), fileName);
}

void Document::saveAs(const QString& fileName)
{
    saveModel(m_model, fileName);
    m_fileName = fileName;
    m_undoStack->setClean();
    Q_EMIT fileChanged();
}

void Document::setModel(const FrameModel& model, const QString& fileName)
{
    // First nothing is selected, so that no view asks a new model for an old index.
    m_selection->clear();
    m_undoStack->clear();
    m_model = model;
    m_fileName = fileName;
    Q_EMIT modelReplaced();
    Q_EMIT changed();
    Q_EMIT fileChanged();
}

QString Document::setMemberValues(const MemberProperty& property,
                                  const std::vector<MemberChange>& changes)
{
    std::vector<MemberChange> real;
    for (const MemberChange& change : changes) {
        const Member& member = m_model.members.at(static_cast<std::size_t>(change.member));
        if (property.get(member) != change.value) {
            real.push_back(change);
        }
    }
    QString reason = refusal(property, real);
    if (reason.isEmpty() && !real.empty()) {
        m_undoStack->push(new MemberCommand(*this, property, real));
    }
    return reason;
}

QString Document::refusal(const MemberProperty& property,
                          const std::vector<MemberChange>& changes) const
{
    for (const MemberChange& change : changes) {
        const Member& member = m_model.members.at(static_cast<std::size_t>(change.member));
        QString reason = appliesTo(property, member)
                             ? refusalOf(property, change.value, m_model, change.member)
                             : noSuchValue();
        if (!reason.isEmpty()) {
            return reason;
        }
    }
    if (property.kind == PropertyKind::Name) {
        for (std::size_t i = 1; i < changes.size(); ++i) {
            for (std::size_t j = 0; j < i; ++j) {
                if (changes[i].value == changes[j].value) {
                    return tr("two members cannot have the same name");
                }
            }
        }
    }
    return QString();
}

QString Document::replaceMembers(const std::vector<Member>& members, const QString& text)
{
    if (members == m_model.members) {
        return QString();
    }
    QString reason = refusal(members);
    if (reason.isEmpty()) {
        m_undoStack->push(new MembersCommand(*this, members, text));
    }
    return reason;
}

QString Document::refusal(const std::vector<Member>& members) const
{
    const FrameModel nobody;
    QSet<QString> names;
    for (std::size_t i = 0; i < members.size(); ++i) {
        const Member& member = members[i];
        names.insert(member.name);
        if (i < m_model.members.size() && member == m_model.members[i]) {
            continue;
        }
        const auto isNode = [this](int node) {
            return node >= 0 && static_cast<std::size_t>(node) < m_model.nodes.size();
        };
        if (!isNode(member.start) || !isNode(member.end) || member.start == member.end) {
            return tr("a member needs two different nodes");
        }
        for (const MemberProperty& property : memberProperties()) {
            // Whether the name is taken is for the new members to say, not for the old ones.
            const FrameModel& owners = property.kind == PropertyKind::Name ? nobody : m_model;
            QString reason = refusalOf(property, property.get(member), owners, static_cast<int>(i));
            if (!reason.isEmpty()) {
                return reason;
            }
        }
    }
    return static_cast<std::size_t>(names.size()) == members.size()
               ? QString()
               : tr("two members cannot have the same name");
}

void Document::removeMembers(const QVector<int>& members)
{
    QVector<int> sorted = members;
    std::sort(sorted.begin(), sorted.end());
    sorted.erase(std::unique(sorted.begin(), sorted.end()), sorted.end());
    if (!sorted.isEmpty()) {
        m_undoStack->push(new RemovalCommand(*this, sorted));
    }
}

QString Document::moveNodes(const std::vector<NodeMove>& moves)
{
    std::vector<NodeMove> real;
    for (const NodeMove& move : moves) {
        if (!std::isfinite(move.x) || !std::isfinite(move.y)) {
            return tr("this is no finite number");
        }
        const Node& node = m_model.nodes.at(static_cast<std::size_t>(move.node));
        if (node.x != move.x || node.y != move.y) {
            real.push_back(move);
        }
    }
    if (!real.empty()) {
        m_undoStack->push(new NodeCommand(*this, real));
    }
    return QString();
}

} // namespace frame_editor
