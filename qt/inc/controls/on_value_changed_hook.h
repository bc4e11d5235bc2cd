#pragma once

#include "platform/export.h"

#include <QObject>

#include <boost/function.hpp>

namespace zel::qt {

/// Calls a function for each valueChanged() of a control. Any object with that signal qualifies.
/// The hook gets no parent: the caller owns it.
class ZEL_QT_EXPORT OnValueChangedHook : public QObject
{
    Q_OBJECT
public:
    /// An empty function makes each signal throw boost::bad_function_call.
    OnValueChangedHook(QObject* control, boost::function<void()>&& fn);
    ~OnValueChangedHook() override;

public Q_SLOTS:
    void onValueChanged();

private:
    boost::function<void()> m_fn;
};

} // namespace zel::qt
