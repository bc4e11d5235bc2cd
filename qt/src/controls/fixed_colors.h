#pragma once

class QWidget;

// The sheets of the controls give some colours and leave the others to the palette. Under a dark
// palette the other half has to be changed along.

namespace zel::qt::detail {

/// For a widget that a sheet gives a white background: its text becomes black. Under a sheet a
/// widget does not inherit its parent's palette, so each part is told.
void writeInBlack(QWidget& widget);

/// For an edit whose sheet makes its text black or red: a dark background becomes white.
void writeOnWhite(QWidget& edit);

} // namespace zel::qt::detail
