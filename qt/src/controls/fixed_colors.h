#pragma once

class QColor;
class QWidget;

// The sheets of the controls give some colours and leave the others to the palette. Under a dark
// palette the other half has to be changed along.

namespace zel::qt::detail {

/// For a widget that a sheet gives a white background: its text becomes black, and white what is
/// below it without the sheet. Under a sheet a
/// widget does not inherit its parent's palette, so each part is told.
void writeInBlack(QWidget& widget);

/// For an edit whose sheet makes its text black or red: a dark background becomes white.
void writeOnWhite(QWidget& edit);

/// The colour in which text can be read on a background that does not come from the palette.
QColor textColorOn(const QColor& background);

} // namespace zel::qt::detail
