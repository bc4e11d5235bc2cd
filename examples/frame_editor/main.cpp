#include "examples/frame_editor/command_line.h"
#include "examples/frame_editor/document.h"
#include "examples/frame_editor/form.h"
#include "examples/frame_editor/headless_run.h"
#include "examples/frame_editor/main_window.h"
#include "examples/frame_editor/translations.h"
#include "examples/frame_editor/unit_settings.h"

#include "examples/frame_editor/file_error.h"

#include <QApplication>
#include <QMessageBox>
#include <QScreen>
#include <QStandardPaths>

#include <cstdio>
#include <optional>

namespace {

using namespace frame_editor;

int fail(const QString& message)
{
    std::fprintf(stderr, "frame_editor: %s\n", message.toUtf8().constData());
    return 2;
}

bool hasDisplay()
{
    return !qEnvironmentVariableIsEmpty("DISPLAY") ||
           !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") ||
           !qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM");
}

QtMessageHandler outerHandler = nullptr;

/// Drops what the platform without a screen says of itself: standard error is for our own line.
void dropPlatformMessages(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    if (!text.startsWith(QLatin1String("This plugin does not support ")) &&
        !text.startsWith(QLatin1String("QStandardPaths: XDG_RUNTIME_DIR"))) {
        outerHandler(type, context, text);
    }
}

/// Lets the window with its title bar and its status bar stand on a small screen as well.
void fitToScreen(MainWindow& window)
{
    const QSize frame(20, 50); // of the usual window managers, which tell it only afterwards
    window.resize(window.size().boundedTo(window.screen()->availableSize() - frame));
}

/// Opens the model in the window and stays until the window is closed.
int runWindow(const CommandLine& line, Document& document, UnitSettings& units, MainWindow& window,
              const QString& formError)
{
    units.setColumn(line.column);
    window.restoreView(QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation) +
                       QStringLiteral("/view.ini"));
    fitToScreen(window);
    window.show();
    if (!line.formFile.isEmpty()) {
        window.openForm(line.formFile);
    } else if (!formError.isEmpty()) {
        QMessageBox::warning(&window, QObject::tr("The form cannot be used"), formError);
    }
    if (!line.modelFile.isEmpty() && window.openFile(line.modelFile)) {
        QStringList names = line.select;
        for (const Member& member : document.model().members) {
            if (line.selectAll) {
                names << member.name;
            }
        }
        window.select(names);
    }
    return QApplication::exec();
}

/// Reads the arguments and says what there is to say of them alone, in the user's language.
/// @return the code to end the program with, or none if it is to go on
std::optional<int> takeArguments(int& argc, char** argv, CommandLine& line)
{
    // Translations take an application object, and which sort of one is wanted, the arguments tell.
    const QCoreApplication speaker(argc, argv);
    // They are read as UTF-8, whatever the locale: units such as the degree sign stand in them.
    QStringList arguments;
    for (int i = 1; i < argc; ++i) {
        arguments << QString::fromUtf8(argv[i]);
        if (arguments.last().toUtf8() != argv[i]) {
            return fail(QObject::tr("argument %1 is not UTF-8").arg(i));
        }
    }
    QString error;
    if (!parseCommandLine(arguments, line, error)) {
        return fail(error);
    }
    if (line.help) {
        std::fputs(commandLineHelp().toUtf8().constData(), stdout);
        return 0;
    }
    if (!hasDisplay() && !line.headless()) {
        return fail(QObject::tr("there is no display for a window; --help tells what goes "
                                "without one"));
    }
    return std::nullopt;
}

} // namespace

int main(int argc, char* argv[])
{
    registerTranslations();
    CommandLine line;
    if (const std::optional<int> code = takeArguments(argc, argv, line)) {
        return *code;
    }
    if (!hasDisplay()) {
        qputenv("QT_QPA_PLATFORM", "offscreen");
    }
    if (line.headless()) {
        outerHandler = qInstallMessageHandler(dropPlatformMessages);
    }
    QApplication application(argc, argv);
    loadQtTranslations();
    QCoreApplication::setApplicationName(QStringLiteral("frame_editor"));
    Document document;
    UnitSettings units;
    Form form;
    QString formError;
    try {
        form = standardForm();
    } catch (const FileError& formFault) {
        formError = formFault.message();
        if (line.headless() && line.formFile.isEmpty()) {
            fail(formError);
            return 1;
        }
        form = builtInForm();
    }
    MainWindow window(document, units, form);
    return line.headless() ? runHeadless(line, document, units, window)
                           : runWindow(line, document, units, window, formError);
}
