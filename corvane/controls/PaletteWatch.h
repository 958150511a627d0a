// Runs something whenever the palette of a widget changes, as with a dark theme: colours that were taken from the old
// one have to be taken again.
#pragma once

#include <QEvent>
#include <QWidget>
#include <functional>
#include <utility>

namespace corvane::controls {

class PaletteWatch : public QObject {
public:
    PaletteWatch(QWidget& widget, std::function<void()> run) : run_(std::move(run)) { widget.installEventFilter(this); }

    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        if (event->type() == QEvent::PaletteChange) run_();
        return false;
    }

private:
    std::function<void()> run_;
};

} // namespace corvane::controls
