#pragma once

#include "platform/export.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QMetaObject>
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

class ZEL_QT_EXPORT ZEL_QT_HBoxLayout : public QHBoxLayout
{
    Q_OBJECT
public:
    explicit ZEL_QT_HBoxLayout(QWidget* parent = nullptr);
};

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

/// A combo box that can show, beside its entries, one more item that says that the values of
/// several objects differ. That varies item stands behind the entries, shows getVariesString()'s
/// text, and never counts as an entry: entries keep their indexes while it is there, and
/// count() and the ids of entries go from 0 to the number of entries less 1.
class ZEL_QT_EXPORT ZEL_QT4_ComboBox : public QComboBox
{
    Q_OBJECT
public:
    explicit ZEL_QT4_ComboBox(QWidget* parent = nullptr, const char* name = nullptr);
};
