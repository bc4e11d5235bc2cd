#pragma once

#include <QString>
#include <QStringList>
#include <QVector>

#include <utility>

namespace frame_editor {

/// What the program is asked to do.
struct CommandLine
{
    using Setting = std::pair<QString, QString>; ///< property and text

    /// What is done in one cell of the table of members: "MEMBER.COLUMN", without a member the row
    /// for a new one.
    struct CellEdit
    {
        QString member;
        QString column;
        QString text; ///< to be typed, or the file whose text is pasted
        bool isPaste = false;
    };

    QString modelFile;  ///< empty for none
    QStringList select; ///< names of members
    bool selectAll = false;
    QVector<Setting> settings; ///< in the order given
    QVector<CellEdit> cells;   ///< in the order given, behind the settings
    int column = 0;            ///< of the unit settings
    QString formFile;          ///< empty for the one that comes with the program
    QString saveFile;          ///< empty for none
    QString screenshotFile;    ///< empty for none
    bool list = false;
    bool print = false;
    bool help = false;

    /// Whether the program does its work and ends, instead of staying with its window.
    bool headless() const;
};

/// Reads the arguments behind the program's name. `error` gets one line if they make no sense.
/// @return whether they do
bool parseCommandLine(const QStringList& arguments, CommandLine& result, QString& error);

QString commandLineHelp();

} // namespace frame_editor
