#pragma once

#include "qt/inc/controls/multi_edit_control_base.h"
#include "qt/inc/controls/simple_line_edit.h"

#include <boost/optional.hpp>

namespace zel::qt {

/// A line edit for one property of several objects. While the values that were read into it differ
/// it shows getVariesString()'s text, and a field that still shows it is silent at the end of
/// editing. A typed text that validates decides the value.
class ZEL_QT_EXPORT MultiEditLineEdit : public SimpleLineEdit, public MultiEditControlBase
{
    Q_OBJECT
public:
    /// The arguments are those of SimpleLineEdit::create().
    static MultiEditLineEdit* create(QWidget* parent, const QString& label, IValidator* validator,
                                     unsigned int flags, ExpandDirection direction);
    static MultiEditLineEdit* create(QWidget* parent, const QString& label,
                                     boost::shared_ptr<IValidator> validator, unsigned int flags,
                                     ExpandDirection direction);
    static MultiEditLineEdit* create(QWidget* parent, const QString& label,
                                     boost::shared_ptr<IValidator> validator,
                                     boost::function<void()> onClicked, unsigned int flags,
                                     ExpandDirection direction);
    ~MultiEditLineEdit() override;

    /// The text stays until the next readValue().
    void reset() override;
    /// Values count as equal if they format to the same text as the one in the edit.
    void readValue(const boost::any& value) override;
    bool dataVaries() const override;
    /// Empty while the values vary, while the text is not valid, and where the text stands for no
    /// value; dataVaries() tells the last case from the first. Empty also when the user has brought
    /// the marker back, by undoing say, though the values then count as decided.
    boost::any getCurrentValue() const override;
    /// Shows a single value. Emits nothing by itself; while the control is loading its signals are
    /// blocked besides.
    void setValue(const boost::any& value) override;
    /// Shows the marker. A following readValue() does not clear it, a reset() and readValue() does.
    void forceVaries() override;

    /// Whether the edit shows the marker, also one that the user has brought back, by undoing say,
    /// though the values then count as decided.
    bool showsMarker() const;

    /// Takes over the text and the varying state of another line edit. Validity, validator and
    /// history stay as they are.
    void copyStateFrom(const MultiEditLineEdit& other);

protected:
    MultiEditLineEdit(QWidget* parent, const QString& label,
                      boost::shared_ptr<IValidator> validator, boost::function<void()> onClicked,
                      unsigned int flags, ExpandDirection direction);

private:
    bool vetoValidation(const QString& text) override;
    void onValidated(const QString& text, const boost::any& value) override;

    bool isMarker(const QString& text) const;

    bool m_varies = false;
    bool m_first = true;
    boost::optional<QString> m_marker; ///< what forceVaries() made the edit show, until setValue()
};

} // namespace zel::qt
