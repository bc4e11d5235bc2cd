#include "examples/frame_editor/member_table_edits.h"

#include "examples/frame_editor/member_table_columns.h"

#include <QHash>
#include <QObject>

#include <algorithm>
#include <limits>

namespace frame_editor {

namespace {

/// The columns that hang together with others.
struct Columns
{
    int name = findMemberColumn(QStringLiteral("name"));
    int start = findMemberColumn(QStringLiteral("start"));
    int end = findMemberColumn(QStringLiteral("end"));
    int modulus = findMemberColumn(QStringLiteral("elastic_modulus"));
};

const Columns& columns()
{
    static const Columns result;
    return result;
}

/// A node that is not this one.
int otherNode(int node)
{
    return node == 0 ? 1 : 0;
}

} // namespace

MemberEdits::MemberEdits(const FrameModel& model)
    : m_model(model)
    , m_members(model.members)
    , m_rows(model.members.size())
{}

const std::vector<Member>& MemberEdits::members() const
{
    return m_members;
}

bool MemberEdits::isNew(int row) const
{
    return static_cast<std::size_t>(row) >= m_model.members.size();
}

const std::vector<CellRefusal>& MemberEdits::refusals() const
{
    return m_refusals;
}

bool MemberEdits::growTo(int row)
{
    const auto size = static_cast<std::size_t>(row) + 1;
    if (size > m_members.size() &&
        (m_model.nodes.size() < 2 || m_model.sections.empty() || m_model.materials.empty())) {
        return false;
    }
    while (m_members.size() < size) {
        m_members.push_back(newMember());
        m_rows.emplace_back();
    }
    return true;
}

/// As the member before it in what it is made of, and without anything on it.
Member MemberEdits::newMember() const
{
    Member member;
    member.section = m_members.empty() ? m_model.sections.front().name : m_members.back().section;
    member.material =
        m_members.empty() ? m_model.materials.front().name : m_members.back().material;
    return member;
}

void MemberEdits::set(int row, int column, const PropertyValue& value)
{
    if (!growTo(row)) {
        refuse(row, column, QObject::tr("a member needs two nodes, a section and a material"));
        return;
    }
    const auto index = static_cast<std::size_t>(row);
    const MemberColumn& target = memberColumn(column);
    if (!target.appliesTo(m_members[index])) {
        refuse(row, column, noSuchValue());
        return;
    }
    // What is there already may stay, whatever the limits are.
    if (!isNew(row) && target.value(m_model, m_members[index]) == value) {
        return;
    }
    const QString reason = target.refusal(m_model, value);
    if (!reason.isEmpty()) {
        refuse(row, column, reason);
        return;
    }
    m_rows[index].touched = true;
    m_rows[index].given.insert(column);
    target.setValue(m_model, m_members[index], value);
}

void MemberEdits::clear(int row, int column)
{
    const MemberColumn& target = memberColumn(column);
    if (target.cell == MemberColumn::Cell::Flag) {
        set(row, column, false);
    } else if (target.cell == MemberColumn::Cell::Quantity) {
        set(row, column, 0.0);
    } else if (target.cell == MemberColumn::Cell::Text) {
        set(row, column, QString());
    } else {
        refuse(row, column, QObject::tr("this cannot be empty"));
    }
}

void MemberEdits::refuse(int row, int column, const QString& reason)
{
    m_refusals.push_back({row, column, reason});
}

bool MemberEdits::isGiven(std::size_t row, int column) const
{
    return m_rows[row].given.contains(column);
}

/// Takes a value back that has turned out not to fit.
void MemberEdits::restore(std::size_t row, int column, const QString& reason)
{
    const int number = static_cast<int>(row);
    m_rows[row].given.remove(column);
    m_refusals.push_back({number, column, reason});
    if (!isNew(number)) {
        const MemberColumn& target = memberColumn(column);
        target.setValue(m_model, m_members[row], target.value(m_model, m_model.members[row]));
    }
}

void MemberEdits::settle()
{
    for (std::size_t row = 0; row < m_members.size(); ++row) {
        if (m_rows[row].touched) {
            if (isNew(static_cast<int>(row))) {
                completeNew(row);
            }
            settleNodes(row);
        }
    }
    settleNames();
    dropNotGiven();
    giveNames();
}

/// A new member has to have something that was meant for it, and not only refused texts.
void MemberEdits::dropNotGiven()
{
    for (std::size_t row = m_members.size(); row-- > m_model.members.size();) {
        if (!m_rows[row].given.isEmpty()) {
            continue;
        }
        const auto at = static_cast<std::ptrdiff_t>(row);
        m_members.erase(m_members.begin() + at);
        m_rows.erase(m_rows.begin() + at);
        for (CellRefusal& refusal : m_refusals) {
            if (refusal.row == static_cast<int>(row)) {
                refusal.row = std::numeric_limits<int>::max(); // of no member
            } else if (refusal.row > static_cast<int>(row) &&
                       refusal.row < std::numeric_limits<int>::max()) {
                --refusal.row;
            }
        }
    }
}

void MemberEdits::completeNew(std::size_t row)
{
    Member& member = m_members[row];
    if (member.start < 0) {
        member.start = otherNode(member.end);
    }
    if (member.end < 0) {
        member.end = otherNode(member.start);
    }
    if (!isGiven(row, columns().modulus)) {
        const int material = m_model.findMaterial(member.material);
        member.elasticModulus =
            m_model.materials[static_cast<std::size_t>(material)].elasticModulus;
    }
}

void MemberEdits::settleNodes(std::size_t row)
{
    Member& member = m_members[row];
    for (const int column : {columns().end, columns().start}) {
        if (member.start == member.end && isGiven(row, column)) {
            restore(row, column, QObject::tr("a member needs two different nodes"));
            if (isNew(static_cast<int>(row))) {
                member.end = otherNode(member.start);
            }
        }
    }
}

void MemberEdits::settleNames()
{
    // A member that gets its old name back may need it from another one, which then loses it.
    for (bool settled = false; !settled;) {
        settled = true;
        QHash<QString, std::size_t> owners;
        for (std::size_t row = 0; row < m_members.size(); ++row) {
            if (!isGiven(row, columns().name) && !isNew(static_cast<int>(row))) {
                owners.insert(m_members[row].name, row);
            }
        }
        for (std::size_t row = 0; row < m_members.size(); ++row) {
            if (!isGiven(row, columns().name)) {
                continue;
            }
            const QString name = m_members[row].name;
            if (owners.contains(name)) {
                restore(row, columns().name,
                        QObject::tr("there is a member \"%1\" already").arg(name));
                settled = false;
            } else {
                owners.insert(name, row);
            }
        }
    }
}

void MemberEdits::giveNames()
{
    QSet<QString> taken;
    for (std::size_t row = 0; row < m_members.size(); ++row) {
        if (!isNew(static_cast<int>(row)) || isGiven(row, columns().name)) {
            taken.insert(m_members[row].name);
        }
    }
    int number = 0;
    for (std::size_t row = m_model.members.size(); row < m_members.size(); ++row) {
        if (!isGiven(row, columns().name)) {
            QString name;
            do {
                name = QStringLiteral("M%1").arg(++number);
            } while (taken.contains(name));
            m_members[row].name = name;
        }
    }
}

int MemberEdits::newMembers() const
{
    return static_cast<int>(m_members.size() - m_model.members.size());
}

int MemberEdits::changedCells() const
{
    int count = 0;
    for (std::size_t row = 0; row < m_model.members.size(); ++row) {
        if (m_members[row] == m_model.members[row]) {
            continue;
        }
        count +=
            static_cast<int>(std::count_if(memberColumns().begin(), memberColumns().end(),
                                           [this, row](const MemberColumn& column) {
                                               return column.value(m_model, m_members[row]) !=
                                                      column.value(m_model, m_model.members[row]);
                                           }));
    }
    return count;
}

} // namespace frame_editor
