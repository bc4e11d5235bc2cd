#include "docs/snippets/expect.h"
//! [headers]
#include "platform/environment.h"
#include "platform/smart_assert.h"
#include "units/inc/units.h"

#include <QApplication>
#include <QLocale>
#include <QTranslator>

#include <cstring>

using namespace zel;
//! [headers]

#include "qt/inc/controls.h"
#include "qt/inc/validators.h"

#include <QTemporaryDir>

namespace {

QStringList logged;

void log(const QString& line)
{
    logged.append(line);
}

} // namespace

int main(int argc, char** argv)
{
    //! [locale]
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
    QApplication application(argc, argv); // the translations are loaded here
    //! [locale]
    EXPECT(qt::getVariesString() == QStringLiteral("*VARIIERT*"));

    //! [language]
    auto* translator = new QTranslator(&application);
    if (translator->load(QLocale(QLocale::French), "zel_qt2_dll", "_", ":/zel/translations")) {
        QCoreApplication::installTranslator(translator); // the newest comes first
    }
    //! [language]
    EXPECT(qt::getVariesString() == QStringLiteral("*VARIE*"));

    //! [assertions]
    smartassert::setReportHandler([](const smartassert::Report& report) {
        QString line = QStringLiteral("%1:%2: %3")
                           .arg(QString::fromStdString(report.file))
                           .arg(report.line)
                           .arg(QString::fromStdString(report.expression));
        for (const auto& [name, value] : report.values) {
            line += QStringLiteral("; %1 = %2")
                        .arg(QString::fromStdString(name), QString::fromStdWString(value));
        }
        log(line);
    });
    //! [assertions]
    qt::DoubleEditValidator range;
    range.setRange(3.0, 2.0);
    EXPECT(logged.size() == 1 && logged.first().contains(QStringLiteral("min < max")));
    smartassert::setReportHandler({});

    const QTemporaryDir folder;
    QPixmap(16, 16).save(folder.filePath(QStringLiteral("beam.png")));
    const std::wstring imageFolder = folder.path().toStdWString();
    //! [images]
    app::PathGroup& images = app::Environment::instance().getPaths("");
    images.add(imageFolder);             // a folder of the host
    images.add(L":/frame_editor/icons"); // or of its Qt resources
    //! [images]
    EXPECT(!images.find(L"beam.png").empty());
    EXPECT(!images.find(L"control_repeat_blue.png").empty());

    //! [settings]
    units::v1::Context settings(6);                                  // a column of unit settings
    settings.format_provider().set_decimals(units::UnitId(1001), 0); // lengths without decimals
    units::v1::set_active_input_context(settings);
    //! [settings]
    EXPECT(zel_get_unit_decimals(1001, 0) == 0);

    //! [unit library]
    units::v1::set_unit_library({
        [](int unit, int) { return unit == 1001 ? 0.001 : 1.0; },
        [](int unit, int) { return unit == 1001 ? 0 : -1; },
        [](int unit, int, char* buffer, int size) {
            if (unit != 1001 || size < 3) {
                return 0;
            }
            std::strcpy(buffer, "mm");
            return 1;
        },
    });
    //! [unit library]
    EXPECT(zel_get_unitd(1001, 0) == 0.001);
    char label[8] = "";
    EXPECT(zel_get_unit_label(1001, 0, label, sizeof label) != 0);
    EXPECT(std::strcmp(label, "mm") == 0);
    units::v1::set_unit_library({});
    return failedExpectations();
}
