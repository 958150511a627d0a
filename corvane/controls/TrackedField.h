// A field of an editor that remembers whether the user has edited it, and shows it by its background: grey while it is
// untouched and several tags are edited at once, white otherwise.
#pragma once

#include "corvane/controls/FieldColour.h"

#include <QWidget>

namespace corvane::controls {

class TrackedField {
public:
    TrackedField() = default;
    explicit TrackedField(QWidget& widget) : widget_(&widget) {}

    bool isChanged() const { return changed_; }
    Shade shade() const { return shade_; }

    // Makes it an untouched field again.
    void reset(Shade shade) {
        changed_ = false;
        shade_ = shade;
        paint();
    }
    // Notes an edit; only a grey field turns white and counts as changed.
    void noteEdit() {
        if (shade_ != Shade::ButtonFace) return;
        changed_ = true;
        shade_ = Shade::Window;
        paint();
    }
    void paint() const { setShade(*widget_, shade_); }

private:
    QWidget* widget_ = nullptr;
    Shade shade_ = Shade::Window;
    bool changed_ = false;
};

} // namespace corvane::controls
