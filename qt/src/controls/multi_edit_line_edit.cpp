#include "qt/inc/controls/multi_edit_line_edit.h"

#include "qt/inc/controls/signal_blocker.h"
#include "qt/inc/controls/varies_string.h"
#include "qt/src/controls/accessible_description.h"

#include <memory>
#include <utility>

namespace zel::qt {

MultiEditLineEdit::MultiEditLineEdit(QWidget* parent, const QString& label,
                                     boost::shared_ptr<IValidator> validator,
                                     boost::function<void()> onClicked, unsigned int flags,
                                     ExpandDirection direction)
    : SimpleLineEdit(parent, label, std::move(validator), std::move(onClicked), flags, direction)
{
    // The white look is the base's: setting its sheet once more would restyle every part of the
    // field to the same look.
}

MultiEditLineEdit::~MultiEditLineEdit() = default;

MultiEditLineEdit* MultiEditLineEdit::create(QWidget* parent, const QString& label,
                                             IValidator* validator, unsigned int flags,
                                             ExpandDirection direction)
{
    return create(parent, label, boost::shared_ptr<IValidator>(validator), flags, direction);
}

MultiEditLineEdit* MultiEditLineEdit::create(QWidget* parent, const QString& label,
                                             boost::shared_ptr<IValidator> validator,
                                             unsigned int flags, ExpandDirection direction)
{
    return create(parent, label, std::move(validator), {}, flags, direction);
}

MultiEditLineEdit* MultiEditLineEdit::create(QWidget* parent, const QString& label,
                                             boost::shared_ptr<IValidator> validator,
                                             boost::function<void()> onClicked, unsigned int flags,
                                             ExpandDirection direction)
{
    return new MultiEditLineEdit(parent, label, std::move(validator), std::move(onClicked), flags,
                                 direction);
}

void MultiEditLineEdit::reset()
{
    m_varies = false;
    m_first = true;
}

void MultiEditLineEdit::readValue(const boost::any& value)
{
    if (m_first) {
        m_varies = false;
        m_first = false;
        setValue(value);
    } else if (!m_varies && validator().reformat(value, {}) != edit().text()) {
        forceVaries();
    }
}

bool MultiEditLineEdit::dataVaries() const
{
    return m_varies;
}

boost::any MultiEditLineEdit::getCurrentValue() const
{
    if (dataVaries() || !isValueValid() || showsMarker()) {
        return {};
    }
    // The validity is that of the last text that was validated. The text of the moment may be
    // another one, which the host has set say, and what a validator leaves behind for a text that
    // it refuses must not reach the objects.
    boost::any value;
    return readText(value) ? value : boost::any();
}

void MultiEditLineEdit::setValue(const boost::any& value)
{
    std::shared_ptr<SignalBlocker> blocker;
    if (isLoading()) {
        blocker = std::make_shared<SignalBlocker>(this);
    }
    m_varies = false;
    m_marker.reset();
    SimpleLineEdit::setValue(value);
}

void MultiEditLineEdit::forceVaries()
{
    m_varies = true;
    m_first = false;
    edit().setText(getVariesString());
    m_marker = edit().text();
    detail::describeVarying(edit(), true);
}

void MultiEditLineEdit::copyStateFrom(const MultiEditLineEdit& other)
{
    const bool copiesMarker = other.showsMarker();
    edit().setText(other.edit().text());
    m_marker = boost::make_optional(copiesMarker, edit().text());
    m_first = other.m_first;
    m_varies = other.m_varies;
    detail::describeVarying(edit(), m_varies);
}

bool MultiEditLineEdit::showsMarker() const
{
    return isMarker(edit().text());
}

bool MultiEditLineEdit::vetoValidation(const QString& text)
{
    return text == getVariesString() || isMarker(text);
}

bool MultiEditLineEdit::isMarker(const QString& text) const
{
    // The edit cuts the marker to its longest text, and the language of the application may have
    // changed since: the rest of a marker must not be taken for a text of the user.
    return m_marker && text == m_marker->left(edit().maxLength());
}

void MultiEditLineEdit::onValidated(const QString&, const boost::any&)
{
    m_varies = false;
}

} // namespace zel::qt
