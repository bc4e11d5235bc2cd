#include "examples/frame_editor/member_table_model.h"

#include "examples/frame_editor/document.h"
#include "examples/frame_editor/field_value.h"
#include "examples/frame_editor/member_table_edits.h"
#include "examples/frame_editor/unit_settings.h"

#include "qt/inc/delegates.h"

#include <QGuiApplication>
#include <QPalette>
#include <QUndoStack>

#include <utility>

namespace frame_editor {

using Cell = MemberColumn::Cell;

namespace {

const int nameColumn = 1;

bool isNumber(Cell cell)
{
    return cell == Cell::Quantity || cell == Cell::Count;
}

/// The caption of a column on two lines of about one length, with its unit behind it.
QString headerText(const MemberColumn& column)
{
    QStringList words = column.label.split(QLatin1Char(' '));
    if (column.cell == Cell::Quantity) {
        const QString unit =
            shownUnit(zel::units::v1::get_active_input_context(), column.property->unitSet);
        words << QStringLiteral("[%1]").arg(unit);
    }
    QString best = words.join(QLatin1Char(' '));
    int width = best.size();
    for (int i = 1; i < words.size(); ++i) {
        const QString upper = QStringList(words.mid(0, i)).join(QLatin1Char(' '));
        const QString lower = QStringList(words.mid(i)).join(QLatin1Char(' '));
        if (qMax(upper.size(), lower.size()) <= width) {
            width = qMax(upper.size(), lower.size());
            best = upper + QLatin1Char('\n') + lower;
        }
    }
    return best;
}

QString choiceText(const MemberColumn& column, const QString& key)
{
    return column.property ? column.property->choiceLabel(key) : key;
}

boost::any cellValue(const MemberColumn& column, const PropertyValue& value)
{
    return column.property ? toEditorValue(*column.property, value)
                           : boost::any(std::get<QString>(value).toStdString());
}

} // namespace

MemberTableModel::MemberTableModel(Document& document, QObject* parent)
    : QAbstractTableModel(parent)
    , m_document(document)
{
    connect(&document, &Document::modelReplaced, this, [this] {
        beginResetModel();
        m_edits.reset();
        m_members = m_document.model().members;
        m_rows = memberCount() + 1;
        endResetModel();
    });
    connect(&document, &Document::membersInserted, this, &MemberTableModel::insertMembers);
    connect(&document, &Document::membersRemoved, this, &MemberTableModel::removeMembers);
    connect(&document, &Document::changed, this, &MemberTableModel::showModel);
    showModel();
    showUnits();
}

MemberTableModel::~MemberTableModel() = default;

int MemberTableModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_rows;
}

int MemberTableModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(memberColumns().size());
}

int MemberTableModel::memberCount() const
{
    return static_cast<int>(m_members.size());
}

const Member* MemberTableModel::member(int row) const
{
    return row >= 0 && row < memberCount() ? &m_members[static_cast<std::size_t>(row)] : nullptr;
}

bool MemberTableModel::hasCell(int row, int column) const
{
    const Member* shown = member(row);
    return shown ? memberColumn(column).appliesTo(*shown)
                 : row == memberCount() && column == nameColumn;
}

QString MemberTableModel::numberText(const MemberColumn& column, const Member& member) const
{
    const PropertyValue value = column.property->get(member);
    return column.cell == Cell::Count
               ? QString::number(std::get<int>(value))
               : formatQuantity(m_units, column.property->unitSet, std::get<double>(value))
                     .trimmed();
}

QString MemberTableModel::fullText(int row, int column) const
{
    const Member* shown = member(row);
    const MemberColumn& target = memberColumn(column);
    if (!shown || !hasCell(row, column) || target.cell == Cell::Button) {
        return QString();
    }
    const PropertyValue value = target.value(m_document.model(), *shown);
    return target.property ? displayText(*target.property, value) : std::get<QString>(value);
}

QVariant MemberTableModel::display(int row, int column) const
{
    const Member& shown = *member(row);
    const MemberColumn& target = memberColumn(column);
    switch (target.cell) {
    case Cell::Button:
        return tr("Show");
    case Cell::Quantity:
    case Cell::Count:
        return numberText(target, shown);
    case Cell::Choice:
        return choiceText(target, std::get<QString>(target.value(m_document.model(), shown)));
    case Cell::Text:
        return std::get<QString>(target.value(m_document.model(), shown));
    case Cell::Flag:
        break;
    }
    return QVariant();
}

QVariant MemberTableModel::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid)) {
        return QVariant();
    }
    const int row = index.row();
    const int column = index.column();
    const MemberColumn& target = memberColumn(column);
    if (role == Qt::TextAlignmentRole) {
        return int(Qt::AlignVCenter | (isNumber(target.cell) ? Qt::AlignRight : Qt::AlignLeft));
    }
    const Member* shown = member(row);
    if (!hasCell(row, column)) {
        return !shown                       ? QVariant()
               : role == Qt::ToolTipRole    ? tr("A rigid link has no such value")
               : role == Qt::BackgroundRole ? QGuiApplication::palette().brush(QPalette::Window)
                                            : QVariant();
    }
    if (!shown) {
        // The name of the blank row: a place for a value, and none in it.
        return role == zel::qt::EditRole ? QVariant::fromValue(boost::any())
               : role == Qt::ToolTipRole ? tr("A name makes a new member")
                                         : QVariant();
    }
    switch (role) {
    case Qt::DisplayRole:
        return display(row, column);
    case Qt::ToolTipRole:
        return target.cell == Cell::Button ? tr("Zooms to %1").arg(shown->name)
                                           : fullText(row, column);
    case Qt::AccessibleTextRole:
        return target.cell == Cell::Button ? tr("Zoom to %1").arg(shown->name)
                                           : fullText(row, column);
    case Qt::CheckStateRole:
        return target.cell == Cell::Flag
                   ? QVariant(std::get<bool>(target.property->get(*shown)) ? Qt::Checked
                                                                           : Qt::Unchecked)
                   : QVariant();
    case zel::qt::EditRole:
        return target.cell == Cell::Button ? QVariant()
                                           : QVariant::fromValue(cellValue(
                                                 target, target.value(m_document.model(), *shown)));
    default:
        return QVariant();
    }
}

QVariant MemberTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Vertical) {
        return role != Qt::DisplayRole    ? QVariant()
               : section >= memberCount() ? QVariant(QStringLiteral("*"))
                                          : QVariant(section + 1);
    }
    const MemberColumn& column = memberColumn(section);
    switch (role) {
    case Qt::DisplayRole:
        return headerText(column);
    case Qt::ToolTipRole:
        return column.label;
    default:
        return QVariant();
    }
}

Qt::ItemFlags MemberTableModel::flags(const QModelIndex& index) const
{
    if (!index.isValid()) {
        return Qt::NoItemFlags;
    }
    const Qt::ItemFlags plain = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
    if (!hasCell(index.row(), index.column())) {
        return plain;
    }
    return memberColumn(index.column()).cell == Cell::Flag ? plain | Qt::ItemIsUserCheckable
                                                           : plain | Qt::ItemIsEditable;
}

bool MemberTableModel::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid | CheckIndexOption::ParentIsInvalid) ||
        memberColumn(index.column()).cell == Cell::Button) {
        return false;
    }
    if (role == Qt::DisplayRole || role == Qt::ToolTipRole) {
        return flags(index).testFlag(Qt::ItemIsEditable);
    }
    if (m_edits) {
        return write(index.row(), index.column(), value, role);
    }
    beginEdits();
    const bool written = write(index.row(), index.column(), value, role);
    finishEdits(QString(), true);
    return written;
}

void MemberTableModel::tellRefusal(int row, int column, const QString& reason)
{
    beginEdits();
    m_edits->refuse(row, column, reason);
    finishEdits(QString(), true);
}

bool MemberTableModel::write(int row, int column, const QVariant& value, int role)
{
    const MemberColumn& target = memberColumn(column);
    const std::size_t refusals = m_edits->refusals().size();
    if (role == Qt::CheckStateRole && target.cell == Cell::Flag) {
        m_edits->set(row, column, value.toInt() == Qt::Checked);
        return m_edits->refusals().size() == refusals;
    }
    if (role != zel::qt::EditRole || !value.canConvert<boost::any>()) {
        return false;
    }
    const auto typed = value.value<boost::any>();
    if (typed.empty()) {
        // Where there is nothing, nothing is to be cleared.
        if (hasCell(row, column) && member(row)) {
            m_edits->clear(row, column);
        }
        return m_edits->refusals().size() == refusals;
    }
    // A node goes by its name, as a text.
    static const MemberProperty text;
    const auto taken = fromEditorValue(target.property ? *target.property : text, typed);
    if (!taken) {
        return false;
    }
    m_edits->set(row, column, *taken);
    return m_edits->refusals().size() == refusals;
}

void MemberTableModel::beginEdits()
{
    m_edits = std::make_unique<MemberEdits>(m_document.model());
}

bool MemberTableModel::growTo(int row)
{
    if (!m_edits || !m_edits->growTo(row)) {
        return false;
    }
    if (row >= m_rows) {
        beginInsertRows(QModelIndex(), m_rows, row);
        m_rows = row + 1;
        endInsertRows();
    }
    return true;
}

void MemberTableModel::refuse(int row, int column, const QString& reason)
{
    if (m_edits) {
        m_edits->refuse(row, column, reason);
    }
}

void MemberTableModel::endEdits(const QString& text)
{
    if (m_edits) {
        finishEdits(text, false);
    }
}

/// @param isWhole that one refusal is enough to write nothing
void MemberTableModel::finishEdits(const QString& text, bool isWhole)
{
    m_edits->settle();
    const QString reasons = outcome(isWhole);
    if (isWhole && !reasons.isEmpty()) {
        m_edits.reset();
        showModel();
        Q_EMIT refused(reasons);
        Q_EMIT told(reasons);
        return;
    }
    const QString step = stepText(text);
    const bool isStep = m_edits->newMembers() > 0 || m_edits->changedCells() > 0;
    const std::vector<Member> members = m_edits->members();
    m_edits.reset();
    const QString reason = m_document.replaceMembers(members, step);
    showModel(); // also where nothing was written: rows that were made for it go
    if (!reasons.isEmpty()) {
        Q_EMIT refused(reasons);
    }
    if (!reason.isEmpty()) {
        Q_EMIT told(reason);
    } else if (!reasons.isEmpty()) {
        Q_EMIT told(isStep ? tr("%1: written; %2").arg(step, reasons) : reasons);
    } else if (isStep) {
        Q_EMIT told(tr("%1: written").arg(step));
    }
}

QString MemberTableModel::stepText(const QString& text) const
{
    const int added = m_edits->newMembers();
    const int changed = m_edits->changedCells();
    if (added > 0) {
        return added == 1 ? tr("New member %1").arg(m_edits->members().back().name)
                          : tr("%n new members", nullptr, added);
    }
    if (changed != 1) {
        return tr("%1 of %n cells", nullptr, changed).arg(text);
    }
    const FrameModel& model = m_document.model();
    for (int row = 0; row < memberCount(); ++row) {
        const Member& before = model.members.at(static_cast<std::size_t>(row));
        const Member& after = m_edits->members().at(static_cast<std::size_t>(row));
        for (const MemberColumn& column : memberColumns()) {
            if (before != after && column.value(model, before) != column.value(model, after)) {
                return tr("%1 of %2").arg(column.label, before.name);
            }
        }
    }
    return text;
}

/// Which cells were refused; empty if none was.
QString MemberTableModel::outcome(bool isWhole) const
{
    const std::vector<CellRefusal>& refusals = m_edits->refusals();
    if (refusals.empty()) {
        return QString();
    }
    const CellRefusal& first = refusals.front();
    const auto row = static_cast<std::size_t>(first.row);
    const bool isMember =
        row < m_edits->members().size() && !(isWhole && m_edits->isNew(first.row));
    const QString name = isMember ? m_edits->members()[row].name : tr("New member");
    const int column = first.column;
    const QString label =
        column < columnCount() ? memberColumn(column).label : tr("column %1").arg(column + 1);
    const QString cell = tr("%1, %2: %3").arg(name, label, first.reason);
    const int count = static_cast<int>(refusals.size());
    return count == 1 ? tr("%1; this cell was left as it is").arg(cell)
                      : tr("%n cells were left as they are; %1", nullptr, count).arg(cell);
}

/// Rows come where the members have come: an editor that is open on another one stays with it.
void MemberTableModel::insertMembers(const QVector<int>& members)
{
    const std::vector<Member>& now = m_document.model().members;
    for (int i = 0; i < members.size();) {
        const int first = members.at(i);
        int last = first;
        while (++i < members.size() && members.at(i) == last + 1) {
            ++last;
        }
        beginInsertRows(QModelIndex(), first, last);
        m_members.insert(m_members.begin() + first, now.begin() + first, now.begin() + last + 1);
        m_rows += last - first + 1;
        endInsertRows();
    }
    Q_EMIT headerDataChanged(Qt::Vertical, 0, m_rows - 1);
}

void MemberTableModel::removeMembers(const QVector<int>& members)
{
    for (int i = members.size() - 1; i >= 0;) {
        const int last = members.at(i);
        int first = last;
        while (--i >= 0 && members.at(i) == first - 1) {
            --first;
        }
        beginRemoveRows(QModelIndex(), first, last);
        m_members.erase(m_members.begin() + first, m_members.begin() + last + 1);
        m_rows -= last - first + 1;
        endRemoveRows();
    }
    Q_EMIT headerDataChanged(Qt::Vertical, 0, m_rows - 1);
}

void MemberTableModel::showModel()
{
    if (m_edits) {
        return;
    }
    const std::vector<Member>& members = m_document.model().members;
    const int rows = static_cast<int>(members.size()) + 1;
    if (rows > m_rows) {
        beginInsertRows(QModelIndex(), m_rows, rows - 1);
        m_rows = rows;
        endInsertRows();
    } else if (rows < m_rows) {
        beginRemoveRows(QModelIndex(), rows, m_rows - 1);
        m_rows = rows;
        endRemoveRows();
    }
    if (members != m_members) {
        showRows(std::exchange(m_members, members));
    }
}

/// Announces each changed cell by itself: an editor that is open on another one goes on.
void MemberTableModel::showRows(const std::vector<Member>& before)
{
    const int last = columnCount() - 1;
    const FrameModel& model = m_document.model();
    // The blank row moves.
    const std::size_t blank = before.size() != m_members.size() ? 1 : 0;
    const std::size_t rows = qMax(before.size(), m_members.size()) + blank;
    for (std::size_t i = 0; i < rows; ++i) {
        const int row = static_cast<int>(i);
        const bool isHere = i < m_members.size();
        if (i < before.size() && isHere && before[i].kind == m_members[i].kind) {
            for (int column = 0; before[i] != m_members[i] && column <= last; ++column) {
                const MemberColumn& shown = memberColumn(column);
                const bool isNamed =
                    shown.cell == Cell::Button && before[i].name != m_members[i].name;
                if (isNamed || shown.value(model, before[i]) != shown.value(model, m_members[i])) {
                    Q_EMIT dataChanged(index(row, column), index(row, column));
                }
            }
        } else if (row < m_rows) {
            Q_EMIT dataChanged(index(row, 0), index(row, last));
        }
    }
    Q_EMIT headerDataChanged(Qt::Vertical, 0, m_rows - 1);
}

void MemberTableModel::showUnits()
{
    m_units = zel::units::v1::get_active_input_context();
    for (const MemberColumn& column : memberColumns()) {
        if (column.cell == Cell::Quantity) {
            m_units.format_provider().set_label_override(
                zel::units::UnitId(column.property->unitSet), std::string());
        }
    }
    Q_EMIT headerDataChanged(Qt::Horizontal, 0, columnCount() - 1);
    Q_EMIT dataChanged(index(0, 0), index(m_rows - 1, columnCount() - 1));
}

} // namespace frame_editor
