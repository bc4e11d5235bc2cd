#include "base/exception.h"

#include <utility>

namespace zel {

Exception::Exception(std::string text)
    : m_text(std::move(text))
{}

Exception::~Exception() = default;

const char* Exception::what() const noexcept
{
    return m_text.c_str();
}

} // namespace zel
