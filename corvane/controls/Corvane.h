// The control that gives a host's window a FileHandler: three lines about the library, and one FileHandler for as long
// as the control lives.
#pragma once

#include "corvane/controls/Export.h"

#include <QLabel>
#include <QWidget>
#include <memory>

namespace corvane {
class FileHandler;
}

namespace corvane::controls {

class CORVANE_CONTROLS_EXPORT Corvane : public QWidget {
    Q_OBJECT

public:
    // A control with a FileHandler that has no file yet.
    explicit Corvane(QWidget* parent = nullptr);
    ~Corvane() override;

    // The control's own object, the same one at every call.
    std::shared_ptr<corvane::FileHandler> FileHandler() const { return fileHandler_; }

private:
    QLabel* addLine(const char* name, const char* text);

    std::shared_ptr<corvane::FileHandler> fileHandler_;
};

} // namespace corvane::controls
