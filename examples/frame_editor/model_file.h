#pragma once

#include "examples/frame_editor/frame_model.h"

#include <QByteArray>
#include <QString>

#include <stdexcept>

namespace frame_editor {

/// A model file that cannot be read or written. The text is one line for the user, in UTF-8: the
/// file, the place in it (line and column, and the path of the value) and what is wrong.
class ModelFileError : public std::runtime_error
{
public:
    explicit ModelFileError(const QString& message);

    QString message() const;
};

/// Reads a model from the text of a file. `fileName` only goes into messages.
/// @throws ModelFileError for anything that the format does not allow, unknown keys included
FrameModel readModel(const QByteArray& text, const QString& fileName);

/// Reads a model file.
/// @throws ModelFileError
FrameModel loadModel(const QString& fileName);

/// The text of a model: the same model gives the same bytes, and each number reads back as the same
/// double (the shortest form that does, which is at most 17 significant digits).
QByteArray writeModel(const FrameModel& model);

/// Writes a model file whole or not at all: a failure leaves an older file as it was.
/// @throws ModelFileError
void saveModel(const FrameModel& model, const QString& fileName);

} // namespace frame_editor
