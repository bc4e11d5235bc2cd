#pragma once

#include "platform/export.h"
#include "qt/inc/controls/multi_edit_control_base.h"

#include <QGroupBox>

namespace zel::qt {

/// A checkable group box for the boolean value of several objects. While they differ the whole
/// group is disabled, which only reset() ends: setValue() gives it a value and leaves it disabled.
class ZEL_QT_EXPORT MultiEditGroupBox : public QGroupBox, public MultiEditControlBase
{
    Q_OBJECT
public:
    /// The parent owns the result. A null parent reports the assertion "parent".
    static MultiEditGroupBox* create(const QString& label, QWidget* parent);
    MultiEditGroupBox(const QString& label, QWidget* parent);
    ~MultiEditGroupBox() override;

    /// The check state, also while the values vary.
    bool getValue() const;

    /// Unchecks and enables the group. Emits nothing.
    void reset() override;
    /// Takes a bool; any other value throws boost::bad_any_cast. Emits nothing.
    void readValue(const boost::any& value) override;
    bool dataVaries() const override;
    /// A bool, or empty while the values vary.
    boost::any getCurrentValue() const override;
    /// Takes a bool and emits valueChanged(), also while the control is loading. Any other value
    /// reports the assertion "checked" and changes nothing.
    void setValue(const boost::any& value) override;
    /// Disables the group and leaves its check state alone. Emits nothing.
    void forceVaries() override;

    /// Keeps what follows silent. Calls do not nest.
    void suspendValueChangedSignal();
    void resumeValueChangedSignal();

Q_SIGNALS:
    /// The user clicked the check box of the title, or setValue() was called.
    void valueChanged();

private Q_SLOTS:
    void onClicked(bool checked);

private:
    void setVarying(bool varies);

    bool m_dataVaries = false;
    bool m_firstRead = true;
    bool m_emitValueChanged = true;
};

} // namespace zel::qt
