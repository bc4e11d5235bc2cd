#include "examples/frame_editor/member_list.h"

#include "examples/frame_editor/document.h"
#include "examples/frame_editor/member_selection.h"

#include <QScopedValueRollback>

namespace frame_editor {

namespace {

QString itemText(const Member& member)
{
    const MemberProperty& kind = *findMemberProperty(QStringLiteral("kind"));
    const QString kindLabel = kind.choiceLabel(std::get<QString>(kind.get(member)));
    return member.kind == MemberKind::Link
               ? QStringLiteral("%1  (%2)").arg(member.name, kindLabel)
               : QStringLiteral("%1  (%2, %3)").arg(member.name, kindLabel, member.section);
}

} // namespace

MemberList::MemberList(Document& document, QWidget* parent)
    : QListWidget(parent)
    , m_document(document)
{
    setObjectName(QStringLiteral("members"));
    setAccessibleName(tr("Members"));
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    setUniformItemSizes(true);
    connect(&document, &Document::changed, this, &MemberList::showMembers);
    connect(&document, &Document::selectionChanged, this, &MemberList::showSelection);
    connect(this, &QListWidget::itemSelectionChanged, this, &MemberList::takeSelection);
    showMembers();
    showSelection();
}

QSize MemberList::sizeHint() const
{
    return {250, 6 * fontMetrics().height()};
}

void MemberList::showMembers()
{
    const std::vector<Member>& members = m_document.model().members;
    if (count() != static_cast<int>(members.size())) {
        const QScopedValueRollback<bool> showing(m_showing, true);
        // The row that has the keyboard stays, as far as there is one.
        while (count() > static_cast<int>(members.size())) {
            delete takeItem(count() - 1);
        }
        while (count() < static_cast<int>(members.size())) {
            addItem(QString());
        }
    }
    int row = 0;
    for (const Member& member : members) {
        const QString text = itemText(member);
        if (item(row)->text() != text) {
            item(row)->setText(text);
        }
        ++row;
    }
}

void MemberList::showSelection()
{
    if (m_showing) {
        return;
    }
    const QScopedValueRollback<bool> showing(m_showing, true);
    const QVector<int>& members = m_document.selection().members();
    for (int row = 0; row < count(); ++row) {
        item(row)->setSelected(m_document.selection().contains(row));
    }
    if (!members.isEmpty() && !members.contains(currentRow())) {
        setCurrentRow(members.first(), QItemSelectionModel::NoUpdate);
        scrollToItem(currentItem());
    }
}

void MemberList::takeSelection()
{
    if (m_showing) {
        return;
    }
    const QScopedValueRollback<bool> showing(m_showing, true);
    QVector<int> rows;
    for (int row = 0; row < count(); ++row) {
        if (item(row)->isSelected()) {
            rows.append(row);
        }
    }
    m_document.selection().set(rows);
}

} // namespace frame_editor
