#include "examples/frame_editor/command_line.h"
#include "examples/frame_editor/document.h"
#include "examples/frame_editor/main_window.h"

#include <QApplication>

#include <cstdio>

int main(int argc, char* argv[])
{
    using namespace frame_editor;

    QStringList arguments;
    for (int i = 1; i < argc; ++i) {
        arguments << QString::fromLocal8Bit(argv[i]);
    }
    CommandLine line;
    QString error;
    if (!parseCommandLine(arguments, line, error)) {
        std::fprintf(stderr, "frame_editor: %s\n", qPrintable(error));
        return 2;
    }
    if (line.help) {
        std::fputs(qPrintable(commandLineHelp()), stdout);
        return 0;
    }
    QApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("frame_editor"));
    Document document;
    MainWindow window(document);
    window.show();
    if (!line.modelFile.isEmpty()) {
        window.openFile(line.modelFile);
    }
    return QApplication::exec();
}
