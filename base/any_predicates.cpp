#include "base/any_predicates.h"

#include "platform/smart_assert.h"

namespace zel {

AnyPredicate::AnyPredicate(const boost::function<bool(const boost::any&, const boost::any&)>& fn)
    : m_fn(fn)
{
    ZEL_SMART_ASSERT(!m_fn.empty(), "m_fn");
}

} // namespace zel
