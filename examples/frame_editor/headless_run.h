#pragma once

namespace frame_editor {

class Document;
class MainWindow;
class UnitSettings;
struct CommandLine;

/// Does what the command line asks for, through the widgets of the window, and tells of it: what
/// it did on standard output, one line on standard error if it failed. A failure writes no file.
/// @return the exit code: 0, or 1 after a failure
int runHeadless(const CommandLine& line, Document& document, UnitSettings& units,
                MainWindow& window);

} // namespace frame_editor
