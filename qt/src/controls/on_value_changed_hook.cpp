#include "qt/inc/controls/on_value_changed_hook.h"

#include "platform/widgets.h"

#include <utility>

namespace zel::qt {

OnValueChangedHook::OnValueChangedHook(QObject* control, boost::function<void()>&& fn)
    : m_fn(std::move(fn))
{
    zel_connect(control, SIGNAL(valueChanged()), this, SLOT(onValueChanged()), Qt::AutoConnection);
}

OnValueChangedHook::~OnValueChangedHook() = default;

void OnValueChangedHook::onValueChanged()
{
    m_fn();
}

} // namespace zel::qt
