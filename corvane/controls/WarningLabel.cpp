#include "corvane/controls/WarningLabel.h"

#include <QEvent>

namespace corvane::controls {

namespace {

constexpr int kDarkerThan = 128; // lightness from 0 to 255

} // namespace

WarningLabel::WarningLabel(QWidget* parent) : QLabel(parent) { colour(); }

// Palettes have no role for warnings.
void WarningLabel::colour() {
    const bool dark = palette().color(QPalette::Window).lightness() < kDarkerThan;
    const QColor warning = dark ? QColor(0xFF, 0xB0, 0x57) : QColor(0xA8, 0x4B, 0x00);
    if (palette().color(QPalette::WindowText) == warning) return;
    QPalette own;
    own.setColor(QPalette::WindowText, warning);
    setPalette(own);
}

void WarningLabel::changeEvent(QEvent* event) {
    QLabel::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) colour();
}

} // namespace corvane::controls
