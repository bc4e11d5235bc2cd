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
    // A copy, since the host may delete the hook: the function would go with it while it runs.
    const boost::function<void()> fn = m_fn;
    fn();
}

} // namespace zel::qt
