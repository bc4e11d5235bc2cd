#pragma once

#include "platform/export.h"

#include <QLineEdit>
#include <QPixmap>

#include <boost/function.hpp>

class QToolButton;

namespace zel::qt::detail {

class EditHintPopup;
class HistoryPopup;

/// The edit inside the library's line edits: a QLineEdit with two popups below it, for the edit
/// hint and for the remembered values, and with room for one small button inside its frame.
/// Keys are handled as in QLineEdit.
class ZEL_QT_EXPORT LineEditImpl : public QLineEdit
{
    Q_OBJECT
public:
    /// @param flags style flags; bit 0 says that the edit is shown without a frame
    LineEditImpl(QWidget* parent, unsigned int flags);
    ~LineEditImpl() override;

    /// Puts a button at the right end of the edit. A click calls `fn` with the present text and
    /// replaces the text by the result, selected as a whole, if it differs; the end of editing
    /// does not follow by itself.
    /// @param pixmap the icon; a null pixmap gives the built-in folder
    /// @return the button, owned by the edit. Null, beside the assertion "fn" or "!m_btn1", if
    ///         `fn` is empty or there is a button already.
    QToolButton* addButton(const boost::function<QString(const QString&)>& fn,
                           const QPixmap& pixmap);

    /// The two popups, owned by the edit.
    EditHintPopup& editHintPopup() const;
    HistoryPopup& historyPopup() const;

    /// Installs an event filter that runs behind those of the popups and directly before the edit
    /// itself, whichever filters others install later.
    void installLastEventFilter(QObject* filter);

public Q_SLOTS:
    /// Takes a text over from the history: it becomes the text, and the editing is finished.
    /// An empty text does nothing.
    void onHistoryItemSelectionChanged(const QString& text);
    /// The inner button was clicked.
    void onClicked1();

protected:
    void resizeEvent(QResizeEvent* e) override;

private:
    HistoryPopup* m_historyPopup;
    EditHintPopup* m_editHintPopup;
    [[maybe_unused]] int m_reserved = 0;
    unsigned int m_flags;
    QToolButton* m_btn1 = nullptr;
    boost::function<QString(const QString&)> m_btnFn;
};

} // namespace zel::qt::detail
