#pragma once

#include "platform/export.h"

#include <exception>
#include <string>

namespace zel {

/// The base of the exceptions that zel throws by a type of its own; holds a UTF-8 text.
class ZEL_UNITS_EXPORT Exception : public std::exception
{
public:
    explicit Exception(std::string text);
    ~Exception() override;

    const char* what() const noexcept override;

private:
    std::string m_text;
};

} // namespace zel
