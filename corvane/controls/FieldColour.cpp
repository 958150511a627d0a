#include "corvane/controls/FieldColour.h"

#include <QComboBox>
#include <QPalette>

namespace corvane::controls {

void setShade(QWidget& field, Shade shade) {
    const QPalette around = field.parentWidget() ? field.parentWidget()->palette() : QPalette();
    const bool window = shade == Shade::Window;
    // A list to choose from is painted as a button, any other field as a base for text.
    const bool list = qobject_cast<QComboBox*>(&field) != nullptr;
    QPalette palette;
    for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
        const QBrush& background = around.brush(group, window ? QPalette::Base : QPalette::Button);
        const QBrush& text = around.brush(group, window ? QPalette::Text : QPalette::ButtonText);
        palette.setBrush(group, list ? QPalette::Button : QPalette::Base, background);
        palette.setBrush(group, list ? QPalette::ButtonText : QPalette::Text, text);
    }
    field.setPalette(palette);
}

} // namespace corvane::controls
