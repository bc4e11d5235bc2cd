#pragma once

#include "platform/export.h"
#include "qt/inc/controls/multi_edit_control_base.h"

#include <QString>
#include <QWidget>

class QCheckBox;

namespace zel::qt {

/// A check box for one boolean value.
class ZEL_QT_EXPORT SimpleCheckBox : public QWidget
{
    Q_OBJECT
public:
    /// The parent owns the result. A null parent reports the assertion "parent".
    static SimpleCheckBox* create(const QString& label, QWidget* parent);
    SimpleCheckBox(const QString& label, QWidget* parent);
    ~SimpleCheckBox() override;

    bool isChecked() const;
    /// Shows a value. A plain check box tells nobody; see MultiEditCheckBox for one that does.
    virtual void setChecked(bool checked);

protected:
    QCheckBox* m_checkBox;
};

/// A check box for the boolean value of several objects. While they differ it is partially
/// checked, and the first click makes the value true.
class ZEL_QT_EXPORT MultiEditCheckBox : public SimpleCheckBox, public MultiEditControlBase
{
    Q_OBJECT
public:
    /// The parent owns the result. A null parent reports the assertion "parent".
    static MultiEditCheckBox* create(const QString& label, QWidget* parent);
    MultiEditCheckBox(const QString& label, QWidget* parent);
    ~MultiEditCheckBox() override;

    /// The shown state; true while the values vary.
    bool getValue() const;
    /// Leaves the varying state. Emits valueChanged() twice if the shown state changes and once if
    /// it does not; both are silent between suspendValueChangedSignal() and
    /// resumeValueChangedSignal().
    void setChecked(bool checked) override;

    /// Unchecks the box. Emits valueChanged() if that changes the shown state.
    void reset() override;
    /// Takes a bool; any other value throws boost::bad_any_cast. A first value that changes the
    /// shown state emits valueChanged(), unless the control is loading.
    void readValue(const boost::any& value) override;
    bool dataVaries() const override;
    /// A bool, or empty while the values vary.
    boost::any getCurrentValue() const override;
    /// Takes a bool as setChecked() does, without a signal while the control is loading. Any other
    /// value reports the assertion "v" and changes nothing.
    void setValue(const boost::any& value) override;
    /// Shows the partial state. Emits nothing.
    void forceVaries() override;

    /// Keeps the state changes that follow silent. Calls do not nest.
    void suspendValueChangedSignal();
    void resumeValueChangedSignal();

Q_SIGNALS:
    /// The user clicked, or the value was set.
    void valueChanged();

private Q_SLOTS:
    void onClicked(int state);

private:
    void setVarying(bool varies);

    bool m_dataVaries = false;
    bool m_firstRead = true;
    bool m_emitValueChanged = true;
};

} // namespace zel::qt
