#pragma once

#include "platform/export.h"
#include "platform/widgets.h"
#include "qt/inc/controls/multi_edit_control_base.h"
#include "qt/inc/controls/named_value_list.h"
#include "qt/inc/validators/i_validator.h"

#include <QColor>
#include <QComboBox>
#include <QPointer>
#include <QString>
#include <QWidget>

#include <boost/any.hpp>

#include <deque>

class QHBoxLayout;

namespace zel::qt {

class MultiEditLineEdit;

/// A combo box with a caption, to choose one of several named values. In editable mode it takes
/// free text as well, through a validator.
///
/// The meta-object lists the slots in the order in which they stand here.
class ZEL_QT_EXPORT SimpleEnumBox : public QWidget
{
    Q_OBJECT
public:
    /// Makes a box that the parent owns. A null parent reports the assertion "parent".
    /// @param label caption; empty for none
    /// @param eq equality of two values. It is not called if exactly one of them is empty, and has
    ///        to accept two empty ones.
    static SimpleEnumBox* create(QWidget* parent, const QString& label,
                                 bool (*const& eq)(const boost::any&, const boost::any&));
    ~SimpleEnumBox() override;

    /// Whether the typed text is valid. Only for editable mode; false outside it.
    bool isValueValid() const;

    /// That of the combo box.
    void setSizeAdjustPolicy(QComboBox::SizeAdjustPolicy policy);

    using QWidget::resize;
    /// Resizes the box, in pixels; virtual for those who adapt the combo box to it.
    virtual void resize(int width, int height);

Q_SIGNALS:
    /// The value changed. The only notification of it.
    void valueChanged();
    /// Passes on the signal of the combo box. Only a MultiEditEnumBox emits it.
    void activated(int index);

private Q_SLOTS:
    void onEditingFinished();

protected Q_SLOTS:
    /// The user chose an item. Emits valueChanged().
    virtual void onItemActivated(const QString& text);

public Q_SLOTS:
    /// Replaces the entries and selects the first. Emits nothing.
    /// @param pixmaps pictures of the entries, by index; may be shorter and hold null
    /// @param backgroundColors colours of the entries in the list, by index; may be shorter. Text
    ///                         on them is black or white, whichever can be read.
    void setValues(const NamedValueList& values, const PixmapPtrList& pixmaps = PixmapPtrList(),
                   const std::deque<QColor>& backgroundColors = std::deque<QColor>());
    /// Selects the first entry of a name; an unknown name does nothing.
    void selectByName(const QString& name);
    /// Selects the first entry of a value. In editable mode a value that is not in the list is
    /// shown as the validator formats it; otherwise it reports the assertion "found" and changes
    /// nothing.
    void selectByValue(const boost::any& value);
    /// The value of the selection. In editable mode the value of the entry that the text names, or
    /// what the validator makes of the text; empty if it refuses it. Empty without entries.
    boost::any getSelectedValue() const;
    /// The name of the first entry of a value. Without one, in editable mode the value as the
    /// validator formats it, otherwise empty.
    QString getNameForValue(const boost::any& value) const;
    /// The value of the first entry of a name; empty if there is none.
    boost::any getValueForName(const QString& name) const;
    /// Selects the next or the previous item and emits valueChanged(). Nothing happens at the ends.
    void next();
    void previous();
    /// Switches editable mode on or off.
    /// @param validator turns a typed text into a value and back. Each call replaces it, but a line
    ///        edit that is there already goes on colouring and normalising by the one it was made
    ///        with. Null refuses all text that is no name. The name of an entry is not normalised,
    ///        also where the validator would take it for a value.
    void setEditable(bool editable, IValidator::pointer validator = IValidator::pointer());
    /// Adds a widget behind the combo box; the box owns it from then on. Null reports the assertion
    /// "w".
    void addWidget(QWidget* w);
    /// The current width of the combo box in pixels.
    int getComboWidth() const;

protected:
    SimpleEnumBox(QWidget* parent, const QString& label,
                  bool (*const& eq)(const boost::any&, const boost::any&));

    /// A value was selected by name or value. Does nothing by itself.
    virtual void onSelected();

    ZEL_QT4_ComboBox& combo() const;
    /// Equality of values by the function of the constructor. Without one it reports the assertion
    /// "m_eq != 0" and no values are equal.
    bool anyEq(const boost::any& a, const boost::any& b) const;
    bool anyEqAvailable() const;

    /// Keeps the edit of editable mode with the box.
    void changeEvent(QEvent* e) override;

private:
    const NamedValueList::value_type* findEntry(const QString& name) const;
    bool isEditable() const;
    QString editedText() const;
    void deleteEdit();

    NamedValueList m_values;
    ZEL_QT4_ComboBox* m_combo = nullptr;
    /// Guarded, since it is a child of the parent of the box.
    QPointer<MultiEditLineEdit> m_edit;
    ZEL_QT_Label* m_label = nullptr;
    QHBoxLayout* m_layout = nullptr;
    bool (*m_eq)(const boost::any&, const boost::any&);
    IValidator::pointer m_validator;
    QColor m_backgroundColor;
};

/// An enum box for the value of several objects. While they differ it shows the varies item of the
/// combo box, which stays in the list for the user to come back to until the next reset().
class ZEL_QT_EXPORT MultiEditEnumBox : public SimpleEnumBox, public MultiEditControlBase
{
    Q_OBJECT
public:
    /// Makes a box that the parent owns; the parent may be null. A null `eq` reports the assertions
    /// "eqFn" and "anyEqAvailable()". For the arguments see SimpleEnumBox::create().
    static MultiEditEnumBox* create(QWidget* parent, const QString& label,
                                    bool (*const& eq)(const boost::any&, const boost::any&));
    ~MultiEditEnumBox() override;

    /// Takes the varies item out. Emits nothing.
    void reset() override;
    /// The first value is selected as by selectByValue(), which emits valueChanged() if it is
    /// found. A later one that differs makes the box vary and emits nothing.
    void readValue(const boost::any& value) override;
    bool dataVaries() const override;
    /// Empty while the values vary, otherwise getSelectedValue().
    boost::any getCurrentValue() const override;
    /// selectByValue(); emits valueChanged() once if that selects or shows the value.
    void setValue(const boost::any& value) override;
    /// Shows the varies item. Emits nothing.
    void forceVaries() override;

protected Q_SLOTS:
    void onItemActivated(const QString& text) override;

private Q_SLOTS:
    void onLineEditTextChanged();

protected:
    MultiEditEnumBox(QWidget* parent, const QString& label,
                     bool (*const& eq)(const boost::any&, const boost::any&));

    /// Leaves the varying state and emits valueChanged().
    void onSelected() override;

private:
    void setVarying(bool varies);

    bool m_dataVaries = false;
    bool m_firstRead = true;
};

} // namespace zel::qt
