#pragma once

#include "platform/export.h"

#include <QObject>

#include <memory>

namespace zel::qt {

/// Blocks the signals of an object for its own lifetime and then restores the state that it found.
/// The object has to outlive the blocker. Null is allowed and blocks nothing.
///
/// A function that blocks only under a condition holds a std::shared_ptr<SignalBlocker>, null for
/// "nothing is blocked".
class ZEL_QT_EXPORT SignalBlocker
{
public:
    explicit SignalBlocker(QObject* object);
    ~SignalBlocker();
    SignalBlocker(const SignalBlocker&) = delete;
    SignalBlocker& operator=(const SignalBlocker&) = delete;

private:
    QObject* m_object;
    bool m_wasBlocked;
};

} // namespace zel::qt
