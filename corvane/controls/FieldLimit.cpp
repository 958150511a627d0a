#include "corvane/controls/FieldLimit.h"

#include "corvane/controls/Text.h"

#include <QEvent>

namespace corvane::controls {

namespace {

constexpr int kDarkerThan = 128; // lightness from 0 to 255

} // namespace

FieldLimit::FieldLimit(QLineEdit& box, int limit, QWidget* parent) : QLabel(parent), box_(box), limit_(limit) {
    setObjectName(QStringLiteral("lblLimit") + box.objectName().mid(3));
    setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("000/00")));
    connect(&box, &QLineEdit::textChanged, this, [this] { look(); });
    colour();
    look();
}

void FieldLimit::setLimit(int limit) {
    if (limit == limit_) return;
    limit_ = limit;
    look();
}

void FieldLimit::look() {
    const auto count = characterCount(box_.text());
    const bool cut = count > limit_;
    setText(cut ? QStringLiteral("%1/%2").arg(count).arg(limit_) : QString());
    const QString hint = cut ? tr("Only the first %n character(s) are stored.", nullptr, limit_) : QString();
    setToolTip(hint);
    box_.setToolTip(hint);
    box_.setAccessibleDescription(hint);
}

// A warning has to stand out on light and on dark windows; palettes have no role for it.
void FieldLimit::colour() {
    const bool dark = palette().color(QPalette::Window).lightness() < kDarkerThan;
    const QColor warning = dark ? QColor(0xFF, 0xB0, 0x57) : QColor(0xA8, 0x4B, 0x00);
    if (palette().color(QPalette::WindowText) == warning) return;
    QPalette own;
    own.setColor(QPalette::WindowText, warning);
    setPalette(own);
}

void FieldLimit::changeEvent(QEvent* event) {
    QLabel::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) colour();
}

} // namespace corvane::controls
