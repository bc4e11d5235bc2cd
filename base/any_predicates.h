#pragma once

#include "platform/export.h"

#include <boost/any.hpp>
#include <boost/function.hpp>

namespace zel {

/// A comparison of two values, as a function object that ordered containers keyed by boost::any
/// can hold and copy.
class ZEL_UNITS_EXPORT AnyPredicate
{
public:
    /// Copies the function. An empty one reports the assertion "m_fn"; calling the object then
    /// throws boost::bad_function_call.
    explicit AnyPredicate(const boost::function<bool(const boost::any&, const boost::any&)>& fn);

    bool operator()(const boost::any& a, const boost::any& b) const
    {
        return m_fn(a, b);
    }

private:
    boost::function<bool(const boost::any&, const boost::any&)> m_fn;
};

} // namespace zel
