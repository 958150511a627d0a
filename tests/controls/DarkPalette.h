// A dark desktop, for pictures of windows.
#pragma once

#include <QPalette>

namespace corvane::controls {

inline QPalette darkPalette() {
    QPalette dark(QColor(53, 53, 53));
    dark.setColor(QPalette::Base, QColor(30, 30, 30));
    dark.setColor(QPalette::AlternateBase, QColor(38, 38, 38));
    dark.setColor(QPalette::Window, QColor(45, 45, 45));
    dark.setColor(QPalette::Highlight, QColor(42, 130, 218));
    for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText}) {
        dark.setColor(role, QColor(225, 225, 225));
        dark.setColor(QPalette::Disabled, role, QColor(128, 128, 128));
    }
    return dark;
}

} // namespace corvane::controls
