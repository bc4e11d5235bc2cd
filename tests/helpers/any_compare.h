#pragma once

#include <boost/any.hpp>

namespace zel::test {

/// Whether both hold the same int, or both are empty.
inline bool equalInts(const boost::any& a, const boost::any& b)
{
    const int* x = boost::any_cast<int>(&a);
    const int* y = boost::any_cast<int>(&b);
    return x == nullptr || y == nullptr ? a.empty() && b.empty() : *x == *y;
}

/// The order of ints, with the empty value before them.
inline bool lessInts(const boost::any& a, const boost::any& b)
{
    const int* x = boost::any_cast<int>(&a);
    const int* y = boost::any_cast<int>(&b);
    return x == nullptr || y == nullptr ? x == nullptr && y != nullptr : *x < *y;
}

} // namespace zel::test
