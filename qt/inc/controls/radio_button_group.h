#pragma once

#include "base/any_predicates.h"
#include "platform/export.h"
#include "qt/inc/controls/multi_edit_control_base.h"
#include "qt/inc/controls/named_value_list.h"

#include <QWidget>

#include <boost/any.hpp>
#include <boost/function.hpp>

#include <map>
#include <memory>

class QRadioButton;

namespace zel::qt {

class ILayouter;

/// One radio button for each entry of a list, to choose one of their values.
class ZEL_QT_EXPORT SimpleRadioButtonGroup : public QWidget
{
    Q_OBJECT
public:
    /// Makes a group; the parent owns it. Reports the assertions "parent", "!values.empty()",
    /// "equalFn" and "lessFn", in this order. For the arguments see the constructor.
    static SimpleRadioButtonGroup*
    create(const QString& label, const NamedValueList& values,
           bool (*const& equalFn)(const boost::any&, const boost::any&),
           const boost::function<bool(const boost::any&, const boost::any&)>& lessFn,
           QWidget* parent, ILayouter* layouter = nullptr, bool withGroupBox = true,
           bool withButtonGroup = true);

    /// Makes the buttons; none is checked.
    /// @param label title of the group box; without effect if there is none
    /// @param values the entries, not empty. Of two entries whose values are equivalent under
    ///        `lessFn` the later one is found by its value.
    /// @param equalFn equality of values; without it no two values are equal
    /// @param lessFn strict ordering of values. An empty function throws boost::bad_function_call
    ///        where values are looked up.
    /// @param layouter places the buttons and is needed during construction only; null for a
    ///        column. Without a group box the caller has run onCreate() on it and runs onFinish().
    /// @param withGroupBox frames the buttons
    /// @param withButtonGroup makes the buttons exclusive by a QButtonGroup instead of by their
    ///        common parent
    SimpleRadioButtonGroup(
        const QString& label, const NamedValueList& values,
        bool (*const& equalFn)(const boost::any&, const boost::any&),
        const boost::function<bool(const boost::any&, const boost::any&)>& lessFn, QWidget* parent,
        ILayouter* layouter = nullptr, bool withGroupBox = true, bool withButtonGroup = true);
    ~SimpleRadioButtonGroup() override;

    /// The value of the checked button. If none is checked, reports the assertion "false" and
    /// answers with the value of the first entry.
    boost::any getSelectedValue() const;
    /// Checks the button of a value. An unknown value reports the assertion
    /// "it != m_value2button.end()" and changes nothing.
    void setSelected(const boost::any& value);
    /// Enables or disables the button of one value. An unknown value reports as in setSelected().
    void setValueEnabled(const boost::any& value, bool enabled);
    /// Enables or disables the buttons of all values.
    void setValuesEnabled(bool enabled);

protected:
    bool (*m_eq)(const boost::any&, const boost::any&);
    boost::function<bool(const boost::any&, const boost::any&)> m_less;
    NamedValueList m_values;
    std::map<boost::any, QRadioButton*, AnyPredicate> m_value2button;
    std::map<QRadioButton*, boost::any> m_button2value;

private:
    /// The button of a value; null with a report if there is none.
    QRadioButton* findButton(const boost::any& value) const;

    std::unique_ptr<ILayouter> m_ownLayouter;
};

/// A radio button group for the value of several objects. While they differ no button is checked,
/// and a click decides. Starts with the first entry.
class ZEL_QT_EXPORT MultiEditRadioButtonGroup : public SimpleRadioButtonGroup,
                                                public MultiEditControlBase
{
    Q_OBJECT
public:
    /// Makes a group; the parent owns it. Reports the assertions "!values.empty()", "lessFn",
    /// "equalFn" and "parent", in this order. The arguments are those of SimpleRadioButtonGroup.
    static MultiEditRadioButtonGroup*
    create(const QString& label, const NamedValueList& values,
           bool (*const& equalFn)(const boost::any&, const boost::any&),
           const boost::function<bool(const boost::any&, const boost::any&)>& lessFn,
           QWidget* parent, ILayouter* layouter = nullptr, bool withGroupBox = true,
           bool withButtonGroup = true);

    /// Makes the buttons and checks the first. The arguments are those of SimpleRadioButtonGroup.
    MultiEditRadioButtonGroup(
        const QString& label, const NamedValueList& values,
        bool (*const& equalFn)(const boost::any&, const boost::any&),
        const boost::function<bool(const boost::any&, const boost::any&)>& lessFn, QWidget* parent,
        ILayouter* layouter = nullptr, bool withGroupBox = true, bool withButtonGroup = true);
    ~MultiEditRadioButtonGroup() override;

    /// getSelectedValue(): while the values vary it reports and gives the first entry's value.
    boost::any getValue() const;

    /// Selects the first entry, enables the group and emits valueChanged() once.
    void reset() override;
    /// Emits valueChanged() for the first value and for the one that makes the group vary.
    void readValue(const boost::any& value) override;
    bool dataVaries() const override;
    /// Empty while the values vary.
    boost::any getCurrentValue() const override;
    /// Selects the value and emits valueChanged(), also for an unknown value, which is reported as
    /// in setSelected().
    void setValue(const boost::any& value) override;
    /// Unchecks all buttons. Emits nothing.
    void forceVaries() override;

Q_SIGNALS:
    /// The user clicked a button, or the value was set, reset or read.
    void valueChanged();

private Q_SLOTS:
    void onClicked(bool checked);

private:
    void onButtonCreated(QRadioButton* button);

    void setVarying(bool varies);

    bool m_dataVaries = false;
    bool m_firstRead = true;
};

} // namespace zel::qt
