#include "qt/inc/delegates/button_item_delegate.h"

#include "platform/smart_assert.h"

#include <QApplication>
#include <QPointer>
#include <QStyle>
#include <QStyleOptionButton>

#include <utility>

namespace zel::qt {

ButtonItemDelegate::ButtonItemDelegate(
    boost::function<void(QAbstractItemModel*, const QModelIndex&)> editFn, QObject* parent)
    : QItemDelegate(parent)
    , m_editFn(std::move(editFn))
{
    ZEL_SMART_ASSERT(!m_editFn.empty(), "m_editFn")
        .message("ButtonItemDelegate: no editing function specified!");
}

ButtonItemDelegate::~ButtonItemDelegate() = default;

void ButtonItemDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                               const QModelIndex& index) const
{
    const bool enabled = option.state.testFlag(QStyle::State_Enabled);
    const bool selected = option.state.testFlag(QStyle::State_Selected);

    QStyleOptionButton button;
    button.rect = option.rect;
    button.text = index.model()->data(index, Qt::DisplayRole).toString();
    button.state = option.state & QStyle::State_Enabled;
    button.state |= m_pressed.count(index) != 0 ? QStyle::State_Sunken : QStyle::State_Raised;
    button.features = enabled && selected ? QStyleOptionButton::None : QStyleOptionButton::Flat;

    const auto* widget = qobject_cast<const QWidget*>(parent());
    QStyle* style = QApplication::style();
    style->drawControl(QStyle::CE_PushButton, &button, painter, widget);
    style->drawControl(QStyle::CE_PushButtonLabel, &button, painter, widget);
}

QSize ButtonItemDelegate::sizeHint(const QStyleOptionViewItem& option,
                                   const QModelIndex& index) const
{
    return QItemDelegate::sizeHint(option, index);
}

QWidget* ButtonItemDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem& /*option*/,
                                          const QModelIndex& index) const
{
    // The function may do anything to the table, also replace this delegate or have the index at
    // hand changed; so both are held here.
    const QPointer<const ButtonItemDelegate> self = this;
    const auto editFn = m_editFn;
    const QModelIndex pressed = index;
    const QPointer<QWidget> shown = parent;

    m_pressed.insert(pressed);
    parent->repaint(); // at once: the event loop may not run before the function is through
    if (!editFn.empty()) {
        // There is no way to the model but through the index, which gives it as const.
        editFn(const_cast<QAbstractItemModel*>(pressed.model()), pressed);
    }
    if (self) {
        m_pressed.erase(pressed);
    }
    if (shown) {
        shown->update();
    }
    return nullptr;
}

void ButtonItemDelegate::setEditorData(QWidget* /*editor*/, const QModelIndex& /*index*/) const {}

void ButtonItemDelegate::setModelData(QWidget* /*editor*/, QAbstractItemModel* /*model*/,
                                      const QModelIndex& /*index*/) const
{}

void ButtonItemDelegate::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                                              const QModelIndex& /*index*/) const
{
    editor->setGeometry(option.rect);
}

} // namespace zel::qt
