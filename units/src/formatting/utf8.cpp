#include "units/src/formatting/utf8.h"

#include <cstddef>

namespace zel::units::v1::detail {
namespace {

constexpr char32_t replacement = 0xfffd;

void appendCodePoint(std::wstring& out, char32_t c)
{
    if (sizeof(wchar_t) == 2 && c >= 0x10000) {
        out.push_back(static_cast<wchar_t>(0xd800 + ((c - 0x10000) >> 10)));
        out.push_back(static_cast<wchar_t>(0xdc00 + ((c - 0x10000) & 0x3ff)));
    } else {
        out.push_back(static_cast<wchar_t>(c));
    }
}

/// Reads the code point at `i` and moves `i` behind it.
char32_t readCodePoint(const std::string& utf8, std::size_t& i)
{
    const auto byteAt = [&utf8](std::size_t k) { return static_cast<unsigned char>(utf8[k]); };
    const unsigned char lead = byteAt(i++);
    if (lead < 0x80) {
        return lead;
    }
    const int more = lead >= 0xf0 && lead < 0xf8 ? 3 : lead >= 0xe0 ? 2 : lead >= 0xc2 ? 1 : 0;
    if (more == 0 || lead >= 0xf8) {
        return replacement;
    }
    char32_t c = lead & (0x3fu >> more);
    std::size_t k = i;
    for (int n = 0; n < more; ++n, ++k) {
        if (k >= utf8.size() || (byteAt(k) & 0xc0) != 0x80) {
            return replacement;
        }
        c = (c << 6) | (byteAt(k) & 0x3f);
    }
    constexpr char32_t smallest[] = {0, 0x80, 0x800, 0x10000};
    if (c < smallest[more] || c > 0x10ffff || (c >= 0xd800 && c <= 0xdfff)) {
        return replacement;
    }
    i = k;
    return c;
}

} // namespace

void appendUtf8(std::wstring& out, const std::string& utf8)
{
    for (std::size_t i = 0; i < utf8.size();) {
        appendCodePoint(out, readCodePoint(utf8, i));
    }
}

std::wstring fromUtf8(const std::string& utf8)
{
    std::wstring out;
    out.reserve(utf8.size());
    appendUtf8(out, utf8);
    return out;
}

} // namespace zel::units::v1::detail
