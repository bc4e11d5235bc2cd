#include "platform/widgets.h"

#include <QAbstractItemView>
#include <QCoreApplication>
#include <QLineEdit>
#include <QLocale>
#include <QSignalBlocker>
#include <QStyleOptionComboBox>
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

/// Loads the first of the locale's languages that there is a translation for. The texts in the code
/// are English, so there is no looking further behind English. The translator lives as long as the
/// application object.
void loadTranslation(const QString& name)
{
    auto translator = std::make_unique<QTranslator>(QCoreApplication::instance());
    const QStringList languages = QLocale().uiLanguages();
    for (QString language : languages) {
        if (language.section(QLatin1Char('-'), 0, 0) == QLatin1String("en")) {
            return;
        }
        language.replace(QLatin1Char('-'), QLatin1Char('_'));
        // Shortens "de_AT" to "de" by itself.
        if (translator->load(name + QLatin1Char('_') + language,
                             QStringLiteral(":/zel/translations"))) {
            QCoreApplication::installTranslator(translator.release());
            return;
        }
    }
}

/// Runs for each application object that is made.
void loadTranslations()
{
    for (const QString& name : qAsConst(translationNames())) {
        loadTranslation(name);
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
    if (QCoreApplication::instance() != nullptr) {
        loadTranslation(translationNames().last()); // the library came late, as a plug-in does
    }
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
    view();
}

QString ZEL_QT4_ComboBox::getVariousText()
{
    return QObject::tr("*VARIES*");
}

void ZEL_QT4_ComboBox::setSorting(bool sorting)
{
    setInsertPolicy(sorting ? InsertAlphabetically : InsertAtBottom);
    if (sorting) {
        model()->sort(modelColumn());
        if (m_various.isValid()) {
            addVarious(false);
        }
    }
}

void ZEL_QT4_ComboBox::setWidthTextEnabled(bool enabled)
{
    m_widthTextEnabled = enabled;
    updateGeometry();
}

void ZEL_QT4_ComboBox::addVarious(bool select)
{
    const bool isLast = m_various.isValid() && m_various.row() == count() - 1;
    if (!isLast) {
        const bool wasCurrent = m_various.isValid() && currentIndex() == m_various.row();
        const QPersistentModelIndex current = modelIndex(currentIndex());
        const QString text = shownText();
        {
            // The current item stays, so there is no change of it to tell of; Qt would pick
            // another one for a moment, or the varies item for good if it is the first item.
            const QSignalBlocker quiet(this);
            const QSignalBlocker quietEdit(lineEdit());
            if (m_various.isValid()) {
                removeItem(m_various.row());
            }
            insertItem(count(), getVariousText());
            m_various = modelIndex(count() - 1);
            QFont font = this->font();
            font.setItalic(true);
            setItemData(m_various.row(), font, Qt::FontRole);
            setCurrentIndex(wasCurrent ? m_various.row() : current.row());
            if (isEditable() && lineEdit()->text() != text) {
                lineEdit()->setText(text);
            }
        }
        updateGeometry();
    }
    if (select) {
        if (currentIndex() != m_various.row()) {
            m_beforeVarious = modelIndex(currentIndex());
        }
        setCurrentIndex(m_various.row());
    }
}

void ZEL_QT4_ComboBox::removeVarious()
{
    if (!m_various.isValid()) {
        return;
    }
    const int row = m_various.row();
    if (currentIndex() == row) {
        if (isEditable() && shownText() != itemText(row)) {
            const QString typed = shownText();
            const QSignalBlocker quiet(lineEdit());
            setCurrentIndex(m_beforeVarious.row());
            lineEdit()->setText(typed);
        } else {
            setCurrentIndex(m_beforeVarious.row());
        }
    }
    removeItem(row);
    updateGeometry();
}

bool ZEL_QT4_ComboBox::isVarious(int index) const
{
    return m_various.isValid() && index == m_various.row();
}

int ZEL_QT4_ComboBox::getCurrentId() const
{
    int index = currentIndex();
    if (isEditable() && shownText() != itemText(index)) {
        index = findText(shownText(), Qt::MatchExactly | Qt::MatchCaseSensitive);
    }
    return isVarious(index) ? getVariousId() : index;
}

int ZEL_QT4_ComboBox::getVariousId() const
{
    return -2;
}

QSize ZEL_QT4_ComboBox::sizeHint() const
{
    QSize hint = QComboBox::sizeHint();
    const bool byContents =
        sizeAdjustPolicy() == AdjustToContents || sizeAdjustPolicy() == AdjustToContentsOnFirstShow;
    if (!m_widthTextEnabled || !byContents || count() == 0) {
        return hint;
    }
    const QFontMetrics metrics = fontMetrics();
    int widest = minimumContentsLength() * metrics.horizontalAdvance(QLatin1Char('X'));
    bool hasIcon = false;
    for (int i = 0; i < count(); ++i) {
        widest = qMax(widest, metrics.boundingRect(itemText(i)).width());
        widest = qMax(widest, metrics.horizontalAdvance(itemText(i)));
        hasIcon = hasIcon || !itemIcon(i).isNull();
    }
    if (hasIcon) {
        const int gap = 4;
        widest += iconSize().width() + gap;
    }
    QStyleOptionComboBox option;
    initStyleOption(&option);
    const QSize contents(widest, metrics.height());
    hint.setWidth(style()->sizeFromContents(QStyle::CT_ComboBox, &option, contents, this).width());
    return hint;
}

QModelIndex ZEL_QT4_ComboBox::modelIndex(int row) const
{
    return model()->index(row, modelColumn(), rootModelIndex());
}

QString ZEL_QT4_ComboBox::shownText() const
{
    return isEditable() ? lineEdit()->text() : currentText();
}
