#include "qt/inc/detail/popups.h"

#include "qt/inc/value_history.h"
#include "qt/src/controls/fixed_colors.h"

#include <QApplication>
#include <QFocusEvent>
#include <QLabel>
#include <QListWidget>
#include <QTimer>
#include <QVBoxLayout>
#include <QWindow>

#include <algorithm>
#include <deque>
#include <string>
#include <utility>

namespace zel::qt::detail {
namespace {

constexpr double restingOpacity = 0.7;
constexpr double hoveredOpacity = 0.9;
constexpr int gapBelowPopup = 5;

void addToPopup(QWidget& popup, QWidget* content)
{
    auto* layout = new QVBoxLayout(&popup);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSizeConstraint(QLayout::SetNoConstraint);
    content->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    layout->addWidget(content);
}

} // namespace

PopupBase::PopupBase(QWidget* owner)
    : QWidget(owner)
    , m_owner(owner)
{
    owner->installEventFilter(this);
    setWindowFlags(Qt::Tool | Qt::FramelessWindowHint);
    setStyleSheet(QStringLiteral("* {  border: 1px solid gray; background-color:white;}"));
    setContentsMargins(0, 0, 0, 0);
    setWindowOpacity(restingOpacity);
    setAttribute(Qt::WA_MouseTracking);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

PopupBase::~PopupBase() = default;

bool PopupBase::event(QEvent* e)
{
    if (e->type() == QEvent::WindowDeactivate) {
        hide();
    } else if (e->type() == QEvent::WinIdChange) {
        keepActivationAway();
    }
    return QWidget::event(e);
}

bool PopupBase::eventFilter(QObject* watched, QEvent* e)
{
    if (e->type() == QEvent::FocusIn) {
        show();
    } else if (e->type() == QEvent::Hide) {
        // The loss of focus that comes with it is one of the active window, which is no reason to
        // hide below: the popup would be left behind alone.
        hide();
    } else if (e->type() == QEvent::FocusOut) {
        QWidget* const focused = QApplication::focusWidget();
        if (static_cast<QFocusEvent*>(e)->reason() != Qt::ActiveWindowFocusReason &&
            focused != this) {
            hide();
            // Hiding a window may hand the focus back; it stays where the user put it.
            if (focused != nullptr) {
                focused->setFocus(Qt::OtherFocusReason);
            }
        }
    }
    return QObject::eventFilter(watched, e);
}

void PopupBase::keepActivationAway()
{
    QWindow* const window = windowHandle();
    if (window == nullptr) {
        return;
    }
    // A tool window is activated when it is clicked, by some window managers also when it is
    // mapped, and Qt::WA_ShowWithoutActivating does not help everywhere. The edit would then lose
    // the focus to its own popup: typing would go nowhere, and a commit would follow that the user
    // did not ask for. So the window says that it accepts no focus; to the widget it stays the
    // tool window that is stacked with the edit's window.
    window->setFlag(Qt::WindowDoesNotAcceptFocus);
    if (QGuiApplication::platformName() == QLatin1String("offscreen")) {
        // This platform activates all that is shown but tool tips.
        window->setFlags((window->flags() & ~Qt::WindowType_Mask) | Qt::ToolTip);
    }
}

void PopupBase::enterEvent(QEvent*)
{
    setWindowOpacity(hoveredOpacity);
}

void PopupBase::leaveEvent(QEvent*)
{
    setWindowOpacity(restingOpacity);
}

EditHintPopup::EditHintPopup(QWidget* owner)
    : PopupBase(owner)
    , m_label(new QLabel(this))
{
    addToPopup(*this, m_label);
    writeInBlack(*m_label);
}

EditHintPopup::~EditHintPopup() = default;

void EditHintPopup::setHint(const QString& hint)
{
    m_label->setText(hint);
    setFixedSize(sizeHint());
}

QSize EditHintPopup::sizeHint() const
{
    return m_label->text().isEmpty() ? QSize(0, 0) : m_label->sizeHint();
}

HistoryPopup::HistoryPopup(QWidget* owner)
    : PopupBase(owner)
    , m_list(new QListWidget(this))
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    // A click must not take the focus from the edit, see keepActivationAway().
    m_list->setFocusPolicy(Qt::NoFocus);
    writeInBlack(*m_list);
    m_list->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    addToPopup(*this, m_list);
    connect(m_list, &QListWidget::itemClicked, this, [this] {
        const QModelIndex index = m_list->model()->index(m_list->currentRow(), 0);
        Q_EMIT history_selected(index.data(Qt::DisplayRole).toString());
    });
}

HistoryPopup::~HistoryPopup() = default;

void HistoryPopup::setValueHistory(boost::shared_ptr<ValueHistory> history)
{
    m_valueHistory = std::move(history);
}

QSize HistoryPopup::sizeHint() const
{
    const int rows = m_list->model()->rowCount();
    if (rows < 1) {
        return {0, 0};
    }
    const int frames = 2 * m_list->frameWidth();
    int height = frames;
    for (int row = 0; row < rows; ++row) {
        height += m_list->sizeHintForRow(row);
    }
    return {std::max(m_list->sizeHintForColumn(0), 0) + frames + 20, height};
}

void HistoryPopup::showEvent(QShowEvent*)
{
    m_list->clear();
    if (m_valueHistory) {
        std::deque<std::wstring> values;
        m_valueHistory->get(values);
        for (const std::wstring& value : values) {
            m_list->insertItem(m_list->count(), QString::fromStdWString(value));
        }
    }
    const QSize size = sizeHint();
    // The list fills the popup. With its own hint as its largest size it would cut long entries,
    // and rows in a large font, where the popup has room for them.
    m_list->setFixedSize(size);
    setFixedSize(size);
}

PopupGroup::PopupGroup(QWidget* owner)
    : QObject(owner)
    , m_owner(owner)
{
    owner->installEventFilter(this);
}

PopupGroup::~PopupGroup() = default;

void PopupGroup::addPopup(QWidget* popup)
{
    popup->installEventFilter(this);
    m_popups.emplace_back(popup);
}

bool PopupGroup::eventFilter(QObject* watched, QEvent* e)
{
    if (watched == m_owner) {
        if (e->type() == QEvent::Move || e->type() == QEvent::Resize ||
            e->type() == QEvent::FocusIn) {
            positionPopups();
        }
    } else if (e->type() == QEvent::Show &&
               std::find(m_popups.begin(), m_popups.end(), watched) != m_popups.end()) {
        // A popup takes its size in its own show event, which comes after this filter.
        // The group may be gone by then.
        QTimer::singleShot(0, this, &PopupGroup::positionPopups);
    }
    return QObject::eventFilter(watched, e);
}

void PopupGroup::positionPopups()
{
    QPoint pos = m_owner->mapToGlobal(QPoint(0, m_owner->height()));
    for (const QPointer<QWidget>& popup : m_popups) {
        if (popup) {
            popup->move(pos);
            // A hidden popup keeps its place, so that the one below does not jump with each hint.
            pos.ry() += popup->height() + gapBelowPopup;
        }
    }
}

} // namespace zel::qt::detail
