#pragma once

#include <QString>

#include <stdexcept>

namespace frame_editor {

/// A file that cannot be read or written. The text is one line for the user, in UTF-8: the file,
/// the place in it (line and column, and the path of the value) and what is wrong.
class FileError : public std::runtime_error
{
public:
    explicit FileError(const QString& message)
        : std::runtime_error(message.toStdString())
    {}

    QString message() const
    {
        return QString::fromUtf8(what());
    }
};

} // namespace frame_editor
