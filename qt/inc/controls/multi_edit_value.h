#pragma once

#include "qt/inc/controls/multi_edit_control_base.h"

namespace zel::qt {

/// The varying-value protocol without a widget, for a value that has no editor of its own. Unlike
/// its base it may be deleted, and derived classes too, through a pointer to it.
class ZEL_QT_EXPORT MultiEditValue : public MultiEditControlBase
{
public:
    /// @param equalFn compares a value read later with the first one. Its result becomes
    ///        dataVaries() as it stands, so it has to return true when the two values differ.
    ///        Null reports the assertion "fn" and throws std::invalid_argument("fn").
    explicit MultiEditValue(bool (*equalFn)(const boost::any&, const boost::any&));
    virtual ~MultiEditValue();

    void reset() override;
    void readValue(const boost::any& value) override;
    bool dataVaries() const override;
    boost::any getCurrentValue() const override;
    /// The next readValue() after a reset() still counts as the first and overwrites the value.
    void setValue(const boost::any& value) override;
    /// Before the first read, that read clears the state again.
    void forceVaries() override;

private:
    bool m_first = true;
    bool m_varies = false;
    boost::any m_value;
    bool (*m_equalFn)(const boost::any&, const boost::any&);
};

} // namespace zel::qt
