// A file of the frame editor. Beside crashes and hangs it looks for refusals of another type than
// the one that is told of, for messages that do not say where, and for models that are not the same
// to the last bit when they are written and read again.

#include "examples/frame_editor/member_property.h"
#include "examples/frame_editor/model_file.h"

#include <QRegularExpression>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <variant>

using namespace frame_editor;

namespace {

const QString fileName = QStringLiteral("model.json");

[[noreturn]] void fail(const char* what, const QByteArray& text)
{
    std::fprintf(stderr, "%s\n%s\n", what, text.constData());
    std::abort();
}

bool areSame(double a, double b)
{
    return std::memcmp(&a, &b, sizeof a) == 0;
}

bool areSame(const Material& a, const Material& b)
{
    return a.name == b.name && areSame(a.elasticModulus, b.elasticModulus) &&
           areSame(a.shearModulus, b.shearModulus) && areSame(a.yieldStrength, b.yieldStrength) &&
           areSame(a.density, b.density) && areSame(a.thermalExpansion, b.thermalExpansion);
}

bool areSame(const Section& a, const Section& b)
{
    return a.name == b.name && areSame(a.depth, b.depth) && areSame(a.width, b.width) &&
           areSame(a.webThickness, b.webThickness) &&
           areSame(a.flangeThickness, b.flangeThickness) && areSame(a.rootRadius, b.rootRadius) &&
           areSame(a.area, b.area) && areSame(a.inertiaY, b.inertiaY) &&
           areSame(a.inertiaZ, b.inertiaZ);
}

bool areSame(const Node& a, const Node& b)
{
    return a.name == b.name && areSame(a.x, b.x) && areSame(a.y, b.y);
}

bool areSame(const PropertyValue& a, const PropertyValue& b)
{
    const double* left = std::get_if<double>(&a);
    const double* right = std::get_if<double>(&b);
    return left != nullptr && right != nullptr ? areSame(*left, *right) : a == b;
}

bool areSame(const Member& a, const Member& b)
{
    const std::vector<MemberProperty>& properties = memberProperties();
    return a.start == b.start && a.end == b.end &&
           std::all_of(properties.begin(), properties.end(), [&](const MemberProperty& property) {
               return areSame(property.get(a), property.get(b));
           });
}

template <class Item>
bool areSame(const std::vector<Item>& a, const std::vector<Item>& b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](const Item& left, const Item& right) { return areSame(left, right); });
}

bool areSame(const FrameModel& a, const FrameModel& b)
{
    return a.title == b.title && areSame(a.materials, b.materials) &&
           areSame(a.sections, b.sections) && areSame(a.nodes, b.nodes) &&
           areSame(a.members, b.members);
}

/// A refusal is one line for the user, with a place that the text has.
void checkRefusal(const FileError& error, const QByteArray& text)
{
    static const QRegularExpression form(
        QStringLiteral("\\Amodel\\.json:([0-9]+):([0-9]+): [^\\p{Cc}\\p{Zl}\\p{Zp}]{10,}\\z"),
        QRegularExpression::UseUnicodePropertiesOption);
    const QByteArray what(error.what());
    const QRegularExpressionMatch match = form.match(error.message());
    if (!match.hasMatch() || error.message().toUtf8() != what) {
        fail("a refusal that is no line with a place", what);
    }
    const QList<QByteArray> lines = text.split('\n');
    const int line = match.captured(1).toInt();
    const int column = match.captured(2).toInt();
    if (line < 1 || line > lines.size() || column < 1 || column > lines[line - 1].size() + 1) {
        fail("a refusal at a place that the text does not have", what);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray text(reinterpret_cast<const char*>(data), static_cast<int>(size));
    FrameModel model;
    try {
        model = readModel(text, fileName);
    } catch (const FileError& error) {
        checkRefusal(error, text);
        return 0;
    }
    // What was read once is taken again: here a refusal ends the program.
    const QByteArray written = writeModel(model);
    const FrameModel again = readModel(written, fileName);
    if (!areSame(model, again)) {
        fail("another model when it is written and read again", written);
    }
    if (writeModel(again) != written) {
        fail("another text when it is written again", written);
    }
    return 0;
}
