#pragma once

#include <QString>

#include <stdexcept>

namespace frame_editor {

/// The text with every line end and control character replaced, as a message of one line needs it
/// that quotes what stands in a file.
inline QString onOneLine(QString text)
{
    for (QChar& c : text) {
        if (c.category() == QChar::Other_Control || c.category() == QChar::Separator_Line ||
            c.category() == QChar::Separator_Paragraph) {
            c = QChar::ReplacementCharacter;
        }
    }
    return text;
}

/// A file that cannot be read or written. The text is one line for the user, in UTF-8: the file,
/// the place in it (line and column, and the path of the value) and what is wrong.
class FileError : public std::runtime_error
{
public:
    explicit FileError(const QString& message)
        : std::runtime_error(onOneLine(message).toStdString())
    {}

    QString message() const
    {
        return QString::fromUtf8(what());
    }
};

} // namespace frame_editor
