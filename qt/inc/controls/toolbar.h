#pragma once

#include "platform/export.h"
#include "qt/inc/controls/expand_direction.h"

#include <QPointer>
#include <QString>
#include <QWidget>

#include <boost/function.hpp>

#include <map>
#include <string>

class QAbstractButton;
class QBoxLayout;
class QIcon;
class QPixmap;
class QPushButton;

namespace zel::qt {

/// A row or column of buttons, each with a function to run and a set of groups in which it is
/// enabled and disabled.
///
/// What the `addButton` forms have in common:
/// - `name` is the object name of the button and no key;
/// - `fn` runs at each click, an empty one does nothing. A std::exception that leaves it is shown
///   to the user in a warning box and ends there; anything else that is thrown passes through.
/// - `mask` has a bit for each group that the button belongs to; 0 keeps it out of all;
/// - the toolbar owns the button, which is deleted by clear() or with the toolbar; a host may
///   delete it earlier.
class ZEL_QT_EXPORT Toolbar : public QWidget
{
    Q_OBJECT
public:
    /// Grows to the right with ExpandRight, downwards otherwise, from the upper left corner.
    explicit Toolbar(QWidget* parent, ExpandDirection direction = ExpandRight);
    ~Toolbar() override;

    /// A square button with an icon and no text.
    QPushButton* addButton(const std::string& name, const QIcon& icon, const QString& toolTip,
                           boost::function<void()> fn, unsigned int mask);
    QPushButton* addButton(const std::string& name, const QPixmap& pixmap, const QString& toolTip,
                           boost::function<void()> fn, unsigned int mask);
    /// The same as addButton().
    QPushButton* addButtonWithIcon(const std::string& name, const QIcon& icon,
                                   const QString& toolTip, boost::function<void()> fn,
                                   unsigned int mask);
    QPushButton* addButtonWithIcon(const std::string& name, const QPixmap& pixmap,
                                   const QString& toolTip, boost::function<void()> fn,
                                   unsigned int mask);
    /// A button with icon and text; with an empty text as addButton().
    QPushButton* addButtonWithIconAndText(const std::string& name, const QIcon& icon,
                                          const QString& text, const QString& toolTip,
                                          boost::function<void()> fn, unsigned int mask);
    QPushButton* addButtonWithIconAndText(const std::string& name, const QPixmap& pixmap,
                                          const QString& text, const QString& toolTip,
                                          boost::function<void()> fn, unsigned int mask);
    /// A text button, square if the text has exactly one character.
    QPushButton* addButtonWithText(const std::string& name, const QString& text,
                                   const QString& toolTip, boost::function<void()> fn,
                                   unsigned int mask);

    /// Adds a text that clear() and setButtonsEnabled() leave alone.
    void addLabel(const QString& text, const QString& toolTip);
    /// Adds a widget that clear() and setButtonsEnabled() leave alone.
    void addWidget(QWidget* widget);
    /// Pixels of free space before the next button.
    void addSpacing(int size);
    /// Space that takes its share of what is free, by its factor, 0 or more, as in a QBoxLayout.
    void addStretch(int stretch);

    /// Enables or disables every button whose mask has a bit in common with `mask`.
    void setButtonsEnabled(bool enabled, unsigned int mask);
    /// Deletes all buttons. Labels, other widgets, spacings and stretches stay.
    void clear();

private Q_SLOTS:
    void onClicked();

private:
    struct ToolbarEntry
    {
        unsigned int mask;
        QPointer<QPushButton> button;
        boost::function<void()> fn;
    };

    QPushButton* enter(QPushButton* button, const QString& toolTip, boost::function<void()> fn,
                       unsigned int mask);

    QBoxLayout* m_layout;
    std::map<QAbstractButton*, ToolbarEntry> m_buttons;
};

} // namespace zel::qt
