#include "qt/inc/delegates/line_edit_item_delegate.h"

#include "platform/smart_assert.h"
#include "platform/widgets.h"
#include "qt/inc/delegates/roles.h"
#include "qt/inc/detail/line_edit_impl.h"
#include "qt/src/row_tracker.h"

#include <QAbstractProxyModel>
#include <QCoreApplication>
#include <QEvent>
#include <QMap>
#include <QPainter>
#include <QPixmap>
#include <QPointer>
#include <QSortFilterProxyModel>
#include <QStyle>

#include <utility>

namespace zel::qt {

namespace detail {

MyLineEdit::MyLineEdit(QWidget* parent)
    : QLineEdit(parent)
{}

MyLineEdit::~MyLineEdit() = default;

void MyLineEdit::emitEditingFinished()
{
    Q_EMIT editingFinished();
}

} // namespace detail

namespace {

constexpr unsigned int borderlessFlag = 1;

/// Keeps an edit from hearing that it loses the focus.
struct FocusKeeper : QObject
{
    bool eventFilter(QObject* /*object*/, QEvent* event) override
    {
        return event->type() == QEvent::FocusOut;
    }
};

/// The function of an editor's button. It may ask the user in a window of its own, and what comes
/// of that is for the editor, whose editing goes on meanwhile.
QString runKeepingOpen(const boost::function<QString(const QString&)>& fn,
                       detail::LineEditImpl* editor, const QString& text)
{
    const QPointer<QWidget> alive = editor;
    QString result;
    {
        FocusKeeper keeper;
        editor->installEventFilter(&keeper);
        result = fn(text);
    }
    if (alive && alive->window()->focusWidget() != alive) {
        alive->setFocus();
    }
    return result;
}

bool hasTypedValue(const QModelIndex& index)
{
    return index.model()->data(index, EditRole).canConvert<boost::any>();
}

/// Whether rows of the model may move or go when a text changes, by a proxy model at any level.
bool sortsOrFilters(const QAbstractItemModel* model)
{
    while (const auto* proxy = qobject_cast<const QAbstractProxyModel*>(model)) {
        if (qobject_cast<const QSortFilterProxyModel*>(proxy) != nullptr) {
            return true;
        }
        model = proxy->sourceModel();
    }
    return false;
}

/// Writes the roles in one operation, as far as the model has such a one.
void writeRoles(QAbstractItemModel& model, const QModelIndex& index,
                const QMap<int, QVariant>& roles)
{
    if (!sortsOrFilters(&model)) {
        model.setItemData(index, roles);
        return;
    }
    // Such a model would write role after role to the same place, where the new text may have
    // brought another row meanwhile.
    const int row = index.row();
    const int column = index.column();
    const detail::RowTracker tracker(model, {index});
    bool ok = true;
    for (auto it = roles.cbegin(); ok && it != roles.cend(); ++it) {
        ok = tracker.setData(row, column, it.value(), it.key());
    }
}

} // namespace

LineEditItemDelegate::LineEditItemDelegate(QObject* parent)
    : QItemDelegate(parent)
{}

LineEditItemDelegate::LineEditItemDelegate(boost::shared_ptr<IValidator> validator, QObject* parent)
    : QItemDelegate(parent)
    , m_validator(std::move(validator))
{}

LineEditItemDelegate::LineEditItemDelegate(boost::shared_ptr<IValidator> validator,
                                           boost::function<QString(const QString&)> buttonFn,
                                           QObject* parent)
    : QItemDelegate(parent)
    , m_validator(std::move(validator))
    , m_buttonFn(std::move(buttonFn))
{}

LineEditItemDelegate::~LineEditItemDelegate() = default;

void LineEditItemDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const
{
    if (hasTypedValue(index)) {
        QItemDelegate::paint(painter, option, index);
        return;
    }
    // Inside the lines of the grid.
    painter->fillRect(option.rect.adjusted(1, 1, -2, -2), QColor(255, 255, 255, 255));
}

void LineEditItemDelegate::drawDisplay(QPainter* painter, const QStyleOptionViewItem& option,
                                       const QRect& rect, const QString& text) const
{
    QStyleOptionViewItem own = option;
    own.displayAlignment = QStyle::visualAlignment(option.direction, option.displayAlignment);
    own.direction = text.isRightToLeft() ? Qt::RightToLeft : Qt::LeftToRight;
    QItemDelegate::drawDisplay(painter, own, rect, text);
}

QWidget* LineEditItemDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem& /*option*/,
                                            const QModelIndex& index) const
{
    if (!hasTypedValue(index)) {
        return nullptr;
    }
    auto* editor = new detail::LineEditImpl(parent, borderlessFlag);
    if (!m_buttonFn.empty()) {
        editor->addButton([fn = m_buttonFn, editor](
                              const QString& text) { return runKeepingOpen(fn, editor, text); },
                          QPixmap());
    }
    editor->installEventFilter(const_cast<LineEditItemDelegate*>(this));
    connect(editor, &QLineEdit::editingFinished, this, &LineEditItemDelegate::commitAndCloseEditor);
    return editor;
}

void LineEditItemDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const
{
    const auto value = index.model()->data(index, EditRole).value<boost::any>();
    const QString text = m_validator->reformat(value, {});
    auto* edit = qobject_cast<QLineEdit*>(editor);
    ZEL_SMART_ASSERT(edit != nullptr, "edit");
    if (edit != nullptr) {
        // The edit's limit is for what is typed: a value that it cuts would be written back so.
        edit->setMaxLength(qMax(edit->maxLength(), text.size()));
        edit->setText(text);
        edit->selectAll();
    }
}

void LineEditItemDelegate::setModelData(QWidget* editor, QAbstractItemModel* model,
                                        const QModelIndex& index) const
{
    auto* edit = qobject_cast<QLineEdit*>(editor);
    ZEL_SMART_ASSERT(edit != nullptr, "edit");
    if (edit == nullptr) {
        return;
    }
    boost::any value;
    if (!m_validator->validate(edit->text(), value, {}) || value.empty()) {
        return;
    }
    const QString display = m_validator->reformatForDisplay(value, {});
    const QMap<int, QVariant> roles{{DisplayRole, display},
                                    {ToolTipRole, display},
                                    {EditRole, QVariant::fromValue<boost::any>(value)}};
    // A model may ask the user about the value. The editor, which loses the focus then, must not
    // be closed from within: the view that is committing goes on with it, and closes it later.
    const ZEL_QT_SignalBlocker blocker(const_cast<LineEditItemDelegate*>(this));
    writeRoles(*model, index, roles);
}

void LineEditItemDelegate::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                                                const QModelIndex& /*index*/) const
{
    editor->setGeometry(option.rect);
}

void LineEditItemDelegate::commitAndCloseEditor()
{
    auto* editor = qobject_cast<QWidget*>(sender());
    // Whoever hears of it may run the event loop, in which the editor dies.
    const QPointer<QWidget> alive = editor;
    Q_EMIT commitData(editor);
    if (alive || editor == nullptr) {
        Q_EMIT closeEditor(editor, QAbstractItemDelegate::NoHint);
    }
}

void LineEditItemDelegate::commitOnly()
{
    auto* editor = qobject_cast<QWidget*>(sender());
    const QPointer<QWidget> alive = editor;
    Q_EMIT commitData(editor);
    if (alive || editor == nullptr) {
        QCoreApplication::sendPostedEvents(editor, 0);
    }
}

} // namespace zel::qt
