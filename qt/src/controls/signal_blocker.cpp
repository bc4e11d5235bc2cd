#include "qt/inc/controls/signal_blocker.h"

namespace zel::qt {

SignalBlocker::SignalBlocker(QObject* object)
    : m_object(object)
    , m_wasBlocked(object != nullptr && object->blockSignals(true))
{}

SignalBlocker::~SignalBlocker()
{
    if (m_object != nullptr) {
        m_object->blockSignals(m_wasBlocked);
    }
}

} // namespace zel::qt
