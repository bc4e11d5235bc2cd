#include "qt/inc/controls/multi_edit_line_edit_with_button.h"

#include "platform/smart_assert.h"
#include "qt/inc/controls/pixmap.h"

#include <QPointer>
#include <QToolButton>

#include <utility>

namespace zel::qt {
namespace {

/// Puts a button behind the other parts of a line edit.
void appendToLayout(QLayout* lay, QToolButton* button)
{
    ZEL_SMART_ASSERT(lay != nullptr, "lay");
    if (lay == nullptr) {
        return;
    }
    lay->setContentsMargins(0, 0, 0, 0);
    lay->setSpacing(0);
    lay->addWidget(button);
}

} // namespace

MultiEditLineEditWithButton::MultiEditLineEditWithButton(IValidator* validator, int id,
                                                         std::function<void(int)> handler)
    : MultiEditLineEdit(nullptr, QString(), boost::shared_ptr<IValidator>(validator), {}, 0,
                        ExpandRight)
    , m_id(id)
{
    init();
    connect(m_btn, &QToolButton::clicked, this,
            [this, handler = std::move(handler)] { handler(m_id); });
}

MultiEditLineEditWithButton::MultiEditLineEditWithButton(
    IValidator* validator, int id, std::function<void(QWidget*, int, boost::any&)> handler)
    : MultiEditLineEdit(nullptr, QString(), boost::shared_ptr<IValidator>(validator), {}, 0,
                        ExpandRight)
    , m_id(id)
{
    init();
    connect(m_btn, &QToolButton::clicked, this, [this, id, handler = std::move(handler)] {
        // A dialog of the host runs meanwhile, and the field may be gone when it is closed.
        const QPointer<QObject> alive = this;
        boost::any value;
        handler(this, id, value);
        if (alive) {
            setValue(value);
        }
    });
}

MultiEditLineEditWithButton::~MultiEditLineEditWithButton() = default;

QToolButton* MultiEditLineEditWithButton::getButton()
{
    return m_btn;
}

void MultiEditLineEditWithButton::init()
{
    m_btn = new QToolButton(this);
    m_btn->setObjectName(QStringLiteral("m_btn"));
    appendToLayout(layout(), m_btn);
}

MultiEditLineEditWithResetButton::MultiEditLineEditWithResetButton(
    IValidator* validator, int id, std::function<void(int, boost::any&, boost::any&)> resetFn)
    : MultiEditLineEdit(nullptr, QString(), boost::shared_ptr<IValidator>(validator), {}, 0,
                        ExpandRight)
    , m_id(id)
{
    auto* button = new QToolButton(this);
    button->setObjectName(QStringLiteral("btn"));
    button->setIcon(Pixmap::createOrDefault(L"control_repeat_blue.png"));
    button->setToolTip(QObject::tr("Reset to default.", "makeLineEditWithOptionalValue"));
    button->setAccessibleName(button->toolTip());
    appendToLayout(layout(), button);
    // Only the user's typing ends a reset; a text that is set does not emit this signal.
    connect(&edit(), &QLineEdit::textEdited, this, [this] { m_resetActive = false; });
    connect(button, &QToolButton::clicked, this,
            [this, resetFn = std::move(resetFn)] { onReset(resetFn); });
}

MultiEditLineEditWithResetButton::~MultiEditLineEditWithResetButton() = default;

boost::any MultiEditLineEditWithResetButton::getCurrentValue() const
{
    if (dataVaries()) {
        return {};
    }
    return m_resetActive ? m_resetValue : MultiEditLineEdit::getCurrentValue();
}

void MultiEditLineEditWithResetButton::onReset(
    const std::function<void(int, boost::any&, boost::any&)>& resetFn)
{
    boost::any shown;
    boost::any result;
    const QPointer<QObject> alive = this;
    resetFn(m_id, shown, result);
    if (!alive) {
        return;
    }
    m_resetActive = true;
    m_resetValue = result;
    setValue(shown);
    Q_EMIT valueChanged();
}

} // namespace zel::qt
