#pragma once

namespace frame_editor {

/// Has the German and French texts of the program loaded for the locale of each application object
/// that is made from now on, as the library does with its own.
void registerTranslations();

/// Loads the texts of Qt itself, the buttons of message boxes and the like, in the language that
/// the program speaks, if Qt's translations are installed. Takes an application object.
void loadQtTranslations();

} // namespace frame_editor
