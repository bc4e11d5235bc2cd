#pragma once

#include <locale>

namespace zel::test {

/// Makes a locale the program's global one for as long as it lives.
class ScopedGlobalLocale
{
public:
    explicit ScopedGlobalLocale(const std::locale& locale)
        : m_previous(std::locale::global(locale))
    {}
    ~ScopedGlobalLocale()
    {
        std::locale::global(m_previous);
    }
    ScopedGlobalLocale(const ScopedGlobalLocale&) = delete;
    ScopedGlobalLocale& operator=(const ScopedGlobalLocale&) = delete;

private:
    std::locale m_previous;
};

/// The number format of a country with a decimal comma and points between thousands, whatever
/// locales the machine has.
class CommaNumbers : public std::numpunct<wchar_t>
{
public:
    static std::locale locale()
    {
        return std::locale(std::locale::classic(), new CommaNumbers);
    }

protected:
    wchar_t do_decimal_point() const override
    {
        return L',';
    }
    wchar_t do_thousands_sep() const override
    {
        return L'.';
    }
    std::string do_grouping() const override
    {
        return "\3";
    }
};

} // namespace zel::test
