#pragma once

#include "platform/export.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QMetaObject>
#include <QPersistentModelIndex>
#include <QPointer>
#include <QPushButton>
#include <QVBoxLayout>

/// A label whose text format is fixed when it is made, so that a caption with "<" stays a caption.
class ZEL_QT_EXPORT ZEL_QT_Label : public QLabel
{
    Q_OBJECT
public:
    ZEL_QT_Label(Qt::TextFormat format, const QString& text, QWidget* parent = nullptr,
                 const char* name = nullptr, QFlags<Qt::WindowType> flags = {});
};

/// A push button with an object name.
class ZEL_QT_EXPORT ZEL_QT_PushButton : public QPushButton
{
    Q_OBJECT
public:
    explicit ZEL_QT_PushButton(QWidget* parent = nullptr, const char* name = nullptr);
    ZEL_QT_PushButton(const QString& text, QWidget* parent, const char* name = nullptr);
    ZEL_QT_PushButton(const QIcon& icon, const QString& text, QWidget* parent,
                      const char* name = nullptr);
};

/// A row. It becomes the layout of its parent; without one the caller puts it into another layout.
class ZEL_QT_EXPORT ZEL_QT_HBoxLayout : public QHBoxLayout
{
    Q_OBJECT
public:
    explicit ZEL_QT_HBoxLayout(QWidget* parent = nullptr);
};

/// A column; the parent is what it is for a row.
class ZEL_QT_EXPORT ZEL_QT_VBoxLayout : public QVBoxLayout
{
    Q_OBJECT
public:
    explicit ZEL_QT_VBoxLayout(QWidget* parent = nullptr);
};

/// Blocks the signals of an object for its own lifetime and then restores the state that it found.
/// The object may be null and may die first.
class ZEL_QT_EXPORT ZEL_QT_SignalBlocker
{
public:
    explicit ZEL_QT_SignalBlocker(QObject* object);
    ~ZEL_QT_SignalBlocker();
    ZEL_QT_SignalBlocker(const ZEL_QT_SignalBlocker&) = delete;
    ZEL_QT_SignalBlocker& operator=(const ZEL_QT_SignalBlocker&) = delete;

private:
    QPointer<QObject> m_object;
    bool m_wasBlocked;
};

/// A static object of this class registers the translations of a library under their name
/// ("zel_qt2_dll"). They are loaded for the application's locale as soon as the application object
/// exists, from the Qt resource folder ":/zel/translations".
class ZEL_QT_EXPORT ZEL_QT_InitTranslator
{
public:
    explicit ZEL_QT_InitTranslator(const char* name);
};

/// QObject::connect in its string form: "2" before a signal, "1" before a slot. False if it fails.
ZEL_QT_EXPORT bool zel_connect(const QObject* sender, const char* signal, const QObject* receiver,
                               const char* slot, Qt::ConnectionType type = Qt::AutoConnection);

/// A combo box that can show, behind its entries, one more item that says that the values of
/// several objects differ. Entries keep their indexes while this varies item is shown.
///
/// The varies item is a row of the model: it stands in the drop-down list, count() includes it, and
/// the user can choose it like an entry. isVarious() and getCurrentId() tell it from the entries.
/// clear() takes it out with all others.
class ZEL_QT_EXPORT ZEL_QT4_ComboBox : public QComboBox
{
    Q_OBJECT
public:
    /// Makes its list view at once, so that whoever walks the children finds it.
    explicit ZEL_QT4_ComboBox(QWidget* parent = nullptr, const char* name = nullptr);

    /// The text of the varies item, in the application's language.
    static QString getVariousText();

    /// Whether the entries stand in alphabetical order. True sorts those that there are and has a
    /// text that the user adds inserted among them; false, the default, has it added at the end.
    void setSorting(bool sorting);
    /// With true the size hint is as wide as the widest text of the moment, the varies item's
    /// included, where the size adjust policy goes by the contents. QComboBox by itself measures
    /// the contents only once. False by default.
    void setWidthTextEnabled(bool enabled);

    /// Adds the varies item if it is not shown, and puts it behind all others if it is.
    /// @param select makes it current as well; otherwise the current item stays
    void addVarious(bool select);
    /// Takes the varies item out. If it is current, the item that was current before it was
    /// selected becomes so again. A text that the user typed in its place stays.
    void removeVarious();
    /// Whether the item at an index is the varies item.
    bool isVarious(int index) const;

    /// The id of an entry is its index. In editable mode the text shown decides: this is the id of
    /// the item with that text, -1 if there is none. Without a current item it is -1.
    int getCurrentId() const;
    /// What getCurrentId() gives for the varies item; never the id of an entry.
    int getVariousId() const;

    QSize sizeHint() const override;

private:
    QModelIndex modelIndex(int row) const;
    QString shownText() const;

    QPersistentModelIndex m_various;
    QPersistentModelIndex m_beforeVarious;
    bool m_widthTextEnabled = false;
};
