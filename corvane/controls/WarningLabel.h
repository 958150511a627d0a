// A line of text that warns, by a colour that stands out on light and on dark windows alike.
#pragma once

#include <QLabel>

namespace corvane::controls {

class WarningLabel : public QLabel {
    Q_OBJECT

public:
    explicit WarningLabel(QWidget* parent);

protected:
    void changeEvent(QEvent* event) override;

private:
    void colour();
};

} // namespace corvane::controls
