#pragma once

#include "platform/export.h"
#include "qt/inc/validators/i_validator.h"

#include <QItemDelegate>

#include <boost/any.hpp>
#include <boost/function.hpp>
#include <boost/shared_ptr.hpp>

namespace zel::qt {

class MultiEditEnumBox;

/// Edits the typed value of a cell (EditRole, see roles.h) as a choice of named values, in a
/// MultiEditEnumBox. A click on an item of the list is final: it writes the value and closes the
/// editor at once. A choice by keyboard leaves the editor open; Return, Enter, Tab and the loss of
/// focus end the editing, Escape ends it without writing.
class ZEL_QT_EXPORT ComboItemDelegate : public QItemDelegate
{
    Q_OBJECT
public:
    /// @param fill      gives a new editor its entries, usually with setValues(); may be empty
    /// @param eq        equality of two values, see SimpleEnumBox::create()
    /// @param validator makes the editor editable: it takes free text as well; null for a fixed
    ///                  list. Shared with the caller.
    ComboItemDelegate(QObject* parent,
                      boost::function<void(MultiEditEnumBox&, const QModelIndex&)> fill,
                      bool (*eq)(const boost::any&, const boost::any&),
                      boost::shared_ptr<IValidator> validator);
    ~ComboItemDelegate() override;

    /// Events of the parts of an editor count as those of the editor.
    bool eventFilter(QObject* object, QEvent* event) override;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    /// A MultiEditEnumBox that `parent` owns.
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    /// Selects the value of the cell. A cell without a value reports the assertion
    /// "!value.empty()" and leaves the editor's first entry selected.
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    /// Writes the name of the choice as text and tool tip and then its value, each with a
    /// setData(); one that is refused reports the assertion "ok". An editor whose values vary, or
    /// that has no valid choice, writes nothing.
    void setModelData(QWidget* editor, QAbstractItemModel* model,
                      const QModelIndex& index) const override;
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;

protected:
    /// False: outside of an editor events are not for this delegate.
    bool editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                     const QModelIndex& index) override;

private Q_SLOTS:
    /// Writes the choice of the sender, a MultiEditEnumBox, and closes it. For a host that reaches
    /// it by its name.
    void emitCommitData();

private:
    void filterParts(MultiEditEnumBox* editor) const;
    void commitAndClose(QWidget* editor);

    boost::function<void(MultiEditEnumBox&, const QModelIndex&)> m_fill;
    bool (*m_eq)(const boost::any&, const boost::any&);
    boost::shared_ptr<IValidator> m_validator;
};

} // namespace zel::qt
