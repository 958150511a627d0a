// Tells beside a text box that its text will be cut: "34/30" when it has 34 characters and 30 are stored. Empty while
// the text fits.
#pragma once

#include "corvane/controls/WarningLabel.h"

#include <QLineEdit>

namespace corvane::controls {

class FieldLimit : public WarningLabel {
    Q_OBJECT

public:
    // Stands beside the box and watches it.
    FieldLimit(QLineEdit& box, int limit, QWidget* parent);

    int limit() const { return limit_; }
    void setLimit(int limit);

private:
    void look();

    QLineEdit& box_; // a neighbour: both belong to one parent
    int limit_;      // characters
};

} // namespace corvane::controls
