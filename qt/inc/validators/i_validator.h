#pragma once

#include "platform/export.h"

#include <QString>

#include <boost/any.hpp>
#include <boost/noncopyable.hpp>
#include <boost/shared_ptr.hpp>

#include <bitset>
#include <functional>

namespace zel::qt {

/// Translates between the text of an edit and a typed value. A validator holds configuration and
/// no text or value of its own, so several controls can share one.
///
/// Each validator fixes the type inside the boost::any. An empty boost::any is a legal value and
/// means that there is no value.
///
/// Flags: bit 0 set asks for the application's locale, clear for the C locale; the other bits have
/// no meaning. Controls, delegates and the paste of the table view pass all bits clear, so text
/// typed by a user has the point as decimal separator whatever the system's locale; only the copy
/// of the table view sets bit 0.
struct ZEL_QT_EXPORT IValidator : private boost::noncopyable
{
    using pointer = boost::shared_ptr<IValidator>;

    IValidator();
    virtual ~IValidator();

    /// Whether `text` is acceptable while it is being typed. The caller passes an empty `value`.
    /// On true `value` holds the typed value or is empty where the text stands for no value; on
    /// false its content must not be used.
    virtual bool validate(const QString& text, boost::any& value, const std::bitset<32>& flags) = 0;

    /// The same question at the end of editing, where a validator may also clamp.
    /// The default asks validate().
    virtual bool validateWhenFinished(const QString& text, boost::any& value,
                                      const std::bitset<32>& flags);

    /// The text of a value, which has to pass validate() again.
    virtual QString reformat(const boost::any& value, const std::bitset<32>& flags) = 0;

    /// The text of a value for showing it outside an edit: reformat() and, if there is a postfix,
    /// one blank and the postfix, also behind an empty text. It need not be parseable.
    virtual QString reformatForDisplay(const boost::any& value, const std::bitset<32>& flags);

    /// What the hint popup shows for the present text; empty means no hint.
    QString getEditHint(const QString& text) const;

    /// Replaces the function that makes the hint. An empty function switches hints off.
    void setEditHintFunction(std::function<QString(const QString&)> fn);

    /// Replaces what reformatForDisplay() puts behind the value. Empty by default.
    void setPostfix(const QString& postfix);

private:
    QString m_postfix;
    std::function<QString(const QString&)> m_editHintFn;
};

} // namespace zel::qt
