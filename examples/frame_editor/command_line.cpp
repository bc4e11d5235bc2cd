#include "examples/frame_editor/command_line.h"

#include <QObject>

namespace frame_editor {

namespace {

/// Takes "MEMBER.COLUMN=TEXT". Neither a column nor its place has a point or an equals sign.
bool takeCell(const QString& option, const QString& value, CommandLine& result, QString& error)
{
    const int equals = value.indexOf(QLatin1Char('='));
    const QString place = value.left(qMax(equals, 0));
    const int point = place.lastIndexOf(QLatin1Char('.'));
    if (point < 0 || point + 1 == place.size()) {
        error = QObject::tr("%1: \"%2\" is not of the form MEMBER.COLUMN=...").arg(option, value);
        return false;
    }
    result.cells.append({place.left(point), place.mid(point + 1), value.mid(equals + 1),
                         option == QLatin1String("--paste")});
    return true;
}

/// Takes one option with its value off the line.
bool takeOption(const QString& option, const QString& value, CommandLine& result, QString& error)
{
    if (option == QLatin1String("--select")) {
        const QStringList names = value.split(QLatin1Char(','));
        if (names.contains(QString())) {
            error = QObject::tr("--select: an empty name in \"%1\"").arg(value);
        }
        result.select += names;
    } else if (option == QLatin1String("--set")) {
        const int equals = value.indexOf(QLatin1Char('='));
        if (equals <= 0) {
            error = QObject::tr("--set: \"%1\" is not of the form PROPERTY=TEXT").arg(value);
        }
        result.settings.append({value.left(equals), value.mid(equals + 1)});
    } else if (option == QLatin1String("--cell") || option == QLatin1String("--paste")) {
        takeCell(option, value, result, error);
    } else if (option == QLatin1String("--units")) {
        bool ok = false;
        result.column = value.toInt(&ok);
        if (!ok || result.column < 0 || result.column > 9) {
            error = QObject::tr("--units: \"%1\" is no column from 0 to 9").arg(value);
        }
    } else if (value.isEmpty()) {
        error = QObject::tr("%1: the file name is empty").arg(option);
    } else if (option == QLatin1String("--form")) {
        result.formFile = value;
    } else if (option == QLatin1String("--save")) {
        result.saveFile = value;
    } else {
        result.screenshotFile = value;
    }
    return error.isEmpty();
}

bool takeFlag(const QString& option, CommandLine& result)
{
    if (option == QLatin1String("--list")) {
        result.list = true;
    } else if (option == QLatin1String("--print")) {
        result.print = true;
    } else if (option == QLatin1String("--select-all")) {
        result.selectAll = true;
    } else if (option == QLatin1String("--help") || option == QLatin1String("-h")) {
        result.help = true;
    } else {
        return false;
    }
    return true;
}

} // namespace

bool CommandLine::headless() const
{
    return list || print || !settings.isEmpty() || !cells.isEmpty() || !saveFile.isEmpty() ||
           !screenshotFile.isEmpty();
}

bool parseCommandLine(const QStringList& arguments, CommandLine& result, QString& error)
{
    static const QStringList options{QStringLiteral("--select"), QStringLiteral("--set"),
                                     QStringLiteral("--units"),  QStringLiteral("--form"),
                                     QStringLiteral("--save"),   QStringLiteral("--screenshot"),
                                     QStringLiteral("--cell"),   QStringLiteral("--paste")};
    error.clear();
    for (int i = 0; i < arguments.size() && error.isEmpty(); ++i) {
        const QString& argument = arguments.at(i);
        const int equals = argument.indexOf(QLatin1Char('='));
        const QString name = equals > 0 ? argument.left(equals) : argument;
        if (options.contains(name)) {
            if (equals > 0) {
                takeOption(name, argument.mid(equals + 1), result, error);
            } else if (++i < arguments.size()) {
                takeOption(name, arguments.at(i), result, error);
            } else {
                error = QObject::tr("%1 needs a value").arg(name);
            }
        } else if (takeFlag(argument, result)) {
            continue;
        } else if (argument.startsWith(QLatin1Char('-'))) {
            error = QObject::tr("unknown option %1").arg(argument);
        } else if (!result.modelFile.isEmpty()) {
            error = QObject::tr("one model file is enough: %1").arg(argument);
        } else {
            result.modelFile = argument;
        }
    }
    if (error.isEmpty() && result.headless() && result.modelFile.isEmpty() && !result.help) {
        error = QObject::tr("a model file is needed");
    }
    if (error.isEmpty() && !result.settings.isEmpty() && result.select.isEmpty() &&
        !result.selectAll) {
        error = QObject::tr("--set needs --select NAMES or --select-all");
    }
    return error.isEmpty();
}

QString commandLineHelp()
{
    return QObject::tr(
               "Usage: frame_editor [MODEL.json] [options]\n"
               "\n"
               "Without options of the second group a window opens on the model. With one of them "
               "the\n"
               "program types into the same window without showing it, tells what came of it, and "
               "ends.\n"
               "\n"
               "  --select NAMES       selects members, names separated by commas; may be "
               "repeated\n"
               "  --select-all         selects all members\n"
               "  --units COLUMN       unit settings, 0 to 9: 0 to 7 metric, 8 and 9 imperial\n"
               "  --form FILE          the form of the properties, in place of the one that comes "
               "along\n"
               "\n"
               "  --set PROPERTY=TEXT  types TEXT into the field of the selected members; may be "
               "repeated\n"
               "  --list               prints the members, the selected ones if there are any\n"
               "  --print              prints their properties, at the end of all settings\n"
               "  --save FILE          writes the model\n"
               "  --screenshot FILE    writes a picture of the window\n"
               "\n"
               "Choices, yes and no are written as in a model file or in English, in whatever "
               "language "
               "the\n"
               "window speaks. A text that is refused ends the program with code 1, and nothing\n"
               "is written.\n") +
           QObject::tr(
               "\n"
               "In the table of members, after the fields and in the order given; may be "
               "repeated:\n"
               "  --cell MEMBER.COLUMN=TEXT   types TEXT into a cell\n"
               "  --paste MEMBER.COLUMN=FILE  pastes the text of FILE with that cell as its "
               "corner;\n"
               "                       without a member the row below the last one is meant\n");
}

} // namespace frame_editor
