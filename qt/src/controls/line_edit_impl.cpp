#include "qt/inc/detail/line_edit_impl.h"

#include "platform/smart_assert.h"
#include "qt/inc/detail/popups.h"
#include "qt/src/controls/folder_icon.h"

#include <QPointer>
#include <QStyle>
#include <QToolButton>

#include <algorithm>

namespace zel::qt::detail {
namespace {

constexpr unsigned int borderlessFlag = 1;
constexpr int givenIconSide = 12;
constexpr int borderlessMinimumHeight = 16;

} // namespace

LineEditImpl::LineEditImpl(QWidget* parent, unsigned int flags)
    : QLineEdit(parent)
    , m_historyPopup(new HistoryPopup(this))
    , m_editHintPopup(nullptr)
    , m_flags(flags)
{
    connect(m_historyPopup, &HistoryPopup::history_selected, this,
            &LineEditImpl::onHistoryItemSelectionChanged);
    m_editHintPopup = new EditHintPopup(this);
    auto* group = new PopupGroup(this);
    group->addPopup(m_editHintPopup);
    group->addPopup(m_historyPopup);
}

LineEditImpl::~LineEditImpl() = default;

QToolButton* LineEditImpl::addButton(const boost::function<QString(const QString&)>& fn,
                                     const QPixmap& pixmap)
{
    ZEL_SMART_ASSERT(!fn.empty(), "fn");
    if (fn.empty()) {
        return nullptr;
    }
    ZEL_SMART_ASSERT(m_btn1 == nullptr, "!m_btn1").message("only 1 button allowed, at the moment.");
    if (m_btn1 != nullptr) {
        return nullptr;
    }
    m_btnFn = fn;
    m_btn1 = new QToolButton(this);
    if (pixmap.isNull()) {
        const QPixmap folder = folderIcon();
        m_btn1->setIcon(folder);
        m_btn1->setIconSize(folder.size());
    } else {
        m_btn1->setIcon(pixmap);
        m_btn1->setIconSize(QSize(givenIconSide, givenIconSide));
    }
    // Keys that the button has no use for go to its parent: with the focus on the button the user
    // would type into the edit, whose editing then never ends.
    m_btn1->setFocusPolicy(Qt::NoFocus);
    m_btn1->setCursor(Qt::ArrowCursor);
    m_btn1->setStyleSheet(QStringLiteral("QToolButton { border: none; padding: 0; margin: 0; }"));
    m_btn1->setVisible(true);

    const bool borderless = (m_flags & borderlessFlag) != 0;
    const int frame = borderless ? 0 : style()->pixelMetric(QStyle::PM_DefaultFrameWidth);
    const QSize button = m_btn1->sizeHint();
    setStyleSheet(QStringLiteral("QLineEdit { padding-right: %1px; padding-top:-1; margin-top:-1; "
                                 "padding-bottom:0;  }")
                      .arg(button.width() + 1 + frame));
    const QSize minimum = minimumSizeHint();
    // Deliberately the height of the button in the width as well: the button is square.
    setMinimumSize(std::max(minimum.width(), button.height() + 2 + 2 * frame),
                   borderless ? borderlessMinimumHeight
                              : std::max(minimum.height(), button.height() + 2 * frame));
    connect(m_btn1, SIGNAL(clicked()), this, SLOT(onClicked1()));
    return m_btn1;
}

EditHintPopup& LineEditImpl::editHintPopup() const
{
    return *m_editHintPopup;
}

HistoryPopup& LineEditImpl::historyPopup() const
{
    return *m_historyPopup;
}

void LineEditImpl::installLastEventFilter(QObject* filter)
{
    // Of several filters the one that was installed last runs first.
    QObject& edit = *this;
    edit.installEventFilter(filter);
    edit.installEventFilter(m_historyPopup);
    edit.installEventFilter(m_editHintPopup);
    edit.installEventFilter(findChild<PopupGroup*>(QString(), Qt::FindDirectChildrenOnly));
}

void LineEditImpl::onHistoryItemSelectionChanged(const QString& text)
{
    if (!text.isEmpty()) {
        setText(text);
        Q_EMIT editingFinished();
    }
}

void LineEditImpl::onClicked1()
{
    if (m_btnFn.empty()) {
        return;
    }
    // A dialog of the host runs meanwhile, and the edit may be gone when it is closed.
    const QPointer<QObject> alive = this;
    const boost::function<QString(const QString&)> fn = m_btnFn;
    const QString result = fn(text());
    if (alive && result != text()) {
        setText(result);
        selectAll();
    }
}

void LineEditImpl::resizeEvent(QResizeEvent* e)
{
    if (m_btn1 == nullptr) {
        QWidget::resizeEvent(e);
        return;
    }
    const QSize button = m_btn1->sizeHint();
    m_btn1->move(rect().right() - style()->pixelMetric(QStyle::PM_DefaultFrameWidth) -
                     button.width(),
                 (rect().bottom() + 1 - button.height()) / 2);
}

} // namespace zel::qt::detail
