#include "platform/widgets.h"

#include <QCoreApplication>
#include <QLocale>
#include <QTranslator>

#include <memory>

namespace {

void setNameOf(QObject& object, const char* name)
{
    if (name != nullptr) {
        object.setObjectName(QString::fromUtf8(name));
    }
}

QStringList& translationNames()
{
    static QStringList names;
    return names;
}

/// Runs once the application object exists; the translators live as long as it does.
void loadTranslations()
{
    for (const QString& name : qAsConst(translationNames())) {
        auto translator = std::make_unique<QTranslator>(QCoreApplication::instance());
        if (translator->load(QLocale(), name, QStringLiteral("_"),
                             QStringLiteral(":/zel/translations"))) {
            QCoreApplication::installTranslator(translator.release());
        }
    }
}

} // namespace

ZEL_QT_Label::ZEL_QT_Label(Qt::TextFormat format, const QString& text, QWidget* parent,
                           const char* name, QFlags<Qt::WindowType> flags)
    : QLabel(parent, flags)
{
    setTextFormat(format);
    setText(text);
    setNameOf(*this, name);
}

ZEL_QT_PushButton::ZEL_QT_PushButton(QWidget* parent, const char* name)
    : QPushButton(parent)
{
    setNameOf(*this, name);
}

ZEL_QT_PushButton::ZEL_QT_PushButton(const QString& text, QWidget* parent, const char* name)
    : QPushButton(text, parent)
{
    setNameOf(*this, name);
}

ZEL_QT_PushButton::ZEL_QT_PushButton(const QIcon& icon, const QString& text, QWidget* parent,
                                     const char* name)
    : QPushButton(icon, text, parent)
{
    setNameOf(*this, name);
}

ZEL_QT_HBoxLayout::ZEL_QT_HBoxLayout(QWidget* parent)
    : QHBoxLayout(parent)
{}

ZEL_QT_VBoxLayout::ZEL_QT_VBoxLayout(QWidget* parent)
    : QVBoxLayout(parent)
{}

ZEL_QT_SignalBlocker::ZEL_QT_SignalBlocker(QObject* object)
    : m_object(object)
    , m_wasBlocked(object != nullptr && object->blockSignals(true))
{}

ZEL_QT_SignalBlocker::~ZEL_QT_SignalBlocker()
{
    if (m_object) {
        m_object->blockSignals(m_wasBlocked);
    }
}

ZEL_QT_InitTranslator::ZEL_QT_InitTranslator(const char* name)
{
    if (translationNames().isEmpty()) {
        qAddPreRoutine(loadTranslations);
    }
    translationNames().append(QString::fromUtf8(name));
}

bool zel_connect(const QObject* sender, const char* signal, const QObject* receiver,
                 const char* slot, Qt::ConnectionType type)
{
    return QObject::connect(sender, signal, receiver, slot, type);
}

ZEL_QT4_ComboBox::ZEL_QT4_ComboBox(QWidget* parent, const char* name)
    : QComboBox(parent)
{
    setNameOf(*this, name);
}
