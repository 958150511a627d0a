// Backgrounds of fields. They are roles of the palette around the field, so they follow dark themes; whoever sets one
// sets it again when that palette changes.
#pragma once

#include <QWidget>

namespace corvane::controls {

enum class Shade : bool {
    Window,    // the background of texts: the field counts as edited, or can be edited
    ButtonFace // the background of buttons: an untouched or locked field
};

// Gives a field the background that the palette of its parent has for it.
void setShade(QWidget& field, Shade shade);

} // namespace corvane::controls
