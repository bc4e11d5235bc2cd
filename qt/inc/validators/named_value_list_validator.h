#pragma once

#include "qt/inc/controls/named_value_list.h"
#include "qt/inc/validators/i_validator.h"

#include <boost/optional.hpp>

namespace zel::qt {

/// Translates between a closed list of display names and their values: the text must be one of the
/// names, in exact case, and the value one of the values. An empty text has no meaning of its own.
/// Of several entries the first that fits counts.
class ZEL_QT_EXPORT NamedValueListValidator : public IValidator
{
public:
    /// Copies the list; set_equal_to() has to follow before the first reformat().
    explicit NamedValueListValidator(const NamedValueList& values);
    /// Copies the list too, deliberately: the argument stays as it is, so that one list can be
    /// handed to several validators whatever expression it is.
    explicit NamedValueListValidator(NamedValueList&& values);
    ~NamedValueListValidator() override;

    /// The comparison of a value with an entry's value. It has to cope with values of any type and
    /// with an empty one.
    void set_equal_to(bool (*equalTo)(const boost::any&, const boost::any&));
    /// Makes `name` the text of the empty value, or replaces that name. An entry of the same name
    /// takes precedence.
    void enable_empty_value(const QString& name);

private:
    /// On a refusal `value` stays as it was.
    bool validate(const QString& text, boost::any& value, const std::bitset<32>& flags) override;
    /// The name of a value; an empty text for a value that is not in the list.
    QString reformat(const boost::any& value, const std::bitset<32>& flags) override;

    NamedValueList m_values;
    bool (*m_equal_to)(const boost::any&, const boost::any&) = nullptr;
    boost::optional<QString> m_emptyName;
};

} // namespace zel::qt
