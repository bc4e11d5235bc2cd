// Text typed into a field of any unit set: two bytes choose the id, one the column, and the rest is
// the text. Beside crashes it looks for answers that differ from the definition of the parsers, for
// answers that are held against another id, and for text that is written but not understood again.

#include "tests/units/reference/expression_parser.h"
#include "units/inc/units.h"

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <stdexcept>
#include <string>
#include <vector>

using namespace zel::units::v1;
namespace reference = zel::test::reference;

namespace {

using Quantity = boost::optional<IConverter::quantity>;

/// The expressions are recursive in the length of the text, and slow.
constexpr std::size_t longestForDefinition = 64;

[[noreturn]] void fail(const char* what)
{
    std::fprintf(stderr, "%s\n", what);
    std::abort();
}

/// UTF-8 where the bytes are that, with two bytes at most; any other byte is a character by
/// itself, and 0xff starts one of four bytes, which need not be a character at all.
std::wstring textOf(const std::uint8_t* data, std::size_t size)
{
    std::wstring text;
    for (std::size_t i = 0; i < size; ++i) {
        if (data[i] == 0xff && i + 4 < size) {
            std::uint32_t number = 0;
            std::memcpy(&number, data + i + 1, sizeof number);
            text.push_back(static_cast<wchar_t>(number));
            i += 4;
        } else if ((data[i] & 0xe0) == 0xc0 && i + 1 < size && (data[i + 1] & 0xc0) == 0x80) {
            text.push_back(static_cast<wchar_t>((data[i] & 0x1f) << 6 | (data[i + 1] & 0x3f)));
            ++i;
        } else {
            text.push_back(static_cast<wchar_t>(data[i]));
        }
    }
    return text;
}

bool areEqual(const Quantity& a, const Quantity& b)
{
    if (!a || !b) {
        return !a && !b;
    }
    const bool bothNan = std::isnan(a->value) && std::isnan(b->value);
    return a->unit_id == b->unit_id &&
           (bothNan || std::memcmp(&a->value, &b->value, sizeof a->value) == 0);
}

struct Fixture
{
    Fixture()
    {
        for (int column = 0; column < 10; ++column) {
            contexts.emplace_back(column);
        }
    }

    std::vector<Context> contexts;
    std::vector<UnitId> ids = ZelUnitProvider().get_unit_ids();
    reference::LabelMap labels = reference::labelsOf(ZelUnitProvider());
    reference::ExpressionParser expressions{reference::ExpressionParser::Compile::Once};
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static Fixture fixture;
    if (size < 3) {
        return 0;
    }
    const std::size_t number = data[0] * 256u + data[1];
    const UnitId id = fixture.ids[number % fixture.ids.size()];
    const Context& context = fixture.contexts[data[2] % fixture.contexts.size()];
    const std::wstring text = textOf(data + 3, size - 3);
    const std::locale& locale = std::locale::classic();

    const Quantity q = context.parse(text, id, locale);
    if (text.size() <= longestForDefinition &&
        !areEqual(q, fixture.expressions.parse(context, fixture.labels, text, id, locale))) {
        fail("differs from the definition");
    }
    if (!q) {
        return 0;
    }
    if (q->unit_id != id) {
        fail("is held against another id");
    }
    const UnitId shown = context.format_provider().get_unit(id);
    // Left out: the two fractional units and numbers that have no text of their own.
    if (!context.converter().can_convert(id, shown) || shown == 215 || shown == 216 ||
        !std::isfinite(q->value) || std::fabs(q->value) > 1e200) {
        return 0;
    }
    const std::string& label = context.unit_provider().get_label(shown);
    if (label == " " || label.find('.') != std::string::npos) {
        return 0; // cannot be typed
    }
    if (!context.parse(context.format(*q, locale), id, locale)) {
        fail("is written, but not understood");
    }
    return 0;
}
