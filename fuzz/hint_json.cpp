// A form in a file, as a host reads it. Beside crashes it looks for refusals of another type than
// the one that is told of, and for trees that the readers of the hints then find of a wrong type.

#include "qt/inc/hint_json.h"
#include "platform/smart_assert.h"
#include "qt/inc/factories.h"
#include "qt/inc/validators.h"

#include <QApplication>
#include <QJsonDocument>
#include <QWidget>

#include <sanitizer/lsan_interface.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>
#include <string>

using namespace zel::qt;

namespace {

bool sameType(const boost::any& a, const boost::any& b)
{
    return a.type() == b.type();
}

HintRegistry someRegistry()
{
    HintRegistry registry;
    registry.addComparison(QStringLiteral("eq"), &sameType);
    registry.addValues(QStringLiteral("list"), NamedValueList{{QStringLiteral("a"), 1}});
    registry.addPixmaps(QStringLiteral("pixmaps"), PixmapPtrList{nullptr});
    registry.addDefaultFunction(QStringLiteral("default"),
                                [](const QString& text) { return text; });
    registry.addResetFunction(QStringLiteral("reset"), [](int, boost::any&, boost::any&) {});
    registry.addCallback(QStringLiteral("pick"), [](QWidget*, boost::any&) { return false; });
    return registry;
}

/// Builds, and takes what a description may rightly lead to: a kind that nobody builds, a hint that
/// is missing, a unit that nobody knows. A hint of a wrong type is left to end the program.
template <class Build>
void build(Build make)
{
    try {
        make();
    } catch (const std::out_of_range&) {
    } catch (const std::invalid_argument&) {
    } catch (const boost::property_tree::ptree_bad_path&) {
    }
}

struct Fixture
{
    Fixture()
    {
        // What the controls and validators complain of is tested elsewhere.
        zel::smartassert::setReportHandler([](const zel::smartassert::Report&) {});
    }

    int argc = 1;
    char name[5] = "fuzz";
    char* argv[2] = {name, nullptr};
    QApplication application{argc, argv};
    HintRegistry registry = someRegistry();
    std::shared_ptr<DefaultValidatorFactory> validators =
        std::make_shared<DefaultValidatorFactory>();
    DefaultEditorFactory editors{validators};
};

void useValidator(const Fixture& fixture, const HintTree& hints)
{
    const auto key = readHint<ValidatorKey>(hints, hint_keys::validatorKind);
    if (!key) {
        return;
    }
    build([&] {
        const auto validator = fixture.validators->create(*key, hints.get_child("validator"));
        if (validator) {
            boost::any value;
            validator->validateWhenFinished(QStringLiteral("1"), value, {});
        }
    });
}

void buildEditors(const Fixture& fixture, const HintTree& hints)
{
    QWidget parent;
    build([&] { createEditorFromHints(&parent, hints); });
    // Without "callback", whose timer would have to be waited for.
    for (const char* kind :
         {"lineedit", "unit", "named_value_list", "multi_edit_line_edit_with_reset_button"}) {
        build([&] {
            if (const auto editor = fixture.editors.create(kind, hints)) {
                delete editor->widget;
            }
        });
    }
}

QJsonDocument parsed(const std::uint8_t* data, std::size_t size)
{
    // Qt's reader does not free what it had read of a text that turns out malformed.
    const __lsan::ScopedDisabler leaks;
    return QJsonDocument::fromJson(
        QByteArray(reinterpret_cast<const char*>(data), static_cast<int>(size)));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    // Never freed: the application must not outlive what Qt keeps in statics.
    static const Fixture& fixture = *new Fixture;
    const QJsonDocument document = parsed(data, size);
    if (!document.isObject()) {
        return 0;
    }
    HintTree hints;
    try {
        hints = hintsFromJson(document.object(), fixture.registry);
    } catch (const HintJsonError& e) {
        if (!e.path().startsWith(QLatin1Char('$')) || std::string(e.what()).size() < 10) {
            std::fprintf(stderr, "a refusal that tells nothing: %s\n", e.what());
            std::abort();
        }
        return 0;
    }
    useValidator(fixture, hints);
    buildEditors(fixture, hints);
    return 0;
}
