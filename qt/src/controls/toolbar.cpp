#include "qt/inc/controls/toolbar.h"

#include "platform/widgets.h"
#include "qt/inc/controls/push_buttons.h"

#include <QLabel>
#include <QMessageBox>
#include <QPixmap>

#include <exception>
#include <utility>

namespace zel::qt {
namespace {

QBoxLayout* makeLayout(QWidget* widget, ExpandDirection direction)
{
    if (direction == ExpandRight) {
        return new ZEL_QT_HBoxLayout(widget);
    }
    return new ZEL_QT_VBoxLayout(widget);
}

} // namespace

Toolbar::Toolbar(QWidget* parent, ExpandDirection direction)
    : QWidget(parent)
    , m_layout(makeLayout(this, direction))
{
    m_layout->setContentsMargins(0, 0, 0, 0);
    m_layout->setSpacing(0);
    m_layout->setAlignment(Qt::AlignLeft | Qt::AlignTop);
}

Toolbar::~Toolbar() = default;

QPushButton* Toolbar::addButton(const std::string& name, const QIcon& icon, const QString& toolTip,
                                boost::function<void()> fn, unsigned int mask)
{
    return addButtonWithIcon(name, icon, toolTip, std::move(fn), mask);
}

QPushButton* Toolbar::addButton(const std::string& name, const QPixmap& pixmap,
                                const QString& toolTip, boost::function<void()> fn,
                                unsigned int mask)
{
    return addButtonWithIcon(name, pixmap, toolTip, std::move(fn), mask);
}

QPushButton* Toolbar::addButtonWithIcon(const std::string& name, const QIcon& icon,
                                        const QString& toolTip, boost::function<void()> fn,
                                        unsigned int mask)
{
    return enter(createPushButtonWithIcon(this, icon, name.c_str()), toolTip, std::move(fn), mask);
}

QPushButton* Toolbar::addButtonWithIcon(const std::string& name, const QPixmap& pixmap,
                                        const QString& toolTip, boost::function<void()> fn,
                                        unsigned int mask)
{
    return addButtonWithIcon(name, QIcon(pixmap), toolTip, std::move(fn), mask);
}

QPushButton* Toolbar::addButtonWithIconAndText(const std::string& name, const QIcon& icon,
                                               const QString& text, const QString& toolTip,
                                               boost::function<void()> fn, unsigned int mask)
{
    return enter(createPushButtonWithIconAndText(this, icon, text, name.c_str()), toolTip,
                 std::move(fn), mask);
}

QPushButton* Toolbar::addButtonWithIconAndText(const std::string& name, const QPixmap& pixmap,
                                               const QString& text, const QString& toolTip,
                                               boost::function<void()> fn, unsigned int mask)
{
    return addButtonWithIconAndText(name, QIcon(pixmap), text, toolTip, std::move(fn), mask);
}

QPushButton* Toolbar::addButtonWithText(const std::string& name, const QString& text,
                                        const QString& toolTip, boost::function<void()> fn,
                                        unsigned int mask)
{
    auto* button = new QPushButton(text, this);
    button->setObjectName(QString::fromStdString(name));
    button->setAutoDefault(false);
    const int height = button->sizeHint().height();
    button->setFixedHeight(height);
    if (text.toUcs4().size() == 1) {
        button->setFixedWidth(height);
    }
    return enter(button, toolTip, std::move(fn), mask);
}

void Toolbar::addLabel(const QString& text, const QString& toolTip)
{
    auto* label = new QLabel(text, this);
    label->setToolTip(toolTip);
    m_layout->addWidget(label);
}

void Toolbar::addWidget(QWidget* widget)
{
    m_layout->addWidget(widget);
}

void Toolbar::addSpacing(int size)
{
    m_layout->addSpacing(size);
}

void Toolbar::addStretch(int stretch)
{
    m_layout->addStretch(stretch);
}

void Toolbar::setButtonsEnabled(bool enabled, unsigned int mask)
{
    for (const auto& [key, entry] : m_buttons) {
        if ((entry.mask & mask) != 0 && entry.button) {
            entry.button->setEnabled(enabled);
        }
    }
}

void Toolbar::clear()
{
    for (const auto& [key, entry] : m_buttons) {
        delete entry.button.data();
    }
    m_buttons.clear();
}

void Toolbar::onClicked()
{
    const auto it = m_buttons.find(qobject_cast<QAbstractButton*>(sender()));
    if (it == m_buttons.end() || it->second.fn.empty()) {
        return;
    }
    // The action may clear the toolbar, or delete it, and with it the function that runs.
    const boost::function<void()> fn = it->second.fn;
    QPointer<QWidget> parent(this);
    try {
        fn();
    } catch (const std::exception& e) {
        QMessageBox::warning(
            parent, QStringLiteral("Zel: Exception"),
            QObject::tr("An exception occurred:\n%1").arg(QString::fromUtf8(e.what())),
            QMessageBox::Ok);
    }
}

QPushButton* Toolbar::enter(QPushButton* button, const QString& toolTip, boost::function<void()> fn,
                            unsigned int mask)
{
    m_buttons[button] = ToolbarEntry{mask, button, std::move(fn)};
    button->setToolTip(toolTip);
    if (button->text().isEmpty()) {
        button->setAccessibleName(toolTip);
    }
    m_layout->addWidget(button);
    connect(button, SIGNAL(clicked()), this, SLOT(onClicked()));
    return button;
}

} // namespace zel::qt
