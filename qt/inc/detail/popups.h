#pragma once

#include "platform/export.h"

#include <QPointer>
#include <QWidget>

#include <boost/shared_ptr.hpp>

#include <vector>

class QLabel;
class QListWidget;

namespace zel {
struct ValueHistory;
}

namespace zel::qt::detail {

/// A small window that floats below an edit while the edit has the focus. It is a child of the
/// edit, watches the edit's focus, and never takes the focus or the activation itself.
class ZEL_QT_EXPORT PopupBase : public QWidget
{
    Q_OBJECT
public:
    /// @param owner the edit; also the parent
    explicit PopupBase(QWidget* owner);
    ~PopupBase() override;

    /// Shows the popup when the edit gets the focus, with or without content, and hides it when
    /// the edit is hidden or loses the focus within its window. It stays when another window
    /// becomes the active one.
    bool eventFilter(QObject* watched, QEvent* e) override;

protected:
    /// Hides the popup when its window is deactivated.
    bool event(QEvent* e) override;
    void enterEvent(QEvent* e) override;
    void leaveEvent(QEvent* e) override;

private:
    void keepActivationAway();

    QWidget* m_owner;
    [[maybe_unused]] bool m_flag = false;
};

/// Shows the edit hint of a validator for the text of the edit.
class ZEL_QT_EXPORT EditHintPopup : public PopupBase
{
    Q_OBJECT
public:
    explicit EditHintPopup(QWidget* owner);
    ~EditHintPopup() override;

    /// Shows `hint` and takes the size that it needs; an empty hint makes the size 0 by 0. The
    /// popup is neither shown nor hidden by this.
    void setHint(const QString& hint);

    /// That of the label; 0 by 0 while there is no text.
    QSize sizeHint() const override;

private:
    QLabel* m_label;
};

/// Shows the remembered values of the edit and gives a clicked one back.
class ZEL_QT_EXPORT HistoryPopup : public PopupBase
{
    Q_OBJECT
public:
    explicit HistoryPopup(QWidget* owner);
    ~HistoryPopup() override;

    /// Replaces the history; null shows an empty list. The list is read at each show.
    void setValueHistory(boost::shared_ptr<ValueHistory> history);

    /// As high as all rows and as wide as the widest one needs; 0 by 0 without rows.
    QSize sizeHint() const override;

Q_SIGNALS:
    /// The user clicked an entry. The popup stays open.
    void history_selected(const QString& text);

protected:
    void showEvent(QShowEvent* e) override;

private:
    QListWidget* m_list;
    boost::shared_ptr<ValueHistory> m_valueHistory;
};

/// Keeps popups stacked below their edit. It does not look at the edges of the screen.
class ZEL_QT_EXPORT PopupGroup : public QObject
{
    Q_OBJECT
public:
    /// @param owner the edit; also the parent
    explicit PopupGroup(QWidget* owner);
    ~PopupGroup() override;

    /// Puts a popup below those that were added before. It is not owned and may die first.
    void addPopup(QWidget* popup);

    bool eventFilter(QObject* watched, QEvent* e) override;

private:
    void positionPopups();

    QWidget* m_owner;
    std::vector<QPointer<QWidget>> m_popups;
};

} // namespace zel::qt::detail
