#pragma once

#include "qt/inc/controls/button_configuration.h"
#include "qt/inc/controls/multi_edit_line_edit.h"

#include <functional>
#include <vector>

namespace zel::qt {

/// A MultiEditLineEdit with a tool button at its end whose click is handed to the host.
class ZEL_QT_EXPORT MultiEditLineEditWithButton : public MultiEditLineEdit
{
    Q_OBJECT
public:
    /// A click calls `handler` with `id` and does nothing else. The validator is owned by the line
    /// edit. An empty handler makes the click throw std::bad_function_call.
    MultiEditLineEditWithButton(IValidator* validator, int id, std::function<void(int)> handler);
    /// A click calls `handler` with this widget, `id` and an empty value, and then shows the value
    /// that the handler left there, also if it is still empty. valueChanged() is not emitted.
    MultiEditLineEditWithButton(IValidator* validator, int id,
                                std::function<void(QWidget*, int, boost::any&)> handler);
    ~MultiEditLineEditWithButton() override;

    /// The button, owned by this widget, to be given an icon or a tool tip.
    QToolButton* getButton();

private:
    void init();

    std::vector<ButtonConfiguration> m_buttons;
    int m_id;
    QToolButton* m_btn = nullptr;
};

/// A MultiEditLineEdit with a tool button that brings the field back to a default.
class ZEL_QT_EXPORT MultiEditLineEditWithResetButton : public MultiEditLineEdit
{
    Q_OBJECT
public:
    /// @param validator owned by the line edit
    /// @param resetFn   called by a click with `id` and two empty values: the second argument takes
    ///                  what the field shows from then on, the third what getCurrentValue() gives
    ///                  until the user types. valueChanged() follows. An empty function makes the
    ///                  click throw std::bad_function_call.
    MultiEditLineEditWithResetButton(IValidator* validator, int id,
                                     std::function<void(int, boost::any&, boost::any&)> resetFn);
    ~MultiEditLineEditWithResetButton() override;

    /// After a reset the value that the reset function gave, until the user types: reading other
    /// values into the field does not end this.
    boost::any getCurrentValue() const override;

private:
    void onReset(const std::function<void(int, boost::any&, boost::any&)>& resetFn);

    int m_id;
    bool m_resetActive = false;
    boost::any m_resetValue = 0.0;
};

} // namespace zel::qt
