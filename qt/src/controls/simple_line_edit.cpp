#include "qt/inc/controls/simple_line_edit.h"

#include "platform/smart_assert.h"
#include "qt/inc/controls/varies_string.h"
#include "qt/inc/detail/popups.h"
#include "qt/inc/validators/forward_validator.h"
#include "qt/src/controls/accessible_description.h"
#include "qt/src/controls/fixed_colors.h"

#include <QApplication>
#include <QFocusEvent>
#include <QPainter>
#include <QStyleOptionButton>

#include <algorithm>
#include <memory>
#include <utility>

namespace zel::qt {
namespace {

constexpr unsigned int borderlessFlag = 1;
constexpr int buttonSide = 20;

/// Stands in for a missing validator: a host that ignores the report of the assertion gets a
/// refusal and not a crash.
IValidator& refusingValidator()
{
    static ForwardValidator validator;
    return validator;
}

/// Whether a loss of focus only means that the edit opened a popup of its own, its context menu
/// say, and will get the focus back.
bool isFocusLentToPopup(const QWidget& edit, const QFocusEvent& e)
{
    const QWidget* const popup = QApplication::activePopupWidget();
    return e.reason() == Qt::PopupFocusReason && popup != nullptr && popup->parentWidget() == &edit;
}

} // namespace

SimpleLineEdit::SimpleLineEdit(QWidget* parent, const QString& label,
                               boost::shared_ptr<IValidator> validator,
                               boost::function<void()> onClicked, unsigned int flags,
                               ExpandDirection direction)
    : QWidget(parent)
    , m_edit(nullptr)
    , m_validator(std::move(validator))
    , m_layout(nullptr)
    , m_onClicked(std::move(onClicked))
{
    if (direction == ExpandRight) {
        m_layout = new QHBoxLayout(this);
    } else {
        m_layout = new QVBoxLayout(this);
    }
    m_layout->setContentsMargins(2, 2, 2, 2);
    if (!label.isEmpty()) {
        m_label = new ZEL_QT_Label(Qt::PlainText, label, this);
        m_layout->addWidget(m_label);
    }
    const bool borderless = (flags & borderlessFlag) != 0;
    if (borderless) {
        // Before there is an edit: a sheet that comes later restyles every part of its popups too.
        setStyleSheet(QStringLiteral("* { background-color:white; }"));
    }
    m_edit = new detail::LineEditImpl(this, flags);
    m_edit->setAccessibleName(label);
    setFocusProxy(m_edit);
    if (borderless) {
        m_edit->setStyleSheet(QStringLiteral("QLineEdit { border:0; background-color:white; }"));
    }
    m_layout->addWidget(m_edit);
    m_edit->installLastEventFilter(this);
    connect(m_edit, SIGNAL(editingFinished()), this, SLOT(onEditingFinished()));
    connect(m_edit, SIGNAL(textEdited(QString)), this, SLOT(onTextEdited(QString)));

    m_unitString = new ZEL_QT_Label(Qt::PlainText, QString(), this);
    m_layout->addWidget(m_unitString);
    m_unitString->hide();
    if (m_onClicked) {
        m_button = new ZEL_QT_PushButton(QStringLiteral("..."), this);
        m_button->setFixedSize(buttonSide, buttonSide);
        connect(m_button, SIGNAL(clicked()), this, SLOT(onClickedButton()));
        m_layout->addWidget(m_button);
    }
    if (borderless) {
        const QList<QWidget*> parts = findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
        for (QWidget* part : parts) {
            detail::writeInBlack(*part);
        }
    }
}

SimpleLineEdit::~SimpleLineEdit() = default;

SimpleLineEdit* SimpleLineEdit::create(QWidget* parent, const QString& label, IValidator* validator,
                                       unsigned int flags, ExpandDirection direction)
{
    return create(parent, label, boost::shared_ptr<IValidator>(validator), flags, direction);
}

SimpleLineEdit* SimpleLineEdit::create(QWidget* parent, const QString& label,
                                       boost::shared_ptr<IValidator> validator, unsigned int flags,
                                       ExpandDirection direction)
{
    return create(parent, label, std::move(validator), {}, flags, direction);
}

SimpleLineEdit* SimpleLineEdit::create(QWidget* parent, const QString& label,
                                       boost::shared_ptr<IValidator> validator,
                                       boost::function<void()> onClicked, unsigned int flags,
                                       ExpandDirection direction)
{
    return new SimpleLineEdit(parent, label, std::move(validator), std::move(onClicked), flags,
                              direction);
}

void SimpleLineEdit::setValue(const boost::any& value)
{
    m_edit->setText(validator().reformat(value, {}));
    boost::any dropped;
    m_valueValid = validator().validate(m_edit->text(), dropped, {});
    detail::describeText(*m_edit, m_valueValid, QString());
}

boost::any SimpleLineEdit::getValue() const
{
    boost::any value;
    const bool ok = readText(value);
    ZEL_SMART_ASSERT(ok, "ok").message("getValue() failed to validate");
    return value;
}

bool SimpleLineEdit::readText(boost::any& value) const
{
    return m_validator && m_validator->validateWhenFinished(m_edit->text(), value, {});
}

bool SimpleLineEdit::isValueValid() const
{
    return m_valueValid;
}

QLineEdit& SimpleLineEdit::edit()
{
    ZEL_SMART_ASSERT(m_edit != nullptr, "m_edit");
    return *m_edit;
}

const QLineEdit& SimpleLineEdit::edit() const
{
    ZEL_SMART_ASSERT(m_edit != nullptr, "m_edit");
    return *m_edit;
}

IValidator& SimpleLineEdit::validator()
{
    ZEL_SMART_ASSERT(m_validator != nullptr, "m_validator");
    return m_validator ? *m_validator : refusingValidator();
}

void SimpleLineEdit::setFallbackValue(const boost::any& value)
{
    m_fallbackValue = value;
}

void SimpleLineEdit::setValueHistory(boost::shared_ptr<ValueHistory> history)
{
    m_valueHistory = history;
    m_edit->historyPopup().setValueHistory(std::move(history));
}

boost::shared_ptr<ValueHistory> SimpleLineEdit::valueHistory() const
{
    return m_valueHistory;
}

void SimpleLineEdit::addCurrentValueToValueHistory()
{
    ZEL_SMART_ASSERT(m_validator != nullptr, "m_validator");
    if (!m_valueHistory) {
        return;
    }
    const QString text = m_edit->text();
    if (!text.isEmpty() && text != getVariesString()) {
        m_valueHistory->add(text.toStdWString());
    }
}

void SimpleLineEdit::setUnitString(const QString& unit)
{
    ZEL_SMART_ASSERT(m_unitString != nullptr, "m_unitString");
    if (unit.isEmpty()) {
        // The text stays, and with it the width that the size hints count: fields of one form
        // keep their place when a unit goes.
        m_unitString->hide();
        return;
    }
    m_unitString->show();
    m_unitString->setText(QLatin1Char('[') + unit + QLatin1Char(']'));
}

void SimpleLineEdit::setMinimumWidthFactor(double factor)
{
    // Deliberately kept as a bool, so that no factor changes the size: existing forms are laid out
    // for the hints as they are.
    m_minimumWidthFactor = std::clamp(factor, 0.01, 100.0) != 0.0;
}

QToolButton* SimpleLineEdit::addButton(const boost::function<QString(const QString&)>& fn,
                                       const QPixmap& pixmap)
{
    return m_edit->addButton(fn, pixmap);
}

void SimpleLineEdit::setEditMaximumWidth(int width)
{
    m_edit->setMaximumWidth(width);
}

void SimpleLineEdit::setMaxLength(int length)
{
    m_edit->setMaxLength(length);
}

void SimpleLineEdit::setReadOnly(bool readOnly)
{
    m_edit->setReadOnly(readOnly);
}

void SimpleLineEdit::setAlignment(QFlags<Qt::AlignmentFlag> alignment)
{
    m_edit->setAlignment(alignment);
}

void SimpleLineEdit::selectAll()
{
    m_edit->selectAll();
}

bool SimpleLineEdit::eventFilter(QObject* watched, QEvent* e)
{
    if (watched != m_edit || e->type() != QEvent::FocusOut) {
        return QWidget::eventFilter(watched, e);
    }
    // Leaving a field finishes its editing, also when nothing was edited; QLineEdit tells only of
    // the former case. So it handles the event first, here, since this filter is the last one.
    const bool lent = isFocusLentToPopup(*m_edit, *static_cast<QFocusEvent*>(e));
    const auto finished = std::make_shared<bool>(false);
    {
        const QObject scope; // ends the connection, also if a validator throws
        connect(m_edit, &QLineEdit::editingFinished, &scope, [finished] { *finished = true; });
        m_edit->event(e);
    }
    if (!*finished && !lent && m_edit->hasAcceptableInput()) {
        Q_EMIT m_edit->editingFinished();
    }
    return true;
}

void SimpleLineEdit::onEditingFinished()
{
    const QString text = m_edit->text();
    onTextEdited(text);
    if (vetoValidation(text)) {
        return;
    }
    if (m_validator) {
        boost::any value;
        m_valueValid = m_validator->validateWhenFinished(text, value, {});
        if (m_valueValid) {
            onValidated(text, value);
            m_edit->setText(m_validator->reformat(value, {}));
        }
    }
    Q_EMIT valueChanged();
}

void SimpleLineEdit::onTextEdited(const QString& text)
{
    if (!m_validator) {
        m_valueValid = true;
        return;
    }
    if (vetoValidation(text)) {
        return;
    }
    boost::any value;
    m_valueValid = m_validator->validate(text, value, {});
    if (m_valueValid) {
        onValidated(text, value);
        showColor(QStringLiteral("#000"));
    } else if (!m_fallbackValue.empty()) {
        m_edit->setText(m_validator->reformat(m_fallbackValue, {}));
    } else {
        showColor(QColor(230, 20, 20).name());
    }
    const QString hint = m_validator->getEditHint(text);
    showHint(hint);
    detail::describeText(*m_edit, m_valueValid, hint);
}

void SimpleLineEdit::showColor(const QString& color)
{
    // Replaces every other rule of the edit's sheet on purpose, the borderless look and the room
    // for the inner button included.
    const QString sheet = QStringLiteral("QLineEdit { color: %1; }").arg(color);
    // Setting a sheet polishes the edit and its children anew, which is too dear for a keystroke.
    if (m_edit->styleSheet() != sheet) {
        m_edit->setStyleSheet(sheet);
        // Behind the sheet, for a new one brings back the palette that the edit had before the
        // last.
        detail::writeOnWhite(*m_edit);
    }
}

void SimpleLineEdit::showHint(const QString& hint)
{
    detail::EditHintPopup& popup = m_edit->editHintPopup();
    popup.setHint(hint);
    if (hint.isEmpty()) {
        popup.hide();
    } else if (QApplication::focusWidget() == m_edit) {
        popup.show();
    }
}

bool SimpleLineEdit::vetoValidation(const QString&)
{
    return false;
}

void SimpleLineEdit::onValidated(const QString&, const boost::any&) {}

template <class Hint>
QSize SimpleLineEdit::sizeFrom(Hint hint) const
{
    QSize size = hint(*m_edit);
    double width = (m_minimumWidthFactor ? 1.0 : 0.0) * size.width() * 0.6;
    size.setWidth(static_cast<int>(width));
    if (m_unitString != nullptr && !m_unitString->text().isEmpty()) {
        size.rwidth() += hint(*m_unitString).width();
    }
    if (m_label != nullptr) {
        size.rwidth() += hint(*m_label).width();
    }
    size.rwidth() += 12;
    return size;
}

QSize SimpleLineEdit::sizeHint() const
{
    return sizeFrom([](const QWidget& part) { return part.sizeHint(); });
}

QSize SimpleLineEdit::minimumSizeHint() const
{
    return sizeFrom([](const QWidget& part) { return part.minimumSizeHint(); });
}

void SimpleLineEdit::paintEvent(QPaintEvent* e)
{
    QWidget::paintEvent(e);
    if (!m_onClicked) {
        return;
    }
    // The option has no rectangle on purpose: the visible button is m_button. Some styles draw a
    // dot even so, hence the clip.
    QStyleOptionButton option;
    option.text = QStringLiteral("...");
    QPainter painter(this);
    painter.setClipRect(option.rect);
    style()->drawControl(QStyle::CE_PushButton, &option, &painter, this);
    style()->drawControl(QStyle::CE_PushButtonLabel, &option, &painter, this);
}

void SimpleLineEdit::focusInEvent(QFocusEvent* e)
{
    QWidget::focusInEvent(e);
    m_edit->setFocus(Qt::OtherFocusReason);
}

void SimpleLineEdit::focusOutEvent(QFocusEvent* e)
{
    QWidget::focusOutEvent(e);
}

void SimpleLineEdit::onClickedButton()
{
    // A copy, since the host may delete this field: the function would go with it while it runs.
    const boost::function<void()> onClicked = m_onClicked;
    if (onClicked) {
        onClicked();
    }
}

} // namespace zel::qt
