#include "qt/inc/delegates/combo_item_delegate.h"

#include "platform/smart_assert.h"
#include "platform/widgets.h"
#include "qt/inc/controls/enum_box.h"
#include "qt/inc/delegates/roles.h"
#include "qt/src/row_tracker.h"

#include <QEvent>
#include <QKeyEvent>
#include <QPointer>
#include <QTimer>

#include <utility>

namespace zel::qt {
namespace {

using detail::RowTracker;

/// On the parts of an editor: the editor, as QWidget*.
constexpr char editorProperty[] = "zel_property_delegate_editor_widget";
/// On the parts of an editor but for the one that takes the keys: true, only the loss of focus
/// counts as one of the editor.
constexpr char focusOutOnlyProperty[] = "zel_property_delegate_filter_focus_out";
/// On the editor: true from the release of the mouse in one of its parts until the event loop is
/// entered again. What is chosen meanwhile was chosen by mouse.
constexpr char mouseChoiceProperty[] = "zel_property_delegate_combobox_commit_on_activate";

SimpleEnumBox* boxAround(QObject* object)
{
    for (; object != nullptr; object = object->parent()) {
        if (auto* box = dynamic_cast<SimpleEnumBox*>(object)) {
            return box;
        }
    }
    return nullptr;
}

void markMouseChoice(SimpleEnumBox* box)
{
    box->setProperty(mouseChoiceProperty, true);
    // Not by an event of the box: a view that the list's end makes commit delivers those at once,
    // before the choice itself is told.
    QTimer::singleShot(0, [alive = QPointer<SimpleEnumBox>(box)] {
        if (alive) {
            alive->setProperty(mouseChoiceProperty, QVariant());
        }
    });
}

bool isEscape(const QEvent* event)
{
    return event->type() == QEvent::KeyPress &&
           static_cast<const QKeyEvent*>(event)->matches(QKeySequence::Cancel);
}

QWidget* lastFocusProxy(QWidget* widget)
{
    QWidget* last = nullptr;
    for (QWidget* proxy = widget->focusProxy(); proxy != nullptr; proxy = proxy->focusProxy()) {
        last = proxy;
    }
    return last;
}

} // namespace

ComboItemDelegate::ComboItemDelegate(
    QObject* parent, boost::function<void(MultiEditEnumBox&, const QModelIndex&)> fill,
    bool (*eq)(const boost::any&, const boost::any&), boost::shared_ptr<IValidator> validator)
    : QItemDelegate(parent)
    , m_fill(std::move(fill))
    , m_eq(eq)
    , m_validator(std::move(validator))
{}

ComboItemDelegate::~ComboItemDelegate() = default;

bool ComboItemDelegate::eventFilter(QObject* object, QEvent* event)
{
    if (event->type() == QEvent::MouseButtonRelease) {
        if (SimpleEnumBox* box = boxAround(object)) {
            markMouseChoice(box);
        }
    }
    const QVariant property = object->property(editorProperty);
    if (!property.isNull()) {
        const bool focusOutOnly = object->property(focusOutOnlyProperty).toBool();
        auto* editor = property.value<QWidget*>();
        if (editor != nullptr && (!focusOutOnly || event->type() == QEvent::FocusOut)) {
            return QItemDelegate::eventFilter(editor, event);
        }
    }
    const bool handled = QItemDelegate::eventFilter(object, event);
    // The base takes any object for an editor and Escape for its end. In the open list that key has
    // to reach the combo box, which closes the list by it.
    return handled && (property.isNull() || !isEscape(event));
}

void ComboItemDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const
{
    QItemDelegate::paint(painter, option, index);
}

QSize ComboItemDelegate::sizeHint(const QStyleOptionViewItem& option,
                                  const QModelIndex& index) const
{
    return QItemDelegate::sizeHint(option, index);
}

QWidget* ComboItemDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem& /*option*/,
                                         const QModelIndex& index) const
{
    auto* editor = MultiEditEnumBox::create(parent, QString(), m_eq);
    if (m_validator != nullptr) {
        editor->setEditable(true, m_validator);
    }
    if (!m_fill.empty()) {
        m_fill(*editor, index);
    }
    filterParts(editor);
    auto* self = const_cast<ComboItemDelegate*>(this);
    connect(editor, &SimpleEnumBox::activated, self, [self, editor](int) {
        if (!editor->property(mouseChoiceProperty).isNull()) {
            self->commitAndClose(editor);
        }
    });
    return editor;
}

void ComboItemDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const
{
    const auto value = index.model()->data(index, EditRole).value<boost::any>();
    ZEL_SMART_ASSERT(!value.empty(), "!value.empty()");
    auto* box = qobject_cast<MultiEditEnumBox*>(editor);
    if (!value.empty() && box != nullptr) {
        box->readValue(value);
    }
}

void ComboItemDelegate::setModelData(QWidget* editor, QAbstractItemModel* model,
                                     const QModelIndex& index) const
{
    // Null for an editor that is being destroyed: it has no choice any more.
    const QPointer<MultiEditEnumBox> box = qobject_cast<MultiEditEnumBox*>(editor);
    if (!box || box->dataVaries()) {
        return;
    }
    const boost::any value = box->getSelectedValue();
    if (value.empty()) {
        return;
    }
    // A model may ask the user about the value. The editor, which loses the focus then, must not
    // be closed from within: the view that is committing goes on with it, and closes it later.
    const ZEL_QT_SignalBlocker blocker(const_cast<ComboItemDelegate*>(this));
    const RowTracker tracker(*model, {index});
    const auto write = [&tracker, row = index.row(), column = index.column()](const QVariant& data,
                                                                              int role) {
        return tracker.setData(row, column, data, role);
    };
    const QString display = box->getNameForValue(value);
    // The value comes last: a model that reacts to it sees the text in place. A write that fails
    // keeps none of the others back.
    bool ok = write(display, DisplayRole);
    ZEL_SMART_ASSERT(ok, "ok").message("model->setData( index, display, qt::DisplayRole )");
    ok = write(display, ToolTipRole);
    ZEL_SMART_ASSERT(ok, "ok").message("model->setData( index, display, qt::ToolTipRole )");
    ok = write(QVariant::fromValue<boost::any>(value), EditRole);
    ZEL_SMART_ASSERT(ok, "ok").message(
        "model->setData( index, QVariant::fromValue<any>(editData), qt::EditRole )");

    // The view tells an open editor of each write, so that the editor met the old value beside the
    // new choice and believes that they vary.
    const QModelIndex cell = tracker.cell(index.row(), index.column());
    if (box && box->dataVaries() && cell.isValid()) {
        box->reset();
        setEditorData(box, cell);
    }
}

void ComboItemDelegate::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                                             const QModelIndex& index) const
{
    QItemDelegate::updateEditorGeometry(editor, option, index);
}

bool ComboItemDelegate::editorEvent(QEvent* /*event*/, QAbstractItemModel* /*model*/,
                                    const QStyleOptionViewItem& /*option*/,
                                    const QModelIndex& /*index*/)
{
    return false;
}

void ComboItemDelegate::emitCommitData()
{
    auto* editor = qobject_cast<MultiEditEnumBox*>(sender());
    if (editor == nullptr) {
        return;
    }
    const bool hasValue = !editor->getSelectedValue().empty();
    ZEL_SMART_ASSERT(hasValue, "!editor->getSelectedValue().empty()");
    if (hasValue && !editor->dataVaries()) {
        commitAndClose(editor);
    }
}

void ComboItemDelegate::filterParts(MultiEditEnumBox* editor) const
{
    auto* filter = const_cast<ComboItemDelegate*>(this);
    const QVariant property = QVariant::fromValue<QWidget*>(editor);
    QWidget* const proxy = lastFocusProxy(editor);
    editor->installEventFilter(filter);
    if (proxy != nullptr) {
        proxy->installEventFilter(filter);
        proxy->setProperty(editorProperty, property);
    }
    // What lies below a child that is no widget is left out.
    QObjectList parts = editor->children();
    while (!parts.isEmpty()) {
        auto* part = qobject_cast<QWidget*>(parts.takeFirst());
        if (part == nullptr) {
            continue;
        }
        part->installEventFilter(filter);
        part->setProperty(editorProperty, property);
        if (part != proxy) { // its keys are those of the editor
            part->setProperty(focusOutOnlyProperty, true);
        }
        parts += part->children();
    }
}

void ComboItemDelegate::commitAndClose(QWidget* editor)
{
    const QPointer<QWidget> alive = editor;
    Q_EMIT commitData(editor);
    if (alive) { // whoever hears of it may run the event loop, in which the editor dies
        Q_EMIT closeEditor(editor, QAbstractItemDelegate::SubmitModelCache);
    }
}

} // namespace zel::qt
