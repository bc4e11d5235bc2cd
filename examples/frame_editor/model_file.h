#pragma once

#include "examples/frame_editor/file_error.h"
#include "examples/frame_editor/frame_model.h"

#include <QByteArray>
#include <QString>

namespace frame_editor {

/// Reads a model from the text of a file. `fileName` only goes into messages.
/// @throws FileError for anything that the format does not allow, unknown keys included
FrameModel readModel(const QByteArray& text, const QString& fileName);

/// Reads a model file.
/// @throws FileError
FrameModel loadModel(const QString& fileName);

/// The text of a model: the same model gives the same bytes, and each number reads back as the same
/// double (the shortest form that does, which is at most 17 significant digits).
QByteArray writeModel(const FrameModel& model);

/// Writes a model file whole or not at all: a failure leaves an older file as it was.
/// @throws FileError
void saveModel(const FrameModel& model, const QString& fileName);

} // namespace frame_editor
