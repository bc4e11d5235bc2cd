#pragma once

#include "platform/export.h"
#include "platform/widgets.h"
#include "qt/inc/controls/expand_direction.h"
#include "qt/inc/detail/line_edit_impl.h"
#include "qt/inc/validators/i_validator.h"
#include "qt/inc/value_history.h"

#include <QBoxLayout>
#include <QColor>
#include <QPixmap>
#include <QWidget>

#include <boost/any.hpp>
#include <boost/function.hpp>
#include <boost/shared_ptr.hpp>

class QToolButton;

namespace zel::qt {

/// Text entry for one typed value: an optional caption, the edit, an optional unit in square
/// brackets and an optional "..." button.
///
/// While the user types, the text is validated and a bad one turns red. At the end of editing (on
/// Return, on Enter and on every loss of focus) a good text is normalised and valueChanged() goes
/// out. A bad text stays as it was typed.
///
/// A validator is needed by everything but typing. Without one every typed text counts as valid,
/// and the end of editing only emits valueChanged(). An exception that a validator throws passes
/// through.
///
/// Style flags: bit 0 asks for a borderless white edit; the other bits have no meaning.
class ZEL_QT_EXPORT SimpleLineEdit : public QWidget
{
    Q_OBJECT
public:
    /// Makes a line edit that the parent owns.
    /// @param label     the caption; empty for none
    /// @param validator owned by the line edit from now on
    /// @param flags     style flags
    /// @param direction whether the parts stand side by side or below one another
    static SimpleLineEdit* create(QWidget* parent, const QString& label, IValidator* validator,
                                  unsigned int flags, ExpandDirection direction);
    /// The same with a validator that is shared with the caller.
    static SimpleLineEdit* create(QWidget* parent, const QString& label,
                                  boost::shared_ptr<IValidator> validator, unsigned int flags,
                                  ExpandDirection direction);
    /// The same with a "..." button that calls `onClicked`; an empty function gives no button.
    static SimpleLineEdit* create(QWidget* parent, const QString& label,
                                  boost::shared_ptr<IValidator> validator,
                                  boost::function<void()> onClicked, unsigned int flags,
                                  ExpandDirection direction);
    ~SimpleLineEdit() override;

    /// Shows a value and validates its text, which isValueValid() then tells of. Emits nothing and
    /// leaves the colour of the text and the hint of the last editing alone.
    void setValue(const boost::any& value);
    /// The value of the present text; empty where the text stands for no value. Ask isValueValid()
    /// first: a text that is not valid reports the assertion "ok".
    boost::any getValue() const;
    /// The result of the last validation, by setValue() or by editing; false until there was one.
    bool isValueValid() const;

    /// The edit itself, owned by this widget.
    QLineEdit& edit();

    /// Shares the history that the popup below the edit offers; null for none.
    void setValueHistory(boost::shared_ptr<ValueHistory> history);
    boost::shared_ptr<ValueHistory> valueHistory() const;
    /// Records the present text in the history, valid or not. An empty text and the text of
    /// varying values are left out. For the host to call when it takes the value over.
    void addCurrentValueToValueHistory();

    /// Shows a unit in brackets behind the edit; an empty text hides it.
    void setUnitString(const QString& unit);
    /// Has no effect on the size, whatever the factor. Kept for callers that set it.
    void setMinimumWidthFactor(double factor);
    /// Puts a button inside the edit; see detail::LineEditImpl::addButton().
    QToolButton* addButton(const boost::function<QString(const QString&)>& fn,
                           const QPixmap& pixmap);

    // The operations of the edit. The validator does not learn of the length.
    void setEditMaximumWidth(int width);
    void setMaxLength(int length);
    void setReadOnly(bool readOnly);
    void setAlignment(QFlags<Qt::AlignmentFlag> alignment);
    void selectAll();

    /// Watches the edit for the loss of focus.
    bool eventFilter(QObject* watched, QEvent* e) override;

Q_SIGNALS:
    /// Editing ended. The value need be neither valid nor new: ask isValueValid(), then getValue().
    void valueChanged();

public Q_SLOTS:
    /// The end of editing.
    void onEditingFinished();
    /// The user changed the text.
    void onTextEdited(const QString& text);

protected:
    /// `validator` may be null, `onClicked` empty; see create().
    SimpleLineEdit(QWidget* parent, const QString& label, boost::shared_ptr<IValidator> validator,
                   boost::function<void()> onClicked, unsigned int flags,
                   ExpandDirection direction);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    void paintEvent(QPaintEvent* e) override;
    void focusInEvent(QFocusEvent* e) override;
    void focusOutEvent(QFocusEvent* e) override;

    const QLineEdit& edit() const;

    /// The validator. Without one, the assertion "m_validator" is reported and the result refuses
    /// every text and formats every value as an empty text.
    IValidator& validator();

    /// The value of the present text, as at the end of editing. False, with a value that must not
    /// be used, if the text is refused or there is no validator.
    bool readText(boost::any& value) const;

    /// The value whose text replaces a text that does not validate, from that keystroke on; empty,
    /// the default, keeps the user's text.
    void setFallbackValue(const boost::any& value);

private Q_SLOTS:
    void onClickedButton();

private:
    /// Whether a text is exempt from validation and from the end of editing.
    virtual bool vetoValidation(const QString& text);
    /// A text of the user was validated; `value` may be empty.
    virtual void onValidated(const QString& text, const boost::any& value);

    void showColor(const QString& color);
    void showHint(const QString& hint);
    template <class Hint>
    QSize sizeFrom(Hint hint) const;

    detail::LineEditImpl* m_edit;
    QColor m_color;
    bool m_valueValid = false;
    boost::shared_ptr<IValidator> m_validator;
    QBoxLayout* m_layout;
    ZEL_QT_Label* m_unitString = nullptr;
    ZEL_QT_Label* m_label = nullptr;
    ZEL_QT_PushButton* m_button = nullptr;
    boost::function<void()> m_onClicked;
    boost::shared_ptr<ValueHistory> m_valueHistory;
    bool m_minimumWidthFactor = true;
    boost::any m_fallbackValue;
};

} // namespace zel::qt
